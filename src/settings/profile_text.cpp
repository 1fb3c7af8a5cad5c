#include "settings/profile_text.h"

#include "settings/profile_lines.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace brindle {

namespace {

/// What breaks a line, or ends a text for the system's own profile functions.
constexpr std::string_view Unstorable{"\r\n\0", 3};

bool StandsInQuotes(std::string_view value) {
    return value.size() >= 2 && value.front() == value.back() &&
           (value.front() == '"' || value.front() == '\'');
}

std::string_view WithoutQuotes(std::string_view value) {
    return StandsInQuotes(value) ? value.substr(1, value.size() - 2) : value;
}

std::string ReadableValue(std::string_view value) {
    const std::string_view unquoted = WithoutQuotes(value);
    return std::string(unquoted.substr(0, unquoted.find('\0')));
}

bool IsProfileName(std::string_view name) {
    return !name.empty() && name.find_first_of(Unstorable) == std::string_view::npos &&
           TrimProfileText(name).size() == name.size();
}

bool IsProfileKey(std::string_view key) {
    return IsProfileName(key) && key.find('=') == std::string_view::npos && key.front() != ';' &&
           key.front() != '[';
}

/// The text with whole lines put in at `place`, where a line begins or the text ends.
std::string Insert(std::string_view text, std::size_t place, const std::string& lines) {
    std::string edited(text.substr(0, place));
    const bool openLine = place > FirstProfileLine(text) && text[place - 1] != '\n';
    if (openLine) {
        edited += ProfileLineEnding(text);
    }
    edited += lines;
    edited += text.substr(place);
    return edited;
}

/// Where a section's last line ends that is not blank.
std::size_t EndOfContent(std::string_view text, const ProfileSection& section) {
    std::size_t end = section.Begin;
    for (std::size_t begin = section.Begin; begin < section.End;) {
        const ProfileLine line = ReadProfileLine(text, begin);
        begin = line.Next;
        if (line.Kind != ProfileLineKind::Blank) {
            end = line.Next;
        }
    }
    return end;
}

std::string Line(std::string_view key, std::string_view value, std::string_view ending) {
    return std::string(key).append("=").append(value).append(ending);
}

} // namespace

std::optional<std::string> FindProfileValue(std::string_view text, std::string_view section,
                                            std::string_view key) {
    const std::optional<ProfileSection> found = FindProfileSection(text, section);
    if (!found) {
        return {};
    }
    const std::optional<ProfileLine> line = FindProfileKey(text, *found, key);
    return line ? std::optional(ReadableValue(line->Value)) : std::nullopt;
}

int ProfileInteger(std::string_view value, int fallback) {
    const bool negative = value.starts_with('-');
    if (negative) {
        value.remove_prefix(1);
    }
    if (value.empty() || value.front() < '0' || value.front() > '9') {
        return fallback;
    }
    std::int64_t number = 0;
    for (const char c : value) {
        // Once beyond 32 bits, further digits change nothing, and would carry it beyond 64.
        if (c < '0' || c > '9' || number > std::numeric_limits<std::uint32_t>::max()) {
            break;
        }
        number = number * 10 + (c - '0');
    }
    number = negative ? -number : number;
    return static_cast<int>(std::clamp<std::int64_t>(number, std::numeric_limits<std::int32_t>::min(),
                                                     std::numeric_limits<std::int32_t>::max()));
}

std::string WrittenProfileValue(std::string_view value) {
    const bool bare = TrimProfileText(value).size() == value.size() && !StandsInQuotes(value);
    return bare ? std::string(value) : '"' + std::string(value) + '"';
}

std::string SetProfileValue(std::string_view text, std::string_view section, std::string_view key,
                            std::string_view value) {
    const std::string written = WrittenProfileValue(value);
    const std::string_view ending = ProfileLineEnding(text);
    const std::optional<ProfileSection> found = FindProfileSection(text, section);
    if (!found) {
        const std::string heading = std::string("[").append(section).append("]").append(ending);
        return Insert(text, text.size(), heading + Line(key, written, ending));
    }
    const std::optional<ProfileLine> line = FindProfileKey(text, *found, key);
    if (!line) {
        return Insert(text, EndOfContent(text, *found), Line(key, written, ending));
    }
    if (ReadableValue(line->Value) == value) {
        return std::string(text);
    }
    std::string edited(text);
    return edited.replace(static_cast<std::size_t>(line->Value.data() - text.data()), line->Value.size(),
                          written);
}

std::string DeleteProfileKey(std::string_view text, std::string_view section, std::string_view key) {
    const std::optional<ProfileSection> found = FindProfileSection(text, section);
    if (!found) {
        return std::string(text);
    }
    std::string edited(text.substr(0, found->Begin));
    for (std::size_t begin = found->Begin; begin < found->End;) {
        const ProfileLine line = ReadProfileLine(text, begin);
        if (line.Kind != ProfileLineKind::Key || !SameProfileName(line.Name, key)) {
            edited += text.substr(begin, line.Next - begin);
        }
        begin = line.Next;
    }
    edited += text.substr(found->End);
    return edited;
}

std::string DeleteProfileSection(std::string_view text, std::string_view section) {
    std::string edited(text.substr(0, FirstProfileLine(text)));
    bool kept = true;
    for (std::size_t begin = FirstProfileLine(text); begin < text.size();) {
        const ProfileLine line = ReadProfileLine(text, begin);
        if (line.Kind == ProfileLineKind::Section) {
            kept = !SameProfileName(line.Name, section);
        }
        if (kept) {
            edited += text.substr(begin, line.Next - begin);
        }
        begin = line.Next;
    }
    return edited;
}

bool IsProfileEntry(std::string_view section, const std::optional<std::string>& key,
                    const std::optional<std::string>& value) {
    if (!IsProfileName(section) || section.find(']') != std::string_view::npos) {
        return false;
    }
    return (!key || IsProfileKey(*key)) &&
           (!value || value->find_first_of(Unstorable) == std::string_view::npos);
}

} // namespace brindle
