#include "model/output_map.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <map>
#include <stdexcept>
#include <utility>

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

/// Maps and unmaps any outputs of any units in any order and compares with a table of what was ticked last.
void MappingsAreIndependent(LogicConfig config, int first, int last) {
    std::map<std::pair<int, int>, bool> ticked; // by slot and output
    const int steps = *rc::gen::inRange(1, 60);
    for (int step = 0; step < steps; ++step) {
        const int unit = *rc::gen::inRange(1, UnitsPerGroup + 1);
        const int output = *rc::gen::inRange(first, last + 1);
        const bool on = *rc::gen::arbitrary<bool>();
        MapOutput(config, 5, unit, output, on);
        ticked[{Unit(unit).MapSlot, output}] = on;
    }
    for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
        for (int output = first; output <= last; ++output) {
            RC_ASSERT(OutputMapped(config, 5, unit, output) == (ticked[{Unit(unit).MapSlot, output}]));
        }
    }
    config.Group(5) = LogicGroup{};
    RC_ASSERT(config.Groups == LogicConfig{}.Groups);
}

RC_GTEST_PROP(MapOutput, OutputsOfAVdr812AreIndependent, ()) {
    MappingsAreIndependent(LogicConfig{}, 1, Vdr812OutputBits);
}

RC_GTEST_PROP(MapOutput, OutputsOfAVdr810AreIndependent, ()) {
    MappingsAreIndependent(Vdr810Config(7, 30), 7, 30);
}

TEST(MapOutput, BitsBesideTheOutputsStayAsAFileBroughtThem) {
    LogicConfig config;
    config.Group(1).OutputMap(1, 1) = 0xFFFC0001;
    MapOutput(config, 1, 1, 2, true);
    EXPECT_EQ(config.Group(1).OutputMap(1, 1), 0xFFFD0001U);
    MapOutput(config, 1, 1, 2, false);
    EXPECT_EQ(config.Group(1).OutputMap(1, 1), 0xFFFC0001U);
}

TEST(MapOutput, AnOutputWithoutABitIsAFaultOfTheCaller) {
    LogicConfig config;
    EXPECT_THROW(MapOutput(config, 1, 1, 19, true), std::out_of_range);
    LogicConfig vdr810 = Vdr810Config(3, 200);
    EXPECT_THROW(MapOutput(vdr810, 1, 1, 3 + 128, true), std::out_of_range);
}

} // namespace
} // namespace brindle
