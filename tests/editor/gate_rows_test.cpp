#include "editor/gate_rows.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

TEST(GateRows, AVersion100ShowsItsGatesInOrder) {
    for (int row = 1; row <= GatesPerUnit; ++row) {
        EXPECT_EQ(GateOfRow(Version100, row), row);
    }
    EXPECT_EQ(GateRowsShown(Version100), (std::array<bool, 4>{true, true, true, true}));
}

TEST(GateRows, AVersion230ShowsGates1And2InTheMiddleRowsOnly) {
    EXPECT_EQ(GateOfRow(Version230, 1), 3);
    EXPECT_EQ(GateOfRow(Version230, 2), 1);
    EXPECT_EQ(GateOfRow(Version230, 3), 2);
    EXPECT_EQ(GateOfRow(Version230, 4), 4);
    EXPECT_EQ(GateRowsShown(Version230), (std::array<bool, 4>{false, true, true, false}));
}

TEST(GateRows, InputTagsFollowTheGateOfTheRow) {
    EXPECT_EQ(InputTag(Version100, 1), "11");
    EXPECT_EQ(InputTag(Version100, 8), "24");
    EXPECT_EQ(InputTag(Version100, 16), "44");
    EXPECT_EQ(InputTag(Version230, 1), "31");
    EXPECT_EQ(InputTag(Version230, 5), "11");
    EXPECT_EQ(InputTag(Version230, 12), "24");
    EXPECT_EQ(InputTag(Version230, 13), "41");
}

TEST(GateRows, TheFirstInputOfGate1IsSelectedFirst) {
    EXPECT_EQ(FirstInput(Version100), 1);
    EXPECT_EQ(FirstInput(Version230), 5);
    EXPECT_EQ(InputTag(Version100, FirstInput(Version100)), "11");
    EXPECT_EQ(InputTag(Version230, FirstInput(Version230)), "11");
}

TEST(GateRows, AnyVersionBelow230IsShownAs100) {
    EXPECT_EQ(GateOfRow(2.29F, 1), 1);
    EXPECT_EQ(GateOfRow(0.0F, 1), 1);
    EXPECT_EQ(GateOfRow(2.31F, 1), 3);
}

} // namespace
} // namespace brindle
