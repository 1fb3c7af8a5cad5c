#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Numbers as text, the same in every locale: titles, headers, settings and reports must not change with the
/// user's decimal sign.
namespace brindle {

/// `value` with a point and exactly `decimals` (0 to 9) digits after it: pattern "#0.00" for 2, "#0.000000"
/// for 6. Rounds to the nearest such text; a value that is not finite reads as 0.
std::string FormatFixed(double value, int decimals);

/// The number that `text` begins with, in single precision: blanks anywhere are ignored, then an optional
/// sign, digits, and an optional point with digits. No number reads as 0. Exponents are not read.
float LeadingNumber(std::string_view text);

/// Upper-case hexadecimal without leading zeros or prefix ("0" for zero). A negative value shows its 32-bit
/// two's complement.
std::string FormatHex(std::int32_t value);

} // namespace brindle
