#include "model/code_page.h"

#include <array>

namespace brindle {

namespace {

constexpr unsigned FirstOwn = 0x80; // of the 32 characters that are not those of Latin-1

constexpr std::array<char16_t, 32> OwnCharacters{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

unsigned CharacterOf(unsigned char byte) {
    return byte < FirstOwn || byte >= FirstOwn + OwnCharacters.size() ? byte
                                                                      : OwnCharacters.at(byte - FirstOwn);
}

/// Appends a character of at most 16 bits.
void Append(std::string& utf8, unsigned character) {
    constexpr unsigned oneByte = 0x80;
    constexpr unsigned twoBytes = 0x800;
    const auto following = [](unsigned bits) { return static_cast<char>(0x80U | (bits & 0x3FU)); };
    if (character < oneByte) {
        utf8 += static_cast<char>(character);
    } else if (character < twoBytes) {
        utf8 += static_cast<char>(0xC0U | (character >> 6U));
        utf8 += following(character);
    } else {
        utf8 += static_cast<char>(0xE0U | (character >> 12U));
        utf8 += following(character >> 6U);
        utf8 += following(character);
    }
}

} // namespace

std::string Utf8OfWindows1252(std::string_view bytes) {
    std::string utf8;
    for (const char c : bytes) {
        Append(utf8, CharacterOf(static_cast<unsigned char>(c)));
    }
    return utf8;
}

} // namespace brindle
