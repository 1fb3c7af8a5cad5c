#include "cli/commands.h"
#include "cli/logic_input.h"
#include "cli/logic_json.h"

#include <ostream>

namespace brindle {

int DumpCommand(const LogicInput& input, const CommandEnvironment& environment) {
    LogicConfig config;
    const int result = ReadLogicInput(environment, input, config);
    if (result != ExitFailed) {
        environment.Out << LogicToJson(config);
    }
    return result;
}

} // namespace brindle
