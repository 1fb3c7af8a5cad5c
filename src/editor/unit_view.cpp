#include "editor/unit_view.h"

#include "model/output_map.h"

namespace brindle {

namespace {

/// The latch's other side as the selected-input caption spells it: the reverse of the unit tags.
std::string_view OtherSideTag(int unit) {
    const bool odd = unit % 2 != 0;
    return Unit(odd ? unit + 1 : unit - 1).Tag;
}

std::string SelectedInputCaption(const ViewSelection& selection, float version) {
    const std::string start = "Connect Signal to:  G" + std::to_string(selection.Group) + " - ";
    if (selection.InputSelected == InputSelection::WithUnit) {
        return start + std::string(Unit(selection.Unit).Tag) + ":11";
    }
    const std::string_view tag =
        IsTimer(selection.Unit) ? Unit(selection.Unit).Tag : OtherSideTag(selection.Unit);
    return start + std::string(tag) + ":" + InputTag(version, selection.Input);
}

std::string UnitCaption(UnitKind kind) {
    switch (kind) {
    case UnitKind::LatchReset:
        return "Latch Reset:";
    case UnitKind::LatchSet:
        return "Latch Set:";
    case UnitKind::Timer:
        break;
    }
    return "Timer:";
}

StripLabelView StripLabel(bool selected, bool printing) {
    StripLabelView label;
    label.Checked = selected;
    if (selected) {
        label.BackColour = HighlightColour;
    } else if (printing) {
        label.BackColour = WhiteColour;
    }
    return label;
}

void BuildStrips(UnitView& view, const LogicConfig& config, const ViewSelection& selection) {
    const int groups = ShownGroups(config);
    for (int group = 1; group <= MaxGroups; ++group) {
        StripLabelView& label = view.Groups.at(static_cast<std::size_t>(group - 1));
        label = StripLabel(group == selection.Group, selection.Printing);
        label.Visible = group <= groups;
    }
    for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
        StripLabelView& label = view.Units.at(static_cast<std::size_t>(unit - 1));
        label = StripLabel(unit == selection.Unit, selection.Printing);
        label.Visible = HasUnit(config, unit); // what is drawn up in another would not reach the file
    }
}

void BuildInputs(UnitView& view, const LogicConfig& config, const SignalCatalogue& catalogue,
                 const ViewSelection& selection) {
    const std::string tag(Unit(selection.Unit).Tag);
    for (int input = 1; input <= InputsPerUnit; ++input) {
        const UnitInput code = config.InputCode(selection.Group, selection.Unit, input);
        InputView& box = view.Inputs.at(static_cast<std::size_t>(input - 1));
        box.Visible = IsInputShown(config.Version, input);
        box.InvertMark = box.Visible && IsInverted(config.Coding, code);
        box.Idle = code == NoConnectCode || code == config.Coding.FalseCode;
        box.Text = SignalText(catalogue, config.Coding, code,
                              selection.NumbersShown.test(static_cast<std::size_t>(input - 1)));
        box.LineCaption = tag + InputTag(config.Version, input);
        box.BackColour = input == selection.Input ? SelectedInputColour : WhiteColour;
    }
    const auto rowsShown = GateRowsShown(config.Version);
    for (int row = 1; row <= GatesPerUnit; ++row) {
        const auto index = static_cast<std::size_t>(row - 1);
        view.Gates.at(index) = {tag + "A" + std::to_string(GateOfRow(config.Version, row)),
                                rowsShown.at(index)};
    }
    view.OrCaption = tag + "OR";
}

TimerView BuildTimer(const UnitTimer& timer, const std::string& tag) {
    return {tag + "PU",
            tag + "DO",
            std::to_string(timer.PickUp),
            std::to_string(timer.DropOut),
            TimeReadOut(timer.PickUp),
            TimeReadOut(timer.DropOut)};
}

LatchView BuildLatch(const UnitInfo& unit) {
    return {"Q" + std::string(unit.Tag.substr(1)),
            unit.Kind == UnitKind::LatchReset ? "Latch Set Signal" : "Latch Reset Signal", unit.Kind};
}

} // namespace

std::string TimeReadOut(std::int32_t milliseconds) {
    constexpr std::int32_t perSecond = 1000;
    constexpr std::int32_t perMinute = 60 * perSecond;
    const std::int32_t minutes = milliseconds / perMinute;
    const std::int32_t seconds = (milliseconds - minutes * perMinute) / perSecond;
    const std::int32_t rest = milliseconds - minutes * perMinute - seconds * perSecond;
    return "Min:" + std::to_string(minutes) + " Sec:" + std::to_string(seconds) +
           " mSec:" + std::to_string(rest);
}

UnitView BuildUnitView(const LogicConfig& config, const SignalCatalogue& catalogue,
                       const ViewSelection& selection) {
    const UnitInfo& unit = Unit(selection.Unit);
    UnitView view;
    view.GroupCaption = "Group:";
    view.UnitCaption = UnitCaption(unit.Kind);
    view.SelectedInputCaption = SelectedInputCaption(selection, config.Version);
    BuildStrips(view, config, selection);
    BuildInputs(view, config, catalogue, selection);
    view.LatchShown = unit.Kind != UnitKind::Timer;
    if (view.LatchShown) {
        view.Latch = BuildLatch(unit);
    } else {
        view.Timer = BuildTimer(config.Group(selection.Group).Timer(selection.Unit), std::string(unit.Tag));
    }
    if (config.RelayModel == RelayKind::Vdr810) {
        view.FeedbackCaption = std::string(unit.Tag) + "FB";
    }
    for (int output = config.FirstOutput; output <= config.LastOutput; ++output) {
        view.OutputSet[output] = OutputMapped(config, selection.Group, selection.Unit, output);
    }
    return view;
}

} // namespace brindle
