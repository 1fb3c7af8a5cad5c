#include "support/editor_harness.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

/// A program file of `version` whose group 1, timer 1 has `code` at input 1.
std::string ProgramBytes(float version, UnitInput code = 0) {
    LogicConfig config;
    MakeNewVdr812(config, version);
    config.Group(1).Unit(1).Inputs[0] = code;
    ProgramImage image{};
    EncodeProgram(config, image);
    return {image.begin(), image.end()};
}

/// A started editor with the file /data/x.pl, version 1.00, and chooser 3 open.
struct FileCommands : testing::Test {
    EditorHarness Harness;

    FileCommands() {
        Harness.Folders.insert("/data");
        Harness.Files["/data/x.pl"] = ProgramBytes(Version100, 33);
        Harness.Start();
        OpenChooser();
    }

    [[nodiscard]] const LogicConfig& Config() { return Harness->Config(); }

    void OpenX() {
        Harness.ChooseFile("/data", "x.pl");
        Harness->mnuOpenBin_Click();
        OpenChooser();
    }

    /// What closes all choosers then shows in the log, which begins anew.
    void OpenChooser() {
        Harness->mnuLogicCategoriesCategory_Click(3);
        Harness.Log.clear();
    }
};

TEST_F(FileCommands, OpenShowsTheFilesLogic) {
    Harness.ChooseFile("/data", "x.pl");
    Harness->mnuOpenBin_Click();
    EXPECT_EQ(Config().FilePath, "/data/x.pl");
    EXPECT_EQ(Config().FileTitle, "x.pl");
    EXPECT_EQ(Config().Version, 1.0F);
    EXPECT_EQ(Config().LastOutput, 9);
    EXPECT_FALSE(Config().Modified);
    EXPECT_EQ(Harness->View().Inputs[0].Text, "51P TRIP");
    EXPECT_EQ(Harness->Catalogue(), BuildVdr812Catalogue(Version100));
    EXPECT_EQ(Harness->Title(), "VDR812 Programmable Logic          (File: /data/x.pl) Version: 1.00");
    EXPECT_EQ(Harness.Log,
              (std::vector<std::string>{"open choosers", "hide chooser 3", "recent /data/x.pl x.pl",
                                        "hourglass on", "categories", "output map", "unit selected", "title",
                                        "identity", "recent /data/x.pl x.pl", "hourglass off"}));
}

TEST_F(FileCommands, OpenShowsGroup1Timer1WhateverWasShown) {
    Harness->mnuTimerLatch_Click(9);
    Harness->mnuGroup_Click(5);
    OpenX();
    EXPECT_EQ(Harness->Shown().Group, 1);
    EXPECT_EQ(Harness->Shown().Unit, 1);
    EXPECT_EQ(Harness->Shown().Input, 1);
}

TEST_F(FileCommands, TheOpenDialogIsAskedForInTheSystemsWords) {
    Harness.CancelFile();
    Harness->mnuOpenBin_Click();
    ASSERT_EQ(Harness.Dialogs.size(), 1U);
    const FileDialogRequest& dialog = Harness.Dialogs[0];
    EXPECT_EQ(dialog.Kind, FileDialogKind::Open);
    EXPECT_EQ(dialog.Title, "Open Binary File");
    EXPECT_EQ(dialog.Filter, "Vdr812 PLC Files (*.pl)|*.pl");
    EXPECT_EQ(dialog.FilterIndex, 1);
    EXPECT_EQ(dialog.DefaultExtension, "pl");
    EXPECT_EQ(dialog.InitialFileName, "/opt/brindle/*.pl");
}

TEST_F(FileCommands, WhileAVdr810LogicIsOpenTheOpenDialogPresetsFilter2) {
    Harness->EditConfig().RelayModel = RelayKind::Vdr810;
    Harness.CancelFile();
    Harness->mnuOpenBin_Click();
    EXPECT_EQ(Harness.Dialogs.at(0).FilterIndex, 2);
}

