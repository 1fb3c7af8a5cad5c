#pragma once

#include "platform/file_error.h"
#include "platform/file_system.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

/// Files are read whole and replaced whole or not at all; every file of this program goes through these two.
namespace brindle {

/// Nothing is at `path`, and the system says so itself. A disk that was gone for a moment fails with the same
/// numbers as a file that is not there, so a failed reading alone does not tell.
bool IsAbsent(const FileSystem& files, const std::string& path);

/// Reads the regular file at `path` into `bytes`, at most `limit` bytes of it. On failure `bytes` is empty.
/// A folder is PathAccessError; a pipe or device DeviceUnavailableError (it could keep us waiting for ever).
FileError ReadWholeFile(const FileSystem& files, const std::string& path, std::size_t limit,
                        std::string& bytes);

/// The size of the largest text that is read, far larger than any of ours.
inline constexpr std::size_t GreatestTextSize = std::size_t{16} << 20U;

/// Reads an open file, at most `limit` bytes of it, and closes it whatever happens. On failure `bytes` is
/// empty, and the error names `path`.
FileError ReadAndClose(const FileSystem& files, FileHandle handle, const std::string& path, std::size_t limit,
                       std::string& bytes);

/// Reads the whole regular file at `path`; one larger than GreatestTextSize is BadRecordLengthError.
FileError ReadWholeText(const FileSystem& files, const std::string& path, std::string& text);

/// What is to become of a file that a new one cannot take the place of without a loss.
enum class LossAnswer {
    Replace,      ///< by one that lacks what would be lost
    WriteInPlace, ///< it stays the same file and keeps all
    Cancel
};

/// How a file is to be treated that has more to keep than its content.
struct ReplaceRules {
    /// The folder for a copy of the old content while a file is written in its place. None: a file is never
    /// written so.
    std::string CopyFolder;
    /// Asked before a file is replaced by one that lacks `lost`. None: it is replaced.
    std::function<LossAnswer(const FileTraits& lost)> AskAboutLoss;
};

/// Makes `bytes` the whole content of the file at `path`, or leaves the old file as it was: the bytes are
/// written to a new file beside it, flushed to the disk and renamed over it, and the folder is flushed. Links
/// are followed (a dangling one creates its target). The new file is given owner, group, permissions and
/// attributes of the old one as far as we may, and never lets anybody read or write who could not before. A
/// file marked read-only is PermissionDeniedError; a folder that does not let us create or rename a file, and
/// a `path` that is a folder, are PathAccessError; a missing folder is PathNotFoundError; a pipe or a disk is
/// DeviceUnavailableError. A terminal or another device of characters is written in place. No failure leaves
/// the file beside behind, as long as it can be removed; one that a killed program of the same user left is
/// removed by the next save in its folder. Any number of programs may replace files of one folder, or one
/// file, at once.
///
/// With a folder for copies, a file is written in place instead (files/in_place.h) where it has more names
/// than one, so that all of them stay names of one file, where its folder lets us neither create nor rename,
/// and where that is the answer to the question about a loss. The answer Cancel is CancelledError.
///
/// After a failure the file at `path` is the old one, with one exception that cannot be undone: when only
/// closing it or the flush of the folder failed, the new file is in place, whole, but a power failure may
/// bring the old one back, whole. The save is not assured, so this too is returned as a failure; saving again
/// is harmless.
FileError ReplaceWholeFile(const FileSystem& files, const std::string& path, std::string_view bytes,
                           const ReplaceRules& rules = {});

} // namespace brindle
