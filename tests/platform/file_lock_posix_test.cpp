#include "platform/file_lock.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace brindle {
namespace {

struct FileLockTest : testing::Test {
    TempFolder Folder;
    std::string Path = Folder.Path("x.lock");
    FileLocks Locks = RealFileLocks();
};

TEST_F(FileLockTest, IsHeldByOne) {
    const FileHandle first = Locks.Take(Path);
    ASSERT_NE(NoLock, first);
    EXPECT_EQ(NoLock, Locks.Take(Path));
    Locks.Release(first, Path);
    EXPECT_EQ(0, Folder.Count());
    const FileHandle second = Locks.Take(Path);
    EXPECT_NE(NoLock, second);
    Locks.Release(second, Path);
}

TEST_F(FileLockTest, IsLetGoOfByAProgramThatIsKilled) {
    const pid_t holder = ::fork();
    if (holder == 0) {
        if (Locks.Take(Path) == NoLock) {
            ::_exit(1);
        }
        for (;;) {
            ::pause();
        }
    }
    FileHandle lock = NoLock;
    for (int look = 0; look < 1000 && Folder.Count() == 0; ++look) {
        ::usleep(1000);
    }
    ::usleep(20000); // between its file and its lock
    EXPECT_EQ(NoLock, Locks.Take(Path));
    ASSERT_EQ(0, ::kill(holder, SIGKILL));
    ASSERT_EQ(holder, ::waitpid(holder, nullptr, 0));
    EXPECT_EQ(1, Folder.Count()) << "its file stays";
    lock = Locks.Take(Path);
    EXPECT_NE(NoLock, lock);
    Locks.Release(lock, Path);
    EXPECT_EQ(0, Folder.Count());
}

TEST_F(FileLockTest, AFolderThatIsMissingHasNone) {
    EXPECT_EQ(NoLock, Locks.Take(Folder.Path("none/x.lock")));
}

TEST_F(FileLockTest, ALinkIsNotFollowed) {
    ASSERT_EQ(0, ::symlink("elsewhere", Path.c_str()));
    EXPECT_EQ(NoLock, Locks.Take(Path));
    EXPECT_EQ("", Folder.Content("elsewhere"));
}

} // namespace
} // namespace brindle
