#include "report/logic_report.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace brindle {
namespace {

using Lines = std::vector<std::string>;

struct Reported {
    LogicConfig Config;
    SignalCatalogue Catalogue;
    UnitReportRequest Request;

    explicit Reported(float version) : Catalogue(BuildVdr812Catalogue(version)) {
        MakeNewVdr812(Config, version);
        Request = {1, 1, "New_File.pl", "5/4/2001", "10:12:33 AM", false, {true, true, true, true}};
    }

    [[nodiscard]] Lines Report() const { return BuildUnitReport(Config, Catalogue, Request); }

    UnitInput& Code(int input) {
        return Config.Group(Request.Group).Unit(Request.Unit).Inputs.at(static_cast<std::size_t>(input - 1));
    }

    [[nodiscard]] std::string Text(UnitInput code, bool numbers = false) const {
        return ReportInputText(Catalogue, Config.Coding, code, numbers);
    }
};

bool Holds(const Lines& lines, const std::string& line) {
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

const std::string HeadingHyphens =
    "-------------------------------------------------------------------------------------";

TEST(LogicReport, ATimerOfVersion100LineByLine) {
    Reported reported(Version100);
    reported.Request.Group = 3;
    reported.Request.Unit = 2;
    reported.Request.FileName = "C:\\Logic\\x.pl";
    reported.Code(1) = 2;
    reported.Code(2) = 1;
    reported.Code(3) = 251;
    reported.Code(4) = 255;
    reported.Code(16) = 128;
    reported.Config.Group(3).Timer(2) = {1000, 600000};
    reported.Config.Group(3).OutputMap(2, 1) = 0x10000 | 0x2000 | 0x200;
    const Lines expected{
        "Programmable Logic For Group G3 - T2   File: C:\\Logic\\x.pl 5/4/2001 10:12:33 AM",
        HeadingHyphens,
        "",
        "T2 AND gate 1",
        "--------------",
        "T2:11 Z1GT",
        "T2:12 TRUE",
        "T2:13 (NOT) ZONE 2 TRIP",
        "T2:14 FALSE",
        "",
        "T2 AND gate 2",
        "--------------",
        "T2:21 NO CONNECT",
        "T2:22 NO CONNECT",
        "T2:23 NO CONNECT",
        "T2:24 NO CONNECT",
        "",
        "T2 AND gate 3",
        "--------------",
        "T2:31 NO CONNECT",
        "T2:32 NO CONNECT",
        "T2:33 NO CONNECT",
        "T2:34 NO CONNECT",
        "",
        "T2 AND gate 4",
        "--------------",
        "T2:41 NO CONNECT",
        "T2:42 NO CONNECT",
        "T2:43 NO CONNECT",
        "T2:44 (NOT) ",
        "",
        "T2 Timer Settings",
        "--------------------",
        "T2:PU Timer = 1000 (milliseconds)",
        "T2:DO Timer = 600000 (milliseconds)",
        "",
        "T2 Relay Output Mapping",
        "----------------------------------------",
        "Rly2, Rly5, Rly9",
        "",
        "",
        "",
        "",
    };
    EXPECT_EQ(85U, HeadingHyphens.size());
    EXPECT_EQ(expected, reported.Report());
}

TEST(LogicReport, ALatchOfVersion230LineByLine) {
    Reported reported(Version230);
    reported.Request.Group = 8;
    reported.Request.Unit = 9;
    reported.Request.GateRowsShown = {false, true, true, false};
    reported.Request.NumbersShown = true;
    reported.Code(1) = 7; // in a row that is not in use
    reported.Code(5) = 102;
    reported.Code(8) = 156;
    reported.Code(9) = 16;
    const Lines expected{
        "Programmable Logic For Group G8 - R2   File: New_File.pl 5/4/2001 10:12:33 AM",
        HeadingHyphens,
        "",
        "R2 AND gate 1",
        "--------------",
        "R2:11 66 -> 3P TRIP SEAL",
        "R2:12 0 -> NO CONNECT",
        "R2:13 0 -> NO CONNECT",
        "R2:14 (NOT) 9C -> BREAKER OPEN",
        "",
        "R2 AND gate 2",
        "--------------",
        "R2:21 10 -> OUTER BLINDER",
        "R2:22 0 -> NO CONNECT",
        "R2:23 0 -> NO CONNECT",
        "R2:24 0 -> NO CONNECT",
        "",
        "",
        "R2 Relay Output Mapping",
        "----------------------------------------",
        "None",
        "",
        "",
        "",
        "",
    };
    EXPECT_EQ(expected, reported.Report());
}

TEST(LogicReport, AUnitWithNoGateShownHasHeadTimerAndRelaysOnly) {
    Reported reported(Version100);
    reported.Request.GateRowsShown = {false, false, false, false};
    const Lines lines = reported.Report();
    const Lines expected{lines[0],
                         HeadingHyphens,
                         "",
                         "T1 Timer Settings",
                         "--------------------",
                         "T1:PU Timer = 0 (milliseconds)",
                         "T1:DO Timer = 0 (milliseconds)",
                         "",
                         "T1 Relay Output Mapping",
                         "----------------------------------------",
                         "None",
                         "",
                         "",
                         "",
                         ""};
    EXPECT_EQ(expected, lines);
}

TEST(LogicReport, AGateBehindAHiddenOneIsNumberedAnewAndKeepsItsInputs) {
    Reported reported(Version100);
    reported.Request.GateRowsShown = {false, true, false, true};
    reported.Code(5) = 2;
    reported.Code(13) = 3;
    const Lines lines = reported.Report();
    EXPECT_EQ("T1 AND gate 1", lines[3]);
    EXPECT_EQ("T1:11 Z1GT", lines[5]);
    EXPECT_EQ("T1 AND gate 2", lines[10]);
    EXPECT_EQ("T1:21 Z1PT", lines[12]);
    EXPECT_FALSE(Holds(lines, "T1 AND gate 3"));
}

TEST(LogicReport, OnlyTimersHaveTimes) {
    Reported reported(Version230);
    for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
        reported.Request.Unit = unit;
        const Lines lines = reported.Report();
        EXPECT_EQ(IsTimer(unit), Holds(lines, std::string(Unit(unit).Tag) + " Timer Settings")) << unit;
    }
}

TEST(LogicReport, TimesBeyondWhatTheEditorAdmitsAreShownAsTheyAre) {
    Reported reported(Version230);
    reported.Config.Group(1).Timer(1) = {-1, 2147483647};
    const Lines lines = reported.Report();
    EXPECT_TRUE(Holds(lines, "T1:PU Timer = -1 (milliseconds)"));
    EXPECT_TRUE(Holds(lines, "T1:DO Timer = 2147483647 (milliseconds)"));
}

TEST(LogicReport, WithNumbersOffNoCodeIsShown) {
    Reported reported(Version100);
    for (int input = 1; input <= InputsPerUnit; ++input) {
        reported.Code(input) = 240 + input - 1;
    }
    for (const std::string& line : reported.Report()) {
        EXPECT_EQ(std::string::npos, line.find(" -> ")) << line;
    }
}

TEST(LogicReport, AGroupOrUnitOutOfRangeIsAFaultOfTheCaller) {
    for (const auto& [group, unit] : {std::pair{0, 1}, {9, 1}, {1, 0}, {1, 11}, {0, 10}, {-1, 1}}) {
        Reported reported(Version230);
        reported.Request.Group = group;
        reported.Request.Unit = unit;
        EXPECT_THROW((void)reported.Report(), std::out_of_range) << group << " " << unit;
        EXPECT_THROW(RelayListText(reported.Config, group, unit), std::out_of_range) << group << " " << unit;
    }
}

TEST(ReportInputText, TheUpperHalfIsPrefixedWithNotAndNamedByItsBaseSignal) {
    const Reported reported(Version230);
    EXPECT_EQ("(NOT) Z1GT", reported.Text(254));
    EXPECT_EQ("Z1GT", reported.Text(2));
    EXPECT_EQ("(NOT) FE -> Z1GT", reported.Text(254, true));
}

TEST(ReportInputText, FalseNeverCarriesThePrefix) {
    const Reported reported(Version230);
    EXPECT_EQ("FALSE", reported.Text(255));
    EXPECT_EQ("FF -> FALSE", reported.Text(255, true));
}

TEST(ReportInputText, ExactlyHalfIsInverted) {
    const Reported reported(Version230);
    EXPECT_EQ("(NOT) 80 -> ", reported.Text(128, true));
    EXPECT_EQ("7F -> ", reported.Text(127, true));
}

TEST(ReportInputText, ACodeWithoutASignalHasAnEmptyName) {
    const Reported reported(Version230);
    EXPECT_EQ("", reported.Text(110));
    EXPECT_EQ("(NOT) ", reported.Text(140));
}

TEST(RelayList, NamesEveryOutputInRangeByItsNumber) {
    Reported reported(Version230);
    reported.Config.Group(1).OutputMap(1, 1) = 0xFFFFFFFF;
    EXPECT_EQ("Rly2, Rly3, Rly4, Rly5, Rly6, Rly7, Rly8, Rly9, Rly10, Rly11, Rly12, Rly13",
              RelayListText(reported.Config, 1, 1));
}

TEST(RelayList, OutputsBeyondTheRangeOfTheVersionAreNotListed) {
    Reported reported(Version100);
    reported.Config.Group(1).OutputMap(1, 1) = 0x20000 | 0x200 | 0x100 | 1; // 1, 9, 10 and 18
    EXPECT_EQ("Rly9", RelayListText(reported.Config, 1, 1));
    reported.Config.Group(1).OutputMap(1, 1) = 0x20000 | 0x100;
    EXPECT_EQ("None", RelayListText(reported.Config, 1, 1));
}

TEST(RelayList, ARangeWiderThanTheVdr812sBitsEndsWithThem) {
    Reported reported(Version230);
    reported.Config.FirstOutput = -5;
    reported.Config.LastOutput = 40;
    reported.Config.Group(1).OutputMap(1, 1) = 0x20001;
    EXPECT_EQ("Rly1, Rly18", RelayListText(reported.Config, 1, 1));
}

TEST(RelayList, OtherBanksOfAVdr812MeanNothing) {
    Reported reported(Version230);
    reported.Config.Group(1).OutputMap(1, 2) = 0xFFFF;
    EXPECT_EQ("None", RelayListText(reported.Config, 1, 1));
}

TEST(RelayList, BothSidesOfALatchListTheSameOutputs) {
    Reported reported(Version230);
    reported.Config.Group(2).OutputMap(7, 1) = 0x10000;
    reported.Config.Group(2).OutputMap(8, 1) = 0x20;
    EXPECT_EQ("Rly2", RelayListText(reported.Config, 2, 7));
    EXPECT_EQ("Rly2", RelayListText(reported.Config, 2, 8));
    EXPECT_EQ("Rly13", RelayListText(reported.Config, 2, 9));
    EXPECT_EQ("Rly13", RelayListText(reported.Config, 2, 10));
}

Reported ReportedVdr810(std::int16_t first, std::int16_t last) {
    Reported reported(Version230);
    reported.Config.RelayModel = RelayKind::Vdr810;
    reported.Config.FirstOutput = first;
    reported.Config.LastOutput = last;
    return reported;
}

TEST(RelayList, AVdr810CountsFromItsLowestOutputDownFromBit15OfTheFirstWord) {
    Reported reported = ReportedVdr810(1, 20);
    reported.Config.Group(1).OutputMap(3, 1) = 0x8001;
    reported.Config.Group(1).OutputMap(3, 2) = 0xFFFF;
    EXPECT_EQ("Rly1, Rly16, Rly17, Rly18, Rly19, Rly20", RelayListText(reported.Config, 1, 3));
}

TEST(RelayList, AVdr810UsesTheLow16BitsAlone) {
    Reported reported = ReportedVdr810(4, 35);
    reported.Config.Group(1).OutputMap(1, 1) = 0xFFFF0000;
    EXPECT_EQ("None", RelayListText(reported.Config, 1, 1));
    reported.Config.Group(1).OutputMap(1, 1) = 0x4000;
    reported.Config.Group(1).OutputMap(1, 2) = 1;
    EXPECT_EQ("Rly5, Rly35", RelayListText(reported.Config, 1, 1));
}

TEST(RelayList, AWordBeyondTheEighthIsAFaultOfTheCaller) {
    EXPECT_EQ("None", RelayListText(ReportedVdr810(1, 128).Config, 1, 1));
    EXPECT_THROW(RelayListText(ReportedVdr810(1, 129).Config, 1, 1), std::out_of_range);
}

TEST(JoinReportLines, EndsEveryLineWithCrLf) {
    EXPECT_EQ("a\r\n\r\nb\r\n", JoinReportLines({"a", "", "b"}));
    EXPECT_EQ("", JoinReportLines({}));
}

RC_GTEST_PROP(LogicReport, HasTheSameShapeWhateverTheCodesAre, ()) {
    Reported reported(Version230);
    for (int input = 1; input <= InputsPerUnit; ++input) {
        reported.Code(input) = *rc::gen::arbitrary<std::int32_t>();
    }
    reported.Config.Group(1).OutputMap(1, 1) = *rc::gen::arbitrary<std::uint32_t>();
    reported.Request.NumbersShown = *rc::gen::arbitrary<bool>();
    std::size_t gates = 0;
    for (bool& shown : reported.Request.GateRowsShown) {
        shown = *rc::gen::arbitrary<bool>();
        gates += shown ? 1U : 0U;
    }
    const Lines lines = reported.Report();
    RC_ASSERT(lines.size() == 15U + 7U * gates);
    RC_ASSERT(std::none_of(lines.begin(), lines.end(), [](const std::string& line) {
        return line.find_first_of("\r\n\t") != std::string::npos;
    }));
}

} // namespace
} // namespace brindle