TEST_F(FileCommands, ACancelledOpenChangesNothing) {
    OpenX();
    Harness->EditConfig().Group(1).Timer(1).PickUp = 5;
    const LogicConfig before = Config();
    Harness.CancelFile();
    Harness->mnuOpenBin_Click();
    EXPECT_EQ(Config().FilePath, before.FilePath);
    EXPECT_EQ(Config().Groups, before.Groups);
    EXPECT_EQ(Harness.Log, (std::vector<std::string>{"open choosers", "hide chooser 3"}));
}

TEST_F(FileCommands, AFailedReadLeavesLogicFileAndTitle) {
    OpenX();
    Harness->mnuTimerLatch_Click(3);
    const std::string title = Harness->Title();
    Harness.FailWith = DeviceIoError;
    Harness.ChooseFile("/data", "other.pl");
    Harness->mnuOpenBin_Click();
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_EQ(Harness.Boxes[0].Title, "Disk Error");
    EXPECT_EQ(Harness.Boxes[0].Text, "Internal disk error.");
    EXPECT_EQ(Harness->Title(), title);
    EXPECT_EQ(Config().FileTitle, "x.pl");
    EXPECT_EQ(Harness->Shown().Unit, 3);
    EXPECT_EQ(Harness.Log.back(), "hourglass off");
}

TEST_F(FileCommands, AnErrorWithoutATextOfItsOwnHasTheGenericBoxOfReading) {
    Harness.FailWith = InternalError;
    Harness.ChooseFile("/data", "x.pl");
    Harness->mnuOpenBin_Click();
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_EQ(Harness.Boxes[0].Text.find("There was an error trying to open the File.\r\nError number: 51\r\n"
                                         "Error description: "),
              0U)
        << Harness.Boxes[0].Text;
    EXPECT_NE(Harness.Boxes[0].Text.find("\r\nError Source: "), std::string::npos);
    EXPECT_EQ(Harness.Boxes[0].Icon, MessageIcon::Exclamation);
    EXPECT_EQ(Harness.Boxes[0].Title, "Brindle");
}

TEST_F(FileCommands, AShortFileIsToldAboutAfterLoading) {
    Harness.Files["/data/short.pl"] = ProgramBytes(Version100, 33).substr(0, 200);
    Harness.ChooseFile("/data", "short.pl");
    Harness->mnuOpenBin_Click();
    EXPECT_EQ(Config().FileTitle, "short.pl");
    EXPECT_TRUE(Harness.Boxes.empty());
    ASSERT_EQ(Harness.ShownStatus.size(), 1U);
    EXPECT_NE(Harness.ShownStatus[0].find("200"), std::string::npos);
    EXPECT_EQ(Harness->View().Inputs[0].Text, "51P TRIP");
}

TEST_F(FileCommands, ALongFileIsReadWithoutItsRestAndSavedWithoutIt) {
    Harness.Files["/data/x.pl"] += "more";
    OpenX();
    EXPECT_TRUE(Harness.Boxes.empty());
    Harness.AnswerBox(MessageAnswer::Overwrite);
    Harness->mnuFileSave_Click();
    EXPECT_EQ(Harness.Files["/data/x.pl"], ProgramBytes(Version100, 33));
}

TEST_F(FileCommands, OpenWithChangesAsksFirst) {
    Harness->EditConfig().Modified = true;
    Harness.AnswerBox(MessageAnswer::Cancel);
    Harness->mnuOpenBin_Click();
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_EQ(Harness.Boxes[0].Text, SavePrompt(DiscardingCommand::Open).Text);
    EXPECT_TRUE(Harness.Dialogs.empty());
    EXPECT_TRUE(Config().Modified);

    Harness.AnswerBox(MessageAnswer::No);
    OpenX();
    EXPECT_EQ(Config().FileTitle, "x.pl");
}

TEST_F(FileCommands, YesThenACancelledSaveAsStillGoesOnWithOpen) {
    Harness->EditConfig().Modified = true;
    Harness.AnswerBox(MessageAnswer::Yes);
    Harness.CancelFile();
    OpenX();
    EXPECT_EQ(Harness.Dialogs.size(), 2U);
    EXPECT_EQ(Config().FileTitle, "x.pl");
}

