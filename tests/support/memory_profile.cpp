#include "support/memory_profile.h"

#include "settings/profile_text.h"

#include <algorithm>

namespace brindle {

ProfileFunctions MemoryProfile::Functions() {
    ProfileFunctions profile;
    profile.ReadText = [this](const std::string&, const std::string& section, const std::string& key,
                              const std::string& fallback) {
        return FindProfileValue(Text.value_or(""), section, key).value_or(fallback);
    };
    profile.ReadInteger = [this](const std::string&, const std::string& section, const std::string& key,
                                 int fallback) {
        return ProfileInteger(FindProfileValue(Text.value_or(""), section, key).value_or(""), fallback);
    };
    profile.Write = [this](const std::string&, const std::string& section,
                           const std::optional<std::string>& key, const std::optional<std::string>& value) {
        Writes.push_back("[" + section + "] " + (key ? *key + "=" + value.value_or("(none)") : "removed"));
        if (FailFrom != 0 && Writes.size() >= FailFrom) {
            return false;
        }
        const std::string text = Text.value_or("");
        Text = key ? SetProfileValue(text, section, *key, value.value_or(""))
                   : DeleteProfileSection(text, section);
        return true;
    };
    profile.Update = [read = profile.ReadText, write = profile.Write](const std::string& path,
                                                                      const std::string& section,
                                                                      const DecideProfileEntries& decide) {
        const auto readKey = [&](const std::string& key, const std::string& fallback) {
            return read(path, section, key, fallback);
        };
        const std::vector<ProfileEntry> entries = decide(readKey);
        return std::all_of(entries.begin(), entries.end(), [&](const ProfileEntry& entry) {
            return write(path, section, entry.Key, entry.Value);
        });
    };
    return profile;
}

FileSystem MemoryProfile::Files() {
    FileSystem files;
    files.Status = [this](const std::string&, FileStatus& status) {
        status.Type = Text ? FileType::Regular : FileType::Absent;
        return FileError();
    };
    return files;
}

ShowMessageBox MemoryProfile::Show() {
    return [this](const MessageBox& box) {
        Boxes.push_back(box);
        return MessageAnswer::Ok;
    };
}

SettingsFile MemoryProfile::Settings(const std::string& folder) {
    return {folder, Functions(), Files(), Show()};
}

} // namespace brindle
