#pragma once

#include <array>
#include <string_view>

namespace brindle {

inline constexpr int MaxGroups = 8;       ///< setting groups that a logic can hold
inline constexpr int UnitsPerGroup = 10;  ///< six timers, two latches with a reset and a set side
inline constexpr int TimersPerGroup = 6;  ///< units 1 to 6
inline constexpr int LatchesPerGroup = 2; ///< units 7 and 8, 9 and 10
inline constexpr int InputsPerUnit = 16;  ///< four AND gates of four inputs
inline constexpr int GatesPerUnit = 4;
inline constexpr int InputsPerGate = InputsPerUnit / GatesPerUnit;
inline constexpr int MapSlots = 8; ///< six timers, two latches
inline constexpr int MapBanks = 8; ///< words of a slot

enum class UnitKind { Timer, LatchReset, LatchSet };

/// What is fixed about one of the ten units of a group.
struct UnitInfo {
    int Number;                   ///< 1 to 10
    std::string_view Tag;         ///< "T1" to "T6", "R1", "S1", "R2", "S2"
    UnitKind Kind;                ///< a timer or one side of a latch
    int MapSlot;                  ///< 1 to 8: its row of the output map; both sides of a latch share one
    std::string_view MenuCaption; ///< with "&" before the access key
};

/// The ten units in their fixed order.
inline constexpr std::array<UnitInfo, UnitsPerGroup> UnitTable{{
    {1, "T1", UnitKind::Timer, 1, "Timer &1"},
    {2, "T2", UnitKind::Timer, 2, "Timer &2"},
    {3, "T3", UnitKind::Timer, 3, "Timer &3"},
    {4, "T4", UnitKind::Timer, 4, "Timer &4"},
    {5, "T5", UnitKind::Timer, 5, "Timer &5"},
    {6, "T6", UnitKind::Timer, 6, "Timer &6"},
    {7, "R1", UnitKind::LatchReset, 7, "Latch 1 &Reset"},
    {8, "S1", UnitKind::LatchSet, 7, "Latch 1 &Set"},
    {9, "R2", UnitKind::LatchReset, 8, "Latch 2 R&eset"},
    {10, "S2", UnitKind::LatchSet, 8, "Latch 2 Se&t"},
}};

/// The table row of `unit` (1 to 10).
constexpr const UnitInfo& Unit(int unit) {
    return UnitTable.at(static_cast<std::size_t>(unit - 1));
}

constexpr bool IsTimer(int unit) {
    return Unit(unit).Kind == UnitKind::Timer;
}

} // namespace brindle
