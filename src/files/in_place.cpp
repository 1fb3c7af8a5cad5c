#include "files/in_place.h"

#include "files/unforeseen_name.h"
#include "files/whole_file.h"
#include "platform/paths.h"

namespace brindle {

namespace {

constexpr const char* CopyStart = "BeforeSave-";
constexpr std::uint32_t OwnerOnly = 0600;

/// What a file held, kept for as long as the file is being written.
struct OldContent {
    std::string Bytes;
    std::string CopyPath;
    FileHandle Copy = -1; ///< open for as long as the copy is needed by us
};

/// The name of the copy shows what it is of, and opens as that.
std::string CopyName(const std::string& path, const std::string& digits) {
    constexpr std::size_t greatest = 150; // bytes; names on disks have 255
    const FileNameParts parts = Get_File_Name_Parts(path);
    const std::string title = parts.Title();
    return CopyStart + digits + (title.size() <= greatest ? "-" + title : "." + parts.Extension);
}

void RemoveCopy(const FileSystem& files, const OldContent& old, const std::string& copyFolder) {
    files.Remove(old.CopyPath);
    files.Close(old.Copy);
    files.FlushFolder(copyFolder); // one that comes back after a power failure says nothing untrue
}

FileError WriteCopy(const FileSystem& files, const OldContent& old, const std::string& copyFolder) {
    FileError error = files.Write(old.Copy, old.Bytes.data(), old.Bytes.size());
    if (!error.Failed()) {
        error = files.Flush(old.Copy);
    }
    return error.Failed() ? error : files.FlushFolder(copyFolder);
}

FileError NoCopyError(const std::string& copyFolder, const FileError& error) {
    return {InternalError,
            "The file can only be written in its place, and what it holds could not be copied to " +
                copyFolder + " before (" + error.Description + ").",
            error.Source};
}

FileError KeepOldContent(const FileSystem& files, const std::string& path, const std::string& copyFolder,
                         OldContent& old) {
    FileError error = ReadWholeText(files, path, old.Bytes);
    if (error.Failed()) {
        return error;
    }
    error = CreateUnforeseen(files, [&](const std::string& digits) {
        old.CopyPath = JoinPath(copyFolder, CopyName(path, digits));
        return files.CreateNew(old.CopyPath, OwnerOnly, old.Copy);
    });
    if (error.Failed()) {
        return NoCopyError(copyFolder, error);
    }
    error = WriteCopy(files, old, copyFolder);
    if (error.Failed()) {
        RemoveCopy(files, old, copyFolder);
        return NoCopyError(copyFolder, error);
    }
    return {};
}

/// Writes over an open file from its beginning, and closes it.
FileError WriteOver(const FileSystem& files, FileHandle handle, std::string_view bytes) {
    FileError error = files.Write(handle, bytes.data(), bytes.size());
    if (!error.Failed()) {
        error = files.CutOff(handle, bytes.size());
    }
    if (!error.Failed()) {
        error = files.Flush(handle);
    }
    FileError closing = files.Close(handle);
    return error.Failed() ? error : closing;
}

bool WriteBack(const FileSystem& files, const std::string& path, const std::string& bytes) {
    FileHandle handle = -1;
    return !files.OpenInPlace(path, handle).Failed() && !WriteOver(files, handle, bytes).Failed();
}

FileError TornError(const FileError& error, const std::string& path, const OldContent& old) {
    return {InternalError,
            error.Description + ".  " + path + " is not whole any more.  What it held before is kept in " +
                old.CopyPath + ".",
            error.Source + " " + path};
}

} // namespace

FileError WriteInPlace(const FileSystem& files, const std::string& path, std::string_view bytes,
                       const std::string& copyFolder) {
    FileHandle handle = -1; // opened first: from now on no other program writes the file in its place
    FileError error = files.OpenInPlace(path, handle);
    if (error.Failed()) {
        return error;
    }
    OldContent old;
    error = KeepOldContent(files, path, copyFolder, old);
    if (error.Failed()) {
        files.Close(handle);
        return error;
    }
    error = WriteOver(files, handle, bytes);
    if (error.Failed() && !WriteBack(files, path, old.Bytes)) {
        files.Close(old.Copy);
        return TornError(error, path, old);
    }
    RemoveCopy(files, old, copyFolder);
    if (error.Failed()) {
        error.Source += " " + path;
    }
    return error;
}

std::vector<std::string> CopiesLeft(const FileSystem& files, const std::string& copyFolder) {
    std::vector<std::string> copies;
    for (const std::string& name : files.NamesIn(copyFolder, CopyStart)) {
        const std::string path = JoinPath(copyFolder, name);
        if (files.IsAbandoned(path)) {
            copies.push_back(path);
        }
    }
    return copies;
}

} // namespace brindle
