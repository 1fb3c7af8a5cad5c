#include "settings/settings_file.h"

#include "platform/paths.h"
#include "settings/setting_keys.h"

#include <utility>

namespace brindle {

SettingsFile::SettingsFile(const std::string& programFolder, ProfileFunctions profile, FileSystem files,
                           ShowMessageBox showMessageBox, FileLocks locks)
    : path_(JoinPath(programFolder, SettingsFileName)), profile_(std::move(profile)),
      files_(std::move(files)), showMessageBox_(std::move(showMessageBox)),
      lock_(JoinPath(programFolder, SettingsLockName), std::move(locks)) {}

std::string SettingsFile::Read(const std::string& section, const std::string& key,
                               const std::string& fallback) const {
    return profile_.ReadText(path_, section, key, fallback);
}

int SettingsFile::ReadInt(const std::string& section, const std::string& key, int fallback) const {
    return profile_.ReadInteger(path_, section, key, fallback);
}

bool SettingsFile::Write(const std::string& key, const std::string& value, const std::string& section) {
    return WriteOrTell(section, std::optional(key), value);
}

bool SettingsFile::RemoveSection(const std::string& section) {
    return WriteOrTell(section, std::nullopt, std::nullopt);
}

bool SettingsFile::WriteOrTell(const std::string& section, const std::optional<std::string>& key,
                               const std::optional<std::string>& value) {
    const bool written = lock_.Run([&] { return profile_.Write(path_, section, key, value); });
    if (!written) {
        // The one text for every key, whatever it keeps.
        TellOnce({"There was an error saving the window position information for " + section +
                      " to the file " + path_ + ".",
                  MessageIcon::Exclamation, MessageButtons::Ok, "Warning"});
    }
    return written;
}

bool SettingsFile::Update(const std::string& section, const DecideProfileEntries& decide) {
    return lock_.Run([&] { return profile_.Update(path_, section, decide); });
}

bool SettingsFile::Exists() const {
    FileStatus status;
    return !files_.Status(path_, status).Failed() && status.Type != FileType::Absent;
}

void SettingsFile::TellOnce(const MessageBox& box) {
    if (!std::exchange(told_, true)) {
        showMessageBox_(box);
    }
}

} // namespace brindle
