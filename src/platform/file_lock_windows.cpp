#include "platform/file_lock.h"
#include "platform/wide_text_windows.h"

#define WIN32_LEAN_AND_MEAN
#include <cstdint>
#include <windows.h>

namespace brindle {

namespace {

/// A file that is open and shared with nobody; the system deletes it when it is closed.
FileHandle TakeLock(const std::string& path) {
    const HANDLE file = CreateFileW(WideText(path).c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, 0, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    // The system's handles have 32 significant bits.
    return file == INVALID_HANDLE_VALUE ? NoLock
                                        : static_cast<FileHandle>(reinterpret_cast<std::intptr_t>(file));
}

void ReleaseLock(FileHandle lock, const std::string& /*path*/) {
    CloseHandle(reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(lock)));
}

} // namespace

FileLocks RealFileLocks() {
    return {TakeLock, ReleaseLock};
}

} // namespace brindle
