#pragma once

#include <cstdint>

/// The test program as a program of the user's: a main window that saves its file again and again, for tests
/// that need more than one process.
namespace brindle {

inline constexpr const char* SavingProgramFolder = "BRINDLE_SAVING_FOLDER"; ///< environment: its folder
inline constexpr const char* SavingProgramNumber = "BRINDLE_SAVING_NUMBER"; ///< environment: 0 or 1
inline constexpr const char* SavingProgramFile = "scheme.pl";               ///< in that folder

/// The pick-up time of group 1, timer 1 that program `number` saves last.
std::int32_t LastPickUpOf(int number);

/// Opens the file and saves it with one pick-up time after the other. Returns 0 when the user was told of
/// nothing and the logic counts as saved at the end. The environment names the folder.
int RunSavingProgram();

} // namespace brindle
