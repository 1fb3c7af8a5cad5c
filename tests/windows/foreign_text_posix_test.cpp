#include "editor/form_category_brindle.h"
#include "editor/menu_tree.h"
#include "platform/common_dialogs.h"
#include "platform/foreign_text.h"
#include "platform/input_dialog.h"
#include "settings/form_vdr810_options_brindle.h"
#include "support/main_window_test_window.h"
#include "support/opened_watch.h"
#include "support/vdr810_scheme.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTextDocumentFragment>
#include <QToolTip>

namespace brindle {
namespace {

constexpr const char* Bait = "bait.png";
constexpr const char* Image = "<img src=";

/// Markup in every text that a file, its path or the settings can bring.
class ForeignText : public MainWindowTest {
  protected:
    void SetUp() override {
        WriteFile(Bait, "no picture");
        ASSERT_TRUE(QDir(Folder.path()).mkpath(QString::fromStdString(FolderName)));
        ASSERT_FALSE(OpenedWatch(PathOf(Bait)).Opened()) << "the watch does not work here";
    }

    /// The lists of an option file whose every text is markup, under the number 12.
    [[nodiscard]] LogicConfig MarkedScheme() const {
        LogicConfig config = SchemeLists(2.3, 12);
        config.Vdr810.Identity = Marked("identity");
        for (Vdr810Category& category : config.Lists.Categories) {
            if (!IsEnd(category)) {
                category.Caption = category.Name = Marked("R&D " + category.Name);
            }
        }
        for (Vdr810Label& label : config.Lists.Labels) {
            if (label.Name != "FALSE") {
                label.Caption = Marked("caption of " + label.Name);
                label.Name = Marked(label.Name);
            }
        }
        return config;
    }

    [[nodiscard]] std::string Marked(const std::string& text) const {
        return "<b>" + text + "</b> " + Markup;
    }

    /// The window with the marked logic open, marked recent files, home directory and web page.
    void StartMarked() {
        Start();
        TheEditor->ChooseHomeDirectory(PathOf(FolderName));
        Close();
        WriteFile("PLC00230_OPT00012.810", EncodeOptionFile(MarkedScheme()));
        LogicConfig logic = MarkedScheme();
        logic.Group(1).Unit(1).Inputs[4] = 256 - 20;
        logic.Group(1).Unit(1).Inputs[5] = 40;
        WriteFile(FileName, EncodeVdr810(logic));
        WriteFile("Benchkit.ini",
                  Content("Benchkit.ini") + "[Brindle Web]\r\nPage1Caption=&Page " + Markup + "\r\n");
        Start(PathOf(FileName));
        ASSERT_EQ(TheEditor->Config().FilePath, PathOf(FileName));
    }

    void OpenEveryWindow() {
        for (int category = 0; category < TheEditor->Choosers().Count(); ++category) {
            Choose(ElementName("mnuLogicCategoriesCategory", category).c_str());
        }
        for (const char* item :
             {"mnuGroupEditingFunctions", "mnuPrint", "mnuHelpHelp", "mnuAbout", "mnuHomeDir"}) {
            Choose(item);
            QApplication::processEvents();
        }
    }

