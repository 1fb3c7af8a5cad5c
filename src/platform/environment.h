#pragma once

#include <functional>
#include <string>

namespace brindle {

/// The value of an environment variable; empty where it is not set.
using EnvironmentFunction = std::function<std::string(const std::string& name)>;

/// The environment that this program was started in.
std::string EnvironmentVariable(const std::string& name);

} // namespace brindle
