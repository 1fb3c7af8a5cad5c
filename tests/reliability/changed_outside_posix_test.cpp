#include "support/editor_harness.h"
#include "support/file_prompts.h"
#include "support/program_bytes.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

/// What other programs do to a file between its opening and its saving, on the disk of the system.
namespace brindle {
namespace {

/// An editor over the real disk with a logic opened from "in/x.pl" and changed since.
struct ChangedOutside : testing::Test {
    ChangedOutside() {
        std::filesystem::create_directory(Folder.Path("in"));
        Old = NewProgramBytes(Version230);
        Folder.Put("in/x.pl", Old);
        std::filesystem::create_directory(Folder.Path("program"));
        Harness.Surroundings.Files = RealFileSystem();
        Harness.Surroundings.ProgramFolder = Folder.Path("program");
        Harness.Start();
        Harness->OpenPath(Folder.Path("in/x.pl"));
        Harness->EditConfig().Group(3).Timer(4).PickUp = 1234;
        Harness->EditConfig().Modified = true;
        New = ProgramBytes(Harness->Config());
        EXPECT_TRUE(Harness.Boxes.empty());
    }

    ~ChangedOutside() override { ::chmod(Folder.Path("in").c_str(), 0700); }

    void Save() {
        Harness.Boxes.clear();
        Harness->mnuFileSave_Click();
    }

    void ExpectSaved() {
        EXPECT_TRUE(Harness.Boxes.empty());
        EXPECT_TRUE(New == Folder.Content("in/x.pl"));
        EXPECT_FALSE(Harness->Config().Modified);
        EXPECT_EQ(1, std::distance(std::filesystem::directory_iterator(Folder.Path("in")), {}))
            << "nothing is left beside";
    }

    /// The user was told of `error`, and the changes are still there to be saved elsewhere.
    void ExpectRefused(int error) {
        ASSERT_EQ(1U, Harness.Boxes.size());
        ExpectSaveFailure(Harness.Boxes[0], error);
        EXPECT_TRUE(Harness->Config().Modified);
        EXPECT_TRUE(New == ProgramBytes(Harness->Config()));
        EXPECT_EQ(Folder.Path("in/x.pl"), Harness->Config().FilePath);
    }

