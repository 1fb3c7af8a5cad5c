#include "support/whole_file_on_disk.h"

#include <filesystem>

/// What holds on the disk of every system that we run on.
namespace brindle {
namespace {

TEST_F(WholeFileOnDisk, ANewFileIsMadeAndReadBack) {
    const std::string bytes("a\r\n\0\x1A\xFF", 6);
    EXPECT_EQ(0, Replace(Folder.Path("x.pl"), bytes).Number);
    EXPECT_EQ(0, Read(Folder.Path("x.pl")));
    EXPECT_EQ(bytes, Bytes);
    EXPECT_EQ(1, Folder.Count());
}

TEST_F(WholeFileOnDisk, ALongerOldFileLeavesNothingOfItself) {
    Folder.Put("x.pl", "old and longer");
    EXPECT_EQ(0, Replace(Folder.Path("x.pl")).Number);
    EXPECT_EQ("new", Folder.Content("x.pl"));
    EXPECT_EQ(1, Folder.Count());
}

TEST_F(WholeFileOnDisk, ARelativePathIsOfTheCurrentFolder) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(Folder.Path());
    EXPECT_EQ(0, Replace("x.pl").Number);
    EXPECT_EQ(0, Read("x.pl"));
    std::filesystem::current_path(before);
    EXPECT_EQ("new", Bytes);
    EXPECT_EQ("new", Folder.Content("x.pl"));
}

TEST_F(WholeFileOnDisk, AReadOnlyFileStays) {
    Folder.Put("x.pl", "old");
    const auto may = std::filesystem::status(Folder.Path("x.pl")).permissions();
    std::filesystem::permissions(Folder.Path("x.pl"), std::filesystem::perms::owner_read);
    EXPECT_EQ(PermissionDeniedError, Replace(Folder.Path("x.pl")).Number);
    std::filesystem::permissions(Folder.Path("x.pl"), may); // or Windows would not remove the folder
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

} // namespace
} // namespace brindle
