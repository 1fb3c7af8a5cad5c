#include "report/print_job.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>

namespace brindle {
namespace {

using Places = std::vector<UnitPlace>;

PrintChoice Selected(const std::vector<int>& groups) {
    PrintChoice choice;
    choice.Scope = PrintScope::SelectedGroups;
    for (const int group : groups) {
        choice.GroupsTicked.at(static_cast<std::size_t>(group - 1)) = true;
    }
    return choice;
}

LogicConfig LogicOf(int groups) {
    LogicConfig config;
    config.GroupCount = groups;
    return config;
}

PrintChoice All() {
    PrintChoice choice;
    choice.Scope = PrintScope::EveryGroup;
    return choice;
}

/// A run that writes down what it is asked.
struct LoggedRun {
    std::vector<std::string> Log;
    std::size_t FailAt = 0;   ///< the print, from 1, that fails; 0 none
    std::size_t CancelAt = 0; ///< the question, from 1, that is answered with a cancel; 0 none
    std::size_t Prints = 0;
    std::size_t Questions = 0;

    static std::string Text(const UnitPlace& place) {
        return std::to_string(place.Group) + "." + std::to_string(place.Unit);
    }

    PrintResult Run(const Places& units) {
        PrintRun run;
        run.Show = [this](const UnitPlace& unit) { Log.push_back("show " + Text(unit)); };
        run.Print = [this](const UnitPlace& unit) {
            Log.push_back("print " + Text(unit));
            return ++Prints != FailAt;
        };
        run.Progress = [this](const UnitPlace& unit, std::size_t printed, std::size_t total) {
            Log.push_back(Text(unit) + " after " + std::to_string(printed) + " of " + std::to_string(total));
        };
        run.Cancelled = [this] { return ++Questions == CancelAt; };
        return RunPrint(units, run);
    }
};

TEST(UnitsToPrint, AllGroupsAreTheTenUnitsOfEveryGroupInOrder) {
    const Places units = UnitsToPrint(All(), LogicOf(8), {3, 4});
    ASSERT_EQ(80U, units.size());
    for (std::size_t index = 0; index < units.size(); ++index) {
        EXPECT_EQ((UnitPlace{static_cast<int>(index) / 10 + 1, static_cast<int>(index) % 10 + 1}),
                  units[index]);
    }
}

TEST(UnitsToPrint, AllGroupsEndWithTheLastGroupOfTheLogic) {
    const Places units = UnitsToPrint(All(), LogicOf(6), {1, 1});
    ASSERT_EQ(60U, units.size());
    EXPECT_EQ((UnitPlace{6, 10}), units.back());
}

TEST(UnitsToPrint, UnitsThatTheRelayLacksAreNotPrinted) {
    LogicConfig config = LogicOf(1);
    config.Vdr810.TimerCount = 1;
    config.Vdr810.LatchCount = 1;
    EXPECT_EQ((Places{{1, 1}, {1, 7}, {1, 8}}), UnitsToPrint(All(), config, {1, 1}));
}

TEST(UnitsToPrint, TheDisplayedUnitAloneWhateverIsTicked) {
    PrintChoice choice = Selected({1, 2});
    choice.Scope = PrintScope::ShownUnit;
    EXPECT_EQ((Places{{3, 7}}), UnitsToPrint(choice, LogicOf(8), {3, 7}));
}

TEST(UnitsToPrint, SelectedGroupsComeInGroupOrder) {
    const Places units = UnitsToPrint(Selected({7, 2}), LogicOf(8), {1, 1});
    ASSERT_EQ(20U, units.size());
    EXPECT_EQ((UnitPlace{2, 1}), units[0]);
    EXPECT_EQ((UnitPlace{2, 10}), units[9]);
    EXPECT_EQ((UnitPlace{7, 1}), units[10]);
    EXPECT_EQ((UnitPlace{7, 10}), units[19]);
}

TEST(UnitsToPrint, NoGroupTickedIsNothingToPrint) {
    EXPECT_TRUE(UnitsToPrint(Selected({}), LogicOf(8), {1, 1}).empty());
}

TEST(UnitsToPrint, ATickedGroupThatTheLogicHasNotDoesNotCount) {
    EXPECT_TRUE(UnitsToPrint(Selected({7, 8}), LogicOf(6), {1, 1}).empty());
}

RC_GTEST_PROP(UnitsToPrint, SelectingEveryGroupIsAllGroups, ()) {
    const int groups = *rc::gen::inRange(1, 9);
    RC_ASSERT(UnitsToPrint(Selected({1, 2, 3, 4, 5, 6, 7, 8}), LogicOf(groups), {1, 1}) ==
              UnitsToPrint(All(), LogicOf(groups), {1, 1}));
}

TEST(PrintNotices, SayWhatHappenedToTheLetter) {
    const MessageBox none = NoGroupsNotice();
    EXPECT_EQ("No groups were selected to print.", none.Text);
    EXPECT_EQ(MessageIcon::Exclamation, none.Icon);
    EXPECT_EQ(MessageButtons::Ok, none.Buttons);
    const MessageBox failed = PrintFailedNotice();
    EXPECT_EQ("There was an error trying to Print the Form.", failed.Text);
    EXPECT_EQ("Print Error", failed.Title);
    EXPECT_EQ(MessageButtons::Ok, failed.Buttons);
}

TEST(RunPrint, ShowsEachUnitBeforeItIsPrinted) {
    LoggedRun run;
    const PrintResult result = run.Run({{1, 1}, {2, 7}});
    EXPECT_EQ((std::vector<std::string>{"1.1 after 0 of 2", "show 1.1", "print 1.1", "2.7 after 1 of 2",
                                        "show 2.7", "print 2.7"}),
              run.Log);
    EXPECT_EQ(PrintOutcome::Done, result.Outcome);
    EXPECT_EQ(2U, result.Printed);
}

TEST(RunPrint, AUnitThatFailsEndsTheRun) {
    LoggedRun run;
    run.FailAt = 2;
    const PrintResult result = run.Run(UnitsToPrint(All(), LogicOf(8), {1, 1}));
    EXPECT_EQ(PrintOutcome::Failed, result.Outcome);
    EXPECT_EQ(1U, result.Printed);
    EXPECT_EQ("print 1.2", run.Log.back());
}

TEST(RunPrint, ACancelEndsTheRunBetweenUnits) {
    LoggedRun run;
    run.CancelAt = 3;
    const PrintResult result = run.Run(UnitsToPrint(All(), LogicOf(8), {1, 1}));
    EXPECT_EQ(PrintOutcome::Cancelled, result.Outcome);
    EXPECT_EQ(3U, result.Printed);
    EXPECT_EQ("1.4 after 3 of 80", run.Log.back()) << "the button is heard while progress is shown";
}

TEST(RunPrint, ACancelHeardWhileProgressIsShownPrintsNoMore) {
    bool cancelled = false;
    std::vector<int> printed;
    PrintRun run;
    run.Show = [](const UnitPlace& /*unit*/) {};
    run.Print = [&](const UnitPlace& unit) {
        printed.push_back(unit.Unit);
        return true;
    };
    run.Progress = [&](const UnitPlace& unit, std::size_t /*printed*/, std::size_t /*total*/) {
        cancelled = cancelled || unit.Unit == 4;
    };
    run.Cancelled = [&] { return cancelled; };
    EXPECT_EQ(PrintOutcome::Cancelled, RunPrint(UnitsToPrint(All(), LogicOf(1), {1, 1}), run).Outcome);
    EXPECT_EQ((std::vector<int>{1, 2, 3}), printed);
}

TEST(RunPrint, IsNotCancelledOnceTheLastUnitIsPrinted) {
    LoggedRun run;
    run.CancelAt = 2;
    EXPECT_EQ(PrintOutcome::Done, run.Run({{1, 1}, {1, 2}}).Outcome);
}

RC_GTEST_PROP(RunPrint, PrintsTheUnitsBeforeTheFirstFailureAndNoOther, ()) {
    const auto count = *rc::gen::inRange<std::size_t>(1, 80);
    LoggedRun run;
    run.FailAt = *rc::gen::inRange<std::size_t>(0, 100);
    Places units = UnitsToPrint(All(), LogicOf(8), {1, 1});
    units.resize(count);
    const PrintResult result = run.Run(units);
    const bool fails = run.FailAt >= 1 && run.FailAt <= count;
    RC_ASSERT((result.Outcome == PrintOutcome::Failed) == fails);
    RC_ASSERT(result.Printed == (fails ? run.FailAt - 1 : count));
    RC_ASSERT(run.Prints == (fails ? run.FailAt : count));
}

} // namespace
} // namespace brindle
