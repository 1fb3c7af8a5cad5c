#include "platform/folders.h"
#include "platform/paths.h"
#include "platform/wide_text_windows.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>
#include <windows.h>

namespace brindle {
namespace {

/// A new folder with a folder and a file in it, and the current folder put back afterwards.
class FoldersOfWindows : public testing::Test {
  protected:
    FoldersOfWindows() : start_(std::filesystem::current_path()) {
        folder_.Put("file", "text");
        std::filesystem::create_directory(Path("inner"));
    }

    ~FoldersOfWindows() override { std::filesystem::current_path(start_); }

    [[nodiscard]] std::string Path(const std::string& name) const { return folder_.Path(name); }

    FolderFunctions folders_ = RealFolders();
    TempFolder folder_;

  private:
    std::filesystem::path start_;
};

TEST_F(FoldersOfWindows, OnlyAFolderExistsAsAFolder) {
    EXPECT_TRUE(folders_.FolderExists(Path("inner")));
    EXPECT_TRUE(folders_.FolderExists(Path("inner") + "\\"));
    EXPECT_FALSE(folders_.FolderExists(Path("file")));
    EXPECT_FALSE(folders_.FolderExists(Path("nothing")));
    EXPECT_FALSE(folders_.FolderExists(""));
}

TEST_F(FoldersOfWindows, ARefusedChangeLeavesTheCurrentFolder) {
    ASSERT_TRUE(folders_.ChangeFolder(Path("inner")));
    EXPECT_EQ(Path("inner"), folders_.CurrentFolder());
    EXPECT_FALSE(folders_.ChangeFolder(Path("nothing")));
    EXPECT_FALSE(folders_.ChangeFolder(Path("file")));
    EXPECT_EQ(Path("inner"), folders_.CurrentFolder());
}

TEST_F(FoldersOfWindows, TheDrivesBeginWhereTheProgramsAre) {
    const std::vector<std::string> drives = folders_.Drives();
    EXPECT_NE(drives.end(), std::find(drives.begin(), drives.end(), "C:\\"));
    EXPECT_TRUE(std::is_sorted(drives.begin(), drives.end()));
    for (const std::string& drive : drives) {
        EXPECT_EQ(":\\", drive.substr(1)) << drive;
    }
}

TEST_F(FoldersOfWindows, AChangedDriveIsCurrent) {
    ASSERT_TRUE(folders_.ChangeFolder("C:\\"));
    folders_.ChangeDrive("c:\\anything");
    EXPECT_EQ("C:\\", folders_.CurrentFolder());
    folders_.ChangeDrive("\\no drive");
    EXPECT_EQ("C:\\", folders_.CurrentFolder());
}

TEST_F(FoldersOfWindows, AFolderCannotBeMadeWhereANameIsTakenOrNoFolderIs) {
    EXPECT_FALSE(folders_.MakeFolder(Path("new ~ 1")).Failed());
    EXPECT_TRUE(folders_.FolderExists(Path("new ~ 1")));
    EXPECT_EQ(PathAccessError, folders_.MakeFolder(Path("inner")).Number);
    EXPECT_EQ(PathAccessError, folders_.MakeFolder(Path("file")).Number);
    EXPECT_EQ(PathNotFoundError, folders_.MakeFolder(Path("nothing\\new")).Number);
    EXPECT_EQ("make folder " + Path("inner"), folders_.MakeFolder(Path("inner")).Source);
}

TEST_F(FoldersOfWindows, SubfoldersAreTheFoldersThatAUserSees) {
    const std::string greek = "\xCE\xA9"; // outside the western code page
    for (const std::string& name :
         {std::string("Zeta"), std::string("alpha"), std::string("hidden"), greek}) {
        EXPECT_FALSE(folders_.MakeFolder(folder_.Path() + "\\" + name).Failed());
    }
    SetFileAttributesW(WideText(Path("hidden")).c_str(), FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ((std::vector<std::string>{"alpha", "inner", "Zeta", greek}),
              folders_.Subfolders(folder_.Path()));
    EXPECT_TRUE(folders_.Subfolders(Path("nothing")).empty());
}

TEST_F(FoldersOfWindows, FilesAreTheFilesOfTheFolderAlone) {
    folder_.Put("inner/deeper", "text");
    EXPECT_EQ(std::vector<std::string>{"file"}, folders_.Files(folder_.Path()));
    EXPECT_TRUE(folders_.Files(Path("none")).empty());
}

TEST_F(FoldersOfWindows, TheExecutableFolderHoldsThisVeryProgram) {
    EXPECT_NE(INVALID_FILE_ATTRIBUTES,
              GetFileAttributesW(WideText(JoinPath(ExecutableFolder(), "system_tests.exe")).c_str()));
    EXPECT_NE('\\', ExecutableFolder().back());
}

} // namespace
} // namespace brindle
