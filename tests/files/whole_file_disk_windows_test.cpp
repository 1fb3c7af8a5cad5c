#include "files/whole_file.h"
#include "support/held_file_windows.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <string>

/// The same rules on the disk of the system that we run on.
namespace brindle {
namespace {

struct WholeFileOnDisk : testing::Test {
    FileError Replace(const std::string& path, const std::string& bytes = "new") {
        return ReplaceWholeFile(RealFileSystem(), path, bytes);
    }

    int Read(const std::string& path) { return ReadWholeFile(RealFileSystem(), path, 100, Bytes).Number; }

    TempFolder Folder;
    std::string Bytes;
};

TEST_F(WholeFileOnDisk, ANewFileIsMadeAndReadBack) {
    EXPECT_EQ(0, Replace(Folder.Path("x.pl"), std::string("a\r\n\0\x1A\xFF", 6)).Number);
    EXPECT_EQ(0, Read(Folder.Path("x.pl")));
    EXPECT_EQ(std::string("a\r\n\0\x1A\xFF", 6), Bytes);
    EXPECT_EQ(1, Folder.Count());
}

TEST_F(WholeFileOnDisk, APathInAnyWritingOpensAndSaves) {
    const std::string name =
        "\xD0\x9B\xD0\xB8\xD0\xBD\xD0\xB8\xD1\x8F \xE5\xA4\x89\xE9\x9B\xBB\xE6\x89\x80.pl";
    const std::string path = Folder.Path() + "\\" + name; // Cyrillic and Japanese: no one code page has both
    EXPECT_EQ(0, Replace(path, "first").Number);
    EXPECT_EQ(0, Replace(path, "second").Number);
    EXPECT_EQ(0, Read(path));
    EXPECT_EQ("second", Bytes);
    EXPECT_NE(INVALID_FILE_ATTRIBUTES, GetFileAttributesW(WideText(path).c_str()));
    EXPECT_EQ(1, Folder.Count());
}

TEST_F(WholeFileOnDisk, BothSlashesSeparateFolders) {
    std::filesystem::create_directory(Folder.Path("inner"));
    EXPECT_EQ(0, Replace(Folder.Path() + "/inner/x.pl").Number);
    EXPECT_EQ(0, Read(Folder.Path() + "\\inner\\x.pl"));
    EXPECT_EQ("new", Bytes);
}

TEST_F(WholeFileOnDisk, AFileThatAScannerHoldsForAMomentIsReplacedOnceItLetsGo) {
    Folder.Put("x.pl", "old");
    {
        const HeldFile scanner(Folder.Path("x.pl"), std::chrono::milliseconds(150));
        ASSERT_TRUE(scanner.Held());
        EXPECT_EQ(0, Replace(Folder.Path("x.pl")).Number);
    }
    EXPECT_EQ("new", Folder.Content("x.pl"));
    EXPECT_EQ(1, Folder.Count());
}

TEST_F(WholeFileOnDisk, AFileThatAnotherProgramKeepsOpenStaysWholeAndTheUserIsTold) {
    Folder.Put("x.pl", "old");
    {
        const HeldFile other(Folder.Path("x.pl"));
        ASSERT_TRUE(other.Held());
        EXPECT_EQ(PermissionDeniedError, Replace(Folder.Path("x.pl")).Number);
    }
    EXPECT_EQ("old", Folder.Content("x.pl"));
    EXPECT_EQ(1, Folder.Count());
}

TEST_F(WholeFileOnDisk, AReadOnlyFileStays) {
    Folder.Put("x.pl", "old");
    const std::wstring path = WideText(Folder.Path("x.pl"));
    ASSERT_NE(0, SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(PermissionDeniedError, Replace(Folder.Path("x.pl")).Number);
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL); // so that the folder can be removed
    EXPECT_EQ("old", Folder.Content("x.pl"));
    EXPECT_EQ(1, Folder.Count());
}

TEST_F(WholeFileOnDisk, AFolderIsNoFile) {
    EXPECT_EQ(PathAccessError, Replace(Folder.Path()).Number);
    EXPECT_EQ(PathAccessError, Read(Folder.Path()));
    EXPECT_EQ(0, Folder.Count());
}

TEST_F(WholeFileOnDisk, AMissingFolderIsSaidToBeMissing) {
    EXPECT_EQ(PathNotFoundError, Replace(Folder.Path("none/x.pl")).Number);
    EXPECT_EQ(PathNotFoundError, Read(Folder.Path("none/x.pl")));
    EXPECT_EQ(FileNotFoundError, Read(Folder.Path("x.pl")));
}

TEST_F(WholeFileOnDisk, AFileThatAKilledSaverLeftIsTakenAwayByTheNextOne) {
    Folder.Put(".brindle-save-0.tmp", "half");
    EXPECT_EQ(0, Replace(Folder.Path("x.pl")).Number);
    EXPECT_EQ("new", Folder.Content("x.pl"));
    EXPECT_EQ(1, Folder.Count());
}

TEST_F(WholeFileOnDisk, ADeviceThatTakesEverythingIsWell) {
    const FileError error = Replace("NUL");
    EXPECT_EQ(0, error.Number) << error.Source;
    EXPECT_EQ(DeviceUnavailableError, Read("NUL"));
}

} // namespace
} // namespace brindle
