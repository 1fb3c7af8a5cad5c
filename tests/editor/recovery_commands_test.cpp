#include "support/editor_harness.h"
#include "support/fake_locks.h"
#include "support/program_bytes.h"
#include "support/vdr810_scheme.h"

#include <gtest/gtest.h>

/// Unsaved work over several runs of the editor.
namespace brindle {
namespace {

constexpr const char* CopyPath = "/opt/brindle/Recovery1.brindle";

struct RecoveryCommands : testing::Test {
    /// A run of the program on the disk of the run before.
    void StartAgain() {
        std::map<std::string, std::string> files;
        if (Run) {
            files = Run->Files;
        }
        Run = std::make_unique<EditorHarness>();
        Run->Files = files;
        Run->Surroundings.Locks = Locks.Operations();
    }

    void CrashAndStartAgain() {
        Locks.Held.clear();
        StartAgain();
    }

    /// Seconds pass without an edit.
    void Wait() {
        (*Run)->KeepRecoveryCopy();
        (*Run)->KeepRecoveryCopy();
    }

    [[nodiscard]] bool HasCopy() const { return Run->Files.count(CopyPath) == 1; }

    FakeLocks Locks;
    std::unique_ptr<EditorHarness> Run;
};

/// A run with a file open and an edit that was not saved; then the crash.
struct RecoveryAfterCrash : RecoveryCommands {
    RecoveryAfterCrash() {
        LogicConfig config;
        MakeNewVdr812(config, Version230);
        ProgramImage image{};
        EXPECT_FALSE(EncodeProgram(config, image).Failed());
        StartAgain();
        Run->Files["/home/a.pl"] = {image.begin(), image.end()};
        Run->Surroundings.CommandLine = "/home/a.pl";
        Run->Start();
        (*Run)->txtTimerPU_Change("1234");
        Wait();
        CrashAndStartAgain();
    }
};

TEST_F(RecoveryAfterCrash, TheNextStartAsksForTheFileByName) {
    Run->AnswerBox(MessageAnswer::Cancel);
    Run->Start();
    ASSERT_EQ(1U, Run->Boxes.size());
    EXPECT_EQ("Changes to the file /home/a.pl had not been saved when the program ended.  A copy of the work "
              "was kept on 5/4/2001 10:12:33.\r\nSelect Yes to go on with it, No to throw it away, Cancel to "
              "be asked again at the next start.",
              Run->Boxes[0].Text);
    EXPECT_EQ(MessageButtons::YesNoCancel, Run->Boxes[0].Buttons);
}

TEST_F(RecoveryAfterCrash, YesBringsTheWorkBackAsNotSaved) {
    const std::string onDisk = Run->Files["/home/a.pl"];
    Run->AnswerBox(MessageAnswer::Yes);
    Run->Start();
    EXPECT_EQ(1234, (*Run)->Config().Group(1).Timer(1).PickUp);
    EXPECT_TRUE((*Run)->Config().Modified);
    EXPECT_NE(std::string::npos, (*Run)->Title().find("(File: /home/a.pl)"));
    EXPECT_EQ("/home/a.pl", (*Run)->ReportStart().FileName);
    EXPECT_EQ(onDisk, Run->Files["/home/a.pl"]) << "the user's file is the user's";
    EXPECT_TRUE(HasCopy()) << "until it is saved, another crash would lose it";
}

TEST_F(RecoveryAfterCrash, OnceSavedTheWorkIsAskedForNoMore) {
    Run->AnswerBox(MessageAnswer::Yes);
    Run->Start();
    (*Run)->mnuFileSave_Click();
    Wait();
    EXPECT_FALSE(HasCopy());
    CrashAndStartAgain();
    Run->Start();
    EXPECT_TRUE(Run->Boxes.empty());
}

TEST_F(RecoveryAfterCrash, AFileThatChangedSinceIsToldOfAndAskedAbout) {
    const std::string others = NewProgramBytes(Version100);
    Run->Files["/home/a.pl"] = others;
    Run->AnswerBox(MessageAnswer::Yes);
    Run->Start();
    EXPECT_EQ(1U, Run->ShownStatus.size());
    Run->AnswerBox(MessageAnswer::Cancel);
    (*Run)->mnuFileSave_Click();
    ASSERT_EQ(2U, Run->Boxes.size());
    EXPECT_EQ(MessageButtons::SaveAsOverwriteCancel, Run->Boxes[1].Buttons);
    EXPECT_EQ(others, Run->Files["/home/a.pl"]);
}

TEST_F(RecoveryCommands, AForeignFileIsStillForeignAfterACrash) {
    StartAgain();
    Run->Files["/home/script.pl"] = "print 1;";
    Run->Surroundings.CommandLine = "/home/script.pl";
    Run->Start();
    (*Run)->txtTimerPU_Change("1234");
    Wait();
    CrashAndStartAgain();
    Run->AnswerBox(MessageAnswer::Yes);
    Run->Start();
    EXPECT_EQ(1U, Run->ShownStatus.size());
    Run->AnswerBox(MessageAnswer::Cancel);
    (*Run)->mnuFileSave_Click();
    EXPECT_EQ("print 1;", Run->Files["/home/script.pl"]);
}

TEST_F(RecoveryCommands, APartOfARefusedFileIsStillAPartAfterACrash) {
    StartAgain();
    Run->Files["/opt/brindle/PLC00230_OPT00012.810"] = SchemeOptionFile(2.3, 12);
    Run->Files["/opt/brindle/New_File.c10"] = "another scheme";
    Run->Files["/home/x.c10"] = SchemeLogicFile(2.3, 12) + "9,1\r\n";
    Run->Surroundings.CommandLine = "/home/x.c10";
    Run->Start();
    (*Run)->txtTimerPU_Change("1234");
    Wait();
    CrashAndStartAgain();
    Run->AnswerBox(MessageAnswer::Yes);
    Run->Start();
    Run->CancelFile();
    (*Run)->mnuFileSave_Click();
    EXPECT_EQ(1U, Run->Dialogs.size());
    EXPECT_EQ("another scheme", Run->Files["/opt/brindle/New_File.c10"]);
}

TEST_F(RecoveryAfterCrash, ASecondCrashLosesNothing) {
    Run->AnswerBox(MessageAnswer::Yes);
    Run->Start();
    CrashAndStartAgain();
    Run->AnswerBox(MessageAnswer::Yes);
    Run->Start();
    EXPECT_EQ(1234, (*Run)->Config().Group(1).Timer(1).PickUp);
}

TEST_F(RecoveryAfterCrash, NoThrowsTheCopyAway) {
    Run->AnswerBox(MessageAnswer::No);
    Run->Start();
    EXPECT_FALSE(HasCopy());
    EXPECT_FALSE((*Run)->Config().Modified);
    EXPECT_EQ("New_File.pl", (*Run)->Config().FileTitle);
}

TEST_F(RecoveryAfterCrash, CancelAsksAgainAtTheNextStart) {
    Run->AnswerBox(MessageAnswer::Cancel);
    Run->Start();
    EXPECT_EQ("New_File.pl", (*Run)->Config().FileTitle);
    StartAgain();
    Run->AnswerBox(MessageAnswer::Cancel);
    Run->Start();
    EXPECT_EQ(1U, Run->Boxes.size());
}

TEST_F(RecoveryAfterCrash, AFileToBeOpenedAtStartAsksBeforeItTakesThePlaceOfTheWork) {
    Run->Surroundings.CommandLine = "/home/a.pl";
    Run->AnswerBox(MessageAnswer::Yes);
    Run->AnswerBox(MessageAnswer::Cancel); // "before you load a new file?"
    Run->Start();
    EXPECT_EQ(2U, Run->Boxes.size());
    EXPECT_EQ(1234, (*Run)->Config().Group(1).Timer(1).PickUp);
}

TEST_F(RecoveryCommands, ANewFilesWorkComesBackAsANewFile) {
    StartAgain();
    Run->Start();
    (*Run)->txtTimerPU_Change("5");
    Wait();
    CrashAndStartAgain();
    Run->AnswerBox(MessageAnswer::Yes);
    Run->Start();
    EXPECT_EQ(0U, Run->Boxes[0].Text.find("A new file had not been saved when the program ended."));
    EXPECT_EQ("New_File.pl", (*Run)->ReportStart().FileName);
}

TEST_F(RecoveryCommands, ADropOutTimeAloneIsKeptToo) {
    StartAgain();
    Run->Start();
    (*Run)->txtTimerDO_Change("77");
    ASSERT_FALSE((*Run)->Config().Modified);
    Wait();
    EXPECT_TRUE(HasCopy());
}

/// A run with a changed drop-out time, which no command asks about.
struct UnaskedChange : RecoveryCommands {
    UnaskedChange() {
        StartAgain();
        Run->Start();
        (*Run)->txtTimerDO_Change("77");
        EXPECT_FALSE((*Run)->Config().Modified);
    }

