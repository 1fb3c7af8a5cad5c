#include "editor/connect_rule.h"

#include "editor/gate_rows.h"

#include <algorithm>
#include <span>

namespace brindle {

namespace {

using Inputs = std::array<UnitInput, InputsPerUnit>;

/// The four inputs of row `row` (1 to 4) of the diagram.
std::span<UnitInput, InputsPerGate> InputsOfRow(Inputs& inputs, int row) {
    const std::size_t first = static_cast<std::size_t>(row - 1) * std::size_t{InputsPerGate};
    return std::span<UnitInput, InputsPerGate>(&inputs.at(first), InputsPerGate);
}

void FillShownInputs(Inputs& inputs, float version, UnitInput code) {
    const auto rowsShown = GateRowsShown(version);
    for (int row = 1; row <= GatesPerUnit; ++row) {
        if (rowsShown.at(static_cast<std::size_t>(row - 1))) {
            std::ranges::fill(InputsOfRow(inputs, row), code);
        }
    }
}

} // namespace

void ConnectSignal(LogicConfig& config, const InputPlace& place, UnitInput code) {
    config.Modified = true;
    const UnitInput falseCode = config.Coding.FalseCode;
    Inputs& inputs = config.Group(place.Group).Unit(place.Unit).Inputs;
    UnitInput& input = inputs.at(static_cast<std::size_t>(place.Input - 1));
    if (input == NoConnectCode) {
        FillShownInputs(inputs, config.Version, falseCode);
    }
    const auto gate = InputsOfRow(inputs, RowOfInput(place.Input));
    if (std::ranges::all_of(gate, [&](UnitInput other) { return other == falseCode; })) {
        std::ranges::fill(gate, TrueCode);
    }
    input = code;
}

void FlipInput(LogicConfig& config, const InputPlace& place) {
    config.Modified = true;
    UnitInput& input =
        config.Group(place.Group).Unit(place.Unit).Inputs.at(static_cast<std::size_t>(place.Input - 1));
    if (input == TrueCode || input == config.Coding.FalseCode) {
        ConnectSignal(config, place, ToggleInvert(config.Coding, input));
    } else {
        input = ToggleInvert(config.Coding, input);
    }
}

} // namespace brindle
