#include "settings/recent_files.h"

#include "settings/setting_keys.h"

#include <algorithm>
#include <utility>

namespace brindle {

namespace {

constexpr const char* EmptyEntry = "EMPTY";

std::string KeyOf(int index) {
    return KeyRecent + std::to_string(index);
}

bool HasNoneOf(std::string_view text, std::string_view characters) {
    return text.find_first_of(characters) == std::string_view::npos;
}

bool CanBeStored(const std::string& field) {
    return HasNoneOf(field, ",\r\n");
}

char ComparedCharacter(char c, const PathStyle& style) {
    if (!style.Drives) {
        return c;
    }
    if (style.Separators.find(c) != std::string_view::npos) {
        return style.Separator;
    }
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool SamePath(const std::string& first, const std::string& second, const PathStyle& style) {
    return std::equal(first.begin(), first.end(), second.begin(), second.end(), [&](char a, char b) {
        return ComparedCharacter(a, style) == ComparedCharacter(b, style);
    });
}

/// The file has gone for all that the system says. A disk that does not answer or a folder that is closed to
/// us says nothing.
bool HasVanished(const FileSystem& files, const std::string& path) {
    FileStatus status;
    return !files.Status(path, status).Failed() && status.Type != FileType::Regular;
}

} // namespace

std::string RecentFileValue(const RecentFile& file) {
    if (!file.Used() || !CanBeStored(file.Path) || !CanBeStored(file.Name)) {
        return EmptyEntry;
    }
    return file.Path + "," + file.Name + "," + std::to_string(static_cast<int>(file.Model));
}

std::optional<RecentFile> ParseRecentFile(std::string_view value) {
    const std::size_t first = value.find(',');
    const std::size_t last = value.rfind(',');
    // More than two commas come from a path that holds one: what stands before the first may be another file.
    if (first == std::string_view::npos || first == 0 || value.find(',', first + 1) != last) {
        return {};
    }
    const std::string_view model = value.substr(last + 1);
    if (first == last || (model != "1" && model != "2")) {
        return {};
    }
    RecentFile file{std::string(value.substr(0, first)),
                    std::string(value.substr(first + 1, last - first - 1)),
                    model == "1" ? RelayKind::Vdr812 : RelayKind::Vdr810};
    if (!CanBeStored(file.Path) || !CanBeStored(file.Name)) {
        return {}; // a carriage return amid a line
    }
    return file;
}

void EnterRecentFile(RecentFiles& files, const RecentFile& file, const PathStyle& style) {
    RecentFiles entered;
    std::size_t count = 0;
    entered[count++] = file;
    for (const RecentFile& old : files) {
        if (count < entered.size() && old.Used() && !SamePath(old.Path, file.Path, style)) {
            entered[count++] = old;
        }
    }
    files = std::move(entered);
}

RecentFileList::RecentFileList(const std::string& programFolder, ProfileFunctions profile, FileSystem files,
                               ShowMessageBox showMessageBox)
    // This list has always put a separator here whatever the folder ends in, and says so in its message; the
    // system reads two as one.
    : settingsPath_(programFolder + SystemPaths.Separator + SettingsFileName), profile_(std::move(profile)),
      files_(std::move(files)), showMessageBox_(std::move(showMessageBox)) {}

void RecentFileList::Load() {
    for (int index = 0; index < RecentFileCount; ++index) {
        const std::string value = profile_.ReadText(settingsPath_, SectionRecent, KeyOf(index), EmptyEntry);
        const std::optional<RecentFile> file = ParseRecentFile(value);
        const bool keeps = file && !HasVanished(files_, file->Path);
        entries_[static_cast<std::size_t>(index)] = keeps ? *file : RecentFile{};
        if (!keeps) {
            // A failure is not told: nothing is lost, and the next start finds the same.
            profile_.Write(settingsPath_, SectionRecent, KeyOf(index), EmptyEntry);
        }
    }
}

void RecentFileList::Enter(const RecentFile& file) {
    EnterRecentFile(entries_, file);
    Save();
}

bool RecentFileList::Store(int index) {
    return profile_.Write(settingsPath_, SectionRecent, KeyOf(index),
                          RecentFileValue(entries_[static_cast<std::size_t>(index)]));
}

void RecentFileList::Save() {
    for (int index = 0; index < RecentFileCount; ++index) {
        if (Store(index)) {
            continue;
        }
        // A folder that cannot be written fails at each key and at each file used; one box is enough.
        if (!std::exchange(warned_, true)) {
            // The names of icon and buttons belong to this text.
            showMessageBox_({"There was an error saving the window position information for " +
                             settingsPath_ + ", vbExclamation, vbOKOnly"});
        }
        return;
    }
}

} // namespace brindle
