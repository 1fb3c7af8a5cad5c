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

bool CanBeStored(const RecentFile& file) {
    return HasNoneOf(file.Path, ",\r\n") && HasNoneOf(file.Name, ",\r\n");
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

bool SamePath(const std::string& one, const std::string& other, const PathStyle& style) {
    const std::string first = PlainPath(one, style);
    const std::string second = PlainPath(other, style);
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

/// The stored entries, each in its place.
RecentFiles StoredFiles(const ReadProfileKey& read) {
    RecentFiles stored;
    for (int index = 0; index < RecentFileCount; ++index) {
        stored[static_cast<std::size_t>(index)] =
            ParseRecentFile(read(KeyOf(index), EmptyEntry)).value_or(RecentFile{});
    }
    return stored;
}

} // namespace

std::string RecentFileValue(const RecentFile& file) {
    if (!file.Used() || !CanBeStored(file)) {
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
    if (!CanBeStored(file)) {
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

RecentFileList::RecentFileList(const std::string& programFolder, SettingsFile& settings, FileSystem files)
    // The message of this list has always put a separator here whatever the folder ends in.
    : toldPath_(programFolder + SystemPaths.Separator + SettingsFileName), settings_(settings),
      files_(std::move(files)) {}

void RecentFileList::Load() {
    std::set<std::string> vanished;
    const auto readNow = [this](const std::string& key, const std::string& fallback) {
        return settings_.Read(SectionRecent, key, fallback);
    };
    // Looked for before other programs are made to wait: a disk on the network may take its time.
    for (const RecentFile& file : StoredFiles(readNow)) {
        if (file.Used() && HasVanished(files_, file.Path)) {
            vanished.insert(file.Path);
        }
    }
    const auto clear = [&](const ReadProfileKey& read) {
        entries_ = StoredFiles(read);
        std::vector<ProfileEntry> cleared;
        for (int index = 0; index < RecentFileCount; ++index) {
            RecentFile& entry = entries_[static_cast<std::size_t>(index)];
            if (!entry.Used() || vanished.contains(entry.Path)) {
                entry = {};
                cleared.push_back({KeyOf(index), EmptyEntry});
            }
        }
        return cleared;
    };
    // A failure is not told: nothing is lost, and the next start finds the same.
    settings_.Update(SectionRecent, clear);
}

/// What is stored by now, with our own entries that are not.
RecentFiles RecentFileList::MergedWith(const RecentFiles& stored) const {
    const auto isStored = [&](const RecentFile& file) {
        return std::any_of(stored.begin(), stored.end(), [&](const RecentFile& other) {
            return SamePath(file.Path, other.Path, SystemPaths);
        });
    };
    std::vector<RecentFile> merged;
    for (std::size_t index = 0; index < stored.size(); ++index) {
        if (notStored_.contains(entries_[index].Path) && !isStored(entries_[index])) {
            merged.push_back(entries_[index]);
        }
        if (stored[index].Used()) {
            merged.push_back(stored[index]);
        }
    }
    merged.resize(stored.size());
    RecentFiles files;
    std::move(merged.begin(), merged.end(), files.begin());
    return files;
}

void RecentFileList::Enter(const RecentFile& file) {
    RecentFiles entered = entries_;
    const auto enter = [&](const ReadProfileKey& read) {
        entered = MergedWith(StoredFiles(read));
        EnterRecentFile(entered, file);
        std::vector<ProfileEntry> stored;
        stored.reserve(RecentFileCount);
        for (int index = 0; index < RecentFileCount; ++index) {
            stored.push_back({KeyOf(index), RecentFileValue(entered[static_cast<std::size_t>(index)])});
        }
        return stored;
    };
    const bool stored = settings_.Update(SectionRecent, enter);
    EnterRecentFile(entered, file); // a file that cannot be read was not asked
    entries_ = entered;
    if (stored) {
        notStored_.clear();
        std::for_each(entered.begin(), entered.end(), [this](const RecentFile& entry) {
            if (!CanBeStored(entry)) {
                notStored_.insert(entry.Path);
            }
        });
        return;
    }
    notStored_.insert(file.Path);
    // The names of icon and buttons belong to this text.
    settings_.TellOnce({"There was an error saving the window position information for " + toldPath_ +
                        ", vbExclamation, vbOKOnly"});
}

} // namespace brindle
