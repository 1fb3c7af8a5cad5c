#include "settings/profile_lines.h"

#include <algorithm>

namespace brindle {

namespace {

constexpr std::string_view Blanks = " \t\r\v\f";
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

char LowerLetter(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

bool SameProfileName(std::string_view first, std::string_view second) {
    return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                      [](char a, char b) { return LowerLetter(a) == LowerLetter(b); });
}

std::string_view TrimProfileText(std::string_view text) {
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos) {
        return text.substr(0, 0); // keeps its place in the text
    }
    return text.substr(first, text.find_last_not_of(Blanks) + 1 - first);
}

std::string_view ProfileLineEnding(std::string_view text) {
    const std::size_t end = text.find('\n');
    const bool lineFeedAlone = end != std::string_view::npos && (end == 0 || text[end - 1] != '\r');
    return lineFeedAlone ? "\n" : "\r\n";
}

std::size_t FirstProfileLine(std::string_view text) {
    return text.starts_with(ByteOrderMark) ? ByteOrderMark.size() : 0;
}

ProfileLine ReadProfileLine(std::string_view text, std::size_t begin) {
    ProfileLine line;
    line.Begin = begin;
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    line.Next = std::min(end + 1, text.size());

    const std::string_view content = TrimProfileText(text.substr(begin, end - begin));
    if (content.empty()) {
        line.Kind = ProfileLineKind::Blank;
        return line;
    }
    if (content.front() == ';') {
        return line;
    }
    const std::size_t bracket = content.find(']');
    if (content.front() == '[' && bracket != std::string_view::npos) {
        line.Kind = ProfileLineKind::Section;
        line.Name = TrimProfileText(content.substr(1, bracket - 1));
        return line;
    }
    const std::size_t equals = content.find('=');
    if (equals != std::string_view::npos) {
        line.Kind = ProfileLineKind::Key;
        line.Name = TrimProfileText(content.substr(0, equals));
        line.Value = TrimProfileText(content.substr(equals + 1));
    }
    return line;
}

std::optional<ProfileSection> FindProfileSection(std::string_view text, std::string_view name) {
    std::optional<ProfileSection> found;
    for (std::size_t begin = FirstProfileLine(text); begin < text.size();) {
        const ProfileLine line = ReadProfileLine(text, begin);
        begin = line.Next;
        if (line.Kind != ProfileLineKind::Section) {
            continue;
        }
        if (found) {
            found->End = line.Begin;
            return found;
        }
        if (SameProfileName(line.Name, name)) {
            found = ProfileSection{line.Begin, line.Next, text.size()};
        }
    }
    return found;
}

std::optional<ProfileLine> FindProfileKey(std::string_view text, const ProfileSection& section,
                                          std::string_view key) {
    for (std::size_t begin = section.Begin; begin < section.End;) {
        const ProfileLine line = ReadProfileLine(text, begin);
        begin = line.Next;
        if (line.Kind == ProfileLineKind::Key && SameProfileName(line.Name, key)) {
            return line;
        }
    }
    return {};
}

} // namespace brindle
