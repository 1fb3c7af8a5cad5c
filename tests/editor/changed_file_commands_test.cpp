#include "support/editor_harness.h"
#include "support/program_bytes.h"
#include "support/vdr810_commands.h"

#include <gtest/gtest.h>

/// What Save does to a file that is not, or no longer, what was opened, and what is told of it.
namespace brindle {
namespace {

constexpr const char* ChangedNotice =
    "Another program has changed this file since it was opened or saved here.";
constexpr const char* GoneNotice = "This file has been moved or deleted since it was opened or saved here.";

/// An editor with /data/x.pl open and an edit that was not saved.
struct ChangedFileCommands : testing::Test {
    EditorHarness Harness;
    std::string Old = NewProgramBytes(Version230);
    std::string Others = NewProgramBytes(Version100);

    ChangedFileCommands() {
        Harness.Files["/data/x.pl"] = Old;
        Harness.Start();
        Harness->OpenPath("/data/x.pl");
        Harness->txtTimerPU_Change("1234");
    }

    [[nodiscard]] std::string Ours() { return ProgramBytes(Harness->Config()); }

    void Save(MessageAnswer answer) {
        Harness.AnswerBox(answer);
        Harness->mnuFileSave_Click();
    }
};

TEST_F(ChangedFileCommands, AFileLeftAloneIsSavedUnasked) {
    Harness->mnuFileSave_Click();
    EXPECT_TRUE(Harness.Boxes.empty());
    EXPECT_EQ(Harness.Files["/data/x.pl"], Ours());
}

TEST_F(ChangedFileCommands, SaveAsksBeforeItReplacesWhatAnotherProgramWrote) {
    Harness.Files["/data/x.pl"] = Others;
    Save(MessageAnswer::Cancel);
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_EQ(Harness.Boxes[0].Buttons, MessageButtons::SaveAsOverwriteCancel);
    EXPECT_EQ(Harness.Files["/data/x.pl"], Others);
    EXPECT_TRUE(Harness->Config().Modified);
}

TEST_F(ChangedFileCommands, OverwriteReplacesItAndAsksNoMore) {
    Harness.Files["/data/x.pl"] = Others;
    Save(MessageAnswer::Overwrite);
    EXPECT_EQ(Harness.Files["/data/x.pl"], Ours());
    EXPECT_FALSE(Harness->Config().Modified);
    Harness->txtTimerPU_Change("77");
    Harness->mnuFileSave_Click();
    EXPECT_EQ(Harness.Boxes.size(), 1U) << "asked once";
    EXPECT_EQ(Harness.Files["/data/x.pl"], Ours());
}

TEST_F(ChangedFileCommands, SaveAsKeepsBoth) {
    Harness.Files["/data/x.pl"] = Others;
    Harness.ChooseFile("/data", "y.pl");
    Save(MessageAnswer::SaveAs);
    EXPECT_EQ(Harness.Files["/data/x.pl"], Others);
    EXPECT_EQ(Harness.Files["/data/y.pl"], Ours());
    EXPECT_EQ(Harness->Config().FilePath, "/data/y.pl");
    EXPECT_TRUE(Harness.ShownStatus.empty());
}

TEST_F(ChangedFileCommands, SaveAsAfterTheQuestionMayBeCancelled) {
    Harness.Files["/data/x.pl"] = Others;
    Harness.CancelFile();
    Save(MessageAnswer::SaveAs);
    EXPECT_EQ(Harness.Files["/data/x.pl"], Others);
    EXPECT_TRUE(Harness->Config().Modified);
    EXPECT_EQ(Harness->Config().FilePath, "/data/x.pl");
}

TEST_F(ChangedFileCommands, ADeletedFileIsMadeAnewUnasked) {
    Harness.Files.erase("/data/x.pl");
    Harness->mnuFileSave_Click();
    EXPECT_TRUE(Harness.Boxes.empty());
    EXPECT_EQ(Harness.Files["/data/x.pl"], Ours());
}

TEST_F(ChangedFileCommands, AChangeIsToldAtTheFootWhenTheWindowBecomesActive) {
    EXPECT_TRUE(Harness.ShownStatus.empty());
    Harness.Files["/data/x.pl"] = Others;
    EXPECT_TRUE(Harness.ShownStatus.empty());
    Harness->Form_Activate();
    EXPECT_EQ(Harness.ShownStatus, std::vector<std::string>{ChangedNotice});
    EXPECT_TRUE(Harness.Boxes.empty()) << "nobody is stopped";
    Harness.Files.erase("/data/x.pl");
    Harness->Form_Activate();
    EXPECT_EQ(Harness.ShownStatus, std::vector<std::string>{GoneNotice});
    Harness.Files["/data/x.pl"] = Old;
    Harness->Form_Activate();
    EXPECT_TRUE(Harness.ShownStatus.empty()) << "it is as it was";
}

TEST_F(ChangedFileCommands, TheLineGoesWithASaveAndWithAnotherOpening) {
    Harness.Files["/data/x.pl"] = Others;
    Harness->Form_Activate();
    Save(MessageAnswer::Overwrite);
    EXPECT_TRUE(Harness.ShownStatus.empty());
    Harness.Files["/data/x.pl"] = Others;
    Harness->Form_Activate();
    ASSERT_EQ(Harness.ShownStatus.size(), 1U);
    Harness->OpenPath("/data/x.pl");
    EXPECT_TRUE(Harness.ShownStatus.empty());
    Harness->mnuFileSave_Click();
    EXPECT_EQ(Harness.Boxes.size(), 1U) << "what was opened anew is known";
}

TEST_F(ChangedFileCommands, ANewFileIsNobodysAndOverwritesUnasked) {
    Harness->mnuFileSave_Click();
    Harness->mnuNewFileVer230_Click();
    Harness.Files["/opt/brindle/New_File.pl"] = Others;
    Harness->Form_Activate();
    EXPECT_TRUE(Harness.ShownStatus.empty());
    Harness->mnuFileSave_Click();
    EXPECT_TRUE(Harness.Boxes.empty());
    EXPECT_EQ(Harness.Files["/opt/brindle/New_File.pl"], Ours());
    Harness.Files["/opt/brindle/New_File.pl"] = Others;
    Save(MessageAnswer::Cancel);
    EXPECT_EQ(Harness.Boxes.size(), 1U) << "once it was saved it is a file like others";
}

TEST_F(ChangedFileCommands, AFileReplacedAfterAFailedSaveAsIsAskedAbout) {
    Harness.Files["/data/y.pl"] = Old;
    Harness.ChooseFile("/data", "y.pl");
    Harness.FailWith = DeviceIoError;
    Harness->mnuSaveBin_Click();
    Harness.FailWith = 0;
    ASSERT_EQ(Harness.Boxes.size(), 1U) << "the failure";
    Harness->mnuFileSave_Click();
    EXPECT_EQ(Harness.Boxes.size(), 1U) << "the dialog asked about the file as it was";
    EXPECT_EQ(Harness.Files["/data/y.pl"], Ours());
}

TEST_F(ChangedFileCommands, AFileEmptiedByAnotherProgramIsAskedAboutAfterASaveThatWroteNothing) {
    Harness->EditConfig().Group(1).Unit(1).Inputs[0] = 300; // a code that no byte holds
    Harness->mnuFileSave_Click();
    ASSERT_EQ(Harness.Boxes.size(), 1U) << "the failure";
    Harness->EditConfig().Group(1).Unit(1).Inputs[0] = 0;
    Harness.Files["/data/x.pl"].clear();
    Save(MessageAnswer::Cancel);
    EXPECT_EQ(Harness.Boxes.size(), 2U);
    EXPECT_EQ(Harness.Files["/data/x.pl"], "");
}

TEST_F(ChangedFileCommands, TwoEditorsOnOneFileTheSecondOnesSaveAsks) {
    EditorHarness second;
    second.Surroundings.Files = Harness.Surroundings.Files;
    second.Start();
    second->OpenPath("/data/x.pl");
    second->txtTimerPU_Change("99");
    second->mnuFileSave_Click();
    EXPECT_TRUE(second.Boxes.empty()) << "the first to save";
    Save(MessageAnswer::Cancel);
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_EQ(Harness.Files["/data/x.pl"], ProgramBytes(second->Config()));
}

/// Files that are no programs, opened as such.
struct ForeignFileCommands : testing::Test {
    EditorHarness Harness;
    const std::string Script = "#!/usr/bin/perl\nprint 1;\n";

