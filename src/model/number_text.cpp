#include "model/number_text.h"

#include <array>
#include <charconv>
#include <cmath>

namespace brindle {

std::string FormatFixed(double value, int decimals) {
    if (!std::isfinite(value) || value == 0) {
        value = 0; // also takes the sign from a negative zero
    }
    std::array<char, 400> buffer{}; // the largest double has 309 digits before its point
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   std::chars_format::fixed, decimals);
    return {buffer.data(), end.ptr};
}

float LeadingNumber(std::string_view text) {
    std::string digits;
    for (const char c : text) {
        if (c != ' ') {
            digits += c;
        }
    }
    const char* first = digits.data();
    const char* last = first + digits.size();
    const bool negative = first != last && *first == '-';
    if (first != last && (*first == '-' || *first == '+')) {
        ++first;
    }
    // from_chars also reads a sign of its own, "inf" and "nan", which are no numbers here.
    if (first == last || (*first != '.' && (*first < '0' || *first > '9'))) {
        return 0;
    }
    float value = 0;
    const auto result = std::from_chars(first, last, value, std::chars_format::fixed);
    if (result.ec != std::errc{}) {
        return 0;
    }
    return negative ? -value : value;
}

std::string FormatHex(std::int32_t value) {
    std::array<char, 8> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), static_cast<std::uint32_t>(value), 16);
    std::string text(buffer.data(), end.ptr);
    for (char& c : text) {
        if (c >= 'a') {
            c = static_cast<char>(c - 'a' + 'A');
        }
    }
    return text;
}

} // namespace brindle
