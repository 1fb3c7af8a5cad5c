#include "editor/editor.h"
#include "editor/gate_rows.h"
#include "editor/group_editing.h"
#include "editor/hourglass.h"
#include "model/output_map.h"

#include <algorithm>

/// What the user does to the logic: signals, times, outputs, groups.
namespace brindle {

void Editor::txtPlo_Click(int input) {
    if (!IsInputShown(config_.Version, input)) {
        return;
    }
    for (const int category : choosers_.FromBackToFront()) {
        window_.RaiseChooser(category);
    }
}

void Editor::txtPlo_DblClick(int input) {
    if (!IsInputShown(config_.Version, input)) {
        return;
    }
    txtPlo_GotFocus(input);
    FollowCheckMark(FlipInput(config_, CurrentInput()));
    window_.ShowUnit(UnitRedraw::Refreshed);
}

void Editor::mnuLogicCategoriesCategory_Click(int category) {
    if (choosers_.IsOpen(category)) {
        CloseChooser(category);
        return;
    }
    choosers_.SetOpen(category, true);
    window_.ShowOpenChoosers();
    window_.ShowChooser(category);
}

void Editor::CloseChooser(int category) {
    choosers_.SetOpen(category, false);
    window_.ShowOpenChoosers();
    window_.HideChooser(category);
}

void Editor::mnuLogicCategoriesLocateAll_Click() {
    for (const int category : choosers_.FromBackToFront()) {
        window_.MoveChooserHome(category);
        window_.RaiseChooser(category);
    }
}

void Editor::mnuLogicCategoriesCloseAll_Click() {
    for (int category = 0; category < choosers_.Count(); ++category) {
        if (choosers_.IsOpen(category)) {
            CloseChooser(category);
        }
    }
}

void Editor::cmdSelectCategory_Click(int category, int button) {
    const ChooserView chooser = BuildChooserView(catalogue_, category);
    const int position = chooser.Buttons.at(static_cast<std::size_t>(button)).Tag;
    choosers_.Use(category);
    const UnitInput code = catalogue_.Signals.at(static_cast<std::size_t>(position)).Code;
    FollowCheckMark(ConnectSignal(config_, CurrentInput(), code));
    lastChosenButton_ = position;
    window_.FocusInput(shown_.Input);
    txtPlo_GotFocus(shown_.Input); // the keyboard's return selects the input anew, and shows its new signal
}

TimerEcho Editor::ChangeTimer(TimerField field, const std::string& text) {
    if (!IsTimer(shown_.Unit)) {
        return {}; // a box that is being hidden gets the rest of a composed character: it is nobody's time
    }
    if (field == TimerField::PickUp) {
        config_.Modified = true; // of the drop-out time alone the exit prompt does not ask
    }
    if (text.empty()) {
        return {};
    }
    const std::optional<std::int32_t> entered = DelayOfText(text);
    if (!entered) {
        surroundings_.ShowMessageBox(DelayRangeNotice());
    }
    const std::int32_t delay = entered.value_or(0);
    UnitTimer& timer = config_.Group(shown_.Group).Timer(shown_.Unit);
    (field == TimerField::PickUp ? timer.PickUp : timer.DropOut) = delay;
    return {std::to_string(delay), TimeReadOut(delay)};
}

bool Editor::txtTimer_KeyPress(char32_t character) {
    const KeyVerdict verdict = JudgeTimerKey(character);
    if (verdict == KeyVerdict::Refused) {
        surroundings_.ShowMessageBox(TimerKeyNotice());
    }
    return verdict == KeyVerdict::Accepted;
}

void Editor::cbxOutputMap_Click(int output, bool ticked) {
    config_.Modified = true;
    MapOutput(config_, shown_.Group, shown_.Unit, output, ticked);
}

void Editor::RedisplayIfShown(const std::vector<int>& groups) {
    if (std::ranges::find(groups, shown_.Group) != groups.end()) {
        mnuTimerLatch_Click(shown_.Unit);
    }
}

void Editor::cmdClearGroup_Click(int choice) {
    if (surroundings_.ShowMessageBox(ClearGroupQuestion(choice)) == MessageAnswer::Ok) {
        const Hourglass hourglass(window_);
        RedisplayIfShown(ClearGroups(config_, choice));
    }
}

void Editor::cmdCopyGroup_Click(int from, int to) {
    if (surroundings_.ShowMessageBox(CopyGroupQuestion(from, to)) != MessageAnswer::Ok) {
        return;
    }
    if (!CanCopy(from, to)) {
        surroundings_.ShowMessageBox(SameGroupNotice());
        return;
    }
    const Hourglass hourglass(window_);
    RedisplayIfShown(CopyGroups(config_, from, to));
}

void Editor::mnuClearDisplayedUnit_Click() {
    if (surroundings_.ShowMessageBox(ClearUnitQuestion()) == MessageAnswer::Ok) {
        config_.Modified = true;
        ClearUnit(config_.Group(shown_.Group), shown_.Unit, UnconnectedCode(config_));
        mnuTimerLatch_Click(shown_.Unit);
    }
}

} // namespace brindle
