#include "platform/arguments.h"

namespace brindle {

std::vector<std::string> ProgramArguments(int argc, char** argv) {
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

} // namespace brindle
