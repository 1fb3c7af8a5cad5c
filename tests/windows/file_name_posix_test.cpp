#include "settings/form_home_dir.h"
#include "support/main_window_test_window.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QRadioButton>
#include <QTest>
#include <QUrl>
#include <QWindow>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace brindle {
namespace {

/// Names of files that only this system takes.
class FileName : public MainWindowTest {};

TEST_F(FileName, WithABracketedStarIsShownInTheTitle) {
    Start();
    Dialogs.ChooseFile(PathOf("a[*]b.pl"));
    Choose("mnuSaveBin");
    EXPECT_NE(Window->windowHandle()->title().indexOf(QStringLiteral("a[*]b.pl")), -1);
}

/// Names of files and folders whose bytes are no UTF-8: "schéma" as a machine of another code page wrote it.
class BytesName : public MainWindowTest {
  protected:
    void SetUp() override {
        std::filesystem::create_directory(Bytes(FolderName));
        LogicConfig config;
        MakeNewVdr812(config, Version100);
        config.Group(1).Timer(1).PickUp = 75;
        Put(FileName, ProgramBytes(config));
    }

    void TearDown() override { std::filesystem::remove_all(Bytes(FolderName)); } // Qt cannot remove it

    /// The path of a name, or of names, in the test's folder.
    [[nodiscard]] std::string Bytes(const std::string& name) const {
        return Folder.path().toStdString() + "/" + name;
    }

    void Put(const std::string& name, const std::string& bytes) const {
        std::ofstream(Bytes(name), std::ios::binary) << bytes;
    }

    [[nodiscard]] std::string Got(const std::string& name) const {
        std::ifstream file(Bytes(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    /// What every way of opening the file must come to.
    void ExpectOpen() {
        EXPECT_EQ(TheEditor->Config().FilePath, Bytes(FileName));
        EXPECT_EQ(TheEditor->Config().FileTitle, "sch\xE9ma.pl");
        EXPECT_EQ(TextOf("txtTimerPU"), "75");
    }

    static constexpr const char* FolderName = "sch\xE9ma";
    static constexpr const char* FileName = "sch\xE9ma/sch\xE9ma.pl";
    static constexpr const char* Shown = "sch\uFFFDma/sch\uFFFDma.pl";
};

TEST_F(BytesName, IsOpenedSavedShownAndRemembered) {
    Start(Bytes(FileName));
    ExpectOpen();
    EXPECT_NE(Window->windowHandle()->title().indexOf(QString::fromUtf8(Shown)), -1);
    EXPECT_TRUE(Find<QAction>("mnuFileRecentFiles(0)")->text().endsWith(QStringLiteral("sch\uFFFDma.pl")));
    QTest::keyClicks(Find<QLineEdit>("txtTimerPU"), QStringLiteral("1"));
    const std::string before = Got(FileName);
    Choose("mnuFileSave");
    EXPECT_NE(Got(FileName), before);
    EXPECT_EQ(Got(FileName), ProgramBytes(TheEditor->Config()));
    EXPECT_NE(Content("Benchkit.ini").find("Recent0=" + Bytes(FileName) + ",sch\xE9ma.pl,1"),
              std::string::npos);
    Close();

    Put(FileName, before);
    Start();
    Choose("mnuFileRecentFiles(0)");
    ExpectOpen();
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Bytes(FolderName)), {}), 1)
        << "no second file";
    EXPECT_TRUE(Dialogs.Messages.empty());
}

TEST_F(BytesName, IsOpenedWhenDropped) {
    Start();
    QMimeData files;
    const QByteArray address = "file://" + Folder.path().toUtf8() + "/sch%E9ma/sch%E9ma.pl";
    files.setUrls({QUrl::fromEncoded(address)});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Window.get(), &enter);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Window.get(), &drop);
    QApplication::processEvents();
    ExpectOpen();
}

