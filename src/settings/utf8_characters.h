#pragma once

#include <cstddef>
#include <string_view>

/// Characters of UTF-8 text, which is counted and cut by them and not by bytes. For short texts: each routine
/// walks from the beginning.
namespace brindle {

/// The number of bytes of the character that begins at the first byte of `text`; a byte that begins none
/// counts as one of its own. 0 for an empty text.
constexpr std::size_t FirstCharacterSize(std::string_view text) {
    std::size_t size = text.empty() ? 0 : 1;
    while (size > 0 && size < text.size() && (static_cast<unsigned char>(text[size]) & 0xC0U) == 0x80U) {
        ++size;
    }
    return size;
}

constexpr std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); text.remove_prefix(FirstCharacterSize(text))) {
        ++count;
    }
    return count;
}

/// `text` without its first `count` characters.
constexpr std::string_view WithoutFirstCharacters(std::string_view text, std::size_t count) {
    for (; count > 0 && !text.empty(); --count) {
        text.remove_prefix(FirstCharacterSize(text));
    }
    return text;
}

constexpr std::string_view FirstCharacters(std::string_view text, std::size_t count) {
    return text.substr(0, text.size() - WithoutFirstCharacters(text, count).size());
}

constexpr std::string_view LastCharacters(std::string_view text, std::size_t count) {
    const std::size_t all = CharacterCount(text);
    return WithoutFirstCharacters(text, all > count ? all - count : 0);
}

} // namespace brindle
