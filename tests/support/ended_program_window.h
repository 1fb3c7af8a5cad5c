#pragma once

namespace brindle {

/// Names the folder of a program that a test starts to end it from outside (an environment variable).
inline constexpr const char* EndedProgramFolder = "BRINDLE_TEST_ENDED_PROGRAM";

/// The time that this program types in, and saves nowhere.
inline constexpr int EndedProgramTime = 4321;

/// The editor in that folder, run as the program itself runs it; types in a time, says "ready" on
/// standard output and waits for its end.
int RunEndedProgram();

} // namespace brindle
