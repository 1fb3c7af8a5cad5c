#include "settings/recovery_keeper.h"
#include "support/fake_file_system.h"
#include "support/fake_locks.h"

#include <gtest/gtest.h>

#include <memory>

namespace brindle {
namespace {

constexpr const char* FirstCopy = "/opt/brindle/Recovery1.brindle";
constexpr const char* FirstLock = "/opt/brindle/Recovery1.lock";
constexpr const char* SecondCopy = "/opt/brindle/Recovery2.brindle";

/// Programs that share a folder, one after the other and side by side.
struct RecoveryKeeperTest : testing::Test {
    RecoveryKeeperTest() {
        Disk.AddFolder("/opt");
        Disk.AddFolder("/opt/brindle");
    }

    std::unique_ptr<RecoveryKeeper> Program() {
        return std::make_unique<RecoveryKeeper>("/opt/brindle", Disk.Operations(), Locks.Operations());
    }

    /// The work after `edits` edits.
    static RecoveryCopy Work(int edits) {
        LogicConfig config;
        MakeNewVdr812(config, Version230);
        config.Group(1).Timer(1).PickUp = edits;
        return {"/home/a.pl", "a.pl", FileOrigin::Opened, "today", RecoveryLogic(config)};
    }

    static void KeepNow(RecoveryKeeper& program, int edits) {
        program.Tick(Work(edits));
        program.Tick(Work(edits));
    }

    /// The program is gone without an end; the system lets go of its locks.
    void Crash(std::unique_ptr<RecoveryKeeper>& program) {
        program.reset();
        Locks.Held.clear();
    }

    [[nodiscard]] bool Has(const char* path) const { return Disk.Content(path).has_value(); }

