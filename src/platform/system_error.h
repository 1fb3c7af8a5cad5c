#pragma once

#include "platform/file_error.h"

#include <string>

namespace brindle {

/// The file error that a failure of the operating system maps onto. `systemError` is what the system calls
/// it: a value of `errno` on POSIX, of GetLastError() on Windows. A failure that no file error number names
/// becomes InternalError, described in the system's own words, so that the user can look them up.
FileError SystemFileError(int systemError, std::string source);

} // namespace brindle
