#include "files/whole_file.h"
#include "support/fake_file_system.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace brindle {
namespace {

constexpr std::size_t NoLimit = std::numeric_limits<std::size_t>::max();
constexpr const char* FilePath = "/home/x.pl";

struct WholeFile : testing::Test {
    WholeFile() { Disk.AddFolder("/home"); }

    int Read(const std::string& path, std::size_t limit = NoLimit) {
        Bytes = "from before";
        return ReadWholeFile(Disk.Operations(), path, limit, Bytes).Number;
    }

    int Replace(const std::string& path, const std::string& bytes = "new") {
        return ReplaceWholeFile(Disk.Operations(), path, bytes).Number;
    }

    FakeFileSystem Disk;
    std::string Bytes;
};

using ReadingAWholeFile = WholeFile;
using ReplacingAWholeFile = WholeFile;

TEST_F(ReadingAWholeFile, YieldsEveryByte) {
    std::string content(100'000, '\0');
    for (std::size_t i = 0; i < content.size(); ++i) {
        content[i] = static_cast<char>(i % 251);
    }
    Disk.AddFile(FilePath, content);
    EXPECT_EQ(0, Read(FilePath));
    EXPECT_EQ(content, Bytes);
    EXPECT_EQ(0U, Disk.OpenHandles());
}

TEST_F(ReadingAWholeFile, StopsAtTheLimit) {
    Disk.AddFile(FilePath, "abcdef");
    EXPECT_EQ(0, Read(FilePath, 3));
    EXPECT_EQ("abc", Bytes);
    EXPECT_EQ(0, Read(FilePath, 6));
    EXPECT_EQ("abcdef", Bytes);
    EXPECT_EQ(0, Read(FilePath, 0));
    EXPECT_EQ("", Bytes);
}

TEST_F(ReadingAWholeFile, OfNoBytesIsWell) {
    Disk.AddFile(FilePath, "");
    EXPECT_EQ(0, Read(FilePath));
    EXPECT_EQ("", Bytes);
}

TEST_F(ReadingAWholeFile, FollowsLinks) {
    Disk.AddFile("/home/real.pl", "content");
    Disk.AddLink(FilePath, "real.pl");
    EXPECT_EQ(0, Read(FilePath));
    EXPECT_EQ("content", Bytes);
}

TEST_F(ReadingAWholeFile, TellsWhatStandsInItsWay) {
    Disk.AddDevice("/home/device");
    Disk.AddPipe("/home/pipe");
    EXPECT_EQ(FileNotFoundError, Read("/home/none"));
    EXPECT_EQ(PathNotFoundError, Read("/none/x.pl"));
    EXPECT_EQ(PathAccessError, Read("/home"));
    EXPECT_EQ(DeviceUnavailableError, Read("/home/device"));
    EXPECT_EQ(DeviceUnavailableError, Read("/home/pipe"));
    EXPECT_EQ(BadFileNameError, Read(""));
    EXPECT_EQ("", Bytes);
}

TEST_F(ReadingAWholeFile, ThatFailsAtAnyStepYieldsNoBytesAndLeavesNothingOpen) {
    Disk.AddFile(FilePath, "content");
    ASSERT_EQ(0, Read(FilePath));
    const std::size_t operations = Disk.Log().size();
    for (std::size_t n = 1; n <= operations; ++n) {
        Disk.FailOnce(n, DeviceIoError);
        EXPECT_EQ(DeviceIoError, Read(FilePath)) << n;
        EXPECT_EQ("", Bytes) << n;
        EXPECT_EQ(0U, Disk.OpenHandles()) << n;
    }
}

TEST_F(ReadingAWholeFile, NamesTheFileInTheErrorsOfItsHandle) {
    Disk.AddFile(FilePath, "content");
    Disk.FailAll("read", DeviceIoError);
    EXPECT_EQ("read /home/x.pl", ReadWholeFile(Disk.Operations(), FilePath, NoLimit, Bytes).Source);
}

TEST_F(ReplacingAWholeFile, WritesBesideFlushesRenamesAndFlushesTheFolderInThisOrder) {
    Disk.AddFile(FilePath, "old");
    EXPECT_EQ(0, Replace(FilePath));
    EXPECT_EQ((std::vector<std::string>{
                  "status /home/x.pl", "follow /home/x.pl", "create /home/.brindle-save-0000000000000001.tmp",
                  "write 3 bytes", "flush", "rename /home/.brindle-save-0000000000000001.tmp to /home/x.pl",
                  "close", "flush folder /home/"}),
              Disk.Log());
    EXPECT_EQ("new", Disk.Content(FilePath));
}

TEST_F(ReplacingAWholeFile, MakesAFileThatWasNotThere) {
    EXPECT_EQ(0, Replace(FilePath));
    EXPECT_EQ("new", Disk.Content(FilePath));
    EXPECT_EQ(0644U, Disk.Mode(FilePath));
}

TEST_F(ReplacingAWholeFile, ByNoBytesLeavesAnEmptyFile) {
    Disk.AddFile(FilePath, "old");
    EXPECT_EQ(0, Replace(FilePath, ""));
    EXPECT_EQ("", Disk.Content(FilePath));
}

TEST_F(ReplacingAWholeFile, KeepsTheOldFilesMode) {
    Disk.AddFile(FilePath, "old", 0600);
    EXPECT_EQ(0, Replace(FilePath));
    EXPECT_EQ(0600U, Disk.Mode(FilePath));
}

TEST_F(ReplacingAWholeFile, ReplacesTheFileThatALinkLeadsToAndKeepsTheLink) {
    Disk.AddFolder("/other");
    Disk.AddFile("/other/real.pl", "old", 0640);
    Disk.AddLink("/home/second.pl", "/other/real.pl");
    Disk.AddLink(FilePath, "second.pl");
    EXPECT_EQ(0, Replace(FilePath));
    EXPECT_EQ("new", Disk.Content("/other/real.pl"));
    EXPECT_EQ(0640U, Disk.Mode("/other/real.pl"));
    EXPECT_TRUE(Disk.IsLink(FilePath));
    EXPECT_TRUE(Disk.IsLink("/home/second.pl"));
    EXPECT_EQ("flush folder /other/", Disk.Log().back());
}

TEST_F(ReplacingAWholeFile, ThroughADanglingLinkCreatesItsTarget) {
    Disk.AddFolder("/other");
    Disk.AddLink(FilePath, "/other/real.pl");
    EXPECT_EQ(0, Replace(FilePath));
    EXPECT_TRUE(Disk.IsLink(FilePath));
    EXPECT_EQ("new", Disk.Content("/other/real.pl"));
}

TEST_F(ReplacingAWholeFile, TellsWhatStandsInItsWayAndTouchesNothing) {
    Disk.AddFile("/home/read-only.pl", "old", 0444);
    Disk.AddFolder("/locked", 0555);
    Disk.AddFile("/locked/x.pl", "old");
    Disk.AddPipe("/home/pipe");
    Disk.AddLink("/home/circle", "circle");
    Disk.AddLink("/home/dangling", "/none/x.pl");
    const std::vector<std::string> names = Disk.Names();
    EXPECT_EQ(PermissionDeniedError, Replace("/home/read-only.pl"));
    EXPECT_EQ(PathAccessError, Replace("/locked/x.pl"));
    EXPECT_EQ(PathAccessError, Replace("/locked/new.pl"));
    EXPECT_EQ(PathAccessError, Replace("/home"));
    EXPECT_EQ(PathAccessError, Replace("/home/circle"));
    EXPECT_EQ(PathNotFoundError, Replace("/none/x.pl"));
    EXPECT_EQ(PathNotFoundError, Replace("/home/dangling"));
    EXPECT_EQ(DeviceUnavailableError, Replace("/home/pipe"));
    EXPECT_EQ(BadFileNameError, Replace(""));
    EXPECT_EQ(names, Disk.Names());
    EXPECT_EQ("old", Disk.Content("/home/read-only.pl"));
    EXPECT_EQ("old", Disk.Content("/locked/x.pl"));
}

TEST_F(ReplacingAWholeFile, WritesADeviceInPlace) {
    Disk.AddDevice("/home/device");
    EXPECT_EQ(0, Replace("/home/device"));
    EXPECT_EQ("new", Disk.Content("/home/device"));
    Disk.FailAll("write", DiskFullError);
    EXPECT_EQ(DiskFullError, Replace("/home/device"));
    EXPECT_EQ(0U, Disk.OpenHandles());
}

TEST_F(ReplacingAWholeFile, PassesOverTheFilesOfOthersWhoAreSaving) {
    Disk.AddFile("/home/.brindle-save-0.tmp", "of another");
    Disk.AddFile("/home/.brindle-save-1.tmp", "of a third");
    const FileSystem files = Disk.Operations();
    FileHandle handle = -1;
    ASSERT_FALSE(files.OpenForReading("/home/.brindle-save-0.tmp", handle).Failed());
    ASSERT_FALSE(files.OpenForReading("/home/.brindle-save-1.tmp", handle).Failed());
    EXPECT_EQ(0, Replace(FilePath));
    EXPECT_EQ("new", Disk.Content(FilePath));
    EXPECT_EQ("of another", Disk.Content("/home/.brindle-save-0.tmp"));
    EXPECT_EQ("of a third", Disk.Content("/home/.brindle-save-1.tmp"));
    EXPECT_FALSE(Disk.Content("/home/.brindle-save-2.tmp").has_value());
}

TEST_F(ReplacingAWholeFile, TakesAwayTheFileThatAKilledSaverLeftBeside) {
    Disk.AddFile("/home/.brindle-save-0.tmp", "half of someth");
    EXPECT_EQ(0, Replace(FilePath));
    EXPECT_EQ("new", Disk.Content(FilePath));
    EXPECT_EQ((std::vector<std::string>{"/", "/home", FilePath}), Disk.Names());
}

TEST_F(ReplacingAWholeFile, HoldsTheFileBesideUntilItHasItsName) {
    for (const char* failing : {"rename", "write", "flush", "nothing"}) {
        FileSystem files = Disk.Operations();
        Disk.FailAll(failing, DiskFullError);
        const auto isHeld = [&](const std::string& beside) {
            EXPECT_EQ(FileAlreadyOpenError, files.RemoveAbandoned(beside).Number) << beside;
        };
        FileSystem watched = files;
        watched.Rename = [&](const std::string& from, const std::string& to) {
            isHeld(from);
            return files.Rename(from, to);
        };
        watched.Remove = [&](const std::string& path) {
            isHeld(path);
            return files.Remove(path);
        };
        EXPECT_EQ(failing == std::string("nothing"), !ReplaceWholeFile(watched, FilePath, "new").Failed());
        EXPECT_EQ(0U, Disk.OpenHandles());
    }
}

TEST_F(ReplacingAWholeFile, PassesOverNamesThatAreTaken) {
    Disk.AddFile(FilePath, "old");
    const FileSystem files = Disk.Operations();
    for (int taken = 1; taken < 10; ++taken) {
        const std::string path = "/home/.brindle-save-000000000000000" + std::to_string(taken) + ".tmp";
        Disk.AddFile(path, "of another");
        FileHandle handle = -1;
        ASSERT_FALSE(files.OpenForReading(path, handle).Failed()); // and so stays
    }
    EXPECT_EQ(0, Replace(FilePath));
    EXPECT_EQ("new", Disk.Content(FilePath));
}

TEST_F(ReplacingAWholeFile, SaysSoWhenEveryNameBesideIsTakenAndDoesNotAskToOverwrite) {
    Disk.AddFile(FilePath, "old");
    Disk.FailAll("create", FileAlreadyExistsError);
    const FileError error = ReplaceWholeFile(Disk.Operations(), FilePath, "new");
    EXPECT_EQ(InternalError, error.Number);
    EXPECT_EQ("The folder takes no new file: each name that was tried is taken already.", error.Description);
    EXPECT_EQ("old", Disk.Content(FilePath));
}

TEST_F(ReplacingAWholeFile, NamesTheFileInTheErrorsOfItsHandle) {
    Disk.FailAll("write", DiskFullError);
    EXPECT_EQ("write 3 bytes /home/x.pl", ReplaceWholeFile(Disk.Operations(), FilePath, "new").Source);
}

} // namespace
} // namespace brindle
