#pragma once

#include "files/vdr810_head.h"
#include "model/logic_config.h"
#include "platform/file_error.h"
#include "platform/file_system.h"

#include <cstdint>
#include <string>
#include <string_view>

/// The option files (.810) that tell what signals a VDR810 of a settings file version and options number has;
/// a text described in docs/vdr810-option-file.md.
namespace brindle {

struct OptionFile {
    Vdr810Head Head;
    std::int16_t Unconnected = 0; ///< number of the signal that an unconnected input holds
    Vdr810Lists Lists;
};

/// "PLC00230_OPT00012.810": version, as it is written, times 100 and options number in five digits. A number
/// of five digits and more stands without the letters before it.
std::string OptionFileName(double version, int options);

/// Reads the option file at `path`. One that is malformed is refused whole: TypeMismatchError where a number
/// or a flag should be, OverflowError, SubscriptError for a line of too many or too few fields, for more
/// entries than the head promises and for a line outside any section, InputPastEndError where it ends early;
/// the error's source names file and line. On failure `option` is unchanged.
FileError ReadOptionFile(const FileSystem& files, const std::string& path, OptionFile& option);

/// The same from the text of a file.
FileError DecodeOptionFile(std::string_view text, const std::string& source, OptionFile& option);

/// The text of the option file of a logic, its lists counted as they are.
std::string EncodeOptionFile(const LogicConfig& config);

/// Writes the option file of a logic into `folder` unless a file of its name is there.
FileError WriteOptionFile(const FileSystem& files, const std::string& folder, const LogicConfig& config);

/// Gives a logic the lists of its option file and its unconnected signal; the logic's own head holds. A
/// number for the unconnected signal that the logic does not have, as a file that counts more signals may
/// bring, is not taken.
void TakeLists(LogicConfig& config, const OptionFile& option);

/// Makes `config` a new, empty logic of an option file: head, lists, every input unconnected. File path,
/// title and `Modified` are the caller's.
void MakeNewVdr810(LogicConfig& config, const OptionFile& option);

} // namespace brindle
