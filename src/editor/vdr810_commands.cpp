#include "editor/editor.h"
#include "editor/file_texts.h"
#include "editor/hourglass.h"
#include "editor/identity_caption.h"
#include "files/option_file.h"
#include "files/vdr810_reader.h"
#include "files/whole_file.h"
#include "platform/paths.h"

/// New and Open of VDR810 logic, and the option files beside the program that both draw on.
namespace brindle {

void Editor::ScanPlcFolder() {
    plcFolder_ = brindle::ScanPlcFolder(surroundings_.Folders, surroundings_.ProgramFolder);
}

void Editor::mnuFileNewVdr810_Click() {
    mnuLogicCategoriesCloseAll_Click();
    if (!MayDiscard(DiscardingCommand::New)) {
        return;
    }
    ScanPlcFolder(); // option files may have been put there since the start
    Vdr810Options options({[this](int code) { return plcFolder_.VersionOfCode(code); },
                           [this](int code, int number) { return plcFolder_.EntryOfPair(code, number); }},
                          vdr810Choice_);
    if (!window_.ChooseVdr810Options(options) || !options.PairChosen()) {
        return;
    }
    const int entry = plcFolder_.EntryOfPair(options.Choice().VersionIndex, options.Choice().Options);
    const std::string path =
        JoinPath(plcFolder_.Path, plcFolder_.Entries.at(static_cast<std::size_t>(entry)).Name);
    OptionFile option;
    if (!ReadOption(path, option)) {
        return;
    }
    vdr810Choice_ = options.Choice();
    MakeNewVdr810(config_, option);
    ShowNewLogic();
    NameNewFile();
}

bool Editor::ReadOption(const std::string& path, OptionFile& option) {
    const Hourglass hourglass(window_);
    std::string text;
    const auto read = [&] { return ReadWholeText(surroundings_.Files, path, text); };
    if (RunFileCommand({read}, OpenFailedText, surroundings_.ShowMessageBox) != FileOutcome::Done) {
        return false;
    }
    // What is wrong inside the file is no matter of the disk: the box names the file and the place.
    const FileError malformed = DecodeOptionFile(text, "read " + path, option);
    if (malformed.Failed()) {
        surroundings_.ShowMessageBox(FailureBox(OpenFailedText, malformed));
    }
    return !malformed.Failed();
}

void Editor::LoadOptionFile(LogicConfig& config) {
    ScanPlcFolder();
    if (const PlcFolderEntry* entry = plcFolder_.Find(config.Vdr810.SettingsVersion, config.Vdr810.Options)) {
        OptionFile option;
        if (ReadOption(JoinPath(plcFolder_.Path, entry->Name), option)) {
            TakeLists(config, option);
        }
        return;
    }
    if (config.Lists.Empty()) {
        return;
    }
    const auto write = [&] { return WriteOptionFile(surroundings_.Files, plcFolder_.Path, config); };
    if (RunFileCommand({write}, SaveFailedText, surroundings_.ShowMessageBox) == FileOutcome::Done) {
        ScanPlcFolder();
    }
}

void Editor::OpenVdr810(const ChosenFile& file) {
    LogicConfig opened = config_;
    opened.Coding.FalseCode = 0; // what another logic called "FALSE" says nothing of this one
    Vdr810Reading reading;
    std::vector<int> incomplete;
    {
        const Hourglass hourglass(window_);
        const auto read = [&] {
            reading = ReadVdr810File(surroundings_.Files, file.Path, opened);
            return reading.Error;
        };
        if (RunFileCommand({read}, OpenFailedText, surroundings_.ShowMessageBox) != FileOutcome::Done) {
            return;
        }
        if (reading.Done()) {
            LoadOptionFile(opened);
            incomplete = IncompleteUnits(opened, reading);
        }
        ClearUnreadInputs(opened, reading);
        config_ = opened;
        config_.FilePath = file.Path;
        config_.FileTitle = file.Title;
        if (reading.Refusal) {
            KeepRefusedLogic();
        } else {
            ShowNewLogic();
            window_.ShowTitle();
            EnterRecent({config_.FilePath, config_.FileTitle, config_.RelayModel});
        }
        RefreshIdentity();
    }
    if (reading.Refusal) {
        surroundings_.ShowMessageBox(*reading.Refusal);
    } else if (!incomplete.empty()) {
        surroundings_.ShowMessageBox(IncompleteNotice(file.Path, incomplete));
    }
}

void Editor::KeepRefusedLogic() {
    ShowNewLogic();
    // Under its own name one press of Save would replace a file by what could be read of it.
    NameNewFile();
    config_.Modified = true;
}

void Editor::RefreshIdentity() {
    std::string missing;
    if (config_.RelayModel == RelayKind::Vdr810 &&
        plcFolder_.Find(config_.Vdr810.SettingsVersion, config_.Vdr810.Options) == nullptr) {
        missing = OptionFileName(config_.Vdr810.SettingsVersion, config_.Vdr810.Options);
    }
    identity_ = IdentityCaption(config_, surroundings_.Date(), surroundings_.Time(), missing);
    window_.ShowIdentity();
}

} // namespace brindle
