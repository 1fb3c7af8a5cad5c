#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace brindle {

/// The content of a file of examples/.
inline std::string ExampleContent(const std::string& name) {
    std::ifstream file(std::filesystem::path(BRINDLE_EXAMPLES) / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The names, without it, of the examples of `extension` (".pl"), in order.
inline std::vector<std::string> ExamplesEndingIn(const std::string& extension) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(BRINDLE_EXAMPLES)) {
        if (entry.path().extension() == extension) {
            names.push_back(entry.path().stem().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace brindle
