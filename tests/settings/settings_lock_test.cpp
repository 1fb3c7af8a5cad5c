#include "settings/settings_file.h"
#include "support/fake_locks.h"
#include "support/memory_profile.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

constexpr const char* LockPath = "/opt/brindle/Benchkit.lock";

/// A settings file that programs share.
struct SharedSettings : testing::Test {
    SettingsFile Program() {
        return {"/opt/brindle", Profile.Functions(), Profile.Files(), Profile.Show(), Locks.Operations()};
    }

    MemoryProfile Profile;
    FakeLocks Locks;
};

TEST_F(SharedSettings, AreChangedWhileTheLockIsHeldAndOnlyThen) {
    ProfileFunctions functions = Profile.Functions();
    int changes = 0;
    const auto expectLocked = [&] {
        ++changes;
        EXPECT_EQ(1U, Locks.Held.count(LockPath));
        return true;
    };
    functions.Write = [&](auto&&...) { return expectLocked(); };
    functions.Update = [&](auto&&...) { return expectLocked(); };
    SettingsFile settings("/opt/brindle", functions, Profile.Files(), Profile.Show(), Locks.Operations());
    EXPECT_TRUE(settings.Write("Key", "1", "Brindle"));
    EXPECT_TRUE(settings.RemoveSection("Brindle"));
    EXPECT_TRUE(settings.Update("Brindle", {}));
    EXPECT_EQ(3, changes);
    EXPECT_TRUE(Locks.Held.empty());
}

TEST_F(SharedSettings, AreChangedOnceTheOtherProgramLetsGo) {
    Locks.Held.insert(LockPath);
    Locks.WhilePaused = [this] {
        if (Locks.Pauses == 5) {
            Profile.Text = "[Brindle]\nOther=2\n";
            Locks.Held.erase(LockPath);
        }
    };
    EXPECT_TRUE(Program().Write("Key", "1", "Brindle"));
    EXPECT_EQ(5, Locks.Pauses);
    EXPECT_EQ("[Brindle]\nOther=2\nKey=1\n", Profile.Text);
}

TEST_F(SharedSettings, WaitThreeSecondsForAProgramThatHangsAndThenNoMoreUntilItEnds) {
    Locks.Held.insert(LockPath);
    SettingsFile settings = Program();
    EXPECT_TRUE(settings.Write("Key", "1", "Brindle"));
    EXPECT_EQ(300, Locks.Pauses);
    EXPECT_TRUE(settings.Write("Key", "2", "Brindle"));
    EXPECT_EQ(300, Locks.Pauses);
    EXPECT_EQ(1U, Locks.Held.count(LockPath)) << "the lock is the other's";
    EXPECT_TRUE(Profile.Boxes.empty());
    Locks.Held.clear();
    EXPECT_TRUE(settings.Write("Key", "3", "Brindle"));
    Locks.Held.insert(LockPath);
    EXPECT_TRUE(settings.Write("Key", "4", "Brindle"));
    EXPECT_EQ(600, Locks.Pauses) << "the next hold-up is another one";
}

TEST_F(SharedSettings, DoNotWaitWhereNoLockCanBeMade) {
    Locks.Refused = true;
    EXPECT_TRUE(Program().Write("Key", "1", "Brindle"));
    EXPECT_EQ(0, Locks.Pauses);
}

} // namespace
} // namespace brindle
