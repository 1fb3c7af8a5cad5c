#pragma once

#include "model/logic_config.h"
#include "platform/file_system.h"
#include "platform/paths.h"
#include "settings/settings_file.h"

#include <array>
#include <optional>
#include <set>
#include <string>
#include <string_view>

/// The files used last, for the File menu; kept in the settings file as "Recent0" to "Recent9".
namespace brindle {

inline constexpr int RecentFileCount = 10;

struct RecentFile {
    std::string Path; ///< absolute; empty for an unused entry
    std::string Name; ///< of the file, without its folder
    RelayKind Model = RelayKind::Vdr812;

    [[nodiscard]] bool Used() const { return !Path.empty(); }

    bool operator==(const RecentFile&) const = default;
};

/// The newest first; unused entries may stand anywhere.
using RecentFiles = std::array<RecentFile, RecentFileCount>;

/// The stored text of an entry: path, name and model joined by commas; "EMPTY" for an unused one. "EMPTY" too
/// for what would not read back as the same file: a path or name with a comma or a line break. Such a file is
/// in the menu until the program ends.
std::string RecentFileValue(const RecentFile& file);

/// The entry of a stored text; nothing for "EMPTY" and for what is none: other than three fields, no path, a
/// model other than 1 and 2. Whether there is such a file is not asked.
std::optional<RecentFile> ParseRecentFile(std::string_view value);

/// Puts `file` at the head. Another entry of its path goes, the others keep their order and close up, the
/// eleventh is dropped. Two writings of a path are the same file ("x/../a.pl" and "a.pl"); on systems with
/// drives also without regard to the case of ASCII letters and to which separator they use.
void EnterRecentFile(RecentFiles& files, const RecentFile& file, const PathStyle& style = SystemPaths);

/// `path` in at most `limit` (20 or more) characters, "..." in the place of folders in its middle. Its last
/// name stays whole where it has room.
std::string ShortenedPath(const std::string& path, std::size_t limit, const PathStyle& style = SystemPaths);

/// The captions of the menu's items, empty for an unused entry. Used ones are numbered from 1 with their
/// digit as access key, the tenth "1&0"; "&" in a path stands doubled, and a long path is shortened.
std::array<std::string, RecentFileCount> RecentFileCaptions(const RecentFiles& files,
                                                            const PathStyle& style = SystemPaths);

/// The list of a running program, kept in the settings file together with the other programs that share it.
class RecentFileList {
  public:
    /// `settings` outlives the list and lies in `programFolder`, an absolute path.
    RecentFileList(const std::string& programFolder, SettingsFile& settings, FileSystem files);

    /// Takes the stored entries, each in its place. One that is malformed or whose file is no longer there
    /// becomes unused, and "EMPTY" in the settings file. A file that the system does not let us look for
    /// stays.
    void Load();

    /// Puts a file at the head of what is stored by now, and stores that. A failure is told in a box, unless
    /// a failed setting was told of before; what could not be stored stays in this list.
    void Enter(const RecentFile& file);

    [[nodiscard]] const RecentFiles& Entries() const { return entries_; }

  private:
    [[nodiscard]] RecentFiles MergedWith(const RecentFiles& stored) const;

    std::string toldPath_;
    SettingsFile& settings_;
    FileSystem files_;
    RecentFiles entries_;
    std::set<std::string> notStored_; ///< the paths of the entries that only this program has
};

} // namespace brindle