TEST_F(FileCommands, ANamedFileIsOpenedWithoutADialogAfterTheQuestion) {
    Harness->EditConfig().Modified = true;
    Harness.AnswerBox(MessageAnswer::Cancel);
    Harness->OpenNamed({"/data/x.pl", "x.pl", RelayKind::Vdr812});
    EXPECT_EQ(Config().FileTitle, "New_File.pl");
    Harness.AnswerBox(MessageAnswer::No);
    Harness->OpenNamed({"/data/x.pl", "x.pl", RelayKind::Vdr812});
    EXPECT_EQ(Config().FileTitle, "x.pl");
    EXPECT_TRUE(Harness.Dialogs.empty());
    EXPECT_EQ(Harness.Log.at(1), "hide chooser 3") << "first of all, whatever the answer";
}

TEST_F(FileCommands, SaveWritesTheSameBytesBackWithoutAsking) {
    OpenX();
    Harness->EditConfig().Modified = true;
    Harness.Files.erase("/data/x.pl");
    Harness->mnuFileSave_Click();
    EXPECT_EQ(Harness.Files["/data/x.pl"], ProgramBytes(Version100, 33));
    EXPECT_FALSE(Config().Modified);
    EXPECT_TRUE(Harness.Boxes.empty());
    EXPECT_TRUE(Harness.Dialogs.size() == 1U) << "the one that opened the file";
    EXPECT_EQ(Harness.Log, (std::vector<std::string>{"hourglass on", "title", "identity",
                                                     "recent /data/x.pl x.pl", "hourglass off"}));
}

TEST_F(FileCommands, SaveOfANewFileReplacesNewFileInTheHomeDirectory) {
    Harness.Files["/opt/brindle/New_File.pl"] = "something of the user's";
    Harness->mnuFileSave_Click();
    const std::string& saved = Harness.Files["/opt/brindle/New_File.pl"];
    ASSERT_EQ(saved.size(), 2048U);
    EXPECT_EQ(saved.substr(0, 14), std::string("plcd\0\0\0\0", 8) + "2.30  ");
    EXPECT_EQ(saved.find_first_not_of('\0', 14), std::string::npos);
    EXPECT_TRUE(Harness.Boxes.empty());
}

TEST_F(FileCommands, AFailedSaveKeepsModifiedAndTheOldFile) {
    OpenX();
    Harness->EditConfig().Modified = true;
    const std::string old = Harness.Files["/data/x.pl"];
    Harness.FailWith = PathAccessError;
    Harness->mnuFileSave_Click();
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_EQ(Harness.Boxes[0].Text, "The selected path can not be accessed.");
    EXPECT_TRUE(Config().Modified);
    EXPECT_EQ(Harness.Files["/data/x.pl"], old);
    EXPECT_EQ(Harness.Count("recent"), 0U);
    EXPECT_EQ(Harness.Log.back(), "hourglass off");
}

TEST_F(FileCommands, AFailedSaveWithoutATextOfItsOwnHasTheGenericBoxOfWriting) {
    Harness.FailWith = InternalError;
    Harness->mnuFileSave_Click();
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_EQ(Harness.Boxes[0].Text.find("There was an error trying to save the File.\r\n"), 0U);
}

TEST_F(FileCommands, AFullDiskMayBeRetried) {
    OpenX();
    Harness->EditConfig().Modified = true;
    Harness.FailWith = DiskFullError;
    Harness.AnswerBox(MessageAnswer::Retry);
    Harness.AnswerBox(MessageAnswer::Cancel);
    Harness->mnuFileSave_Click();
    EXPECT_EQ(Harness.Boxes.size(), 2U);
    EXPECT_TRUE(Config().Modified);
}

TEST_F(FileCommands, ACodeThatNoByteHoldsIsNotSaved) {
    OpenX();
    const std::string old = Harness.Files["/data/x.pl"];
    Harness->EditConfig().Group(2).Unit(3).Inputs[4] = 256;
    Harness->mnuFileSave_Click();
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_NE(Harness.Boxes[0].Text.find("Error number: 6\r\n"), std::string::npos) << Harness.Boxes[0].Text;
    EXPECT_EQ(Harness.Files["/data/x.pl"], old);
}

