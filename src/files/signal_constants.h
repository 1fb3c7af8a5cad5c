#pragma once

#include "platform/file_error.h"
#include "platform/file_system.h"

#include <string>

/// A developer's aid: the logic bits as named constants for other programs' source.
namespace brindle {

inline constexpr const char* SignalConstantsFileName = "Const.tmp";

/// The whole text of the file: a line for each bit 0 to 100, ended by CR LF. It depends on no logic.
std::string SignalConstantsText();

/// Writes the constants to "Const.tmp" in `currentFolder`, replacing what is there. On failure an old file is
/// as it was.
FileError ExportSignalConstants(const FileSystem& files, const std::string& currentFolder);

} // namespace brindle
