#include "editor/careful_save.h"
#include "editor/editor.h"
#include "files/in_place.h"
#include "platform/paths.h"
#include "settings/program_version.h"
#include "settings/setting_keys.h"

/// How the main window starts and ends.
namespace brindle {

void Editor::Form_Initialize() {
    CheckProgramVersion(settings_, surroundings_.ProgramMajor, surroundings_.ProgramMinor,
                        surroundings_.ProgramRevision);
    recentFiles_.Load();
}

void Editor::FindHomeDirectory() {
    const FolderFunctions& folders = surroundings_.Folders;
    folders.ChangeFolder(surroundings_.ProgramFolder);
    homeDirectory_ = AbsolutePath(surroundings_.ProgramFolder,
                                  settings_.Read(SectionBrindle, KeyHomeDir, surroundings_.ProgramFolder));
    if (homeDirectory_.empty() || !folders.FolderExists(homeDirectory_)) {
        homeDirectory_ = surroundings_.ProgramFolder;
    }
    folders.ChangeDrive(homeDirectory_);
    folders.ChangeFolder(homeDirectory_);
}

void Editor::Form_Load() {
    MakeNewVdr812(config_, Version230);
    recovery_.Rest(RecoveryLogic(config_));
    ScanPlcFolder();
    window_.ShowRecentFiles();
    window_.ShowOutputMap();
    RebuildCatalogue();
    FindHomeDirectory();
    RestorePlacement(settings_, SectionBrindle, window_.Placement, MainWindowKeys);
    NameNewFile();
    ShowFirstUnit();
    config_.Modified = false;
    OfferRecovery();
    const std::vector<std::string> copies = CopiesLeft(surroundings_.Files, surroundings_.ProgramFolder);
    if (!copies.empty()) {
        surroundings_.ShowMessageBox(CopiesLeftNotice(copies));
    }

    if (!surroundings_.CommandLine.empty()) {
        const FileNameParts parts = Get_File_Name_Parts(surroundings_.CommandLine);
        surroundings_.Folders.ChangeDrive(parts.Folder);
        surroundings_.Folders.ChangeFolder(parts.Folder);
        OpenPath(surroundings_.CommandLine);
    }
}

void Editor::Form_Unload() {
    SavePlacement(settings_, SectionBrindle, window_.Placement, MainWindowKeys);
}

void Editor::Form_Terminate() {
    if (MayDiscard(DiscardingCommand::WindowEnd) && notSaved_) {
        recovery_.SetAside(*notSaved_);
    }
    recovery_.Close();
}

void Editor::mnuExit_Click() {
    if (MayDiscard(DiscardingCommand::Exit)) {
        if (notSaved_) {
            recovery_.SetAside(*notSaved_);
        }
        recovery_.Rest(RecoveryLogic(config_)); // settled: closing the window asks and keeps nothing more
        config_.Modified = false;
        window_.Unload();
    }
}

} // namespace brindle
