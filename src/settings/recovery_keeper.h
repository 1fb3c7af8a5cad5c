#pragma once

#include "files/recovery_copy.h"
#include "platform/file_lock.h"
#include "platform/file_system.h"

#include <optional>
#include <string>
#include <vector>

/// Keeps a copy of unsaved work beside the settings file, and finds the copies that programs left which could
/// not end as they should.
namespace brindle {

/// A copy that was left, with its logic.
struct LeftCopy {
    RecoveryCopy Copy;
    LogicConfig Logic;
};

/// Each running program has a file of its own, "Recovery1.brindle" to "Recovery20.brindle", guarded by a lock
/// ("Recovery1.lock"); so a copy whose lock nobody holds was left behind. Nobody but its owner may read it,
/// and a symbolic link in its place is never followed. The user's own file is never touched, and nothing here
/// is ever told in a box: a copy that cannot be written is tried again.
class RecoveryKeeper {
  public:
    /// `folder` is an absolute path. Without locks (no `Take`) nothing is kept and nothing found.
    RecoveryKeeper(std::string folder, FileSystem files, FileLocks locks);

    RecoveryKeeper(const RecoveryKeeper&) = delete;
    RecoveryKeeper& operator=(const RecoveryKeeper&) = delete;
    RecoveryKeeper(RecoveryKeeper&&) = delete;
    RecoveryKeeper& operator=(RecoveryKeeper&&) = delete;
    ~RecoveryKeeper(); ///< without Close, what was kept is left as by a crash

    // What was left, asked for before anything is kept.

    /// The next copy that was left, in the order of their numbers; nothing after the last. It must be settled
    /// by one of the three below before the next is asked for. What is no copy that this program can read
    /// (damaged, of a later version, a link) is renamed to "Recovery1.damaged-1" and the like, so that its
    /// number is free again. What the system does not let us open, as another user's copy, stays.
    std::optional<LeftCopy> NextLeft();
    /// The copy found is the work of this program from now on: kept until it is saved.
    void Adopt();
    /// Removes the copy found.
    void Discard();
    /// Leaves the copy found for another start.
    void PassOver();

    /// The paths of those that were renamed, as they are now.
    [[nodiscard]] const std::vector<std::string>& Damaged() const { return damaged_; }

    // What is kept.

    /// The logic is as a file holds it, or was just made: nothing of it would be lost.
    void Rest(const std::string& logic);

    /// Called about once a second with the work as it is. Writes its copy once it has stood still from one
    /// call to the next, at the latest with the third call after a change; removes it when nothing would be
    /// lost.
    void Tick(const RecoveryCopy& work);

    /// The work is not as a file holds it: without a copy it would be lost.
    [[nodiscard]] bool NeedsCopy(const RecoveryCopy& work) const;

    /// As Tick, but at once: the program may be ended at any moment.
    void KeepAtOnce(const RecoveryCopy& work);

    /// Nobody chose to lose this work, but it was not saved: leaves a copy of it for the next start, as after
    /// a crash.
    void SetAside(const RecoveryCopy& work);

    /// The program ends as it should: removes the copy.
    void Close();

  private:
    [[nodiscard]] std::string PathOf(int number, const char* ending) const;
    [[nodiscard]] bool HasCopy(int number) const;
    bool TakeNumber(int number);
    void GiveUpNumber();
    bool OwnNumber();
    void MoveAside(int number);
    [[nodiscard]] bool IsKept(const RecoveryCopy& work) const;
    void Keep(const RecoveryCopy& work);
    void RemoveCopy();

    std::string folder_;
    FileSystem files_;
    FileLocks locks_;
    int looked_ = 0; ///< numbers up to this one were looked at by NextLeft
    std::vector<std::string> damaged_;
    bool unsettled_ = false; ///< what NextLeft found is not this program's work yet
    int number_ = 0;         ///< of the copy that is ours; 0 for none
    FileHandle lock_ = NoLock;
    std::optional<std::string> rest_; ///< the logic that needs no copy
    bool mayStand_ = false;           ///< a copy of our number may be on the disk, written well or not
    std::string kept_;                ///< the logic of the copy on the disk; empty for none
    std::string keptPath_;            ///< the path in it
    std::string seen_;                ///< the logic of the last call
    int waited_ = 0;                  ///< calls since a change that no copy has yet
};

} // namespace brindle
