#include "editor/form_group_editing_functions.h"
#include "report/form_print_brindle.h"
#include "settings/form_about.h"
#include "settings/form_help.h"
#include "settings/form_home_dir.h"
#include "settings/guide_browser_widget.h"
#include "support/monkey_user_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>
#include <gtest/gtest.h>

#include <memory>

/// What a random user does in the dialogs of the main window; each is closed again.
namespace brindle {

namespace {

void Press(QWidget& form, const char* button) {
    form.findChild<QAbstractButton*>(QString::fromLatin1(button))->click();
}

void EditGroups(MonkeyUser& user) {
    user.Trigger(QStringLiteral("mnuGroupEditingFunctions"));
    auto* form = user.Window->findChild<formGroupEditingFunctions*>();
    ASSERT_TRUE(form->isVisible());
    for (auto* box : form->findChildren<QComboBox*>()) {
        if (user.Chance.OneIn(2)) {
            box->setCurrentIndex(user.Chance.Number(-1, box->count() - 1));
        }
    }
    static constexpr const char* buttons[] = {"cmdClearGroup", "cmdCopyGroup", "cmdCopyGroup", "cmdClose"};
    Press(*form, user.Chance.Pick(buttons));
    form->close();
}

void ReadAbout(MonkeyUser& user) {
    user.Trigger(QStringLiteral("mnuAbout"));
    auto* form = user.Window->findChild<formAbout*>();
    ASSERT_TRUE(form->isVisible());
    QTest::keyClick(form, Qt::Key_Shift);
    user.Chance.OneIn(2) ? Press(*form, "cmdClose") : QTest::keyClick(form, Qt::Key_Space);
    ASSERT_FALSE(form->isVisible());
}

void SearchGuide(MonkeyUser& user, formHelp& form) {
    static constexpr const char* texts[] = {"latch", "TRUE", "", "no such words", "(", "\\"};
    auto* box = form.findChild<QLineEdit*>(QStringLiteral("txtSearch"));
    box->setText(QString::fromLatin1(user.Chance.Pick(texts)));
    Press(form, user.Chance.OneIn(2) ? "cmdFindNext" : "cmdFindPrevious");
    QTest::keyClick(box, Qt::Key_F3, user.Chance.OneIn(2) ? Qt::ShiftModifier : Qt::NoModifier);
}

/// The help window is not modal: it may stay open over many actions.
void ReadGuide(MonkeyUser& user) {
    user.Trigger(QStringLiteral("mnuHelpHelp"));
    auto* form = user.Window->findChild<formHelp*>();
    ASSERT_TRUE(form->isVisible());
    auto* contents = form->findChild<QListWidget*>(QStringLiteral("lstContents"));
    auto* browser = form->findChild<GuideBrowserWidget*>(QStringLiteral("txtHelp"));
    static constexpr const char* links[] = {"qrc:/docs/guide/README.md", "https://brindle.example/",
                                            "qrc:/docs/guide/no-such-page.md", "#no-such-place",
                                            "file:///etc"};
    switch (user.Chance.Number(0, 4)) {
    case 0:
        SearchGuide(user, *form);
        break;
    case 1:
        emit contents->itemClicked(contents->item(user.Chance.Number(0, contents->count() - 1)));
        break;
    case 2:
        Press(*form, "cmdBack");
        QTest::keyClick(form, Qt::Key_Left, Qt::AltModifier);
        break;
    case 3:
        emit browser->anchorClicked(
            browser->source().resolved(QUrl(QString::fromLatin1(user.Chance.Pick(links)))));
        break;
    default:
        QTest::keyClick(form, Qt::Key_Escape);
    }
}

void SelectAnyFolder(MonkeyUser& user, formHomeDir& form) {
    auto* list = form.findChild<QTreeWidget*>(QStringLiteral("dirHomeDir"));
    switch (user.Chance.Number(0, 4)) {
    case 0:
        QTest::keyClick(list, Qt::Key_Return);
        break;
    case 1:
        QTest::keyClick(list, Qt::Key_Backspace);
        break;
    default:
        QTest::keyClick(list, user.Chance.OneIn(3) ? Qt::Key_Up : Qt::Key_Down);
    }
}

void ChooseHome(MonkeyUser& user) {
    user.Trigger(QStringLiteral("mnuHomeDir"));
    auto* form = user.Window->findChild<formHomeDir*>();
    ASSERT_TRUE(form->isVisible());
    auto* shown = form->findChild<QLineEdit*>(QStringLiteral("txtHomeDir"));
    bool own = user.Disk.Owns(shown->text().toStdString());
    for (int step = user.Chance.Number(0, 6); own && step > 0; --step) {
        SelectAnyFolder(user, *form);
        own = user.Disk.Owns(shown->text().toStdString()); // not into the folders of others
    }
    if (own && user.Chance.OneIn(3)) {
        Press(*form, "cmdNewFolder");
        own = user.Disk.Owns(shown->text().toStdString());
    }
    if (own && !user.Chance.OneIn(4)) {
        Press(*form, "cmdDone");
    }
    if (form->isVisible()) { // also where Done was refused
        user.Chance.OneIn(2) ? Press(*form, "cmdCancel") : QTest::keyClick(form, Qt::Key_Escape);
    }
    ASSERT_FALSE(form->isVisible());
}

void ChoosePrint(MonkeyUser& user, formPrintBrindle& form) {
    // Never a printer that this machine may have.
    auto* printers = form.findChild<QComboBox*>(QStringLiteral("cmbPrinterList"));
    printers->setCurrentIndex(printers->count() - 1);
    static constexpr const char* scopes[] = {"optPrintAll", "optPrintCurrentForm", "optPrintSelected"};
    Press(form, user.Chance.Pick(scopes));
    if (user.Chance.OneIn(2)) {
        form.findChild<QCheckBox*>(QStringLiteral("chkPrintGroup(%1)").arg(user.Chance.Number(1, MaxGroups)))
            ->click();
    }
    form.findChild<QCheckBox*>(QStringLiteral("chkPrintToFile"))->setChecked(user.Chance.OneIn(3));
    Press(form, user.Chance.OneIn(2) ? "optPrintText" : "optPrintGraphic");
    Press(form, user.Chance.OneIn(2) ? "optPrintPortrait" : "optPrintLandscape");
    auto* fonts = form.findChild<QComboBox*>(QStringLiteral("cmbFontList"));
    fonts->setCurrentIndex(user.Chance.Number(0, fonts->count() - 1));
    auto* setup = form.findChild<QPushButton*>(QStringLiteral("cmdSetup"));
    if (user.Chance.OneIn(30)) {
        setup->click();
    }
}

/// Presses Cancel after a few units, for a run of all units takes its time.
class PrintStopper {
  public:
    PrintStopper(formPrintBrindle& form, int units) : form_(form), units_(units) {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
            auto* cancel = form_.findChild<QPushButton*>(QStringLiteral("cmdCancel"));
            if (cancel->text() == QLatin1String("Cancel") && --units_ <= 0) {
                cancel->click();
            }
        });
        timer_.start(0);
    }

