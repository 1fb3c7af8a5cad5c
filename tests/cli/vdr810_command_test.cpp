#include "support/command_run.h"
#include "support/vdr810_scheme.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

constexpr const char* ProgramsOption = "/opt/brindle/PLC00230_OPT00012.810";

/// The scheme's logic file as /home/me/x.c10, and its option file in the program's folder.
struct Vdr810Run : CommandRun {
    Vdr810Run() {
        Files.AddFolder("/opt");
        Files.AddFolder("/opt/brindle");
        Files.AddFile("/home/me/x.c10", SchemeLogicFile(2.3, 12));
        PutOption("/opt/brindle");
    }

    void PutOption(const std::string& folder) {
        Files.AddFile(folder + "/PLC00230_OPT00012.810", SchemeOptionFile(2.3, 12));
        Folders.FilesOf[folder] = {"PLC00230_OPT00012.810"};
    }

    void ForgetOption() { Folders.FilesOf.clear(); }
};

TEST(Vdr810Report, NamesSignalsAsTheOptionFileDoes) {
    Vdr810Run run;
    ASSERT_EQ(ExitWell, run.Run({"report", "/home/me/x.c10", "--group", "1", "--unit", "t1"}))
        << run.Err.str();
    EXPECT_NE(std::string::npos, run.Out.str().find("T1:11 (NOT) Z1P\r\nT1:12 FALSE\r\n")) << run.Out.str();
    EXPECT_NE(std::string::npos, run.Out.str().find("\r\nRly17\r\n"));
}

TEST(Vdr810Report, CoversTheGroupsThatTheLogicHas) {
    Vdr810Run run;
    run.Files.AddFile("/home/me/x.c10", SchemeLogicFile(2.3, 12, 3));
    ASSERT_EQ(ExitWell, run.Run({"report", "/home/me/x.c10", "--unit", "T1"}));
    EXPECT_NE(std::string::npos, run.Out.str().find("Group G3"));
    EXPECT_EQ(std::string::npos, run.Out.str().find("Group G4"));
    EXPECT_EQ(ExitBadArguments, run.Run({"report", "/home/me/x.c10", "--group", "4"}));
    EXPECT_EQ("brindle-cli: /home/me/x.c10: has no group 4, only 3\n", run.Err.str());
}

TEST(Vdr810Report, TakesTheOptionFileFromTheFolderThatIsNamed) {
    Vdr810Run run;
    run.ForgetOption();
    run.Files.AddFolder("/plc");
    run.PutOption("/plc");
    ASSERT_EQ(ExitWell,
              run.Run({"report", "/home/me/x.c10", "--group", "1", "--unit", "T1", "--plc-folder", "/plc"}));
    EXPECT_NE(std::string::npos, run.Out.str().find("(NOT) Z1P"));
}

TEST(Vdr810Report, ToldOfAMissingOptionFileItIsAFinding) {
    Vdr810Run run;
    run.ForgetOption();
    EXPECT_EQ(ExitFinding, run.Run({"report", "/home/me/x.c10", "--group", "1", "--unit", "T1"}));
    EXPECT_EQ("brindle-cli: " + std::string(ProgramsOption) + ": not there, so signals have no names\n",
              run.Err.str());
    EXPECT_NE(std::string::npos, run.Out.str().find("T1:11 (NOT) \r\n"));
}

TEST(Vdr810Report, ALogicFileWithListsOfItsOwnNeedsNoOptionFileAndMakesNone) {
    Vdr810Run run;
    run.ForgetOption();
    run.Files.Operations().Remove(ProgramsOption);
    run.Files.AddFile("/home/me/x.c10",
                      SchemeLogicFile(2.3, 12) + "<LABEL INFO>\r\n5,20,OWN\r\n5,255,FALSE\r\n");
    EXPECT_EQ(ExitWell, run.Run({"report", "/home/me/x.c10", "--group", "1", "--unit", "T1"}))
        << run.Err.str();
    EXPECT_NE(std::string::npos, run.Out.str().find("(NOT) OWN"));
    FileStatus status;
    run.Files.Operations().Status(ProgramsOption, status);
    EXPECT_EQ(FileType::Absent, status.Type);
}

TEST(Vdr810Report, AMalformedOptionFileIsAFindingAndTheFilesOwnListsHold) {
    Vdr810Run run;
    run.Files.AddFile(ProgramsOption, "identity\r\nx\r\n");
    run.Files.AddFile("/home/me/x.c10", SchemeLogicFile(2.3, 12) + "<LABEL INFO>\r\n5,20,OWN\r\n");
    EXPECT_EQ(ExitFinding, run.Run({"report", "/home/me/x.c10", "--group", "1", "--unit", "T1"}));
    EXPECT_EQ("brindle-cli: " + std::string(ProgramsOption) + ": Type mismatch (error 13, read " +
                  ProgramsOption + ", value 2 of the header)\n",
              run.Err.str());
    EXPECT_NE(std::string::npos, run.Out.str().find("(NOT) OWN"));
}

