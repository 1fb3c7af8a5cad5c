#pragma once

#include <string>
#include <string_view>

namespace brindle {

/// A text of the Windows-1252 code page as UTF-8. The five bytes that the code page leaves open become the
/// control characters of the same value.
std::string Utf8OfWindows1252(std::string_view bytes);

} // namespace brindle
