#pragma once

#include <string_view>

namespace brindle {

/// Whether a font has pictures in the places of letters, so that no text can be read in it. `os2` and `cmap`
/// are its tables of those names, as OpenType lays them out; empty where it has none.
bool IsSymbolFont(std::string_view family, std::string_view os2, std::string_view cmap);

} // namespace brindle
