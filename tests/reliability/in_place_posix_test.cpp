#include "files/in_place.h"
#include "files/whole_file.h"
#include "platform/file_size_limit.h"
#include "support/editor_harness.h"
#include "support/other_user_posix.h"
#include "support/program_bytes.h"
#include "support/shared_count.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

/// Files that can only be written where they stand, on the disk of the system: in shared and closed folders,
/// and by programs that are killed.
namespace brindle {
namespace {

/// A folder of all with a logic file of the superuser that all may write, and a program's folder.
struct SharedFolder : testing::Test {
    SharedFolder() {
        std::filesystem::create_directory(Folder.Path("in"));
        std::filesystem::create_directory(Folder.Path("program"));
        Folder.Put("in/x.pl", NewProgramBytes(Version230));
        ::chmod(Folder.Path().c_str(), 0755);
        ::chmod(Folder.Path("program").c_str(), 0777);
        ::chmod(Path.c_str(), 0666);
    }

    ~SharedFolder() override { ::chmod(Folder.Path("in").c_str(), 0700); }

    void SetUp() override {
        if (::geteuid() != 0) {
            GTEST_SKIP() << "only the superuser can make files of others";
        }
    }

    /// An editor of the other user opens the file, changes the logic and saves it.
    [[nodiscard]] bool OtherUserSaves(mode_t mode) const {
        ::chmod(Folder.Path("in").c_str(), mode);
        return RunAsOtherUser([&] {
            EditorHarness harness;
            harness.Surroundings.Files = RealFileSystem();
            harness.Surroundings.ProgramFolder = Folder.Path("program");
            harness.Start();
            harness->OpenPath(Path);
            harness->EditConfig().Group(3).Timer(4).PickUp = 1234;
            harness->EditConfig().Modified = true;
            harness->mnuFileSave_Click();
            EXPECT_TRUE(harness.Boxes.empty());
            EXPECT_FALSE(harness->Config().Modified);
            EXPECT_TRUE(ProgramBytes(harness->Config()) == Folder.Content("in/x.pl"));
            EXPECT_TRUE(CopiesLeft(RealFileSystem(), Folder.Path("program")).empty());
        });
    }

    void ExpectSameFile() const {
        struct stat status {};

        ASSERT_EQ(0, ::stat(Path.c_str(), &status));
        EXPECT_EQ(0U, status.st_uid);
        EXPECT_EQ(0666U, status.st_mode & 0777U);
        EXPECT_EQ(1, std::distance(std::filesystem::directory_iterator(Folder.Path("in")), {}));
    }

