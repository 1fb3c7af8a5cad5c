#pragma once

#include "editor/gate_rows.h"
#include "model/logic_config.h"

/// How a click becomes a code in the file: what connecting a signal and double-clicking an input store.
namespace brindle {

/// One input of the logic.
struct InputPlace {
    int Group; ///< 1 to 8
    int Unit;  ///< 1 to 10
    int Input; ///< 1 to 16, one that the file's version shows
};

/// Connects the signal of `code`, inverted or not, to an input.
///
/// A signal for an input that is "NO CONNECT", such as the first one of an empty unit, makes all shown inputs
/// of the unit "FALSE", those that hold signals too. A signal that goes into a gate whose four inputs are all
/// "FALSE" first turns the gate "TRUE". So neither the gate's other inputs nor the other gates decide the
/// unit. Inputs that the file's version hides are never touched. Marks the logic modified. Returns the inputs
/// that were given a code, the same or another: those to be shown anew.
InputSet ConnectSignal(LogicConfig& config, const InputPlace& place, UnitInput code);

/// What a double-click does: "TRUE" and "FALSE" are connected for each other, a signal is inverted or no
/// longer, "NO CONNECT" stays. Marks the logic modified in every case. Returns the inputs to be shown anew.
InputSet FlipInput(LogicConfig& config, const InputPlace& place);

} // namespace brindle
