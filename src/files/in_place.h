#pragma once

#include "platform/file_error.h"
#include "platform/file_system.h"

#include <string>
#include <string_view>
#include <vector>

/// Writing a file where it stands, for one that must not or cannot be replaced by a new one: it stays the
/// same file, with its owner, its rights and all its names. It cannot be done in one step, so what the file
/// held is kept in a copy until it is done.
namespace brindle {

/// Makes `bytes` the whole content of the regular file at `path`, which may be written to. Before it is
/// touched, its old content is copied into the folder `copyFolder` and flushed; the copy is removed when the
/// new content has been flushed. After a failure the old content is written back. Where that fails too, or
/// the program is killed, the copy stays: the error then names it (InternalError, told by its description),
/// and CopiesLeft finds it. A copy that cannot be made is an InternalError that tells why.
FileError WriteInPlace(const FileSystem& files, const std::string& path, std::string_view bytes,
                       const std::string& copyFolder);

/// The paths of the copies that no living program needs any more: each holds what a file held before it was
/// written in place by a program that did not come to the end of it.
std::vector<std::string> CopiesLeft(const FileSystem& files, const std::string& copyFolder);

} // namespace brindle
