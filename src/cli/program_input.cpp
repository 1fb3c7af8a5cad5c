#include "cli/program_input.h"

#include "cli/complaint.h"
#include "files/program_file.h"

namespace brindle {

int ReadProgramInput(const CommandEnvironment& environment, const std::string& path, LogicConfig& config) {
    std::size_t bytesRead = 0;
    FileError error = ReadProgramFile(environment.Files, path, config, bytesRead);
    if (error.Failed()) {
        return ComplainOfFile(environment, path, error);
    }
    const std::string whole = std::to_string(ProgramFileSize);
    if (bytesRead < ProgramFileSize) {
        Complain(environment, path + ": " + std::to_string(bytesRead) + " bytes instead of " + whole +
                                  ", the missing ones were read as zero");
        return ExitFinding;
    }
    FileStatus status;
    error = environment.Files.Status(path, status);
    if (error.Failed()) {
        return ComplainOfFile(environment, path, error);
    }
    if (status.Size > ProgramFileSize) {
        Complain(environment, path + ": " + std::to_string(status.Size) + " bytes instead of " + whole +
                                  ", the last " + std::to_string(status.Size - ProgramFileSize) +
                                  " were ignored");
        return ExitFinding;
    }
    return ExitWell;
}

} // namespace brindle
