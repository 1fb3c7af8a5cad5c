#include "support/editor_harness.h"
#include "support/vdr810_scheme.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

TEST(FormInitialize, AnotherVersionsSettingsAreDroppedOnceAndThenKept) {
    EditorHarness harness;
    harness.Profile.Text =
        "[Brindle]\r\nBrindleVersion=0.990000\r\nHomeDir=/home/me\r\n[Brindle Recent]\r\nRecent0=EMPTY\r\n";
    harness.Folders.insert("/home/me");
    harness.Start();
    EXPECT_EQ(harness->HomeDirectory(), "/opt/brindle");
    EXPECT_NE(harness.Profile.Text->find("BrindleVersion=1.000000"), std::string::npos);
    EXPECT_NE(harness.Profile.Text->find("Recent0=EMPTY"), std::string::npos);

    EditorHarness next;
    next.Folders.insert("/home/me");
    next.Profile.Text = *harness.Profile.Text;
    next.Profile.Text->insert(next.Profile.Text->find("BrindleVersion"), "HomeDir=/home/me\r\n");
    next.Start();
    EXPECT_EQ(next->HomeDirectory(), "/home/me");
}

TEST(FormLoad, StartsWithAnEmpty230LogicNamedInTheHomeDirectory) {
    EditorHarness harness;
    harness.Start();
    EXPECT_EQ(harness->Config().RelayModel, RelayKind::Vdr812);
    EXPECT_EQ(harness->Config().Version, 2.3F);
    EXPECT_FALSE(harness->Config().Modified);
    EXPECT_EQ(harness->Config().FileTitle, "New_File.pl");
    EXPECT_EQ(harness->Config().FilePath, "/opt/brindle/New_File.pl");
    EXPECT_EQ(harness->Title(),
              "VDR812 Programmable Logic          (File: /opt/brindle/New_File.pl) Version: 2.30");
    EXPECT_EQ(harness->Shown().Group, 1);
    EXPECT_EQ(harness->Shown().Unit, 1);
    EXPECT_EQ(harness->Shown().Input, 5);
    EXPECT_EQ(harness->View().Inputs[4].Text, "NO CONNECT");
    EXPECT_EQ(harness->View().SelectedInputCaption, "Connect Signal to:  G1 - T1:11");
    EXPECT_TRUE(harness.Boxes.empty());
}

TEST(FormLoad, AStoredHomeDirectoryIsMadeCurrent) {
    EditorHarness harness;
    harness.Profile.Text = "[Brindle]\r\nBrindleVersion=1.000000\r\nHomeDir=/home/me\r\n";
    harness.Folders.insert("/home/me");
    harness.Start();
    EXPECT_EQ(harness->HomeDirectory(), "/home/me");
    EXPECT_EQ(harness.CurrentFolder, "/home/me");
    EXPECT_EQ(harness->Config().FilePath, "/home/me/New_File.pl");
}

TEST(ChooseHomeDirectory, NamesAFileThatWasNeverSavedInItsNewPlace) {
    EditorHarness harness;
    harness.Start();
    harness->txtTimerPU_Change("12");
    harness.Log.clear();
    harness->ChooseHomeDirectory("/home/me");
    EXPECT_EQ(harness->Config().FilePath, "/home/me/New_File.pl");
    EXPECT_EQ(harness->Title(),
              "VDR812 Programmable Logic          (File: /home/me/New_File.pl) Version: 2.30");
    EXPECT_EQ(harness.Count("title"), 1U);
    EXPECT_EQ(harness->Config().Group(1).Timer(1).PickUp, 12);
    EXPECT_TRUE(harness->Config().Modified);
    harness->mnuFileSave_Click();
    EXPECT_EQ(harness.Files.count("/home/me/New_File.pl"), 1U);
    harness->ChooseHomeDirectory("/home");
    EXPECT_EQ(harness->Config().FilePath, "/home/me/New_File.pl") << "that is its name by now";
}

TEST(ChooseHomeDirectory, LeavesANameThatTheUserChose) {
    EditorHarness harness;
    harness.Start();
    harness.FailWith = DiskFullError;
    harness.ChooseFile("/mnt", "mine.pl");
    harness.AnswerBox(MessageAnswer::Cancel);
    harness->mnuSaveBin_Click();
    ASSERT_EQ(harness->Config().FilePath, "/mnt/mine.pl");
    harness->ChooseHomeDirectory("/home/me");
    EXPECT_EQ(harness->Config().FilePath, "/mnt/mine.pl");
}

