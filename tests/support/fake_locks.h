#pragma once

#include "platform/file_lock.h"

#include <functional>
#include <set>
#include <string>

namespace brindle {

/// Locks in memory. Those in `Held` are held, by us or by another program.
struct FakeLocks {
    std::set<std::string> Held;
    bool Refused = false; ///< the folder lets nobody make a lock
    int Pauses = 0;
    std::function<void()> WhilePaused; ///< what other programs do in every pause

    /// The operations on this object, which must outlive them.
    FileLocks Operations() {
        return {[this](const std::string& path, FileHandle& lock) {
                    lock = NoLock;
                    if (Refused) {
                        return LockOutcome::Refused;
                    }
                    if (!Held.insert(path).second) {
                        return LockOutcome::Held;
                    }
                    lock = ++lastLock_;
                    return LockOutcome::Taken;
                },
                [this](FileHandle /*lock*/, const std::string& path) { Held.erase(path); },
                [this] {
                    ++Pauses;
                    if (WhilePaused) {
                        WhilePaused();
                    }
                }};
    }

  private:
    FileHandle lastLock_ = 0;
};

} // namespace brindle
