#include "editor/connect_rule.h"
#include "editor/gate_rows.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <vector>

namespace brindle {
namespace {

/// A VDR812 logic with any codes in every input.
LogicConfig AnyLogic(float version) {
    LogicConfig config;
    MakeNewVdr812(config, version);
    // Few different codes, so that gates wholly FALSE and units wholly unconnected come up.
    const auto codes = *rc::gen::container<std::vector<UnitInput>>(
        std::size_t{UnitsPerGroup} * InputsPerUnit, rc::gen::element(0, 1, 255, 255, 255, 20, 200, 128));
    std::size_t next = 0;
    for (LogicUnit& unit : config.Group(4).Units) {
        for (UnitInput& input : unit.Inputs) {
            input = codes[next++];
        }
    }
    return config;
}

float AnyVersion() {
    return *rc::gen::element(Version100, Version230);
}

InputPlace AnyShownInput(float version) {
    const int input = IsVersion230(version) ? *rc::gen::inRange(5, 13) : *rc::gen::inRange(1, 17);
    return {4, *rc::gen::inRange(1, 11), input};
}

RC_GTEST_PROP(ConnectRuleProperty, AConnectedInputHoldsTheCode, ()) {
    const float version = AnyVersion();
    LogicConfig config = AnyLogic(version);
    const InputPlace place = AnyShownInput(version);
    const UnitInput code = *rc::gen::inRange(1, 256);
    ConnectSignal(config, place, code);
    RC_ASSERT(config.InputCode(place.Group, place.Unit, place.Input) == code);
}

RC_GTEST_PROP(ConnectRuleProperty, NothingOutsideTheShownInputsOfTheUnitIsTouched, ()) {
    const float version = AnyVersion();
    const LogicConfig before = AnyLogic(version);
    LogicConfig config = before;
    const InputPlace place = AnyShownInput(version);
    if (*rc::gen::arbitrary<bool>()) {
        ConnectSignal(config, place, *rc::gen::inRange(1, 256));
    } else {
        FlipInput(config, place);
    }
    const auto rowsShown = GateRowsShown(version);
    for (int input = 1; input <= InputsPerUnit; ++input) {
        if (rowsShown.at(static_cast<std::size_t>(RowOfInput(input) - 1))) {
            config.Group(place.Group).Unit(place.Unit).Inputs.at(static_cast<std::size_t>(input - 1)) =
                before.InputCode(place.Group, place.Unit, input);
        }
    }
    RC_ASSERT(config.Groups == before.Groups);
}

RC_GTEST_PROP(ConnectRuleProperty, OtherGatesChangeOnlyWithTheFirstSignal, ()) {
    const float version = AnyVersion();
    const LogicConfig before = AnyLogic(version);
    LogicConfig config = before;
    const InputPlace place = AnyShownInput(version);
    RC_PRE(before.InputCode(place.Group, place.Unit, place.Input) != NoConnectCode);
    ConnectSignal(config, place, *rc::gen::inRange(1, 256));
    for (int input = 1; input <= InputsPerUnit; ++input) {
        if (RowOfInput(input) != RowOfInput(place.Input)) {
            RC_ASSERT(config.InputCode(place.Group, place.Unit, input) ==
                      before.InputCode(place.Group, place.Unit, input));
        }
    }
}

RC_GTEST_PROP(ConnectRuleProperty, TwoDoubleClicksOnASignalGiveBackItsCode, (std::int32_t code)) {
    LogicConfig config;
    MakeNewVdr812(config, Version100);
    RC_PRE(code != NoConnectCode && code != config.Coding.FalseCode && code != config.Coding.InvertBase);
    UnitInput& input = config.Group(1).Unit(1).Inputs[0];
    input = code;
    FlipInput(config, {1, 1, 1});
    FlipInput(config, {1, 1, 1});
    RC_ASSERT(input == code);
}

} // namespace
} // namespace brindle
