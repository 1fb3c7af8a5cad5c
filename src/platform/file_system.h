#pragma once

#include "platform/file_error.h"
#include "platform/file_traits.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace brindle {

enum class FileType {
    Absent,
    Regular,
    Folder,
    Device, ///< of characters: a terminal, a port, the null device
    Other   ///< a pipe, a socket, a disk: nothing to read or write a file's content from or to
};

/// Which file of which disk it is, whatever its name; zeros where the system has no such numbers.
struct FileIdentity {
    std::uint64_t Disk = 0;
    std::uint64_t Number = 0;

    bool operator==(const FileIdentity&) const = default;
};

/// What is at a path, links followed.
struct FileStatus {
    FileType Type = FileType::Absent;
    std::uint64_t Size = 0;
    std::uint32_t Mode = 0; ///< permission bits of the system, to be handed to CreateNew; 0 where it has none
    bool Writable = false;  ///< not marked read-only, and we may write to it
    /// When its content was written last, in the system's own count; only good for being compared.
    std::int64_t WrittenAt = 0;
    FileIdentity Identity{};
    std::uint64_t Names = 1; ///< of the file: more than one where there are hard links

    bool operator==(const FileStatus&) const = default;
};

using FileHandle = int;

/// The operations that all reading and writing of files is made of. Tests hand in one that counts, fails on
/// demand or forgets what was not flushed. Paths are the system's bytes (on Windows UTF-8). Each operation
/// returns what failed, with the number that the system's failure maps onto, or no error.
struct FileSystem {
    /// What is at `path`. An absent file is no error: its type says so.
    std::function<FileError(const std::string& path, FileStatus& status)> Status;

    /// The path that writing to `path` ends at, links followed to the last (which may dangle).
    std::function<FileError(const std::string& path, std::string& target)> FollowLinks;

    std::function<FileError(const std::string& path, FileHandle& handle)> OpenForReading;

    /// Opens the regular file that bears the name itself: a link, and whatever else is there, is
    /// PathAccessError.
    std::function<FileError(const std::string& path, FileHandle& handle)> OpenItself;

    /// Reads up to `size` bytes; `got` 0 is the end of the file.
    std::function<FileError(FileHandle handle, char* bytes, std::size_t size, std::size_t& got)> Read;

    /// Creates a file that must not exist (else FileAlreadyExistsError), with permission bits `mode` (0: the
    /// system's usual ones). When it fails, it leaves nothing behind. Until it is closed, its name included,
    /// the file is safe from RemoveAbandoned.
    std::function<FileError(const std::string& path, std::uint32_t mode, FileHandle& handle)> CreateNew;

    /// As CreateNew, but the file is to take the place of the one at `old` and has what that one has besides
    /// its content, as far as we may give it; `lost` is the rest. Whoever may not read or write `old` may not
    /// read or write this file either, at any moment. PathAccessError where the folder keeps `old` from being
    /// replaced, as a shared one does with the files of others.
    std::function<FileError(const std::string& path, const std::string& old, FileHandle& handle,
                            FileTraits& lost)>
        CreateLike;

    /// Opens an existing file or device, and no link to one, for writing over it from its beginning. A file
    /// that is open so already is FileAlreadyOpenError (on Windows PermissionDeniedError).
    std::function<FileError(const std::string& path, FileHandle& handle)> OpenInPlace;

    /// Writes all `size` bytes or fails.
    std::function<FileError(FileHandle handle, const char* bytes, std::size_t size)> Write;

    /// Lets an open file end after `size` bytes.
    std::function<FileError(FileHandle handle, std::size_t size)> CutOff;

    /// Returns once what was written is on the disk.
    std::function<FileError(FileHandle handle)> Flush;

    /// Closes the handle, also when it fails.
    std::function<FileError(FileHandle handle)> Close;

    /// Puts `from` in the place of `to`, replacing it in one step. A folder that does not let us is
    /// PathAccessError.
    std::function<FileError(const std::string& from, const std::string& to)> Rename;

    std::function<FileError(const std::string& path)> Remove;

    /// Removes a file that CreateNew or CreateLike made for a program of this user which has ended since. One
    /// that a living program holds open, here or on another machine, stays, and so does one of which the
    /// system cannot tell: FileAlreadyOpenError. A link is not followed, and a file of another user stays:
    /// PermissionDeniedError.
    std::function<FileError(const std::string& path)> RemoveAbandoned;

    /// Whether RemoveAbandoned would remove the file at `path`.
    std::function<bool(const std::string& path)> IsAbandoned;

    /// The names in `folder` that begin with `start`, in no order; none where the folder cannot be read.
    std::function<std::vector<std::string>(const std::string& folder, const std::string& start)> NamesIn;

    /// A number that nobody can foretell, another each time.
    std::function<std::uint64_t()> Chance;

    /// Returns once the folder's names are on the disk; nothing to do on systems that keep them so.
    std::function<FileError(const std::string& folder)> FlushFolder;
};

/// The operating system's files.
FileSystem RealFileSystem();

} // namespace brindle