TEST_F(FileCommands, SaveAsTakesTheChosenName) {
    OpenX();
    Harness->EditConfig().Modified = true;
    Harness.ChooseFile("/data", "y.pl");
    Harness->mnuSaveBin_Click();
    EXPECT_EQ(Harness.Files["/data/y.pl"], ProgramBytes(Version100, 33));
    EXPECT_EQ(Config().FilePath, "/data/y.pl");
    EXPECT_EQ(Config().FileTitle, "y.pl");
    EXPECT_FALSE(Config().Modified);
    EXPECT_EQ(Harness.Log,
              (std::vector<std::string>{"open choosers", "hide chooser 3", "hourglass on", "title",
                                        "identity", "recent /data/y.pl y.pl", "hourglass off"}));
}

TEST_F(FileCommands, TheSaveAsDialogIsAskedForInTheSystemsWords) {
    OpenX();
    Harness.CancelFile();
    Harness->mnuSaveBin_Click();
    const FileDialogRequest dialog = Harness.Dialogs.back();
    EXPECT_EQ(dialog.Kind, FileDialogKind::SaveAs);
    EXPECT_EQ(dialog.Title, "Save Binary File");
    EXPECT_EQ(dialog.Filter, "Binary File (*.pl)|*.pl");
    EXPECT_EQ(dialog.FilterIndex, 1);
    EXPECT_EQ(dialog.DefaultExtension, "pl");
    EXPECT_EQ(dialog.InitialFileName, "x.pl");

    Harness.CancelFile();
    Harness->mnuSaveBin_Click(true);
    EXPECT_EQ(Harness.Dialogs.back().Title, "Save Binary File Prior to Printing");

    Harness->EditConfig().RelayModel = RelayKind::Vdr810;
    Harness.CancelFile();
    Harness->mnuSaveBin_Click();
    EXPECT_EQ(Harness.Dialogs.back().Filter, "Vdr810 PLC File (*.c10)|*.c10");
    EXPECT_EQ(Harness.Dialogs.back().FilterIndex, 2);
}

TEST_F(FileCommands, ACancelledSaveAsChangesNothing) {
    OpenX();
    Harness->EditConfig().Modified = true;
    Harness.CancelFile();
    Harness->mnuSaveBin_Click();
    EXPECT_EQ(Config().FileTitle, "x.pl");
    EXPECT_TRUE(Config().Modified);
    EXPECT_EQ(Harness.Log, (std::vector<std::string>{"open choosers", "hide chooser 3"}));
}

TEST_F(FileCommands, AFailedSaveAsKeepsTheChanges) {
    OpenX();
    Harness->EditConfig().Modified = true;
    Harness.FailWith = PathNotFoundError;
    Harness.ChooseFile("/data", "y.pl");
    Harness->mnuSaveBin_Click();
    EXPECT_TRUE(Config().Modified);
    EXPECT_EQ(Harness.Files.count("/data/y.pl"), 0U);
    EXPECT_EQ(Config().FilePath, "/data/y.pl") << "the new name is kept for the next Save";
    EXPECT_EQ(Config().FileTitle, "y.pl");
    EXPECT_EQ(Harness->Title(), "VDR812 Programmable Logic          (File: /data/y.pl) Version: 1.00");
}

