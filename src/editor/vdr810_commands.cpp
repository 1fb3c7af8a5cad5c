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

namespace {

MessageBox ListsLostQuestion(const LogicConfig& config) {
    return {"The names of signals that this file brought along are in no option file: " +
                OptionFileName(config.Vdr810.SettingsVersion, config.Vdr810.Options) +
                " could not be made or read, or its name is none that is looked for.  A logic file is saved "
                "without them.\r\nSelect OK to save without the names.  To abort press cancel.",
            MessageIcon::Exclamation, MessageButtons::OkCancel};
}

} // namespace

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
    const PlcFolderEntry entry = plcFolder_.Entries.at(static_cast<std::size_t>(
        plcFolder_.EntryOfPair(options.Choice().VersionIndex, options.Choice().Options)));
    OptionFile option;
    if (!ReadOption(entry, option)) {
        return;
    }
    vdr810Choice_ = options.Choice();
    LogicFile file;
    file.Misfits = OptionFileMisfits(entry, option, option.Head.Signals);
    // The pair that was chosen holds: by it the logic finds its option file again.
    option.Head.SettingsVersion = entry.Version;
    option.Head.Version = static_cast<float>(entry.Version);
    option.Head.Options = entry.Options;
    MakeNewVdr810(config_, option);
    ShowNewLogic(file);
    NameNewFile();
}

void Editor::TellMalformed(const FileError& malformed) {
    // What is wrong inside the file is no matter of the disk: the box names the file and the place.
    surroundings_.ShowMessageBox(FailureBox(OpenFailedText, malformed));
}

bool Editor::ReadOption(const PlcFolderEntry& entry, OptionFile& option) {
    const Hourglass hourglass(window_);
    const std::string path = JoinPath(plcFolder_.Path, entry.Name);
    std::string text;
    const auto read = [&] { return ReadWholeText(surroundings_.Files, path, text); };
    if (RunFileCommand({read}, OpenFailedText, surroundings_.ShowMessageBox) != FileOutcome::Done) {
        return false;
    }
    const FileError malformed = DecodeOptionFile(text, "read " + path, option);
    if (malformed.Failed()) {
        TellMalformed(malformed);
    }
    return !malformed.Failed();
}

bool Editor::TakeOptionFile(LogicConfig& config, std::vector<std::string>& misfits) {
    ScanPlcFolder();
    const PlcFolderEntry* entry = plcFolder_.Find(config.Vdr810.SettingsVersion, config.Vdr810.Options);
    OptionFile option;
    if (entry == nullptr || !ReadOption(*entry, option)) {
        return false;
    }
    TakeLists(config, option);
    misfits = OptionFileMisfits(*entry, option, config.Coding.InvertBase);
    return true;
}

bool Editor::MakeOptionFile(const LogicConfig& config) {
    const auto find = [&] { return plcFolder_.Find(config.Vdr810.SettingsVersion, config.Vdr810.Options); };
    if (find() != nullptr) {
        return false; // one that is there is never changed
    }
    const auto write = [&] { return WriteOptionFile(surroundings_.Files, plcFolder_.Path, config); };
    const bool made =
        RunFileCommand({write}, SaveFailedText, surroundings_.ShowMessageBox) == FileOutcome::Done;
    ScanPlcFolder();
    // Looked up as the next opening will: not every version and options number give a name that is found.
    return made && find() != nullptr;
}

bool Editor::MayLeaveListsOut() {
    if (!listsHereAlone_ || MakeOptionFile(config_)) {
        listsHereAlone_ = false;
        return true;
    }
    return surroundings_.ShowMessageBox(ListsLostQuestion(config_)) == MessageAnswer::Ok;
}

void Editor::OpenVdr810(const ChosenFile& file) {
    LogicConfig opened = config_;
    Vdr810Reading reading;
    LogicFile known{FileOrigin::Opened};
    bool listsHereAlone = false;
    {
        const Hourglass hourglass(window_);
        const auto read = [&] {
            std::string text;
            FileError error = ReadStampedText(surroundings_.Files, file.Path, text, known.Stamp);
            if (!error.Failed()) {
                reading = DecodeVdr810(text, "read " + file.Path, opened);
                error = reading.Error;
            }
            return error;
        };
        if (RunFileCommand({read}, OpenFailedText, surroundings_.ShowMessageBox) != FileOutcome::Done) {
            return;
        }
        const bool named = TakeOptionFile(opened, known.Misfits);
        const bool ownLists = !named && !opened.Lists.Empty();
        listsHereAlone = ownLists && (reading.Refusal || !MakeOptionFile(opened));
        ClearUnreadInputs(opened, reading);
    }
    if (reading.Refusal) {
        known.Origin = FileOrigin::Part;
    }
    ShowOpenedVdr810(file, opened, reading, known);
    listsHereAlone_ = listsHereAlone;
}

void Editor::ShowOpenedVdr810(const ChosenFile& file, const LogicConfig& opened, const Vdr810Reading& reading,
                              const LogicFile& known) {
    config_ = opened;
    config_.FilePath = file.Path;
    config_.FileTitle = file.Title;
    vdr810Choice_.Version = config_.Vdr810.SettingsVersion;
    vdr810Choice_.Options = config_.Vdr810.Options;
    ShowNewLogic(known);
    if (reading.Refusal) {
        // Under its own name one press of Save would replace a file by what could be read of it.
        NameNewFile();
        config_.Modified = true;
        surroundings_.ShowMessageBox(*reading.Refusal);
        return;
    }
    window_.ShowTitle();
    RefreshIdentity();
    EnterRecent({config_.FilePath, config_.FileTitle, config_.RelayModel});
    const std::vector<int> incomplete = IncompleteUnits(config_, reading);
    if (!incomplete.empty()) {
        surroundings_.ShowMessageBox(IncompleteNotice(file.Path, incomplete));
    }
}

void Editor::RefreshIdentity() {
    std::string missing;
    if (config_.RelayModel == RelayKind::Vdr810 &&
        plcFolder_.Find(config_.Vdr810.SettingsVersion, config_.Vdr810.Options) == nullptr) {
        missing = OptionFileName(config_.Vdr810.SettingsVersion, config_.Vdr810.Options);
    }
    const DateAndTime now = surroundings_.Now();
    identity_ = IdentityCaption(config_, now.Date, now.Time, missing);
    window_.ShowIdentity();
}

} // namespace brindle
