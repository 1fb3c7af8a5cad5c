#include "platform/file_system.h"
#include "platform/file_traits_posix.h"
#include "platform/system_error.h"

#include <climits>

#include <cerrno>
#include <cstdint>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace brindle {

namespace {

constexpr mode_t PermissionBits = 07777;
constexpr mode_t WriteBits = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t UsualMode = 0666; // less the user's mask
constexpr int GreatestLinkDepth = 40;
constexpr std::int64_t NanosecondsPerSecond = 1'000'000'000;

std::string FolderOf(const std::string& path) {
    const std::size_t separator = path.rfind('/');
    if (separator == std::string::npos) {
        return ".";
    }
    return separator == 0 ? "/" : path.substr(0, separator);
}

bool IsFolder(const std::string& path) {
    struct stat status {};

    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// The failure that errno tells of an operation on `path`. A missing file whose folder is missing too is a
/// missing path.
FileError Failure(const char* operation, const std::string& path) {
    const int systemError = errno;
    std::string source = std::string(operation) + " " + path;
    if (systemError == ENOENT && !IsFolder(FolderOf(path))) {
        return MakeFileError(PathNotFoundError, std::move(source));
    }
    return SystemFileError(systemError, std::move(source));
}

FileError Failure(const char* operation) {
    return SystemFileError(errno, operation);
}

/// Names that the system would take for something else: empty, or cut at an embedded zero.
bool IsIllegal(const std::string& path) {
    return path.empty() || path.find('\0') != std::string::npos;
}

FileError IllegalName(const char* operation, const std::string& path) {
    return MakeFileError(BadFileNameError, std::string(operation) + " " + std::string(path.c_str()));
}

FileType TypeOf(mode_t mode) {
    if (S_ISREG(mode)) {
        return FileType::Regular;
    }
    if (S_ISDIR(mode)) {
        return FileType::Folder;
    }
    // Not a disk: a file saved onto one by mistake would destroy it.
    return S_ISCHR(mode) ? FileType::Device : FileType::Other;
}

FileError GetStatus(const std::string& path, FileStatus& status) {
    status = {};
    if (IsIllegal(path)) {
        return IllegalName("look at", path);
    }

    struct stat found {};

    if (::stat(path.c_str(), &found) != 0) {
        return errno == ENOENT ? FileError{} : Failure("look at", path);
    }
    status.Type = TypeOf(found.st_mode);
    status.Size = static_cast<std::uint64_t>(found.st_size);
    status.Mode = found.st_mode & PermissionBits;
    status.Names = found.st_nlink;
    // A file without any write bit was marked read-only on purpose, which counts for the superuser too.
    status.Writable = (found.st_mode & WriteBits) != 0 && ::access(path.c_str(), W_OK) == 0;
    status.WrittenAt = found.st_mtim.tv_sec * NanosecondsPerSecond + found.st_mtim.tv_nsec;
    status.Identity = {found.st_dev, found.st_ino};
    return {};
}

FileError FollowLinks(const std::string& path, std::string& target) {
    if (IsIllegal(path)) {
        return IllegalName("follow", path);
    }
    target = path;
    for (int depth = 0; depth < GreatestLinkDepth; ++depth) {
        std::string link(PATH_MAX, '\0');
        const ssize_t length = ::readlink(target.c_str(), link.data(), link.size());
        if (length < 0) {
            return errno == EINVAL || errno == ENOENT ? FileError{} : Failure("follow", target);
        }
        link.resize(static_cast<std::size_t>(length));
        target = link.rfind('/', 0) == 0 ? link : FolderOf(target).append("/").append(link);
    }
    errno = ELOOP;
    return Failure("follow", path);
}

FileError Open(const char* operation, const std::string& path, int flags, mode_t mode, FileHandle& handle) {
    if (IsIllegal(path)) {
        return IllegalName(operation, path);
    }
    do {
        // Without O_NONBLOCK, opening a pipe would keep us waiting for its other end; without O_NOCTTY, a
        // terminal could become ours and end us when it hangs up.
        handle = ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode);
    } while (handle < 0 && errno == EINTR);
    return handle < 0 ? Failure(operation, path) : FileError{};
}

FileError OpenItself(const std::string& path, FileHandle& handle) {
    FileError error = Open("open", path, O_RDONLY | O_NOFOLLOW, 0, handle);

    struct stat status {};

    if (!error.Failed() && (::fstat(handle, &status) != 0 || !S_ISREG(status.st_mode))) {
        ::close(handle);
        error = MakeFileError(PathAccessError, "open " + path);
    }
    return error;
}

/// A lock tells the file of a living program from an abandoned one: the system takes it back when the program
/// ends, however it ends. False, with the reason in errno, when another has it or there are no locks here.
bool Lock(FileHandle handle) {
    int result = 0;
    do {
        result = ::flock(handle, LOCK_EX | LOCK_NB);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

/// `path` itself, no link to it, is the regular file that is open as `handle`.
bool IsNameOf(const std::string& path, FileHandle handle) {
    struct stat named {};

    struct stat opened {};

    return ::lstat(path.c_str(), &named) == 0 && ::fstat(handle, &opened) == 0 && S_ISREG(named.st_mode) &&
           named.st_dev == opened.st_dev && named.st_ino == opened.st_ino;
}

/// Keeps a file just created from being taken for abandoned. False when that has happened already. Where a
/// file system has no locks, nobody takes anything for abandoned.
bool Hold(const std::string& path, FileHandle handle) {
    return Lock(handle) ? IsNameOf(path, handle) : errno != EWOULDBLOCK;
}

/// Creates a file that is held from the beginning; the user's mask takes from its permission bits.
FileError CreateHeld(const std::string& path, mode_t bits, FileHandle& handle) {
    FileError error = Open("create", path, O_WRONLY | O_CREAT | O_EXCL, bits, handle);
    if (!error.Failed() && !Hold(path, handle)) {
        ::close(handle);
        error = MakeFileError(FileAlreadyExistsError, "create " + path); // the name is another's by now
    }
    return error;
}

/// Takes a file just created away again, whose creation failed after all.
FileError Undo(FileError error, const std::string& path, FileHandle handle) {
    ::unlink(path.c_str());
    ::close(handle);
    return error;
}

FileError CreateNew(const std::string& path, std::uint32_t mode, FileHandle& handle) {
    FileError error = CreateHeld(path, mode == 0 ? UsualMode : mode, handle);
    if (!error.Failed() && mode != 0 && !SetPermissionBits(handle, mode)) {
        error = Undo(Failure("set the mode of", path), path, handle);
    }
    return error;
}

/// A folder with the sticky mark lets nobody replace what is another's, the superuser and the owner of the
/// folder excepted.
bool KeepsFromReplacing(const std::string& path) {
    struct stat folder {};

    struct stat file {};

    const uid_t we = ::geteuid();
    return ::lstat(path.c_str(), &file) == 0 && ::stat(FolderOf(path).c_str(), &folder) == 0 &&
           (folder.st_mode & S_ISVTX) != 0 && we != 0 && file.st_uid != we && folder.st_uid != we;
}

FileError CreateLike(const std::string& path, const std::string& old, FileHandle& handle, FileTraits& lost) {
    constexpr mode_t ownerOnly = 0600;
    lost = {};
    if (KeepsFromReplacing(old)) {
        return MakeFileError(PathAccessError, "replace " + old);
    }
    FileError error = CreateHeld(path, ownerOnly, handle); // who opens it now could read it ever after
    if (!error.Failed()) {
        error = TakeTraits(old, handle, lost);
        error = error.Failed() ? Undo(error, path, handle) : error;
    }
    return error;
}

FileError Read(FileHandle handle, char* bytes, std::size_t size, std::size_t& got) {
    ssize_t count = 0;
    do {
        count = ::read(handle, bytes, size);
    } while (count < 0 && errno == EINTR);
    got = count < 0 ? 0 : static_cast<std::size_t>(count);
    return count < 0 ? Failure("read") : FileError{};
}

FileError Write(FileHandle handle, const char* bytes, std::size_t size) {
    while (size > 0) {
        const ssize_t count = ::write(handle, bytes, size);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count == 0) {
            errno = EIO; // taken nothing and said nothing: trying again might never end
        }
        if (count <= 0) {
            return Failure("write");
        }
        bytes += count;
        size -= static_cast<std::size_t>(count);
    }
    return {};
}

FileError OpenInPlace(const std::string& path, FileHandle& handle) {
    FileError error = Open("open", path, O_WRONLY | O_NOFOLLOW, 0, handle);

    struct stat status {};

    if (!error.Failed() && ::fstat(handle, &status) == 0 && S_ISREG(status.st_mode) && !Lock(handle) &&
        errno == EWOULDBLOCK) {
        ::close(handle);
        error = MakeFileError(FileAlreadyOpenError, "open " + path);
    }
    return error;
}

FileError CutOff(FileHandle handle, std::size_t size) {
    return ::ftruncate(handle, static_cast<off_t>(size)) == 0 ? FileError{} : Failure("cut off");
}

FileError Flush(FileHandle handle) {
    // Devices that keep nothing have nothing to flush.
    return ::fsync(handle) == 0 || errno == EINVAL || errno == ENOTSUP ? FileError{} : Failure("flush");
}

FileError FlushFolder(const std::string& folder) {
    FileHandle handle = -1;
    FileError error = Open("open", folder, O_RDONLY | O_DIRECTORY, 0, handle);
    if (error.Number == PermissionDeniedError) {
        return {}; // a folder that may be written but not read cannot be flushed; the names in it are well
    }
    if (!error.Failed()) {
        error = Flush(handle);
        ::close(handle);
    }
    return error;
}

FileError Rename(const std::string& from, const std::string& to) {
    if (IsIllegal(from) || IsIllegal(to)) {
        return IllegalName("rename to", to);
    }
    if (::rename(from.c_str(), to.c_str()) == 0) {
        return {};
    }
    // Renaming changes the folder and asks nothing of the files: it is the folder that refuses. A file that
    // is mounted there by itself is busy.
    if (errno == EACCES || errno == EPERM || errno == EBUSY) {
        return MakeFileError(PathAccessError, "rename to " + to);
    }
    return Failure("rename to", to);
}

FileError Remove(const std::string& path) {
    if (IsIllegal(path)) {
        return IllegalName("remove", path);
    }
    return ::unlink(path.c_str()) == 0 ? FileError{} : Failure("remove", path);
}

/// Opens and locks a file that was abandoned by a program of ours; a link is not followed. Its maker may have
/// renamed it away between our opening and our lock: then the name is another's. While we have the lock,
/// nobody renames or removes it.
FileError SeizeAbandoned(const std::string& path, FileHandle& handle) {
    FileError error = Open("take away", path, O_WRONLY | O_NOFOLLOW, 0, handle);
    if (error.Failed()) {
        return error;
    }

    struct stat status {};

    if (::fstat(handle, &status) != 0 || status.st_uid != ::geteuid()) {
        error = MakeFileError(PermissionDeniedError, "take away " + path);
    } else if (!Lock(handle) || !IsNameOf(path, handle)) {
        error = MakeFileError(FileAlreadyOpenError, "take away " + path);
    }
    if (error.Failed()) {
        ::close(handle);
    }
    return error;
}

FileError RemoveAbandoned(const std::string& path) {
    FileHandle handle = -1;
    FileError error = SeizeAbandoned(path, handle);
    if (!error.Failed()) {
        error = Remove(path);
        ::close(handle);
    }
    return error;
}

bool IsAbandoned(const std::string& path) {
    FileHandle handle = -1;
    if (SeizeAbandoned(path, handle).Failed()) {
        return false;
    }
    ::close(handle);
    return true;
}

std::vector<std::string> NamesIn(const std::string& folder, const std::string& start) {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(::opendir(folder.c_str()), ::closedir);
    while (const dirent* entry = listing ? ::readdir(listing.get()) : nullptr) {
        const std::string name = entry->d_name;
        if (name.compare(0, start.size(), start) == 0) {
            names.push_back(name);
        }
    }
    return names;
}

std::uint64_t Chance() {
    std::uint64_t number = 0;
    if (::getentropy(&number, sizeof number) != 0) {
        // A system without chance: a number that is another each time has to do.
        static std::uint64_t count = 0;
        number = static_cast<std::uint64_t>(::getpid()) << 32U | ++count;
    }
    return number;
}

} // namespace

FileSystem RealFileSystem() {
    FileSystem files;
    files.Status = GetStatus;
    files.FollowLinks = FollowLinks;
    files.OpenForReading = [](const std::string& path, FileHandle& handle) {
        return Open("open", path, O_RDONLY, 0, handle);
    };
    files.OpenItself = OpenItself;
    files.Read = Read;
    files.CreateNew = CreateNew;
    files.CreateLike = CreateLike;
    files.OpenInPlace = OpenInPlace;
    files.Write = Write;
    files.CutOff = CutOff;
    files.Flush = Flush;
    files.Close = [](FileHandle handle) {
        // An interrupted close has closed.
        return ::close(handle) == 0 || errno == EINTR ? FileError{} : Failure("close");
    };
    files.Rename = Rename;
    files.Remove = Remove;
    files.RemoveAbandoned = RemoveAbandoned;
    files.IsAbandoned = IsAbandoned;
    files.NamesIn = NamesIn;
    files.Chance = Chance;
    files.FlushFolder = FlushFolder;
    return files;
}

} // namespace brindle
