#include "files/whole_file.h"

#include "files/in_place.h"
#include "files/unforeseen_name.h"
#include "platform/memory_guard.h"
#include "platform/paths.h"

#include <algorithm>
#include <array>

namespace brindle {

namespace {

constexpr const char* BesideStart = ".brindle-save-";
constexpr const char* BesideEnd = ".tmp";

/// An operation on a handle knows no path: names the file in its error, as the user knows it.
FileError OfFile(FileError error, const std::string& path) {
    if (error.Failed()) {
        error.Source += " " + path;
    }
    return error;
}

FileError ReadAll(const FileSystem& files, FileHandle handle, std::size_t limit, std::string& bytes) {
    std::array<char, 16384> buffer{};
    while (bytes.size() < limit) {
        std::size_t got = 0;
        FileError error =
            files.Read(handle, buffer.data(), std::min(buffer.size(), limit - bytes.size()), got);
        if (error.Failed() || got == 0) {
            return error;
        }
        bytes.append(buffer.data(), got);
    }
    return {};
}

FileError WriteAndFlush(const FileSystem& files, FileHandle handle, std::string_view bytes) {
    FileError error = files.Write(handle, bytes.data(), bytes.size());
    return error.Failed() ? error : files.Flush(handle);
}

/// Writes, flushes and closes; the first failure counts, and the handle is closed whatever happens.
FileError WriteAndClose(const FileSystem& files, FileHandle handle, std::string_view bytes) {
    FileError error = WriteAndFlush(files, handle, bytes);
    FileError closing = files.Close(handle);
    return error.Failed() ? error : closing;
}

/// A file that is to be replaced.
struct Target {
    std::string Path;   ///< as the user knows it
    std::string File;   ///< its links followed
    std::string Folder; ///< of `File`, up to and including its separator
    FileStatus Status;
};

/// The new file, on its way to its name. Held open to its end: closed any sooner, it would count as
/// abandoned, and its name could already be that of another saver's file.
struct Beside {
    std::string Path;
    FileHandle Handle = -1;
    FileTraits Lost; ///< what of the old file it could not be given
};

std::string FolderToAsk(const Target& target) {
    return target.Folder.empty() ? "." : target.Folder;
}

/// Removes what killed savers left in a folder. What cannot be removed troubles nobody: names are not
/// foreseen.
void ClearUp(const FileSystem& files, const Target& target) {
    for (const std::string& name : files.NamesIn(FolderToAsk(target), BesideStart)) {
        files.RemoveAbandoned(JoinPath(target.Folder, name));
    }
}

FileError CreateBeside(const FileSystem& files, const Target& target, Beside& beside) {
    return CreateUnforeseen(files, [&](const std::string& digits) {
        beside.Path = JoinPath(target.Folder, BesideStart + digits + BesideEnd);
        return target.Status.Type == FileType::Regular
                   ? files.CreateLike(beside.Path, target.File, beside.Handle, beside.Lost)
                   : files.CreateNew(beside.Path, 0, beside.Handle);
    });
}

void Abandon(const FileSystem& files, const Beside& beside) {
    files.Remove(beside.Path);
    files.Close(beside.Handle);
}

/// What becomes of the attempt to put a new file in the place of the old one.
struct Replacement {
    FileError Error;
    bool InPlace = false; ///< the old file is untouched, and is to be written in place instead
};

Replacement ReplaceFromBeside(const FileSystem& files, const Target& target, std::string_view bytes,
                              const ReplaceRules& rules) {
    const bool mayStay = target.Status.Type == FileType::Regular && !rules.CopyFolder.empty();
    ClearUp(files, target);
    Beside beside;
    FileError error = CreateBeside(files, target, beside);
    if (error.Number == PermissionDeniedError) { // says nothing of the old file
        error = MakeFileError(PathAccessError, error.Source);
    }
    if (error.Failed()) {
        return {error, mayStay && error.Number == PathAccessError};
    }
    const LossAnswer answer =
        beside.Lost.Any() && rules.AskAboutLoss ? rules.AskAboutLoss(beside.Lost) : LossAnswer::Replace;
    if (answer != LossAnswer::Replace) {
        Abandon(files, beside);
        return {MakeFileError(CancelledError, "write " + target.Path),
                mayStay && answer == LossAnswer::WriteInPlace};
    }
    error = OfFile(WriteAndFlush(files, beside.Handle, bytes), target.Path);
    const bool written = !error.Failed();
    if (written) {
        error = files.Rename(beside.Path, target.File);
    }
    if (error.Failed()) {
        Abandon(files, beside);
        return {error, mayStay && written && error.Number == PathAccessError};
    }
    error = OfFile(files.Close(beside.Handle), target.Path);
    FileError flushing = files.FlushFolder(FolderToAsk(target));
    return {error.Failed() ? error : flushing};
}

FileError CheckTarget(const std::string& path, const FileStatus& status) {
    switch (status.Type) {
    case FileType::Folder:
        return MakeFileError(PathAccessError, "write to the folder " + path);
    case FileType::Other:
        return MakeFileError(DeviceUnavailableError, "write " + path);
    case FileType::Regular:
    case FileType::Device:
        return status.Writable ? FileError{} : MakeFileError(PermissionDeniedError, "write " + path);
    case FileType::Absent:
        break;
    }
    return {};
}

} // namespace

bool IsAbsent(const FileSystem& files, const std::string& path) {
    FileStatus status;
    return !files.Status(path, status).Failed() && status.Type == FileType::Absent;
}

FileError ReadWholeFile(const FileSystem& files, const std::string& path, std::size_t limit,
                        std::string& bytes) {
    bytes.clear();
    FileStatus status;
    FileError error = files.Status(path, status);
    if (error.Failed()) {
        return error;
    }
    if (status.Type == FileType::Folder) {
        return MakeFileError(PathAccessError, "read the folder " + path);
    }
    if (status.Type == FileType::Device || status.Type == FileType::Other) {
        return MakeFileError(DeviceUnavailableError, "read " + path);
    }
    FileHandle handle = -1;
    error = files.OpenForReading(path, handle);
    if (error.Failed()) {
        return error;
    }
    return ReadAndClose(files, handle, path, limit, bytes);
}

FileError ReadAndClose(const FileSystem& files, FileHandle handle, const std::string& path, std::size_t limit,
                       std::string& bytes) {
    bytes.clear();
    FileError error = TellLackOfMemory([&] { return ReadAll(files, handle, limit, bytes); });
    const FileError closing = files.Close(handle);
    if (!error.Failed()) {
        error = closing;
    }
    if (error.Failed()) {
        bytes.clear();
    }
    return OfFile(error, path);
}

FileError ReadWholeText(const FileSystem& files, const std::string& path, std::string& text) {
    FileError error = ReadWholeFile(files, path, GreatestTextSize + 1, text);
    if (!error.Failed() && text.size() > GreatestTextSize) {
        text.clear();
        return MakeFileError(BadRecordLengthError, "read " + path);
    }
    return error;
}

FileError ReplaceWholeFile(const FileSystem& files, const std::string& path, std::string_view bytes,
                           const ReplaceRules& rules) {
    Target target{path, {}, {}, {}};
    FileError error = files.Status(path, target.Status);
    if (!error.Failed()) {
        error = CheckTarget(path, target.Status);
    }
    if (!error.Failed()) {
        error = files.FollowLinks(path, target.File);
    }
    if (error.Failed()) {
        return error;
    }
    if (target.Status.Type == FileType::Device) {
        FileHandle handle = -1;
        error = files.OpenInPlace(target.File, handle);
        return error.Failed() ? error : OfFile(WriteAndClose(files, handle, bytes), path);
    }
    target.Folder = Get_File_Name_Parts(target.File).Folder;
    const bool manyNames = target.Status.Type == FileType::Regular && target.Status.Names > 1;
    Replacement replacement;
    if (!manyNames || rules.CopyFolder.empty()) {
        replacement = ReplaceFromBeside(files, target, bytes, rules);
        if (!replacement.InPlace) {
            return replacement.Error;
        }
    }
    error = WriteInPlace(files, target.File, bytes, rules.CopyFolder);
    const bool folderAlone = replacement.Error.Number == PathAccessError;
    return folderAlone && error.Number == PermissionDeniedError ? replacement.Error : error;
}

} // namespace brindle
