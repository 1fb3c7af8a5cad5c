#include "fuzz/home_directory_run.h"

#include "fuzz/check.h"
#include "settings/home_directory.h"

namespace brindle {

namespace {

constexpr int GreatestSteps = 8;
constexpr std::size_t LongestName = GreatestFolderName + 4; // bytes; some names are too long

void TakeStep(HomeDirectoryChooser& chooser, Decisions& decisions) {
    const auto row = [&] {
        const auto rows = static_cast<int>(chooser.Rows().size());
        return static_cast<std::size_t>(decisions.Number(0, rows - 1));
    };
    switch (decisions.Number(0, 4)) {
    case 0:
        chooser.Drive1_Change(
            static_cast<std::size_t>(decisions.Number(0, static_cast<int>(chooser.Drives().size()) - 1)));
        break;
    case 1:
        chooser.dirHomeDir_Change(row());
        break;
    case 2:
        chooser.OpenRow(row());
        break;
    case 3:
        chooser.OpenParent();
        break;
    default:
        chooser.cmdNewFolder_Click();
    }
}

void RequireSound(const HomeDirectoryChooser& chooser, const FolderFunctions& folders) {
    Require(chooser.SelectedRow() < chooser.Rows().size(), "the selected folder is listed");
    Require(folders.FolderExists(chooser.Selected()), "the selected folder exists");
    const std::optional<std::size_t> drive = chooser.SelectedDrive();
    Require(!drive || *drive < chooser.Drives().size(), "the selected drive is listed");
}

} // namespace

void RunHomeDirectory(EditorWorld& world, Decisions& decisions) {
    const EditorSurroundings& surroundings = world->Surroundings();
    const FolderFunctions& folders = surroundings.Folders;
    const ShowInputBox typeName = [&](const InputBox& box) -> std::optional<std::string> {
        Require(!box.Prompt.empty(), "a question says something");
        if (decisions.Number(0, 3) == 0) {
            return {};
        }
        return decisions.Text(LongestName);
    };
    const std::string folderBefore = folders.CurrentFolder();
    const std::string homeBefore = world->HomeDirectory();
    HomeDirectoryChooser chooser({folders, surroundings.ShowMessageBox, typeName},
                                 [&](const std::string& folder) { world->ChooseHomeDirectory(folder); });
    chooser.Load(homeBefore);
    RequireSound(chooser, folders);
    for (int steps = decisions.Number(0, GreatestSteps); steps > 0; --steps) {
        TakeStep(chooser, decisions);
        RequireSound(chooser, folders);
    }
    if (decisions.Number(0, 2) > 0 && chooser.cmdDone_Click()) {
        Require(world->HomeDirectory() == chooser.Selected(),
                "the selected folder becomes the home directory");
        Require(folders.CurrentFolder() == chooser.Selected(), "the home directory is current");
        return;
    }
    chooser.cmdCancel_Click();
    Require(world->HomeDirectory() == homeBefore, "cancelled, the home directory stays");
    Require(folders.CurrentFolder() == folderBefore, "cancelled, the current folder is the one before");
}

} // namespace brindle
