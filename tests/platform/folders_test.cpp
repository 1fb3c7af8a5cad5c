#include "platform/folders.h"
#include "platform/paths.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace brindle {
namespace {

/// A new folder of this process, and the current folder put back afterwards.
class Folders : public testing::Test {
  protected:
    void SetUp() override {
        start_ = std::filesystem::current_path();
        folder_ =
            std::filesystem::canonical(testing::TempDir()) / ("folders_test_" + std::to_string(getpid()));
        std::filesystem::create_directories(folder_ / "inner");
        std::ofstream(folder_ / "file") << "text";
    }

    void TearDown() override {
        std::filesystem::current_path(start_);
        std::filesystem::remove_all(folder_);
    }

    [[nodiscard]] std::string Path(const std::string& name) const { return (folder_ / name).string(); }

    FolderFunctions folders_ = RealFolders();
    std::filesystem::path start_;
    std::filesystem::path folder_;
};

TEST_F(Folders, OnlyAFolderExistsAsAFolder) {
    std::filesystem::create_directory_symlink(Path("inner"), Path("link"));
    EXPECT_TRUE(folders_.FolderExists(Path("inner")));
    EXPECT_TRUE(folders_.FolderExists(Path("inner") + "/"));
    EXPECT_TRUE(folders_.FolderExists(Path("link")));
    EXPECT_FALSE(folders_.FolderExists(Path("file")));
    EXPECT_FALSE(folders_.FolderExists(Path("nothing")));
    EXPECT_FALSE(folders_.FolderExists(""));
}

TEST_F(Folders, AChangedFolderIsCurrent) {
    EXPECT_TRUE(folders_.ChangeFolder(Path("inner")));
    EXPECT_EQ(Path("inner"), folders_.CurrentFolder());
}

TEST_F(Folders, ARefusedChangeLeavesTheCurrentFolder) {
    ASSERT_TRUE(folders_.ChangeFolder(Path("inner")));
    EXPECT_FALSE(folders_.ChangeFolder(Path("nothing")));
    EXPECT_FALSE(folders_.ChangeFolder(Path("file")));
    EXPECT_EQ(Path("inner"), folders_.CurrentFolder());
}

TEST_F(Folders, ADeletedCurrentFolderHasNoPath) {
    ASSERT_TRUE(folders_.ChangeFolder(Path("inner")));
    std::filesystem::remove(Path("inner"));
    EXPECT_EQ("", folders_.CurrentFolder());
}

TEST_F(Folders, ChangingTheDriveDoesNothingWhereThereAreNone) {
    ASSERT_TRUE(folders_.ChangeFolder(Path("inner")));
    folders_.ChangeDrive("/");
    folders_.ChangeDrive("C:\\");
    EXPECT_EQ(Path("inner"), folders_.CurrentFolder());
}

TEST_F(Folders, TheProgramFolderHoldsThisVeryProgram) {
    const std::string folder = ProgramFolder();
    const std::filesystem::path executable = std::filesystem::canonical("/proc/self/exe");
    EXPECT_EQ(executable.string(), JoinPath(folder, executable.filename().string()));
    EXPECT_NE('/', folder.back());
}

} // namespace
} // namespace brindle
