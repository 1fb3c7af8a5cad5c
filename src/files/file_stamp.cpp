#include "files/file_stamp.h"

#include "files/whole_file.h"

namespace brindle {

namespace {

/// What of a status tells one state of a content from another: not its mode, nor whether we may write.
bool SameState(const FileStatus& first, const FileStatus& second) {
    return first.Type == second.Type && first.Size == second.Size && first.WrittenAt == second.WrittenAt &&
           first.Identity == second.Identity;
}

/// False where the content says nothing, because there is none or it cannot be read.
bool HashContent(const FileSystem& files, const std::string& path, std::uint64_t& hash) {
    std::string bytes;
    if (ReadWholeFile(files, path, GreatestTextSize, bytes).Failed()) {
        return false;
    }
    hash = HashOfBytes(bytes);
    return true;
}

bool IsContentOf(const FileStamp& stamp, const FileStatus& now, std::uint64_t hash) {
    const bool asBefore =
        now.Type == stamp.Status.Type && now.Size == stamp.Status.Size && hash == stamp.Hash;
    return asBefore || hash == stamp.Attempted;
}

/// Runs `read`, which fills `bytes`, between the questions that make the stamp.
template<class Reading>
FileError ReadStamped(const FileSystem& files, const std::string& path, const std::string& bytes,
                      FileStamp& stamp, Reading read) {
    FileStatus status; // from before the reading: a change meanwhile then shows
    FileError error = files.Status(path, status);
    if (!error.Failed()) {
        error = read();
    }
    if (!error.Failed()) {
        stamp = {status, HashOfBytes(bytes), {}};
    }
    return error;
}

} // namespace

std::uint64_t HashOfBytes(std::string_view bytes) {
    constexpr std::uint64_t basis = 0xCBF29CE484222325U;
    constexpr std::uint64_t prime = 0x100000001B3U;
    std::uint64_t hash = basis;
    for (const char c : bytes) {
        hash = (hash ^ static_cast<unsigned char>(c)) * prime;
    }
    return hash;
}

FileError ReadStampedFile(const FileSystem& files, const std::string& path, std::string& bytes,
                          FileStamp& stamp) {
    return ReadStamped(files, path, bytes, stamp,
                       [&] { return ReadWholeFile(files, path, GreatestTextSize, bytes); });
}

FileError ReadStampedText(const FileSystem& files, const std::string& path, std::string& text,
                          FileStamp& stamp) {
    return ReadStamped(files, path, text, stamp, [&] { return ReadWholeText(files, path, text); });
}

FileStamp StampOfWritten(const FileSystem& files, const std::string& path, std::string_view bytes) {
    FileStamp stamp;
    if (files.Status(path, stamp.Status).Failed()) {
        stamp.Status.Type = FileType::Regular; // but for a device that was written to, all that can be
    }
    stamp.Status.Size = bytes.size();
    stamp.Hash = HashOfBytes(bytes.substr(0, GreatestTextSize));
    return stamp;
}

FileStamp StampNow(const FileSystem& files, const std::string& path) {
    FileStamp stamp;
    if (files.Status(path, stamp.Status).Failed() ||
        (stamp.Status.Type == FileType::Regular && !HashContent(files, path, stamp.Hash))) {
        return UnknownStamp();
    }
    return stamp;
}

FileChange ChangeSince(const FileSystem& files, const std::string& path, const FileStamp& stamp) {
    FileStatus now;
    const FileType before = stamp.Status.Type;
    if (files.Status(path, now).Failed() || (before != FileType::Regular && before != FileType::Absent)) {
        return FileChange::None;
    }
    if (now.Type == FileType::Absent) {
        return before == FileType::Absent ? FileChange::None : FileChange::Gone;
    }
    if (now.Type != FileType::Regular) {
        return FileChange::None; // nothing that a save replaces: its failure tells what is there
    }
    std::uint64_t hash = 0;
    const bool same =
        HashContent(files, path, hash) ? IsContentOf(stamp, now, hash) : SameState(now, stamp.Status);
    return same ? FileChange::None : FileChange::Changed;
}

FileChange ChangeAtAGlance(const FileSystem& files, const std::string& path, FileStamp& stamp) {
    FileStatus now;
    const bool known = !files.Status(path, now).Failed();
    if (known && SameState(now, stamp.Status)) {
        return FileChange::None;
    }
    const FileChange change = ChangeSince(files, path, stamp);
    if (known && change == FileChange::None && now.Type == FileType::Regular) {
        stamp.Status = now;
    }
    return change;
}

} // namespace brindle
