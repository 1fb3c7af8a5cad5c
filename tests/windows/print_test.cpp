#include "editor/gate_rows.h"
#include "platform/common_dialogs.h"
#include "platform/qt_file_dialog.h"
#include "report/form_print_brindle.h"
#include "settings/settings_file.h"
#include "support/main_window_test_window.h"
#include "support/pdf_pages_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QPdfWriter>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTest>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace brindle {
namespace {

/// The print dialog over the real main window. Its printers are "Office" and "Workshop", which print into
/// files of those names in the program's folder.
class PrintTest : public MainWindowTest {
  protected:
    void OpenDialog(int groups = MaxGroups) {
        Start(BRINDLE_EXAMPLES "/pilot_supervision.pl");
        TheEditor->EditConfig().GroupCount = groups;
        settings_ = std::make_unique<SettingsFile>(
            Folder.path().toStdString(), SystemProfile(RealFileSystem()), RealFileSystem(),
            [this](const MessageBox& box) { return ShowQtMessageBox(Window.get(), box); });
        Dialog = new formPrintBrindle(Surroundings(), Window.get());
        Dialog->OpenAtPlace();
        EXPECT_TRUE(QTest::qWaitForWindowActive(Dialog));
    }

    template<class Control>
    Control* In(const char* name) {
        auto* found = Dialog->findChild<Control*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    void Press(const char* name) { In<QAbstractButton>(name)->click(); }

    void UsePdf() { In<QComboBox>("cmbPrinterList")->setCurrentText(QStringLiteral("PDF File")); }

    std::vector<PdfPage> Pages(const std::string& file) {
        return PdfPages(QByteArray::fromStdString(Content(file)));
    }

    static std::string Heading(const std::string& unit) {
        return "Programmable Logic For Group " + unit + " ";
    }

    formPrintBrindle* Dialog = nullptr; ///< the main window's
    QStringList Printers{QStringLiteral("Office"), QStringLiteral("Workshop")};
    std::vector<std::string> Steps; ///< what was asked of the main window
    std::function<void()> WhenShown = [] {};
    bool PaperIn = true; ///< else a printer takes nothing

  private:
    PrintSurroundings Surroundings() {
        PrintSurroundings world;
        world.Config = [this]() -> const LogicConfig& { return TheEditor->Config(); };
        world.Catalogue = [this]() -> const SignalCatalogue& { return TheEditor->Catalogue(); };
        world.ReportStart = [this] {
            const LogicConfig& config = TheEditor->Config();
            return UnitReportRequest{1,
                                     1,
                                     config.FilePath,
                                     "today",
                                     "now",
                                     TheEditor->NumbersChecked(),
                                     GateRowsShown(config.Version)};
        };
        world.Title = [this] { return TheEditor->Title(); };
        world.Shown = [this] { return UnitPlace{TheEditor->Shown().Group, TheEditor->Shown().Unit}; };
        world.Show = [this](const UnitPlace& unit) {
            TheEditor->mnuGroup_Click(unit.Group);
            TheEditor->mnuTimerLatch_Click(unit.Unit);
            Steps.push_back(std::to_string(unit.Group) + "." + std::to_string(unit.Unit));
            WhenShown();
        };
        world.BeginPrinting = [this] {
            Steps.emplace_back("printing");
            TheEditor->BeginPrinting();
        };
        world.EndPrinting = [this] {
            Steps.emplace_back("printed");
            TheEditor->EndPrinting();
        };
        world.Picture = [this] { return Window->Picture(); };
        world.RestorePlacement = [this](const PlacedForm& form) {
            RestorePlacement(*settings_, SectionBrindle, form, PrintWindowKeys);
        };
        world.SavePlacement = [this](const PlacedForm& form) {
            SavePlacement(*settings_, SectionBrindle, form, PrintWindowKeys);
        };
        world.Outside = {
            RealFileSystem(),
            [this](const FileDialogRequest& request) { return RunQtFileDialog(Dialog, request); },
            [this](const MessageBox& box) { return ShowQtMessageBox(Dialog, box); }};
        world.Printers = TestPrinters();
        return world;
    }

    PrinterFunctions TestPrinters() {
        PrinterFunctions printers = SystemPrinters();
        printers.Names = [this] { return Printers; };
        printers.Default = [this] { return Printers.value(1); };
        printers.Choose = [this](const QString& name) {
            chosen_ = name;
            return QPageSize(name == QLatin1String("Office") ? QPageSize::Letter : QPageSize::A4);
        };
        printers.Fonts = [] {
            return QStringList{QStringLiteral("Line Printer"), QStringLiteral("Tahoma"),
                               QStringLiteral("DejaVu Sans"), QStringLiteral("Arial")};
        };
        printers.ScreenFonts = [] {
            return QStringList{QStringLiteral("Arial"), QStringLiteral("DejaVu Sans"),
                               QStringLiteral("Tahoma"), QStringLiteral("System")};
        };
        printers.Setup = [](QWidget*, QPageLayout& layout) {
            layout.setPageSize(QPageSize(QPageSize::A5));
            layout.setOrientation(QPageLayout::Landscape);
            return true;
        };
        printers.Device = [this](const QPageLayout& layout, const QString&) -> QPagedPaintDevice& {
            const QString folder = PaperIn ? Folder.path() : QStringLiteral("/no/such/folder");
            writer_ = std::make_unique<QPdfWriter>(folder + QLatin1Char('/') + chosen_);
            writer_->setPageLayout(layout);
            return *writer_;
        };
        return printers;
    }

    std::unique_ptr<SettingsFile> settings_;
    std::unique_ptr<QPdfWriter> writer_;
    QString chosen_;
};

TEST_F(PrintTest, OffersThePrintersInOrderAndAPdfFileWithTheDefaultChosen) {
    OpenDialog();
    auto* list = In<QComboBox>("cmbPrinterList");
    ASSERT_EQ(3, list->count());
    EXPECT_EQ("Office", list->itemText(0).toStdString());
    EXPECT_EQ("Workshop", list->itemText(1).toStdString());
    EXPECT_EQ("PDF File", list->itemText(2).toStdString());
    EXPECT_EQ(1, list->currentIndex());
}

TEST_F(PrintTest, WithoutAPrinterThePdfFileIsChosen) {
    Printers.clear();
    OpenDialog();
    EXPECT_EQ("PDF File", In<QComboBox>("cmbPrinterList")->currentText().toStdString());
}

TEST_F(PrintTest, OffersTheFontsOfPrinterAndScreenAndChoosesByTheRule) {
    OpenDialog();
    auto* list = In<QComboBox>("cmbFontList");
    ASSERT_EQ(3, list->count());
    EXPECT_EQ("Tahoma", list->itemText(0).toStdString());
    EXPECT_EQ("DejaVu Sans", list->itemText(1).toStdString());
    EXPECT_EQ("Arial", list->itemText(2).toStdString());
    EXPECT_EQ("Tahoma", list->currentText().toStdString());
}

TEST_F(PrintTest, ListsTheFontsInTheFileThatTheEnvironmentNames) {
    qputenv("BRINDLE_FONT_LOG", QByteArray::fromStdString(PathOf("fonts.txt")));
    OpenDialog();
    qunsetenv("BRINDLE_FONT_LOG");
    const std::string listing = Content("fonts.txt");
    EXPECT_EQ(0U, listing.find("Printer: Workshop\r\nCurrent Font: >Tahoma< \r\n")) << listing;
    EXPECT_NE(std::string::npos, listing.find(" Number of Matches: 3\r\n")) << listing;
}

TEST_F(PrintTest, OffersOnlyTheGroupsOfTheLogic) {
    OpenDialog(6);
    EXPECT_TRUE(In<QCheckBox>("chkPrintGroup(6)")->isVisible());
    EXPECT_FALSE(In<QCheckBox>("chkPrintGroup(7)")->isVisible());
    EXPECT_FALSE(In<QCheckBox>("chkPrintGroup(8)")->isVisible());
}

TEST_F(PrintTest, SelectedGroupsWithNoneTickedPrintsNothingAndSaysSo) {
    OpenDialog();
    Press("optPrintSelected");
    Dialogs.PressButton("OK");
    Press("cmdPrint");
    ASSERT_EQ(1U, Dialogs.Messages.size());
    EXPECT_EQ("No groups were selected to print.", Dialogs.Messages[0].Text);
    EXPECT_TRUE(Dialogs.Messages[0].Exclamation);
    EXPECT_TRUE(Steps.empty());
}

TEST_F(PrintTest, TickingAGroupSelectsItsOption) {
    OpenDialog();
    Press("chkPrintGroup(3)");
    EXPECT_TRUE(In<QRadioButton>("optPrintSelected")->isChecked());
}

TEST_F(PrintTest, PrintToFileHoldsEveryUnitOfTheTickedGroups) {
    OpenDialog();
    Press("chkPrintGroup(2)");
    Press("chkPrintToFile");
    Dialogs.ChooseFile(PathOf("report"));
    Dialogs.PressButton("OK");
    Press("cmdPrint");
    ASSERT_EQ(1U, Dialogs.FileDialogs.size());
    EXPECT_EQ("Print Settings to a File", Dialogs.FileDialogs[0].Title);
    EXPECT_EQ("pilot_supervision.txt", Dialogs.FileDialogs[0].SelectedName);
    ASSERT_EQ(1U, Dialogs.Messages.size());
    EXPECT_EQ("The Programmable Logic configuration was saved to the text file: " + PathOf("report.txt"),
              Dialogs.Messages[0].Text);
    const std::string text = Content("report.txt");
    EXPECT_EQ(0U, text.find(Heading("G2 - T1")));
    EXPECT_NE(std::string::npos, text.find(Heading("G2 - S2")));
    EXPECT_EQ(std::string::npos, text.find(Heading("G1 - T1")));
}

TEST_F(PrintTest, ACancelledSaveDialogWritesNothing) {
    OpenDialog();
    Press("chkPrintToFile");
    Dialogs.CancelFile();
    Press("cmdPrint");
    EXPECT_TRUE(Dialogs.Messages.empty());
    EXPECT_FALSE(QFile::exists(QString::fromStdString(PathOf("pilot_supervision.txt"))));
}

TEST_F(PrintTest, TheDisplayedUnitIsPrintedAsTextOnTheChosenPrinter) {
    OpenDialog();
    TheEditor->mnuGroup_Click(2);
    TheEditor->mnuTimerLatch_Click(8);
    In<QComboBox>("cmbPrinterList")->setCurrentText(QStringLiteral("Office"));
    Press("cmdPrint");
    const auto pages = Pages("Office");
    ASSERT_EQ(1U, pages.size());
    EXPECT_EQ(0U, pages[0].Text.find(Heading("G2 - S1"))) << pages[0].Text;
    EXPECT_NEAR(215.9, pages[0].Size.width(), 0.5); // its own paper: Letter
    EXPECT_GE(pages[0].LeastMargin(), 14.5);
    EXPECT_EQ("1 of 1 units printed.", In<QLabel>("lblProgress")->text().toStdString());
}

TEST_F(PrintTest, ARunShowsEachUnitAndReturnsToTheOneShownBefore) {
    OpenDialog();
    TheEditor->mnuGroup_Click(5);
    TheEditor->mnuTimerLatch_Click(9);
    Press("chkPrintGroup(4)");
    Press("cmdPrint");
    EXPECT_EQ((std::vector<std::string>{"printing", "4.1", "4.2", "4.3", "4.4", "4.5", "4.6", "4.7", "4.8",
                                        "4.9", "4.10", "printed"}),
              Steps);
    EXPECT_EQ(5, TheEditor->Shown().Group);
    EXPECT_EQ(9, TheEditor->Shown().Unit);
}

TEST_F(PrintTest, PicturesOfAllUnitsGoIntoAPdfFileInTheChosenOrientation) {
    OpenDialog();
    UsePdf();
    Press("optPrintAll");
    Press("optPrintGraphic");
    Press("optPrintLandscape");
    Dialogs.ChooseFile(PathOf("pictures"));
    Press("cmdPrint");
    const auto pages = Pages("pictures.pdf");
    ASSERT_EQ(80U, pages.size());
    EXPECT_NEAR(297, pages[0].Size.width(), 0.5);
    EXPECT_EQ(0U, pages[0].Text.find(TheEditor->Title()));
    EXPECT_NE(std::string::npos, pages[0].Text.find("CHANNEL RECEIVE"));
    EXPECT_NE(std::string::npos, pages[9].Text.find("Connect Signal to:  G1 - S2:11")) << pages[9].Text;
    EXPECT_NE(std::string::npos, pages[79].Text.find("Connect Signal to:  G8 - S2:11"));
    for (const PdfPage& page : pages) {
        EXPECT_GE(page.LeastMargin(), 14.5);
    }
}

TEST_F(PrintTest, SetupChangesPaperAndOrientation) {
    OpenDialog();
    UsePdf();
    Press("cmdSetup");
    EXPECT_TRUE(In<QRadioButton>("optPrintLandscape")->isChecked());
    Dialogs.ChooseFile(PathOf("x.pdf"));
    Press("cmdPrint");
    EXPECT_NEAR(210, Pages("x.pdf").at(0).Size.width(), 0.5);
    EXPECT_NEAR(148, Pages("x.pdf").at(0).Size.height(), 0.5);
}

TEST_F(PrintTest, ACancelStopsBetweenUnitsAndKeepsThePagesPrinted) {
    OpenDialog();
    UsePdf();
    Press("optPrintAll");
    Press("optPrintGraphic");
    Dialogs.ChooseFile(PathOf("x.pdf"));
    WhenShown = [this] {
        if (Steps.back() == "1.3") {
            EXPECT_TRUE(In<QProgressBar>("prgUnits")->isVisible());
            EXPECT_FALSE(In<QPushButton>("cmdPrint")->isEnabled());
            EXPECT_EQ("Cancel", In<QPushButton>("cmdCancel")->text().toStdString());
            QTest::keyClick(Dialog, Qt::Key_Escape);
            EXPECT_TRUE(Dialog->isVisible());
        }
    };
    Press("cmdPrint");
    EXPECT_EQ(3U, Pages("x.pdf").size());
    EXPECT_EQ("3 of 80 units printed.", In<QLabel>("lblProgress")->text().toStdString());
    EXPECT_TRUE(In<QPushButton>("cmdPrint")->isEnabled());
}

TEST_F(PrintTest, APrinterThatFailsIsToldAndTheDialogStaysOpen) {
    OpenDialog();
    PaperIn = false;
    Dialogs.PressButton("OK");
    Press("cmdPrint");
    ASSERT_EQ(1U, Dialogs.Messages.size());
    EXPECT_EQ("There was an error trying to Print the Form.", Dialogs.Messages[0].Text);
    EXPECT_EQ("Print Error", Dialogs.Messages[0].Title);
    EXPECT_TRUE(Dialog->isVisible());
}

TEST_F(PrintTest, APdfFileThatCannotBeWrittenIsAFileError) {
    OpenDialog();
    UsePdf();
    ASSERT_TRUE(QDir(Folder.path()).mkdir(QStringLiteral("x.pdf")));
    Dialogs.ChooseFile(PathOf("x.pdf") + "/y.pdf");
    WhenShown = [this] {
        QDir::setCurrent(Folder.path()); // Windows removes no folder that is current
        QDir(Folder.path()).rmdir(QStringLiteral("x.pdf"));
    };
    Dialogs.PressButton("OK");
    Press("cmdPrint");
    ASSERT_EQ(1U, Dialogs.Messages.size());
    EXPECT_EQ("Disk Error", Dialogs.Messages[0].Title);
    EXPECT_EQ("That path doesn't exist.", Dialogs.Messages[0].Text);
}

TEST_F(PrintTest, EnterPrintsAndEscapeCloses) {
    OpenDialog();
    QTest::keyClick(In<QCheckBox>("chkPrintGroup(1)"), Qt::Key_Return);
    EXPECT_EQ(1U, Pages("Workshop").size());
    QTest::keyClick(Dialog, Qt::Key_Escape);
    EXPECT_FALSE(Dialog->isVisible());
}

TEST_F(PrintTest, WhatHasNoEffectCannotBeChosen) {
    OpenDialog();
    Press("optPrintGraphic");
    EXPECT_FALSE(In<QComboBox>("cmbFontList")->isEnabled());
    EXPECT_TRUE(In<QComboBox>("cmbPrinterList")->isEnabled());
    Press("chkPrintToFile");
    for (const char* name : {"cmbPrinterList", "cmdSetup", "fraDataFormat", "fraPrinterOrientation"}) {
        EXPECT_FALSE(In<QWidget>(name)->isEnabled()) << name;
    }
    EXPECT_TRUE(In<QWidget>("fraGroup")->isEnabled());
}

TEST_F(PrintTest, KeepsItsPlaceInTheSettingsFile) {
    OpenDialog();
    Dialog->move(60, 40);
    Dialog->reject();
    const std::string settings = Content(SettingsFileName);
    EXPECT_NE(std::string::npos, settings.find("PrintWinTop=600\r\nPrintWinLeft=900\r\n")) << settings;
    Dialog->OpenAtPlace();
    const QSize screen = QApplication::primaryScreen()->size(); // may be too small to leave it there
    EXPECT_EQ(60 + Dialog->width() <= screen.width() ? 60 : 0, Dialog->x());
    EXPECT_EQ(40 + Dialog->height() <= screen.height() ? 40 : 0, Dialog->y());
}

/// A scale is fixed when a program starts.
TEST(PrintAtTwiceTheScale, EverythingHolds) {
    QProcess tests;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2"));
    tests.setProcessEnvironment(environment);
    tests.setProcessChannelMode(QProcess::MergedChannels);
    tests.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--gtest_filter=PrintTest.*:TextPage.*:PicturePage.*")});
    ASSERT_TRUE(tests.waitForFinished(-1));
    EXPECT_EQ(0, tests.exitCode()) << tests.readAll().toStdString();
}

} // namespace
} // namespace brindle
