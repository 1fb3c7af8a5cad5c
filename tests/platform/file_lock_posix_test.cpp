#include "platform/file_lock.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

namespace brindle {
namespace {

struct FileLockTest : testing::Test {
    TempFolder Folder;
    std::string Path = Folder.Path("x.lock");
    FileLocks Locks = RealFileLocks();
    FileHandle Lock = NoLock;
};

TEST_F(FileLockTest, IsHeldByOne) {
    ASSERT_EQ(LockOutcome::Taken, Locks.Take(Path, Lock));
    FileHandle second = NoLock;
    EXPECT_EQ(LockOutcome::Held, Locks.Take(Path, second));
    EXPECT_EQ(NoLock, second);
    Locks.Release(Lock, Path);
    EXPECT_EQ(0, Folder.Count());
    ASSERT_EQ(LockOutcome::Taken, Locks.Take(Path, second));
    Locks.Release(second, Path);
}

TEST_F(FileLockTest, IsLetGoOfByAProgramThatIsKilled) {
    const pid_t holder = ::fork();
    if (holder == 0) {
        if (Locks.Take(Path, Lock) != LockOutcome::Taken) {
            ::_exit(1);
        }
        for (;;) {
            ::pause();
        }
    }
    for (int look = 0; look < 1000 && Folder.Count() == 0; ++look) {
        ::usleep(1000);
    }
    ::usleep(20000); // between its file and its lock
    EXPECT_EQ(LockOutcome::Held, Locks.Take(Path, Lock));
    ASSERT_EQ(0, ::kill(holder, SIGKILL));
    ASSERT_EQ(holder, ::waitpid(holder, nullptr, 0));
    EXPECT_EQ(1, Folder.Count()) << "its file stays";
    ASSERT_EQ(LockOutcome::Taken, Locks.Take(Path, Lock));
    Locks.Release(Lock, Path);
    EXPECT_EQ(0, Folder.Count());
}

TEST_F(FileLockTest, AFolderThatIsMissingHasNone) {
    EXPECT_EQ(LockOutcome::Refused, Locks.Take(Folder.Path("none/x.lock"), Lock));
    EXPECT_EQ(NoLock, Lock);
}

TEST_F(FileLockTest, ALinkIsReplacedAndNotFollowed) {
    ASSERT_EQ(0, ::symlink("elsewhere", Path.c_str()));
    ASSERT_EQ(LockOutcome::Taken, Locks.Take(Path, Lock));
    EXPECT_FALSE(std::filesystem::exists(Folder.Path("elsewhere")));
    EXPECT_FALSE(std::filesystem::is_symlink(Path));
    Locks.Release(Lock, Path);
}

} // namespace
} // namespace brindle
