#pragma once

#include <string>
#include <vector>

/// The menu bar of the main window as data: names, captions and order. The window builds its menus from it.
namespace brindle {

enum class MenuEntryKind { Menu, Command, Separator };

struct MenuEntry {
    std::string Name;    ///< control name, `name(index)` for an element of a control array
    std::string Parent;  ///< name of the menu that holds it; empty for the menus of the bar
    std::string Caption; ///< "&" marks the access key; empty for a separator
    MenuEntryKind Kind = MenuEntryKind::Command;
    bool Checkable = false;
    bool Visible = true; ///< at start; an element of a list appears with its first content
};

inline constexpr int RecentFileItems = 11; ///< elements 0 to 10 of `mnuFileRecentFiles`
inline constexpr int CategoryItems =
    31; ///< elements 0 to 30 of `mnuLogicCategoriesCategory`, more where the relay has

/// All entries, each after the menu that holds it, in the order in which they are shown.
std::vector<MenuEntry> MenuTree();

/// The name of element `index` of a control array: `txtPlo(5)`.
std::string ElementName(const std::string& array, int index);

} // namespace brindle
