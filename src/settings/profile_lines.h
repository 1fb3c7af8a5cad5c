#pragma once

#include <optional>
#include <string_view>

/// Where the lines, sections and keys of a profile's text stand, as byte offsets into it.
namespace brindle {

enum class ProfileLineKind {
    Blank,
    Section, ///< "[name]" and whatever follows it
    Key,     ///< "name=value"
    Other    ///< comments, and lines that mean nothing
};

struct ProfileLine {
    std::size_t Begin = 0;
    std::size_t Next = 0; ///< where the next line begins: after this one's LF, or the text's end
    ProfileLineKind Kind = ProfileLineKind::Other;
    std::string_view Name;  ///< of a section or key
    std::string_view Value; ///< of a key, quotes included; points into the text even where it is empty
};

/// The line that begins at `begin`, which is less than the text's size.
ProfileLine ReadProfileLine(std::string_view text, std::size_t begin);

/// Where the first line begins: after a UTF-8 byte order mark.
std::size_t FirstProfileLine(std::string_view text);

struct ProfileSection {
    std::size_t Heading = 0; ///< where the line of its name begins
    std::size_t Begin = 0;   ///< where the line after that begins
    std::size_t End = 0;     ///< where the next section's heading begins, or the text's end
};

/// The first section of that name.
std::optional<ProfileSection> FindProfileSection(std::string_view text, std::string_view name);

/// The first line of a section that has that key.
std::optional<ProfileLine> FindProfileKey(std::string_view text, const ProfileSection& section,
                                          std::string_view key);

/// Equal but for the case of ASCII letters.
bool SameProfileName(std::string_view first, std::string_view second);

/// Without blanks, tabs and the like at both ends.
std::string_view TrimProfileText(std::string_view text);

/// "CR LF" or "LF": what the first line ends in; CR LF where no line has ended yet.
std::string_view ProfileLineEnding(std::string_view text);

} // namespace brindle
