#include "files/file_stamp.h"
#include "files/whole_file.h"
#include "support/fake_file_system.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

constexpr const char* Path = "/data/x.pl";

/// A file on a disk, and its stamp from when it was read.
struct FileStamps : testing::Test {
    FakeFileSystem Disk;
    FileSystem Files = Disk.Operations();
    FileStamp Stamp;

    FileStamps() {
        Disk.AddFolder("/data");
        Disk.AddFile(Path, "content");
        std::string bytes;
        EXPECT_FALSE(ReadStampedFile(Files, Path, bytes, Stamp).Failed());
        EXPECT_EQ(bytes, "content");
    }

    [[nodiscard]] FileChange Change() const { return ChangeSince(Files, Path, Stamp); }

    FileChange Glance() { return ChangeAtAGlance(Files, Path, Stamp); }
};

TEST_F(FileStamps, AFileLeftAloneHasNotChanged) {
    EXPECT_EQ(Change(), FileChange::None);
    EXPECT_EQ(Glance(), FileChange::None);
}

TEST_F(FileStamps, AFileOfOtherBytesHasChanged) {
    Disk.AddFile(Path, "CONTENT");
    EXPECT_EQ(Change(), FileChange::Changed);
    EXPECT_EQ(Glance(), FileChange::Changed);
}

TEST_F(FileStamps, AFileWrittenAgainWithTheSameBytesHasNotChanged) {
    ASSERT_FALSE(ReplaceWholeFile(Files, Path, "content").Failed());
    FileStatus now;
    ASSERT_FALSE(Files.Status(Path, now).Failed());
    ASSERT_NE(now.Identity, Stamp.Status.Identity);
    EXPECT_EQ(Change(), FileChange::None);
    EXPECT_EQ(Glance(), FileChange::None);
}

TEST_F(FileStamps, AGlanceBelievesTheSystemAndDoesNotRead) {
    const std::size_t before = Disk.Log().size();
    EXPECT_EQ(Glance(), FileChange::None);
    EXPECT_EQ(Disk.Log().size() - before, 1U) << "one question";
}

TEST_F(FileStamps, AChangeThatTheClockOfTheDiskMissesIsFoundByReading) {
    FileSystem coarse = Files;
    coarse.Status = [this](const std::string& path, FileStatus& status) {
        FileError error = Files.Status(path, status);
        status.WrittenAt = Stamp.Status.WrittenAt;
        status.Identity = Stamp.Status.Identity;
        return error;
    };
    Disk.AddFile(Path, "CONTENT");
    EXPECT_EQ(ChangeSince(coarse, Path, Stamp), FileChange::Changed);
}

TEST_F(FileStamps, ADeletedFileIsGone) {
    Files.Remove(Path);
    EXPECT_EQ(Change(), FileChange::Gone);
    EXPECT_EQ(Glance(), FileChange::Gone);
}

TEST_F(FileStamps, AFolderInItsPlaceIsNothingThatASaveReplaces) {
    Disk.AddFolder(Path);
    EXPECT_EQ(Change(), FileChange::None);
}

TEST_F(FileStamps, AGlanceReadsATouchedFileOnce) {
    Disk.AddFile(Path, "content");
    EXPECT_EQ(Glance(), FileChange::None);
    const std::size_t before = Disk.Log().size();
    EXPECT_EQ(Glance(), FileChange::None);
    EXPECT_EQ(Disk.Log().size() - before, 1U);
}

TEST_F(FileStamps, AFileThatCannotBeLookedAtSaysNothing) {
    Disk.AddFile(Path, "CONTENT");
    Disk.FailAll("status", DeviceUnavailableError);
    EXPECT_EQ(Change(), FileChange::None);
    EXPECT_EQ(Glance(), FileChange::None);
}

TEST_F(FileStamps, AFileThatCannotBeReadHasChangedWhenTheSystemTellsOtherThingsOfIt) {
    Disk.FailAll("open", PermissionDeniedError);
    EXPECT_EQ(Change(), FileChange::None);
    Disk.AddFile(Path, "CONTENT");
    EXPECT_EQ(Change(), FileChange::Changed);
}

TEST_F(FileStamps, OfAFileThatCouldNotBeLookedAtNothingIsKnown) {
    Disk.FailAll("status", DeviceUnavailableError);
    Stamp = StampNow(Files, Path);
    Disk.FailNoMore();
    EXPECT_EQ(Change(), FileChange::None);
    Disk.FailAll("open", PermissionDeniedError);
    Stamp = StampNow(Files, Path);
    Disk.FailNoMore();
    EXPECT_EQ(Change(), FileChange::None);
}

