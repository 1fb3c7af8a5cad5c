#include "model/logic_config.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace brindle {
namespace {

/// A group in which nothing is 0, told apart from others by `seed`.
LogicGroup FilledGroup(int seed) {
    LogicGroup group;
    for (LogicUnit& unit : group.Units) {
        unit.Inputs.fill(seed);
    }
    group.Timers.fill({seed * 10, seed * 20});
    for (auto& slot : group.OutputWords) {
        slot.fill(static_cast<std::uint32_t>(seed) * 30U);
    }
    return group;
}

LogicConfig FilledConfig() {
    LogicConfig config;
    for (int group = 1; group <= MaxGroups; ++group) {
        config.Group(group) = FilledGroup(group);
    }
    config.Header = {{'x', 'x', 'x', 'x'}, {'9', '9'}, 77, {'a'}, {'b'}};
    return config;
}

std::string Text(const auto& bytes) {
    return {bytes.begin(), bytes.end()};
}

TEST(LogicConfig, StartsAsAnEmptyVersion230) {
    const LogicConfig config;
    EXPECT_EQ(RelayKind::Vdr812, config.RelayModel);
    EXPECT_EQ(2.3F, config.Version);
    EXPECT_EQ(8, config.GroupCount);
    EXPECT_EQ(2, config.FirstOutput);
    EXPECT_EQ(13, config.LastOutput);
    EXPECT_EQ(256, config.Coding.InvertBase);
    EXPECT_EQ(255, config.Coding.FalseCode);
    EXPECT_FALSE(config.Modified);
    EXPECT_EQ(0, config.Header.HeaderWord);
    EXPECT_EQ(std::string(20, '\0'), Text(config.Header.Text1));
    EXPECT_EQ(std::string(20, '\0'), Text(config.Header.Text2));
}

TEST(LogicConfig, Version230IsMetInSinglePrecision) {
    EXPECT_TRUE(IsVersion230(2.3F));
    EXPECT_TRUE(IsVersion230(3.0F));
    EXPECT_FALSE(IsVersion230(2.29F));
    EXPECT_FALSE(IsVersion230(1.0F));
    EXPECT_FALSE(IsVersion230(0.0F));
}

class NewVdr812 : public testing::TestWithParam<float> {};

TEST_P(NewVdr812, HoldsNothingInAnyUnitOfAnyGroup) {
    LogicConfig config = FilledConfig();
    MakeNewVdr812(config, GetParam());
    for (int group = 1; group <= MaxGroups; ++group) {
        EXPECT_EQ(LogicGroup{}, config.Group(group)) << group;
    }
}

TEST_P(NewVdr812, IsAVdr812OfEightGroupsWhateverWasOpenBefore) {
    LogicConfig config = FilledConfig();
    config.RelayModel = RelayKind::Vdr810;
    config.GroupCount = 3;
    config.Coding = {512, 300};
    MakeNewVdr812(config, GetParam());
    EXPECT_EQ(RelayKind::Vdr812, config.RelayModel);
    EXPECT_EQ(8, config.GroupCount);
    EXPECT_EQ(256, config.Coding.InvertBase);
    EXPECT_EQ(255, config.Coding.FalseCode);
    EXPECT_EQ(LogicGroup{}, config.Group(8)) << "groups that were not counted before are emptied too";
}

TEST_P(NewVdr812, CarriesTheHeaderWordAndTextsOfTheFileBeforeOn) {
    LogicConfig config = FilledConfig();
    const ProgramHeader before = config.Header;
    MakeNewVdr812(config, GetParam());
    EXPECT_EQ(77, config.Header.HeaderWord);
    EXPECT_EQ(before.Text1, config.Header.Text1);
    EXPECT_EQ(before.Text2, config.Header.Text2);
    EXPECT_EQ("plcd", Text(config.Header.Magic));
}

INSTANTIATE_TEST_SUITE_P(OfBothVersions, NewVdr812, testing::Values(Version100, Version230));

TEST(MakeNewVdr812, TheVersionDecidesHeaderTextAndOutputs) {
    LogicConfig config;
    MakeNewVdr812(config, Version100);
    EXPECT_EQ("1.00  ", Text(config.Header.VersionText));
    EXPECT_EQ(1.0F, config.Version);
    EXPECT_EQ(2, config.FirstOutput);
    EXPECT_EQ(9, config.LastOutput);
    MakeNewVdr812(config, Version230);
    EXPECT_EQ("2.30  ", Text(config.Header.VersionText));
    EXPECT_EQ(2.3F, config.Version);
    EXPECT_EQ(13, config.LastOutput);
}

TEST(ClearConfig, EmptiesTheCountedGroupsOnly) {
    LogicConfig config = FilledConfig();
    config.GroupCount = 6;
    ClearConfig(config);
    EXPECT_EQ(LogicGroup{}, config.Group(6));
    EXPECT_EQ(FilledGroup(7), config.Group(7));
    EXPECT_EQ("plcd", Text(config.Header.Magic));
    EXPECT_EQ("2.30  ", Text(config.Header.VersionText));
}

TEST(VersionTextOf, IsLeftJustifiedInSixCharacters) {
    EXPECT_EQ("1.00  ", Text(VersionTextOf(1.0F)));
    EXPECT_EQ("2.30  ", Text(VersionTextOf(2.3F)));
    EXPECT_EQ("12.50 ", Text(VersionTextOf(12.5F)));
    EXPECT_EQ("12345.", Text(VersionTextOf(12345.0F))) << "cut, never beyond its field";
}

TEST(ClearUnit, OfATimerClearsItsInputsTimesAndOutputsAlone) {
    LogicGroup group = FilledGroup(5);
    LogicGroup expected = group;
    expected.Unit(2).Inputs.fill(0);
    expected.Timer(2) = {0, 0};
    expected.OutputWords[1].fill(0);
    ClearUnit(group, 2, NoConnectCode);
    EXPECT_EQ(expected, group);
}

TEST(ClearUnit, OfOneLatchSideClearsTheMappingOfBothAndNoTimes) {
    LogicGroup group = FilledGroup(5);
    LogicGroup expected = group;
    expected.Unit(10).Inputs.fill(0);
    expected.OutputWords[7].fill(0);
    ClearUnit(group, 10, NoConnectCode);
    EXPECT_EQ(expected, group);
}

TEST(ClearUnit, FillsTheInputsWithTheModelsEmptyCode) {
    LogicGroup group = FilledGroup(5);
    ClearUnit(group, 1, 511);
    EXPECT_EQ(511, group.Unit(1).Inputs[0]);
    EXPECT_EQ(511, group.Unit(1).Inputs[15]);
    EXPECT_EQ(5, group.Unit(2).Inputs[0]);
}

TEST(ClearGroup, LeavesNothing) {
    LogicGroup group = FilledGroup(5);
    ClearGroup(group, NoConnectCode);
    EXPECT_EQ(LogicGroup{}, group);
}

TEST(CopyGroup, CopiesInputsTimesAndOutputsAndLeavesTheOthers) {
    LogicConfig config = FilledConfig();
    CopyGroup(config, 3, 8);
    EXPECT_EQ(FilledGroup(3), config.Group(8));
    EXPECT_EQ(FilledGroup(3), config.Group(3));
    EXPECT_EQ(FilledGroup(7), config.Group(7));
}

TEST(CopyGroup, OntoItselfChangesNothing) {
    LogicConfig config = FilledConfig();
    CopyGroup(config, 4, 4);
    EXPECT_EQ(FilledGroup(4), config.Group(4));
}

TEST(LogicConfig, AccessorsCountFrom1) {
    LogicConfig config;
    config.Groups[0].Units[9].Inputs[15] = 42;
    config.Groups[7].Timers[5].DropOut = 43;
    config.Groups[7].OutputWords[6][7] = 44;
    EXPECT_EQ(42, config.InputCode(1, 10, 16));
    EXPECT_EQ(43, config.Group(8).Timer(6).DropOut);
    EXPECT_EQ(44U, config.Group(8).OutputMap(7, 8));
}

TEST(LogicConfig, AnIndexOutOfRangeIsAFaultOfTheCaller) {
    const LogicConfig config;
    EXPECT_THROW((void)config.Group(0), std::out_of_range);
    EXPECT_THROW((void)config.Group(9), std::out_of_range);
    EXPECT_THROW((void)config.InputCode(1, 1, 0), std::out_of_range);
    EXPECT_THROW((void)config.InputCode(1, 1, 17), std::out_of_range);
    EXPECT_THROW((void)config.InputCode(1, 11, 1), std::out_of_range);
    EXPECT_THROW((void)config.Group(1).Timer(7), std::out_of_range);
    EXPECT_THROW((void)config.Group(1).OutputMap(9, 1), std::out_of_range);
    EXPECT_THROW((void)config.Group(1).OutputMap(1, 0), std::out_of_range);
}

TEST(ClearConfig, AnEmptyVdr810LogicHoldsItsUnconnectedSignal) {
    LogicConfig config;
    config.RelayModel = RelayKind::Vdr810;
    config.Coding = {1000, 400};
    config.GroupCount = 7;
    ClearConfig(config);
    EXPECT_EQ(config.InputCode(7, 10, 16), 400);
    EXPECT_EQ(config.InputCode(8, 1, 1), 0) << "beyond the group count";
}

} // namespace
} // namespace brindle
