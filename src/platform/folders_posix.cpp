#include "platform/folders.h"
#include "platform/mounted_volumes.h"
#include "platform/system_error.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace brindle {

namespace {

bool FolderExists(const std::string& path) {
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool ChangeFolder(const std::string& path) {
    return chdir(path.c_str()) == 0;
}

std::string CurrentFolder() {
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::current_path(error);
    return error ? std::string() : folder.string();
}

/// Makes a folder with the permission bits `mode`, less the user's mask.
FileError MakeWithMode(const std::string& path, mode_t mode) {
    if (::mkdir(path.c_str(), mode) == 0) {
        return {};
    }
    const int systemError = errno;
    const std::string source = "make folder " + path;
    if (systemError == EEXIST || systemError == EACCES || systemError == EPERM || systemError == EROFS) {
        return MakeFileError(PathAccessError, source);
    }
    return systemError == ENOENT ? MakeFileError(PathNotFoundError, source)
                                 : SystemFileError(systemError, source);
}

FileError MakeFolder(const std::string& path) {
    constexpr mode_t usualMode = 0777;
    return MakeWithMode(path, usualMode);
}

FileError MakePrivateFolder(const std::string& path) {
    constexpr mode_t userAlone = 0700;
    return MakeWithMode(path, userAlone);
}

std::vector<std::string> Drives() {
    std::ifstream table("/proc/self/mounts");
    const std::string text{std::istreambuf_iterator<char>(table), std::istreambuf_iterator<char>()};
    std::vector<std::string> drives;
    for (const MountedVolume& volume : MountedVolumes(text)) {
        // A single file can be mounted too. A machine that does not answer is not asked: it would not return.
        if (volume.Remote || FolderExists(volume.Folder)) {
            drives.push_back(volume.Folder);
        }
    }
    return drives;
}

std::vector<std::string> Subfolders(const std::string& path) {
    std::vector<std::string> names;
    std::error_code error;
    std::filesystem::directory_iterator entry(path, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        std::error_code unknown; // a dangling link is no folder
        if (name.front() != '.' && entry->is_directory(unknown)) {
            names.push_back(name);
        }
    }
    SortFolderNames(names);
    return names;
}

std::vector<std::string> Files(const std::string& path) {
    std::vector<std::string> names;
    std::error_code error;
    std::filesystem::directory_iterator entry(path, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        std::error_code unknown; // a dangling link is no file
        if (entry->is_regular_file(unknown)) {
            names.push_back(entry->path().filename().string());
        }
    }
    return names;
}

} // namespace

FolderFunctions RealFolders() {
    return {FolderExists, ChangeFolder,      CurrentFolder, [](const std::string&) {},
            MakeFolder,   MakePrivateFolder, Drives,        Subfolders,
            Files};
}

std::string ExecutableFolder() {
    std::error_code error;
    const std::filesystem::path executable = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? CurrentFolder() : executable.parent_path().string();
}

} // namespace brindle