    TempFolder Folder;
    EditorHarness Harness;
    std::string Old;
    std::string New;
};

TEST_F(ChangedOutside, ADeletedFileIsMadeAnew) {
    std::filesystem::remove(Folder.Path("in/x.pl"));
    Save();
    ExpectSaved();
}

TEST_F(ChangedOutside, AReplacedFileIsReplacedByWhatIsShownOnlyWhenTheUserSaysSo) {
    const auto saveAndAnswer = [this](MessageAnswer answer) {
        Harness->EditConfig().Modified = true;
        Harness.AnswerBox(answer);
        Save();
        ASSERT_EQ(1U, Harness.Boxes.size());
        EXPECT_EQ(MessageButtons::SaveAsOverwriteCancel, Harness.Boxes[0].Buttons);
        Harness.Boxes.clear();
    };
    Folder.Put("in/x.pl", "of another program");
    saveAndAnswer(MessageAnswer::Cancel);
    EXPECT_EQ("of another program", Folder.Content("in/x.pl"));
    EXPECT_TRUE(Harness->Config().Modified);
    saveAndAnswer(MessageAnswer::Overwrite);
    ExpectSaved();
    Folder.Put("other", "of another program");
    std::filesystem::rename(Folder.Path("other"), Folder.Path("in/x.pl"));
    saveAndAnswer(MessageAnswer::Overwrite);
    ExpectSaved();
}

TEST_F(ChangedOutside, ATouchedFileIsSavedUnasked) {
    std::filesystem::last_write_time(Folder.Path("in/x.pl"), std::filesystem::file_time_type::clock::now());
    Harness->Form_Activate();
    EXPECT_TRUE(Harness.ShownStatus.empty());
    Save();
    ExpectSaved();
}

TEST_F(ChangedOutside, AChangeIsToldWhenTheWindowBecomesActive) {
    Folder.Put("in/x.pl", Old.substr(0, Old.size() - 1) + "x");
    Harness->Form_Activate();
    EXPECT_EQ(1U, Harness.ShownStatus.size());
    EXPECT_TRUE(Harness.Boxes.empty());
}

TEST_F(ChangedOutside, AFileThatAnotherProgramReadsOrLocksIsSavedAndTheReaderSeesTheOldOneToItsEnd) {
    const int reader = ::open(Folder.Path("in/x.pl").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_GE(reader, 0);
    ASSERT_EQ(0, ::flock(reader, LOCK_EX));
    Save();
    ExpectSaved();
    std::string seen(Old.size() + 1, '\0');
    EXPECT_EQ(static_cast<ssize_t>(Old.size()), ::read(reader, seen.data(), seen.size()));
    EXPECT_TRUE(seen.substr(0, Old.size()) == Old);
    ::close(reader);
}

TEST_F(ChangedOutside, AFileMadeReadOnlyIsKeptUntilItMayBeWrittenAgain) {
    ASSERT_EQ(0, ::chmod(Folder.Path("in/x.pl").c_str(), 0444));
    Save();
    ExpectRefused(PermissionDeniedError);
    EXPECT_TRUE(Old == Folder.Content("in/x.pl"));
    ASSERT_EQ(0, ::chmod(Folder.Path("in/x.pl").c_str(), 0644));
    Save();
    ExpectSaved();
}

TEST_F(ChangedOutside, AFolderThatTakesNoFilesAnyMoreIsSavedInAllTheSame) {
    if (::geteuid() == 0) {
        GTEST_SKIP() << "no folder forbids the superuser anything";
    }
    ASSERT_EQ(0, ::chmod(Folder.Path("in").c_str(), 0500));
    Save();
    ExpectSaved();
    Harness->EditConfig().Modified = true;
    std::filesystem::remove(Folder.Path("program")); // where the copy of the old file would be
    Save();
    ASSERT_EQ(1U, Harness.Boxes.size());
    EXPECT_NE(std::string::npos, Harness.Boxes[0].Text.find("could not be copied")) << Harness.Boxes[0].Text;
    EXPECT_TRUE(Harness->Config().Modified);
    EXPECT_TRUE(New == Folder.Content("in/x.pl"));
}

TEST_F(ChangedOutside, AFolderInItsPlaceIsLeftWithAllThatIsInIt) {
    std::filesystem::remove(Folder.Path("in/x.pl"));
    std::filesystem::create_directory(Folder.Path("in/x.pl"));
    Folder.Put("in/x.pl/inside", "kept");
    Save();
    ExpectRefused(PathAccessError);
    EXPECT_EQ("kept", Folder.Content("in/x.pl/inside"));
    Harness.Boxes.clear();
    Harness.ChooseFile(Folder.Path("in"), "y.pl");
    Harness->mnuSaveBin_Click();
    EXPECT_TRUE(Harness.Boxes.empty());
    EXPECT_TRUE(New == Folder.Content("in/y.pl"));
    EXPECT_FALSE(Harness->Config().Modified);
}

TEST_F(ChangedOutside, AVanishedFolderIsToldAndMayComeBack) {
    std::filesystem::rename(Folder.Path("in"), Folder.Path("away"));
    Save();
    ExpectRefused(PathNotFoundError);
    EXPECT_TRUE(Old == Folder.Content("away/x.pl"));
    std::filesystem::rename(Folder.Path("away"), Folder.Path("in"));
    Save();
    ExpectSaved();
}

TEST_F(ChangedOutside, AFileInThePlaceOfItsFolderIsAMissingPath) {
    std::filesystem::remove_all(Folder.Path("in"));
    Folder.Put("in", "a file");
    Save();
    ExpectRefused(PathNotFoundError);
    EXPECT_EQ("a file", Folder.Content("in"));
}

TEST_F(ChangedOutside, ADanglingLinkInItsPlaceIsKeptAndItsTargetIsMade) {
    std::filesystem::remove(Folder.Path("in/x.pl"));
    ASSERT_EQ(0, ::symlink("../target.pl", Folder.Path("in/x.pl").c_str()));
    Save();
    ExpectSaved();
    EXPECT_TRUE(std::filesystem::is_symlink(Folder.Path("in/x.pl")));
    EXPECT_TRUE(New == Folder.Content("target.pl"));
}

TEST_F(ChangedOutside, ALinkIntoAMissingFolderAndACircleOfLinksAreTold) {
    std::filesystem::remove(Folder.Path("in/x.pl"));
    ASSERT_EQ(0, ::symlink("none/target.pl", Folder.Path("in/x.pl").c_str()));
    Save();
    ExpectRefused(PathNotFoundError);
    std::filesystem::remove(Folder.Path("in/x.pl"));
    ASSERT_EQ(0, ::symlink("x.pl", Folder.Path("in/x.pl").c_str()));
    Save();
    ExpectRefused(PathAccessError);
    EXPECT_TRUE(std::filesystem::is_symlink(Folder.Path("in/x.pl")));
}

TEST_F(ChangedOutside, APipeInItsPlaceIsToldAndARetrySavesOnceItIsGone) {
    std::filesystem::remove(Folder.Path("in/x.pl"));
    ASSERT_EQ(0, ::mkfifo(Folder.Path("in/x.pl").c_str(), 0600));
    Harness.AnswerBox(MessageAnswer::Cancel);
    Save();
    ExpectRefused(DeviceUnavailableError);
    EXPECT_TRUE(std::filesystem::is_fifo(Folder.Path("in/x.pl")));
    // The user clears the way while the box is shown.
    EditorHarness& harness = Harness;
    EditorHarness clearing;
    clearing.Surroundings.Files = RealFileSystem();
    clearing.Surroundings.ShowMessageBox = [&](const MessageBox& box) {
        ExpectSaveFailure(box, DeviceUnavailableError);
        std::filesystem::remove(Folder.Path("in/x.pl"));
        return MessageAnswer::Retry;
    };
    clearing.Start();
    clearing->EditConfig() = harness->Config();
    clearing->mnuFileSave_Click();
    EXPECT_FALSE(clearing->Config().Modified);
    EXPECT_TRUE(New == Folder.Content("in/x.pl"));
}

TEST_F(ChangedOutside, AFileThatHasGoneWhenItIsOpenedLeavesTheLogicAndItsChanges) {
    Harness->EditConfig().Modified = false;
    std::filesystem::remove(Folder.Path("in/x.pl"));
    Harness.Boxes.clear();
    Harness->OpenPath(Folder.Path("in/x.pl"));
    ASSERT_EQ(1U, Harness.Boxes.size());
    EXPECT_EQ("File not found.", Harness.Boxes[0].Text);
    EXPECT_TRUE(New == ProgramBytes(Harness->Config())) << "the only copy that is left can still be saved";
    Save();
    ExpectSaved();
}

} // namespace
} // namespace brindle
