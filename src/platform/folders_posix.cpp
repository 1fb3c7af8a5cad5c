#include "platform/folders.h"
#include "platform/mounted_volumes.h"
#include "platform/system_error.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
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

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

/// The names of what is in a folder and passes `wanted`, links followed. The standard library's way ends the
/// program when memory runs out.
template<class Wanted>
std::vector<std::string> NamesIn(const std::string& path, const Wanted& wanted) {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, CloseFolder> folder(opendir(path.c_str()));
    while (const dirent* const entry = folder ? readdir(folder.get()) : nullptr) {
        struct stat status = {}; // a dangling link has none
        const bool known = fstatat(dirfd(folder.get()), &entry->d_name[0], &status, 0) == 0;
        if (known && wanted(&entry->d_name[0], status)) {
            names.emplace_back(&entry->d_name[0]);
        }
    }
    return names;
}

std::vector<std::string> Subfolders(const std::string& path) {
    std::vector<std::string> names = NamesIn(path, [](const char* name, const struct stat& status) {
        return *name != '.' && S_ISDIR(status.st_mode);
    });
    SortFolderNames(names);
    return names;
}

std::vector<std::string> Files(const std::string& path) {
    return NamesIn(path, [](const char*, const struct stat& status) { return S_ISREG(status.st_mode); });
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
