#include "support/held_file_windows.h"
#include "support/whole_file_on_disk.h"

#include <string>

/// What only this system's disk knows: any script in a name, files held by others, its devices.
namespace brindle {
namespace {

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

TEST_F(WholeFileOnDisk, AFileThatIsDeniedForAMomentIsReadOnceItIsFree) {
    Folder.Put("x.pl", "old");
    const HeldFile other(Folder.Path("x.pl"), std::chrono::milliseconds(150));
    ASSERT_TRUE(other.Held());
    EXPECT_EQ(0, Read(Folder.Path("x.pl")));
    EXPECT_EQ("old", Bytes);
}

TEST_F(WholeFileOnDisk, AFileThatStaysDeniedIsSaidToBe) {
    Folder.Put("x.pl", "old");
    const HeldFile other(Folder.Path("x.pl"));
    ASSERT_TRUE(other.Held());
    EXPECT_EQ(PermissionDeniedError, Read(Folder.Path("x.pl")));
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

TEST_F(WholeFileOnDisk, ADeviceThatTakesEverythingIsWell) {
    const FileError error = Replace("NUL");
    EXPECT_EQ(0, error.Number) << error.Source;
    EXPECT_EQ(DeviceUnavailableError, Read("NUL"));
}

} // namespace
} // namespace brindle
