#include "files/whole_file.h"

#include "platform/paths.h"

#include <algorithm>
#include <array>

namespace brindle {

namespace {

constexpr int GreatestBesideNumber = 100; // savers at work in one folder at once

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

/// Creates a file of a name of its own in `folder`, in the place of one that a killed saver left there.
FileError CreateBeside(const FileSystem& files, const std::string& folder, std::uint32_t mode,
                       std::string& path, FileHandle& handle) {
    FileError error;
    for (int number = 0; number < GreatestBesideNumber; ++number) {
        path = JoinPath(folder, ".brindle-save-" + std::to_string(number) + ".tmp");
        error = files.CreateNew(path, mode, handle);
        if (error.Number == FileAlreadyExistsError && !files.RemoveAbandoned(path).Failed()) {
            error = files.CreateNew(path, mode, handle);
        }
        if (error.Number != FileAlreadyExistsError) {
            break;
        }
    }
    // That the folder refuses a new file says nothing of the old one, and that the names are used up nothing
    // of overwriting it.
    if (error.Number == PermissionDeniedError || error.Number == FileAlreadyExistsError) {
        return MakeFileError(PathAccessError, error.Source);
    }
    return error;
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
    error = ReadAll(files, handle, limit, bytes);
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

FileError ReplaceWholeFile(const FileSystem& files, const std::string& path, std::string_view bytes) {
    FileStatus status;
    FileError error = files.Status(path, status);
    if (!error.Failed()) {
        error = CheckTarget(path, status);
    }
    std::string target;
    if (!error.Failed()) {
        error = files.FollowLinks(path, target);
    }
    if (error.Failed()) {
        return error;
    }
    FileHandle handle = -1;
    if (status.Type == FileType::Device) {
        error = files.OpenDevice(target, handle);
        return error.Failed() ? error : OfFile(WriteAndClose(files, handle, bytes), path);
    }
    const std::string folder = Get_File_Name_Parts(target).Folder;
    std::string beside;
    error = CreateBeside(files, folder, status.Mode, beside, handle);
    if (error.Failed()) {
        return error;
    }
    error = OfFile(WriteAndFlush(files, handle, bytes), path);
    if (!error.Failed()) {
        error = files.Rename(beside, target);
    }
    // Held open to its end: closed any sooner, the file beside would count as abandoned, and its name could
    // already be that of another saver's file.
    if (error.Failed()) {
        files.Remove(beside);
        files.Close(handle);
        return error;
    }
    const FileError closing = OfFile(files.Close(handle), path);
    const FileError flushing = files.FlushFolder(folder.empty() ? "." : folder);
    return closing.Failed() ? closing : flushing;
}

} // namespace brindle
