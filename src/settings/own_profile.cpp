#include "settings/own_profile.h"

#include "files/whole_file.h"
#include "settings/profile_text.h"

namespace brindle {

namespace {

std::optional<std::string> ReadValue(const FileSystem& files, const std::string& path,
                                     const std::string& section, const std::string& key) {
    std::string text;
    // On failure the text is empty, and an empty text has no keys.
    ReadWholeFile(files, path, GreatestProfileSize, text);
    return FindProfileValue(text, section, key);
}

std::string Edited(std::string_view text, const std::string& section, const std::optional<std::string>& key,
                   const std::optional<std::string>& value) {
    if (!key) {
        return DeleteProfileSection(text, section);
    }
    return value ? SetProfileValue(text, section, *key, *value) : DeleteProfileKey(text, section, *key);
}

/// The new text of a profile; none when what is asked cannot stand in one.
using Edit = std::function<std::optional<std::string>(const std::string& text)>;

bool Change(const FileSystem& files, const std::string& path, const Edit& edit) {
    std::string text;
    const FileError error = ReadWholeFile(files, path, GreatestProfileSize + 1, text);
    // A file taken for absent would lose all that it holds.
    if ((error.Failed() && !IsAbsent(files, path)) || text.size() > GreatestProfileSize) {
        return false;
    }
    const std::optional<std::string> edited = edit(text);
    // A file that already says so is left alone: a write in vain could only fail, and wears the disk at every
    // closing of a window.
    return edited && (*edited == text || !ReplaceWholeFile(files, path, *edited).Failed());
}

bool Write(const FileSystem& files, const std::string& path, const std::string& section,
           const std::optional<std::string>& key, const std::optional<std::string>& value) {
    return IsProfileEntry(section, key, value) &&
           Change(files, path, [&](const std::string& text) { return Edited(text, section, key, value); });
}

bool Update(const FileSystem& files, const std::string& path, const std::string& section,
            const DecideProfileEntries& decide) {
    return Change(files, path, [&](std::string text) -> std::optional<std::string> {
        const auto read = [&](const std::string& key, const std::string& fallback) {
            return FindProfileValue(text, section, key).value_or(fallback);
        };
        const std::vector<ProfileEntry> entries = decide(read);
        for (const ProfileEntry& entry : entries) {
            if (!IsProfileEntry(section, entry.Key, entry.Value)) {
                return {};
            }
            text = SetProfileValue(text, section, entry.Key, entry.Value);
        }
        return text;
    });
}

} // namespace

ProfileFunctions OwnProfile(const FileSystem& files) {
    ProfileFunctions profile;
    profile.ReadText = [files](const std::string& path, const std::string& section, const std::string& key,
                               const std::string& fallback) {
        return ReadValue(files, path, section, key).value_or(fallback);
    };
    profile.ReadInteger = [files](const std::string& path, const std::string& section, const std::string& key,
                                  int fallback) {
        return ProfileInteger(ReadValue(files, path, section, key).value_or(""), fallback);
    };
    profile.Write = [files](const std::string& path, const std::string& section,
                            const std::optional<std::string>& key, const std::optional<std::string>& value) {
        return Write(files, path, section, key, value);
    };
    profile.Update = [files](const std::string& path, const std::string& section,
                             const DecideProfileEntries& decide) {
        return Update(files, path, section, decide);
    };
    return profile;
}

} // namespace brindle
