#include "platform/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brindle {

namespace {

/// Whether `path` still names the open file: who released the lock before us has removed it.
bool IsAt(int file, const std::string& path) {
    struct stat held {};

    struct stat named {};

    return ::fstat(file, &held) == 0 && ::stat(path.c_str(), &named) == 0 && held.st_dev == named.st_dev &&
           held.st_ino == named.st_ino;
}

FileHandle TakeLock(const std::string& path) {
    constexpr int attempts = 3; // each is lost only when another program lets go just then
    constexpr mode_t ownerOnly = 0600;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, ownerOnly);
        if (file < 0) {
            return NoLock;
        }
        if (::flock(file, LOCK_EX | LOCK_NB) != 0) {
            ::close(file);
            return NoLock;
        }
        if (IsAt(file, path)) {
            return file;
        }
        ::close(file);
    }
    return NoLock;
}

void ReleaseLock(FileHandle lock, const std::string& path) {
    ::unlink(path.c_str()); // while it is held: afterwards it may be another's
    ::close(lock);
}

} // namespace

FileLocks RealFileLocks() {
    return {TakeLock, ReleaseLock};
}

} // namespace brindle
