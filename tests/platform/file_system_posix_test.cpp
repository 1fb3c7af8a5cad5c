#include "platform/file_system.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace brindle {
namespace {

const std::string EmbeddedZero("/tmp/a\0b", 8);

struct RealFiles : testing::Test {
    FileStatus StatusOf(const std::string& path) {
        FileStatus status;
        EXPECT_FALSE(Files.Status(path, status).Failed()) << path;
        return status;
    }

    int OpenForReading(const std::string& path) {
        FileHandle handle = -1;
        FileError error = Files.OpenForReading(path, handle);
        if (!error.Failed()) {
            Files.Close(handle);
        }
        return error.Number;
    }

    int Create(const std::string& path, std::uint32_t mode = 0) {
        FileHandle handle = -1;
        FileError error = Files.CreateNew(path, mode, handle);
        if (!error.Failed()) {
            Files.Close(handle);
        }
        return error.Number;
    }

    FileSystem Files = RealFileSystem();
    TempFolder Folder;
};

TEST_F(RealFiles, StatusTellsWhatThereIs) {
    Folder.Put("x", "123");
    ASSERT_EQ(0, ::mkfifo(Folder.Path("pipe").c_str(), 0600));
    EXPECT_EQ(FileType::Regular, StatusOf(Folder.Path("x")).Type);
    EXPECT_EQ(3U, StatusOf(Folder.Path("x")).Size);
    EXPECT_EQ(FileType::Folder, StatusOf(Folder.Path()).Type);
    EXPECT_EQ(FileType::Device, StatusOf("/dev/null").Type);
    EXPECT_EQ(FileType::Other, StatusOf(Folder.Path("pipe")).Type);
    EXPECT_EQ(FileType::Absent, StatusOf(Folder.Path("none")).Type);
    EXPECT_EQ(FileType::Absent, StatusOf(Folder.Path("none/x")).Type);
}

TEST_F(RealFiles, AFileWithoutWriteBitsIsNotWritableForTheSuperuserEither) {
    Folder.Put("x", "");
    ASSERT_EQ(0, ::chmod(Folder.Path("x").c_str(), 0444));
    EXPECT_FALSE(StatusOf(Folder.Path("x")).Writable);
    EXPECT_EQ(0444U, StatusOf(Folder.Path("x")).Mode);
    ASSERT_EQ(0, ::chmod(Folder.Path("x").c_str(), 0640));
    EXPECT_TRUE(StatusOf(Folder.Path("x")).Writable);
    EXPECT_EQ(0640U, StatusOf(Folder.Path("x")).Mode);
}

TEST_F(RealFiles, AMissingFileIs53AndAMissingFolder76) {
    Folder.Put("x", "");
    EXPECT_EQ(53, OpenForReading(Folder.Path("none")));
    EXPECT_EQ(76, OpenForReading(Folder.Path("none/x")));
    EXPECT_EQ(76, OpenForReading(Folder.Path("x/y")));
    EXPECT_EQ(76, Create(Folder.Path("none/x")));
}

TEST_F(RealFiles, AnIllegalNameIs52) {
    FileStatus status;
    FileHandle handle = -1;
    std::string target;
    for (const std::string& path : {std::string(), EmbeddedZero, Folder.Path(std::string(300, 'n'))}) {
        EXPECT_EQ(52, Files.Status(path, status).Number);
        EXPECT_EQ(52, OpenForReading(path));
        EXPECT_EQ(52, Create(path));
        EXPECT_EQ(52, Files.OpenInPlace(path, handle).Number);
        EXPECT_EQ(52, Files.FollowLinks(path, target).Number);
        EXPECT_EQ(52, Files.Remove(path).Number);
    }
    EXPECT_EQ(52, Files.Rename(Folder.Path("x"), EmbeddedZero).Number);
    EXPECT_EQ(52, Files.Rename("", Folder.Path("x")).Number);
}

TEST_F(RealFiles, AnErrorNamesOperationAndPath) {
    FileHandle handle = -1;
    EXPECT_EQ("open " + Folder.Path("none"), Files.OpenForReading(Folder.Path("none"), handle).Source);
    EXPECT_EQ("create " + Folder.Path("a/b"), Files.CreateNew(Folder.Path("a/b"), 0, handle).Source);
}

TEST_F(RealFiles, WhatExistsIsNotCreatedAnew) {
    Folder.Put("x", "old");
    ASSERT_EQ(0, ::symlink("nowhere", Folder.Path("link").c_str()));
    EXPECT_EQ(58, Create(Folder.Path("x")));
    EXPECT_EQ(58, Create(Folder.Path("link")));
    EXPECT_EQ("old", Folder.Content("x"));
}

TEST_F(RealFiles, ANewFileHasTheModeAskedForWhateverTheMask) {
    const mode_t mask = ::umask(077);
    EXPECT_EQ(0, Create(Folder.Path("x"), 0664));
    EXPECT_EQ(0, Create(Folder.Path("usual")));
    ::umask(mask);
    EXPECT_EQ(0664U, StatusOf(Folder.Path("x")).Mode);
    EXPECT_EQ(0600U, StatusOf(Folder.Path("usual")).Mode);
}

TEST_F(RealFiles, BytesWrittenAreRead) {
    FileHandle handle = -1;
    ASSERT_FALSE(Files.CreateNew(Folder.Path("x"), 0, handle).Failed());
    const std::string written("a\0b", 3);
    EXPECT_FALSE(Files.Write(handle, written.data(), written.size()).Failed());
    EXPECT_FALSE(Files.Flush(handle).Failed());
    EXPECT_FALSE(Files.Close(handle).Failed());
    ASSERT_FALSE(Files.OpenForReading(Folder.Path("x"), handle).Failed());
    std::array<char, 8> bytes{};
    std::size_t got = 0;
    EXPECT_FALSE(Files.Read(handle, bytes.data(), bytes.size(), got).Failed());
    EXPECT_EQ(written, std::string(bytes.data(), got));
    EXPECT_FALSE(Files.Read(handle, bytes.data(), bytes.size(), got).Failed());
    EXPECT_EQ(0U, got);
    EXPECT_EQ(54, Files.Write(handle, "c", 1).Number);
    EXPECT_FALSE(Files.Close(handle).Failed());
    EXPECT_EQ(54, Files.Close(handle).Number);
}

TEST_F(RealFiles, ReadingAFolderIs75) {
    FileHandle handle = -1;
    ASSERT_FALSE(Files.OpenForReading(Folder.Path(), handle).Failed());
    std::size_t got = 7;
    char byte = 0;
    EXPECT_EQ(75, Files.Read(handle, &byte, 1, got).Number);
    EXPECT_EQ(0U, got);
    Files.Close(handle);
}

TEST_F(RealFiles, OpeningAPipeDoesNotWaitForItsOtherEnd) {
    ASSERT_EQ(0, ::mkfifo(Folder.Path("pipe").c_str(), 0600));
    FileHandle handle = -1;
    EXPECT_EQ(0, OpenForReading(Folder.Path("pipe")));
    EXPECT_EQ(68, Files.OpenInPlace(Folder.Path("pipe"), handle).Number);
}

TEST_F(RealFiles, AFullDeviceIs61) {
    FileHandle handle = -1;
    ASSERT_FALSE(Files.OpenInPlace("/dev/full", handle).Failed());
    EXPECT_EQ(61, Files.Write(handle, "a", 1).Number);
    EXPECT_FALSE(Files.Flush(handle).Failed()) << "a device has nothing to flush";
    Files.Close(handle);
}

TEST_F(RealFiles, LinksAreFollowedToTheLastWhichMayDangle) {
    Folder.Put("x", "");
    ASSERT_EQ(0, ::symlink("x", Folder.Path("one").c_str()));
    ASSERT_EQ(0, ::symlink(Folder.Path("one").c_str(), Folder.Path("two").c_str()));
    ASSERT_EQ(0, ::symlink("nowhere", Folder.Path("dangling").c_str()));
    std::string target;
    EXPECT_FALSE(Files.FollowLinks(Folder.Path("two"), target).Failed());
    EXPECT_EQ(Folder.Path("x"), target);
    EXPECT_FALSE(Files.FollowLinks(Folder.Path("dangling"), target).Failed());
    EXPECT_EQ(Folder.Path("nowhere"), target);
    EXPECT_FALSE(Files.FollowLinks(Folder.Path("none"), target).Failed());
    EXPECT_EQ(Folder.Path("none"), target);
    EXPECT_FALSE(Files.FollowLinks("plain-name", target).Failed());
    EXPECT_EQ("plain-name", target);
}

TEST_F(RealFiles, LinksInACircleAre75) {
    ASSERT_EQ(0, ::symlink("b", Folder.Path("a").c_str()));
    ASSERT_EQ(0, ::symlink("a", Folder.Path("b").c_str()));
    std::string target;
    FileStatus status;
    EXPECT_EQ(75, Files.FollowLinks(Folder.Path("a"), target).Number);
    EXPECT_EQ(75, Files.Status(Folder.Path("a"), status).Number);
}

TEST_F(RealFiles, RenamingReplacesAFileButNoFolder) {
    Folder.Put("new", "new");
    Folder.Put("old", "old");
    ASSERT_EQ(0, ::mkdir(Folder.Path("folder").c_str(), 0700));
    EXPECT_EQ(75, Files.Rename(Folder.Path("new"), Folder.Path("folder")).Number);
    EXPECT_EQ(76, Files.Rename(Folder.Path("new"), Folder.Path("none/x")).Number);
    EXPECT_FALSE(Files.Rename(Folder.Path("new"), Folder.Path("old")).Failed());
    EXPECT_EQ("new", Folder.Content("old"));
    EXPECT_EQ(FileType::Absent, StatusOf(Folder.Path("new")).Type);
}

TEST_F(RealFiles, RemovingWhatIsNotThereIs53) {
    Folder.Put("x", "");
    EXPECT_EQ(0, Files.Remove(Folder.Path("x")).Number);
    EXPECT_EQ(53, Files.Remove(Folder.Path("x")).Number);
}

TEST_F(RealFiles, AFileIsAbandonedOnceItsMakerHasClosedIt) {
    const std::string path = Folder.Path("x");
    FileHandle handle = -1;
    ASSERT_FALSE(Files.CreateNew(path, 0, handle).Failed());
    EXPECT_EQ(55, Files.RemoveAbandoned(path).Number);
    EXPECT_EQ(1, Folder.Count());
    Files.Close(handle);
    EXPECT_EQ(0, Files.RemoveAbandoned(path).Number);
    EXPECT_EQ(0, Folder.Count());
    EXPECT_EQ(53, Files.RemoveAbandoned(path).Number);
}

TEST_F(RealFiles, AFileIsHeldUnderTheNameThatItWasRenamedTo) {
    FileHandle handle = -1;
    ASSERT_FALSE(Files.CreateNew(Folder.Path("x"), 0, handle).Failed());
    ASSERT_FALSE(Files.Rename(Folder.Path("x"), Folder.Path("y")).Failed());
    EXPECT_EQ(55, Files.RemoveAbandoned(Folder.Path("y")).Number);
    Files.Close(handle);
}

TEST_F(RealFiles, NeitherALinkNorAFolderIsAnAbandonedFile) {
    Folder.Put("x", "old");
    ASSERT_EQ(0, ::symlink("x", Folder.Path("link").c_str()));
    ASSERT_EQ(0, ::mkdir(Folder.Path("folder").c_str(), 0700));
    EXPECT_TRUE(Files.RemoveAbandoned(Folder.Path("link")).Failed());
    EXPECT_TRUE(Files.RemoveAbandoned(Folder.Path("folder")).Failed());
    EXPECT_EQ(3, Folder.Count());
}

TEST_F(RealFiles, FoldersAreFlushed) {
    EXPECT_EQ(0, Files.FlushFolder(Folder.Path()).Number);
    EXPECT_EQ(0, Files.FlushFolder(".").Number);
    EXPECT_NE(0, Files.FlushFolder(Folder.Path("none")).Number);
}

} // namespace
} // namespace brindle