TEST_F(FileStamps, AFileThatCannotBeReadButHasAnotherSizeHasChanged) {
    Disk.AddFile(Path, "longer content");
    Disk.FailAll("open", PermissionDeniedError);
    EXPECT_EQ(Change(), FileChange::Changed);
}

TEST_F(FileStamps, AFailedReadingLeavesTheStamp) {
    const FileStamp before = Stamp;
    std::string bytes;
    EXPECT_EQ(ReadStampedFile(Files, "/data/none.pl", bytes, Stamp).Number, FileNotFoundError);
    EXPECT_EQ(Stamp.Status, before.Status);
    EXPECT_EQ(Stamp.Hash, before.Hash);
}

TEST_F(FileStamps, AWrittenFileHasTheStampOfItsBytes) {
    ASSERT_FALSE(ReplaceWholeFile(Files, Path, "written").Failed());
    Stamp = StampOfWritten(Files, Path, "written");
    EXPECT_EQ(Change(), FileChange::None);
    EXPECT_EQ(Glance(), FileChange::None);
    Disk.AddFile(Path, "WRITTEN");
    EXPECT_EQ(Change(), FileChange::Changed);
}

TEST_F(FileStamps, AFileReplacedInTheMomentAfterItWasWrittenHasChanged) {
    ASSERT_FALSE(ReplaceWholeFile(Files, Path, "written").Failed());
    Disk.AddFile(Path, "WRITTEN"); // before our question of the state
    Stamp = StampOfWritten(Files, Path, "written");
    EXPECT_EQ(Change(), FileChange::Changed);
}

TEST_F(FileStamps, NothingThatStaysNothingHasNotChanged) {
    Stamp = StampNow(Files, "/data/new.pl");
    EXPECT_EQ(ChangeSince(Files, "/data/new.pl", Stamp), FileChange::None);
    Disk.AddFile("/data/new.pl", "another's");
    EXPECT_EQ(ChangeSince(Files, "/data/new.pl", Stamp), FileChange::Changed);
}

TEST_F(FileStamps, WhatIsThereNowIsStampedByItsContent) {
    Stamp = StampNow(Files, Path);
    EXPECT_EQ(Change(), FileChange::None);
    Disk.AddFile(Path, "CONTENT");
    EXPECT_EQ(Change(), FileChange::Changed);
}

TEST_F(FileStamps, WhatAFailedWriteBroughtIntoPlaceIsOurs) {
    Stamp.Attempted = HashOfBytes("attempted");
    EXPECT_EQ(Change(), FileChange::None) << "the old content";
    Disk.AddFile(Path, "attempted");
    EXPECT_EQ(Change(), FileChange::None);
    Disk.AddFile(Path, "ATTEMPTED");
    EXPECT_EQ(Change(), FileChange::Changed);
}

TEST_F(FileStamps, ADeviceDoesNotChange) {
    Disk.AddDevice("/data/line");
    ASSERT_FALSE(ReplaceWholeFile(Files, "/data/line", "written").Failed());
    Stamp = StampOfWritten(Files, "/data/line", "written");
    ASSERT_FALSE(ReplaceWholeFile(Files, "/data/line", "more").Failed());
    EXPECT_EQ(ChangeSince(Files, "/data/line", Stamp), FileChange::None);
}

TEST_F(FileStamps, ATextLargerThanAnyOfOursIsRefused) {
    Disk.AddFile(Path, std::string(GreatestTextSize + 1, 'x'));
    std::string text;
    EXPECT_EQ(ReadStampedText(Files, Path, text, Stamp).Number, BadRecordLengthError);
    EXPECT_FALSE(ReadStampedFile(Files, Path, text, Stamp).Failed());
    EXPECT_EQ(text.size(), GreatestTextSize);
    EXPECT_EQ(Change(), FileChange::None) << "as far as it is read";
}

TEST(HashOfBytes, HasTheKnownValuesOfFnv1a) {
    EXPECT_EQ(HashOfBytes(""), 0xCBF29CE484222325U);
    EXPECT_EQ(HashOfBytes("a"), 0xAF63DC4C8601EC8CU);
    EXPECT_EQ(HashOfBytes("foobar"), 0x85944171F73967E8U);
}

} // namespace
} // namespace brindle
