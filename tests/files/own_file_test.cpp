#include "files/own_file.h"
#include "support/fake_file_system.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

constexpr const char* Own = "/opt/Recovery1.brindle";
constexpr std::uint32_t ForItsOwner = 0600;

struct OwnFile : testing::Test {
    OwnFile() {
        Disk.AddFolder("/opt");
        Disk.AddFile("/secret", "of another");
    }

    FakeFileSystem Disk;
    FileSystem Files = Disk.Operations();
    std::string Bytes = "before";
};

TEST_F(OwnFile, IsForItsOwnerAloneWhetherItIsNewOrReplacesAnother) {
    ASSERT_FALSE(ReplaceOwnFile(Files, Own, "new").Failed());
    EXPECT_EQ(ForItsOwner, Disk.Mode(Own));
    Disk.AddFile(Own, "read by all", 0644);
    ASSERT_FALSE(ReplaceOwnFile(Files, Own, "newer").Failed());
    EXPECT_EQ(ForItsOwner, Disk.Mode(Own));
    EXPECT_EQ("newer", Disk.Content(Own));
    EXPECT_EQ(0U, Disk.OpenHandles());
}

TEST_F(OwnFile, ReplacesALinkAndNotWhatItLeadsTo) {
    Disk.AddLink(Own, "/secret");
    Disk.AddLink(std::string(Own) + ".new", "/secret");
    EXPECT_TRUE(OwnFileStands(Files, Own));
    ASSERT_FALSE(ReplaceOwnFile(Files, Own, "new").Failed());
    EXPECT_FALSE(Disk.IsLink(Own));
    EXPECT_EQ("new", Disk.Content(Own));
    EXPECT_EQ("of another", Disk.Content("/secret"));
}

TEST_F(OwnFile, IsNotReadThroughALink) {
    Disk.AddLink(Own, "/secret");
    EXPECT_EQ(PathAccessError, ReadOwnFile(Files, Own, Bytes).Number);
    EXPECT_EQ("", Bytes);
}

TEST_F(OwnFile, StandsWhereALinkLeadsToNothing) {
    EXPECT_FALSE(OwnFileStands(Files, Own));
    Disk.AddLink(Own, "/nowhere");
    EXPECT_TRUE(OwnFileStands(Files, Own));
}

TEST_F(OwnFile, IsReadWholeUpToTheGreatestSize) {
    Disk.AddFile(Own, "all of it");
    EXPECT_FALSE(ReadOwnFile(Files, Own, Bytes).Failed());
    EXPECT_EQ("all of it", Bytes);
    Disk.AddFile(Own, std::string((std::size_t{16} << 20U) + 1, 'x'));
    EXPECT_EQ(BadRecordLengthError, ReadOwnFile(Files, Own, Bytes).Number);
    EXPECT_EQ("", Bytes);
    EXPECT_EQ(0U, Disk.OpenHandles());
}

TEST_F(OwnFile, IsTheOldOneAfterAFailureAndNothingIsLeftBeside) {
    Disk.AddFile(Own, "old", 0600);
    const std::vector<std::string> before = Disk.Names();
    for (const char* operation : {"create", "write", "flush", "rename"}) {
        Disk.FailAll(operation, DiskFullError);
        EXPECT_TRUE(ReplaceOwnFile(Files, Own, "new").Failed());
        EXPECT_EQ("old", Disk.Content(Own)) << operation;
        EXPECT_EQ(before, Disk.Names()) << operation;
        EXPECT_EQ(0U, Disk.OpenHandles());
    }
}

} // namespace
} // namespace brindle
