#include "platform/folders.h"

#include "platform/ascii.h"

#include <algorithm>

namespace brindle {

void SortFolderNames(std::vector<std::string>& names) {
    std::sort(names.begin(), names.end()); // names that differ in case alone have an order too
    std::stable_sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
            // The bytes of other letters than ASCII's are great, though a char may count them as negative.
            return static_cast<unsigned char>(UpperLetter(x)) < static_cast<unsigned char>(UpperLetter(y));
        });
    });
}

} // namespace brindle
