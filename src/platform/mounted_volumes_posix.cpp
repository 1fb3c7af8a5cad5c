#include "platform/mounted_volumes.h"

#include <algorithm>
#include <array>
#include <sstream>

namespace brindle {

namespace {

/// The folders that belong to the system and not to its users, with all below them.
constexpr std::array<std::string_view, 7> SystemFolders{"/boot", "/dev",     "/proc",    "/snap",
                                                        "/sys",  "/var/lib", "/run/user"};

bool IsBelow(std::string_view path, std::string_view folder) {
    return path.substr(0, folder.size()) == folder &&
           (path.size() == folder.size() || path[folder.size()] == '/');
}

bool IsOctal(char c) {
    return c >= '0' && c <= '7';
}

/// A field of the table, in which blanks and the like stand as "\040".
std::string Unescaped(std::string_view field) {
    std::string text;
    for (std::size_t i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size() && IsOctal(field[i + 1]) && IsOctal(field[i + 2]) &&
            IsOctal(field[i + 3])) {
            text +=
                static_cast<char>((field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 + field[i + 3] - '0');
            i += 3;
        } else {
            text += field[i];
        }
    }
    return text;
}

/// "server:/folder" and "//server/folder".
bool IsRemote(std::string_view device) {
    return device.find(':') != std::string_view::npos || device.substr(0, 2) == "//";
}

bool IsOfUsers(std::string_view device, std::string_view folder, std::string_view type) {
    if (folder == "/") {
        return true;
    }
    const bool isDisk = device.substr(0, 5) == "/dev/" && type != "squashfs";
    const bool ofSystem = std::any_of(SystemFolders.begin(), SystemFolders.end(),
                                      [&](std::string_view system) { return IsBelow(folder, system); });
    return !ofSystem && (isDisk || IsRemote(device) || type == "zfs" || type == "virtiofs");
}

} // namespace

std::vector<MountedVolume> MountedVolumes(std::string_view mountTable) {
    std::vector<MountedVolume> volumes{{"/", false}};
    std::istringstream lines{std::string(mountTable)};
    std::string line;
    while (std::getline(lines, line)) {
        std::istringstream fields(line);
        std::string device;
        std::string folder;
        std::string type;
        if (!(fields >> device >> folder >> type) || !IsOfUsers(device, folder, type)) {
            continue;
        }
        const MountedVolume volume{Unescaped(folder), IsRemote(device)};
        const auto known = std::find_if(volumes.begin(), volumes.end(), [&](const MountedVolume& other) {
            return other.Folder == volume.Folder;
        });
        if (known == volumes.end()) {
            volumes.push_back(volume);
        } else {
            *known = volume; // mounted over it
        }
    }
    std::sort(volumes.begin() + 1, volumes.end(),
              [](const MountedVolume& a, const MountedVolume& b) { return a.Folder < b.Folder; });
    return volumes;
}

} // namespace brindle
