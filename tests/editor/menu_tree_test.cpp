#include "editor/menu_tree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace brindle {
namespace {

MenuEntry Entry(const std::string& name) {
    const std::vector<MenuEntry> tree = MenuTree();
    const auto found =
        std::find_if(tree.begin(), tree.end(), [&](const MenuEntry& e) { return e.Name == name; });
    return found == tree.end() ? MenuEntry{} : *found;
}

std::vector<std::string> NamesIn(const std::string& parent) {
    std::vector<std::string> names;
    for (const MenuEntry& entry : MenuTree()) {
        if (entry.Parent == parent) {
            names.push_back(entry.Name);
        }
    }
    return names;
}

TEST(MenuTree, TheBarHoldsSixMenusInOrder) {
    EXPECT_EQ(NamesIn(""), (std::vector<std::string>{"mnuFile", "mnuEdit", "mnuGroupHeader",
                                                     "mnuLogicCategories", "mnuTimerLatchUnit", "mnuHelp"}));
    EXPECT_EQ(Entry("mnuFile").Caption, "&File");
    EXPECT_EQ(Entry("mnuEdit").Caption, "&Edit");
    EXPECT_EQ(Entry("mnuGroupHeader").Caption, "&Group");
    EXPECT_EQ(Entry("mnuLogicCategories").Caption, "&Logic Categories");
    EXPECT_EQ(Entry("mnuTimerLatchUnit").Caption, "Timer/Latch &Unit");
    EXPECT_EQ(Entry("mnuHelp").Caption, "&Help");
}

TEST(MenuTree, TheFileMenuIsInOrder) {
    std::vector<std::string> expected{"mnuNewFile", "mnuFileNewVdr810", "mnuOpenBin", "mnuFileSave",
                                      "mnuSaveBin", "mnuFileBar1",      "mnuHomeDir", "mnuFileBar2",
                                      "mnuPrint",   "mnuFileBar3"};
    for (int i = 0; i <= 10; ++i) {
        expected.push_back("mnuFileRecentFiles(" + std::to_string(i) + ")");
    }
    expected.insert(expected.end(), {"mnuFileBar4", "mnuExit"});
    EXPECT_EQ(NamesIn("mnuFile"), expected);
    EXPECT_EQ(NamesIn("mnuNewFile"), (std::vector<std::string>{"mnuNewFileVer100", "mnuNewFileVer230"}));
}

TEST(MenuTree, TheOtherMenusAreInOrder) {
    EXPECT_EQ(NamesIn("mnuEdit"),
              (std::vector<std::string>{"mnuClearDisplayedUnit", "mnuGroupEditingFunctions"}));
    EXPECT_EQ(NamesIn("mnuHelp"),
              (std::vector<std::string>{"mnuShowNumbers", "mnuHelpHelp", "mnuBar1", "mnuWeb",
                                        "mnuSoftwareFTPSite", "mnuBar2", "mnuAbout"}));
    EXPECT_EQ(NamesIn("mnuGroupHeader").size(), 8U);
    EXPECT_EQ(NamesIn("mnuTimerLatchUnit").size(), 10U);
    const std::vector<std::string> categories = NamesIn("mnuLogicCategories");
    ASSERT_EQ(categories.size(), 34U);
    EXPECT_EQ(categories[0], "mnuLogicCategoriesLocateAll");
    EXPECT_EQ(categories[1], "mnuLogicCategoriesCloseAll");
    EXPECT_EQ(categories[2], "mnuLogicCategoriesSeperator1");
    EXPECT_EQ(categories[33], "mnuLogicCategoriesCategory(30)");
}

TEST(MenuTree, CaptionsCarryTheirAccessKeys) {
    const std::vector<std::pair<std::string, std::string>> captions{
        {"mnuNewFile", "New Vdr81&2"},
        {"mnuNewFileVer100", "Version 1.00"},
        {"mnuNewFileVer230", "Version 2.30"},
        {"mnuFileNewVdr810", "New Vdr81&0..."},
        {"mnuOpenBin", "&Open..."},
        {"mnuFileSave", "&Save"},
        {"mnuSaveBin", "Save &As..."},
        {"mnuHomeDir", "&Home Directory..."},
        {"mnuPrint", "&Print..."},
        {"mnuExit", "E&xit"},
        {"mnuClearDisplayedUnit", "&Clear Displayed Unit's Settings..."},
        {"mnuGroupEditingFunctions", "Group Editing &Functions..."},
        {"mnuGroup(1)", "Group &1"},
        {"mnuGroup(8)", "Group &8"},
        {"mnuLogicCategoriesLocateAll", "Locate All"},
        {"mnuLogicCategoriesCloseAll", "Close All"},
        {"mnuTimerLatch(1)", "Timer &1"},
        {"mnuTimerLatch(6)", "Timer &6"},
        {"mnuTimerLatch(7)", "Latch 1 &Reset"},
        {"mnuTimerLatch(8)", "Latch 1 &Set"},
        {"mnuTimerLatch(9)", "Latch 2 R&eset"},
        {"mnuTimerLatch(10)", "Latch 2 Se&t"},
        {"mnuShowNumbers", "&Show Logic Signal &Numbers"},
        {"mnuHelpHelp", "Brindle &Help"},
        {"mnuSoftwareFTPSite", "&Software FTP Site"},
        {"mnuAbout", "&About..."},
    };
    for (const auto& [name, caption] : captions) {
        EXPECT_EQ(Entry(name).Caption, caption) << name;
        EXPECT_EQ(Entry(name).Kind == MenuEntryKind::Menu, name == "mnuNewFile") << name;
    }
}

TEST(MenuTree, NamesAreUniqueAndParentsComeFirst) {
    std::set<std::string> seen{""};
    for (const MenuEntry& entry : MenuTree()) {
        EXPECT_TRUE(seen.count(entry.Parent) == 1) << entry.Name;
        EXPECT_TRUE(seen.insert(entry.Name).second) << entry.Name;
    }
}

TEST(MenuTree, TheEmptyRecentListIsHiddenWithItsSeparator) {
    EXPECT_FALSE(Entry("mnuFileRecentFiles(0)").Visible);
    EXPECT_FALSE(Entry("mnuFileRecentFiles(10)").Visible);
    EXPECT_FALSE(Entry("mnuFileBar4").Visible);
    EXPECT_TRUE(Entry("mnuFileBar3").Visible);
}

} // namespace
} // namespace brindle