    FakeFileSystem Disk;
    FakeLocks Locks;
};

TEST_F(RecoveryKeeperTest, WorkIsKeptOnceItStoodStill) {
    const auto program = Program();
    program->Rest(Work(0).Logic);
    program->Tick(Work(1));
    EXPECT_FALSE(Has(FirstCopy));
    program->Tick(Work(1));
    EXPECT_EQ(EncodeRecoveryCopy(Work(1)), Disk.Content(FirstCopy));
}

TEST_F(RecoveryKeeperTest, WorkThatNeverStandsStillIsKeptWithEveryThirdCall) {
    const auto program = Program();
    program->Rest(Work(0).Logic);
    for (int call = 1; call <= 9; ++call) {
        program->Tick(Work(call));
        EXPECT_EQ(call >= 3, Has(FirstCopy)) << call;
    }
    EXPECT_EQ(EncodeRecoveryCopy(Work(9)), Disk.Content(FirstCopy));
}

TEST_F(RecoveryKeeperTest, WhatIsKeptIsNotWrittenAgain) {
    const auto program = Program();
    program->Rest(Work(0).Logic);
    KeepNow(*program, 1);
    const std::size_t operations = Disk.Log().size();
    KeepNow(*program, 1);
    EXPECT_EQ(operations, Disk.Log().size());
}

TEST_F(RecoveryKeeperTest, NothingIsWrittenWhileNothingWouldBeLost) {
    const auto program = Program();
    program->Rest(Work(0).Logic);
    KeepNow(*program, 0);
    EXPECT_TRUE(Disk.Log().empty());
    EXPECT_TRUE(Locks.Held.empty());
}

TEST_F(RecoveryKeeperTest, ASavedOrTakenBackEditNeedsNoCopyAnyMore) {
    const auto program = Program();
    program->Rest(Work(0).Logic);
    KeepNow(*program, 1);
    program->Tick(Work(0));
    EXPECT_FALSE(Has(FirstCopy));
    KeepNow(*program, 2);
    EXPECT_TRUE(Has(FirstCopy));
    program->Rest(Work(2).Logic);
    program->Tick(Work(2));
    EXPECT_FALSE(Has(FirstCopy));
}

TEST_F(RecoveryKeeperTest, AnEndLeavesNothing) {
    const auto program = Program();
    program->Rest(Work(0).Logic);
    KeepNow(*program, 1);
    EXPECT_EQ(1U, Locks.Held.count(FirstLock));
    program->Close();
    EXPECT_FALSE(Has(FirstCopy));
    EXPECT_TRUE(Locks.Held.empty());
}

TEST_F(RecoveryKeeperTest, WhatACrashLeftIsFound) {
    auto program = Program();
    program->Rest(Work(0).Logic);
    KeepNow(*program, 1);
    Crash(program);
    const auto next = Program();
    const std::optional<LeftCopy> left = next->NextLeft();
    ASSERT_TRUE(left);
    EXPECT_EQ("/home/a.pl", left->Logic.FilePath);
    EXPECT_EQ(1, left->Logic.Group(1).Timer(1).PickUp);
}

TEST_F(RecoveryKeeperTest, ACopyOfARunningProgramIsNotFound) {
    const auto program = Program();
    program->Rest(Work(0).Logic);
    KeepNow(*program, 1);
    const auto second = Program();
    EXPECT_FALSE(second->NextLeft());
    second->Rest(Work(0).Logic);
    KeepNow(*second, 2);
    EXPECT_EQ(EncodeRecoveryCopy(Work(1)), Disk.Content(FirstCopy));
    EXPECT_EQ(EncodeRecoveryCopy(Work(2)), Disk.Content(SecondCopy));
    second->Close();
    EXPECT_TRUE(Has(FirstCopy));
}

TEST_F(RecoveryKeeperTest, AnAdoptedCopyStaysUntilItsWorkIsSaved) {
    auto program = Program();
    program->Rest(Work(0).Logic);
    KeepNow(*program, 1);
    Crash(program);
    auto next = Program();
    ASSERT_TRUE(next->NextLeft());
    next->Adopt();
    KeepNow(*next, 1);
    EXPECT_TRUE(Has(FirstCopy));
    KeepNow(*next, 2);
    EXPECT_EQ(EncodeRecoveryCopy(Work(2)), Disk.Content(FirstCopy));
    EXPECT_FALSE(Has(SecondCopy));
    next->Rest(Work(2).Logic);
    next->Tick(Work(2));
    EXPECT_FALSE(Has(FirstCopy));
}

TEST_F(RecoveryKeeperTest, AfterAnAdoptedCopyTheOthersWaitForAnotherStart) {
    Disk.AddFile(FirstCopy, EncodeRecoveryCopy(Work(1)));
    Disk.AddFile(SecondCopy, EncodeRecoveryCopy(Work(2)));
    const auto program = Program();
    ASSERT_TRUE(program->NextLeft());
    program->Adopt();
    EXPECT_FALSE(program->NextLeft());
    program->Close();
    EXPECT_FALSE(Has(FirstCopy));
    EXPECT_TRUE(Has(SecondCopy));
}

TEST_F(RecoveryKeeperTest, ADiscardedCopyIsGoneAndTheNextIsFound) {
    Disk.AddFile(FirstCopy, EncodeRecoveryCopy(Work(1)));
    Disk.AddFile("/opt/brindle/Recovery7.brindle", EncodeRecoveryCopy(Work(7)));
    const auto program = Program();
    ASSERT_TRUE(program->NextLeft());
    program->Discard();
    EXPECT_FALSE(Has(FirstCopy));
    const std::optional<LeftCopy> second = program->NextLeft();
    ASSERT_TRUE(second);
    EXPECT_EQ(7, second->Logic.Group(1).Timer(1).PickUp);
    program->Discard();
    EXPECT_FALSE(program->NextLeft());
    EXPECT_TRUE(Locks.Held.empty());
}

TEST_F(RecoveryKeeperTest, ACopyPassedOverIsFoundByTheNextStartAndNeverOverwritten) {
    Disk.AddFile(FirstCopy, EncodeRecoveryCopy(Work(1)));
    auto program = Program();
    ASSERT_TRUE(program->NextLeft());
    program->PassOver();
    EXPECT_FALSE(program->NextLeft());
    program->Rest(Work(0).Logic);
    KeepNow(*program, 2);
    EXPECT_EQ(EncodeRecoveryCopy(Work(1)), Disk.Content(FirstCopy));
    EXPECT_EQ(EncodeRecoveryCopy(Work(2)), Disk.Content(SecondCopy));
    program->Close();
    EXPECT_TRUE(Program()->NextLeft());
}

TEST_F(RecoveryKeeperTest, WhatIsNoCopyIsPutAsideOnceAndItsNumberIsFree) {
    std::string damaged = EncodeRecoveryCopy(Work(1));
    damaged.back() ^= 1;
    Disk.AddFile(FirstCopy, damaged);
    Disk.AddFile("/opt/brindle/Recovery1.damaged-1", "of before");
    Disk.AddFile(SecondCopy, "Brindle recovery copy 9\n");
    Disk.AddFile("/opt/brindle/Recovery3.brindle", EncodeRecoveryCopy(Work(3)));
    auto program = Program();
    const std::optional<LeftCopy> left = program->NextLeft();
    ASSERT_TRUE(left);
    EXPECT_EQ(3, left->Logic.Group(1).Timer(1).PickUp);
    EXPECT_EQ(
        (std::vector<std::string>{"/opt/brindle/Recovery1.damaged-2", "/opt/brindle/Recovery2.damaged-1"}),
        program->Damaged());
    EXPECT_EQ("of before", Disk.Content("/opt/brindle/Recovery1.damaged-1"));
    EXPECT_EQ(damaged, Disk.Content("/opt/brindle/Recovery1.damaged-2"));
    program->PassOver();
    program->Rest(Work(0).Logic);
    KeepNow(*program, 1);
    EXPECT_EQ(EncodeRecoveryCopy(Work(1)), Disk.Content(FirstCopy));
    program->Close();
    program = Program();
    ASSERT_TRUE(program->NextLeft());
    EXPECT_TRUE(program->Damaged().empty());
}

TEST_F(RecoveryKeeperTest, ALinkIsNeitherReadNorWrittenThroughButPutAside) {
    Disk.AddFile("/secret", EncodeRecoveryCopy(Work(1)));
    Disk.AddLink(FirstCopy, "/secret");
    Disk.AddLink(SecondCopy, "/nowhere");
    Disk.AddLink("/opt/brindle/Recovery3.brindle", "Recovery3.brindle");
    const auto program = Program();
    EXPECT_FALSE(program->NextLeft());
    EXPECT_EQ(3U, program->Damaged().size());
    EXPECT_TRUE(Disk.IsLink("/opt/brindle/Recovery1.damaged-1"));
    program->Rest(Work(0).Logic);
    KeepNow(*program, 2);
    EXPECT_EQ(EncodeRecoveryCopy(Work(2)), Disk.Content(FirstCopy));
    EXPECT_EQ(EncodeRecoveryCopy(Work(1)), Disk.Content("/secret"));
    EXPECT_FALSE(Has("/nowhere"));
}

TEST_F(RecoveryKeeperTest, AFolderInThePlaceOfACopyIsPutAsideToo) {
    Disk.AddFolder(FirstCopy);
    const auto program = Program();
    EXPECT_FALSE(program->NextLeft());
    EXPECT_EQ(1U, program->Damaged().size());
    EXPECT_FALSE(Has(FirstCopy));
}

TEST_F(RecoveryKeeperTest, ACopyThatTheSystemDoesNotLetUsOpenStays) {
    Disk.AddFile(FirstCopy, EncodeRecoveryCopy(Work(1)));
    for (const int error : {PermissionDeniedError, PathAccessError, DeviceIoError}) {
        Disk.FailAll("open", error);
        const auto program = Program();
        EXPECT_FALSE(program->NextLeft());
        EXPECT_TRUE(program->Damaged().empty());
        EXPECT_TRUE(Locks.Held.empty());
        Disk.FailNoMore();
    }
    EXPECT_TRUE(Program()->NextLeft());
}

TEST_F(RecoveryKeeperTest, WhatCannotBePutAsideIsNotToldOf) {
    Disk.AddFile(FirstCopy, "damaged");
    Disk.FailAll("rename", PathAccessError);
    const auto program = Program();
    EXPECT_FALSE(program->NextLeft());
    EXPECT_TRUE(program->Damaged().empty());
    EXPECT_EQ("damaged", Disk.Content(FirstCopy));
}

TEST_F(RecoveryKeeperTest, ACopyIsForItsOwnerAlone) {
    Disk.AddFile(FirstCopy, EncodeRecoveryCopy(Work(1)), 0644);
    const auto program = Program();
    ASSERT_TRUE(program->NextLeft());
    program->Adopt();
    KeepNow(*program, 2);
    EXPECT_EQ(0600U, Disk.Mode(FirstCopy));
}

TEST_F(RecoveryKeeperTest, WorkIsKeptAtOnceWhenTheProgramMayBeEnded) {
    auto program = Program();
    program->Rest(Work(0).Logic);
    program->KeepAtOnce(Work(0));
    EXPECT_TRUE(Disk.Log().empty());
    program->KeepAtOnce(Work(1));
    EXPECT_EQ(EncodeRecoveryCopy(Work(1)), Disk.Content(FirstCopy));
    const std::size_t operations = Disk.Log().size();
    program->KeepAtOnce(Work(1));
    EXPECT_EQ(operations, Disk.Log().size());
    program->Close();
    EXPECT_FALSE(Has(FirstCopy)) << "the end did not come, and the work was saved";
}

TEST_F(RecoveryKeeperTest, ACopyFoundIsSafeUntilItIsSettled) {
    Disk.AddFile(FirstCopy, EncodeRecoveryCopy(Work(1)));
    const auto program = Program();
    program->Rest(Work(0).Logic);
    ASSERT_TRUE(program->NextLeft());
    program->Tick(Work(0));
    program->KeepAtOnce(Work(0));
    KeepNow(*program, 2);
    program->KeepAtOnce(Work(2));
    EXPECT_EQ(EncodeRecoveryCopy(Work(1)), Disk.Content(FirstCopy));
    program->PassOver();
    program->KeepAtOnce(Work(2));
    EXPECT_EQ(EncodeRecoveryCopy(Work(2)), Disk.Content(SecondCopy));
}

TEST_F(RecoveryKeeperTest, WorkUnderAnotherNameIsKeptAnew) {
    const auto program = Program();
    program->Rest(Work(0).Logic);
    KeepNow(*program, 1);
    RecoveryCopy renamed = Work(1);
    renamed.Path = "/home/me/a.pl";
    program->Tick(renamed);
    program->Tick(renamed);
    EXPECT_EQ(EncodeRecoveryCopy(renamed), Disk.Content(FirstCopy));
}

TEST_F(RecoveryKeeperTest, WorkSetAsideIsFoundByTheNextStart) {
    auto program = Program();
    program->Rest(Work(0).Logic);
    program->SetAside(Work(1));
    program->Rest(Work(5).Logic);
    KeepNow(*program, 6);
    EXPECT_EQ(EncodeRecoveryCopy(Work(1)), Disk.Content(FirstCopy));
    program->Close();
    const std::optional<LeftCopy> left = Program()->NextLeft();
    ASSERT_TRUE(left);
    EXPECT_EQ(1, left->Logic.Group(1).Timer(1).PickUp);
}

TEST_F(RecoveryKeeperTest, ACopyThatCannotBeWrittenIsTriedAgainAndTheOldOneStands) {
    const auto program = Program();
    program->Rest(Work(0).Logic);
    KeepNow(*program, 1);
    Disk.FailFrom(1, DiskFullError);
    KeepNow(*program, 2);
    EXPECT_EQ(EncodeRecoveryCopy(Work(1)), Disk.Content(FirstCopy));
    Disk.FailNoMore();
    KeepNow(*program, 2);
    EXPECT_EQ(EncodeRecoveryCopy(Work(2)), Disk.Content(FirstCopy));
}

TEST_F(RecoveryKeeperTest, ACopyWhoseWritingFailedLastLeavesNothingAtTheEndEither) {
    const auto program = Program();
    program->Rest(Work(0).Logic);
    Disk.FailAll("flush folder", DeviceIoError);
    KeepNow(*program, 1);
    ASSERT_TRUE(Has(FirstCopy));
    program->Close();
    EXPECT_FALSE(Has(FirstCopy)) << "the next start would offer what was discarded";
}

TEST_F(RecoveryKeeperTest, AFaultAtAnyStepLeavesTheOldCopyOrTheNew) {
    for (std::size_t step = 1; step <= 12; ++step) {
        FakeFileSystem disk;
        disk.AddFolder("/opt");
        disk.AddFolder("/opt/brindle");
        RecoveryKeeper program("/opt/brindle", disk.Operations(), Locks.Operations());
        program.Rest(Work(0).Logic);
        KeepNow(program, 1);
        disk.FailFrom(step, DeviceIoError);
        KeepNow(program, 2);
        disk.Crash(UnflushedNames::Forgotten);
        const std::optional<std::string> left = disk.Content(FirstCopy);
        EXPECT_TRUE(left == EncodeRecoveryCopy(Work(1)) || left == EncodeRecoveryCopy(Work(2))) << step;
        Locks.Held.clear();
    }
}

TEST_F(RecoveryKeeperTest, WhereNoLockCanBeMadeNothingIsKept) {
    Locks.Refused = true;
    const auto program = Program();
    program->Rest(Work(0).Logic);
    KeepNow(*program, 1);
    program->SetAside(Work(1));
    EXPECT_FALSE(Has(FirstCopy));
    Disk.AddFile(FirstCopy, EncodeRecoveryCopy(Work(1)));
    EXPECT_FALSE(program->NextLeft());
}

TEST_F(RecoveryKeeperTest, ALogicThatNoFileHoldsIsNotKept) {
    const auto program = Program();
    program->Rest(Work(0).Logic);
    RecoveryCopy work = Work(1);
    work.Logic.clear();
    program->Tick(work);
    program->Tick(work);
    program->SetAside(work);
    EXPECT_TRUE(Disk.Log().empty());
}

TEST_F(RecoveryKeeperTest, WorkSetAsideThatIsKeptAlreadyIsNotWrittenAgain) {
    auto program = Program();
    program->Rest(Work(0).Logic);
    KeepNow(*program, 1);
    const std::size_t operations = Disk.Log().size();
    program->SetAside(Work(1));
    EXPECT_EQ(operations, Disk.Log().size());
    EXPECT_TRUE(Locks.Held.empty());
    program->Close();
    EXPECT_TRUE(Has(FirstCopy));
}

TEST_F(RecoveryKeeperTest, WhatCannotBeLookedAtCountsAsACopyLeft) {
    const auto program = Program();
    program->Rest(Work(0).Logic);
    Disk.FailAll("status /opt/brindle/Recovery1.brindle", DeviceIoError);
    KeepNow(*program, 1);
    Disk.FailNoMore();
    EXPECT_FALSE(Has(FirstCopy));
    EXPECT_TRUE(Has(SecondCopy));
}

TEST_F(RecoveryKeeperTest, AFullFolderOfCopiesLeftTakesNoMore) {
    for (int number = 1; number <= 20; ++number) {
        Disk.AddFile("/opt/brindle/Recovery" + std::to_string(number) + ".brindle",
                     EncodeRecoveryCopy(Work(number)));
    }
    const auto program = Program();
    program->Rest(Work(0).Logic);
    KeepNow(*program, 30);
    EXPECT_EQ(EncodeRecoveryCopy(Work(1)), Disk.Content(FirstCopy));
    EXPECT_TRUE(Locks.Held.empty());
}

TEST_F(RecoveryKeeperTest, AFolderFullOfDamagedCopiesTakesTheNextOne) {
    for (int number = 1; number <= 20; ++number) {
        Disk.AddFile("/opt/brindle/Recovery" + std::to_string(number) + ".brindle", "damaged");
    }
    const auto program = Program();
    EXPECT_FALSE(program->NextLeft());
    EXPECT_EQ(20U, program->Damaged().size());
    program->Rest(Work(0).Logic);
    KeepNow(*program, 1);
    EXPECT_EQ(EncodeRecoveryCopy(Work(1)), Disk.Content(FirstCopy));
}

} // namespace
} // namespace brindle