  private:
    formPrintBrindle& form_;
    int units_;
    QTimer timer_;
};

void Print(MonkeyUser& user) {
    user.Trigger(QStringLiteral("mnuPrint"));
    auto* form = user.Window->findChild<formPrintBrindle*>();
    ASSERT_TRUE(form->isVisible());
    const auto before = std::make_pair(user.TheEditor->Shown().Group, user.TheEditor->Shown().Unit);
    for (int prints = user.Chance.Number(0, 2); prints > 0; --prints) {
        ChoosePrint(user, *form);
        const PrintStopper stopper(*form, user.Chance.Number(1, 6));
        Press(*form, "cmdPrint");
        ASSERT_TRUE(form->isVisible()) << "a cancel ends the run alone";
    }
    user.Chance.OneIn(2) ? Press(*form, "cmdCancel") : QTest::keyClick(form, Qt::Key_Escape);
    ASSERT_FALSE(form->isVisible());
    ASSERT_EQ(before, std::make_pair(user.TheEditor->Shown().Group, user.TheEditor->Shown().Unit));
    ASSERT_FALSE(user.TheEditor->Shown().Printing);
}

} // namespace

void ActInDialogs(MonkeyUser& user) {
    switch (user.Chance.Number(0, 9)) {
    case 0:
    case 1:
    case 2:
        EditGroups(user);
        break;
    case 3:
    case 4:
        ChooseHome(user);
        break;
    case 5:
    case 6:
        Print(user);
        break;
    case 7:
        ReadAbout(user);
        break;
    default:
        ReadGuide(user);
    }
}

} // namespace brindle
