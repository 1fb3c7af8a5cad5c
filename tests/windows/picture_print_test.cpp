#include "report/form_print_brindle.h"
#include "report/picture_page_painter.h"
#include "support/main_window_test_window.h"
#include "support/pdf_pages_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QFontDatabase>
#include <QImage>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QtEndian>

#include <string>
#include <vector>

/// The print dialog that the menu opens, and the picture of the main window that it prints.
namespace brindle {
namespace {

constexpr const char* Example = BRINDLE_EXAMPLES "/pilot_supervision.pl";

class PicturePrint : public MainWindowTest {
  protected:
    formPrintBrindle* OpenPrint() {
        Choose("mnuPrint");
        auto* dialog = Window->findChild<formPrintBrindle*>();
        dialog->findChild<QComboBox*>(QStringLiteral("cmbPrinterList"))
            ->setCurrentText(QStringLiteral("PDF File"));
        return dialog;
    }

    static void Press(const formPrintBrindle& dialog, const char* name) {
        dialog.findChild<QAbstractButton*>(QString::fromLatin1(name))->click();
    }

    /// The pages of what the option `scope` prints, in the format of the option `format`.
    std::vector<PdfPage> Printed(const char* scope, const char* format) {
        formPrintBrindle* dialog = OpenPrint();
        Press(*dialog, scope);
        Press(*dialog, format);
        const std::string file = "printed" + std::to_string(++files_) + ".pdf";
        Dialogs.ChooseFile(PathOf(file));
        Press(*dialog, "cmdPrint");
        dialog->reject();
        return PdfPages(QByteArray::fromStdString(Content(file)));
    }

    /// The picture as pixels.
    QImage Drawn() {
        const WindowPicture picture = Window->Picture();
        QImage image(picture.Size, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        picture.Draw(painter);
        return image;
    }

    void MakeSmall() {
        Window->setMinimumSize(1, 1);
        Window->resize(320, 240);
        QCoreApplication::processEvents();
        ASSERT_TRUE(Find<QScrollArea>("picDiagramView")->verticalScrollBar()->isVisible());
        ASSERT_TRUE(Find<QScrollArea>("picDiagramView")->horizontalScrollBar()->isVisible());
    }

  private:
    int files_ = 0;
};

double ShareOfDark(const QImage& image) {
    int dark = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            dark += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
        }
    }
    return static_cast<double>(dark) / (image.width() * image.height());
}

TEST_F(PicturePrint, AnUnmodifiedLogicStaysUnmodified) {
    Start(Example);
    EXPECT_EQ(80U, Printed("optPrintAll", "optPrintGraphic").size());
    EXPECT_FALSE(TheEditor->Config().Modified);
    EXPECT_FALSE(Printed("optPrintAll", "optPrintText").empty());
    EXPECT_FALSE(TheEditor->Config().Modified);
    TheEditor->EditConfig().Modified = true;
    Dialogs.CancelFile(); // before printing, Save As
    Printed("optPrintCurrentForm", "optPrintText");
    EXPECT_TRUE(TheEditor->Config().Modified);
}

TEST_F(PicturePrint, ASmallWindowPrintsAllThatALargeOneDoes) {
    Start(Example);
    const std::string large = Printed("optPrintCurrentForm", "optPrintGraphic").at(0).Text;
    const QImage drawnLarge = Drawn();
    MakeSmall();
    EXPECT_EQ(drawnLarge, Drawn());
    const auto pages = Printed("optPrintCurrentForm", "optPrintGraphic");
    ASSERT_EQ(1U, pages.size());
    for (int input = 5; input <= 12; ++input) {
        const std::string text = TextOf(("txtPlo(" + std::to_string(input) + ")").c_str());
        EXPECT_NE(std::string::npos, pages[0].Text.find(text)) << text;
    }
    for (const char* text : {"Group:", "Timer:", "T1OR", "Pick Up", "Drop Out", "Map Relay", "18"}) {
        EXPECT_EQ(large.find(text) == std::string::npos, pages[0].Text.find(text) == std::string::npos)
            << text;
    }
    EXPECT_GE(pages[0].LeastMargin(), 14.5);
}

TEST_F(PicturePrint, ItIsInLightColoursOnADarkDesktop) {
    Start(Example);
    const QImage onLight = Drawn();
    EXPECT_LT(ShareOfDark(onLight), 0.1);
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(40, 40, 40), QColor(24, 24, 24)));
    QCoreApplication::processEvents();
    EXPECT_GT(ShareOfDark(Window->grab().toImage()), 0.3) << "the window itself is dark";
    const QImage onDark = Drawn();
    EXPECT_LT(ShareOfDark(onDark), 0.1);
    EXPECT_GT(ShareOfDark(Window->grab().toImage()), 0.3) << "and stays so";
    QApplication::setPalette(before);
}

TEST_F(PicturePrint, TheWindowIsAsItWasBefore) {
    Start(Example);
    MakeSmall();
    const QImage before = Window->grab().toImage();
    Drawn();
    QCoreApplication::processEvents();
    EXPECT_EQ(before, Window->grab().toImage());
}

/// A font of letters, and the same as a font of pictures: by the first digit of its PANOSE classification.
int AddFont(const QString& family, bool pictures) {
    constexpr int panose = 32;
    QFile file(QStringLiteral(BRINDLE_FONTS "/DejaVuSansMono.ttf"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray font = file.readAll();
    const auto wide = [](const QString& text) {
        QByteArray bytes;
        for (const QChar c : text) {
            bytes += static_cast<char>(c.unicode() >> 8U);
            bytes += static_cast<char>(c.unicode() & 0xFFU);
        }
        return bytes;
    };
    const QString own = QStringLiteral("DejaVu Sans Mono");
    EXPECT_EQ(own.size(), family.size());
    font.replace(wide(own), wide(family));
    font.replace(own.toLatin1(), family.toLatin1());
    const qsizetype record = font.indexOf("OS/2");
    const auto offset = qFromBigEndian<quint32>(font.constData() + record + 8);
    if (pictures) {
        font[static_cast<qsizetype>(offset) + panose] = 5;
    }
    return QFontDatabase::addApplicationFontFromData(font);
}

TEST_F(PicturePrint, FontsOfSymbolsAreNotOffered) {
    const int letters = AddFont(QStringLiteral("Letters For Test"), false);
    const int pictures = AddFont(QStringLiteral("Picture For Test"), true);
    Start(Example);
    const auto* fonts = OpenPrint()->findChild<QComboBox*>(QStringLiteral("cmbFontList"));
    EXPECT_GE(fonts->findText(QStringLiteral("Letters For Test")), 0);
    EXPECT_LT(fonts->findText(QStringLiteral("Picture For Test")), 0);
    QFontDatabase::removeApplicationFont(letters);
    QFontDatabase::removeApplicationFont(pictures);
}

} // namespace
} // namespace brindle
