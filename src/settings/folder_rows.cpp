#include "settings/home_directory.h"

/// The folders that lead to one, and those in it.
namespace brindle {

namespace {

bool IsSeparator(char c, const PathStyle& style) {
    return style.Separators.find(c) != std::string_view::npos;
}

/// How far the root of an absolute path reaches: "/", "C:\" or "\\server\share".
std::size_t RootLength(const std::string& path, const PathStyle& style) {
    if (!style.Drives) {
        return path.empty() ? 0 : 1;
    }
    if (path.size() >= 2 && IsSeparator(path[0], style) && IsSeparator(path[1], style)) {
        const std::size_t share = path.find_first_of(style.Separators, 2);
        return share == std::string::npos ? path.size() : path.find_first_of(style.Separators, share + 1);
    }
    return path.find_first_of(style.Separators) + 1;
}

} // namespace

std::vector<FolderRow> FolderRows(const std::string& path, const std::vector<std::string>& subfolders,
                                  const PathStyle& style) {
    std::vector<FolderRow> rows;
    const auto add = [&](const std::string& caption, const std::string& folder, bool open) {
        rows.push_back({caption, folder, static_cast<int>(rows.size()), open});
    };
    const std::string root = path.substr(0, RootLength(path, style));
    add(root, root, true);
    std::size_t begin = root.size();
    while (begin < path.size()) {
        const std::size_t end = std::min(path.find_first_of(style.Separators, begin), path.size());
        if (end > begin) {
            add(path.substr(begin, end - begin), path.substr(0, end), true);
        }
        begin = end + 1;
    }
    const std::string folder = rows.back().Path;
    const int depth = rows.back().Depth + 1;
    for (const std::string& name : subfolders) {
        rows.push_back({name, JoinPath(folder, name, style), depth, false});
    }
    return rows;
}

} // namespace brindle
