#include "model/unit_table.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace brindle {
namespace {

template<typename Field>
std::vector<Field> Column(Field UnitInfo::*field) {
    std::vector<Field> column;
    for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
        column.push_back(Unit(unit).*field);
    }
    return column;
}

TEST(UnitTable, UnitsAreNumberedFrom1InTheirFixedOrder) {
    EXPECT_EQ((std::vector{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}), Column(&UnitInfo::Number));
    EXPECT_EQ((std::vector<std::string_view>{"T1", "T2", "T3", "T4", "T5", "T6", "R1", "S1", "R2", "S2"}),
              Column(&UnitInfo::Tag));
}

TEST(UnitTable, BothSidesOfALatchShareASlot) {
    EXPECT_EQ((std::vector{1, 2, 3, 4, 5, 6, 7, 7, 8, 8}), Column(&UnitInfo::MapSlot));
}

TEST(UnitTable, MenuCaptionsCarryTheirAccessKeys) {
    EXPECT_EQ(
        (std::vector<std::string_view>{"Timer &1", "Timer &2", "Timer &3", "Timer &4", "Timer &5", "Timer &6",
                                       "Latch 1 &Reset", "Latch 1 &Set", "Latch 2 R&eset", "Latch 2 Se&t"}),
        Column(&UnitInfo::MenuCaption));
}

TEST(UnitTable, TheFirstSixAreTimersAndLatchesAlternateResetAndSet) {
    for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
        EXPECT_EQ(unit <= TimersPerGroup, IsTimer(unit)) << unit;
    }
    EXPECT_EQ(UnitKind::LatchReset, Unit(7).Kind);
    EXPECT_EQ(UnitKind::LatchSet, Unit(8).Kind);
    EXPECT_EQ(UnitKind::LatchReset, Unit(9).Kind);
    EXPECT_EQ(UnitKind::LatchSet, Unit(10).Kind);
}

TEST(UnitTable, AUnitOutOfRangeIsAFaultOfTheCaller) {
    EXPECT_THROW(Unit(0), std::out_of_range);
    EXPECT_THROW(Unit(11), std::out_of_range);
    EXPECT_THROW(Unit(-1), std::out_of_range);
}

} // namespace
} // namespace brindle
