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

bool Write(const FileSystem& files, const std::string& path, const std::string& section,
           const std::optional<std::string>& key, const std::optional<std::string>& value) {
    if (!IsProfileEntry(section, key, value)) {
        return false;
    }
    std::string text;
    const FileError error = ReadWholeFile(files, path, GreatestProfileSize + 1, text);
    // A file taken for absent would lose all that it holds.
    if ((error.Failed() && !IsAbsent(files, path)) || text.size() > GreatestProfileSize) {
        return false;
    }
    const std::string edited = Edited(text, section, key, value);
    // A file that already says so is left alone: a write in vain could only fail, and wears the disk at every
    // closing of a window.
    return edited == text || !ReplaceWholeFile(files, path, edited).Failed();
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
    return profile;
}

} // namespace brindle
