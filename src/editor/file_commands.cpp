#include "editor/careful_save.h"
#include "editor/editor.h"
#include "editor/file_texts.h"
#include "editor/hourglass.h"
#include "files/file_model.h"
#include "files/foreign_file.h"
#include "files/logic_bytes.h"
#include "files/program_file.h"
#include "files/whole_file.h"
#include "platform/memory_guard.h"
#include "platform/paths.h"

#include <utility>

/// New, Open, Save and Save As of the main window.
namespace brindle {

namespace {

int FilterIndexOf(RelayKind model) {
    return model == RelayKind::Vdr812 ? 1 : 2;
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
        // A drop-out time alone does not count as a change.
        if (RecoveryCopy work = WorkNow(); recovery_.NeedsCopy(work)) {
            notSaved_ = std::move(work);
        }
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
    window_.ShowTitle();
    RefreshIdentity();
}

void Editor::NewVdr812(float version) {
    mnuLogicCategoriesCloseAll_Click();
    if (!MayDiscard(DiscardingCommand::New)) {
        return;
    }
    MakeNewVdr812(config_, version);
    ShowNewLogic({});
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
    LogicFile known{FileOrigin::Opened};
    const Hourglass hourglass(window_);
    const auto read = [&] {
        return TellLackOfMemory([&] {
            std::string bytes;
            FileError error = ReadStampedFile(surroundings_.Files, file.Path, bytes, known.Stamp);
            if (!error.Failed()) {
                const std::uint64_t size = known.Stamp.Status.Size;
                known.Foreign = ForeignNotice(KindOfProgram(bytes, size), size);
                DecodeProgram(bytes, opened);
            }
            return error;
        });
    };
    if (RunFileCommand({read}, OpenFailedText, surroundings_.ShowMessageBox) != FileOutcome::Done) {
        return;
    }
    config_ = opened;
    config_.FilePath = file.Path;
    config_.FileTitle = file.Title;
    ShowNewLogic(known);
    window_.ShowTitle();
    RefreshIdentity();
    EnterRecent({config_.FilePath, config_.FileTitle, config_.RelayModel});
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
    std::string bytes;
    const auto write = [&] {
        const FileError error = EncodeLogic(config_, bytes);
        return error.Failed() ? error : ReplaceWholeFile(surroundings_.Files, config_.FilePath, bytes, rules);
    };
    if (RunFileCommand({write}, SaveFailedText, surroundings_.ShowMessageBox) != FileOutcome::Done) {
        if (!bytes.empty()) { // else nothing was tried: no file can hold the logic
            file_.Stamp.Attempted = HashOfBytes(bytes);
        }
        return;
    }
    config_.Modified = false;
    file_.Origin = FileOrigin::Opened;
    file_.Stamp = StampOfWritten(surroundings_.Files, config_.FilePath, bytes);
    file_.Change = FileChange::None;
    file_.Foreign.clear();
    window_.ShowStatus();
    recovery_.Rest(RecoveryLogic(config_));
    EnterRecent({config_.FilePath, config_.FileTitle, config_.RelayModel});
}

void Editor::mnuFileSave_Click() {
    if (file_.Origin == FileOrigin::Part) {
        mnuSaveBin_Click();
        return;
    }
    const std::optional<MessageBox> question = ReplaceQuestion(
        file_, config_.FilePath, ChangeSince(surroundings_.Files, config_.FilePath, file_.Stamp));
    switch (question ? surroundings_.ShowMessageBox(*question) : MessageAnswer::Overwrite) {
    case MessageAnswer::Overwrite:
        WriteLogic();
        break;
    case MessageAnswer::SaveAs:
        mnuSaveBin_Click();
        break;
    default:
        break;
    }
}

void Editor::LookForChange() {
    if (file_.NeverSaved()) {
        return;
    }
    const FileChange change = ChangeAtAGlance(surroundings_.Files, config_.FilePath, file_.Stamp);
    if (change != file_.Change) {
        file_.Change = change;
        window_.ShowStatus();
    }
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
        file_.Stamp = StampNow(surroundings_.Files, config_.FilePath); // agreed to be replaced, as it is now
        file_.Change = FileChange::None;
        file_.Foreign.clear();
        window_.ShowStatus();
        WriteLogic();
        return;
    }
}

} // namespace brindle
