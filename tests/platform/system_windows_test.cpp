#include "platform/browser.h"
#include "platform/file_lock.h"
#include "platform/help_engine.h"
#include "platform/system_error.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <windows.h>
#undef FindExecutable // which it has for two functions of its own

namespace brindle {
namespace {

TEST(SystemErrorOfWindows, SaysWhatAUserKnows) {
    EXPECT_EQ(FileNotFoundError, SystemFileError(ERROR_FILE_NOT_FOUND, "x").Number);
    EXPECT_EQ(PermissionDeniedError, SystemFileError(ERROR_SHARING_VIOLATION, "x").Number);
    EXPECT_EQ(DiskFullError, SystemFileError(ERROR_DISK_FULL, "x").Number);
    EXPECT_EQ(DiskNotReadyError, SystemFileError(ERROR_NOT_READY, "x").Number);
    EXPECT_EQ("x", SystemFileError(ERROR_NOT_READY, "x").Source);
}

TEST(SystemErrorOfWindows, TellsAnUnknownOneInTheSystemsOwnWords) {
    const FileError error = SystemFileError(ERROR_ARENA_TRASHED, "x");
    EXPECT_EQ(InternalError, error.Number);
    EXPECT_FALSE(error.Description.empty());
}

TEST(FileLockOfWindows, IsHeldByOneAtATimeAndLeavesNoFile) {
    const TempFolder folder;
    const FileLocks locks = RealFileLocks();
    FileHandle first = NoLock;
    FileHandle second = NoLock;
    ASSERT_EQ(LockOutcome::Taken, locks.Take(folder.Path("x.lock"), first));
    EXPECT_EQ(LockOutcome::Held, locks.Take(folder.Path("x.lock"), second));
    EXPECT_EQ(NoLock, second);
    locks.Release(first, folder.Path("x.lock"));
    EXPECT_EQ(0, folder.Count());
    ASSERT_EQ(LockOutcome::Taken, locks.Take(folder.Path("x.lock"), second));
    locks.Release(second, folder.Path("x.lock"));
    EXPECT_EQ(LockOutcome::Refused, locks.Take(folder.Path("none\\x.lock"), first));
}

TEST(BrowserOfWindows, AMissingPageHasNoProgram) {
    std::string program;
    EXPECT_GE(GreatestProgramFault, RealBrowser().FindExecutable("C:\\none\\Ripplet.htm", program));
}

TEST(BrowserOfWindows, AMissingProgramIsSaidToBeMissing) {
    EXPECT_EQ(ProgramNotFoundFault, RealBrowser().StartProgram("C:\\none.exe", "https://a.example"));
    EXPECT_EQ(ProgramPathNotFoundFault,
              RealBrowser().StartProgram("C:\\none\\none.exe", "https://a.example"));
}

TEST(BrowserOfWindows, AFileThatIsNoProgramIsCorrupt) {
    const TempFolder folder;
    folder.Put("text.exe", "not to be executed");
    EXPECT_EQ(CorruptProgramFault, RealBrowser().StartProgram(folder.Path("text.exe"), "https://a.example"));
}

TEST(BrowserOfWindows, AStartedProgramGetsTheAddress) {
    const TempFolder folder;
    const std::string seen = folder.Path("seen");
    EXPECT_LT(GreatestProgramFault,
              RealBrowser().StartProgram("C:\\windows\\system32\\cmd.exe", "/c echo address>" + seen));
    for (int tries = 0; tries < 500 && folder.Content("seen").find('\n') == std::string::npos; ++tries) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    EXPECT_EQ("address\r\n", folder.Content("seen"));
}

TEST(HelpEngineOfWindows, IsNotAskedForAFileThatIsNotThere) {
    EXPECT_FALSE(OpenWithHelpEngine("C:\\none\\Brindle.hlp"));
}

} // namespace
} // namespace brindle
