#pragma once

#include "model/unit_table.h"

#include <array>
#include <string_view>

/// The sections of VDR810 files, each begun by a line whose first field is its tag.
namespace brindle {

inline constexpr std::string_view CategoryTag = "<CATEGORY INFO>";
inline constexpr std::string_view LabelTag = "<LABEL INFO>";

/// The tag of each unit, at its number less 1. Tags name the sides of a latch the other way round than the
/// units do: files keep their meaning by it.
inline constexpr std::array<std::string_view, UnitsPerGroup> UnitTags{
    "<TIMER 1>", "<TIMER 2>",     "<TIMER 3>",       "<TIMER 4>",     "<TIMER 5>",
    "<TIMER 6>", "<LATCH 1 SET>", "<LATCH 1 RESET>", "<LATCH 2 SET>", "<LATCH 2 RESET>"};

/// The unit (1 to 10) of a tag; 0 when it is none of a unit.
constexpr int UnitOfTag(std::string_view tag) {
    for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
        if (UnitTags.at(static_cast<std::size_t>(unit - 1)) == tag) {
            return unit;
        }
    }
    return 0;
}

/// What a line of a unit's section holds.
enum UnitRecord { InputRecord = 1, OutputMapRecord = 2, PickUpRecord = 3, DropOutRecord = 4 };

} // namespace brindle
