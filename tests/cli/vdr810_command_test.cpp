#include "support/command_run.h"
#include "support/program_bytes.h"
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

/// The scheme of a relay with four timers and one latch.
std::string SmallerRelay() {
    LogicConfig config = SchemeLists(2.3, 12);
    config.Vdr810.TimerCount = 4;
    config.Vdr810.LatchCount = 1;
    return EncodeVdr810(config);
}

TEST(Vdr810Report, CoversTheUnitsThatTheRelayHas) {
    Vdr810Run run;
    run.Files.AddFile("/home/me/x.c10", SmallerRelay());
    ASSERT_EQ(ExitWell, run.Run({"report", "/home/me/x.c10", "--group", "1"})) << run.Err.str();
    for (const char* unit : {"T1", "T4", "R1", "S1"}) {
        EXPECT_NE(std::string::npos, run.Out.str().find("Group G1 - " + std::string(unit))) << unit;
    }
    for (const char* unit : {"T5", "T6", "R2", "S2"}) {
        EXPECT_EQ(std::string::npos, run.Out.str().find("Group G1 - " + std::string(unit))) << unit;
    }
}

TEST(Vdr810Report, AUnitThatTheRelayDoesNotHaveIsABadArgument) {
    Vdr810Run run;
    run.Files.AddFile("/home/me/x.c10", SmallerRelay());
    for (const char* unit : {"T5", "T6", "R2", "S2"}) {
        EXPECT_EQ(ExitBadArguments,
                  run.Run({"report", "/home/me/x.c10", "--group", "1", "--unit", "T1", "--unit", unit}));
        EXPECT_EQ("brindle-cli: /home/me/x.c10: has no unit " + std::string(unit) +
                      ", only T1, T2, T3, T4, R1, S1\n",
                  run.Err.str());
        EXPECT_EQ("", run.Out.str());
    }
}

