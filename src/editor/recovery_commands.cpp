#include "editor/editor.h"
#include "files/foreign_file.h"
#include "files/option_file.h"

/// Unsaved work that survives the end of the program.
namespace brindle {

namespace {

MessageBox RecoveryQuestion(const RecoveryCopy& copy) {
    const std::string work =
        copy.Origin != FileOrigin::Opened ? "A new file" : "Changes to the file " + copy.Path;
    return {work + " had not been saved when the program ended.  A copy of the work was kept on " +
                copy.KeptAt +
                ".\r\nSelect Yes to go on with it, No to throw it away, Cancel to be asked again at the next "
                "start.",
            MessageIcon::Exclamation, MessageButtons::YesNoCancel};
}

MessageBox DamagedNotice(const std::vector<std::string>& paths) {
    std::string text =
        "A copy of unsaved work could not be read: it is damaged, or of another version of the "
        "program.  It was put aside and will not be asked for again:";
    for (const std::string& path : paths) {
        text += "\r\n" + path;
    }
    return {text, MessageIcon::Exclamation, MessageButtons::Ok};
}

} // namespace

RecoveryCopy Editor::WorkNow() const {
    const DateAndTime now = surroundings_.Now();
    return {config_.FilePath,          config_.FileTitle,      file_.Origin,
            now.Date + " " + now.Time, RecoveryLogic(config_), file_.Stamp};
}

void Editor::OfferRecovery() {
    AskForLeftWork();
    if (!recovery_.Damaged().empty()) {
        surroundings_.ShowMessageBox(DamagedNotice(recovery_.Damaged()));
    }
}

void Editor::AskForLeftWork() {
    while (const std::optional<LeftCopy> left = recovery_.NextLeft()) {
        switch (surroundings_.ShowMessageBox(RecoveryQuestion(left->Copy))) {
        case MessageAnswer::Yes:
            ShowRecovered(*left);
            return;
        case MessageAnswer::No:
            recovery_.Discard();
            break;
        default:
            recovery_.PassOver();
        }
    }
}

std::string Editor::ForeignNoticeAt(const std::string& path) const {
    std::string bytes;
    FileStamp stamp;
    if (ReadStampedFile(surroundings_.Files, path, bytes, stamp).Failed()) {
        return {};
    }
    return ForeignNotice(KindOfProgram(bytes, stamp.Status.Size), stamp.Status.Size);
}

void Editor::ShowRecovered(const LeftCopy& left) {
    config_ = left.Logic;
    LogicFile file{left.Copy.Origin};
    file.Stamp = left.Copy.Stamp;
    if (file.Origin == FileOrigin::Opened && config_.RelayModel == RelayKind::Vdr812) {
        file.Foreign = ForeignNoticeAt(config_.FilePath);
    }
    ShowNewLogic(file);
    LookForChange();
    config_.Modified = true;
    listsHereAlone_ = !config_.Lists.Empty() &&
                      plcFolder_.Find(config_.Vdr810.SettingsVersion, config_.Vdr810.Options) == nullptr;
    window_.ShowTitle();
    RefreshIdentity();
    recovery_.Adopt();
}

} // namespace brindle
