#pragma once

#include "platform/file_lock.h"

#include <set>
#include <string>

namespace brindle {

/// Locks in memory. Those in `Held` are held, by us or by another program.
struct FakeLocks {
    std::set<std::string> Held;
    bool Refused = false; ///< the folder lets nobody make a lock

    /// The operations on this object, which must outlive them.
    FileLocks Operations() {
        return {[this](const std::string& path) {
                    return !Refused && Held.insert(path).second ? ++lastLock_ : NoLock;
                },
                [this](FileHandle /*lock*/, const std::string& path) { Held.erase(path); }};
    }

  private:
    FileHandle lastLock_ = 0;
};

} // namespace brindle
