#include "cli/commands.h"
#include "cli/logic_json.h"
#include "cli/program_input.h"

#include <ostream>

namespace brindle {

int DumpCommand(const std::string& file, const CommandEnvironment& environment) {
    LogicConfig config;
    const int result = ReadProgramInput(environment, file, config);
    if (result != ExitFailed) {
        environment.Out << LogicToJson(config);
    }
    return result;
}

} // namespace brindle
