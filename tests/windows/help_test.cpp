#include "settings/form_help.h"
#include "settings/guide_browser_widget.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace brindle {
namespace {

constexpr const char* Guide = "qrc:/docs/guide/README.md";

/// The texts of the links of a page and where they lead.
std::set<QString> LinksOf(const GuideBrowserWidget& browser) {
    std::set<QString> links;
    for (QTextBlock block = browser.document()->begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            const QString link = piece.fragment().charFormat().anchorHref();
            if (!link.isEmpty()) {
                links.insert(link);
            }
        }
    }
    return links;
}

std::set<QString> PicturesOf(const GuideBrowserWidget& browser) {
    std::set<QString> pictures;
    for (QTextBlock block = browser.document()->begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            if (piece.fragment().charFormat().isImageFormat()) {
                pictures.insert(piece.fragment().charFormat().toImageFormat().name());
            }
        }
    }
    return pictures;
}

/// The help window, open, with the guide.
class HelpWindow : public testing::Test {
  protected:
    HelpWindow() : Form([this](const std::string& address) { Opened.push_back(address); }, nullptr) {
        Form.Open();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Form));
        Browser = Find<GuideBrowserWidget>("txtHelp");
    }

    template<class Control>
    Control* Find(const char* name) {
        auto* found = Form.findChild<Control*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    void Follow(const QString& link) { emit Browser->anchorClicked(Browser->source().resolved(QUrl(link))); }

    void Search(const char* text) {
        auto* box = Find<QLineEdit>("txtSearch");
        box->setFocus();
        box->setText(QString::fromLatin1(text));
        QTest::keyClick(box, Qt::Key_Return);
    }

    /// The text of the line at the top of the page.
    [[nodiscard]] std::string TopLine() const {
        Browser->document()->size(); // a page is laid out as time allows; this waits for it
        return Browser->cursorForPosition(QPoint(20, 8)).block().text().toStdString();
    }

    std::string Found() { return Browser->textCursor().selectedText().toStdString(); }

    std::vector<std::string> Opened;
    formHelp Form;
    GuideBrowserWidget* Browser = nullptr;
};

TEST_F(HelpWindow, ShowsTheGuide) {
    EXPECT_EQ(Guide, Browser->source().toString().toStdString());
    EXPECT_EQ("User guide", TopLine());
    EXPECT_LE(5U, PicturesOf(*Browser).size());
}

TEST_F(HelpWindow, EveryPictureOfTheGuideIsThere) {
    for (const QString& name : PicturesOf(*Browser)) {
        const auto picture =
            Browser->document()
                ->resource(QTextDocument::ImageResource, Browser->source().resolved(QUrl(name)))
                .value<QImage>();
        EXPECT_LT(100, picture.width()) << name.toStdString();
        EXPECT_GE(620 * Browser->devicePixelRatioF(), picture.width()) << name.toStdString();
    }
}

TEST_F(HelpWindow, EveryLinkOfTheGuideLeadsSomewhere) {
    const std::set<QString> links = LinksOf(*Browser);
    EXPECT_LE(9U, links.size());
    for (const QString& link : links) {
        const QUrl target = QUrl(QString::fromLatin1(Guide)).resolved(QUrl(link));
        if (target.scheme() != QLatin1String("qrc")) {
            continue;
        }
        ASSERT_TRUE(GuideBrowserWidget::HasPage(target)) << link.toStdString();
        GuideBrowserWidget page;
        page.ShowPage(target);
        const QList<GuideHeading> headings = page.Headings();
        EXPECT_TRUE(!target.hasFragment() || std::any_of(headings.begin(), headings.end(),
                                                         [&](const GuideHeading& heading) {
                                                             return heading.Anchor == target.fragment();
                                                         }))
            << link.toStdString();
    }
}

TEST_F(HelpWindow, ALinkToAHeadingShowsIt) {
    Follow(QStringLiteral("#files"));
    EXPECT_EQ("Files", TopLine());
}

