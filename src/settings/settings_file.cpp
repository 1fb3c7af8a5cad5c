#include "settings/settings_file.h"

#include "platform/paths.h"
#include "settings/setting_keys.h"

#include <utility>

namespace brindle {

SettingsFile::SettingsFile(const std::string& programFolder, ProfileFunctions profile, FileSystem files,
                           ShowMessageBox showMessageBox)
    : path_(JoinPath(programFolder, SettingsFileName)), profile_(std::move(profile)),
      files_(std::move(files)), showMessageBox_(std::move(showMessageBox)) {}

std::string SettingsFile::Read(const std::string& section, const std::string& key,
                               const std::string& fallback) const {
    return profile_.ReadText(path_, section, key, fallback);
}

int SettingsFile::ReadInt(const std::string& section, const std::string& key, int fallback) const {
    return profile_.ReadInteger(path_, section, key, fallback);
}

bool SettingsFile::Write(const std::string& key, const std::string& value, const std::string& section) {
    return profile_.Write(path_, section, key, value) || WarnOnce(section);
}

bool SettingsFile::RemoveSection(const std::string& section) {
    return profile_.Write(path_, section, std::nullopt, std::nullopt) || WarnOnce(section);
}

bool SettingsFile::Exists() const {
    FileStatus status;
    return !files_.Status(path_, status).Failed() && status.Type != FileType::Absent;
}

/// Returns false, for a failed write to return. A folder that cannot be written fails at every key and every
/// window; more than one box would be in the user's way.
bool SettingsFile::WarnOnce(const std::string& section) {
    if (!std::exchange(warned_, true)) {
        // The one text for every key, whatever it keeps.
        showMessageBox_({"There was an error saving the window position information for " + section +
                             " to the file " + path_ + ".",
                         MessageIcon::Exclamation, MessageButtons::Ok, "Warning"});
    }
    return false;
}

} // namespace brindle
