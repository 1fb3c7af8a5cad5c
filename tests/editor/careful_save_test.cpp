#include "editor/careful_save.h"
#include "support/editor_harness.h"
#include "support/fake_file_system.h"
#include "support/program_bytes.h"

#include <gtest/gtest.h>

#include <string>

namespace brindle {
namespace {

constexpr const char* SharedPath = "/data/x.pl";

/// An editor with a changed logic whose file can only be replaced without its owner.
struct CarefulSave : testing::Test {
    CarefulSave() {
        Disk.AddFolder("/data");
        Disk.AddFolder("/opt");
        Disk.AddFolder(EditorHarness::ProgramFolder);
        Disk.AddFile(SharedPath, Old);
        Harness.Surroundings.Files = Disk.Operations();
        Harness.Start();
        Harness->OpenPath(SharedPath);
        Harness->EditConfig().Group(1).Timer(2).PickUp = 4321;
        Harness->EditConfig().Modified = true;
        New = ProgramBytes(Harness->Config());
        Disk.LoseTraits({true, false, false, false});
    }

    std::uint64_t FileNumber() {
        FileStatus status;
        Disk.Operations().Status(SharedPath, status);
        return status.Identity.Number;
    }

    void Save(MessageAnswer answer) {
        Harness.AnswerBox(answer);
        Harness->mnuFileSave_Click();
    }

    const std::string Old = NewProgramBytes(Version230);
    std::string New;
    FakeFileSystem Disk;
    EditorHarness Harness;
};

TEST_F(CarefulSave, TellsWhatWouldBeLostAndWhatEachAnswerDoes) {
    Save(MessageAnswer::Cancel);
    ASSERT_EQ(1U, Harness.Boxes.size());
    EXPECT_EQ(
        "/data/x.pl can not be replaced by a new file without losing the owner.  Others may then not be "
        "able to open it.\r\nSelect Yes to write into the file that is there, which loses nothing, No to "
        "replace it all the same, Cancel to leave it as it is.",
        Harness.Boxes[0].Text);
    EXPECT_EQ(MessageButtons::YesNoCancel, Harness.Boxes[0].Buttons);
}

TEST_F(CarefulSave, CancelLeavesTheFileAndTheChangesAndSaysNoMore) {
    Save(MessageAnswer::Cancel);
    EXPECT_EQ(1U, Harness.Boxes.size());
    EXPECT_TRUE(Old == Disk.Content(SharedPath));
    EXPECT_TRUE(Harness->Config().Modified);
}

TEST_F(CarefulSave, YesWritesIntoTheOldFile) {
    const std::uint64_t before = FileNumber();
    Save(MessageAnswer::Yes);
    EXPECT_TRUE(New == Disk.Content(SharedPath));
    EXPECT_EQ(before, FileNumber());
    EXPECT_FALSE(Harness->Config().Modified);
}

TEST_F(CarefulSave, NoReplacesIt) {
    const std::uint64_t before = FileNumber();
    Save(MessageAnswer::No);
    EXPECT_TRUE(New == Disk.Content(SharedPath));
    EXPECT_NE(before, FileNumber());
    EXPECT_FALSE(Harness->Config().Modified);
}

TEST_F(CarefulSave, IsAskedOnceHoweverOftenItIsTriedAgain) {
    Disk.FailAll("write 2048", DiskFullError);
    Harness.AnswerBox(MessageAnswer::No);
    Harness.AnswerBox(MessageAnswer::Retry);
    Harness.AnswerBox(MessageAnswer::Cancel);
    Harness->mnuFileSave_Click();
    ASSERT_EQ(3U, Harness.Boxes.size());
    EXPECT_EQ("Disk Error", Harness.Boxes[1].Title);
    EXPECT_EQ("Disk Error", Harness.Boxes[2].Title);
    Disk.FailNoMore();
    Save(MessageAnswer::No); // another save asks anew
    EXPECT_EQ(4U, Harness.Boxes.size());
}

TEST_F(CarefulSave, AFileThatIsNotWholeAnyMoreIsToldWithThePlaceOfItsCopy) {
    FileSystem files = Disk.Operations();
    Harness.Surroundings.Files = files;
    Harness.Surroundings.Files.CutOff = [&](FileHandle, std::size_t) {
        Disk.FailAll("open /data", DeviceIoError);
        return MakeFileError(DeviceIoError, "cut off");
    };
    Harness.Start();
    Harness->OpenPath(SharedPath);
    Harness->EditConfig().Modified = true;
    Save(MessageAnswer::Yes);
    ASSERT_EQ(2U, Harness.Boxes.size());
    EXPECT_NE(std::string::npos,
              Harness.Boxes[1].Text.find("Device I/O error.  /data/x.pl is not whole any more.  What it held "
                                         "before is kept in /opt/brindle/BeforeSave-"))
        << Harness.Boxes[1].Text;
    EXPECT_TRUE(Harness->Config().Modified);
}

TEST_F(CarefulSave, ACopyThatWasLeftIsToldAtTheNextStart) {
    const std::string copy = "/opt/brindle/BeforeSave-0123456789abcdef-x.pl";
    Disk.AddFile(copy, Old);
    Harness.Start();
    ASSERT_EQ(1U, Harness.Boxes.size());
    EXPECT_EQ("Saving a file in its place was broken off.  What it held before is kept in\r\n" + copy +
                  "\r\nCompare it with the file, and remove the copy when you do not need it any more.",
              Harness.Boxes[0].Text);
    EXPECT_EQ(MessageButtons::Ok, Harness.Boxes[0].Buttons);
}

TEST(CopiesLeftNotice, NamesFiveAndCountsTheRest) {
    const std::string text = CopiesLeftNotice({"a", "b", "c", "d", "e", "f", "g"}).Text;
    EXPECT_NE(std::string::npos, text.find("\r\ne\r\nand 2 more there\r\n")) << text;
}

TEST(LossQuestion, NamesAllThatIsLost) {
    EXPECT_NE(std::string::npos,
              LossQuestion("x", {true, true, true, true})
                  .Text.find("losing the owner, the group, the access list and the extended "
                             "attributes.  Others may"));
    EXPECT_NE(std::string::npos,
              LossQuestion("x", {false, false, false, true}).Text.find("the extended attributes.\r\nSelect"));
}

} // namespace
} // namespace brindle
