#include "support/editor_harness.h"

#include "platform/paths.h"
#include "settings/own_profile.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace brindle {

EditorHarness::EditorHarness() {
    Surroundings.ProgramFolder = ProgramFolder;
    Surroundings.ProgramMajor = 1;
    SupplyFiles();
    Surroundings.Folders.FolderExists = [this](const std::string& path) { return Folders.count(path) == 1; };
    Surroundings.Folders.ChangeFolder = [this](const std::string& path) {
        const bool root = path.size() > 1 && path.back() == '/';
        CurrentFolder = root ? path.substr(0, path.size() - 1) : path;
        return true;
    };
    Surroundings.Folders.CurrentFolder = [this] { return CurrentFolder; };
    Surroundings.Folders.Files = [this](const std::string& folder) { return FilesIn(folder); };
    Surroundings.Folders.ChangeDrive = [](const std::string& /*path*/) {};
    Surroundings.ShowMessageBox = [this](const MessageBox& box) {
        Boxes.push_back(box);
        if (box.Buttons == MessageButtons::Ok) {
            return MessageAnswer::Ok;
        }
        if (boxAnswers_.empty()) {
            ADD_FAILURE() << "no answer for the box \"" << box.Text << "\"";
            return MessageAnswer::Cancel;
        }
        const MessageAnswer answer = boxAnswers_.front();
        boxAnswers_.pop_front();
        return answer;
    };
    Surroundings.RunFileDialog = [this](const FileDialogRequest& request) {
        Dialogs.push_back(request);
        if (fileAnswers_.empty()) {
            ADD_FAILURE() << "no answer for the dialog \"" << request.Title << "\"";
            return std::optional<FileDialogAnswer>{};
        }
        std::optional<FileDialogAnswer> answer = fileAnswers_.front();
        fileAnswers_.pop_front();
        return answer;
    };
    Surroundings.Now = [] { return DateAndTime{"5/4/2001", "10:12:33"}; };
}

std::vector<std::string> EditorHarness::FilesIn(const std::string& folder) const {
    const std::string start = JoinPath(folder, "");
    std::vector<std::string> names;
    for (const auto& [path, content] : Files) {
        if (path.compare(0, start.size(), start) == 0) {
            names.push_back(path.substr(start.size()));
        }
    }
    return names;
}

/// One file open at a time, whole contents by path; a file appears under its name only by renaming.
void EditorHarness::SupplyFiles() {
    const auto failure = [this](const char* operation) {
        return FailWith == 0 ? FileError{} : MakeFileError(FailWith, operation);
    };
    FileSystem& files = Surroundings.Files;
    files.Status = [this](const std::string& path, FileStatus& status) {
        status = {};
        if (Files.count(path) == 1) {
            status = {FileType::Regular, Files[path].size(), 0644, true};
            // Two contents have two times, so that a change of the map shows as one of a disk does.
            status.WrittenAt = static_cast<std::int64_t>(std::hash<std::string>{}(Files[path]));
        }
        return FileError{};
    };
    files.FollowLinks = [](const std::string& path, std::string& target) {
        target = path;
        return FileError{};
    };
    files.OpenForReading = [this, failure](const std::string& path, FileHandle& /*handle*/) {
        if (FailWith == 0 && Files.count(path) == 0) {
            return MakeFileError(FileNotFoundError, "open " + path);
        }
        openPath_ = path;
        readPosition_ = 0;
        return failure("open");
    };
    files.OpenItself = files.OpenForReading;
    files.Read = [this](FileHandle /*handle*/, char* bytes, std::size_t size, std::size_t& got) {
        got = Files[openPath_].copy(bytes, size, readPosition_);
        readPosition_ += got;
        return FileError{};
    };
    files.CreateNew = [this, failure](const std::string& path, std::uint32_t /*mode*/,
                                      FileHandle& /*handle*/) {
        openPath_ = path;
        if (FailWith == 0) {
            Files[path].clear();
        }
        return failure("create");
    };
    files.CreateLike = [&files](const std::string& path, const std::string& /*old*/, FileHandle& handle,
                                FileTraits& lost) {
        lost = {};
        return files.CreateNew(path, 0, handle);
    };
    files.OpenInPlace = [](const std::string& path, FileHandle& /*handle*/) {
        return MakeFileError(PermissionDeniedError, "open " + path);
    };
    files.Write = [this](FileHandle /*handle*/, const char* bytes, std::size_t size) {
        Files[openPath_].append(bytes, size);
        return FileError{};
    };
    files.Flush = [](FileHandle /*handle*/) { return FileError{}; };
    files.Close = [](FileHandle /*handle*/) { return FileError{}; };
    files.Rename = [this](const std::string& from, const std::string& to) {
        Files[to] = Files[from];
        Files.erase(from);
        return FileError{};
    };
    files.Remove = [this](const std::string& path) {
        Files.erase(path);
        return FileError{};
    };
    files.RemoveAbandoned = files.Remove;
    files.IsAbandoned = [](const std::string& /*path*/) { return false; };
    files.NamesIn = [](const std::string& /*folder*/, const std::string& /*start*/) {
        return std::vector<std::string>{};
    };
    files.Chance = [] { return std::uint64_t{0}; };
    files.FlushFolder = [](const std::string& /*folder*/) { return FileError{}; };
}

