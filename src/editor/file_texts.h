#pragma once

/// First lines of the box that tells of a failed file command.
namespace brindle {

inline constexpr const char* OpenFailedText = "There was an error trying to open the File.";
inline constexpr const char* SaveFailedText = "There was an error trying to save the File.";

} // namespace brindle
