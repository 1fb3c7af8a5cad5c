#pragma once

#include "platform/file_system.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace brindle {

struct ProfileEntry {
    std::string Key;
    std::string Value;
};

/// Reads the text of a key, or the fallback.
using ReadProfileKey = std::function<std::string(const std::string& key, const std::string& fallback)>;

/// What to store in a section, decided by what its keys say.
using DecideProfileEntries = std::function<std::vector<ProfileEntry>(const ReadProfileKey& read)>;

/// The functions of a private profile: an INI file at a full path. Sections and keys are found without
/// regard to the case of ASCII letters.
struct ProfileFunctions {
    /// The text of a key: outer blanks and one pair of quotes stripped, cut at the first zero byte.
    /// `fallback` when key, section or file are missing or the file cannot be read.
    std::function<std::string(const std::string& path, const std::string& section, const std::string& key,
                              const std::string& fallback)>
        ReadText;

    /// The whole number that the text of a key begins with; `fallback` when there is none.
    std::function<int(const std::string& path, const std::string& section, const std::string& key,
                      int fallback)>
        ReadInteger;

    /// Stores the text of a key, creating section and file as needed. No value deletes the key; no key
    /// deletes the whole section. True when the file then says what was asked, also when there was nothing to
    /// delete. False when it cannot be written, and for what would not read back: a line break in a value, a
    /// key with "=".
    std::function<bool(const std::string& path, const std::string& section,
                       const std::optional<std::string>& key, const std::optional<std::string>& value)>
        Write;

    /// Stores several keys of a section at once, as `decide` wants them; it is not called, and nothing
    /// stored, when the file is there but cannot be read. True and false as of Write.
    std::function<bool(const std::string& path, const std::string& section,
                       const DecideProfileEntries& decide)>
        Update;
};

/// The private profile of the system we run on: its own functions where it has them, else ours over `files`.
ProfileFunctions SystemProfile(const FileSystem& files);

} // namespace brindle
