#pragma once

#include "platform/paths.h"
#include "settings/new_folder.h"
#include "settings/settings_file.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// Choosing the home directory, the folder in which the file dialogs open.
namespace brindle {

/// Stores the home directory so that it reads back as it is. False when it could not be written, which the
/// settings file then has told.
bool StoreHomeDirectory(SettingsFile& settings, const std::string& folder);

/// A line of the list of folders.
struct FolderRow {
    std::string Caption;
    std::string Path;
    int Depth = 0;     ///< 0 for the root
    bool Open = false; ///< the folder whose folders are listed, or one that it lies in

    bool operator==(const FolderRow&) const = default;
};

/// The folders from the root down to `path`, each in the one before it, and then those named by `subfolders`,
/// which `path` holds.
std::vector<FolderRow> FolderRows(const std::string& path, const std::vector<std::string>& subfolders,
                                  const PathStyle& style = SystemPaths);

/// What is chosen while the window of the home directory is open, without the window. One folder is open: its
/// folders are listed below those that it lies in. One of all these is selected, and is the current folder of
/// the program where the system lets us.
class HomeDirectoryChooser {
  public:
    /// `homeDirectoryChosen` is told what the user decided on; it stores it.
    HomeDirectoryChooser(NewFolderFunctions functions,
                         std::function<void(const std::string& folder)> homeDirectoryChosen,
                         const PathStyle& style = SystemPaths);

    /// Begins with a home directory open and selected; with the nearest folder above it when it has gone.
    void Load(const std::string& homeDirectory);

    /// Opens the current folder of a drive; where drives are mounted volumes, the volume. A drive that is not
    /// ready is told and may be tried again; given up, all stays as it was. `drive` is an index of Drives().
    void Drive1_Change(std::size_t drive);

    /// Selects a listed folder.
    void dirHomeDir_Change(std::size_t row);

    /// Opens a listed folder, which is then selected.
    void OpenRow(std::size_t row);

    /// Opens the folder that holds the open one; nothing at a root.
    void OpenParent();

    /// Makes a folder in the selected one and opens it.
    void cmdNewFolder_Click();

    /// Takes the selected folder as home directory. False, and the user told, when it cannot be entered.
    bool cmdDone_Click();

    /// Puts the current folder back to what it was at the beginning.
    void cmdCancel_Click();

    [[nodiscard]] const std::vector<std::string>& Drives() const { return drives_; }

    /// The drive of the selected folder; nothing when it is on none, as a shared folder of the network.
    [[nodiscard]] std::optional<std::size_t> SelectedDrive() const;

    [[nodiscard]] const std::vector<FolderRow>& Rows() const { return rows_; }

    [[nodiscard]] std::size_t SelectedRow() const;

    /// The selected folder's path.
    [[nodiscard]] const std::string& Selected() const { return selected_; }

  private:
    bool EnterDrive(const std::string& drive);
    void Open(const std::string& folder);
    void Select(const std::string& folder);

    NewFolderFunctions functions_;
    std::function<void(const std::string& folder)> homeDirectoryChosen_;
    PathStyle style_;
    std::string folderBefore_;
    std::vector<std::string> drives_;
    std::vector<FolderRow> rows_;
    std::string selected_;
};

} // namespace brindle
