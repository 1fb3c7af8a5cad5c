#include "editor/menu_tree.h"
#include "settings/form_about.h"
#include "settings/form_help.h"
#include "settings/form_home_dir.h"
#include "support/main_window_test_window.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

namespace brindle {
namespace {

/// The commands around the editing, as the main window's menus give them.
class OtherCommands : public MainWindowTest {
  protected:
    void WriteProgram(const std::string& name, int pickUp) const {
        LogicConfig config;
        MakeNewVdr812(config, Version100);
        config.Group(1).Timer(1).PickUp = pickUp;
        WriteFile(name, ProgramBytes(config));
    }

    void Open(const std::string& name) {
        Dialogs.ChooseFile(PathOf(name));
        Choose("mnuOpenBin");
    }

    QAction* Recent(int index) { return Find<QAction>(ElementName("mnuFileRecentFiles", index).c_str()); }
};

TEST_F(OtherCommands, FilesUsedStandInTheFileMenuTheNewestFirstAndOpenFromThere) {
    WriteProgram("a.pl", 1);
    WriteProgram("b.pl", 2);
    Start();
    EXPECT_FALSE(Recent(0)->isVisible());
    EXPECT_FALSE(Find<QAction>("mnuFileBar4")->isVisible());
    Open("a.pl");
    Open("b.pl");
    EXPECT_TRUE(Recent(0)->text().startsWith(QLatin1String("&1 "))) << Recent(0)->text().toStdString();
    EXPECT_TRUE(Recent(0)->text().endsWith(QLatin1String("b.pl")));
    EXPECT_TRUE(Recent(1)->text().endsWith(QLatin1String("a.pl")));
    EXPECT_FALSE(Recent(2)->isVisible());
    EXPECT_TRUE(Find<QAction>("mnuFileBar4")->isVisible());
    Choose("mnuFileRecentFiles(1)");
    EXPECT_EQ(TextOf("txtTimerPU"), "1");
    EXPECT_TRUE(Recent(0)->text().endsWith(QLatin1String("a.pl"))) << "used last";

    Close();
    QFile::remove(Folder.filePath(QStringLiteral("b.pl")));
    Start();
    EXPECT_TRUE(Recent(0)->text().endsWith(QLatin1String("a.pl")));
    EXPECT_FALSE(Recent(1)->isVisible()) << "it has vanished";
}

TEST_F(OtherCommands, ARecentFileThatVanishedIsAFailedOpen) {
    WriteProgram("a.pl", 1);
    Start();
    Open("a.pl");
    QFile::remove(Folder.filePath(QStringLiteral("a.pl")));
    Dialogs.PressButton("OK");
    Choose("mnuFileRecentFiles(0)");
    EXPECT_EQ(Dialogs.Messages.at(0).Text, "File not found.");
    EXPECT_TRUE(Recent(0)->isVisible()) << "until the next start";
}

TEST_F(OtherCommands, TheHomeDirectoryChosenIsThatOfTheNextDialogAndTheNextStart) {
    Start();
    QDir(Folder.path()).mkdir(QStringLiteral("schemes"));
    Choose("mnuHomeDir");
    auto* form = Window->findChild<formHomeDir*>();
    ASSERT_TRUE(form->isVisible());
    form->close();
    TheEditor->ChooseHomeDirectory(PathOf("schemes"));
    Choose("mnuNewFileVer230");
    EXPECT_EQ(TheEditor->Config().FilePath, PathOf("schemes/New_File.pl"));
    Close();
    Start();
    EXPECT_EQ(TheEditor->HomeDirectory(), PathOf("schemes"));
}

TEST_F(OtherCommands, MakeEnumWritesTheConstantsIntoTheCurrentFolder) {
    Start();
    QTest::mouseClick(Find<QPushButton>("Command1"), Qt::LeftButton);
    EXPECT_EQ(Content("Const.tmp").substr(0, 41), "Public Const PLBIT000 As Integer = 2\r\nPub");
    EXPECT_TRUE(Dialogs.Messages.empty());
}

TEST_F(OtherCommands, PrintOffersToSaveChangesFirstAndOpensWhateverBecameOfThat) {
    Start();
    Choose("mnuPrint");
    auto* form = Find<QWidget>("formPrintBrindle");
    EXPECT_TRUE(form->isVisible());
    form->close();
    TheEditor->EditConfig().Modified = true;
    Dialogs.CancelFile();
    Choose("mnuPrint");
    EXPECT_EQ(Dialogs.FileDialogs.at(0).Title, "Save Binary File Prior to Printing");
    EXPECT_TRUE(form->isVisible());
}

TEST_F(OtherCommands, PrintToFileWritesTheReportOfTheShownUnit) {
    WriteProgram("a.pl", 1500);
    Start();
    Open("a.pl");
    Choose("mnuPrint");
    Find<QRadioButton>("optPrintCurrentForm")->click();
    Find<QAbstractButton>("chkPrintToFile")->click();
    Dialogs.ChooseFile(PathOf("a.txt"));
    Dialogs.PressButton("OK");
    Find<QAbstractButton>("cmdPrint")->click();
    EXPECT_EQ(Dialogs.Messages.at(0).Text,
              "The Programmable Logic configuration was saved to the text file: " + PathOf("a.txt"));
    const std::string report = Content("a.txt");
    EXPECT_NE(report.find("T1:PU Timer = 1500 (milliseconds)"), std::string::npos);
    EXPECT_NE(report.find(PathOf("a.pl")), std::string::npos);
    EXPECT_EQ(report.find("T2:PU Timer"), std::string::npos);
}

TEST_F(OtherCommands, HelpOpensTheGuideAndGoesWithTheMainWindow) {
    Start();
    Choose("mnuHelpHelp");
    auto* help = Window->findChild<formHelp*>();
    ASSERT_TRUE(help->isVisible());
    Window->close();
    EXPECT_FALSE(help->isVisible());
}

TEST_F(OtherCommands, AboutShowsTheVersion) {
    Start();
    Choose("mnuAbout");
    auto* about = Window->findChild<formAbout*>();
    EXPECT_TRUE(about->isVisible());
    bool versionShown = false;
    for (const auto* label : about->findChildren<QLabel*>()) {
        versionShown = versionShown || label->text().contains(QLatin1String("Version 1.00.0"));
    }
    EXPECT_TRUE(versionShown);
    about->close();
}

TEST_F(OtherCommands, TheWebMenuHoldsThePagesOfTheSettingsFile) {
    WriteFile("Benchkit.ini",
              "[Brindle]\r\nBrindleVersion=1.000000\r\n[Brindle Web]\r\nPage1=https://one.example/\r\n"
              "Page1Caption=&One\r\nPage2=\r\n");
    Start();
    EXPECT_EQ(Find<QAction>("mnuWebPage(0)")->text(), QStringLiteral("&One"));
    EXPECT_EQ(Window->findChild<QAction*>(QStringLiteral("mnuWebPage(1)")), nullptr);
    EXPECT_TRUE(Find<QAction>("mnuSoftwareFTPSite")->isEnabled());
}

} // namespace
} // namespace brindle
