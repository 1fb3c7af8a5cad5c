#include "platform/folders.h"
#include "platform/paths.h"
#include "platform/system_error.h"
#include "platform/wide_text_windows.h"

#define WIN32_LEAN_AND_MEAN
#include <direct.h>
#include <windows.h>

namespace brindle {

namespace {

bool FolderExists(const std::string& path) {
    const DWORD attributes = GetFileAttributesW(WideText(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool ChangeFolder(const std::string& path) {
    return SetCurrentDirectoryW(WideText(path).c_str()) != 0;
}

std::string CurrentFolder() {
    // The first call counts the terminating zero, the second does not; another thread may lengthen it
    // between.
    std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
    const DWORD length = GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data());
    if (length >= folder.size()) {
        return {};
    }
    folder.resize(length);
    return Utf8Text(folder);
}

/// 1 for drive A; 0 when the path begins with no drive.
int DriveNumber(const std::string& path) {
    if (path.size() < 2 || path[1] != ':') {
        return 0;
    }
    const char letter = path[0];
    if (letter >= 'a' && letter <= 'z') {
        return letter - 'a' + 1;
    }
    return letter >= 'A' && letter <= 'Z' ? letter - 'A' + 1 : 0;
}

void ChangeDrive(const std::string& path) {
    const int drive = DriveNumber(path);
    if (drive != 0 && drive != DriveNumber(CurrentFolder())) {
        _chdrive(drive);
    }
}

FileError MakeFolder(const std::string& path) {
    if (CreateDirectoryW(WideText(path).c_str(), nullptr) != 0) {
        return {};
    }
    const DWORD systemError = GetLastError();
    const std::string source = "make folder " + path;
    if (systemError == ERROR_ALREADY_EXISTS || systemError == ERROR_ACCESS_DENIED ||
        systemError == ERROR_WRITE_PROTECT) {
        return MakeFileError(PathAccessError, source);
    }
    return systemError == ERROR_PATH_NOT_FOUND ? MakeFileError(PathNotFoundError, source)
                                               : SystemFileError(static_cast<int>(systemError), source);
}

std::vector<std::string> Drives() {
    std::vector<std::string> drives;
    const DWORD present = GetLogicalDrives(); // a bit for each letter, A the lowest
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        if ((present >> (letter - 'A') & 1U) != 0) {
            drives.push_back({letter, ':', '\\'});
        }
    }
    return drives;
}

bool IsShownFolder(const WIN32_FIND_DATAW& found) {
    const std::wstring_view name(found.cFileName);
    return (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
           (found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) == 0 && name != L"." && name != L"..";
}

bool IsFile(const WIN32_FIND_DATAW& found) {
    return (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

/// The names in the folder `path` that `wanted` picks.
std::vector<std::string> NamesIn(const std::string& path, bool (*wanted)(const WIN32_FIND_DATAW&)) {
    std::vector<std::string> names;
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(WideText(JoinPath(path, "*")).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        return names;
    }
    do {
        if (wanted(found)) {
            names.push_back(Utf8Text(found.cFileName));
        }
    } while (FindNextFileW(search, &found) != 0);
    FindClose(search);
    return names;
}

std::vector<std::string> Subfolders(const std::string& path) {
    std::vector<std::string> names = NamesIn(path, IsShownFolder);
    SortFolderNames(names);
    return names;
}

std::vector<std::string> Files(const std::string& path) {
    return NamesIn(path, IsFile);
}

} // namespace

FolderFunctions RealFolders() {
    return {FolderExists, ChangeFolder, CurrentFolder, ChangeDrive, MakeFolder,
            MakeFolder,   Drives,       Subfolders,    Files};
}

std::string ExecutableFolder() {
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    while (length == path.size()) { // cut short
        path.resize(path.size() * 2);
        length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    }
    if (length == 0) {
        return CurrentFolder();
    }
    path.resize(length);
    const std::size_t folderEnd = path.rfind(L'\\');
    // The root of a drive keeps its separator: "C:" alone would be the drive's current folder.
    return Utf8Text(path.substr(0, folderEnd == 2 ? folderEnd + 1 : folderEnd));
}

} // namespace brindle
