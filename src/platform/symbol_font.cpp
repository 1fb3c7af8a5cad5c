#include "platform/symbol_font.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace brindle {

namespace {

/// Fonts whose tables claim letters.
constexpr std::array<std::string_view, 4> KnownFamilies{"D050000L", "Dingbats", "ITC Zapf Dingbats",
                                                        "ZapfDingbats"};

/// A 16-bit number of a table, most significant byte first; 0 beyond its end.
unsigned NumberAt(std::string_view table, std::size_t offset) {
    if (offset + 2 > table.size()) {
        return 0;
    }
    return static_cast<unsigned char>(table[offset]) * 256U + static_cast<unsigned char>(table[offset + 1]);
}

/// By the first digit of its PANOSE classification.
bool IsPictorial(std::string_view os2) {
    constexpr std::size_t panose = 32; // where the ten digits begin
    constexpr char pictorial = 5;
    return os2.size() > panose && os2[panose] == pictorial;
}

/// Its characters have no Unicode numbers, only those of a symbol font of Windows.
bool HasSymbolsAlone(std::string_view cmap) {
    constexpr std::size_t head = 4;
    constexpr std::size_t record = 8; // platform, encoding, offset
    constexpr unsigned unicode = 0;
    constexpr unsigned windows = 3;
    bool symbols = false;
    const std::size_t count = NumberAt(cmap, 2);
    for (std::size_t index = 0; index < count; ++index) {
        const unsigned platform = NumberAt(cmap, head + index * record);
        const unsigned encoding = NumberAt(cmap, head + index * record + 2);
        if (platform == unicode || (platform == windows && encoding != 0)) {
            return false;
        }
        symbols = symbols || platform == windows;
    }
    return symbols;
}

} // namespace

bool IsSymbolFont(std::string_view family, std::string_view os2, std::string_view cmap) {
    return std::ranges::find(KnownFamilies, family) != KnownFamilies.end() || IsPictorial(os2) ||
           HasSymbolsAlone(cmap);
}

} // namespace brindle
