#include "editor/careful_save.h"
#include "editor/editor.h"
#include "editor/file_texts.h"
#include "editor/hourglass.h"
#include "files/file_model.h"
#include "files/vdr810_writer.h"
#include "platform/paths.h"

/// New, Open, Save and Save As of the main window.
namespace brindle {

namespace {

int FilterIndexOf(RelayKind model) {
    return model == RelayKind::Vdr812 ? 1 : 2;
}

MessageBox ShortFileNotice(const std::string& path, std::uint64_t bytesRead) {
    return {"The file " + path + " holds only " + std::to_string(bytesRead) + " of the " +
                std::to_string(ProgramFileSize) +
                " bytes of a program.  The missing bytes were read as zero.",
            MessageIcon::Exclamation, MessageButtons::Ok};
}

/// A file named after the other relay would later be read as what it is not.
MessageBox OtherModelNotice(RelayKind model) {
    return {model == RelayKind::Vdr812 ? "The name of a VDR812 program can not end in .c10."
                                       : "The name of a VDR810 logic file can not end in .pl.",
            MessageIcon::Exclamation, MessageButtons::Ok};
}

} // namespace

bool Editor::MayDiscard(DiscardingCommand command) {
    notSaved_.reset();
    if (!config_.Modified) {
        return true;
    }
    const MessageAnswer answer = surroundings_.ShowMessageBox(SavePrompt(command));
    if (answer == MessageAnswer::Yes) {
        mnuSaveBin_Click();
        if (config_.Modified) { // the command goes on all the same
            notSaved_ = WorkNow();
        }
    }
    return answer == MessageAnswer::Yes || answer == MessageAnswer::No;
}

void Editor::NameNewFile() {
    config_.FileTitle = config_.RelayModel == RelayKind::Vdr812 ? "New_File.pl" : "New_File.c10";
    config_.FilePath = JoinPath(homeDirectory_, config_.FileTitle);
    neverSaved_ = true;
    window_.ShowTitle();
    RefreshIdentity();
}

void Editor::NewVdr812(float version) {
    mnuLogicCategoriesCloseAll_Click();
    if (!MayDiscard(DiscardingCommand::New)) {
        return;
    }
    MakeNewVdr812(config_, version);
    ShowNewLogic();
    NameNewFile();
}

ChosenFile Editor::FileOfPath(const std::string& path) {
    return {path, Get_File_Name_Parts(path).Title(), ModelOfPath(path).value_or(RelayKind::Vdr812)};
}

std::optional<ChosenFile> Editor::ChooseFileToOpen() {
    FileDialogRequest request;
    request.Kind = FileDialogKind::Open;
    request.Title = "Open Binary File";
    request.Filter = "Vdr812 PLC Files (*.pl)|*.pl";
    request.FilterIndex = FilterIndexOf(config_.RelayModel);
    request.DefaultExtension = "pl";
    request.InitialFileName = JoinPath(homeDirectory_, "*.pl");
    const std::optional<FileDialogAnswer> answer = surroundings_.RunFileDialog(request);
    if (!answer) {
        return {};
    }
    // A name with an extension of ours tells more than the entry of the filter: a text decoded as a program
    // would be a logic that nobody drew.
    const RelayKind model = ModelOfPath(answer->FileName)
                                .value_or(answer->FilterIndex == 1 ? RelayKind::Vdr812 : RelayKind::Vdr810);
    EnterRecent({answer->FileName, answer->FileTitle, model});
    return ChosenFile{answer->FileName, answer->FileTitle, model};
}

void Editor::mnuOpenBin_Click() {
    mnuLogicCategoriesCloseAll_Click();
    if (!MayDiscard(DiscardingCommand::Open)) {
        return;
    }
    if (const std::optional<ChosenFile> file = ChooseFileToOpen()) {
        Open(*file);
    }
}

void Editor::OpenNamed(const ChosenFile& file) {
    mnuLogicCategoriesCloseAll_Click();
    if (MayDiscard(DiscardingCommand::Open)) {
        Open(file);
    }
}

void Editor::Open(const ChosenFile& file) {
    if (file.Model == RelayKind::Vdr810) {
        OpenVdr810(file);
    } else {
        OpenVdr812(file);
    }
}

void Editor::OpenVdr812(const ChosenFile& file) {
    LogicConfig opened = config_;
    ProgramReading reading;
    {
        const Hourglass hourglass(window_);
        const auto read = [&] { return ReadProgramFile(surroundings_.Files, file.Path, opened, reading); };
        if (RunFileCommand({read}, OpenFailedText, surroundings_.ShowMessageBox) != FileOutcome::Done) {
            return;
        }
        config_ = opened;
        config_.FilePath = file.Path;
        config_.FileTitle = file.Title;
        ShowNewLogic();
        window_.ShowTitle();
        RefreshIdentity();
        EnterRecent({config_.FilePath, config_.FileTitle, config_.RelayModel});
    }
    if (reading.Size < ProgramFileSize) {
        surroundings_.ShowMessageBox(ShortFileNotice(file.Path, reading.Size));
    }
}

void Editor::EnterRecent(const RecentFile& file) {
    recentFiles_.Enter(file);
    window_.ShowRecentFiles();
}

void Editor::mnuFileRecentFiles_Click(int index) {
    const RecentFile file = Recent().at(static_cast<std::size_t>(index));
    if (file.Used()) {
        OpenNamed({file.Path, file.Name, file.Model});
    }
}

void Editor::WriteLogic() {
    if (!MayLeaveListsOut()) {
        return;
    }
    const Hourglass hourglass(window_);
    window_.ShowTitle();
    RefreshIdentity();
    const ReplaceRules rules =
        RulesOfSave(config_.FilePath, surroundings_.ProgramFolder, surroundings_.ShowMessageBox);
    const auto write = [&] {
        return config_.RelayModel == RelayKind::Vdr812
                   ? WriteProgramFile(surroundings_.Files, config_.FilePath, config_, rules)
                   : WriteVdr810File(surroundings_.Files, config_.FilePath, config_, rules);
    };
    if (RunFileCommand({write}, SaveFailedText, surroundings_.ShowMessageBox) == FileOutcome::Done) {
        config_.Modified = false;
        neverSaved_ = false;
        recovery_.Rest(RecoveryLogic(config_));
        EnterRecent({config_.FilePath, config_.FileTitle, config_.RelayModel});
    }
}

void Editor::mnuFileSave_Click() {
    WriteLogic();
}

void Editor::mnuSaveBin_Click(bool beforePrinting) {
    mnuLogicCategoriesCloseAll_Click();
    FileDialogRequest request;
    request.Kind = FileDialogKind::SaveAs;
    request.Title = beforePrinting ? "Save Binary File Prior to Printing" : "Save Binary File";
    request.Filter =
        config_.RelayModel == RelayKind::Vdr812 ? "Binary File (*.pl)|*.pl" : "Vdr810 PLC File (*.c10)|*.c10";
    request.FilterIndex = FilterIndexOf(config_.RelayModel);
    request.DefaultExtension = "pl";
    request.InitialFileName = config_.FileTitle;
    while (const std::optional<FileDialogAnswer> answer = surroundings_.RunFileDialog(request)) {
        if (ModelOfPath(answer->FileName).value_or(config_.RelayModel) != config_.RelayModel) {
            surroundings_.ShowMessageBox(OtherModelNotice(config_.RelayModel));
            continue;
        }
        config_.FilePath = answer->FileName;
        config_.FileTitle = answer->FileTitle;
        WriteLogic();
        return;
    }
}

} // namespace brindle
