#include "platform/file_lock.h"
#include "platform/wide_text_windows.h"

#define WIN32_LEAN_AND_MEAN
#include <cstdint>
#include <windows.h>

namespace brindle {

namespace {

/// Whether the last failure tells that another program has the file, or has just let go of it: a file that is
/// being deleted denies itself to everybody, as a folder that is closed to us denies what is not there.
bool AnotherHasIt(const std::wstring& path) {
    const DWORD error = GetLastError();
    return error == ERROR_SHARING_VIOLATION ||
           (error == ERROR_ACCESS_DENIED && (GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES ||
                                             GetLastError() == ERROR_ACCESS_DENIED));
}

/// A file that is open and shared with nobody; the system deletes it when it is closed. A link is opened
/// itself.
LockOutcome TakeLock(const std::string& path, FileHandle& lock) {
    const std::wstring widePath = WideText(path);
    const HANDLE file = CreateFileW(
        widePath.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
        FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    lock = NoLock;
    if (file == INVALID_HANDLE_VALUE) {
        return AnotherHasIt(widePath) ? LockOutcome::Held : LockOutcome::Refused;
    }
    // The system's handles have 32 significant bits.
    lock = static_cast<FileHandle>(reinterpret_cast<std::intptr_t>(file));
    return LockOutcome::Taken;
}

void ReleaseLock(FileHandle lock, const std::string& /*path*/) {
    CloseHandle(reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(lock)));
}

} // namespace

FileLocks RealFileLocks() {
    constexpr DWORD pause = 10; // milliseconds
    return {TakeLock, ReleaseLock, [] { Sleep(pause); }};
}

} // namespace brindle
