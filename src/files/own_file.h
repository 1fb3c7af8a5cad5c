#pragma once

#include "platform/file_error.h"
#include "platform/file_system.h"

#include <string>
#include <string_view>

/// Files that the program keeps for itself, under names that it alone uses: nobody else may read them, and
/// what a symbolic link in their place leads to is none of ours.
namespace brindle {

/// Something has the name `path`: a file or a link, whatever that leads to. What cannot be looked at may be
/// there.
bool OwnFileStands(const FileSystem& files, const std::string& path);

/// What stands at `path` is no file of ours for all that the system says: a link, a folder or the like.
bool OwnFileIsAnother(const FileSystem& files, const std::string& path);

/// Reads the whole file at `path`. A link, and anything else that is no regular file, is PathAccessError; a
/// file larger than any of ours (16 MiB) BadRecordLengthError.
FileError ReadOwnFile(const FileSystem& files, const std::string& path, std::string& bytes);

/// Makes `bytes` the whole content of the file at `path`, for its owner alone, or leaves the old one: they
/// are written beside it, flushed and renamed over it, over a link too. Only one program may write to `path`
/// at a time.
FileError ReplaceOwnFile(const FileSystem& files, const std::string& path, std::string_view bytes);

} // namespace brindle