TEST(Vdr810Report, ARefusedFilePrintsTheLinesOfItsBox) {
    Vdr810Run run;
    run.Files.AddFile("/home/me/x.c10", SchemeLogicFile(2.3, 12) + "9,1\r\n");
    EXPECT_EQ(ExitFailed, run.Run({"dump", "/home/me/x.c10"}));
    EXPECT_EQ(
        "VDR810 File Read in Problem!\n(Unit 10 DATA 9)\nRecord type 9 is not known.\nArray Element = 18\n"
        "Aborting\n",
        run.Err.str());
    EXPECT_EQ("", run.Out.str());
}

TEST(Vdr810Report, MissingUnitsAreAFinding) {
    Vdr810Run run;
    const std::string whole = SchemeLogicFile(2.3, 12);
    run.Files.AddFile("/home/me/x.c10", whole.substr(0, whole.find("<LATCH 2 SET>")));
    EXPECT_EQ(ExitFinding, run.Run({"dump", "/home/me/x.c10"}));
    EXPECT_NE(std::string::npos, run.Err.str().find("lacks lines of these units: R2, S2."));
    EXPECT_NE(std::string::npos, run.Out.str().find("\"tag\": \"R2\", \"inputs\": [255, 255"));
}

TEST(Vdr810Report, TheModelCanBeNamedWhereTheExtensionSaysNothing) {
    Vdr810Run run;
    run.Files.AddFile("/home/me/x.txt", SchemeLogicFile(2.3, 12));
    EXPECT_EQ(ExitWell, run.Run({"dump", "/home/me/x.txt", "--model", "VDR810"})) << run.Err.str();
    EXPECT_NE(std::string::npos, run.Out.str().find("\"relay_model\": 2"));
    EXPECT_EQ(ExitFinding, run.Run({"dump", "/home/me/x.txt"})) << "read as a program";
    EXPECT_EQ(ExitBadArguments, run.Run({"dump", "/home/me/x.txt", "--model", "vdr8"}));
}

TEST(Vdr810Dump, HoldsTheHeaderAndBuildsTheSameFile) {
    Vdr810Run run;
    ASSERT_EQ(ExitWell, run.Run({"dump", "/home/me/x.c10"})) << run.Err.str();
    EXPECT_EQ(0U,
              run.Out.str().find("{\n  \"relay_model\": 2,\n  \"version\": \"2.30\",\n  \"group_count\": 8,\n"
                                 "  \"header\": {\n    \"identity\": \"Feeder scheme\",\n"
                                 "    \"format_number\": \"1.00\",\n    \"settings_version\": \"2.30\",\n"
                                 "    \"options\": 12,\n    \"group_count\": 8,\n    \"timers\": 6,\n"
                                 "    \"latches\": 2,\n    \"labels\": 9,\n    \"categories\": 4,\n"
                                 "    \"signals\": 256,\n    \"first_output\": 1,\n    \"last_output\": 20,\n"
                                 "    \"unconnected\": 255\n  },\n"));
    run.Files.AddFile("/home/me/x.json", run.Out.str());
    ASSERT_EQ(ExitWell, run.Run({"build", "/home/me/x.json", "/home/me/y.c10"})) << run.Err.str();
    EXPECT_EQ(SchemeLogicFile(2.3, 12), run.Files.Content("/home/me/y.c10"));
}

TEST(Vdr810Build, TheModelMustBeThatOfTheFile) {
    Vdr810Run run;
    ASSERT_EQ(ExitWell, run.Run({"dump", "/home/me/x.c10"}));
    run.Files.AddFile("/home/me/x.json", run.Out.str());
    EXPECT_EQ(ExitBadArguments, run.Run({"build", "/home/me/x.json", "/home/me/y.pl"}));
    EXPECT_EQ("brindle-cli: /home/me/x.json: relay_model 2 is not that of /home/me/y.pl\n", run.Err.str());
    EXPECT_EQ(ExitBadArguments, run.Run({"build", "/home/me/x.json", "/home/me/y.c10", "--model", "vdr812"}));
    EXPECT_EQ(ExitWell, run.Run({"build", "/home/me/x.json", "/home/me/y.pl", "--model", "vdr810"}));
}