TEST_F(FileCommands, NewMakesAnEmptyLogicOfItsVersion) {
    OpenX();
    Harness->mnuTimerLatch_Click(9);
    Harness.Log.clear();
    Harness->mnuNewFileVer230_Click();
    EXPECT_EQ(Config().Version, 2.3F);
    EXPECT_EQ(Config().LastOutput, 13);
    EXPECT_EQ(Config().InputCode(1, 1, 1), 0);
    EXPECT_EQ(Config().FilePath, "/opt/brindle/New_File.pl");
    EXPECT_EQ(Harness->Shown().Unit, 1);
    EXPECT_EQ(Harness->Shown().Input, 5);
    EXPECT_EQ(Harness->Catalogue(), BuildVdr812Catalogue(Version230));
    EXPECT_EQ(Harness.Log, (std::vector<std::string>{"open choosers", "hide chooser 3", "categories",
                                                     "output map", "unit selected", "title", "identity"}));
    Harness->mnuNewFileVer100_Click();
    EXPECT_EQ(Config().Version, 1.0F);
    EXPECT_EQ(Config().LastOutput, 9);
    EXPECT_EQ(Harness->Shown().Input, 1);
    EXPECT_EQ(Harness->Catalogue(), BuildVdr812Catalogue(Version100));
}

TEST_F(FileCommands, ACancelledNewLeavesVersionCatalogueAndLogic) {
    OpenX();
    Harness->EditConfig().Modified = true;
    Harness.AnswerBox(MessageAnswer::Cancel);
    Harness->mnuNewFileVer230_Click();
    EXPECT_EQ(Harness.Boxes.back().Text, SavePrompt(DiscardingCommand::New).Text);
    EXPECT_EQ(Config().Version, 1.0F);
    EXPECT_EQ(Config().FileTitle, "x.pl");
    EXPECT_EQ(Config().InputCode(1, 1, 1), 33);
    EXPECT_EQ(Harness->Catalogue(), BuildVdr812Catalogue(Version100));
}

TEST_F(FileCommands, ASaveAsOnTheWayToNewStoresTheOldLogicAsTheOldVersion) {
    OpenX();
    Harness->EditConfig().Modified = true;
    Harness.AnswerBox(MessageAnswer::Yes);
    Harness.ChooseFile("/data", "old.pl");
    Harness->mnuNewFileVer230_Click();
    EXPECT_EQ(Harness.Files["/data/old.pl"], ProgramBytes(Version100, 33));
    EXPECT_EQ(Config().Version, 2.3F);
    EXPECT_EQ(Config().FileTitle, "New_File.pl");
}

TEST_F(FileCommands, ANewFileCarriesTheHeaderTextsOfTheLastOpenedFileOn) {
    std::string bytes = ProgramBytes(Version100);
    bytes[14] = 0x12;
    bytes[18] = '\xE9';
    bytes[57] = 'z';
    Harness.Files["/data/x.pl"] = bytes;
    OpenX();
    Harness->mnuNewFileVer100_Click();
    Harness->mnuFileSave_Click();
    EXPECT_EQ(Harness.Files["/opt/brindle/New_File.pl"], bytes);
}

TEST_F(FileCommands, OpeningAFileOfNoKnownVersionShowsItAs100) {
    std::string bytes = ProgramBytes(Version100);
    bytes.replace(8, 6, "junk!!");
    Harness.Files["/data/x.pl"] = bytes;
    OpenX();
    EXPECT_EQ(Harness->Title(), "VDR812 Programmable Logic          (File: /data/x.pl) Version: 0.00");
    EXPECT_TRUE(Harness->View().Gates[0].Visible);
    Harness->mnuFileSave_Click();
    EXPECT_EQ(Harness.Files["/data/x.pl"], bytes);
}

TEST_F(FileCommands, ReportsNameANewFileBarelyAndASavedOneByItsPath) {
    EXPECT_EQ(Harness->ReportStart().FileName, "New_File.pl");
    OpenX();
    EXPECT_EQ(Harness->ReportStart().FileName, "/data/x.pl");
    Harness->mnuNewFileVer100_Click();
    EXPECT_EQ(Harness->ReportStart().FileName, "New_File.pl") << "what lies under its path is not this logic";
    Harness.FailWith = DeviceIoError;
    Harness->mnuFileSave_Click();
    EXPECT_EQ(Harness->ReportStart().FileName, "New_File.pl");
    Harness.FailWith = 0;
    Harness->mnuFileSave_Click();
    EXPECT_EQ(Harness->ReportStart().FileName, "/opt/brindle/New_File.pl");
}

} // namespace
} // namespace brindle