    ForeignFileCommands() {
        Harness.Files["/data/script.pl"] = Script;
        Harness.Files["/data/short.pl"] = NewProgramBytes(Version230).substr(0, 200);
        Harness.Files["/data/text.pl"] = SchemeLogicFile(2.3, 12);
        Harness.Start();
    }
};

TEST_F(ForeignFileCommands, AForeignFileOpensAndIsToldForAsLongAsItIsOpen) {
    Harness->OpenPath("/data/script.pl");
    EXPECT_TRUE(Harness.Boxes.empty());
    EXPECT_EQ(Harness->Config().FilePath, "/data/script.pl");
    ASSERT_EQ(Harness.ShownStatus.size(), 1U);
    EXPECT_EQ(
        Harness.ShownStatus[0],
        "This is not a VDR812 program: it does not begin with \"plcd\" and holds 25 bytes instead of 2048.");
    Harness->txtTimerPU_Change("1");
    Harness->Form_Activate();
    EXPECT_EQ(Harness.ShownStatus.size(), 1U);
    Harness.AnswerBox(MessageAnswer::No);
    Harness->mnuNewFileVer230_Click();
    EXPECT_TRUE(Harness.ShownStatus.empty());
}

TEST_F(ForeignFileCommands, AShortFileAndAVdr810TextAreToldToo) {
    Harness->OpenPath("/data/short.pl");
    EXPECT_EQ(Harness.ShownStatus.at(0),
              "This is not a VDR812 program: 200 bytes instead of 2048, the missing ones read as zero.");
    Harness->OpenPath("/data/text.pl");
    EXPECT_EQ(Harness.ShownStatus.at(0),
              "This is a VDR810 logic file, though its name does not end in .c10.");
}

TEST_F(ForeignFileCommands, TheFirstSaveAsksBeforeItReplacesIt) {
    Harness->OpenPath("/data/script.pl");
    Harness.AnswerBox(MessageAnswer::Cancel);
    Harness->mnuFileSave_Click();
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_EQ(Harness.Boxes[0].Buttons, MessageButtons::SaveAsOverwriteCancel);
    EXPECT_EQ(Harness.Files["/data/script.pl"], Script);
    Harness.AnswerBox(MessageAnswer::Overwrite);
    Harness->mnuFileSave_Click();
    EXPECT_EQ(Harness.Files["/data/script.pl"].size(), ProgramFileSize);
    EXPECT_TRUE(Harness.ShownStatus.empty());
    Harness->mnuFileSave_Click();
    EXPECT_EQ(Harness.Boxes.size(), 2U) << "now it is a program";
}

TEST_F(ForeignFileCommands, SaveAsLeavesItAlone) {
    Harness->OpenPath("/data/script.pl");
    Harness.AnswerBox(MessageAnswer::SaveAs);
    Harness.ChooseFile("/data", "new.pl");
    Harness->mnuFileSave_Click();
    EXPECT_EQ(Harness.Files["/data/script.pl"], Script);
    EXPECT_EQ(Harness.Files["/data/new.pl"].size(), ProgramFileSize);
    EXPECT_TRUE(Harness.ShownStatus.empty());
}

/// What could be read of a logic file with a line that was refused.
struct PartOfAFile : Vdr810Commands {
    PartOfAFile() {
        Harness.Files["/data/x.c10"] += "9,1\r\n";
        Harness.Files["/opt/brindle/New_File.c10"] = "another scheme";
        Open("/data/x.c10");
        Harness.Boxes.clear();
    }
};

TEST_F(PartOfAFile, SaveAsksForItsName) {
    const std::string refused = Harness.Files["/data/x.c10"];
    Harness.ChooseFile("/data", "part.c10", 2);
    Harness->mnuFileSave_Click();
    ASSERT_EQ(Harness.Dialogs.size(), 1U);
    EXPECT_EQ(Harness.Dialogs[0].Title, "Save Binary File");
    EXPECT_EQ(Harness.Dialogs[0].InitialFileName, "New_File.c10");
    EXPECT_EQ(Harness.Files["/opt/brindle/New_File.c10"], "another scheme");
    EXPECT_EQ(Harness.Files["/data/x.c10"], refused);
    EXPECT_EQ(Harness.Files["/data/part.c10"], SchemeLogicFile(2.3, 12));
    Harness->mnuFileSave_Click();
    EXPECT_EQ(Harness.Dialogs.size(), 1U) << "now it has a file of its own";
}

TEST_F(PartOfAFile, ACancelledDialogWritesNothing) {
    Harness.CancelFile();
    Harness->mnuFileSave_Click();
    EXPECT_EQ(Harness.Files["/opt/brindle/New_File.c10"], "another scheme");
    EXPECT_TRUE(Config().Modified);
}

} // namespace
} // namespace brindle
