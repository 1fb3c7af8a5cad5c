#include "platform/file_lock.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
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

/// Opens the lock's file. A link is none of ours: following it would lock, or create, a file elsewhere.
int OpenLock(const std::string& path) {
    constexpr mode_t ownerOnly = 0600;
    const auto open = [&path] {
        return ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, ownerOnly);
    };
    const int file = open();
    return file < 0 && errno == ELOOP && ::unlink(path.c_str()) == 0 ? open() : file;
}

LockOutcome TakeLock(const std::string& path, FileHandle& lock) {
    constexpr int attempts = 3; // each is lost only when another program lets go just then
    lock = NoLock;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const int file = OpenLock(path);
        if (file < 0) {
            return LockOutcome::Refused;
        }
        if (::flock(file, LOCK_EX | LOCK_NB) != 0) {
            const bool held = errno == EWOULDBLOCK;
            ::close(file);
            return held ? LockOutcome::Held : LockOutcome::Refused;
        }
        if (IsAt(file, path)) {
            lock = file;
            return LockOutcome::Taken;
        }
        ::close(file);
    }
    return LockOutcome::Held;
}

void ReleaseLock(FileHandle lock, const std::string& path) {
    ::unlink(path.c_str()); // while it is held: afterwards it may be another's
    ::close(lock);
}

} // namespace

FileLocks RealFileLocks() {
    return {TakeLock, ReleaseLock, [] { std::this_thread::sleep_for(std::chrono::milliseconds(10)); }};
}

} // namespace brindle