EditorWindow EditorHarness::LoggingWindow() {
    EditorWindow window;
    window.ShowHourglass = [this](bool busy) { Log.emplace_back(busy ? "hourglass on" : "hourglass off"); };
    window.ShowTitle = [this] { Log.emplace_back("title"); };
    window.ShowStatus = [this] { ShownStatus = editor_->StatusNotices(); };
    window.ShowIdentity = [this] { Log.emplace_back("identity"); };
    window.ChooseVdr810Options = [this](Vdr810Options& options) {
        OfferedVersions = options.Versions();
        return ChooseOptions && ChooseOptions(options);
    };
    window.ShowCategories = [this] { Log.emplace_back("categories"); };
    window.ShowRecentFiles = [this] {
        Log.push_back("recent " + editor_->Recent()[0].Path + " " + editor_->Recent()[0].Name);
    };
    window.ShowOutputMap = [this] { Log.emplace_back("output map"); };
    window.ShowUnit = [this](UnitRedraw redraw) {
        Log.emplace_back(redraw == UnitRedraw::Selected ? "unit selected" : "unit refreshed");
    };
    const auto logChooser = [this](const char* what) {
        return [this, what](int category) { Log.push_back(what + std::to_string(category)); };
    };
    window.ShowChooser = logChooser("show chooser ");
    window.HideChooser = logChooser("hide chooser ");
    window.MoveChooserHome = logChooser("move chooser home ");
    window.RaiseChooser = logChooser("raise chooser ");
    window.ShowOpenChoosers = [this] { Log.emplace_back("open choosers"); };
    window.FocusInput = [this](int input) { Log.push_back("focus input " + std::to_string(input)); };
    window.Unload = [this] { Log.emplace_back("unload"); };
    window.Placement.Screen = [] { return ScreenSize{16200, 28800}; };
    window.Placement.State = [] { return WindowState::Normal; };
    window.Placement.Bounds = [this] { return bounds_; };
    window.Placement.Place = [this](const FormBounds& bounds) {
        Log.emplace_back("place");
        bounds_ = bounds;
    };
    window.Placement.Maximise = [this] { Log.emplace_back("maximise"); };
    return window;
}

void EditorHarness::SupplySettings() {
    FileSystem& files = Surroundings.Files;
    if (ProfileOnDisk) {
        Surroundings.Profile = OwnProfile(files);
        return;
    }
    Surroundings.Profile = Profile.Functions();
    const auto otherStatus = files.Status;
    files.Status = [this, otherStatus](const std::string& path, FileStatus& status) {
        return path == JoinPath(ProgramFolder, "Benchkit.ini") ? Profile.Files().Status(path, status)
                                                               : otherStatus(path, status);
    };
}

void EditorHarness::Start() {
    SupplySettings();
    editor_ = std::make_unique<Editor>(Surroundings);
    editor_->AttachWindow(LoggingWindow());
    editor_->Form_Initialize();
    editor_->Form_Load();
}

std::size_t EditorHarness::Count(const std::string& start) const {
    return static_cast<std::size_t>(std::count_if(
        Log.begin(), Log.end(), [&](const std::string& line) { return line.rfind(start, 0) == 0; }));
}

void EditorHarness::ChooseFile(const std::string& folder, const std::string& name, int filterIndex) {
    fileAnswers_.emplace_back(FileDialogAnswer{JoinPath(folder, name), name, filterIndex});
}

} // namespace brindle
