#include "settings/settings_lock.h"

#include <utility>

namespace brindle {

namespace {

constexpr int LongestLockWait = 300; // pauses of a hundredth of a second

} // namespace

SettingsLock::SettingsLock(std::string path, FileLocks locks)
    : path_(std::move(path)), locks_(std::move(locks)) {}

bool SettingsLock::Take(FileHandle& lock) {
    LockOutcome outcome = locks_.Take(path_, lock);
    for (int pause = 0; outcome == LockOutcome::Held && !gaveUp_ && pause < LongestLockWait; ++pause) {
        locks_.Pause();
        outcome = locks_.Take(path_, lock);
    }
    gaveUp_ = outcome == LockOutcome::Held;
    return outcome == LockOutcome::Taken;
}

bool SettingsLock::Run(const std::function<bool()>& change) {
    FileHandle lock = NoLock;
    const bool taken = locks_.Take && Take(lock);
    const bool done = change();
    if (taken) {
        locks_.Release(lock, path_);
    }
    return done;
}

} // namespace brindle