    const std::string Markup = Image + PathOf(Bait) + ">";
    const std::string Sheet = "<link type=\"text/css\" href=\"" + PathOf(Bait) + "\">";
    const std::string FolderName = "home " + Markup;
    const std::string FileName = FolderName + "/a & b<img src=bait.png>.c10";
};

/// A tool tip is none that Qt takes for markup, but for ours, which says the text itself.
void ExpectPlainTip(const QString& tip, int& escaped) {
    if (Qt::mightBeRichText(tip)) {
        const QString told = QTextDocumentFragment::fromHtml(tip).toPlainText();
        EXPECT_EQ(tip, ToolTipText(told)) << tip.toStdString();
        EXPECT_TRUE(told.contains(QLatin1String(Image))) << told.toStdString();
        ++escaped;
    }
}

void ExpectPlainLabel(const QLabel& label) {
    const bool foreign = label.text().contains(QLatin1Char('<'));
    EXPECT_TRUE(!foreign || label.textFormat() == Qt::PlainText)
        << label.objectName().toStdString() << ": " << label.text().toStdString();
}

void ExpectPlainAccessibleTexts(QWidget& widget) {
    const QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&widget);
    for (const QAccessible::Text text : {QAccessible::Name, QAccessible::Description, QAccessible::Help}) {
        const QString told = accessible == nullptr ? QString() : accessible->text(text);
        EXPECT_FALSE(told.contains(QLatin1String("white-space")) || told.contains(QLatin1String("&lt;")))
            << widget.objectName().toStdString() << ": " << told.toStdString();
    }
}

TEST_F(ForeignText, IsNoMarkupInAnyControl) {
    StartMarked();
    OpenEveryWindow();
    const OpenedWatch bait(PathOf(Bait));
    int escapedOfWidgets = 0;
    int escapedOfItems = 0;
    for (QWidget* widget : QApplication::allWidgets()) {
        ExpectPlainTip(widget->toolTip(), escapedOfWidgets);
        ExpectPlainAccessibleTexts(*widget);
        EXPECT_FALSE(Qt::mightBeRichText(widget->whatsThis()));
        if (const auto* label = qobject_cast<QLabel*>(widget)) {
            ExpectPlainLabel(*label);
        }
        if (!widget->toolTip().isEmpty()) {
            QToolTip::showText(QPoint(10, 10), widget->toolTip());
            QApplication::processEvents();
        }
    }
    for (const QAction* item : Window->findChildren<QAction*>()) {
        ExpectPlainTip(item->toolTip(), escapedOfItems);
    }
    QToolTip::hideText();
    EXPECT_GE(escapedOfWidgets, 4) << "two inputs, the identity, the home directory";
    EXPECT_GE(escapedOfItems, 5) << "three categories, a recent file, a web page";
    EXPECT_FALSE(bait.Opened());
}

TEST_F(ForeignText, IsShownLetterByLetter) {
    StartMarked();
    OpenEveryWindow();
    const std::string name = Marked("Z1P");
    EXPECT_EQ(TextOf("txtPlo(5)"), name);
    EXPECT_EQ(
        QTextDocumentFragment::fromHtml(Find<QLineEdit>("txtPlo(5)")->toolTip()).toPlainText().toStdString(),
        name);
    EXPECT_EQ(Find<QLineEdit>("txtPlo(5)")->accessibleDescription().toStdString(), name);
    EXPECT_EQ(Find<QAction>("mnuLogicCategoriesCategory(1)")->text().toStdString(),
              Marked("R&&D Zone 1")); // the menu shows "&&" as "&"
    auto* chooser = Window->findChild<formCategoryBrindle*>(QStringLiteral("formCategoryBrindle(1)"));
    ASSERT_NE(chooser, nullptr);
    EXPECT_EQ(chooser->windowTitle().toStdString(), Marked("R&D Zone 1"));
    const auto* button = chooser->findChild<QAbstractButton*>(QStringLiteral("cmdSelectCategory(0)"));
    EXPECT_EQ(button->text().toStdString(), Marked("caption of Z1P"));
    EXPECT_EQ(Find<QLineEdit>("txtHomeDir")->text().toStdString(), PathOf(FolderName));
    EXPECT_NE(Window->windowTitle().toStdString().find(PathOf(FileName)), std::string::npos);
    EXPECT_TRUE(Find<QAction>("mnuFileRecentFiles(0)")
                    ->text()
                    .endsWith(QStringLiteral("a && b<img src=bait.png>.c10")));
}

TEST_F(ForeignText, OpensNoFileFromAMessageBox) {
    const OpenedWatch bait(PathOf(Bait));
    Dialogs.PressButton("OK");
    ShowQtMessageBox(
        nullptr, {Sheet + Markup + "\r\nnext line", MessageIcon::Exclamation, MessageButtons::Ok, Markup});
    ASSERT_EQ(Dialogs.Messages.size(), 1U);
    EXPECT_EQ(Dialogs.Messages[0].Text, Sheet + Markup + "\nnext line");
    EXPECT_TRUE(Dialogs.Messages[0].Plain);
    EXPECT_FALSE(bait.Opened());
}

TEST_F(ForeignText, OpensNoFileFromAPromptWhichShowsItsAmpersand) {
    const OpenedWatch bait(PathOf(Bait));
    const std::string prompt = "Enter the folder name to create in /R&D/" + Sheet + Markup + ".";
    Dialogs.Drive([&prompt](QDialog& dialog) {
        auto* label = dialog.findChild<QLabel*>();
        EXPECT_EQ(label->text().toStdString(), prompt);
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        QLabel asItStands(&dialog); // without a buddy, "&" is a letter
        asItStands.setTextFormat(Qt::PlainText);
        asItStands.setWordWrap(true);
        asItStands.setAlignment(label->alignment());
        asItStands.setText(label->text());
        asItStands.resize(label->size());
        EXPECT_EQ(label->grab().toImage(), asItStands.grab().toImage());
        EXPECT_EQ(dialog.findChild<QLineEdit*>()->accessibleName().toStdString(), prompt);
        dialog.reject();
    });
    ShowQtInputBox(nullptr, {Markup, prompt, Markup});
    EXPECT_FALSE(bait.Opened());
}

TEST_F(ForeignText, OpensNoFileFromTheOptionsDialogThatFindsNone) {
    const OpenedWatch bait(PathOf(Bait));
    Vdr810Options none({[](int) { return -1.0; }, [](int, int) { return -1; }}, {});
    ASSERT_FALSE(none.PairChosen());
    const std::string folder = "/" + Sheet;
    formVdr810OptionsBrindle dialog(none, folder, nullptr);
    dialog.show();
    QApplication::processEvents();
    const auto* label = dialog.findChild<QLabel*>(QStringLiteral("lblNoOptionFile"));
    ASSERT_NE(label, nullptr);
    EXPECT_NE(label->text().toStdString().find(folder), std::string::npos);
    EXPECT_FALSE(bait.Opened());
}

TEST_F(ForeignText, WouldBeMarkupToQtItself) {
    const OpenedWatch bait(PathOf(Bait));
    QLabel label(QString::fromStdString(Sheet));
    label.show();
    QApplication::processEvents();
    EXPECT_TRUE(bait.Opened()) << "the other tests could not fail";
}

TEST(ToolTipText, SaysWhatItWasGiven) {
    for (const char* text : {"plain", "a < b && c > d", "<b>two\nlines</b>  with   blanks",
                             "File: <i>x</i>\nDate:", "&lt;b&gt; <p style=\"white-space:pre-wrap\">x</p>",
                             "<img src=/dev/zero>\ttab"}) {
        const QString tip = ToolTipText(QString::fromLatin1(text));
        const QString told =
            Qt::mightBeRichText(tip) ? QTextDocumentFragment::fromHtml(tip).toPlainText() : tip;
        EXPECT_EQ(told.toStdString(), text);
    }
}

} // namespace
} // namespace brindle
