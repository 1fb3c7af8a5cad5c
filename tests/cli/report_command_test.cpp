#include "model/signal_catalogue.h"
#include "report/logic_report.h"
#include "support/command_run.h"
#include "support/program_bytes.h"
#include "support/vdr810_scheme.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

/// "G3 - T2" of every heading in the output, in order.
std::vector<std::string> ReportedUnits(const std::string& output) {
    const std::string start = "Programmable Logic For Group ";
    std::vector<std::string> units;
    for (std::size_t at = output.find(start); at != std::string::npos; at = output.find(start, at + 1)) {
        units.push_back(output.substr(at + start.size(), std::string("G3 - T2").size()));
    }
    return units;
}

struct ReportRun : CommandRun {
    ReportRun() { Files.AddFile("/home/me/x.pl", NewProgramBytes(Version230)); }
};

TEST(ReportCommand, WritesTheReportOfAUnitAsAReportFileHoldsIt) {
    ReportRun run;
    ASSERT_EQ(ExitWell, run.Run({"report", "/home/me/x.pl", "--group", "3", "--unit", "S1"}));
    LogicConfig config;
    MakeNewVdr812(config, Version230);
    const UnitReportRequest request{3,          8,     "/home/me/x.pl",           "5/4/2001",
                                    "10:12:33", false, {false, true, true, false}};
    EXPECT_EQ(JoinReportLines(BuildUnitReport(config, BuildVdr812Catalogue(Version230), request)),
              run.Out.str());
    EXPECT_EQ("", run.Err.str());
}

TEST(ReportCommand, TheHeadingShowsTheAbsolutePathAndNow) {
    ReportRun run;
    run.Files.AddFile("x.pl", NewProgramBytes(Version230));
    ASSERT_EQ(ExitWell, run.Run({"report", "x.pl", "--group", "1", "--unit", "T1"}));
    const std::string heading =
        "Programmable Logic For Group G1 - T1   File: /home/me/x.pl 5/4/2001 10:12:33\r\n";
    EXPECT_EQ(heading, run.Out.str().substr(0, heading.size()));
}

TEST(ReportCommand, WithoutASelectionAllUnitsAreReportedInGroupAndUnitOrder) {
    ReportRun run;
    ASSERT_EQ(ExitWell, run.Run({"report", "/home/me/x.pl"}));
    const std::vector<std::string> units = ReportedUnits(run.Out.str());
    ASSERT_EQ(80U, units.size());
    EXPECT_EQ("G1 - T1", units[0]);
    EXPECT_EQ("G1 - S2", units[9]);
    EXPECT_EQ("G2 - T1", units[10]);
    EXPECT_EQ("G8 - S2", units[79]);
}

TEST(ReportCommand, ASelectionIsReportedOnceAndInOrderHoweverItWasAskedFor) {
    ReportRun run;
    ASSERT_EQ(ExitWell, run.Run({"report", "--unit", "s2", "--group", "7", "--unit", "R1", "/home/me/x.pl",
                                 "--group", "2", "--unit", "S2", "--group", "7"}));
    EXPECT_EQ((std::vector<std::string>{"G2 - R1", "G2 - S2", "G7 - R1", "G7 - S2"}),
              ReportedUnits(run.Out.str()));
}

TEST(ReportCommand, TagsAreReadInEitherCase) {
    ReportRun run;
    ASSERT_EQ(ExitWell, run.Run({"report", "/home/me/x.pl", "--group", "1", "--unit", "t6"}));
    EXPECT_EQ((std::vector<std::string>{"G1 - T6"}), ReportedUnits(run.Out.str()));
}

TEST(ReportCommand, GatesAreShownAsTheFilesVersionHasThem) {
    ReportRun run;
    run.Files.AddFile("/home/me/old.pl", NewProgramBytes(Version100));
    ASSERT_EQ(ExitWell, run.Run({"report", "/home/me/old.pl", "--group", "1", "--unit", "T1"}));
    EXPECT_NE(std::string::npos, run.Out.str().find("T1 AND gate 4\r\n"));
    ASSERT_EQ(ExitWell, run.Run({"report", "/home/me/x.pl", "--group", "1", "--unit", "T1"}));
    EXPECT_NE(std::string::npos, run.Out.str().find("T1 AND gate 2\r\n"));
    EXPECT_EQ(std::string::npos, run.Out.str().find("T1 AND gate 3\r\n"));
}

