#pragma once

#include "platform/file_system.h"

#include <functional>
#include <string>

namespace brindle {

inline constexpr FileHandle NoLock = -1;

/// Locks by which running programs tell each other what is theirs. A lock is a file that a program holds; the
/// system lets go of it however the program ends.
struct FileLocks {
    /// Takes the lock at `path`, creating the file. NoLock where another program, or this one, holds it, and
    /// where the folder does not let us.
    std::function<FileHandle(const std::string& path)> Take;

    /// Lets go of a lock and removes its file.
    std::function<void(FileHandle lock, const std::string& path)> Release;
};

/// The operating system's locks.
FileLocks RealFileLocks();

} // namespace brindle
