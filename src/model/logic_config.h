#pragma once

#include "model/bool16.h"
#include "model/input_code.h"
#include "model/unit_table.h"
#include "model/vdr810_lists.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

namespace brindle {

/// The relay that a logic is for; the values are those stored in files and settings.
enum class RelayKind : std::int16_t { Vdr812 = 1, Vdr810 = 2 };

inline constexpr float Version100 = 1.0F;
inline constexpr float Version230 = 2.3F;

/// Whether a file version shows and stores what came with 2.30. The test is made in single precision, so
/// that 2.30 read from a file passes it.
constexpr bool IsVersion230(float version) {
    return version >= Version230;
}

using UnitInput = std::int32_t; ///< one stored input code, see InputCoding

struct LogicUnit {
    std::array<UnitInput, InputsPerUnit> Inputs{}; ///< inputs 1 to 16 at 0 to 15; gate k has 4(k-1)+1 to 4k

    bool operator==(const LogicUnit&) const = default;
};

/// Delays of one timer unit in milliseconds. The editor admits 0 to 600000; a file may hold any 32-bit value.
struct UnitTimer {
    std::int32_t PickUp = 0;
    std::int32_t DropOut = 0;

    bool operator==(const UnitTimer&) const = default;
};

/// One setting group.
struct LogicGroup {
    std::array<LogicUnit, UnitsPerGroup> Units{};
    std::array<UnitTimer, TimersPerGroup> Timers{};
    std::array<std::array<std::uint32_t, MapBanks>, MapSlots> OutputWords{}; ///< [slot - 1][bank - 1]

    LogicUnit& Unit(int unit) { return Units.at(static_cast<std::size_t>(unit - 1)); }

    [[nodiscard]] const LogicUnit& Unit(int unit) const {
        return Units.at(static_cast<std::size_t>(unit - 1));
    }

    UnitTimer& Timer(int timer) { return Timers.at(static_cast<std::size_t>(timer - 1)); }

    [[nodiscard]] const UnitTimer& Timer(int timer) const {
        return Timers.at(static_cast<std::size_t>(timer - 1));
    }

    /// The word of output bits of map slot `slot` (1 to 8) and bank `bank` (1 to 8).
    std::uint32_t& OutputMap(int slot, int bank) {
        return OutputWords.at(static_cast<std::size_t>(slot - 1)).at(static_cast<std::size_t>(bank - 1));
    }

    [[nodiscard]] std::uint32_t OutputMap(int slot, int bank) const {
        return OutputWords.at(static_cast<std::size_t>(slot - 1)).at(static_cast<std::size_t>(bank - 1));
    }

    bool operator==(const LogicGroup&) const = default;
};

/// The head of a VDR812 program. Texts are bytes of the Windows-1252 code page without a terminator.
struct ProgramHeader {
    std::array<char, 4> Magic{};
    std::array<char, 6> VersionText{};
    std::int32_t HeaderWord = 0;  ///< carried through, never interpreted
    std::array<char, 20> Text1{}; ///< carried through, never interpreted
    std::array<char, 20> Text2{}; ///< carried through, never interpreted

    bool operator==(const ProgramHeader&) const = default;
};

/// The one in-memory copy of the logic being edited, with the identity of the file it came from.
/// Groups, units, inputs, slots and banks count from 1 in every accessor; an index out of range is a fault of
/// the caller and ends the program (std::out_of_range).
struct LogicConfig {
    RelayKind RelayModel = RelayKind::Vdr812;
    float Version = Version230; ///< 1.0 or 2.3 for files of our making; as read from any other
    Bool16 Modified;            ///< the logic differs from what was last saved or opened
    std::string FilePath;       ///< full path of the current file
    std::string FileTitle;      ///< its name without folder
    int GroupCount = MaxGroups;
    InputCoding Coding;
    std::int16_t FirstOutput = 2; ///< relay outputs that the output map shows and edits
    std::int16_t LastOutput = 13;
    ProgramHeader Header;
    Vdr810Header Vdr810; ///< defaults while the logic is one of a VDR812
    Vdr810Lists Lists;   ///< empty while the logic is one of a VDR812
    std::array<LogicGroup, MaxGroups> Groups{};

    LogicGroup& Group(int group) { return Groups.at(static_cast<std::size_t>(group - 1)); }

    [[nodiscard]] const LogicGroup& Group(int group) const {
        return Groups.at(static_cast<std::size_t>(group - 1));
    }

    [[nodiscard]] UnitInput InputCode(int group, int unit, int input) const {
        return Group(group).Unit(unit).Inputs.at(static_cast<std::size_t>(input - 1));
    }
};

/// The code of an input that has no signal: "NO CONNECT" for the VDR812, the signal "FALSE" for the VDR810.
inline UnitInput UnconnectedCode(const LogicConfig& config) {
    return config.RelayModel == RelayKind::Vdr812 ? NoConnectCode : config.Coding.FalseCode;
}

/// How many groups the editor offers singly: all of a VDR812, at most six of a VDR810, whose groups 7 and 8
/// are kept.
inline int ShownGroups(const LogicConfig& config) {
    constexpr int vdr810Groups = 6;
    return config.RelayModel == RelayKind::Vdr812 ? config.GroupCount
                                                  : std::min(config.GroupCount, vdr810Groups);
}

/// Whether the relay of this logic has unit `unit` (1 to 10). A VDR812 has them all, a VDR810 those that its
/// file promises.
inline bool HasUnit(const LogicConfig& config, int unit) {
    return IsTimer(unit) ? unit <= config.Vdr810.TimerCount
                         : Unit(unit).MapSlot - TimersPerGroup <= config.Vdr810.LatchCount;
}

/// Empties the logic: codes of groups 1 to `GroupCount` become UnconnectedCode, times and output words 0,
/// `Magic` "plcd", and `VersionText` follows `Version`. `HeaderWord`, `Text1` and `Text2` stay: a new file
/// carries them on.
void ClearConfig(LogicConfig& config);

/// Makes the logic one of a VDR812 program of `version`: model, version, group count, coding and output
/// range; nothing of a VDR810 stays.
void BecomeVdr812(LogicConfig& config, float version);

/// Makes the logic a new, empty VDR812 program of `version` (1.0 or 2.3): model, coding, group count, output
/// range and header. File path, title and `Modified` are the caller's.
void MakeNewVdr812(LogicConfig& config, float version);

/// The range of relay outputs of a VDR812 program of `config.Version`: 2 to 13 from 2.30 on, else 2 to 9.
void SetVdr812Outputs(LogicConfig& config);

/// `VersionText` as files hold it: `version` with two decimals, left-justified, padded with blanks to 6
/// characters.
std::array<char, 6> VersionTextOf(float version);

/// Clears one unit of a group: its 16 codes become `emptyCode` (0 for the VDR812), a timer's two times 0, and
/// all words of its output slot 0 (a latch's other side loses its mapping too, since the two share the slot).
void ClearUnit(LogicGroup& group, int unit, UnitInput emptyCode);

/// Clears all units, times and output words of a group.
void ClearGroup(LogicGroup& group, UnitInput emptyCode);

/// Copies everything of group `from` (1 to 8) onto group `to`; equal numbers change nothing.
void CopyGroup(LogicConfig& config, int from, int to);

} // namespace brindle
