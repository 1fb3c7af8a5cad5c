#pragma once

#include "platform/environment.h"
#include "platform/file_error.h"
#include "platform/file_system.h"
#include "platform/folders.h"

#include <string>

/// Where the program's folder is, the one that settings, option files and recovery copies live in.
///
/// A program that can be carried about has everything in the folder of its executable. One that was installed
/// for all users of a machine cannot write there: its folder is one of the user's, which begins with the
/// option files that the installation brought along. A program is installed when its executable lies in a
/// folder "bin" that has "share/brindle" beside it:
///
///     /usr/bin/brindle                             the executable
///     /usr/share/brindle/PLC00230_OPT00012.810     an option file that users begin with
///     ~/.local/share/brindle/                      the program's folder of a user
namespace brindle {

struct ProgramFolders {
    std::string Program; ///< the program's folder; of an installed program it need not be there yet
    std::string Seeds;   ///< the option files that a user begins with; empty where nothing is installed
};

/// Finds both for an executable in the folder `executableFolder`, an absolute path. The user's folder is
/// "brindle" in $XDG_DATA_HOME, or in $HOME/.local/share where that is not set. Either counts only as an
/// absolute path; where neither does, there is no folder of the user's, and the seeds' own is the program's.
ProgramFolders FindProgramFolders(const std::string& executableFolder, const EnvironmentFunction& environment,
                                  const FolderFunctions& folders);

/// Makes the program's folder where it is missing, and until it holds settings, which every start of the
/// editor leaves, gives it the seeds. A file that is there already stays as it is. Returns the folder to run
/// in: where the user's cannot be made, that of the seeds. A seed that cannot be copied is left out.
std::string ProvideProgramFolder(const ProgramFolders& found, const FileSystem& files,
                                 const FolderFunctions& folders);

/// The folder to take option files from without making any: the program's, or that of the seeds as long as
/// the user has none.
std::string OptionFileFolder(const ProgramFolders& found, const FolderFunctions& folders);

} // namespace brindle
