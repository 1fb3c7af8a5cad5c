#include "files/vdr810_writer.h"
#include "support/child_process.h"
#include "support/editor_harness.h"
#include "support/file_prompts.h"
#include "support/program_bytes.h"
#include "support/shared_count.h"
#include "support/temp_folder.h"
#include "support/vdr810_scheme.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fcntl.h>
#include <iostream>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

/// Saving onto a disk of the system that is full, or nearly so.
namespace brindle {
namespace {

constexpr int PageBytes = 4096; // what the small disk gives out at a time
constexpr int PagesOfSmallDisk = 16;

void WriteProcessFile(const char* path, const std::string& text) {
    const int handle = ::open(path, O_WRONLY | O_CLOEXEC);
    if (handle >= 0) {
        // What cannot be written shows when the disk cannot be mounted.
        [[maybe_unused]] const ssize_t written = ::write(handle, text.data(), text.size());
        ::close(handle);
    }
}

/// Mounts an empty disk of 64 KiB at `folder`, which only this process sees. False where that is not allowed.
bool MountSmallDisk(const std::string& folder) {
    const std::string user = std::to_string(::geteuid());
    const std::string group = std::to_string(::getegid());
    if (::unshare(CLONE_NEWNS) != 0) {
        if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
            return false;
        }
        WriteProcessFile("/proc/self/setgroups", "deny");
        WriteProcessFile("/proc/self/uid_map", user + " " + user + " 1");
        WriteProcessFile("/proc/self/gid_map", group + " " + group + " 1");
    }
    const std::string size = "size=" + std::to_string(PagesOfSmallDisk * PageBytes);
    return ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           ::mount("none", folder.c_str(), "tmpfs", 0, size.c_str()) == 0;
}

/// An editor with a changed logic of one of the two relays, opened from the disk.
struct NearlyFullDisk {
    NearlyFullDisk(const TempFolder& folder, const char* name) : Folder(folder), Name(name) {
        Folder.Put("x.pl", NewProgramBytes(Version230));
        Folder.Put("x.c10", SchemeLogicFile(2.3, 12));
        Old = Folder.Content(Name);
        Harness.Surroundings.Files = RealFileSystem();
        Harness.Surroundings.ShowMessageBox = [this](const MessageBox& box) {
            ExpectSaveFailure(box, DiskFullError);
            ++Boxes;
            if (RetriesOnceCleared) {
                std::filesystem::remove(Folder.Path("filler"));
            }
            return RetriesOnceCleared ? MessageAnswer::Retry : MessageAnswer::Cancel;
        };
        Harness.Start();
        Harness->OpenPath(Folder.Path(Name));
        EXPECT_FALSE(Old.empty());
        // Without its option file, a VDR810 opens just the same.
        Harness->EditConfig().Group(1).Timer(1).DropOut = 777;
        Harness->EditConfig().Modified = true;
        const LogicConfig& logic = Harness->Config();
        New = logic.RelayModel == RelayKind::Vdr812 ? ProgramBytes(logic) : EncodeVdr810(logic);
    }

    /// Fills the disk but for `pages`.
    void FillBut(int pages) const {
        std::filesystem::remove(Folder.Path("filler"));
        const auto available = std::filesystem::space(Folder.Path()).available;
        const auto left = static_cast<std::uintmax_t>(pages) * PageBytes;
        Folder.Put("filler", std::string(available > left ? available - left : 0, 'f'));
    }

    const TempFolder& Folder;
    const char* Name;
    EditorHarness Harness;
    int Boxes = 0;
    bool RetriesOnceCleared = false;
    std::string Old;
    std::string New;
};

/// Saves with 0, 1, 2 and more pages free until it goes well; the number of saves that met a full disk.
int SaveUntilThereIsRoom(const TempFolder& folder, const char* name) {
    int full = 0;
    for (int pages = 0; pages < PagesOfSmallDisk; ++pages) {
        NearlyFullDisk disk(folder, name);
        disk.FillBut(pages);
        disk.Harness->mnuFileSave_Click();
        const bool saved = disk.Boxes == 0;
        EXPECT_EQ(!saved, disk.Harness->Config().Modified) << pages;
        EXPECT_TRUE(folder.Content(name) == (saved ? disk.New : disk.Old)) << pages;
        EXPECT_EQ(3, folder.Count()) << "the two files and the filler";
        if (saved) {
            return full;
        }
        ++full;
        disk.RetriesOnceCleared = true;
        disk.Harness->mnuFileSave_Click();
        EXPECT_EQ(2, disk.Boxes) << pages;
        EXPECT_FALSE(disk.Harness->Config().Modified) << pages;
        EXPECT_TRUE(folder.Content(name) == disk.New) << pages;
    }
    ADD_FAILURE() << "no room for " << name;
    return full;
}

TEST(FullDisk, KeepsTheOldFileUntilThereIsRoomForTheNewOne) {
    const TempFolder folder;
    const SharedCount mounted;
    const SharedCount fullDisks;
    ChildProcess child([&] {
        if (!MountSmallDisk(folder.Path())) {
            return true;
        }
        mounted.Increment();
        for (const char* name : {"x.pl", "x.c10"}) {
            for (int full = SaveUntilThereIsRoom(folder, name); full > 0; --full) {
                fullDisks.Increment();
            }
        }
        std::fflush(nullptr); // what failed is said by the child
        return !testing::Test::HasFailure();
    });
    EXPECT_TRUE(child.EndsWell());
    if (mounted.Value() == 0) {
        GTEST_SKIP() << "no small disk may be mounted here";
    }
    std::cout << "saves onto a full disk: " << fullDisks.Value() << "\n";
    EXPECT_GE(fullDisks.Value(), 2U) << "one for each relay";
}

TEST(FullDisk, AFullDeviceIsToldAndTheChangesAreKept) {
    const TempFolder folder;
    NearlyFullDisk disk(folder, "x.pl");
    disk.Harness.ChooseFile("/dev", "full");
    disk.Harness->mnuSaveBin_Click();
    EXPECT_EQ(1, disk.Boxes);
    EXPECT_TRUE(disk.Harness->Config().Modified);
    EXPECT_TRUE(folder.Content("x.pl") == disk.Old);
    disk.Harness.ChooseFile(folder.Path(), "y.pl");
    disk.Harness->mnuSaveBin_Click();
    EXPECT_EQ(1, disk.Boxes);
    EXPECT_FALSE(disk.Harness->Config().Modified);
    EXPECT_TRUE(folder.Content("y.pl") == disk.New);
}

} // namespace
} // namespace brindle
