#pragma once

#include <string>

namespace brindle {

/// What a file has besides its content and its names, as a set.
struct FileTraits {
    bool Owner = false;
    bool Group = false;      ///< on systems where a file has one
    bool AccessList = false; ///< which users and groups may do what, where that is more than permission bits
    bool Attributes = false; ///< extended attributes; on Windows marks and further streams

    [[nodiscard]] bool Any() const { return Owner || Group || AccessList || Attributes; }

    bool operator==(const FileTraits&) const = default;
};

/// The members of the set in words: "the owner, the group and the access list".
std::string ListOfTraits(const FileTraits& traits);

} // namespace brindle
