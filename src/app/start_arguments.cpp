#include "app/start_arguments.h"

#include "app/version.h"
#include "platform/paths.h"

namespace brindle {

namespace {

constexpr const char* HelpText = R"(Usage: brindle [FILE]

Designs the programmable logic of the VDR812 and VDR810 line-protection relays.

  FILE       the program (.pl) or logic file (.c10) to open. The whole command
             line is one path, also where blanks in it are not quoted
  --help     writes this and ends
  --version  writes the version and ends

A file of such a name is opened as ./--help. brindle-cli works on the same
files without a display.
)";

std::string VersionAnswer() {
    return "brindle " + std::to_string(ProgramMajor) + "." + std::to_string(ProgramMinor) + "." +
           std::to_string(ProgramRevision) + "\n";
}

} // namespace

std::optional<std::string> AnswerWithoutWindow(const std::vector<std::string>& arguments) {
    if (arguments == std::vector<std::string>{"--help"}) {
        return HelpText;
    }
    return arguments == std::vector<std::string>{"--version"} ? std::optional(VersionAnswer()) : std::nullopt;
}

std::string PathOfArguments(const std::vector<std::string>& arguments, const std::string& currentFolder) {
    std::string path;
    for (const std::string& argument : arguments) {
        path += (path.empty() ? "" : " ") + argument;
    }
    return AbsolutePath(currentFolder, path);
}

} // namespace brindle
