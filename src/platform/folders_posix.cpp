#include "platform/folders.h"

#include <filesystem>
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

} // namespace

FolderFunctions RealFolders() {
    return {FolderExists, ChangeFolder, CurrentFolder, [](const std::string&) {}};
}

std::string ProgramFolder() {
    std::error_code error;
    const std::filesystem::path executable = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? CurrentFolder() : executable.parent_path().string();
}

} // namespace brindle
