#include "support/whole_file_on_disk.h"

#include <string>
#include <sys/stat.h>
#include <unistd.h>

/// What only this system's disk knows: modes, links, pipes, devices.
namespace brindle {
namespace {

mode_t ModeOf(const std::string& path) {
    struct stat status {};

    EXPECT_EQ(0, ::stat(path.c_str(), &status));
    return status.st_mode & 07777;
}

TEST_F(WholeFileOnDisk, AnOldFileIsReplacedWithItsModeKept) {
    Folder.Put("x.pl", "old and longer");
    ASSERT_EQ(0, ::chmod(Folder.Path("x.pl").c_str(), 0606));
    EXPECT_EQ(0, Replace(Folder.Path("x.pl")).Number);
    EXPECT_EQ("new", Folder.Content("x.pl"));
    EXPECT_EQ(static_cast<mode_t>(0606), ModeOf(Folder.Path("x.pl")));
    EXPECT_EQ(1, Folder.Count());
}

TEST_F(WholeFileOnDisk, WhoReadsWhileWeSaveReadsTheOldFileWhole) {
    Folder.Put("x.pl", "old");
    std::ifstream reader(Folder.Path("x.pl"), std::ios::binary);
    EXPECT_EQ(0, Replace(Folder.Path("x.pl")).Number);
    EXPECT_EQ("old", std::string(std::istreambuf_iterator<char>(reader), {}));
}

TEST_F(WholeFileOnDisk, LinksAreKeptAndADanglingOneCreatesItsTarget) {
    ASSERT_EQ(0, ::mkdir(Folder.Path("other").c_str(), 0700));
    ASSERT_EQ(0, ::symlink("other/real.pl", Folder.Path("link.pl").c_str()));
    EXPECT_EQ(0, Replace(Folder.Path("link.pl"), "first").Number);
    EXPECT_EQ("first", Folder.Content("other/real.pl"));
    EXPECT_EQ(0, Replace(Folder.Path("link.pl"), "second").Number);
    EXPECT_EQ("second", Folder.Content("other/real.pl"));
    EXPECT_TRUE(std::filesystem::is_symlink(Folder.Path("link.pl")));
}

TEST_F(WholeFileOnDisk, AFullDeviceIsFull) {
    const FileError error = Replace("/dev/full");
    EXPECT_EQ(DiskFullError, error.Number);
    EXPECT_EQ("Disk full", error.Description);
    EXPECT_EQ("write /dev/full", error.Source);
}

TEST_F(WholeFileOnDisk, ADeviceThatTakesEverythingIsWell) {
    EXPECT_EQ(0, Replace("/dev/null").Number);
}

TEST_F(WholeFileOnDisk, APipeNeitherHangsNorIsReplaced) {
    ASSERT_EQ(0, ::mkfifo(Folder.Path("pipe").c_str(), 0600));
    EXPECT_EQ(DeviceUnavailableError, Replace(Folder.Path("pipe")).Number);
    EXPECT_EQ(DeviceUnavailableError, Read(Folder.Path("pipe")));
    EXPECT_TRUE(std::filesystem::is_fifo(Folder.Path("pipe")));
}

TEST_F(WholeFileOnDisk, AFolderThatForbidsNewFilesIsSaidToForbidThem) {
    if (::geteuid() == 0) {
        GTEST_SKIP() << "no folder forbids the superuser anything";
    }
    Folder.Put("x.pl", "old");
    ASSERT_EQ(0, ::chmod(Folder.Path().c_str(), 0500));
    EXPECT_EQ(PathAccessError, Replace(Folder.Path("x.pl")).Number);
    EXPECT_EQ(PathAccessError, Replace(Folder.Path("y.pl")).Number);
    ASSERT_EQ(0, ::chmod(Folder.Path().c_str(), 0700));
    EXPECT_EQ("old", Folder.Content("x.pl"));
}

} // namespace
} // namespace brindle
