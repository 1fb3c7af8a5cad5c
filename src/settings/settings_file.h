#pragma once

#include "platform/file_system.h"
#include "platform/message_box.h"
#include "settings/profile.h"
#include "settings/settings_lock.h"

#include <optional>
#include <string>

namespace brindle {

/// The program's settings file, "Benchkit.ini" in the program's folder. There is one for a whole run, handed
/// to whoever stores something: it remembers that the user was told of a failed write. A missing file,
/// section or key reads as its default; the first write creates what is missing. Programs that share the file
/// change it one after the other, by a lock beside it ("Benchkit.lock").
class SettingsFile {
  public:
    /// `programFolder` is an absolute path, with or without a separator at its end. Without `locks` programs
    /// do not wait for each other.
    SettingsFile(const std::string& programFolder, ProfileFunctions profile, FileSystem files,
                 ShowMessageBox showMessageBox, FileLocks locks = {});

    SettingsFile(const SettingsFile&) = delete;
    SettingsFile& operator=(const SettingsFile&) = delete;
    SettingsFile(SettingsFile&&) = delete;
    SettingsFile& operator=(SettingsFile&&) = delete;
    ~SettingsFile() = default;

    [[nodiscard]] std::string Read(const std::string& section, const std::string& key,
                                   const std::string& fallback = {}) const;

    /// The whole number that a value begins with; `fallback` when there is none.
    [[nodiscard]] int ReadInt(const std::string& section, const std::string& key, int fallback = 0) const;

    /// Stores a value. The first write of a run that fails is told in a box; every failure returns false and
    /// leaves the file as it was. A value with a line break cannot be stored.
    bool Write(const std::string& key, const std::string& value, const std::string& section);

    /// Deletes a section with all its keys; fails as Write does. True when there is none.
    bool RemoveSection(const std::string& section);

    /// Stores several keys of a section as `decide` wants them, which reads what other programs may have
    /// stored; nobody changes the file meanwhile. False, and nobody is told, when that fails; `decide` is not
    /// called for a file that cannot be read.
    bool Update(const std::string& section, const DecideProfileEntries& decide);

    /// Shows a box about a failed write, unless one was shown in this run. A folder that cannot be written
    /// fails at every key and every window; more than one box would be in the user's way.
    void TellOnce(const MessageBox& box);

    [[nodiscard]] const std::string& Path() const { return path_; }

    /// There is such a file, readable or not.
    [[nodiscard]] bool Exists() const;

  private:
    bool WriteOrTell(const std::string& section, const std::optional<std::string>& key,
                     const std::optional<std::string>& value);

    std::string path_;
    ProfileFunctions profile_;
    FileSystem files_;
    ShowMessageBox showMessageBox_;
    SettingsLock lock_;
    bool told_ = false;
};

} // namespace brindle