TEST(Vdr810Report, AFileOfNoTimersAndNoLatchesIsRefused) {
    Vdr810Run run;
    LogicConfig config = SchemeLists(2.3, 12);
    config.Vdr810.TimerCount = 0;
    config.Vdr810.LatchCount = 0;
    run.Files.AddFile("/home/me/x.c10", EncodeVdr810(config));
    EXPECT_EQ(ExitFailed, run.Run({"report", "/home/me/x.c10"}));
    EXPECT_EQ("brindle-cli: /home/me/x.c10: Subscript out of range (error 9, read /home/me/x.c10, header)\n",
              run.Err.str());
    EXPECT_EQ("", run.Out.str());
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

TEST(Vdr810Report, CategoriesAloneNameNoSignal) {
    Vdr810Run run;
    run.ForgetOption();
    run.Files.AddFile("/home/me/x.c10", SchemeLogicFile(2.3, 12) + "<CATEGORY INFO>\r\n5,General\r\n");
    EXPECT_EQ(ExitFinding, run.Run({"report", "/home/me/x.c10", "--group", "1", "--unit", "T1"}));
    EXPECT_NE(std::string::npos, run.Err.str().find("so signals have no names")) << run.Err.str();
}

TEST(Vdr810Report, CodesAreShownOnRequest) {
    Vdr810Run run;
    ASSERT_EQ(ExitWell, run.Run({"report", "/home/me/x.c10", "--group", "1", "--unit", "T1", "--numbers"}));
    EXPECT_NE(std::string::npos, run.Out.str().find("T1:11 (NOT) EC -> Z1P\r\nT1:12 FF -> FALSE\r\n"))
        << run.Out.str();
}

TEST(Vdr810Report, FourGatesOfARelayOf100AndTwoOfOneOf230) {
    Vdr810Run run;
    run.Files.AddFile("/opt/brindle/PLC00100_OPT00012.810", SchemeOptionFile(1, 12));
    run.Folders.FilesOf["/opt/brindle"].emplace_back("PLC00100_OPT00012.810");
    run.Files.AddFile("/home/me/old.c10", SchemeLogicFile(1, 12));
    ASSERT_EQ(ExitWell, run.Run({"report", "/home/me/old.c10", "--group", "1", "--unit", "T1"}));
    EXPECT_NE(std::string::npos, run.Out.str().find("T1 AND gate 4\r\n"));
    EXPECT_NE(std::string::npos, run.Out.str().find("T1:21 (NOT) Z1P\r\n"));
    ASSERT_EQ(ExitWell, run.Run({"report", "/home/me/x.c10", "--group", "1", "--unit", "T1"}));
    EXPECT_EQ(std::string::npos, run.Out.str().find("T1 AND gate 3\r\n"));
}

TEST(Vdr810Report, AGroupAboveEightIsToldBeforeTheFileIsTouched) {
    Vdr810Run run;
    EXPECT_EQ(ExitBadArguments, run.Run({"report", "/home/me/x.c10", "--group", "9"}));
    EXPECT_EQ("brindle-cli: group 9 is not in 1 to 8\n", run.Err.str());
    EXPECT_TRUE(run.Files.Log().empty());
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

TEST(Vdr810Report, ARefusedLineBringsNoControlCharacters) {
    Vdr810Run run;
    run.Files.AddFile("/home/me/x.c10", SchemeLogicFile(2.3, 12) + "\x1B[31m,1\r\n");
    EXPECT_EQ(ExitFailed, run.Run({"report", "/home/me/x.c10"}));
    EXPECT_EQ("VDR810 File Read in Problem!\n(Unit 10 DATA  [31m)\nField 1 is not a number.\n"
              "Array Element = 18\nAborting\n",
              run.Err.str());
}

TEST(Vdr810Report, AHeaderThatIsNoneFailsWithItsPlace) {
    Vdr810Run run;
    run.Files.AddFile("/home/me/x.c10", "");
    EXPECT_EQ(ExitFailed, run.Run({"dump", "/home/me/x.c10"}));
    EXPECT_EQ(0U, run.Err.str().find("brindle-cli: /home/me/x.c10: ")) << run.Err.str();
    EXPECT_NE(std::string::npos, run.Err.str().find("(error 62, read /home/me/x.c10, value 1 of the header)"))
        << run.Err.str();
    EXPECT_EQ(ExitFailed, run.Run({"dump", "/home/me/none.c10"}));
    EXPECT_EQ(0U, run.Err.str().find("brindle-cli: /home/me/none.c10: File not found (error 53, "));
}

TEST(Vdr810Report, MissingUnitsAreAFinding) {
    Vdr810Run run;
    const std::string whole = SchemeLogicFile(2.3, 12);
    run.Files.AddFile("/home/me/x.c10", whole.substr(0, whole.find("<LATCH 2 SET>")));
    EXPECT_EQ(ExitFinding, run.Run({"dump", "/home/me/x.c10"}));
    EXPECT_NE(std::string::npos, run.Err.str().find("lacks lines of these units: R2, S2."));
    EXPECT_NE(std::string::npos, run.Out.str().find("\"tag\": \"R2\", \"inputs\": [255, 255"));
}

TEST(Vdr810Report, WhatTheFileLacksIsUnconnectedAsItsOptionFileTells) {
    Vdr810Run run;
    LogicConfig lists = SchemeLists(2.3, 12);
    lists.Coding.FalseCode = 104; // not what it is as long as nothing tells it
    std::erase_if(lists.Lists.Labels, [](const Vdr810Label& label) { return label.Name == FalseName; });
    run.Files.AddFile(ProgramsOption, EncodeOptionFile(lists));
    const std::string whole = SchemeLogicFile(2.3, 12);
    run.Files.AddFile("/home/me/x.c10", whole.substr(0, whole.find("<LATCH 2 SET>")));
    EXPECT_EQ(ExitFinding, run.Run({"dump", "/home/me/x.c10"}));
    EXPECT_NE(std::string::npos, run.Out.str().find("\"tag\": \"R2\", \"inputs\": [104, 104"));
    EXPECT_NE(std::string::npos, run.Out.str().find("\"unconnected\": 104"));
}

TEST(Vdr810Report, TheExtensionTellsTheModelInCapitalsToo) {
    Vdr810Run run;
    run.Files.AddFile("/home/me/X.C10", SchemeLogicFile(2.3, 12));
    EXPECT_EQ(ExitWell, run.Run({"dump", "/home/me/X.C10"})) << run.Err.str();
    EXPECT_NE(std::string::npos, run.Out.str().find("\"relay_model\": 2"));
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
    EXPECT_EQ(ExitBadArguments, run.Run({"build", "/home/me/x.json", "/home/me/y", "--model", "vdr812"}));
    EXPECT_EQ("brindle-cli: /home/me/x.json: relay_model 2 is not that of --model\n", run.Err.str());
    for (const char* out : {"/home/me/y.pl", "/home/me/Y.PL", "/home/me/y"}) {
        EXPECT_FALSE(run.Files.Content(out).has_value()) << out;
    }
    EXPECT_EQ(ExitWell, run.Run({"build", "/home/me/x.json", "/home/me/y"})) << "no extension, no doubt";
    EXPECT_EQ(ExitWell, run.Run({"build", "/home/me/x.json", "/home/me/Y.C10", "--model", "vdr810"}));
}

TEST(Vdr810Build, TheModelThatIsNamedMustBeThatOfTheExtension) {
    Vdr810Run run;
    const std::vector<std::pair<std::string, std::string>> contradictions{{"/home/me/y.pl", "vdr810"},
                                                                          {"/home/me/y.c10", "vdr812"}};
    for (const auto& [out, model] : contradictions) {
        EXPECT_EQ(ExitBadArguments, run.Run({"build", "/home/me/x.json", out, "--model", model})) << out;
        EXPECT_EQ("brindle-cli: " + out + ": its extension is not that of --model\n", run.Err.str());
    }
    EXPECT_TRUE(run.Files.Log().empty()) << "told before a file is touched";
}

TEST(Vdr810Signals, ListsAnOptionFile) {
    Vdr810Run run;
    ASSERT_EQ(ExitWell, run.Run({"signals", ProgramsOption})) << run.Err.str();
    EXPECT_EQ(0U, run.Out.str().find("Number  Code  Name         Category   Enabled  Visible\n"
                                     "     0     0  NO CONNECT   5 General  no       no\n"))
        << run.Out.str();
    EXPECT_NE(std::string::npos, run.Out.str().find("     8    42  IN3          9 Inputs   yes      no\n"));
}

TEST(Vdr810Signals, ListsWhatALogicFileCanUse) {
    Vdr810Run run;
    ASSERT_EQ(ExitWell, run.Run({"signals", ProgramsOption}));
    const std::string table = run.Out.str();
    EXPECT_EQ(ExitWell, run.Run({"signals", "/home/me/x.c10"})) << run.Err.str();
    EXPECT_EQ(table, run.Out.str());
    run.ForgetOption();
    EXPECT_EQ(ExitFinding, run.Run({"signals", "/home/me/x.c10"}));
    EXPECT_EQ("Number  Code  Name  Category  Enabled  Visible\n", run.Out.str());
    run.Files.AddFolder("/plc");
    run.PutOption("/plc");
    run.Files.AddFile("/home/me/x.txt", SchemeLogicFile(2.3, 12));
    EXPECT_EQ(ExitWell, run.Run({"signals", "/home/me/x.txt", "--model", "vdr810", "--plc-folder", "/plc"}));
    EXPECT_EQ(table, run.Out.str());
}

TEST(Vdr810Signals, OfAProgramFileAreThoseOfItsVersion) {
    Vdr810Run run;
    run.Files.AddFile("/home/me/x.pl", NewProgramBytes(Version100));
    ASSERT_EQ(ExitWell, run.Run({"signals", "--version", "1.00"}));
    const std::string table = run.Out.str();
    EXPECT_EQ(ExitWell, run.Run({"signals", "/home/me/x.pl"}));
    EXPECT_EQ(table, run.Out.str());
}

TEST(Vdr810Signals, ColumnsAreAlignedWhateverTheNames) {
    Vdr810Run run;
    LogicConfig lists = SchemeLists(2.3, 12);
    lists.Lists.Labels[3].Name = "\xDC"
                                 "BERLAST";      // a letter of two bytes where it is shown
    lists.Lists.Categories[1].Name = "Zone\x96"; // a dash of three
    run.Files.AddFile(ProgramsOption, EncodeOptionFile(lists));
    ASSERT_EQ(ExitWell, run.Run({"signals", ProgramsOption}));
    EXPECT_NE(std::string::npos,
              run.Out.str().find("     3    20  \u00DCBERLAST     6 Zone\u2013    yes      yes\n"))
        << run.Out.str();
}

TEST(Vdr810Signals, ACategoryThatNobodyNamesIsItsNumber) {
    Vdr810Run run;
    LogicConfig lists = SchemeLists(2.3, 12);
    lists.Lists.Labels[3].Category = 77;
    run.Files.AddFile(ProgramsOption, EncodeOptionFile(lists));
    ASSERT_EQ(ExitWell, run.Run({"signals", ProgramsOption}));
    EXPECT_NE(std::string::npos, run.Out.str().find("  Z1P          77         yes      yes\n"))
        << run.Out.str();
}

TEST(Vdr810Signals, ComplainsOfAMalformedOptionFileAndOfTwoWishesAtOnce) {
    Vdr810Run run;
    EXPECT_EQ(ExitBadArguments, run.Run({"signals", ProgramsOption, "--version", "1.00"}));
    EXPECT_EQ(ExitBadArguments, run.Run({"signals", "--model", "vdr810"}));
    EXPECT_EQ(ExitBadArguments, run.Run({"signals", "--plc-folder", "/plc"}));
    run.Files.AddFile(ProgramsOption, "");
    EXPECT_EQ(ExitFailed, run.Run({"signals", ProgramsOption}));
    EXPECT_EQ(0U, run.Err.str().find("brindle-cli: " + std::string(ProgramsOption) + ": "));
}

} // namespace
} // namespace brindle
