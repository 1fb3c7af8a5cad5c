#include "editor/menu_tree.h"

#include "model/unit_table.h"

namespace brindle {

namespace {

using Entries = std::vector<MenuEntry>;

MenuEntry Menu(const char* name, const char* parent, const char* caption) {
    return {name, parent, caption, MenuEntryKind::Menu};
}

MenuEntry Command(const char* name, const char* parent, const char* caption) {
    return {name, parent, caption};
}

MenuEntry Separator(const char* name, const char* parent) {
    return {name, parent, "", MenuEntryKind::Separator};
}

void AddFileMenu(Entries& entries) {
    entries.insert(entries.end(),
                   {Menu("mnuFile", "", "&File"), Menu("mnuNewFile", "mnuFile", "New Vdr81&2"),
                    Command("mnuNewFileVer100", "mnuNewFile", "Version 1.00"),
                    Command("mnuNewFileVer230", "mnuNewFile", "Version 2.30"),
                    Command("mnuFileNewVdr810", "mnuFile", "New Vdr81&0..."),
                    Command("mnuOpenBin", "mnuFile", "&Open..."), Command("mnuFileSave", "mnuFile", "&Save"),
                    Command("mnuSaveBin", "mnuFile", "Save &As..."), Separator("mnuFileBar1", "mnuFile"),
                    Command("mnuHomeDir", "mnuFile", "&Home Directory..."),
                    Separator("mnuFileBar2", "mnuFile"), Command("mnuPrint", "mnuFile", "&Print..."),
                    Separator("mnuFileBar3", "mnuFile")});
    for (int i = 0; i < RecentFileItems; ++i) {
        MenuEntry item = Command("", "mnuFile", "RecentFiles");
        item.Name = ElementName("mnuFileRecentFiles", i);
        item.Visible = false;
        entries.push_back(item);
    }
    MenuEntry bar = Separator("mnuFileBar4", "mnuFile");
    bar.Visible = false;
    entries.push_back(bar);
    entries.push_back(Command("mnuExit", "mnuFile", "E&xit"));
}

void AddEditMenu(Entries& entries) {
    entries.insert(entries.end(),
                   {Menu("mnuEdit", "", "&Edit"),
                    Command("mnuClearDisplayedUnit", "mnuEdit", "&Clear Displayed Unit's Settings..."),
                    Command("mnuGroupEditingFunctions", "mnuEdit", "Group Editing &Functions...")});
}

void AddGroupMenu(Entries& entries) {
    entries.push_back(Menu("mnuGroupHeader", "", "&Group"));
    for (int group = 1; group <= MaxGroups; ++group) {
        MenuEntry item = Command("", "mnuGroupHeader", "Group &");
        item.Name = ElementName("mnuGroup", group);
        item.Caption += std::to_string(group);
        item.Checkable = true;
        entries.push_back(item);
    }
}

void AddCategoriesMenu(Entries& entries) {
    entries.insert(entries.end(), {Menu("mnuLogicCategories", "", "&Logic Categories"),
                                   Command("mnuLogicCategoriesLocateAll", "mnuLogicCategories", "Locate All"),
                                   Command("mnuLogicCategoriesCloseAll", "mnuLogicCategories", "Close All"),
                                   Separator("mnuLogicCategoriesSeperator1", "mnuLogicCategories")});
    for (int category = 0; category < CategoryItems; ++category) {
        MenuEntry item = Command("", "mnuLogicCategories", "Category");
        item.Name = ElementName("mnuLogicCategoriesCategory", category);
        item.Checkable = true;
        entries.push_back(item);
    }
}

void AddUnitMenu(Entries& entries) {
    entries.push_back(Menu("mnuTimerLatchUnit", "", "Timer/Latch &Unit"));
    for (const UnitInfo& unit : UnitTable) {
        MenuEntry item = Command("", "mnuTimerLatchUnit", "");
        item.Name = ElementName("mnuTimerLatch", unit.Number);
        item.Caption = unit.MenuCaption;
        item.Checkable = true;
        entries.push_back(item);
    }
}

void AddHelpMenu(Entries& entries) {
    MenuEntry numbers = Command("mnuShowNumbers", "mnuHelp", "&Show Logic Signal &Numbers");
    numbers.Checkable = true;
    entries.insert(entries.end(),
                   {Menu("mnuHelp", "", "&Help"), numbers, Command("mnuHelpHelp", "mnuHelp", "Brindle &Help"),
                    Separator("mnuBar1", "mnuHelp"),
                    // Its pages come from the settings file; until then it opens on nothing.
                    Menu("mnuWeb", "mnuHelp", "Brindle on the &Web"),
                    Command("mnuSoftwareFTPSite", "mnuHelp", "&Software FTP Site"),
                    Separator("mnuBar2", "mnuHelp"), Command("mnuAbout", "mnuHelp", "&About...")});
}

} // namespace

std::string ElementName(const std::string& array, int index) {
    return array + "(" + std::to_string(index) + ")";
}

std::vector<MenuEntry> MenuTree() {
    Entries entries;
    AddFileMenu(entries);
    AddEditMenu(entries);
    AddGroupMenu(entries);
    AddCategoriesMenu(entries);
    AddUnitMenu(entries);
    AddHelpMenu(entries);
    return entries;
}

} // namespace brindle