TEST_F(BytesName, IsOpenedByTheTextThatIsShownForIt) {
    Start();
    Dialogs.ChooseFile(Folder.path().toStdString() + "/" + Shown);
    Choose("mnuOpenBin");
    ExpectOpen();
    EXPECT_EQ(std::filesystem::current_path().string(), Bytes(FolderName));
}

TEST_F(BytesName, ThatTwoFilesAreShownByIsNotGuessed) {
    Put("sch\xE9ma/sch\xE8ma.pl", "another");
    Start();
    const std::string before = TheEditor->Config().FilePath;
    Dialogs.ChooseFile(Folder.path().toStdString() + "/" + Shown);
    Dialogs.PressButton("OK");
    Dialogs.CancelFile();
    Choose("mnuOpenBin");
    EXPECT_NE(Dialogs.Messages.at(0).Text.find("does not exist"), std::string::npos);
    EXPECT_EQ(TheEditor->Config().FilePath, before);
}

TEST_F(BytesName, ProposedBySaveAsIsSavedUnderItsBytes) {
    Put("sch\xE9ma/sch\xE8ma.pl", "another"); // is shown the same, and must not be meant
    Start(Bytes(FileName));
    TheEditor->EditConfig().Group(1).Timer(1).PickUp = 8;
    Dialogs.ChooseFile(""); // as it stands
    Dialogs.PressButton("Yes");
    Choose("mnuSaveBin");
    EXPECT_EQ(Dialogs.FileDialogs.at(0).SelectedName, Shown) << "from the folder above, which can be shown";
    EXPECT_EQ(Dialogs.FileDialogs.at(0).Folder, Folder.path().toStdString());
    EXPECT_EQ(TheEditor->Config().FilePath, Bytes(FileName));
    EXPECT_EQ(Got(FileName), ProgramBytes(TheEditor->Config()));
    EXPECT_EQ(Got("sch\xE9ma/sch\xE8ma.pl"), "another");
}

TEST_F(BytesName, IsANameForANewFileInAFolderOfSuchAName) {
    Start(Bytes(FileName));
    Dialogs.ChooseFile("sch\uFFFDma/copy");
    Choose("mnuSaveBin");
    EXPECT_EQ(TheEditor->Config().FilePath, Bytes("sch\xE9ma/copy.pl"));
    EXPECT_EQ(Got("sch\xE9ma/copy.pl"), Got(FileName));
}

TEST_F(BytesName, CanBeTheHomeDirectorys) {
    Start();
    TheEditor->ChooseHomeDirectory(Bytes(FolderName));
    EXPECT_NE(Content("Benchkit.ini").find("HomeDir=" + Bytes(FolderName) + "\r\n"), std::string::npos);
    Close();
    Start();
    EXPECT_EQ(TheEditor->HomeDirectory(), Bytes(FolderName));
    Choose("mnuFileSave");
    EXPECT_EQ(Got("sch\xE9ma/New_File.pl"), ProgramBytes(TheEditor->Config()));
    Choose("mnuHomeDir");
    EXPECT_EQ(TextOf("txtHomeDir"), Folder.path().toStdString() + "/sch\uFFFDma");
    QTest::mouseClick(Find<QPushButton>("cmdDone"), Qt::LeftButton);
    EXPECT_EQ(TheEditor->HomeDirectory(), Bytes(FolderName));
}

TEST_F(BytesName, IsThatOfAReportPrintedToAFile) {
    Start(Bytes(FileName));
    Choose("mnuPrint");
    Find<QRadioButton>("optPrintCurrentForm")->click();
    Find<QAbstractButton>("chkPrintToFile")->click();
    Dialogs.ChooseFile(""); // as it stands
    Dialogs.PressButton("OK");
    Find<QAbstractButton>("cmdPrint")->click();
    EXPECT_NE(Got("sch\xE9ma/sch\xE9ma.txt").find("File: " + Bytes(FileName)), std::string::npos);
}

} // namespace
} // namespace brindle
