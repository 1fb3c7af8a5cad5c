#pragma once

#include "files/file_origin.h"
#include "files/file_stamp.h"
#include "model/logic_config.h"

#include <string>
#include <string_view>

/// A copy of a logic that is being edited, from which it can be brought back after a crash. The file is ours
/// alone:
///
///     Brindle recovery copy 2
///     sum=0123456789abcdef
///     new=no
///     file=2048,0123456789abcdef
///     kept=16
///     21.11.2026 14:02
///     path=18
///     /home/me/scheme.pl
///     title=9
///     scheme.pl
///     logic=2048
///     ...
///
/// "sum" is the hash (FNV-1a with 64 bits) of all bytes after its line, by which a damaged copy is known.
/// "new=yes" is a logic that was never saved under its name, "new=part" one that was read of a refused file.
/// "file" tells size and hash of the content that the logic's file had when it was read or written last,
/// "file=none" that there was none or that it is not known. After each of the others a count of bytes, the
/// bytes and a line end follow, so that they may be any: when the copy was written, for the user to read;
/// path and name of the file that the logic is of; its bytes. A VDR810's logic stands as "text" and is
/// followed by "option", its option file, which has the lists of signals. Lines end in LF. Copies of format
/// 1, which has neither sum nor file, are read too.
namespace brindle {

struct RecoveryCopy {
    std::string Path;
    std::string Title;
    FileOrigin Origin = FileOrigin::New;
    std::string KeptAt;
    std::string Logic;                ///< as RecoveryLogic makes it
    FileStamp Stamp = UnknownStamp(); ///< of the file; of its status, only type and size are kept
};

/// The part of a copy that is the logic: equal for logics that files hold as equal. Empty for a logic that no
/// file can hold.
std::string RecoveryLogic(const LogicConfig& config);

std::string EncodeRecoveryCopy(const RecoveryCopy& copy);

/// Reads a copy and its logic, with path and title. False, and nothing changed, for anything that
/// EncodeRecoveryCopy does not make of a logic.
bool DecodeRecoveryCopy(std::string_view bytes, RecoveryCopy& copy, LogicConfig& config);

} // namespace brindle
