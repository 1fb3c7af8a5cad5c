#pragma once

#include "platform/file_system.h"

#include <functional>
#include <string>

namespace brindle {

inline constexpr FileHandle NoLock = -1;

enum class LockOutcome {
    Taken,
    Held,   ///< by another program, or by this one
    Refused ///< the folder or its disk does not let us have any
};

/// Locks by which running programs tell each other what is theirs. A lock is a file that a program holds; the
/// system lets go of it however the program ends.
struct FileLocks {
    /// Takes the lock at `path`, creating the file; a symbolic link there is replaced. Never waits. `lock` is
    /// NoLock unless it was taken.
    std::function<LockOutcome(const std::string& path, FileHandle& lock)> Take;

    /// Lets go of a lock and removes its file.
    std::function<void(FileHandle lock, const std::string& path)> Release;

    /// Lets the others work for a hundredth of a second.
    std::function<void()> Pause;
};

/// The operating system's locks.
FileLocks RealFileLocks();

} // namespace brindle