/// The refusal of the dump with `from` replaced by `to`.
std::string RefusalOf(const std::string& from, const std::string& to) {
    Vdr810Run run;
    run.Run({"dump", "/home/me/x.c10"});
    std::string model = run.Out.str();
    const std::size_t place = model.find(from);
    EXPECT_NE(std::string::npos, place) << from;
    model.replace(place, from.size(), to);
    run.Files.AddFile("/home/me/x.json", model);
    EXPECT_EQ(ExitFailed, run.Run({"build", "/home/me/x.json", "/home/me/y.c10"})) << to;
    const std::string start = "brindle-cli: /home/me/x.json: ";
    EXPECT_EQ(0U, run.Err.str().find(start)) << run.Err.str();
    return run.Err.str().substr(start.size());
}

TEST(Vdr810Build, RefusesWhatAFileCannotHold) {
    EXPECT_EQ("header.identity: a comma or line end, which the file has no place for\n",
              RefusalOf("Feeder scheme", "Feeder, scheme"));
    EXPECT_EQ("header.settings_version: not a number with two decimals\n",
              RefusalOf("\"settings_version\": \"2.30\"", "\"settings_version\": \"2.3\""));
    EXPECT_EQ("header.options: 40000 is not in -32768 to 32767\n",
              RefusalOf("\"options\": 12", "\"options\": 40000"));
    EXPECT_EQ("header.group_count: 9 is not in 1 to 8\n",
              RefusalOf("12,\n    \"group_count\": 8", "12,\n    \"group_count\": 9"));
    EXPECT_EQ("header.timers: 7 is not in 0 to 6\n", RefusalOf("\"timers\": 6", "\"timers\": 7"));
    EXPECT_EQ("header.latches: -1 is not in 0 to 2\n", RefusalOf("\"latches\": 2", "\"latches\": -1"));
    EXPECT_EQ("header.signals: 1 is not in 2 to 2147483647\n",
              RefusalOf("\"signals\": 256", "\"signals\": 1"));
    EXPECT_EQ("header.last_output: 129 is not in 1 to 128\n",
              RefusalOf("\"last_output\": 20", "\"last_output\": 129"));
    EXPECT_EQ("header.unconnected: missing\n", RefusalOf(",\n    \"unconnected\": 255", ""));
    EXPECT_EQ("group_count: 7 is not in 8 to 8\n", RefusalOf("\"group_count\": 8", "\"group_count\": 7"));
    EXPECT_EQ("version: not \"2.30\", as header.settings_version says\n",
              RefusalOf("\"version\": \"2.30\"", "\"version\": \"2.31\""));
    EXPECT_EQ("groups[0].units[0].inputs[0]: 2147483648 is not in -2147483648 to 2147483647\n",
              RefusalOf("\"inputs\": [255", "\"inputs\": [2147483648"));
    EXPECT_EQ("groups[0].output_map[0][2]: 1 is not in 0 to 0\n",
              RefusalOf("[0, 32768, 0, 0, 0", "[0, 32768, 1, 0, 0"));
    EXPECT_EQ("relay_model: 3 is not in 1 to 2\n", RefusalOf("\"relay_model\": 2", "\"relay_model\": 3"));
}

TEST(Vdr810Build, RefusesLogicForUnitsThatTheRelayLacks) {
    EXPECT_EQ("groups[0].units[0]: not empty, and the header promises no such unit\n",
              RefusalOf("\"timers\": 6", "\"timers\": 0"));
}

TEST(Vdr810Signals, ListsAnOptionFile) {
    Vdr810Run run;
    ASSERT_EQ(ExitWell, run.Run({"signals", ProgramsOption})) << run.Err.str();
    EXPECT_EQ(0U, run.Out.str().find("Number  Code  Name         Category   Enabled  Visible\n"
                                     "     0     0  NO CONNECT   5 General  no       no\n"))
        << run.Out.str();
    EXPECT_NE(std::string::npos, run.Out.str().find("     8    42  IN3          9 Inputs   yes      no\n"));
}

TEST(Vdr810Signals, ComplainsOfAMalformedOptionFileAndOfTwoWishesAtOnce) {
    Vdr810Run run;
    EXPECT_EQ(ExitBadArguments, run.Run({"signals", ProgramsOption, "--version", "1.00"}));
    run.Files.AddFile(ProgramsOption, "");
    EXPECT_EQ(ExitFailed, run.Run({"signals", ProgramsOption}));
    EXPECT_EQ(0U, run.Err.str().find("brindle-cli: " + std::string(ProgramsOption) + ": "));
}

} // namespace
} // namespace brindle
