#include "platform/folders.h"
#include "platform/paths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

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

TEST_F(Folders, AMadeFolderIsThere) {
    EXPECT_FALSE(folders_.MakeFolder(Path("new ~ 1")).Failed());
    EXPECT_TRUE(folders_.FolderExists(Path("new ~ 1")));
}

TEST_F(Folders, APrivateFolderIsTheUsersAlone) {
    EXPECT_FALSE(folders_.MakePrivateFolder(Path("own")).Failed());
    EXPECT_EQ(std::filesystem::perms::owner_all, std::filesystem::status(Path("own")).permissions());
    EXPECT_EQ(PathAccessError, folders_.MakePrivateFolder(Path("file")).Number);
}

TEST_F(Folders, AFolderCannotBeMadeWhereANameIsTakenOrNoFolderIs) {
    EXPECT_EQ(PathAccessError, folders_.MakeFolder(Path("inner")).Number);
    EXPECT_EQ(PathAccessError, folders_.MakeFolder(Path("file")).Number);
    EXPECT_EQ(PathNotFoundError, folders_.MakeFolder(Path("nothing/new")).Number);
    EXPECT_EQ(PathNotFoundError, folders_.MakeFolder(Path("file/new")).Number);
    EXPECT_EQ(BadFileNameError, folders_.MakeFolder(Path(std::string(300, 'x'))).Number);
    EXPECT_EQ("make folder " + Path("inner"), folders_.MakeFolder(Path("inner")).Source);
}

TEST_F(Folders, AFolderMarkedReadOnlyTakesNone) {
    if (geteuid() == 0) {
        GTEST_SKIP() << "everything is allowed to root";
    }
    std::filesystem::permissions(Path("inner"),
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    EXPECT_EQ(PathAccessError, folders_.MakeFolder(Path("inner/new")).Number);
}

TEST_F(Folders, SubfoldersAreTheFoldersThatAUserSees) {
    for (const char* name : {"Zeta", "alpha", "Beta", ".hidden"}) {
        std::filesystem::create_directory(folder_ / name);
    }
    std::filesystem::create_directory_symlink(Path("inner"), Path("link"));
    std::filesystem::create_directory_symlink(Path("gone"), Path("dangling"));
    EXPECT_EQ((std::vector<std::string>{"alpha", "Beta", "inner", "link", "Zeta"}),
              folders_.Subfolders(folder_.string()));
}

TEST_F(Folders, WhatCannotBeReadHasNoSubfolders) {
    EXPECT_TRUE(folders_.Subfolders(Path("nothing")).empty());
    EXPECT_TRUE(folders_.Subfolders(Path("file")).empty());
}

TEST_F(Folders, FilesAreTheFilesOfTheFolderAlone) {
    std::ofstream(folder_ / ".hidden") << "text";
    std::ofstream(folder_ / "inner" / "deeper") << "text";
    std::filesystem::create_symlink(Path("file"), Path("link"));
    std::filesystem::create_symlink(Path("gone"), Path("dangling"));
    std::filesystem::create_directory_symlink(Path("inner"), Path("folder link"));
    std::vector<std::string> names = folders_.Files(folder_.string());
    std::sort(names.begin(), names.end());
    EXPECT_EQ((std::vector<std::string>{".hidden", "file", "link"}), names);
    EXPECT_TRUE(folders_.Files(Path("inner/none")).empty());
    EXPECT_TRUE(folders_.Files(Path("file")).empty());
}

TEST_F(Folders, TheExecutableFolderHoldsThisVeryProgram) {
    const std::string folder = ExecutableFolder();
    const std::filesystem::path executable = std::filesystem::canonical("/proc/self/exe");
    EXPECT_EQ(executable.string(), JoinPath(folder, executable.filename().string()));
    EXPECT_NE('/', folder.back());
}

} // namespace
} // namespace brindle
