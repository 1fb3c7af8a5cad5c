#include "editor/menu_tree.h"
#include "support/main_window_test_window.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include <map>
#include <set>

namespace brindle {
namespace {

class MainWindow : public MainWindowTest {
  protected:
    void MarkModified() { TheEditor->EditConfig().Modified = true; }

    std::string Title() { return Window->windowTitle().toStdString(); }
};

TEST_F(MainWindow, StartsWithANew230LogicAndItsTitle) {
    Start();
    EXPECT_EQ(Title(),
              "VDR812 Programmable Logic          (File: " + PathOf("New_File.pl") + ") Version: 2.30");
    EXPECT_TRUE(Dialogs.Messages.empty());
}

TEST_F(MainWindow, HasEveryItemOfTheMenuTreeInItsMenuAndOrder) {
    Start();
    std::map<std::string, std::vector<std::string>> expected;
    for (const MenuEntry& entry : MenuTree()) {
        expected[entry.Parent].push_back(entry.Name);
        if (entry.Kind == MenuEntryKind::Menu) {
            EXPECT_EQ(Find<QMenu>(entry.Name.c_str())->title().toStdString(), entry.Caption);
        } else if (entry.Name.rfind("mnuLogicCategoriesCategory(", 0) != 0) {
            EXPECT_EQ(Find<QAction>(entry.Name.c_str())->text().toStdString(), entry.Caption);
        }
    }
    for (const auto& [menu, names] : expected) {
        const QList<QAction*> actions =
            menu.empty() ? Window->menuBar()->actions() : Find<QMenu>(menu.c_str())->actions();
        std::vector<std::string> shown;
        for (const QAction* action : actions) {
            const QObject* named =
                action->menu() != nullptr ? static_cast<const QObject*>(action->menu()) : action;
            shown.push_back(named->objectName().toStdString());
        }
        EXPECT_EQ(shown, names) << menu;
    }
}

TEST_F(MainWindow, CategoryItemsFollowTheVersion) {
    Start();
    EXPECT_EQ(Find<QAction>("mnuLogicCategoriesCategory(3)")->text(), QStringLiteral("Zone - &3"));
    EXPECT_FALSE(Find<QAction>("mnuLogicCategoriesCategory(6)")->isVisible());
    EXPECT_TRUE(Find<QAction>("mnuLogicCategoriesCategory(25)")->isVisible());
    EXPECT_FALSE(Find<QAction>("mnuLogicCategoriesCategory(30)")->isVisible());
    Choose("mnuNewFileVer100");
    EXPECT_TRUE(Find<QAction>("mnuLogicCategoriesCategory(6)")->isVisible());
    EXPECT_FALSE(Find<QAction>("mnuLogicCategoriesCategory(25)")->isVisible());
}

TEST_F(MainWindow, EveryShownItemHasItsCommand) {
    Start();
    for (const MenuEntry& entry : MenuTree()) {
        if (entry.Kind != MenuEntryKind::Command) {
            continue;
        }
        const auto* item = Find<QAction>(entry.Name.c_str());
        EXPECT_EQ(item->isEnabled(), item->isVisible()) << entry.Name;
    }
    EXPECT_TRUE(Find<QMenu>("mnuWeb")->menuAction()->isEnabled());
    EXPECT_TRUE(Find<QPushButton>("Command1")->isEnabled());
}

TEST_F(MainWindow, SaveOfANewFileWritesItIntoTheHomeDirectoryWithoutAsking) {
    Start();
    EXPECT_EQ(Find<QPushButton>("cmdbtnSave")->toolTip(),
              QStringLiteral("Saves File. Does not Prompt about Over Write!!"));
    QTest::mouseClick(Find<QPushButton>("cmdbtnSave"), Qt::LeftButton);
    EXPECT_EQ(Content("New_File.pl").substr(0, 14), std::string("plcd\0\0\0\0", 8) + "2.30  ");
    EXPECT_EQ(Content("New_File.pl").size(), 2048U);
    EXPECT_TRUE(Dialogs.Messages.empty());
}

TEST_F(MainWindow, TheOpenDialogOpensInTheHomeDirectoryAndItsFolderBecomesCurrent) {
    Start();
    QDir(Folder.path()).mkdir(QStringLiteral("sub"));
    WriteFile("sub/x.pl", ProgramBytes(TheEditor->Config()));
    Dialogs.ChooseFile(PathOf("sub/x.pl"));
    Choose("mnuOpenBin");
    ASSERT_EQ(Dialogs.FileDialogs.size(), 1U);
    EXPECT_EQ(Dialogs.FileDialogs[0].Title, "Open Binary File");
    EXPECT_EQ(Dialogs.FileDialogs[0].Filters,
              (std::vector<std::string>{"Vdr812 PLC Files (*.pl)", "All Files (*)"}));
    EXPECT_EQ(Dialogs.FileDialogs[0].Folder, Folder.path().toStdString());
    EXPECT_EQ(Dialogs.FileDialogs[0].SelectedName, "");
    EXPECT_EQ(QDir::currentPath(), Folder.filePath(QStringLiteral("sub")));
    EXPECT_EQ(Title(), "VDR812 Programmable Logic          (File: " + PathOf("sub/x.pl") + ") Version: 2.30");
}

TEST_F(MainWindow, SaveAsAppendsTheExtensionBeforeItAsksToOverwrite) {
    Start();
    WriteFile("old.pl", "precious");
    Dialogs.ChooseFile("old");
    Dialogs.PressButton("No");
    Dialogs.CancelFile();
    Choose("mnuSaveBin");
    EXPECT_EQ(Content("old.pl"), "precious");
    ASSERT_EQ(Dialogs.Messages.size(), 1U);
    EXPECT_NE(Dialogs.Messages[0].Text.find("old.pl"), std::string::npos);

    Dialogs.ChooseFile("old");
    Dialogs.PressButton("Yes");
    Choose("mnuSaveBin");
    EXPECT_EQ(Content("old.pl").size(), 2048U);
    EXPECT_EQ(Title(), "VDR812 Programmable Logic          (File: " + PathOf("old.pl") + ") Version: 2.30");
}

TEST_F(MainWindow, SaveAsTakesNoFolderThatDoesNotExist) {
    Start();
    Dialogs.ChooseFile(PathOf("nowhere/x.pl"));
    Dialogs.PressButton("OK");
    Dialogs.ChooseFile("ends-in-a-point.");
    Choose("mnuSaveBin");
    ASSERT_EQ(Dialogs.Messages.size(), 1U);
    EXPECT_NE(Dialogs.Messages[0].Text.find("does not exist"), std::string::npos);
    EXPECT_EQ(TheEditor->Config().FileTitle, "ends-in-a-point.pl");
    EXPECT_EQ(Content("ends-in-a-point.pl").size(), 2048U);
}

TEST_F(MainWindow, TheSaveAsDialogProposesTheCurrentName) {
    Start();
    Dialogs.CancelFile();
    Choose("mnuSaveBin");
    EXPECT_EQ(Dialogs.FileDialogs.at(0).Title, "Save Binary File");
    EXPECT_EQ(Dialogs.FileDialogs.at(0).SelectedName, "New_File.pl");
    EXPECT_EQ(Dialogs.FileDialogs.at(0).Filters, (std::vector<std::string>{"Binary File (*.pl)"}));
}

TEST_F(MainWindow, AFailedOpenShowsTheDiskErrorAndKeepsEverything) {
    Start();
    Close();
    Dialogs.PressButton("OK");
    Start(PathOf("missing.pl"));
    ASSERT_EQ(Dialogs.Messages.size(), 1U);
    EXPECT_EQ(Dialogs.Messages[0].Title, "Disk Error");
    EXPECT_EQ(Dialogs.Messages[0].Text, "File not found.");
    EXPECT_TRUE(Dialogs.Messages[0].Exclamation);
    EXPECT_EQ(Title(),
              "VDR812 Programmable Logic          (File: " + PathOf("New_File.pl") + ") Version: 2.30");
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(MainWindow, ASaveOntoAFolderIsRefusedAndStaysModified) {
    Start();
    QDir(Folder.path()).mkdir(QStringLiteral("New_File.pl"));
    MarkModified();
    Dialogs.PressEscape();
    Choose("mnuFileSave");
    ASSERT_EQ(Dialogs.Messages.size(), 1U);
    EXPECT_EQ(Dialogs.Messages[0].Text, "The selected path can not be accessed.");
    EXPECT_TRUE(TheEditor->Config().Modified);
}

TEST_F(MainWindow, EscapeInTheSaveQuestionIsCancel) {
    Start();
    MarkModified();
    Dialogs.PressEscape();
    Choose("mnuNewFileVer100");
    ASSERT_EQ(Dialogs.Messages.size(), 1U);
    EXPECT_EQ(Dialogs.Messages[0].Title, "Brindle");
    EXPECT_EQ(Dialogs.Messages[0].Text, SavePrompt(DiscardingCommand::New).Text);
    EXPECT_FALSE(Dialogs.Messages[0].Exclamation);
    EXPECT_EQ(Dialogs.Messages[0].Buttons, (std::set<std::string>{"Yes", "No", "Cancel"}));
    EXPECT_EQ(TheEditor->Config().Version, Version230);
}

TEST_F(MainWindow, ExitWithCancelKeepsTheWindow) {
    Start();
    MarkModified();
    Dialogs.PressButton("Cancel");
    Choose("mnuExit");
    EXPECT_TRUE(Window->isVisible());
    EXPECT_TRUE(TheEditor->Config().Modified);
}

TEST_F(MainWindow, ExitWithNoAsksOnce) {
    Start();
    MarkModified();
    Dialogs.PressButton("No");
    Choose("mnuExit");
    EXPECT_FALSE(Window->isVisible());
    EXPECT_EQ(Dialogs.Messages.size(), 1U);
}

TEST_F(MainWindow, TheCloseBoxAsksBeforeTheProgramEndsAndCanSave) {
    Start();
    MarkModified();
    Dialogs.PressButton("Yes");
    Dialogs.ChooseFile("rescued.pl");
    Window->close();
    EXPECT_FALSE(Window->isVisible());
    ASSERT_EQ(Dialogs.Messages.size(), 1U);
    EXPECT_EQ(Dialogs.Messages[0].Text, SavePrompt(DiscardingCommand::WindowEnd).Text);
    EXPECT_EQ(Content("rescued.pl").size(), 2048U);
}

TEST_F(MainWindow, ThePlacementIsRememberedFromRunToRun) {
    Start();
    EXPECT_NE(Content("Benchkit.ini").find("WindowWidth="), std::string::npos) << "stored when first shown";
    const QSize asWideAsTheScreen(Window->screen()->size().width(), 620);
    Window->resize(asWideAsTheScreen);
    Window->move(10, 33);
    Close();
    Start();
    EXPECT_EQ(Window->size(), asWideAsTheScreen);
    EXPECT_EQ(Window->pos(), QPoint(0, 33)) << "a right edge beyond the screen puts it at the left";
    Window->showMaximized();
    Close();
    EXPECT_NE(Content("Benchkit.ini").find("ScreenMode=2"), std::string::npos);
    Start();
    EXPECT_TRUE(Window->isMaximized());
}

TEST_F(MainWindow, ARightPressOnTheBackgroundPopsUpTheCategories) {
    Start();
    auto* menu = Find<QMenu>("mnuLogicCategories");
    auto* diagram = Find<QWidget>("picDiagram");
    QTest::mousePress(diagram, Qt::RightButton, Qt::ShiftModifier, QPoint(5, 5));
    EXPECT_FALSE(menu->isVisible());
    QTest::mousePress(diagram, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    EXPECT_FALSE(menu->isVisible());
    QTest::mousePress(diagram, Qt::RightButton, Qt::NoModifier, QPoint(5, 5));
    EXPECT_TRUE(menu->isVisible());
    menu->close();
}

} // namespace
} // namespace brindle
