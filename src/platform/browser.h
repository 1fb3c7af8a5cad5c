#pragma once

#include <functional>
#include <string>

namespace brindle {

/// What finding and starting a program came to: a number greater than this is success, any other says why
/// not.
inline constexpr int GreatestProgramFault = 32;

enum ProgramFault : int {
    OutOfMemoryFault = 0,
    ProgramNotFoundFault = 2,
    ProgramPathNotFoundFault = 3,
    CorruptProgramFault = 11,
    NoAssociationFault = 31,
    UnknownProgramFault = 32,
};

/// How the user's web browser is found and started.
struct BrowserFunctions {
    /// Finds the program that opens the file at `path`, which has the extension ".htm", and puts its path
    /// into `program`. Returns more than GreatestProgramFault, else a fault.
    std::function<int(const std::string& path, std::string& program)> FindExecutable;

    /// Starts a program with one argument in a normal window, without a shell, and does not wait for its end.
    /// Returns more than GreatestProgramFault, else a fault.
    std::function<int(const std::string& program, const std::string& argument)> StartProgram;
};

/// The operating system's way.
BrowserFunctions RealBrowser();

} // namespace brindle
