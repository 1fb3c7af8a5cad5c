#pragma once

#include "platform/file_system.h"

#include <functional>
#include <string>

namespace brindle {

inline constexpr const char* HelpFileName = "Brindle32.hlp"; ///< in the program's folder

/// What showing the help asks of the world around it.
struct HelpFunctions {
    FileSystem Files;
    /// Opens a help file with the system's help engine; false where there is none.
    std::function<bool(const std::string& path)> OpenWithEngine;
    /// Shows the guide in a window of our own.
    std::function<void()> ShowGuide;
};

/// Opens the help file of the program's folder with the system's help engine; where either is missing, shows
/// the guide.
void ShowHelp(const std::string& programFolder, const HelpFunctions& functions);

} // namespace brindle
