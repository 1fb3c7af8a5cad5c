#pragma once

#include "model/logic_config.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <string>

/// Which AND gate stands in which row of the diagram. The four rows are fixed on screen; the gates that they
/// stand for change with the file version: from 2.30 on the first row is gate 3, and only rows 2 and 3 are in
/// use.
namespace brindle {

/// Whether each of the rows 1 to 4 (at 0 to 3) is shown for a file of `version`.
constexpr std::array<bool, GatesPerUnit> GateRowsShown(float version) {
    const bool outer = !IsVersion230(version);
    return {outer, true, true, outer};
}

/// The AND gate (1 to 4) that row `row` (1 to 4) stands for.
constexpr int GateOfRow(float version, int row) {
    constexpr std::array<int, GatesPerUnit> rows230{3, 1, 2, 4};
    return IsVersion230(version) ? rows230.at(static_cast<std::size_t>(row - 1)) : row;
}

/// The row (1 to 4) in which input box `input` (1 to 16) stands.
constexpr int RowOfInput(int input) {
    return (input - 1) / InputsPerGate + 1;
}

/// Whether input box `input` (1 to 16) is shown for a file of `version`.
constexpr bool IsInputShown(float version, int input) {
    return GateRowsShown(version).at(static_cast<std::size_t>(RowOfInput(input) - 1));
}

/// Some of a unit's input boxes: box n at n - 1.
using InputSet = std::bitset<InputsPerUnit>;

/// The tag of input box `input` (1 to 16): gate, then input within the gate ("11" to "44").
inline std::string InputTag(float version, int input) {
    return std::to_string(GateOfRow(version, RowOfInput(input))) +
           std::to_string((input - 1) % InputsPerGate + 1);
}

/// The input box that is selected when a unit is shown: the first of gate 1.
constexpr int FirstInput(float version) {
    return IsVersion230(version) ? 5 : 1;
}

} // namespace brindle
