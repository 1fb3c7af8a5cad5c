#include "files/own_file.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace brindle {
namespace {

struct OwnFileOnDisk : testing::Test {
    [[nodiscard]] unsigned Mode() const {
        struct stat status {};

        return ::lstat(Path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
    }

    TempFolder Folder;
    std::string Path = Folder.Path("Recovery1.brindle");
    FileSystem Files = RealFileSystem();
    std::string Bytes;
};

TEST_F(OwnFileOnDisk, IsForItsOwnerAloneWhateverTheMask) {
    for (const mode_t mask : {mode_t{0}, mode_t{0777}, mode_t{022}}) {
        const mode_t usual = ::umask(mask);
        EXPECT_FALSE(ReplaceOwnFile(Files, Path, "new").Failed());
        ::umask(usual);
        EXPECT_EQ(0600U, Mode()) << std::oct << mask;
        ASSERT_EQ(0, ::chmod(Path.c_str(), 0666)); // as an older program may have left it
    }
}

TEST_F(OwnFileOnDisk, IsNeitherReadNorWrittenThroughALink) {
    Folder.Put("secret", "of another");
    ASSERT_EQ(0, ::symlink("secret", Path.c_str()));
    EXPECT_EQ(PathAccessError, ReadOwnFile(Files, Path, Bytes).Number);
    EXPECT_FALSE(ReplaceOwnFile(Files, Path, "new").Failed());
    EXPECT_EQ("of another", Folder.Content("secret"));
    EXPECT_EQ("new", Folder.Content("Recovery1.brindle"));
    EXPECT_FALSE(ReadOwnFile(Files, Path, Bytes).Failed());
    EXPECT_EQ("new", Bytes);
}

TEST_F(OwnFileOnDisk, OfAnotherKindIsNotRead) {
    ASSERT_EQ(0, ::mkfifo(Path.c_str(), 0600));
    EXPECT_EQ(PathAccessError, ReadOwnFile(Files, Path, Bytes).Number);
    ASSERT_EQ(0, ::unlink(Path.c_str()));
    ASSERT_EQ(0, ::mkdir(Path.c_str(), 0700));
    EXPECT_EQ(PathAccessError, ReadOwnFile(Files, Path, Bytes).Number);
    ASSERT_EQ(0, ::rmdir(Path.c_str()));
    EXPECT_EQ(FileNotFoundError, ReadOwnFile(Files, Path, Bytes).Number);
}

} // namespace
} // namespace brindle
