#pragma once

#include "files/foreign_file.h"
#include "files/whole_file.h"
#include "model/logic_config.h"
#include "platform/file_error.h"
#include "platform/file_system.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

/// The program file (.pl) from which a VDR812 takes its logic: 2048 bytes, described in docs/program-file.md.
namespace brindle {

inline constexpr std::size_t ProgramFileSize = 2048;
inline constexpr std::string_view ProgramMagic = "plcd"; ///< with which every program begins

/// The bytes of a whole program file.
using ProgramImage = std::array<char, ProgramFileSize>;

/// `value` with its four bytes in reverse order: files hold 32-bit integers most significant byte first. Its
/// own inverse.
std::int32_t FormatToIntelLong(std::int32_t value);

/// The file image of a logic. Fails with OverflowError, its source naming the input, when a code of the logic
/// is outside 0 to 255; `image` is then unchanged. Of the output map, only bank 1 of each slot is stored.
FileError EncodeProgram(const LogicConfig& config, ProgramImage& image);

/// Replaces the logic of `config` by that of a file's bytes, and with it model, version, group count, coding
/// and output range. Bytes that are missing read as zero, those beyond 2048 are ignored; nothing is
/// validated. File path, title and `Modified` are the caller's.
void DecodeProgram(std::string_view bytes, LogicConfig& config);

/// What the file that a program was read from is.
struct ProgramReading {
    std::uint64_t Size = 0; ///< of the whole file
    ProgramKind Kind = ProgramKind::Vdr812;
};

/// Reads the file at `path` into `config`, whatever it is, and tells what it is. On failure both are
/// unchanged.
FileError ReadProgramFile(const FileSystem& files, const std::string& path, LogicConfig& config,
                          ProgramReading& reading);

/// Writes `config` to the file at `path`, replacing it whole, or leaves the old file.
FileError WriteProgramFile(const FileSystem& files, const std::string& path, const LogicConfig& config,
                           const ReplaceRules& rules = {});

} // namespace brindle
