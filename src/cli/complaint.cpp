#include "cli/complaint.h"

#include <ostream>

namespace brindle {

void Complain(const CommandEnvironment& environment, const std::string& text) {
    std::string line;
    for (const char c : text) {
        line += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
    }
    environment.Err << CompanionName << ": " << line << '\n';
}

int ComplainOfFile(const CommandEnvironment& environment, const std::string& path, const FileError& error) {
    Complain(environment, path + ": " + error.Description + " (error " + std::to_string(error.Number) +
                              (error.Source.empty() ? "" : ", " + error.Source) + ")");
    return ExitFailed;
}

} // namespace brindle
