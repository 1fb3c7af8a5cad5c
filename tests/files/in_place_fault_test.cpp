#include "files/in_place.h"
#include "support/fake_file_system.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

/// What writing a file in its place leaves when an operation fails or the power does: the old file whole, the
/// new one whole, or a copy that holds the old one whole.
namespace brindle {
namespace {

constexpr const char* InPlacePath = "/home/x.pl";
constexpr const char* CopyFolder = "/own";
const std::string OldInPlace(2048, 'o');

/// One write in place onto a disk of its own.
struct WriteInPlaceRun {
    explicit WriteInPlaceRun(std::string bytes) : New(std::move(bytes)) {
        Disk.AddFolder("/home");
        Disk.AddFolder(CopyFolder);
        Disk.AddFile(InPlacePath, OldInPlace);
    }

    FileError Write() { return WriteInPlace(Disk.Operations(), InPlacePath, New, CopyFolder); }

    [[nodiscard]] std::string Now() const { return Disk.Content(InPlacePath).value_or("no file"); }

    /// The content of the only copy; empty where there is none.
    std::string Copy() {
        const std::vector<std::string> copies = CopiesLeft(Disk.Operations(), CopyFolder);
        EXPECT_LE(copies.size(), 1U);
        return copies.empty() ? "" : Disk.Content(copies.front()).value_or("");
    }

    FakeFileSystem Disk;
    std::string New;
};

/// New contents that need more room, the same and less.
const std::vector<std::string> NewContents{std::string(3000, 'n'), std::string(2048, 'n'),
                                           std::string(700, 'n'), ""};

std::size_t OperationsOf(const std::string& bytes) {
    WriteInPlaceRun run(bytes);
    EXPECT_FALSE(run.Write().Failed());
    EXPECT_EQ(bytes, run.Now());
    EXPECT_EQ("", run.Copy());
    return run.Disk.Log().size();
}

TEST(InPlaceUnderFaults, OneFailureLeavesTheOldContentOrTheNewAndIsTold) {
    for (const std::string& bytes : NewContents) {
        const std::size_t operations = OperationsOf(bytes);
        for (std::size_t n = 1; n <= operations; ++n) {
            SCOPED_TRACE(n);
            WriteInPlaceRun run(bytes);
            run.Disk.FailOnce(n, DiskFullError);
            const bool failed = run.Write().Failed();
            EXPECT_EQ(failed ? OldInPlace : bytes, run.Now());
            // Once the new content is on the disk, only the copy is left to be removed.
            EXPECT_EQ(n <= operations - 3, failed);
            EXPECT_EQ(0U, run.Disk.OpenHandles());
            EXPECT_TRUE(failed || run.Copy().empty() || run.Copy() == OldInPlace);
        }
    }
}

TEST(InPlaceUnderFaults, ADiskThatFailsForGoodLeavesAWholeFileOrACopyThatTheErrorNames) {
    std::size_t torn = 0;
    for (const std::string& bytes : NewContents) {
        const std::size_t operations = OperationsOf(bytes);
        for (std::size_t n = 1; n <= operations; ++n) {
            SCOPED_TRACE(n);
            WriteInPlaceRun run(bytes);
            run.Disk.FailFrom(n, DeviceIoError);
            const FileError error = run.Write();
            run.Disk.FailNoMore();
            EXPECT_EQ(0U, run.Disk.OpenHandles());
            if (!error.Failed()) {
                EXPECT_EQ(bytes, run.Now());
                continue;
            }
            if (run.Now() != OldInPlace) {
                ++torn;
                EXPECT_EQ(OldInPlace, run.Copy());
                EXPECT_EQ(InternalError, error.Number);
                EXPECT_NE(std::string::npos,
                          error.Description.find(CopiesLeft(run.Disk.Operations(), CopyFolder).at(0)))
                    << error.Description;
            }
        }
    }
    EXPECT_GT(torn, 0U) << "the copy was needed";
}

TEST(InPlaceUnderFaults, LosingPowerAtAnyOperationLeavesAWholeFileOrAWholeCopy) {
    std::size_t torn = 0;
    for (const UnflushedNames names : {UnflushedNames::Forgotten, UnflushedNames::Kept}) {
        for (const std::string& bytes : NewContents) {
            const std::size_t operations = OperationsOf(bytes);
            for (std::size_t n = 1; n <= operations + 1; ++n) {
                SCOPED_TRACE(n);
                WriteInPlaceRun run(bytes);
                run.Disk.FailFrom(n, DeviceIoError);
                const bool saved = !run.Write().Failed();
                run.Disk.FailNoMore();
                run.Disk.Crash(names);
                if (saved) {
                    EXPECT_EQ(bytes, run.Now());
                } else if (run.Now() != OldInPlace && run.Now() != bytes) {
                    ++torn;
                    EXPECT_EQ(OldInPlace, run.Copy());
                }
            }
        }
    }
    EXPECT_GT(torn, 0U) << "the copy was needed";
}

TEST(InPlaceUnderFaults, ThePowerMayFailWhileTheFileIsBeingWritten) {
    WriteInPlaceRun run(NewContents.front());
    FileSystem files = run.Disk.Operations();
    bool failed = false;
    files.CutOff = [&](FileHandle, std::size_t) {
        failed = true;
        run.Disk.FailAll("", DeviceIoError); // nothing reaches the disk any more
        return MakeFileError(DeviceIoError, "cut off");
    };
    EXPECT_TRUE(WriteInPlace(files, InPlacePath, run.New, CopyFolder).Failed());
    ASSERT_TRUE(failed);
    run.Disk.FailNoMore();
    run.Disk.Crash(UnflushedNames::Kept);
    EXPECT_NE(OldInPlace, run.Now());
    EXPECT_EQ(OldInPlace, run.Copy());
}

TEST(InPlaceUnderFaults, AfterAnyFailureWritingAgainGoesWell) {
    const std::string& bytes = NewContents.front();
    for (std::size_t n = 1; n <= OperationsOf(bytes); ++n) {
        WriteInPlaceRun run(bytes);
        run.Disk.FailFrom(n, DiskFullError);
        static_cast<void>(run.Write());
        run.Disk.FailNoMore();
        EXPECT_FALSE(run.Write().Failed()) << n;
        EXPECT_EQ(bytes, run.Now()) << n;
    }
}

TEST(InPlaceUnderFaults, ACopyInUseIsNotOneThatWasLeft) {
    WriteInPlaceRun run("new");
    FileSystem files = run.Disk.Operations();
    std::size_t left = 0;
    const auto cutOff = files.CutOff;
    files.CutOff = [&](FileHandle handle, std::size_t size) {
        left += CopiesLeft(files, CopyFolder).size();
        return cutOff(handle, size);
    };
    EXPECT_FALSE(WriteInPlace(files, InPlacePath, run.New, CopyFolder).Failed());
    EXPECT_EQ(0U, left);
}

TEST(InPlaceUnderFaults, AFileOfALongNameHasACopyOfAShortOne) {
    const std::string path = "/home/" + std::string(240, 'x') + ".pl";
    FakeFileSystem disk;
    disk.AddFolder("/home");
    disk.AddFolder(CopyFolder);
    disk.AddFile(path, "old");
    disk.FailAll("remove", DeviceIoError);
    EXPECT_FALSE(WriteInPlace(disk.Operations(), path, "new", CopyFolder).Failed());
    EXPECT_EQ((std::vector<std::string>{"/own/BeforeSave-0000000000000001.pl"}),
              CopiesLeft(disk.Operations(), CopyFolder));
}

} // namespace
} // namespace brindle
