#include "editor/editor.h"

#include "editor/gate_rows.h"
#include "model/number_text.h"

#include <utility>

namespace brindle {

Editor::Editor(EditorSurroundings surroundings)
    : surroundings_(std::move(surroundings)),
      settings_(surroundings_.ProgramFolder, surroundings_.Profile, surroundings_.Files,
                surroundings_.ShowMessageBox, surroundings_.Locks),
      recentFiles_(surroundings_.ProgramFolder, settings_, surroundings_.Files),
      recovery_(surroundings_.ProgramFolder, surroundings_.Files, surroundings_.Locks) {}

std::string Editor::Title() const {
    const std::string model = config_.RelayModel == RelayKind::Vdr812 ? "VDR812" : "VDR810";
    return model + " Programmable Logic          (File: " + config_.FilePath +
           ") Version: " + FormatFixed(config_.Version, 2);
}

void Editor::RebuildCatalogue() {
    catalogue_ = BuildCatalogue(config_);
    choosers_.Reset(static_cast<int>(catalogue_.Categories.size()));
    window_.ShowCategories();
}

void Editor::mnuGroup_Click(int group) {
    shown_.Group = group;
    mnuTimerLatch_Click(shown_.Unit);
}

void Editor::mnuTimerLatch_Click(int unit) {
    shown_.Unit = unit;
    shown_.Input = FirstInput(config_.Version);
    shown_.InputSelected = InputSelection::WithUnit;
    FollowCheckMark(InputSet().set());
    window_.ShowUnit(UnitRedraw::Selected);
}

void Editor::ShowFirstUnit() {
    shown_.Unit = 1;
    while (shown_.Unit < UnitsPerGroup && !HasUnit(config_, shown_.Unit)) {
        ++shown_.Unit;
    }
    mnuGroup_Click(1);
}

void Editor::ShowNewLogic(LogicFile file) {
    if (notSaved_) {
        recovery_.SetAside(*notSaved_);
        notSaved_.reset();
    }
    recovery_.Rest(RecoveryLogic(config_));
    listsHereAlone_ = false;
    file_ = std::move(file);
    window_.ShowStatus();
    RebuildCatalogue();
    window_.ShowOutputMap();
    ShowFirstUnit();
    config_.Modified = false;
}

void Editor::Form_Activate() {
    LookForChange();
    FollowCheckMark(InputSet().set());
    window_.ShowUnit(UnitRedraw::Refreshed);
}

void Editor::FollowCheckMark(const InputSet& inputs) {
    shown_.NumbersShown = numbersChecked_ ? shown_.NumbersShown | inputs : shown_.NumbersShown & ~inputs;
}

void Editor::txtPlo_GotFocus(int input) {
    if (!IsInputShown(config_.Version, input)) {
        return;
    }
    shown_.Input = input;
    shown_.InputSelected = InputSelection::ByItself;
    window_.ShowUnit(UnitRedraw::Refreshed);
}

void Editor::pctSetReset_Click() {
    switch (Unit(shown_.Unit).Kind) {
    case UnitKind::LatchReset:
        mnuTimerLatch_Click(shown_.Unit + 1);
        break;
    case UnitKind::LatchSet:
        mnuTimerLatch_Click(shown_.Unit - 1);
        break;
    case UnitKind::Timer:
        break;
    }
}

void Editor::mnuShowNumbers_Click() {
    numbersChecked_ = !numbersChecked_;
}

} // namespace brindle
