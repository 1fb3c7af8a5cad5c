#pragma once

#include "platform/file_system.h"

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

/// The commands of the headless companion. Each takes its arguments and what it needs of the outside world,
/// writes its result to `Out` and one line for each trouble to `Err`, and returns the exit code.
namespace brindle {

enum ExitCode : int {
    ExitWell = 0,
    ExitFinding = 1,      ///< the command did its work, but the file is not as it should be
    ExitBadArguments = 2, ///< nothing was done
    ExitFailed = 3        ///< a file could not be read or written, or its content was refused
};

struct CommandEnvironment {
    FileSystem Files;
    std::ostream& Out;
    std::ostream& Err;
    std::string StartFolder;           ///< absolute path of the current folder
    std::function<std::string()> Date; ///< today in the system's short form
    std::function<std::string()> Time; ///< now in the system's short form
};

struct ReportArguments {
    std::string File;
    std::vector<int> Groups;        ///< 1 to 8, in any order; none selects all
    std::vector<std::string> Units; ///< tags in upper or lower case, in any order; none selects all
    bool Numbers = false;           ///< show the stored codes of the inputs
};

/// Writes the report of the selected units of a program file, in group and unit order, each unit once.
int ReportCommand(const ReportArguments& arguments, const CommandEnvironment& environment);

/// Writes the whole logic of the program file `file` as JSON.
int DumpCommand(const std::string& file, const CommandEnvironment& environment);

/// Writes to `out` the program file that the JSON in the file `model` describes. A model that is refused, or
/// an `out` that cannot be written, leaves an existing `out` as it was.
int BuildCommand(const std::string& model, const std::string& out, const CommandEnvironment& environment);

/// Writes the signal catalogue of a file version ("1.00" or "2.30") as a table.
int SignalsCommand(const std::string& version, const CommandEnvironment& environment);

} // namespace brindle
