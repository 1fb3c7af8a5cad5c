#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The text of a private profile (INI file), read and edited as bytes:
///
///     text before the first section is kept and means nothing
///     [Section]
///     ; a comment
///     Key=value
///
/// Lines end in LF or CR LF. Blanks around section names, keys and values count for nothing, nor does the
/// case of ASCII letters in section names and keys. Of sections or keys of one name the first counts. A UTF-8
/// byte order mark may stand before the first line. An edit leaves every byte outside the lines it is about
/// as it was; new lines end as the first line of the text does, in CR LF where there is none.
namespace brindle {

/// The value of a key, without outer blanks and one pair of equal quotes (' or ") around it, up to its first
/// zero byte; nothing when section or key are missing.
std::optional<std::string> FindProfileValue(std::string_view text, std::string_view section,
                                            std::string_view key);

/// The whole number that a value begins with: an optional minus and decimal digits; what follows is ignored.
/// A number beyond 32 bits becomes the nearest that has 32; no digits read as `fallback`.
int ProfileInteger(std::string_view value, int fallback);

/// A value as it is written: in quotes when it would not read back as it is without them, having blanks at an
/// end or quotes of its own around it.
std::string WrittenProfileValue(std::string_view value);

/// The text with `key` saying `value`; `text` itself when it does already. A new key goes to the end of its
/// section, before the blank lines that set the section off; a new section to the end of the text.
std::string SetProfileValue(std::string_view text, std::string_view section, std::string_view key,
                            std::string_view value);

/// The text without the key, and without further lines of that name that would come to count in its place.
std::string DeleteProfileKey(std::string_view text, std::string_view section, std::string_view key);

/// The text without any section of that name, from its heading to the next one: comments and blank lines in
/// between go with it.
std::string DeleteProfileSection(std::string_view text, std::string_view section);

/// Whether names and value can stand in a profile and be found again: no line breaks and zero bytes anywhere;
/// names neither empty nor with outer blanks; no "]" in a section; no "=" in a key, nor ";" or "[" as its
/// first character. No key or value, as for a deletion, is well.
bool IsProfileEntry(std::string_view section, const std::optional<std::string>& key,
                    const std::optional<std::string>& value);

} // namespace brindle
