#pragma once

#include "platform/file_system.h"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brindle {

/// What a power failure leaves of the names in a folder that was not flushed, and with them of the bytes of a
/// file: nothing, or all names and half of the bytes. Real disks do either.
enum class UnflushedNames { Forgotten, Kept };

/// A file system in memory that records every operation, fails on demand and knows what a power failure would
/// leave. Paths are compared letter for letter, "/" separates, and links are followed in the last name only.
/// The root exists from the start.
class FakeFileSystem {
  public:
    FakeFileSystem();

    /// The operations on this object, which must outlive them.
    FileSystem Operations();

    // Each of these puts something onto the disk as if it had always been there.
    void AddFolder(const std::string& path, std::uint32_t mode = 0755);
    void AddFile(const std::string& path, const std::string& bytes, std::uint32_t mode = 0644);
    void AddLink(const std::string& path, const std::string& target);
    void AddName(const std::string& path, const std::string& file); ///< a hard link to what is at `file`
    void AddDevice(const std::string& path); ///< keeps what is written to it as its content
    void AddPipe(const std::string& path);

    /// The content of what is at `path`, links followed; none where there is no file or device.
    [[nodiscard]] std::optional<std::string> Content(const std::string& path) const;

    /// The permission bits of the file at `path`, links followed; 0 where there is none.
    [[nodiscard]] std::uint32_t Mode(const std::string& path) const;

    [[nodiscard]] bool IsLink(const std::string& path) const;

    /// The paths of all that there is, in order.
    [[nodiscard]] std::vector<std::string> Names() const;

    [[nodiscard]] std::size_t OpenHandles() const { return open_.size(); }

    /// Every operation so far, also those that failed: "create /a/x", "write 2048 bytes", "close".
    [[nodiscard]] const std::vector<std::string>& Log() const { return log_; }

    /// Operation number `n` (from 1, counted from now) fails with `error`, without effect but that half of
    /// what was to be written is, and that a close closes.
    void FailOnce(std::size_t n, int error);

    /// The same for operation `n` and all after it.
    void FailFrom(std::size_t n, int error);

    /// All operations of which `log` is the record's beginning ("rename") fail with `error`.
    void FailAll(const std::string& log, int error);

    void FailNoMore() { fault_ = nullptr; }

    /// From now on, files are replaced by ones that lack this.
    void LoseTraits(const FileTraits& lost) { lost_ = lost; }

    /// The power fails: all handles are gone, and so are bytes and, as `names` says, names not flushed.
    void Crash(UnflushedNames names);

  private:
    struct Node {
        FileType Type = FileType::Regular;
        std::string Bytes;
        std::string FlushedBytes;
        std::uint32_t Mode = 0;
        std::string LinkTarget; ///< empty for anything but a link
        std::uint64_t Number = 0;
        std::int64_t WrittenAt = 0;
    };

    struct OpenFile {
        std::shared_ptr<Node> File;
        std::size_t Position = 0;
    };

    using NodeNames = std::map<std::string, std::shared_ptr<Node>>;

    void Add(const std::string& path, FileType type, std::uint32_t mode, const std::string& bytes);
    FileError Begin(const std::string& record); ///< notes an operation, and fails it when it is to
    [[nodiscard]] std::string Follow(const std::string& path) const;
    [[nodiscard]] const Node* Find(const std::string& path) const; ///< links followed
    [[nodiscard]] FileError Missing(const std::string& record, const std::string& path) const;
    [[nodiscard]] bool FolderTakesNames(const std::string& path) const;
    FileHandle Open(const std::string& path);
    FileError Status(const std::string& path, FileStatus& status);
    FileError FollowLinks(const std::string& path, std::string& target);
    FileError OpenExisting(const std::string& path, FileHandle& handle);
    FileError OpenItself(const std::string& path, FileHandle& handle);
    FileError Read(FileHandle handle, char* bytes, std::size_t size, std::size_t& got);
    FileError CreateNew(const std::string& path, std::uint32_t mode, FileHandle& handle);
    FileError CreateLike(const std::string& path, const std::string& old, FileHandle& handle,
                         FileTraits& lost);
    FileError OpenInPlace(const std::string& path, FileHandle& handle);
    FileError Write(FileHandle handle, const char* bytes, std::size_t size);
    FileError CutOff(FileHandle handle, std::size_t size);
    FileError Flush(FileHandle handle);
    FileError Close(FileHandle handle);
    FileError Rename(const std::string& from, const std::string& to);
    FileError Remove(const std::string& path);
    FileError RemoveAbandoned(const std::string& path);
    FileError FlushFolder(const std::string& folder);
    [[nodiscard]] bool IsOpen(const std::shared_ptr<Node>& file) const;
    [[nodiscard]] std::vector<std::string> NamesIn(const std::string& folder, const std::string& start) const;

    NodeNames names_;
    NodeNames flushedNames_;
    std::map<FileHandle, OpenFile> open_;
    FileHandle lastHandle_ = 100; // no number that the system gives: mixing up the two shows
    std::uint64_t lastNumber_ = 0;
    std::int64_t clock_ = 0; ///< goes on with each write
    std::vector<std::string> log_;
    std::function<int(std::size_t operation, const std::string& record)> fault_;
    FileTraits lost_;
    std::uint64_t chance_ = 0; ///< of which tests can tell the next
};

} // namespace brindle