TEST(FormLoad, AHomeDirectoryThatIsMissingOrEmptyIsTheProgramsFolder) {
    for (const char* home : {"HomeDir=/nowhere\r\n", "HomeDir=\r\n", ""}) {
        EditorHarness harness;
        harness.Profile.Text = std::string("[Brindle]\r\nBrindleVersion=1.000000\r\n") + home;
        harness.Start();
        EXPECT_EQ(harness->HomeDirectory(), "/opt/brindle") << home;
        EXPECT_EQ(harness.CurrentFolder, "/opt/brindle");
    }
}

TEST(FormLoad, ARelativeHomeDirectoryCountsFromTheProgramsFolder) {
    EditorHarness harness;
    harness.Profile.Text = "[Brindle]\r\nBrindleVersion=1.000000\r\nHomeDir=schemes\r\n";
    harness.Folders.insert("/opt/brindle/schemes");
    harness.Start();
    EXPECT_EQ(harness->HomeDirectory(), "/opt/brindle/schemes");
}

TEST(FormLoad, ThePlacementIsRestoredBeforeTheUnitIsShown) {
    EditorHarness harness;
    harness.Start();
    const std::vector<std::string> expected{"recent  ", "output map", "categories",   "place",
                                            "title",    "identity",   "unit selected"};
    EXPECT_EQ(harness.Log, expected);
    EXPECT_NE(harness.Profile.Text->find("WindowWidth=12000"), std::string::npos)
        << "never stored: stored at once";
}

TEST(FormLoad, TheCommandLinesFileIsOpenedFromItsFolder) {
    EditorHarness harness;
    ProgramImage image{};
    LogicConfig config;
    MakeNewVdr812(config, Version100);
    EncodeProgram(config, image);
    harness.Files["/data/a b.pl"] = std::string(image.begin(), image.end());
    harness.Folders.insert("/data");
    harness.Surroundings.CommandLine = "/data/a b.pl";
    harness.Start();
    EXPECT_EQ(harness->Config().FilePath, "/data/a b.pl");
    EXPECT_EQ(harness->Config().FileTitle, "a b.pl");
    EXPECT_EQ(harness->Title(), "VDR812 Programmable Logic          (File: /data/a b.pl) Version: 1.00");
    EXPECT_EQ(harness.CurrentFolder, "/data");
    EXPECT_EQ(harness->HomeDirectory(), "/opt/brindle");
    EXPECT_TRUE(harness.Dialogs.empty());
}

TEST(FormLoad, AFileOfTheCommandLineThatCannotBeReadLeavesTheNewLogic) {
    EditorHarness harness;
    harness.Surroundings.CommandLine = "/data/missing.pl";
    harness.Start();
    ASSERT_EQ(harness.Boxes.size(), 1U);
    EXPECT_EQ(harness.Boxes[0].Title, "Disk Error");
    EXPECT_EQ(harness->Config().FilePath, "/opt/brindle/New_File.pl");

    harness.CancelFile();
    harness->mnuOpenBin_Click();
    EXPECT_EQ(harness.Dialogs.size(), 1U) << "the next Open asks for its file";
}

TEST(FormLoad, TheModelOfTheCommandLinesFileFollowsItsExtension) {
    EditorHarness harness;
    harness.Files["/data/x.C10"] = SchemeLogicFile(2.3, 12);
    harness.Surroundings.CommandLine = "/data/x.C10";
    harness.Start();
    EXPECT_TRUE(harness.Boxes.empty());
    EXPECT_EQ(harness->Config().RelayModel, RelayKind::Vdr810);
    EXPECT_EQ(harness->Config().FilePath, "/data/x.C10");
}

TEST(FormActivate, RedrawsTheUnitAndKeepsTheSelectedInput) {
    EditorHarness harness;
    harness.Start();
    harness->txtPlo_GotFocus(7);
    harness.Log.clear();
    harness->Form_Activate();
    EXPECT_EQ(harness.Log, (std::vector<std::string>{"unit refreshed"}));
    EXPECT_EQ(harness->Shown().Input, 7);
    EXPECT_EQ(harness->View().SelectedInputCaption, "Connect Signal to:  G1 - T1:13");
}

