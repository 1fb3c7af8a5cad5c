#include "editor/connect_rule.h"

#include <cstddef>

namespace brindle {

namespace {

using Inputs = std::array<UnitInput, InputsPerUnit>;

/// The four inputs of a row (1 to 4) of the diagram.
InputSet InputsOfRow(int row) {
    return InputSet((1U << InputsPerGate) - 1) << (static_cast<std::size_t>(row - 1) * InputsPerGate);
}

InputSet ShownInputs(float version) {
    InputSet shown;
    for (int input = 1; input <= InputsPerUnit; ++input) {
        shown.set(static_cast<std::size_t>(input - 1), IsInputShown(version, input));
    }
    return shown;
}

void Fill(Inputs& inputs, const InputSet& which, UnitInput code) {
    for (std::size_t index = 0; index < inputs.size(); ++index) {
        if (which.test(index)) {
            inputs.at(index) = code;
        }
    }
}

bool AllHold(const Inputs& inputs, const InputSet& which, UnitInput code) {
    for (std::size_t index = 0; index < inputs.size(); ++index) {
        if (which.test(index) && inputs.at(index) != code) {
            return false;
        }
    }
    return true;
}

} // namespace

InputSet ConnectSignal(LogicConfig& config, const InputPlace& place, UnitInput code) {
    config.Modified = true;
    const UnitInput falseCode = config.Coding.FalseCode;
    Inputs& inputs = config.Group(place.Group).Unit(place.Unit).Inputs;
    const auto index = static_cast<std::size_t>(place.Input - 1);
    InputSet given;
    if (inputs.at(index) == NoConnectCode) {
        given = ShownInputs(config.Version);
        Fill(inputs, given, falseCode);
    }
    const InputSet gate = InputsOfRow(RowOfInput(place.Input));
    if (AllHold(inputs, gate, falseCode)) {
        Fill(inputs, gate, TrueCode);
        given |= gate;
    }
    inputs.at(index) = code;
    return given.set(index);
}

InputSet FlipInput(LogicConfig& config, const InputPlace& place) {
    config.Modified = true;
    const auto index = static_cast<std::size_t>(place.Input - 1);
    UnitInput& input = config.Group(place.Group).Unit(place.Unit).Inputs.at(index);
    if (input == NoConnectCode) {
        return {};
    }
    if (input == TrueCode || input == config.Coding.FalseCode) {
        return ConnectSignal(config, place, ToggleInvert(config.Coding, input));
    }
    input = ToggleInvert(config.Coding, input);
    return InputSet().set(index);
}

} // namespace brindle
