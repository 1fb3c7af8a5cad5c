#pragma once

#include "cli/command_line.h"
#include "support/fake_file_system.h"
#include "support/fake_folders.h"

#include <sstream>
#include <string>
#include <vector>

namespace brindle {

/// Runs the companion's commands on files in memory, in the folder "/home/me", at a fixed date and time.
struct CommandRun {
    FakeFileSystem Files;
    FakeFolders Folders; ///< of which the commands ask for the files of the PLC folder
    std::ostringstream Out;
    std::ostringstream Err;

    CommandRun() {
        Files.AddFolder("/home");
        Files.AddFolder("/home/me");
    }

    CommandEnvironment Environment() {
        return {Files.Operations(),
                Out,
                Err,
                "/home/me",
                [] { return DateAndTime{"5/4/2001", "10:12:33"}; },
                Folders.Operations(),
                "/opt/brindle"};
    }

    /// Returns the exit code; `Out` and `Err` then hold this run's output only.
    int Run(const std::vector<std::string>& arguments) {
        Out.str({});
        Err.str({});
        return RunCommandLine(arguments, Environment());
    }
};

} // namespace brindle
