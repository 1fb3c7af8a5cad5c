#include "editor/group_editing.h"
#include "support/vdr810_commands.h"

/// New, Open, Save and Save As of VDR810 logic.
namespace brindle {
namespace {

TEST_F(Vdr810Commands, NewTakesItsHeadAndListsFromTheOptionFile) {
    Harness->mnuFileNewVdr810_Click();
    EXPECT_EQ(Config().RelayModel, RelayKind::Vdr810);
    EXPECT_EQ(Config().FilePath, "/opt/brindle/New_File.c10");
    EXPECT_EQ(Config().FileTitle, "New_File.c10");
    EXPECT_EQ(Config().Version, 2.3F);
    EXPECT_EQ(Config().GroupCount, 8);
    EXPECT_EQ(Config().LastOutput, 20);
    EXPECT_EQ(Config().Coding.InvertBase, 256);
    EXPECT_EQ(Config().Vdr810.Identity, "Feeder scheme");
    EXPECT_FALSE(Config().Modified);
    for (int group = 1; group <= 8; ++group) {
        EXPECT_EQ(Config().InputCode(group, 10, 16), SchemeFalse);
    }
    EXPECT_EQ(Harness->Title(),
              "VDR810 Programmable Logic          (File: /opt/brindle/New_File.c10) Version: 2.30");
    EXPECT_EQ(Harness->Identity(),
              "File: New_File.c10\r\nDate:5/4/2001  Time:10:12:33\r\nVersion:2.30  Options:0012");
    EXPECT_EQ(Harness->Catalogue().Categories.size(), 3U) << "END is no category";
    EXPECT_EQ(Harness->View().Inputs[4].Text, "FALSE");
    EXPECT_TRUE(Harness.Boxes.empty());
}

TEST_F(Vdr810Commands, NewOffersTheFilesThatAreThereNow) {
    Harness.Files["/opt/brindle/PLC00100_OPT00000.810"] = SchemeOptionFile(1.0, 0);
    Harness->mnuFileNewVdr810_Click();
    EXPECT_EQ(Harness.OfferedVersions, (std::vector<std::string>{"1.00", "2.30"}));
    EXPECT_EQ(Config().Version, 1.0F) << "the first pair is chosen at first";
}

TEST_F(Vdr810Commands, TheOptionsDialogRemembersWhatWasChosen) {
    Harness.Files["/opt/brindle/PLC00100_OPT00000.810"] = SchemeOptionFile(1.0, 0);
    Harness.ChooseOptions = [](Vdr810Options& options) {
        options.ChooseVersion(1);
        return true;
    };
    Harness->mnuFileNewVdr810_Click();
    EXPECT_EQ(Config().Vdr810.Options, 12);
    Harness.ChooseOptions = [](Vdr810Options& /*options*/) { return true; };
    Harness->mnuFileNewVdr810_Click();
    EXPECT_EQ(Config().Vdr810.Options, 12);
}

TEST_F(Vdr810Commands, ACancelledOptionsDialogChangesNothing) {
    Harness.ChooseOptions = nullptr;
    const std::string title = Harness->Title();
    Harness->mnuFileNewVdr810_Click();
    EXPECT_EQ(Config().RelayModel, RelayKind::Vdr812);
    EXPECT_EQ(Harness->Title(), title);
    EXPECT_TRUE(Harness.Log.empty());
}

TEST_F(Vdr810Commands, NewAsksBeforeItDiscardsChanges) {
    Harness->EditConfig().Modified = true;
    Harness.AnswerBox(MessageAnswer::Cancel);
    Harness->mnuFileNewVdr810_Click();
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_NE(Harness.Boxes[0].Text.find("before continuing?"), std::string::npos);
    EXPECT_EQ(Config().RelayModel, RelayKind::Vdr812);
    EXPECT_TRUE(Harness.OfferedVersions.empty()) << "the dialog was not shown";
}

TEST_F(Vdr810Commands, OpenShowsTheFileWithTheSignalsOfItsOptionFile) {
    Open("/data/x.c10");
    EXPECT_TRUE(Harness.Boxes.empty());
    EXPECT_EQ(Config().FilePath, "/data/x.c10");
    EXPECT_EQ(Config().Coding.FalseCode, SchemeFalse);
    EXPECT_FALSE(Config().Modified);
    const UnitView view = Harness->View();
    EXPECT_EQ(view.Inputs[4].Text, "Z1P");
    EXPECT_TRUE(view.Inputs[4].InvertMark);
    EXPECT_EQ(view.Inputs[5].Text, "FALSE");
    EXPECT_TRUE(view.OutputSet.at(17));
    EXPECT_FALSE(view.OutputSet.at(1));
    EXPECT_EQ(view.FeedbackCaption, "T1FB");
    EXPECT_FALSE(view.Groups[6].Visible);
    EXPECT_TRUE(view.Groups[5].Visible);
    EXPECT_EQ(Harness->Recent()[0].Path, "/data/x.c10");
    EXPECT_EQ(Harness->Recent()[0].Model, RelayKind::Vdr810);
}

TEST_F(Vdr810Commands, OpeningAndSavingKeepsTheBytes) {
    const std::string before = Harness.Files["/data/x.c10"];
    Open("/data/x.c10");
    Harness.Files.erase("/data/x.c10");
    Harness->mnuFileSave_Click();
    EXPECT_EQ(Harness.Files["/data/x.c10"], before);
    EXPECT_FALSE(Config().Modified);
}

TEST_F(Vdr810Commands, GroupsThatAreNotShownAreKept) {
    LogicConfig config = SchemeLists(2.3, 12);
    config.Group(8).Timer(6).DropOut = 777;
    Harness.Files["/data/x.c10"] = EncodeVdr810(config);
    Open("/data/x.c10");
    Harness->mnuFileSave_Click();
    EXPECT_EQ(Harness.Files["/data/x.c10"], EncodeVdr810(config));
}

TEST_F(Vdr810Commands, AVdr812OpenedAfterwardsShowsAllGroupsAndCarriesNothingOn) {
    Open("/data/x.c10");
    Harness->mnuNewFileVer230_Click();
    EXPECT_EQ(Config().Vdr810, Vdr810Header{});
    EXPECT_TRUE(Config().Lists.Empty());
    EXPECT_EQ(Harness->Identity(), "");
    EXPECT_TRUE(Harness->View().Groups[7].Visible);
    EXPECT_EQ(Harness->View().FeedbackCaption, "");
    EXPECT_EQ(Config().InputCode(1, 1, 1), NoConnectCode);
}

TEST_F(Vdr810Commands, ARefusedFileLeavesWhatWasReadAsANewFileThatIsNotSaved) {
    const std::string whole = Harness.Files["/data/x.c10"];
    const std::size_t pickUp = whole.find("\r\n3,1,") + 2;
    Harness.Files["/data/x.c10"] = whole.substr(0, pickUp) + "7,1\r\n" + whole.substr(pickUp);
    Open("/data/x.c10");
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_EQ(Harness.Boxes[0].Text, "VDR810 File Read in Problem!\r\n(Unit 1 DATA 7)\r\n"
                                     "Record type 7 is not known.\r\nArray Element = 18\r\nAborting");
    EXPECT_EQ(Harness.Boxes[0].Title, "VDR810 File Read in Problem");
    EXPECT_EQ(Harness.Boxes[0].Icon, MessageIcon::CriticalStop);
    EXPECT_EQ(Config().FilePath, "/opt/brindle/New_File.c10")
        << "the file itself cannot be overwritten by Save";
    EXPECT_TRUE(Config().Modified);
    EXPECT_EQ(Config().InputCode(1, 1, 5), 236) << "lines before the refused one are there";
    EXPECT_EQ(Config().Group(1).Timer(1).PickUp, 0);
    EXPECT_NE(Harness->Recent()[0].Path, "/data/x.c10");
}

TEST_F(Vdr810Commands, AFileThatCannotBeReadLeavesEverything) {
    Harness.Files["/data/x.c10"] = "identity\r\n1.00\r\n2.30\r\nx\r\n";
    const std::string title = Harness->Title();
    Open("/data/x.c10");
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_EQ(Harness.Boxes[0].Text.substr(0, 61),
              "There was an error trying to open the File.\r\nError number: 13");
    EXPECT_EQ(Harness->Title(), title);
    EXPECT_EQ(Config().RelayModel, RelayKind::Vdr812);
}

TEST_F(Vdr810Commands, UnitsThatTheFileLacksAreNamed) {
    std::string& text = Harness.Files["/data/x.c10"];
    text.resize(text.find("<LATCH 2 SET>"));
    Open("/data/x.c10");
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_EQ(Harness.Boxes[0].Text,
              "The file /data/x.c10 lacks lines of these units: R2, S2.  What is missing was "
              "read as not connected, not mapped and zero.");
    EXPECT_EQ(Config().InputCode(3, 9, 4), SchemeFalse) << "the option file told what is unconnected";
    EXPECT_EQ(Config().FilePath, "/data/x.c10");
}

TEST_F(Vdr810Commands, WhatTheFileLacksIsUnconnectedAsItsOptionFileTells) {
    LogicConfig lists = SchemeLists(2.3, 12);
    lists.Coding.FalseCode = 104; // not what it is as long as nothing tells it
    std::erase_if(lists.Lists.Labels, [](const Vdr810Label& label) { return label.Name == FalseName; });
    Harness.Files[Option230] = EncodeOptionFile(lists);
    std::string& text = Harness.Files["/data/x.c10"];
    text.resize(text.find("<LATCH 2 SET>"));
    Open("/data/x.c10");
    EXPECT_EQ(Config().InputCode(3, 9, 4), 104);
    EXPECT_EQ(Config().InputCode(1, 8, 1), SchemeFalse) << "the file said so";
    Harness->mnuFileSave_Click();
    EXPECT_NE(Harness.Files["/data/x.c10"].find("<LATCH 2 SET>\r\n1,1,104,104,104"), std::string::npos);
}

TEST_F(Vdr810Commands, WithoutALabelFalseTheUnconnectedSignalStaysAsItWas) {
    Harness.Files.erase(Option230);
    const std::string text = Harness.Files["/data/x.c10"];
    Harness.Files["/data/x.c10"] = text.substr(0, text.find("<LATCH 2 SET>"));
    Open("/data/x.c10");
    EXPECT_EQ(Config().InputCode(3, 9, 4), 255) << "as at the start";
    Harness.Files["/data/y.c10"] = SchemeLogicFile(2.3, 13) + "<LABEL INFO>\r\n5,104,FALSE\r\n";
    Open("/data/y.c10");
    Open("/data/x.c10");
    EXPECT_EQ(Config().InputCode(3, 9, 4), 104) << "as it was in the file before";
    Harness->mnuNewFileVer230_Click();
    Open("/data/x.c10");
    EXPECT_EQ(Config().InputCode(3, 9, 4), 255) << "as a VDR812 has it";
}

TEST_F(Vdr810Commands, AFileOfNoTimersAndNoLatchesIsRefusedWithError9AndLeavesEverything) {
    LogicConfig config = SchemeLists(2.3, 12);
    config.Vdr810.TimerCount = 0;
    config.Vdr810.LatchCount = 0;
    Harness.Files["/data/none.c10"] = EncodeVdr810(config);
    Open("/data/x.c10");
    Open("/data/none.c10");
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_EQ(Harness.Boxes[0].Text,
              "There was an error trying to open the File.\r\nError number: 9\r\nError description: "
              "Subscript out of range\r\nError Source: read /data/none.c10, header");
    EXPECT_EQ(Config().FilePath, "/data/x.c10");
    EXPECT_EQ(Config().Vdr810.TimerCount, 6);
}

TEST_F(Vdr810Commands, TheDialogsAnswerIsOverruledByAnExtensionOfOurs) {
    Harness.ChooseFile("/data", "x.c10", 1);
    Harness->mnuOpenBin_Click();
    EXPECT_EQ(Config().RelayModel, RelayKind::Vdr810);
}

TEST_F(Vdr810Commands, AnotherExtensionGoesByTheFilter) {
    Harness.Files["/data/x.txt"] = Harness.Files["/data/x.c10"];
    Harness.ChooseFile("/data", "x.txt", 2);
    Harness->mnuOpenBin_Click();
    EXPECT_EQ(Config().RelayModel, RelayKind::Vdr810);
    EXPECT_EQ(Config().FilePath, "/data/x.txt");
}

TEST_F(Vdr810Commands, SaveAsWritesUnderTheNewNameAndRefreshesTheCaption) {
    Open("/data/x.c10");
    Harness.ChooseFile("/data", "y.c10", 2);
    Harness->mnuSaveBin_Click();
    EXPECT_EQ(Harness.Files["/data/y.c10"], Harness.Files["/data/x.c10"]);
    EXPECT_EQ(Harness.Dialogs.back().Filter, "Vdr810 PLC File (*.c10)|*.c10");
    EXPECT_EQ(Harness.Dialogs.back().FilterIndex, 2);
    EXPECT_EQ(Harness->Identity().substr(0, 11), "File: y.c10");
}

TEST_F(Vdr810Commands, AChoosersSignalIsConnectedByItsNumber) {
    Harness->mnuFileNewVdr810_Click();
    Harness->txtPlo_GotFocus(5);
    Harness->cmdSelectCategory_Click(1, 1);
    EXPECT_EQ(Config().InputCode(1, 1, 5), 21);
    EXPECT_EQ(Config().InputCode(1, 1, 6), TrueCode) << "a gate wholly FALSE becomes TRUE first";
    EXPECT_EQ(Config().InputCode(1, 1, 9), SchemeFalse);
    Harness->txtPlo_DblClick(5);
    EXPECT_EQ(Config().InputCode(1, 1, 5), 256 - 21);
    EXPECT_EQ(Harness->View().Inputs[4].Text, "Z1G");
}

TEST_F(Vdr810Commands, UnitsThatTheRelayLacksAreHidden) {
    LogicConfig config = SchemeLists(2.3, 12, 3);
    config.Vdr810.TimerCount = 4;
    config.Vdr810.LatchCount = 1;
    Harness.Files["/data/x.c10"] = EncodeVdr810(config);
    Open("/data/x.c10");
    const UnitView view = Harness->View();
    EXPECT_TRUE(view.Units[3].Visible);
    EXPECT_FALSE(view.Units[4].Visible);
    EXPECT_TRUE(view.Units[7].Visible);
    EXPECT_FALSE(view.Units[8].Visible);
    EXPECT_TRUE(view.Groups[2].Visible);
    EXPECT_FALSE(view.Groups[3].Visible);
    EXPECT_TRUE(Harness.Boxes.empty());
}

TEST_F(Vdr810Commands, WithoutTimersTheFirstLatchIsShown) {
    LogicConfig config = SchemeLists(2.3, 12, 1);
    config.Vdr810.TimerCount = 0;
    Harness.Files["/data/x.c10"] = EncodeVdr810(config);
    Open("/data/x.c10");
    EXPECT_EQ(Harness->Shown().Unit, 7);
}

TEST_F(Vdr810Commands, SaveAsRefusesTheOtherRelaysExtension) {
    Open("/data/x.c10");
    Harness.ChooseFile("/data", "y.pl", 2);
    Harness.ChooseFile("/data", "y.c10", 2);
    Harness->mnuSaveBin_Click();
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_EQ(Harness.Boxes[0].Text, "The name of a VDR810 logic file can not end in .pl.");
    EXPECT_FALSE(HasFile("/data/y.pl"));
    EXPECT_TRUE(HasFile("/data/y.c10"));
    Harness->mnuNewFileVer230_Click();
    Harness.ChooseFile("/data", "z.C10");
    Harness.CancelFile();
    Harness->mnuSaveBin_Click();
    EXPECT_EQ(Harness.Boxes.back().Text, "The name of a VDR812 program can not end in .c10.");
    EXPECT_FALSE(HasFile("/data/z.C10"));
}

TEST_F(Vdr810Commands, OpeningALogicMovesWhatTheOptionsDialogOpensWith) {
    Harness.Files["/opt/brindle/PLC00100_OPT00000.810"] = SchemeOptionFile(1.0, 0);
    Open("/data/x.c10");
    Harness->mnuFileNewVdr810_Click();
    EXPECT_EQ(Config().Version, 2.3F);
}

TEST_F(Vdr810Commands, GroupEditingOffersTheGroupsOfTheFile) {
    Open("/data/x.c10");
    EXPECT_TRUE(ChoiceInLogic(Config(), 6));
    EXPECT_TRUE(ChoiceInLogic(Config(), 7)) << "which is not shown";
    EXPECT_TRUE(ChoiceInLogic(Config(), AllGroups));
    EXPECT_EQ(NextGroup(Config(), 8), 1);
    Harness.AnswerBox(MessageAnswer::Ok);
    Harness->EditConfig().Group(8).Timer(2).PickUp = 9;
    Harness->cmdClearGroup_Click(AllGroups);
    EXPECT_EQ(Config().Group(8).Timer(2).PickUp, 0) << "all groups are all of the file's";
}

} // namespace
} // namespace brindle
