#pragma once

#include "platform/file_error.h"
#include "platform/file_system.h"

#include <cstdint>
#include <string>

namespace brindle {

/// Gives a file of ours exactly these permission bits, to which the user's mask does not apply. One on a file
/// system that holds none keeps what it has. False, with the reason in errno, where that fails.
bool SetPermissionBits(FileHandle handle, std::uint32_t bits);

/// Gives the file that is open as `handle`, just created by us and open to us alone, what the file at `old`
/// has besides its content; `lost` is what we may not give it. Where something is lost that decides who may
/// read or write the file, its permission bits grant what nobody was denied, if need be nothing but to its
/// owner.
FileError TakeTraits(const std::string& old, FileHandle handle, FileTraits& lost);

} // namespace brindle
