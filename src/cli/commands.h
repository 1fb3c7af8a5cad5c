#pragma once

#include "model/logic_config.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/folders.h"

#include <functional>
#include <iosfwd>
#include <optional>
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
    std::string StartFolder; ///< absolute path of the current folder
    std::function<DateAndTime()> Now;
    FolderFunctions Folders{};
    std::string PlcFolder{}; ///< where the option files are unless an argument says otherwise
};

/// A file that a command reads.
struct LogicInput {
    std::string File;
    std::optional<RelayKind> Model; ///< without it the extension tells; a VDR812 where that does not either
    std::optional<std::string> PlcFolder; ///< the folder of the option files
};

struct ReportArguments {
    LogicInput Input;
    std::vector<int> Groups;        ///< 1 to the logic's group count, in any order; none selects all
    std::vector<std::string> Units; ///< tags in upper or lower case, in any order; none selects all
    bool Numbers = false;           ///< show the stored codes of the inputs
};

/// Writes the report of the selected units of a file, in group and unit order, each unit once.
int ReportCommand(const ReportArguments& arguments, const CommandEnvironment& environment);

/// Writes the whole logic of a file as JSON.
int DumpCommand(const LogicInput& input, const CommandEnvironment& environment);

struct BuildArguments {
    std::string Model; ///< the JSON
    std::string Out;
    std::optional<RelayKind> Relay; ///< what the JSON must be for, and the extension of `Out` where it tells
};

/// Writes to `Out` the file that the JSON in the file `Model` describes. A model that is refused or for
/// another relay than `Out`, or an `Out` that cannot be written, leaves an existing `Out` as it was.
int BuildCommand(const BuildArguments& arguments, const CommandEnvironment& environment);

/// Writes the signal catalogue of a VDR812 file version ("1.00" or "2.30") as a table.
int SignalsCommand(const std::string& version, const CommandEnvironment& environment);

/// The same of a file: the signals that the logic of a `.pl` or `.c10` has; any other file, as long as
/// `Model` does not say what it is, is an option file.
int FileSignalsCommand(const LogicInput& input, const CommandEnvironment& environment);

} // namespace brindle
