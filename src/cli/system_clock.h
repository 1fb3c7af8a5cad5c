#pragma once

#include <string>

/// The date and time of now in the system's short forms, as the locale set for LC_TIME has them.
namespace brindle {

std::string ShortDate();
std::string ShortTime();

} // namespace brindle
