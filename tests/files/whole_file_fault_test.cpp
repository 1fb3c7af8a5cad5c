#include "files/whole_file.h"
#include "support/fake_file_system.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

/// What a save leaves when any one operation fails, when all fail from some point on, and when the power
/// fails there: the old file whole or the new file whole.
namespace brindle {
namespace {

constexpr const char* FaultyPath = "/home/x.pl";
constexpr std::size_t Operations = 8;      // of an undisturbed save
constexpr std::size_t RenameOperation = 6; // the step at which the new file takes the place of the old
const std::string Old(2048, 'o');
const std::string New(2048, 'n');

FakeFileSystem DiskWithOldFile() {
    FakeFileSystem disk;
    disk.AddFolder("/home");
    disk.AddFile(FaultyPath, Old, 0640);
    return disk;
}

int Replace(FakeFileSystem& disk) {
    return ReplaceWholeFile(disk.Operations(), FaultyPath, New).Number;
}

bool HasFileBeside(const FakeFileSystem& disk) {
    const std::vector<std::string> names = disk.Names();
    return std::any_of(names.begin(), names.end(), [](const std::string& name) {
        return name.find(".brindle-save-") != std::string::npos;
    });
}

TEST(SaveUnderFaults, AnUndisturbedSaveHasTheOperationsThatTheseTestsCount) {
    FakeFileSystem disk = DiskWithOldFile();
    EXPECT_EQ(0, Replace(disk));
    ASSERT_EQ(Operations, disk.Log().size());
    EXPECT_EQ(0U, disk.Log()[RenameOperation - 1].find("rename"));
    EXPECT_EQ(New, disk.Content(FaultyPath));
    EXPECT_EQ(0640U, disk.Mode(FaultyPath));
}

TEST(SaveUnderFaults, OneFailedOperationIsReportedAndLeavesTheOldFileUntilTheRename) {
    for (std::size_t n = 1; n <= Operations; ++n) {
        FakeFileSystem disk = DiskWithOldFile();
        disk.FailOnce(n, DeviceIoError);
        EXPECT_EQ(DeviceIoError, Replace(disk)) << n;
        EXPECT_EQ(n <= RenameOperation ? Old : New, disk.Content(FaultyPath)) << n;
        EXPECT_FALSE(HasFileBeside(disk)) << n;
        EXPECT_EQ(0U, disk.OpenHandles()) << n;
    }
}

TEST(SaveUnderFaults, AfterAnyOneFailureSavingAgainGoesWell) {
    for (std::size_t n = 1; n <= Operations; ++n) {
        FakeFileSystem disk = DiskWithOldFile();
        disk.FailOnce(n, DiskFullError);
        EXPECT_EQ(DiskFullError, Replace(disk)) << n;
        EXPECT_EQ(0, Replace(disk)) << n;
        EXPECT_EQ(New, disk.Content(FaultyPath)) << n;
        EXPECT_EQ(0640U, disk.Mode(FaultyPath)) << n;
    }
}

TEST(SaveUnderFaults, ADiskThatFailsForGoodKeepsTheOldFileOrHasTheNewOne) {
    for (std::size_t n = 1; n <= Operations; ++n) {
        FakeFileSystem disk = DiskWithOldFile();
        disk.FailFrom(n, DeviceIoError);
        EXPECT_EQ(DeviceIoError, Replace(disk)) << n;
        EXPECT_EQ(n <= RenameOperation ? Old : New, disk.Content(FaultyPath)) << n;
        EXPECT_EQ(0U, disk.OpenHandles()) << n;
    }
}

TEST(SaveUnderFaults, AFailureOfANewFilesFirstSaveLeavesNoFile) {
    for (std::size_t n = 1; n <= RenameOperation; ++n) {
        FakeFileSystem disk;
        disk.AddFolder("/home");
        disk.FailOnce(n, DiskFullError);
        EXPECT_EQ(DiskFullError, Replace(disk)) << n;
        EXPECT_EQ((std::vector<std::string>{"/", "/home"}), disk.Names()) << n;
    }
}

TEST(SaveUnderFaults, APowerFailureAtAnyPointLeavesTheOldOrTheNewFileWhole) {
    for (const UnflushedNames names : {UnflushedNames::Forgotten, UnflushedNames::Kept}) {
        for (std::size_t n = 1; n <= Operations + 1; ++n) {
            FakeFileSystem disk = DiskWithOldFile();
            disk.FailFrom(n, DeviceIoError);
            Replace(disk);
            disk.Crash(names);
            const std::string left = disk.Content(FaultyPath).value_or("no file");
            EXPECT_TRUE(left == Old || left == New) << n << " left " << left.substr(0, 10);
        }
    }
}

TEST(SaveUnderFaults, WhatWasReportedAsSavedSurvivesAPowerFailure) {
    for (const UnflushedNames names : {UnflushedNames::Forgotten, UnflushedNames::Kept}) {
        FakeFileSystem disk = DiskWithOldFile();
        ASSERT_EQ(0, Replace(disk));
        disk.Crash(names);
        EXPECT_EQ(New, disk.Content(FaultyPath));
        EXPECT_FALSE(HasFileBeside(disk));
    }
}

TEST(SaveUnderFaults, APowerFailureCanUndoASaveWhoseLastFlushFailed) {
    FakeFileSystem disk = DiskWithOldFile();
    disk.FailOnce(Operations, DeviceIoError);
    EXPECT_EQ(DeviceIoError, Replace(disk));
    EXPECT_EQ(New, disk.Content(FaultyPath));
    disk.Crash(UnflushedNames::Forgotten);
    EXPECT_EQ(Old, disk.Content(FaultyPath));
}

TEST(SaveUnderFaults, TheFirstFailureIsTheOneReported) {
    FakeFileSystem disk = DiskWithOldFile();
    FileSystem files = disk.Operations();
    files.Write = [](FileHandle, const char*, std::size_t) { return MakeFileError(DiskFullError, "write"); };
    files.Remove = [](const std::string& path) { return MakeFileError(PermissionDeniedError, path); };
    const FileError error = ReplaceWholeFile(files, FaultyPath, New);
    EXPECT_EQ(DiskFullError, error.Number);
    EXPECT_EQ("write /home/x.pl", error.Source);
}

} // namespace
} // namespace brindle
