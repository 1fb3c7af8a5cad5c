#include "cli/system_clock.h"

#include <array>
#include <ctime>

namespace brindle {

namespace {

std::string Formatted(const char* format) {
    const std::time_t now = std::time(nullptr);
    const std::tm* local = std::localtime(&now);
    std::array<char, 100> text{};
    if (local == nullptr) {
        return {};
    }
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    const std::size_t size = std::strftime(text.data(), text.size(), format, local);
#pragma GCC diagnostic pop
    return {text.data(), size};
}

} // namespace

std::string ShortDate() {
    return Formatted("%x");
}

std::string ShortTime() {
    return Formatted("%X");
}

} // namespace brindle