    /// The next start brings the change back.
    void ExpectOffered() {
        EXPECT_TRUE(HasCopy());
        EXPECT_TRUE(Run->Boxes.empty());
        StartAgain();
        Run->AnswerBox(MessageAnswer::Yes);
        Run->Start();
        EXPECT_EQ(77, (*Run)->Config().Group(1).Timer(1).DropOut);
        EXPECT_EQ(1U, Run->Boxes.size());
    }
};

TEST_F(UnaskedChange, IsOfferedAgainAfterExit) {
    (*Run)->mnuExit_Click();
    (*Run)->Form_Terminate();
    ExpectOffered();
}

TEST_F(UnaskedChange, IsOfferedAgainAfterTheWindowWasClosed) {
    Wait();
    (*Run)->Form_Terminate();
    EXPECT_TRUE(Locks.Held.empty());
    ExpectOffered();
}

TEST_F(UnaskedChange, IsOfferedAgainAfterAnotherLogicTookItsPlace) {
    (*Run)->mnuNewFileVer100_Click();
    (*Run)->Form_Terminate();
    ExpectOffered();
}

TEST_F(UnaskedChange, ThatWasSavedLeavesNothing) {
    (*Run)->mnuFileSave_Click();
    (*Run)->mnuExit_Click();
    (*Run)->Form_Terminate();
    EXPECT_FALSE(HasCopy());
}

TEST_F(UnaskedChange, ThatTheUserDiscardsWithOthersLeavesNothing) {
    (*Run)->txtTimerPU_Change("5");
    Run->AnswerBox(MessageAnswer::No);
    (*Run)->mnuExit_Click();
    (*Run)->Form_Terminate();
    EXPECT_FALSE(HasCopy());
}

TEST_F(RecoveryCommands, ACopyThatCannotBeReadIsToldOfOnce) {
    StartAgain();
    Run->Files[CopyPath] = "Brindle recovery copy 7\n";
    Run->Start();
    ASSERT_EQ(1U, Run->Boxes.size());
    EXPECT_EQ(
        "A copy of unsaved work could not be read: it is damaged, or of another version of the program.  It "
        "was put aside and will not be asked for again:\r\n/opt/brindle/Recovery1.damaged-1",
        Run->Boxes[0].Text);
    EXPECT_EQ(MessageButtons::Ok, Run->Boxes[0].Buttons);
    EXPECT_EQ(1U, Run->Files.count("/opt/brindle/Recovery1.damaged-1"));
    EXPECT_FALSE(HasCopy());
    StartAgain();
    Run->Start();
    EXPECT_TRUE(Run->Boxes.empty());
}

TEST_F(RecoveryCommands, WorkIsKeptAtOnceBeforeTheProgramIsEndedFromOutside) {
    StartAgain();
    Run->Start();
    (*Run)->KeepRecoveryCopyAtOnce();
    EXPECT_FALSE(HasCopy());
    (*Run)->txtTimerPU_Change("5");
    (*Run)->KeepRecoveryCopyAtOnce();
    EXPECT_TRUE(HasCopy());
    CrashAndStartAgain();
    Run->AnswerBox(MessageAnswer::Yes);
    Run->Start();
    EXPECT_EQ(5, (*Run)->Config().Group(1).Timer(1).PickUp);
}

TEST_F(RecoveryCommands, AnExitThatDiscardsLeavesNoCopy) {
    StartAgain();
    Run->Start();
    (*Run)->txtTimerPU_Change("5");
    Wait();
    ASSERT_TRUE(HasCopy());
    Run->AnswerBox(MessageAnswer::No);
    (*Run)->mnuExit_Click();
    (*Run)->Form_Terminate();
    EXPECT_FALSE(HasCopy());
    EXPECT_TRUE(Locks.Held.empty());
}

TEST_F(RecoveryCommands, AnExitWhoseSaveDoesNotComeAboutKeepsTheWork) {
    StartAgain();
    Run->Start();
    (*Run)->txtTimerPU_Change("5");
    Run->AnswerBox(MessageAnswer::Yes);
    Run->CancelFile();
    (*Run)->mnuExit_Click();
    (*Run)->Form_Terminate();
    EXPECT_TRUE(HasCopy());
    StartAgain();
    Run->AnswerBox(MessageAnswer::Yes);
    Run->Start();
    EXPECT_EQ(5, (*Run)->Config().Group(1).Timer(1).PickUp);
}

TEST_F(RecoveryCommands, AClosedWindowWhoseSaveDoesNotComeAboutKeepsTheWork) {
    StartAgain();
    Run->Start();
    (*Run)->txtTimerPU_Change("5");
    Run->AnswerBox(MessageAnswer::Yes);
    Run->CancelFile();
    (*Run)->Form_Terminate();
    EXPECT_TRUE(HasCopy());
}

TEST_F(RecoveryCommands, NewAfterASaveThatDidNotComeAboutKeepsTheWork) {
    StartAgain();
    Run->Start();
    (*Run)->txtTimerPU_Change("5");
    Run->AnswerBox(MessageAnswer::Yes);
    Run->CancelFile();
    (*Run)->mnuNewFileVer100_Click();
    ASSERT_EQ(0, (*Run)->Config().Group(1).Timer(1).PickUp);
    (*Run)->Form_Terminate();
    StartAgain();
    Run->AnswerBox(MessageAnswer::Yes);
    Run->Start();
    EXPECT_EQ(5, (*Run)->Config().Group(1).Timer(1).PickUp);
}

TEST_F(RecoveryCommands, NewThatDiscardsLeavesNoCopy) {
    StartAgain();
    Run->Start();
    (*Run)->txtTimerPU_Change("5");
    Wait();
    Run->AnswerBox(MessageAnswer::No);
    (*Run)->mnuNewFileVer230_Click();
    Wait();
    EXPECT_FALSE(HasCopy());
}

TEST_F(RecoveryCommands, AVdr810LogicComesBackWithTheSignalsThatNoOptionFileHolds) {
    StartAgain();
    Run->Start();
    (*Run)->EditConfig() = SchemeLists(2.3, 12);
    Wait();
    CrashAndStartAgain();
    Run->AnswerBox(MessageAnswer::Yes);
    Run->Start();
    EXPECT_EQ(RelayKind::Vdr810, (*Run)->Config().RelayModel);
    EXPECT_FALSE((*Run)->Config().Lists.Empty());
    EXPECT_EQ("Zone 1", (*Run)->Catalogue().Categories.at(1).Name);
    (*Run)->mnuFileSave_Click(); // makes the option file, so that the names are not lost
    EXPECT_EQ(1U, Run->Files.count("/opt/brindle/PLC00230_OPT00012.810"));
}

} // namespace
} // namespace brindle
