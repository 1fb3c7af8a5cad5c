#pragma once

#include "platform/file_error.h"

#include <functional>
#include <string>
#include <vector>

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

    /// Makes the folder `path` in a folder that exists. PathAccessError where that does not let us, or where
    /// something of that name is there already; PathNotFoundError where there is no such folder.
    std::function<FileError(const std::string& path)> MakeFolder;

    /// The same, with a folder that is the user's alone where the system has permission bits.
    std::function<FileError(const std::string& path)> MakePrivateFolder;

    /// Where the system's folders begin: its drives ("C:\\"), or its mounted volumes, "/" first.
    std::function<std::vector<std::string>()> Drives;

    /// The names of the folders in the folder `path`, links to folders too and hidden ones not, in
    /// alphabetical order. None where it cannot be read.
    std::function<std::vector<std::string>(const std::string& path)> Subfolders;

    /// The names of the files in the folder `path`, links to files too, in no order. None where it cannot be
    /// read.
    std::function<std::vector<std::string>(const std::string& path)> Files;
};

/// Sorts names of folders for show: without regard to the case of ASCII letters.
void SortFolderNames(std::vector<std::string>& names);

/// The operating system's folders.
FolderFunctions RealFolders();

/// The folder of the running executable, links to it followed; the current folder where the system does not
/// tell.
std::string ExecutableFolder();

} // namespace brindle
