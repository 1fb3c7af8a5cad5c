#pragma once

#include <functional>
#include <string>

namespace brindle {

/// What the core asks about folders. The current folder is one for the whole program.
struct FolderFunctions {
    /// There is a folder at `path`, links followed.
    std::function<bool(const std::string& path)> FolderExists;

    /// Makes a folder current; where that is refused, returns false and the current folder stays.
    std::function<bool(const std::string& path)> ChangeFolder;

    /// The current folder's absolute path; empty when it no longer exists.
    std::function<std::string()> CurrentFolder;

    /// Makes the drive that `path` begins with current, with that drive's own current folder. Does nothing
    /// when the path names no drive or the current one, and on systems without drives.
    std::function<void(const std::string& path)> ChangeDrive;
};

/// The operating system's folders.
FolderFunctions RealFolders();

/// The folder of the running executable, links to it followed; the current folder where the system does not
/// tell.
std::string ProgramFolder();

} // namespace brindle
