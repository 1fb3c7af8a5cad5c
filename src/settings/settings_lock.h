#pragma once

#include "platform/file_lock.h"

#include <functional>
#include <string>

namespace brindle {

/// Lets one program at a time change a file that several share: each reads what is there and writes it anew,
/// so that of two changes at once the earlier would be lost.
class SettingsLock {
  public:
    /// `path` is that of the lock's own file. Without locks (no `Take`) nobody waits for anybody.
    SettingsLock(std::string path, FileLocks locks);

    /// Runs `change` and returns what it returns. Waits up to three seconds for another program, then goes on
    /// as if there were no lock: one that hangs must not hold up all others. Until the lock can be had again,
    /// it waits no more. Must not be called within `change`.
    bool Run(const std::function<bool()>& change);

  private:
    bool Take(FileHandle& lock);

    std::string path_;
    FileLocks locks_;
    bool gaveUp_ = false;
};

} // namespace brindle
