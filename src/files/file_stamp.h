#pragma once

#include "platform/file_error.h"
#include "platform/file_system.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Tells whether a file is still as this program knows it, or another program has changed it since.
namespace brindle {

/// A number that differs, but for one chance in 2^64, for bytes that differ (FNV-1a with 64 bits). Good
/// against accidents, not against forgery.
std::uint64_t HashOfBytes(std::string_view bytes);

/// The state in which a file was read or written. What the system tells of it (`Status`) is quick to compare
/// and may change by itself; the content's hash has the last word.
struct FileStamp {
    FileStatus Status;
    std::uint64_t Hash = 0; ///< of the content, as far as GreatestTextSize; 0 unless it is a regular file
    /// The hash of what was to be written, when that failed: it may have come to stand there all the same.
    std::optional<std::uint64_t> Attempted;
};

/// The stamp of a file of which nothing is known.
inline FileStamp UnknownStamp() {
    FileStamp stamp;
    stamp.Status.Type = FileType::Other;
    return stamp;
}

enum class FileChange {
    None,
    Changed, ///< its content is another, or something else stands at its path
    Gone     ///< nothing is at its path
};

/// Reads the regular file at `path` as ReadWholeFile does, up to GreatestTextSize, and tells in `stamp` the
/// state in which it was read.
FileError ReadStampedFile(const FileSystem& files, const std::string& path, std::string& bytes,
                          FileStamp& stamp);

/// The same, refusing a larger file as ReadWholeText does.
FileError ReadStampedText(const FileSystem& files, const std::string& path, std::string& text,
                          FileStamp& stamp);

/// The state of a file that has just been written with `bytes`.
FileStamp StampOfWritten(const FileSystem& files, const std::string& path, std::string_view bytes);

/// The state of what is at `path` now, whatever it is. What cannot be looked at is of type Other: nothing is
/// known of it.
FileStamp StampNow(const FileSystem& files, const std::string& path);

/// What has become of the file at `path` since `stamp`. Its content is read in any case: two changes within
/// one tick of a disk's clock look alike otherwise. A file that says nothing of itself, because it cannot be
/// looked at, has not changed for all that is known, nor has one of which the stamp knows nothing; one that
/// cannot be read has changed when the system tells other things of it than before.
FileChange ChangeSince(const FileSystem& files, const std::string& path, const FileStamp& stamp);

/// The same, quicker: a file of which the system tells what it told before is taken for unchanged. What it
/// tells of an unchanged file from now on enters `stamp`.
FileChange ChangeAtAGlance(const FileSystem& files, const std::string& path, FileStamp& stamp);

} // namespace brindle
