#pragma once

#include "platform/file_system.h"

#include <functional>
#include <string>

namespace brindle {

/// Creates a file under a name that nobody can have taken in advance: `create` is called with the 16 digits
/// of a name's own part until it does not fail with FileAlreadyExistsError, which is InternalError after some
/// attempts.
FileError CreateUnforeseen(const FileSystem& files,
                           const std::function<FileError(const std::string& digits)>& create);

} // namespace brindle
