#include "editor/gate_rows.h"
#include "report/logic_report.h"
#include "report/picture_page_painter.h"
#include "report/text_page_painter.h"
#include "support/pdf_pages_window.h"

#include <QBuffer>
#include <QFile>
#include <QLabel>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace brindle {
namespace {

const QMarginsF Margins(20, 15, 15, 15);
constexpr double Rounding = 0.5; // millimetres: pages and margins are whole points

QPageLayout Layout(QPageLayout::Orientation orientation = QPageLayout::Portrait,
                   QPageSize::PageSizeId paper = QPageSize::A4) {
    return {QPageSize(paper), orientation, Margins, QPageLayout::Millimeter};
}

std::vector<PdfPage> Painted(const QPageLayout& layout,
                             const std::function<void(QPagedPaintDevice& device, QPainter& painter)>& paint) {
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&file);
        writer.setPageLayout(layout);
        QPainter painter(&writer);
        paint(writer, painter);
    }
    return PdfPages(file.data());
}

std::vector<PdfPage> TextPages(const QPageLayout& layout, const std::vector<std::vector<std::string>>& units,
                               const char* family = "DejaVu Sans") {
    return Painted(layout, [&](QPagedPaintDevice& device, QPainter& painter) {
        TextPagePainter pages(device, painter, QString::fromLatin1(family));
        for (const auto& unit : units) {
            EXPECT_TRUE(pages.PrintUnit(unit));
        }
    });
}

void ExpectInsideMargins(const PdfPage& page) {
    EXPECT_GE(page.Ink.left(), Margins.left() - Rounding);
    EXPECT_GE(page.Ink.top(), Margins.top() - Rounding);
    EXPECT_LE(page.Ink.right(), page.Size.width() - Margins.right() + Rounding);
    EXPECT_LE(page.Ink.bottom(), page.Size.height() - Margins.bottom() + Rounding);
}

std::vector<std::string> Report(float version, int unit, const std::string& file = "/home/me/x.pl") {
    LogicConfig config;
    MakeNewVdr812(config, version);
    const UnitReportRequest request{1, unit, file, "today", "now", false, GateRowsShown(version)};
    return BuildUnitReport(config, BuildVdr812Catalogue(version), request);
}

/// The lines of a report that are not empty, as a page's text has them.
std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        if (!line.empty()) {
            text += (text.empty() ? "" : "\n") + line;
        }
    }
    return text;
}

TEST(TextPage, HoldsTheLinesOfAUnitAsText) {
    const auto lines = Report(Version100, 1);
    const auto pages = TextPages(Layout(), {lines});
    ASSERT_EQ(1U, pages.size());
    EXPECT_EQ(Joined(lines), pages[0].Text);
    EXPECT_EQ(0, pages[0].Images);
    EXPECT_NEAR(210, pages[0].Size.width(), Rounding);
    EXPECT_NEAR(297, pages[0].Size.height(), Rounding);
    ExpectInsideMargins(pages[0]);
    EXPECT_NEAR(Margins.left(), pages[0].Ink.left(), 1);
}

TEST(TextPage, TwoUnitsThatFitShareAPage) {
    const auto pages = TextPages(Layout(), {Report(Version230, 1), Report(Version230, 2)});
    ASSERT_EQ(1U, pages.size());
    EXPECT_EQ(Joined(Report(Version230, 1)) + "\n" + Joined(Report(Version230, 2)), pages[0].Text);
    ExpectInsideMargins(pages[0]);
}

TEST(TextPage, AUnitThatWouldBeSplitBeginsANewPage) {
    const auto pages = TextPages(Layout(), {Report(Version100, 1), Report(Version100, 2)});
    ASSERT_EQ(2U, pages.size());
    EXPECT_EQ(Joined(Report(Version100, 1)), pages[0].Text);
    EXPECT_EQ(Joined(Report(Version100, 2)), pages[1].Text);
}

TEST(TextPage, AUnitHigherThanThePageIsSplitBetweenItsBlocks) {
    const auto lines = Report(Version100, 1, "/x.pl"); // narrow enough for the page
    const auto pages = TextPages(Layout(QPageLayout::Landscape, QPageSize::A6), {lines});
    ASSERT_GT(pages.size(), 1U);
    std::string all;
    for (const PdfPage& page : pages) {
        ExpectInsideMargins(page);
        all += (all.empty() ? "" : "\n") + page.Text;
        // Each page begins with a heading and no page ends in one.
        EXPECT_TRUE(page.Text.rfind("Programmable", 0) == 0 || page.Text.rfind("T1 ", 0) == 0) << page.Text;
        EXPECT_NE('-', page.Text.back()) << page.Text;
    }
    EXPECT_EQ(Joined(lines), all);
}

