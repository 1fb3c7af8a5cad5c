#include "editor/group_editing.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

namespace brindle {
namespace {

/// A logic in which no two inputs, times or output words are equal.
LogicConfig ManifoldLogic() {
    LogicConfig config;
    MakeNewVdr812(config, Version230);
    int next = 0;
    for (LogicGroup& group : config.Groups) {
        for (LogicUnit& unit : group.Units) {
            std::ranges::generate(unit.Inputs, [&] { return ++next; });
        }
        for (UnitTimer& timer : group.Timers) {
            timer = {next + 1, next + 2};
            next += 2;
        }
        for (auto& slot : group.OutputWords) {
            std::ranges::generate(slot, [&] { return static_cast<std::uint32_t>(++next); });
        }
    }
    return config;
}

TEST(GroupEditing, TheBoxesOfferEightGroupsAndAll) {
    EXPECT_EQ(GroupEntries(), (std::vector<std::string>{"Group 1", "Group 2", "Group 3", "Group 4", "Group 5",
                                                        "Group 6", "Group 7", "Group 8", "All Groups"}));
}

TEST(GroupEditing, TheQuestionsAreLetterForLetter) {
    EXPECT_EQ(ClearGroupQuestion(3).Text, "Select OK to clear Group 3's logic settings.  To abort press "
                                          "cancel.\r\nNote: All Timer and Latch Units "
                                          "will be cleared for the group,not just the one being displayed.");
    EXPECT_EQ(ClearGroupQuestion(AllGroups).Text.substr(0, 34), "Select OK to clear All Groups's lo");
    EXPECT_EQ(ClearGroupQuestion(3).Title, "Confirm Group Clear Selection");
    EXPECT_EQ(CopyGroupQuestion(1, AllGroups).Text,
              "Select OK to copy from Group 1 to All Groups.  To abort the copy press cancel.\r\nNote: All "
              "Timer and "
              "Latch Units will be copied for the group,not just the one being displayed.");
    EXPECT_EQ(CopyGroupQuestion(1, 2).Title, "Confirm Group Copy Selection");
    EXPECT_EQ(ClearUnitQuestion().Text,
              "Select OK to clear all the settings on the currently displayed form.  To abort press cancel.");
    EXPECT_EQ(ClearUnitQuestion().Title, "Confirm Group Clear Selection");
    for (const MessageBox& question : {ClearGroupQuestion(1), CopyGroupQuestion(1, 2), ClearUnitQuestion()}) {
        EXPECT_EQ(question.Icon, MessageIcon::Exclamation);
        EXPECT_EQ(question.Buttons, MessageButtons::OkCancel);
    }
    EXPECT_EQ(SameGroupNotice().Text, "Can not copy to the same group.");
    EXPECT_EQ(SameGroupNotice().Icon, MessageIcon::Exclamation);
    EXPECT_EQ(SameGroupNotice().Buttons, MessageButtons::Ok);
}

TEST(GroupEditing, ClearingAGroupEmptiesItAndNoOther) {
    LogicConfig config = ManifoldLogic();
    const LogicConfig before = config;
    EXPECT_EQ(ClearGroups(config, 3), std::vector<int>{3});
    EXPECT_EQ(config.Group(3), LogicGroup{});
    EXPECT_TRUE(config.Modified);
    config.Group(3) = before.Group(3);
    EXPECT_EQ(config.Groups, before.Groups);
}

TEST(GroupEditing, ClearingAllGroupsStopsAtTheGroupCount) {
    LogicConfig config = ManifoldLogic();
    const LogicConfig before = config;
    config.GroupCount = 6;
    EXPECT_EQ(ClearGroups(config, AllGroups), (std::vector<int>{1, 2, 3, 4, 5, 6}));
    for (int group = 1; group <= 6; ++group) {
        EXPECT_EQ(config.Group(group), LogicGroup{}) << group;
    }
    EXPECT_EQ(config.Group(7), before.Group(7));
    EXPECT_EQ(config.Group(8), before.Group(8));
}

TEST(GroupEditing, AClearedInputOfAVdr810HoldsItsUnconnectedSignal) {
    LogicConfig config = ManifoldLogic();
    config.RelayModel = RelayKind::Vdr810;
    config.Coding = {1000, 400};
    ClearGroups(config, 2);
    EXPECT_EQ(config.InputCode(2, 10, 16), 400);
    EXPECT_EQ(config.Group(2).Timer(6), UnitTimer{});
    EXPECT_EQ(config.Group(2).OutputMap(8, 8), 0U);
}

TEST(GroupEditing, NoChoiceCountsAsGroupOne) {
    LogicConfig config = ManifoldLogic();
    EXPECT_EQ(ClearGroups(config, 0), std::vector<int>{1});
    EXPECT_FALSE(CanCopy(0, 1));
    EXPECT_FALSE(CanCopy(1, 0));
    EXPECT_FALSE(CanCopy(0, 0));
    EXPECT_EQ(CopyGroups(config, 0, 2), std::vector<int>{2});
    EXPECT_EQ(config.Group(2), config.Group(1));
}

TEST(GroupEditing, AGroupBeyondTheCountIsNeitherClearedNorCopied) {
    LogicConfig config = ManifoldLogic();
    config.GroupCount = 6;
    const LogicConfig before = config;
    EXPECT_TRUE(ClearGroups(config, 7).empty());
    EXPECT_TRUE(CopyGroups(config, 7, 1).empty());
    EXPECT_TRUE(CopyGroups(config, 1, 7).empty());
    EXPECT_EQ(config.Groups, before.Groups);
    EXPECT_FALSE(config.Modified);
    EXPECT_FALSE(ChoiceInLogic(config, 7));
    EXPECT_FALSE(ChoiceInLogic(config, 0));
    EXPECT_TRUE(ChoiceInLogic(config, 6));
    EXPECT_TRUE(ChoiceInLogic(config, AllGroups));
}

TEST(GroupEditing, ACopyOntoItselfChangesNothing) {
    LogicConfig config = ManifoldLogic();
    const LogicConfig before = config;
    for (const int group : {0, 1, 8, AllGroups}) {
        EXPECT_FALSE(CanCopy(group, group));
        EXPECT_TRUE(CopyGroups(config, group, group).empty());
    }
    EXPECT_EQ(config.Groups, before.Groups);
    EXPECT_FALSE(config.Modified);
}

TEST(GroupEditing, AllGroupsAreNoSource) {
    LogicConfig config = ManifoldLogic();
    const LogicConfig before = config;
    EXPECT_FALSE(CanCopy(AllGroups, 2));
    EXPECT_TRUE(CopyGroups(config, AllGroups, 2).empty());
    EXPECT_EQ(config.Groups, before.Groups);
}

TEST(GroupEditing, ACopyOntoAllGroupsLeavesTheSource) {
    LogicConfig config = ManifoldLogic();
    const LogicGroup source = config.Group(5);
    EXPECT_EQ(CopyGroups(config, 5, AllGroups), (std::vector<int>{1, 2, 3, 4, 6, 7, 8}));
    for (int group = 1; group <= MaxGroups; ++group) {
        EXPECT_EQ(config.Group(group), source) << group;
    }
    EXPECT_TRUE(config.Modified);
}

TEST(GroupEditing, ACopyOfTheOnlyGroupOntoAllMarksTheLogicModified) {
    LogicConfig config;
    config.GroupCount = 1;
    config.Group(1).Timer(1).PickUp = 5;
    const auto before = config.Groups;
    EXPECT_TRUE(CopyGroups(config, 1, AllGroups).empty());
    EXPECT_TRUE(config.Modified);
    EXPECT_EQ(before, config.Groups);
}

TEST(GroupEditing, EveryGroupOfALogicCanBeChosenThoseThatAreNotShownToo) {
    LogicConfig config;
    config.RelayModel = RelayKind::Vdr810;
    config.GroupCount = 8;
    EXPECT_TRUE(ChoiceInLogic(config, 7));
    EXPECT_TRUE(ChoiceInLogic(config, 8));
    EXPECT_EQ(7, NextGroup(config, 6));
    EXPECT_EQ(1, NextGroup(config, 8));
    config.GroupCount = 6;
    EXPECT_FALSE(ChoiceInLogic(config, 7));
}

TEST(GroupEditing, ACopyIsFirstOfferedOntoTheNextGroup) {
    LogicConfig config = ManifoldLogic();
    EXPECT_EQ(NextGroup(config, 1), 2);
    EXPECT_EQ(NextGroup(config, 8), 1);
    config.GroupCount = 6;
    EXPECT_EQ(NextGroup(config, 6), 1);
}

RC_GTEST_PROP(GroupEditingProperty, ACopyMakesTheTargetsEqualAndTouchesNoOther, ()) {
    LogicConfig config = ManifoldLogic();
    config.GroupCount = *rc::gen::inRange(1, MaxGroups + 1);
    const LogicConfig before = config;
    const int from = *rc::gen::inRange(0, AllGroups + 1);
    const int to = *rc::gen::inRange(0, AllGroups + 1);
    const std::vector<int> targets = CopyGroups(config, from, to);
    for (int group = 1; group <= MaxGroups; ++group) {
        const bool target = std::find(targets.begin(), targets.end(), group) != targets.end();
        RC_ASSERT(config.Group(group) == before.Group(target ? std::max(from, 1) : group));
        RC_ASSERT(!target || group <= config.GroupCount);
    }
    RC_ASSERT(config.Modified == !targets.empty());
}

RC_GTEST_PROP(GroupEditingProperty, ClearingAUnitTouchesItsOwnOnly, ()) {
    LogicConfig config = ManifoldLogic();
    const LogicConfig before = config;
    const int unit = *rc::gen::inRange(1, UnitsPerGroup + 1);
    ClearUnit(config.Group(2), unit, UnconnectedCode(config));
    for (int other = 1; other <= UnitsPerGroup; ++other) {
        const LogicUnit expected = other == unit ? LogicUnit{} : before.Group(2).Unit(other);
        RC_ASSERT(config.Group(2).Unit(other) == expected);
    }
    for (int timer = 1; timer <= TimersPerGroup; ++timer) {
        RC_ASSERT(config.Group(2).Timer(timer) ==
                  (timer == unit ? UnitTimer{} : before.Group(2).Timer(timer)));
    }
    for (int slot = 1; slot <= MapSlots; ++slot) {
        for (int bank = 1; bank <= MapBanks; ++bank) {
            RC_ASSERT(config.Group(2).OutputMap(slot, bank) ==
                      (slot == Unit(unit).MapSlot ? 0U : before.Group(2).OutputMap(slot, bank)));
        }
    }
    config.Group(2) = before.Group(2);
    RC_ASSERT(config.Groups == before.Groups);
}

} // namespace
} // namespace brindle
