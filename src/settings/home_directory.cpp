#include "settings/home_directory.h"

#include "settings/file_error_prompt.h"
#include "settings/setting_keys.h"

#include <algorithm>
#include <utility>

namespace brindle {

namespace {

bool SameLetter(char first, char second) {
    const auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
    return upper(first) == upper(second);
}

bool IsOnDrive(const std::string& path, const std::string& drive, const PathStyle& style) {
    if (style.Drives) {
        return path.size() >= 2 && path[1] == ':' && SameLetter(path[0], drive.front());
    }
    const std::string folder = AddTrailingSeparator(drive, style);
    return AddTrailingSeparator(path, style).compare(0, folder.size(), folder) == 0;
}

} // namespace

bool StoreHomeDirectory(SettingsFile& settings, const std::string& folder) {
    return settings.Write(KeyHomeDir, folder, SectionBrindle);
}

HomeDirectoryChooser::HomeDirectoryChooser(NewFolderFunctions functions,
                                           std::function<void(const std::string& folder)> homeDirectoryChosen,
                                           const PathStyle& style)
    : functions_(std::move(functions)), homeDirectoryChosen_(std::move(homeDirectoryChosen)), style_(style) {}

void HomeDirectoryChooser::Load(const std::string& homeDirectory) {
    folderBefore_ = functions_.Folders.CurrentFolder();
    drives_ = functions_.Folders.Drives();
    rows_ = FolderRows(homeDirectory, {}, style_);
    while (rows_.size() > 1 && !functions_.Folders.FolderExists(rows_.back().Path)) {
        rows_.pop_back();
    }
    Open(std::string(rows_.back().Path));
}

void HomeDirectoryChooser::Drive1_Change(std::size_t drive) {
    const std::string chosen = drives_[drive];
    while (!EnterDrive(chosen)) {
        if (FileErrorPrompt(DiskNotReadyError, functions_.ShowMessageBox) != FileAction::Retry) {
            functions_.Folders.ChangeFolder(selected_);
            return;
        }
    }
    const std::string current = functions_.Folders.CurrentFolder();
    // A volume has no current folder of its own.
    Open(style_.Drives && IsOnDrive(current, chosen, style_) ? current : chosen);
}

bool HomeDirectoryChooser::EnterDrive(const std::string& drive) {
    const FolderFunctions& folders = functions_.Folders;
    folders.ChangeDrive(drive);
    const bool entered = style_.Drives && IsOnDrive(folders.CurrentFolder(), drive, style_);
    return entered || folders.ChangeFolder(drive);
}

void HomeDirectoryChooser::dirHomeDir_Change(std::size_t row) {
    Select(rows_[row].Path);
}

void HomeDirectoryChooser::OpenRow(std::size_t row) {
    Open(std::string(rows_[row].Path));
}

void HomeDirectoryChooser::OpenParent() {
    const auto closed =
        std::find_if(rows_.begin(), rows_.end(), [](const FolderRow& row) { return !row.Open; });
    const auto opened = static_cast<std::size_t>(closed - rows_.begin()) - 1;
    if (opened > 0) {
        OpenRow(opened - 1);
    }
}

void HomeDirectoryChooser::cmdNewFolder_Click() {
    const std::optional<std::string> made = MakeNewFolder(selected_, functions_, style_);
    if (made) {
        Open(*made);
    }
}

bool HomeDirectoryChooser::cmdDone_Click() {
    functions_.Folders.ChangeDrive(selected_);
    if (!functions_.Folders.ChangeFolder(selected_)) {
        FileErrorPrompt(PathAccessError, functions_.ShowMessageBox);
        return false;
    }
    homeDirectoryChosen_(selected_);
    return true;
}

void HomeDirectoryChooser::cmdCancel_Click() {
    functions_.Folders.ChangeDrive(folderBefore_);
    functions_.Folders.ChangeFolder(folderBefore_);
}

std::optional<std::size_t> HomeDirectoryChooser::SelectedDrive() const {
    std::optional<std::size_t> deepest;
    for (std::size_t drive = 0; drive < drives_.size(); ++drive) {
        // A volume mounted in another's folder is found below both.
        if (IsOnDrive(selected_, drives_[drive], style_) &&
            (!deepest || drives_[drive].size() > drives_[*deepest].size())) {
            deepest = drive;
        }
    }
    return deepest;
}

std::size_t HomeDirectoryChooser::SelectedRow() const {
    const auto row = std::find_if(rows_.begin(), rows_.end(),
                                  [this](const FolderRow& listed) { return listed.Path == selected_; });
    return static_cast<std::size_t>(row - rows_.begin());
}

void HomeDirectoryChooser::Open(const std::string& folder) {
    rows_ = FolderRows(folder, functions_.Folders.Subfolders(folder), style_);
    const auto opened =
        std::find_if(rows_.rbegin(), rows_.rend(), [](const FolderRow& row) { return row.Open; });
    Select(opened->Path);
}

void HomeDirectoryChooser::Select(const std::string& folder) {
    selected_ = folder;
    functions_.Folders.ChangeFolder(folder); // one that is closed to us is refused when it is decided on
}

} // namespace brindle
