#include "model/output_map.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <stdexcept>

namespace brindle {
namespace {

LogicConfig Vdr810Config(std::int16_t first, std::int16_t last) {
    LogicConfig config;
    config.RelayModel = RelayKind::Vdr810;
    config.FirstOutput = first;
    config.LastOutput = last;
    return config;
}

TEST(BitOfOutput, AVdr812KeepsOutput18InTheLowestBitOfBank1) {
    const LogicConfig config;
    EXPECT_EQ(0x20000U, BitOfOutput(config, 1).Mask);
    EXPECT_EQ(0x10000U, BitOfOutput(config, 2).Mask);
    EXPECT_EQ(0x200U, BitOfOutput(config, 9).Mask);
    EXPECT_EQ(0x20U, BitOfOutput(config, 13).Mask);
    EXPECT_EQ(1U, BitOfOutput(config, 18).Mask);
    EXPECT_EQ(1, BitOfOutput(config, 1).Bank);
    EXPECT_EQ(1, BitOfOutput(config, 18).Bank);
}

TEST(BitOfOutput, AVdr810CountsFromItsFirstOutputSixteenABank) {
    const LogicConfig config = Vdr810Config(3, 60);
    EXPECT_EQ(1, BitOfOutput(config, 3).Bank);
    EXPECT_EQ(0x8000U, BitOfOutput(config, 3).Mask);
    EXPECT_EQ(1, BitOfOutput(config, 18).Bank);
    EXPECT_EQ(1U, BitOfOutput(config, 18).Mask);
    EXPECT_EQ(2, BitOfOutput(config, 19).Bank);
    EXPECT_EQ(0x8000U, BitOfOutput(config, 19).Mask);
}

TEST(BitOfOutput, OutputsWithoutABitAreAFaultOfTheCaller) {
    const LogicConfig vdr812;
    EXPECT_THROW(BitOfOutput(vdr812, 0), std::out_of_range);
    EXPECT_THROW(BitOfOutput(vdr812, 19), std::out_of_range);
    const LogicConfig vdr810 = Vdr810Config(3, 200);
    EXPECT_THROW(BitOfOutput(vdr810, 2), std::out_of_range);
    EXPECT_EQ(8, BitOfOutput(vdr810, 3 + 127).Bank);
    EXPECT_THROW(BitOfOutput(vdr810, 3 + 128), std::out_of_range);
}

TEST(OutputMapped, ReadsTheSlotOfTheUnit) {
    LogicConfig config;
    config.Group(4).OutputMap(2, 1) = 0x10000;
    EXPECT_TRUE(OutputMapped(config, 4, 2, 2));
    EXPECT_FALSE(OutputMapped(config, 4, 2, 3));
    EXPECT_FALSE(OutputMapped(config, 4, 1, 2));
    EXPECT_FALSE(OutputMapped(config, 3, 2, 2));
}

TEST(OutputMapped, BothSidesOfALatchShowTheSameOutputs) {
    LogicConfig config;
    config.Group(1).OutputMap(8, 1) = 0x2000;
    EXPECT_TRUE(OutputMapped(config, 1, 9, 5));
    EXPECT_TRUE(OutputMapped(config, 1, 10, 5));
    EXPECT_FALSE(OutputMapped(config, 1, 7, 5));
}

RC_GTEST_PROP(BitOfOutput, NoTwoOutputsOfAVdr810ShareABit, ()) {
    const auto first = *rc::gen::inRange<std::int16_t>(0, 100);
    const LogicConfig config = Vdr810Config(first, static_cast<std::int16_t>(first + 127));
    const int one = *rc::gen::inRange(0, 128) + first;
    const int other = *rc::gen::inRange(0, 128) + first;
    const OutputBit a = BitOfOutput(config, one);
    const OutputBit b = BitOfOutput(config, other);
    RC_ASSERT((a.Bank == b.Bank && a.Mask == b.Mask) == (one == other));
}

} // namespace
} // namespace brindle
