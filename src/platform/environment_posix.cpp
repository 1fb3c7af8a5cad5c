#include "platform/environment.h"

#include <cstdlib>

namespace brindle {

std::string EnvironmentVariable(const std::string& name) {
    const char* value = std::getenv(name.c_str());
    return value == nullptr ? "" : value;
}

} // namespace brindle
