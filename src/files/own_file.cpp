#include "files/own_file.h"

#include "files/whole_file.h"
#include "platform/paths.h"

namespace brindle {

namespace {

constexpr std::uint32_t OwnFileMode = 0600;

/// Creates the file beside; one of that name was left by a program that was killed, or is not ours at all.
FileError CreateAnew(const FileSystem& files, const std::string& path, FileHandle& handle) {
    FileError error = files.CreateNew(path, OwnFileMode, handle);
    if (error.Number == FileAlreadyExistsError && !files.Remove(path).Failed()) {
        error = files.CreateNew(path, OwnFileMode, handle);
    }
    return error;
}

} // namespace

bool OwnFileStands(const FileSystem& files, const std::string& path) {
    std::string target;
    return files.FollowLinks(path, target).Failed() || target != path || !IsAbsent(files, path);
}

bool OwnFileIsAnother(const FileSystem& files, const std::string& path) {
    std::string target;
    FileStatus status;
    if (const FileError error = files.FollowLinks(path, target); error.Failed()) {
        return error.Number == PathAccessError; // links in a circle
    }
    return target != path || (!files.Status(path, status).Failed() && status.Type != FileType::Regular &&
                              status.Type != FileType::Absent);
}

FileError ReadOwnFile(const FileSystem& files, const std::string& path, std::string& bytes) {
    bytes.clear();
    FileHandle handle = -1;
    FileError error = files.OpenItself(path, handle);
    if (error.Failed()) {
        return error;
    }
    error = ReadAndClose(files, handle, path, GreatestTextSize + 1, bytes);
    if (bytes.size() > GreatestTextSize) {
        bytes.clear();
        return MakeFileError(BadRecordLengthError, "read " + path);
    }
    return error;
}

FileError ReplaceOwnFile(const FileSystem& files, const std::string& path, std::string_view bytes) {
    const std::string beside = path + ".new";
    FileHandle handle = -1;
    FileError error = CreateAnew(files, beside, handle);
    if (error.Failed()) {
        return error;
    }
    error = files.Write(handle, bytes.data(), bytes.size());
    if (!error.Failed()) {
        error = files.Flush(handle);
    }
    if (!error.Failed()) {
        error = files.Rename(beside, path);
    }
    if (error.Failed()) {
        files.Remove(beside);
        files.Close(handle);
        return error;
    }
    const FileError closing = files.Close(handle);
    const FileError flushing = files.FlushFolder(Get_File_Name_Parts(path).Folder);
    return closing.Failed() ? closing : flushing;
}

} // namespace brindle
