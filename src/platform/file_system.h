#pragma once

#include "platform/file_error.h"

#include <cstdint>
#include <functional>
#include <string>

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

    /// Reads up to `size` bytes; `got` 0 is the end of the file.
    std::function<FileError(FileHandle handle, char* bytes, std::size_t size, std::size_t& got)> Read;

    /// Creates a file that must not exist (else FileAlreadyExistsError), with permission bits `mode` (0: the
    /// system's usual ones). When it fails, it leaves nothing behind. Until it is closed, its name included,
    /// the file is safe from RemoveAbandoned.
    std::function<FileError(const std::string& path, std::uint32_t mode, FileHandle& handle)> CreateNew;

    /// Opens an existing device for writing in place.
    std::function<FileError(const std::string& path, FileHandle& handle)> OpenDevice;

    /// Writes all `size` bytes or fails.
    std::function<FileError(FileHandle handle, const char* bytes, std::size_t size)> Write;

    /// Returns once what was written is on the disk.
    std::function<FileError(FileHandle handle)> Flush;

    /// Closes the handle, also when it fails.
    std::function<FileError(FileHandle handle)> Close;

    /// Puts `from` in the place of `to`, replacing it in one step. A folder that does not let us is
    /// PathAccessError.
    std::function<FileError(const std::string& from, const std::string& to)> Rename;

    std::function<FileError(const std::string& path)> Remove;

    /// Removes a file that CreateNew made for a program which has ended since. One that a living program
    /// holds open, here or on another machine, stays, and so does one of which the system cannot tell:
    /// FileAlreadyOpenError.
    std::function<FileError(const std::string& path)> RemoveAbandoned;

    /// Returns once the folder's names are on the disk; nothing to do on systems that keep them so.
    std::function<FileError(const std::string& folder)> FlushFolder;
};

/// The operating system's files.
FileSystem RealFileSystem();

} // namespace brindle
