#pragma once

namespace brindle {

/// The upper-case form of an ASCII letter; every other byte is itself, whatever the locale.
constexpr char UpperLetter(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// Whether a byte is a decimal digit, whatever the locale.
constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

} // namespace brindle
