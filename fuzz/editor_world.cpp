#include "fuzz/editor_world.h"

#include "files/program_file.h"
#include "fuzz/check.h"
#include "platform/paths.h"
#include "settings/own_profile.h"
#include "support/vdr810_scheme.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace brindle {

namespace {

std::string NewProgram(float version) {
    LogicConfig config;
    MakeNewVdr812(config, version);
    ProgramImage image{};
    Require(!EncodeProgram(config, image).Failed(), "a new logic can be written");
    return {image.begin(), image.end()};
}

std::string NameIn(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

constexpr std::array<std::tuple<double, std::int16_t, std::int16_t>, 2> OptionFiles{
    {{1.0, 0, 3}, {2.3, 12, 8}}}; // version, options, groups

struct StartFile {
    std::string Path;
    std::string Bytes;
    std::uint32_t Mode = 0644;
};

/// What is on the disk of every run, made once.
std::vector<StartFile> MakeStartFiles() {
    const std::string logicFile = SchemeLogicFile(2.3, 12);
    std::vector<StartFile> files{{"/home/a.pl", NewProgram(Version230)},
                                 {"/home/old.pl", NewProgram(Version100)},
                                 {"/home/short.pl", NewProgram(Version230).substr(0, 300)},
                                 {"/home/noise.pl", std::string(2048, '\xA5')},
                                 {"/home/readonly.pl", NewProgram(Version230), 0444},
                                 {"/home/a.c10", logicFile},
                                 {"/home/other.c10", SchemeLogicFile(5.5, 1, 3)},
                                 {"/home/cut.c10", logicFile.substr(0, logicFile.size() / 2)}};
    for (const auto& [version, options, groups] : OptionFiles) {
        files.push_back({JoinPath(EditorWorld::ProgramFolder, OptionFileName(version, options)),
                         SchemeOptionFile(version, options, groups)});
    }
    return files;
}

} // namespace

int Decisions::Byte() {
    if (rest_.empty()) {
        return 0;
    }
    const auto byte = static_cast<unsigned char>(rest_.front());
    rest_.remove_prefix(1);
    return byte;
}

int Decisions::Number(int least, int greatest) {
    return least + Byte() % (greatest - least + 1);
}

std::string Decisions::Text(std::size_t longest) {
    const std::size_t wanted = static_cast<std::size_t>(Byte()) % (longest + 1);
    const std::size_t size = std::min(wanted, rest_.size());
    std::string text(rest_.substr(0, size));
    rest_.remove_prefix(size);
    return text;
}

EditorWorld::EditorWorld(Decisions& decisions) : decisions_(decisions) {
    static const std::vector<StartFile> files = MakeStartFiles();
    folders_.Existing = {"/",      "/closed",  "/home", "/home/folder.pl", "/home/lines", "/mnt",
                         "/mnt/a", "/mnt/a/b", "/opt",  ProgramFolder};
    folders_.Closed = {"/closed"};
    folders_.Volumes = {"/", "/mnt/a", "/mnt/absent"};
    for (const std::string& folder : folders_.Existing) {
        Disk.AddFolder(folder);
    }
    for (const StartFile& file : files) {
        Disk.AddFile(file.Path, file.Bytes, file.Mode);
    }
    Disk.AddLink("/home/dangling.c10", "/home/nowhere.c10");
    for (const auto& [version, options, groups] : OptionFiles) {
        folders_.FilesOf[ProgramFolder].push_back(OptionFileName(version, options));
    }
    Start();
}

void EditorWorld::Start() {
    editor_ = std::make_unique<Editor>(Surroundings());
    editor_->AttachWindow(Window());
    editor_->Form_Initialize();
    editor_->Form_Load();
}

void EditorWorld::StartAgain(RunEnd end) {
    if (end == RunEnd::Closed) {
        editor_->Form_Unload();
        editor_->Form_Terminate();
    }
    editor_.reset();
    if (end == RunEnd::PowerLost) {
        Disk.Crash(decisions_.Number(0, 1) == 0 ? UnflushedNames::Forgotten : UnflushedNames::Kept);
    }
    locks_.Held.clear();
    Start();
}

std::vector<std::string> EditorWorld::RecoveryCopies() const {
    std::vector<std::string> copies = Disk.Names();
    const std::string start = JoinPath(ProgramFolder, "Recovery");
    copies.erase(std::remove_if(copies.begin(), copies.end(),
                                [&](const std::string& path) {
                                    return !path.starts_with(start) || !path.ends_with(".brindle");
                                }),
                 copies.end());
    return copies;
}

const std::vector<std::string>& EditorWorld::Paths() {
    static const std::vector<std::string> paths{
        "/home/a.pl",     "/home/old.pl",    "/home/short.pl", "/home/noise.pl",  "/home/readonly.pl",
        "/home/a.c10",    "/home/other.c10", "/home/cut.c10",  "/home/folder.pl", "/home/dangling.c10",
        "/home/new.pl",   "/home/new.c10",   "/home/new.txt",  "/gone/a.pl",      "/home/comma,comma.c10",
        "/home/A&B 1.pl", "/opt/x.c10"};
    return paths;
}

MessageAnswer EditorWorld::Answer(const MessageBox& box) {
    Require(!box.Text.empty(), "a box says something");
    const auto choose = [this](std::initializer_list<MessageAnswer> answers) {
        // The last once the decisions are used up, so that nothing is retried for ever.
        const int index = decisions_.Left() ? decisions_.Number(1, static_cast<int>(answers.size()))
                                            : static_cast<int>(answers.size());
        return *(answers.begin() + index - 1);
    };
    switch (box.Buttons) {
    case MessageButtons::Ok:
        break;
    case MessageButtons::OkCancel:
        return choose({MessageAnswer::Ok, MessageAnswer::Cancel});
    case MessageButtons::YesNo:
        return choose({MessageAnswer::Yes, MessageAnswer::No});
    case MessageButtons::YesNoCancel:
        if (AnswerAtStart) {
            return *AnswerAtStart;
        }
        return choose({MessageAnswer::Yes, MessageAnswer::No, MessageAnswer::Cancel});
    case MessageButtons::SaveAsOverwriteCancel:
        return choose({MessageAnswer::SaveAs, MessageAnswer::Overwrite, MessageAnswer::Cancel});
    case MessageButtons::RetryCancel:
        return choose({MessageAnswer::Retry, MessageAnswer::Cancel});
    }
    return MessageAnswer::Ok;
}

EditorSurroundings EditorWorld::Surroundings() {
    EditorSurroundings surroundings;
    surroundings.ProgramFolder = ProgramFolder;
    surroundings.ProgramMajor = 1;
    surroundings.Files = Disk.Operations();
    surroundings.Locks = locks_.Operations();
    surroundings.Profile = OwnProfile(surroundings.Files);
    surroundings.Folders = folders_.Operations();
    surroundings.Folders.MakeFolder = [this](const std::string& path) {
        if (decisions_.Number(0, 7) == 0) {
            return MakeFileError(PathAccessError, "make folder " + path);
        }
        folders_.Existing.insert(path);
        Disk.AddFolder(path);
        return FileError{};
    };
    surroundings.ShowMessageBox = [this](const MessageBox& box) { return Answer(box); };
    surroundings.RunFileDialog = [this](const FileDialogRequest&) -> std::optional<FileDialogAnswer> {
        const int choice = decisions_.Number(0, static_cast<int>(Paths().size()));
        if (choice == 0) {
            return {};
        }
        const std::string& path = Paths().at(static_cast<std::size_t>(choice - 1));
        return FileDialogAnswer{path, NameIn(path), decisions_.Number(1, 3)};
    };
    surroundings.Browser.FindExecutable = [this](const std::string&, std::string& program) {
        program = "/usr/bin/browser";
        return decisions_.Number(0, 64);
    };
    surroundings.Browser.StartProgram = [this](const std::string&, const std::string&) {
        return decisions_.Number(0, 64);
    };
    surroundings.Now = [] { return DateAndTime{"5/4/2001", "10:12:33"}; };
    return surroundings;
}

EditorWindow EditorWorld::Window() {
    const auto nothing = [](auto&&...) {};
    EditorWindow window;
    window.ShowHourglass = nothing;
    window.ShowTitle = nothing;
    window.ShowIdentity = nothing;
    window.ShowStatus = nothing;
    window.ChooseVdr810Options = [this](Vdr810Options& options) {
        if (!options.Versions().empty()) {
            options.ChooseVersion(decisions_.Number(0, static_cast<int>(options.Versions().size()) - 1));
        }
        if (!options.Options().empty()) {
            options.ChooseOptions(decisions_.Number(0, static_cast<int>(options.Options().size()) - 1));
        }
        return decisions_.Number(0, 3) != 0;
    };
    window.ShowCategories = nothing;
    window.ShowRecentFiles = nothing;
    window.ShowOutputMap = nothing;
    window.ShowUnit = nothing;
    window.ShowChooser = nothing;
    window.HideChooser = nothing;
    window.MoveChooserHome = nothing;
    window.RaiseChooser = nothing;
    window.ShowOpenChoosers = nothing;
    window.FocusInput = nothing;
    window.Unload = nothing;
    window.Placement.Screen = [] { return ScreenSize{16200, 28800}; };
    window.Placement.State = [] { return WindowState::Normal; };
    window.Placement.Bounds = [this] { return bounds_; };
    window.Placement.Place = [this](const FormBounds& bounds) { bounds_ = bounds; };
    window.Placement.Maximise = nothing;
    return window;
}

} // namespace brindle
