#pragma once

#include "platform/file_traits.h"

#include <string>

/// What a file has besides its content, on Windows: its owner, its access list, its marks (hidden, encrypted
/// and the like) and further streams.
namespace brindle {

/// Creates the file at `path`, which must not exist, for writing, open to this user alone. Returns the
/// system's handle, or INVALID_HANDLE_VALUE with the reason in GetLastError().
void* CreatePrivateFile(const std::wstring& path);

/// Creates the file at `path` with access list and marks of the file at `old`, so that nobody can open it at
/// any moment who cannot open that one; then gives it owner and streams too. Returns the same; `lost` is what
/// it could not be given.
void* CreateFileLike(const std::wstring& path, const std::wstring& old, FileTraits& lost);

/// Whether the file at `path` is known to belong to somebody else.
bool BelongsToAnother(const std::wstring& path);

} // namespace brindle
