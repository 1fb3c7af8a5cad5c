#include "settings/recent_files.h"
#include "settings/utf8_characters.h"

/// How recent files are shown in the menu.
namespace brindle {

namespace {

constexpr std::size_t GreatestCaptionPath = 60; // characters: wider menus hide the window
constexpr std::string_view Dots = "...";

/// A menu would take "&" for an access key, and a tab for the start of a shortcut.
std::string AsCaption(const std::string& path) {
    std::string caption;
    for (const char c : path) {
        const bool control = static_cast<unsigned char>(c) < ' ';
        caption += control ? ' ' : c;
        if (c == '&') {
            caption += c;
        }
    }
    return caption;
}

std::string NumberCaption(int number) {
    return number == 10 ? "1&0 " : "&" + std::to_string(number) + " ";
}

} // namespace

std::string ShortenedPath(const std::string& path, std::size_t limit, const PathStyle& style) {
    if (CharacterCount(path) <= limit) {
        return path;
    }
    const std::size_t room = limit - Dots.size();
    // A third for where the path begins, the rest for its end, which tells files apart.
    std::string_view head = FirstCharacters(path, room / 3);
    head = head.substr(0, head.find_last_of(style.Separators) + 1);
    std::string_view tail = LastCharacters(path, room - CharacterCount(head));
    const std::size_t folder = tail.find_first_of(style.Separators);
    if (folder != std::string_view::npos) {
        tail.remove_prefix(folder);
    }
    return std::string(head).append(Dots).append(tail);
}

std::array<std::string, RecentFileCount> RecentFileCaptions(const RecentFiles& files,
                                                            const PathStyle& style) {
    std::array<std::string, RecentFileCount> captions;
    int number = 0;
    for (std::size_t index = 0; index < files.size(); ++index) {
        if (files[index].Used()) {
            captions[index] = NumberCaption(++number) +
                              AsCaption(ShortenedPath(files[index].Path, GreatestCaptionPath, style));
        }
    }
    return captions;
}

} // namespace brindle
