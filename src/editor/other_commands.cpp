#include "editor/editor.h"
#include "editor/gate_rows.h"
#include "files/signal_constants.h"
#include "platform/paths.h"
#include "settings/home_directory.h"
#include "settings/setting_keys.h"

/// Commands around the editing: home directory, printing, the web, constants for developers.
namespace brindle {

void Editor::ChooseHomeDirectory(const std::string& folder) {
    // A file that was saved under no name yet will be where new files are.
    const bool named = !file_.NeverSaved() || config_.FilePath != JoinPath(homeDirectory_, config_.FileTitle);
    homeDirectory_ = folder;
    if (!named) {
        NameNewFile();
    }
    StoreHomeDirectory(settings_, folder);
}

void Editor::Command1_Click() {
    const auto write = [&] {
        return ExportSignalConstants(surroundings_.Files, surroundings_.Folders.CurrentFolder());
    };
    RunFileCommand({write}, "There was an error trying to save the File.", surroundings_.ShowMessageBox);
}

void Editor::mnuPrint_Click() {
    if (config_.Modified) {
        mnuSaveBin_Click(true);
    }
}

void Editor::BeginPrinting() {
    unitBeforePrinting_ = UnitPlace{shown_.Group, shown_.Unit};
    shown_.Printing = true;
}

void Editor::EndPrinting() {
    shown_.Printing = false;
    if (unitBeforePrinting_) {
        shown_.Group = unitBeforePrinting_->Group;
        mnuTimerLatch_Click(unitBeforePrinting_->Unit);
        unitBeforePrinting_.reset();
    }
}

UnitReportRequest Editor::ReportStart() const {
    UnitReportRequest request;
    request.FileName = file_.NeverSaved() ? config_.FileTitle : config_.FilePath;
    const DateAndTime now = surroundings_.Now();
    request.Date = now.Date;
    request.Time = now.Time;
    request.NumbersShown = numbersChecked_;
    request.GateRowsShown = GateRowsShown(config_.Version);
    return request;
}

void Editor::OpenAddress(const std::string& address) {
    OpenWebAddress(address, {surroundings_.ProgramFolder, Web().FilePage, surroundings_.Files,
                             surroundings_.Browser, surroundings_.ShowMessageBox});
}

void Editor::RestorePlace(const PlacedForm& form, const PlacementKeys& keys) {
    RestorePlacement(settings_, SectionBrindle, form, keys);
}

void Editor::SavePlace(const PlacedForm& form, const PlacementKeys& keys) {
    SavePlacement(settings_, SectionBrindle, form, keys);
}

} // namespace brindle