TEST(ReportCommand, CodesAreShownOnRequest) {
    ReportRun run;
    ASSERT_EQ(ExitWell, run.Run({"report", "/home/me/x.pl", "--group", "1", "--unit", "T1", "--numbers"}));
    EXPECT_NE(std::string::npos, run.Out.str().find("T1:11 0 -> NO CONNECT\r\n"));
}

TEST(ReportCommand, AGroupOutOf1To8IsABadArgument) {
    ReportRun run;
    for (const char* group : {"0", "9", "-1"}) {
        EXPECT_EQ(ExitBadArguments, run.Run({"report", "/home/me/x.pl", "--group", group})) << group;
        EXPECT_EQ("", run.Out.str());
        EXPECT_EQ("brindle-cli: group " + std::string(group) + " is not in 1 to 8\n", run.Err.str());
    }
}

TEST(ReportCommand, AnUnknownTagIsABadArgument) {
    ReportRun run;
    EXPECT_EQ(ExitBadArguments, run.Run({"report", "/home/me/x.pl", "--unit", "T7"}));
    EXPECT_EQ("brindle-cli: unit \"T7\" is none of T1 to T6, R1, S1, R2, S2\n", run.Err.str());
    EXPECT_EQ("", run.Out.str());
}

TEST(ReportCommand, BadArgumentsAreToldBeforeTheFileIsTouched) {
    ReportRun run;
    EXPECT_EQ(ExitBadArguments, run.Run({"report", "/home/me/x.pl", "--group", "9"}));
    EXPECT_TRUE(run.Files.Log().empty());
}

TEST(ReportCommand, AMissingFileFailsWithItsNameAndCause) {
    ReportRun run;
    EXPECT_EQ(ExitFailed, run.Run({"report", "/home/me/none.pl"}));
    EXPECT_EQ("", run.Out.str());
    EXPECT_EQ(0U, run.Err.str().find("brindle-cli: /home/me/none.pl: File not found (error 53, "));
    EXPECT_EQ(run.Err.str().size() - 1, run.Err.str().find('\n')) << "one line";
}

TEST(ReportCommand, AFileThatIsNoProgramIsReportedAndFound) {
    const std::string program = NewProgramBytes(Version230);
    const std::string script = "#!/usr/bin/perl\nprint 1;\n";
    const std::string logicFile = SchemeLogicFile(2.30, 12);

    struct Foreign {
        std::string Bytes;
        std::string Told;
    };

    for (const auto& [bytes, told] :
         {Foreign{program.substr(0, 100),
                  "This is not a VDR812 program: 100 bytes instead of 2048, the missing ones read as zero."},
          Foreign{program + "tail",
                  "This is not a VDR812 program: 2052 bytes instead of 2048, the last ones ignored."},
          Foreign{"",
                  "This is not a VDR812 program: 0 bytes instead of 2048, the missing ones read as zero."},
          Foreign{script, "This is not a VDR812 program: it does not begin with \"plcd\" and holds 25 bytes "
                          "instead of 2048."},
          Foreign{"x" + program.substr(1), "This is not a VDR812 program: it does not begin with \"plcd\"."},
          Foreign{logicFile, "This is a VDR810 logic file, though its name does not end in .c10."}}) {
        ReportRun run;
        run.Files.AddFile("/home/me/foreign.pl", bytes);
        EXPECT_EQ(ExitFinding, run.Run({"report", "/home/me/foreign.pl", "--group", "1", "--unit", "T1"}));
        EXPECT_EQ((std::vector<std::string>{"G1 - T1"}), ReportedUnits(run.Out.str()));
        EXPECT_EQ("brindle-cli: /home/me/foreign.pl: " + told + "\n", run.Err.str());
    }
}

} // namespace
} // namespace brindle
