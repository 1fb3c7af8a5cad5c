#pragma once

#include <string>
#include <string_view>

/// The system's own functions speak UTF-16; the core speaks UTF-8.
namespace brindle {

/// UTF-8 as UTF-16; a byte that is no UTF-8 becomes U+FFFD.
std::wstring WideText(std::string_view utf8);

/// UTF-16 as UTF-8; half a surrogate pair becomes U+FFFD.
std::string Utf8Text(std::wstring_view wide);

} // namespace brindle
