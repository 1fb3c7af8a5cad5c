#include "platform/folders.h"
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

} // namespace

FolderFunctions RealFolders() {
    return {FolderExists, ChangeFolder, CurrentFolder, ChangeDrive};
}

std::string ProgramFolder() {
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