TEST_F(HelpWindow, BackLeadsToWhereOneWas) {
    auto* back = Find<QAbstractButton>("cmdBack");
    EXPECT_FALSE(back->isEnabled());
    Follow(QStringLiteral("#files"));
    Follow(QStringLiteral("../logic-json.md"));
    EXPECT_EQ("The JSON of a logic", TopLine());
    back->click();
    EXPECT_EQ("Files", TopLine());
    QTest::keyClick(Browser, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ("User guide", TopLine());
    EXPECT_FALSE(back->isEnabled());
}

TEST_F(HelpWindow, TheContentsLeadToEveryHeading) {
    auto* contents = Find<QListWidget>("lstContents");
    EXPECT_EQ(Browser->Headings().size(), contents->count());
    const auto items = contents->findItems(QStringLiteral("  Keyboard"), Qt::MatchExactly);
    ASSERT_EQ(1, items.size());
    QTest::mouseClick(contents->viewport(), Qt::LeftButton, {},
                      contents->visualItemRect(items.front()).center());
    EXPECT_EQ("Keyboard", TopLine());
    EXPECT_EQ(items.front(), contents->currentItem());
}

TEST_F(HelpWindow, TheContentsAreThoseOfThePage) {
    Follow(QStringLiteral("../logic-json.md"));
    EXPECT_EQ("The JSON of a logic", Find<QListWidget>("lstContents")->item(0)->text().toStdString());
}

TEST_F(HelpWindow, AnAddressOfTheWebGoesToTheBrowser) {
    Follow(QStringLiteral("https://brindle.example/?a=b&c=d"));
    EXPECT_EQ(std::vector<std::string>{"https://brindle.example/?a=b&c=d"}, Opened);
    EXPECT_EQ(Guide, Browser->source().toString().toStdString());
}

TEST_F(HelpWindow, ALinkToNothingChangesNothing) {
    Follow(QStringLiteral("missing.md"));
    EXPECT_EQ(Guide, Browser->source().toString().toStdString());
    EXPECT_TRUE(Opened.empty());
}

TEST_F(HelpWindow, SearchFindsOnePlaceAfterTheOtherAndBeginsAnew) {
    Search("brindle-cli");
    EXPECT_EQ("brindle-cli", Found());
    const int first = Browser->textCursor().position();
    QTest::keyClick(Browser, Qt::Key_F3);
    const int second = Browser->textCursor().position();
    EXPECT_LT(first, second);
    Find<QAbstractButton>("cmdFindPrevious")->click();
    EXPECT_EQ(first, Browser->textCursor().position());
    Find<QAbstractButton>("cmdFindPrevious")->click();
    EXPECT_LT(second, Browser->textCursor().position()) << "the last place comes before the first";
    Find<QAbstractButton>("cmdFindNext")->click();
    EXPECT_EQ(first, Browser->textCursor().position());
}

TEST_F(HelpWindow, WhatIsNotInTheGuideIsSaidUntilAnotherTextIsTyped) {
    Follow(QStringLiteral("#files"));
    Search("xyzzy");
    EXPECT_EQ("Files", TopLine()) << "the page stays where it is";
    EXPECT_EQ("Not found.", Find<QLabel>("lblFound")->text().toStdString());
    QTest::keyClick(Find<QLineEdit>("txtSearch"), Qt::Key_Backspace);
    EXPECT_EQ("", Find<QLabel>("lblFound")->text().toStdString());
}

TEST_F(HelpWindow, CtrlFGoesToTheSearch) {
    QTest::keyClick(Browser, Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(Find<QLineEdit>("txtSearch")->hasFocus());
}

TEST_F(HelpWindow, EscapeClosesItAndItsPageStays) {
    Follow(QStringLiteral("#files"));
    QTest::keyClick(Browser, Qt::Key_Escape);
    EXPECT_FALSE(Form.isVisible());
    Form.Open();
    EXPECT_EQ("Files", TopLine());
}

} // namespace
} // namespace brindle
