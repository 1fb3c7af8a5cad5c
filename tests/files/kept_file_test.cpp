#include "files/whole_file.h"
#include "support/fake_file_system.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// Files that have more to keep than their content: what the user is asked, and what is written in place.
namespace brindle {
namespace {

constexpr const char* KeptPath = "/home/x.pl";
constexpr const char* CopyPath = "/own/BeforeSave-0000000000000001-x.pl";

struct KeptFile : testing::Test {
    KeptFile() {
        Disk.AddFolder("/home");
        Disk.AddFolder("/own");
        Disk.AddFile(KeptPath, "old", 0640);
        Rules.CopyFolder = "/own";
        Rules.AskAboutLoss = [this](const FileTraits& lost) {
            Asked.push_back(lost);
            return Answer;
        };
    }

    int Replace(const std::string& bytes = "new") {
        return ReplaceWholeFile(Disk.Operations(), KeptPath, bytes, Rules).Number;
    }

    std::uint64_t FileNumber() {
        FileStatus status;
        Disk.Operations().Status(KeptPath, status);
        return status.Identity.Number;
    }

    FakeFileSystem Disk;
    ReplaceRules Rules;
    LossAnswer Answer = LossAnswer::Cancel;
    std::vector<FileTraits> Asked;
    const std::vector<std::string> NamesBefore{"/", "/home", KeptPath, "/own"};
};

TEST_F(KeptFile, IsReplacedWithoutAQuestionWhereNothingIsLost) {
    const std::uint64_t old = FileNumber();
    EXPECT_EQ(0, Replace());
    EXPECT_EQ("new", Disk.Content(KeptPath));
    EXPECT_NE(old, FileNumber());
    EXPECT_TRUE(Asked.empty());
}

TEST_F(KeptFile, IsLeftWhereTheUserDoesNotWantTheLoss) {
    Disk.LoseTraits({true, false, true, false});
    EXPECT_EQ(CancelledError, Replace());
    EXPECT_EQ((std::vector<FileTraits>{{true, false, true, false}}), Asked);
    EXPECT_EQ("old", Disk.Content(KeptPath));
    EXPECT_EQ(NamesBefore, Disk.Names());
    EXPECT_EQ(0U, Disk.OpenHandles());
}

TEST_F(KeptFile, IsReplacedWhereTheUserTakesTheLoss) {
    Disk.LoseTraits({false, true, false, false});
    Answer = LossAnswer::Replace;
    const std::uint64_t old = FileNumber();
    EXPECT_EQ(0, Replace());
    EXPECT_EQ("new", Disk.Content(KeptPath));
    EXPECT_NE(old, FileNumber());
    EXPECT_EQ(NamesBefore, Disk.Names());
}

TEST_F(KeptFile, StaysTheSameFileWhereTheUserWantsNoLoss) {
    Disk.LoseTraits({true, true, false, false});
    Answer = LossAnswer::WriteInPlace;
    const std::uint64_t old = FileNumber();
    EXPECT_EQ(0, Replace());
    EXPECT_EQ("new", Disk.Content(KeptPath));
    EXPECT_EQ(old, FileNumber());
    EXPECT_EQ(NamesBefore, Disk.Names());
    EXPECT_EQ(0U, Disk.OpenHandles());
}

TEST_F(KeptFile, OfTheProgramItselfIsReplacedWithoutAQuestion) {
    Disk.LoseTraits({true, true, true, true});
    EXPECT_EQ(0, ReplaceWholeFile(Disk.Operations(), KeptPath, "new").Number);
    EXPECT_EQ("new", Disk.Content(KeptPath));
}

TEST_F(KeptFile, WithSeveralNamesKeepsThemAll) {
    Disk.AddFolder("/other");
    Disk.AddName("/other/y.pl", KeptPath);
    EXPECT_EQ(0, Replace("longer than before"));
    EXPECT_EQ("longer than before", Disk.Content(KeptPath));
    EXPECT_EQ("longer than before", Disk.Content("/other/y.pl"));
    EXPECT_EQ(0, Replace("n"));
    EXPECT_EQ("n", Disk.Content("/other/y.pl"));
    EXPECT_TRUE(Asked.empty());
}

TEST_F(KeptFile, InAFolderThatTakesNoNewFileIsWrittenInPlace) {
    Disk.AddFolder("/home", 0555);
    EXPECT_EQ(0, Replace());
    EXPECT_EQ("new", Disk.Content(KeptPath));
    EXPECT_EQ(NamesBefore, Disk.Names());
    EXPECT_EQ(0U, Disk.OpenHandles());
}

TEST_F(KeptFile, InAFolderThatLetsNobodyRenameIsWrittenInPlace) {
    Disk.FailAll("rename", PathAccessError);
    EXPECT_EQ(0, Replace());
    EXPECT_EQ("new", Disk.Content(KeptPath));
    EXPECT_EQ(NamesBefore, Disk.Names());
}

TEST_F(KeptFile, ThatIsMarkedReadOnlyIsNeverWrittenInPlace) {
    Disk.AddFile(KeptPath, "old", 0444);
    Disk.AddFolder("/home", 0555);
    EXPECT_EQ(PermissionDeniedError, Replace());
    EXPECT_EQ("old", Disk.Content(KeptPath));
}

TEST_F(KeptFile, ThatDoesNotExistIsNotMadeInAFolderThatTakesNone) {
    Disk.AddFolder("/locked", 0555);
    EXPECT_EQ(PathAccessError, ReplaceWholeFile(Disk.Operations(), "/locked/x.pl", "new", Rules).Number);
    EXPECT_EQ(0U, Disk.OpenHandles());
}

TEST_F(KeptFile, IsCopiedAndTheCopyFlushedBeforeItIsTouched) {
    Disk.AddName("/home/y.pl", KeptPath);
    ASSERT_EQ(0, Replace("newer"));
    EXPECT_EQ((std::vector<std::string>{
                  "status /home/x.pl", "follow /home/x.pl", "open /home/x.pl", "status /home/x.pl",
                  "open /home/x.pl", "read", "read", "close", std::string("create ") + CopyPath,
                  "write 3 bytes", "flush", "flush folder /own", "write 5 bytes", "cut off at 5", "flush",
                  "close", std::string("remove ") + CopyPath, "close", "flush folder /own"}),
              Disk.Log());
}

TEST_F(KeptFile, IsCopiedForItsUserAlone) {
    Disk.AddName("/home/y.pl", KeptPath);
    Disk.FailAll("remove", DeviceIoError);
    ASSERT_EQ(0, Replace());
    EXPECT_EQ("old", Disk.Content(CopyPath));
    EXPECT_EQ(0600U, Disk.Mode(CopyPath));
}

TEST_F(KeptFile, ThatCannotBeCopiedIsNotTouchedAndTheReasonIsTold) {
    Disk.AddName("/home/y.pl", KeptPath);
    Disk.AddFolder("/own", 0555);
    const FileError error = ReplaceWholeFile(Disk.Operations(), KeptPath, "new", Rules);
    EXPECT_EQ(InternalError, error.Number);
    EXPECT_EQ("The file can only be written in its place, and what it holds could not be copied to /own "
              "before (Permission denied).",
              error.Description);
    EXPECT_EQ("old", Disk.Content(KeptPath));
    EXPECT_EQ(0U, Disk.OpenHandles());
}

} // namespace
} // namespace brindle