    TempFolder Folder;
    const std::string Path = Folder.Path("in/x.pl");
};

TEST_F(SharedFolder, WhereNobodyReplacesTheFilesOfOthersIsSavedInWithoutAQuestion) {
    EXPECT_TRUE(OtherUserSaves(01777));
    ExpectSameFile();
}

TEST_F(SharedFolder, ThatTakesNoFilesIsSavedInAllTheSame) {
    EXPECT_TRUE(OtherUserSaves(0755));
    ExpectSameFile();
}

TEST_F(SharedFolder, OfOneFileWithTwoNamesKeepsThemOne) {
    std::filesystem::create_hard_link(Path, Folder.Path("second.pl"));
    EXPECT_TRUE(OtherUserSaves(0777));
    EXPECT_TRUE(Folder.Content("second.pl") == Folder.Content("in/x.pl"));
    EXPECT_TRUE(std::filesystem::equivalent(Path, Folder.Path("second.pl")));
}

/// The disk of the system, writing so slowly that kills hit it.
FileSystem SlowFiles() {
    FileSystem files = RealFileSystem();
    files.Write = [write = files.Write](FileHandle handle, const char* bytes, std::size_t size) {
        FileError error;
        for (std::size_t piece = 0; size > 0 && !error.Failed(); bytes += piece, size -= piece) {
            piece = std::min<std::size_t>(size, 50);
            error = write(handle, bytes, piece);
            std::this_thread::sleep_for(std::chrono::microseconds(50));
        }
        return error;
    };
    return files;
}

TEST(KilledInPlace, AtAnyMomentLeavesAWholeFileOrAWholeCopy) {
    const std::uint32_t seed = std::random_device()();
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> microseconds(0, 20'000);
    const FileSystem files = SlowFiles();
    const std::array<std::string, 2> versions{std::string(2000, 'a'), std::string(1500, 'b')};
    int torn = 0;
    constexpr int kills = 200;
    for (int kill = 0; kill < kills; ++kill) {
        const TempFolder folder;
        std::filesystem::create_directory(folder.Path("program"));
        folder.Put("x.pl", versions[0]);
        const SharedCount running;
        ChildProcess saver([&] {
            running.Increment();
            for (std::size_t version = 1;; version = 1 - version) {
                if (WriteInPlace(files, folder.Path("x.pl"), versions.at(version), folder.Path("program"))
                        .Failed()) {
                    return false;
                }
            }
        });
        while (running.Value() == 0) {
            std::this_thread::yield();
        }
        std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
        ASSERT_TRUE(saver.Kill());
        const std::string content = folder.Content("x.pl");
        if (content == versions[0] || content == versions[1]) {
            continue;
        }
        ++torn;
        const std::vector<std::string> copies = CopiesLeft(files, folder.Path("program"));
        ASSERT_EQ(1U, copies.size()) << "seed " << seed;
        std::string copy;
        ASSERT_FALSE(ReadWholeText(files, copies[0], copy).Failed());
        EXPECT_TRUE(copy == versions[0] || copy == versions[1]) << "seed " << seed;
    }
    std::cout << "kills: " << kills << ", with a torn file and a copy: " << torn << ", seed: " << seed
              << "\n";
    EXPECT_GT(torn, 0) << "the kills have hit the writing";
}

TEST(TwoWritersInPlace, DoNotMixWhatTheyWrite) {
    const TempFolder folder;
    const std::string path = folder.Path("x.pl");
    folder.Put("x.pl", "old");
    FileSystem files = RealFileSystem();
    int second = NoFileError; // of the other program, which comes amid the writing
    files.CutOff = [&, cutOff = files.CutOff](FileHandle handle, std::size_t size) {
        second = WriteInPlace(RealFileSystem(), path, "of the other", folder.Path()).Number;
        return cutOff(handle, size);
    };
    EXPECT_FALSE(WriteInPlace(files, path, "new", folder.Path()).Failed());
    EXPECT_EQ(FileAlreadyOpenError, second);
    EXPECT_EQ("new", folder.Content("x.pl"));
    EXPECT_EQ(1, folder.Count());
    EXPECT_FALSE(WriteInPlace(RealFileSystem(), path, "of the other", folder.Path()).Failed());
}

/// Saves where files may have at most `limit` bytes; whether the error is that of a full disk.
bool SaveFailsAtLimit(const std::string& path, rlim_t limit, const ReplaceRules& rules) {
    ChildProcess child([&] {
        LetLargeFilesFail();
        const rlimit size{limit, limit};
        return ::setrlimit(RLIMIT_FSIZE, &size) == 0 &&
               ReplaceWholeFile(RealFileSystem(), path, std::string(2048, 'n'), rules).Number ==
                   DiskFullError;
    });
    return child.EndsWell();
}

TEST(FileSizeLimit, IsToldAsAFullDiskAndLeavesTheOldFileAlone) {
    const TempFolder folder;
    folder.Put("x.pl", "old");
    EXPECT_TRUE(SaveFailsAtLimit(folder.Path("x.pl"), 1000, {}));
    EXPECT_EQ("old", folder.Content("x.pl"));
    EXPECT_EQ(1, folder.Count());
}

TEST(FileSizeLimit, OfAFileThatIsWrittenInPlaceLeavesTheOldContent) {
    const TempFolder folder;
    folder.Put("x.pl", "old");
    std::filesystem::create_hard_link(folder.Path("x.pl"), folder.Path("y.pl"));
    EXPECT_TRUE(SaveFailsAtLimit(folder.Path("x.pl"), 1000, {folder.Path(), {}}));
    EXPECT_EQ("old", folder.Content("x.pl"));
    EXPECT_EQ(2, folder.Count());
}

} // namespace
} // namespace brindle
