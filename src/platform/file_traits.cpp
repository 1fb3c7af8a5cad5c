#include "platform/file_traits.h"

#include <vector>

namespace brindle {

std::string ListOfTraits(const FileTraits& traits) {
    std::vector<std::string> names;
    const auto add = [&](bool isMember, const char* name) {
        if (isMember) {
            names.emplace_back(name);
        }
    };
    add(traits.Owner, "the owner");
    add(traits.Group, "the group");
    add(traits.AccessList, "the access list");
    add(traits.Attributes, "the extended attributes");
    std::string list;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const char* const separator = i == 0 ? "" : i + 1 == names.size() ? " and " : ", ";
        list += separator + names[i];
    }
    return list;
}

} // namespace brindle