TEST(TextPage, ALongFileNameIsContinuedBelowWithinTheMargins) {
    const std::string file = "/" + std::string(300, 'x') + ".pl";
    const auto pages = TextPages(Layout(), {Report(Version230, 1, file)});
    ASSERT_EQ(1U, pages.size());
    ExpectInsideMargins(pages[0]);
    std::string text = pages[0].Text.substr(0, pages[0].Text.find("---"));
    text.erase(std::remove(text.begin(), text.end(), '\n'), text.end());
    EXPECT_NE(std::string::npos, text.find(std::string(300, 'x'))) << text;
}

TEST(TextPage, TheRuleFitsTheWidthOfThePageInAWideFont) {
    const auto pages = TextPages(Layout(), {Report(Version230, 1)}, "DejaVu Sans Mono");
    ASSERT_EQ(1U, pages.size());
    ExpectInsideMargins(pages[0]);
    EXPECT_NE(std::string::npos, pages[0].Text.find("\n" + std::string(85, '-') + "\n"));
}

TEST(TextPage, AllUnitsOfALogicAreOnItsPagesInOrder) {
    std::vector<std::vector<std::string>> units;
    std::string wanted;
    for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
        units.push_back(Report(Version230, unit));
        wanted += (unit > 1 ? "\n" : "") + Joined(units.back());
    }
    std::string all;
    const auto pages = TextPages(Layout(), units);
    EXPECT_EQ(5U, pages.size());
    for (const PdfPage& page : pages) {
        all += (all.empty() ? "" : "\n") + page.Text;
    }
    EXPECT_EQ(wanted, all);
}

std::vector<PdfPage> PicturePages(const QPageLayout& layout, QSize size, int count,
                                  const QString& caption = QStringLiteral("Caption of the picture")) {
    QLabel window(QStringLiteral("text in the window"));
    window.setFrameStyle(QFrame::Box);
    window.resize(size);
    const WindowPicture picture{size, [&window](QPainter& painter) { window.render(&painter); }};
    return Painted(layout, [&](QPagedPaintDevice& device, QPainter& painter) {
        PicturePagePainter pages(device, painter);
        for (int page = 0; page < count; ++page) {
            EXPECT_TRUE(pages.PrintPicture(caption, picture));
        }
    });
}

TEST(PicturePage, ShowsTheWindowsTextAsTextBelowTheCaption) {
    const auto pages = PicturePages(Layout(), {400, 300}, 1);
    ASSERT_EQ(1U, pages.size());
    EXPECT_EQ("Caption of the picture\ntext in the window", pages[0].Text);
    EXPECT_EQ(0, pages[0].Images);
}

TEST(PicturePage, AWideWindowFillsTheWidthInsideTheMargins) {
    const auto pages = PicturePages(Layout(), {1000, 300}, 1);
    ExpectInsideMargins(pages.at(0));
    EXPECT_NEAR(Margins.left(), pages[0].Ink.left(), 1);
    EXPECT_NEAR(210 - Margins.right(), pages[0].Ink.right(), 1);
    EXPECT_LT(pages[0].Ink.height(), 100);
}

TEST(PicturePage, AHighWindowFillsTheHeightInsideTheMargins) {
    const auto pages = PicturePages(Layout(QPageLayout::Landscape), {300, 1000}, 1);
    ExpectInsideMargins(pages.at(0));
    EXPECT_NEAR(297, pages[0].Size.width(), Rounding);
    EXPECT_NEAR(210 - Margins.bottom(), pages[0].Ink.bottom(), 1);
}

TEST(PicturePage, ALongCaptionPushesThePictureDown) {
    const QString caption(400, QLatin1Char('x'));
    const auto pages = PicturePages(Layout(QPageLayout::Landscape), {300, 1000}, 1, caption);
    ExpectInsideMargins(pages.at(0));
    EXPECT_NEAR(210 - Margins.bottom(), pages[0].Ink.bottom(), 1);
}

TEST(PicturePage, APrinterGetsItAsPixelsAtTheSamePlace) {
    const QTemporaryDir folder;
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder.filePath(QStringLiteral("printed")));
    printer.setPageLayout(Layout());
    QPainter painter(&printer);
    PicturePagePainter pages(printer, painter);
    const auto draw = [](QPainter& onto) { onto.fillRect(0, 0, 1000, 300, Qt::red); };
    EXPECT_TRUE(pages.PrintPicture(QStringLiteral("Caption"), {{1000, 300}, draw}));
    painter.end();
    QFile file(printer.outputFileName());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const auto printed = PdfPages(file.readAll());
    ASSERT_EQ(1U, printed.size());
    EXPECT_EQ("Caption", printed[0].Text);
    EXPECT_EQ(1, printed[0].Images);
    ExpectInsideMargins(printed[0]);
    EXPECT_NEAR(Margins.left(), printed[0].Ink.left(), 1);
    EXPECT_NEAR(210 - Margins.right(), printed[0].Ink.right(), 1);
}

TEST(PicturePage, EachPictureHasAPageOfItsOwn) {
    const auto pages = PicturePages(Layout(), {400, 300}, 3);
    ASSERT_EQ(3U, pages.size());
    EXPECT_EQ(pages[0].Text, pages[2].Text);
}

} // namespace
} // namespace brindle
