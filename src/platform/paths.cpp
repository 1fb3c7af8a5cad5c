#include "platform/paths.h"

#include "platform/ascii.h"

#include <algorithm>
#include <vector>

namespace brindle {

namespace {

bool IsSeparator(char c, const PathStyle& style) {
    return style.Separators.find(c) != std::string_view::npos;
}

bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// The length of the drive that a path begins with: 2 for "C:", else 0.
std::size_t DriveLength(std::string_view path, const PathStyle& style) {
    return style.Drives && path.size() >= 2 && IsLetter(path[0]) && path[1] == ':' ? 2 : 0;
}

bool SameDrive(std::string_view first, std::string_view second, const PathStyle& style) {
    return DriveLength(first, style) == 2 && DriveLength(second, style) == 2 &&
           UpperLetter(first[0]) == UpperLetter(second[0]);
}

/// A path of a shared folder, "\\server\share": absolute, and without a drive.
bool IsNetworkPath(std::string_view path, const PathStyle& style) {
    return style.Drives && path.size() >= 2 && IsSeparator(path[0], style) && IsSeparator(path[1], style);
}

/// What stands before the first separator of a folder's path: its drive, or "\\server\share".
std::string_view RootName(std::string_view folder, const PathStyle& style) {
    if (!IsNetworkPath(folder, style)) {
        return folder.substr(0, DriveLength(folder, style));
    }
    const std::size_t share = folder.find_first_of(style.Separators, 2);
    return share == std::string_view::npos
               ? folder
               : folder.substr(0, folder.find_first_of(style.Separators, share + 1));
}

} // namespace

std::string AddTrailingSeparator(std::string path, const PathStyle& style) {
    if (path.empty() || !IsSeparator(path.back(), style)) {
        path += style.Separator;
    }
    return path;
}

std::string JoinPath(const std::string& folder, std::string_view name, const PathStyle& style) {
    if (folder.empty()) {
        return std::string(name);
    }
    while (!name.empty() && IsSeparator(name.front(), style)) {
        name.remove_prefix(1);
    }
    return AddTrailingSeparator(folder, style).append(name);
}

FileNameParts Get_File_Name_Parts(std::string_view fullName, const PathStyle& style) {
    const std::size_t separator = fullName.find_last_of(style.Separators);
    const std::size_t folderEnd =
        separator == std::string_view::npos ? DriveLength(fullName, style) : separator + 1;
    const std::string_view title = fullName.substr(folderEnd);
    const std::size_t point = title.rfind('.');

    FileNameParts parts;
    parts.Folder = fullName.substr(0, folderEnd);
    parts.HasPoint = point != std::string_view::npos;
    parts.Name = title.substr(0, point);
    if (parts.HasPoint) {
        parts.Extension = title.substr(point + 1);
    }
    return parts;
}

std::string AbsolutePath(const std::string& startFolder, std::string path, const PathStyle& style) {
    for (char& c : path) {
        c = IsSeparator(c, style) ? style.Separator : c;
    }
    if (path.empty() || IsNetworkPath(path, style)) {
        return path;
    }
    const std::size_t drive = DriveLength(path, style);
    const bool fromRoot = path.size() > drive && IsSeparator(path[drive], style);
    if (fromRoot) {
        return drive == 2 ? path : std::string(RootName(startFolder, style)) + path;
    }
    std::string_view relative = std::string_view(path).substr(drive);
    while (relative.size() > 1 && relative[0] == '.' && IsSeparator(relative[1], style)) {
        relative.remove_prefix(2); // "./x.pl" is x.pl, as a shell completes it
    }
    if (drive == 0) {
        return JoinPath(startFolder, relative, style);
    }
    // The current folder of a drive that is not the current one is known to the system alone.
    const std::string folder = SameDrive(startFolder, path, style) ? startFolder : path.substr(0, drive);
    return JoinPath(folder, relative, style);
}

std::string PlainPath(std::string_view path, const PathStyle& style) {
    std::string plain(RootName(path, style));
    path.remove_prefix(plain.size());
    const bool fromRoot = !path.empty() && IsSeparator(path.front(), style);
    std::vector<std::string_view> names;
    while (!path.empty()) {
        const std::string_view name = path.substr(0, path.find_first_of(style.Separators));
        path.remove_prefix(std::min(name.size() + 1, path.size()));
        if (name.empty() || name == ".") {
            continue;
        }
        const bool back = name == "..";
        if (back && !names.empty() && names.back() != "..") {
            names.pop_back();
        } else if (!back || !fromRoot) { // there is nothing above the root
            names.push_back(name);
        }
    }
    for (std::size_t index = 0; index < names.size(); ++index) {
        plain += fromRoot || index > 0 ? std::string(1, style.Separator) : "";
        plain += names[index];
    }
    return names.empty() && fromRoot ? plain + style.Separator : plain;
}

} // namespace brindle