TEST(FormActivate, BringsTheNumbersThatWereSwitchedOn) {
    EditorHarness harness;
    harness.Start();
    harness->mnuShowNumbers_Click();
    EXPECT_TRUE(harness->NumbersChecked());
    EXPECT_EQ(harness->View().Inputs[4].Text, "NO CONNECT") << "not before the next drawing";
    harness->Form_Activate();
    EXPECT_EQ(harness->View().Inputs[4].Text, "0 -> NO CONNECT");
    harness->mnuShowNumbers_Click();
    harness->mnuTimerLatch_Click(2);
    EXPECT_EQ(harness->View().Inputs[4].Text, "NO CONNECT");
}

TEST(FormUnload, StoresThePlacement) {
    EditorHarness harness;
    harness.Profile.Text =
        "[Brindle]\r\nBrindleVersion=1.000000\r\nWindowWidth=9000\r\nWindowHeight=8000\r\n";
    harness.Start();
    const std::size_t before = harness.Profile.Writes.size();
    harness->Form_Unload();
    EXPECT_EQ(harness.Profile.Writes.size(), before + 5);
}

TEST(FormTerminate, AsksOnlyWhenThereAreChanges) {
    EditorHarness harness;
    harness.Start();
    harness->Form_Terminate();
    EXPECT_TRUE(harness.Boxes.empty());

    harness->EditConfig().Modified = true;
    harness.AnswerBox(MessageAnswer::No);
    harness->Form_Terminate();
    ASSERT_EQ(harness.Boxes.size(), 1U);
    EXPECT_EQ(harness.Boxes[0].Buttons, MessageButtons::YesNo);
    EXPECT_TRUE(harness.Dialogs.empty());

    harness.AnswerBox(MessageAnswer::Yes);
    harness.CancelFile();
    harness->Form_Terminate();
    EXPECT_EQ(harness.Dialogs.size(), 1U) << "Yes saves as";
}

TEST(Exit, CancelKeepsTheWindowAndTheChanges) {
    EditorHarness harness;
    harness.Start();
    harness->EditConfig().Modified = true;
    harness.AnswerBox(MessageAnswer::Cancel);
    harness->mnuExit_Click();
    EXPECT_EQ(harness.Count("unload"), 0U);
    EXPECT_TRUE(harness->Config().Modified);
}

TEST(Exit, NoExitsWithoutASecondQuestion) {
    EditorHarness harness;
    harness.Start();
    harness->EditConfig().Modified = true;
    harness.AnswerBox(MessageAnswer::No);
    harness->mnuExit_Click();
    EXPECT_EQ(harness.Count("unload"), 1U);
    harness->Form_Terminate();
    EXPECT_EQ(harness.Boxes.size(), 1U);
}

TEST(Exit, YesSavesAsAndExitsEvenWhenTheDialogIsCancelled) {
    EditorHarness harness;
    harness.Start();
    harness->EditConfig().Modified = true;
    harness.AnswerBox(MessageAnswer::Yes);
    harness.CancelFile();
    harness->mnuExit_Click();
    EXPECT_EQ(harness.Dialogs.size(), 1U);
    EXPECT_EQ(harness.Count("unload"), 1U);
}

TEST(PctSetReset, FlipsBetweenTheSidesOfALatch) {
    EditorHarness harness;
    harness.Start();
    harness->mnuTimerLatch_Click(10);
    harness->pctSetReset_Click();
    EXPECT_EQ(harness->Shown().Unit, 9);
    harness->pctSetReset_Click();
    EXPECT_EQ(harness->Shown().Unit, 10);
    harness->mnuTimerLatch_Click(3);
    harness->pctSetReset_Click();
    EXPECT_EQ(harness->Shown().Unit, 3);
}

TEST(MnuGroup, KeepsTheUnitAndRedrawsItAlsoForTheSameGroup) {
    EditorHarness harness;
    harness.Start();
    harness->mnuTimerLatch_Click(4);
    harness->txtPlo_GotFocus(9);
    harness->mnuGroup_Click(6);
    EXPECT_EQ(harness->Shown().Unit, 4);
    EXPECT_EQ(harness->Shown().Input, 5) << "selecting a unit selects its first input";
    EXPECT_EQ(harness->View().SelectedInputCaption, "Connect Signal to:  G6 - T4:11");
    const UnitView before = harness->View();
    harness->mnuGroup_Click(6);
    EXPECT_EQ(harness->View().SelectedInputCaption, before.SelectedInputCaption);
    EXPECT_FALSE(harness->Config().Modified);
}

} // namespace
} // namespace brindle
