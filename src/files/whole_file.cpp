#include "files/whole_file.h"

#include "platform/paths.h"

#include <algorithm>
#include <array>

namespace brindle {

namespace {

constexpr int GreatestBesideNumber = 100; // files left beside by earlier, killed savers

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

/// Writes, flushes and closes; the first failure counts, and the handle is closed whatever happens.
FileError WriteAndClose(const FileSystem& files, FileHandle handle, std::string_view bytes) {
    FileError error = files.Write(handle, bytes.data(), bytes.size());
    if (!error.Failed()) {
        error = files.Flush(handle);
    }
    FileError closing = files.Close(handle);
    return error.Failed() ? error : closing;
}

/// Creates a file of a name of its own in `folder`.
FileError CreateBeside(const FileSystem& files, const std::string& folder, std::uint32_t mode,
                       std::string& path, FileHandle& handle) {
    FileError error;
    for (int number = 0; number < GreatestBesideNumber; ++number) {
        path = JoinPath(folder, ".brindle-save-" + std::to_string(number) + ".tmp");
        error = files.CreateNew(path, mode, handle);
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
    constexpr std::size_t greatest = std::size_t{16} << 20U;
    FileError error = ReadWholeFile(files, path, greatest + 1, text);
    if (!error.Failed() && text.size() > greatest) {
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
    error = OfFile(WriteAndClose(files, handle, bytes), path);
    if (!error.Failed()) {
        error = files.Rename(beside, target);
    }
    if (error.Failed()) {
        files.Remove(beside);
        return error;
    }
    return files.FlushFolder(folder.empty() ? "." : folder);
}

} // namespace brindle
