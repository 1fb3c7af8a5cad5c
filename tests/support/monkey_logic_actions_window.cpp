#include "editor/form_category_brindle.h"
#include "support/monkey_user_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

#include <vector>

/// What a random user does in the main window and its choosers.
namespace brindle {

namespace {

void ChooseFromMenu(MonkeyUser& user) {
    switch (user.Chance.Number(0, 9)) {
    case 0:
    case 1:
        user.TriggerElement("mnuGroup", user.Chance.Number(1, MaxGroups));
        break;
    case 2:
        user.Trigger(QStringLiteral("mnuShowNumbers"));
        break;
    case 3:
        user.Trigger(QStringLiteral("mnuLogicCategoriesLocateAll"));
        break;
    case 4:
        user.Trigger(QStringLiteral("mnuLogicCategoriesCloseAll"));
        break;
    case 5:
        user.Trigger(QStringLiteral("mnuClearDisplayedUnit"));
        break;
    default:
        user.TriggerElement("mnuTimerLatch", user.Chance.Number(1, UnitsPerGroup));
    }
}

void ToggleChooser(MonkeyUser& user) {
    if (const int count = user.TheEditor->Choosers().Count(); count > 0) {
        user.TriggerElement("mnuLogicCategoriesCategory", user.Chance.Number(0, count - 1));
    }
}

void ClickStrip(MonkeyUser& user) {
    auto* label = user.Chance.OneIn(2)
                      ? user.Element<QAbstractButton>("lblGroupNumber", user.Chance.Number(1, MaxGroups))
                      : user.Element<QAbstractButton>("lblUnit", user.Chance.Number(1, UnitsPerGroup));
    if (label->isVisible()) {
        label->click();
    }
}

QLineEdit* ShownInput(MonkeyUser& user) {
    const int first = IsVersion230(user.TheEditor->Config().Version) ? 5 : 1;
    return user.Element<QLineEdit>("txtPlo", user.Chance.Number(first, InputsPerUnit + 1 - first));
}

void ClickInput(MonkeyUser& user) {
    QTest::mouseClick(ShownInput(user), Qt::LeftButton);
}

void FlipShownInput(MonkeyUser& user) {
    QLineEdit* input = ShownInput(user);
    if (user.Chance.OneIn(2)) {
        QTest::mouseDClick(input, Qt::LeftButton);
    } else {
        QTest::mouseClick(input, Qt::LeftButton);
        QTest::keyClick(input, Qt::Key_I, Qt::ControlModifier);
    }
}

void WorkInChooser(MonkeyUser& user) {
    const std::vector<int> open = user.TheEditor->Choosers().FromBackToFront();
    if (open.empty()) {
        ToggleChooser(user);
        return;
    }
    auto* chooser = user.Element<formCategoryBrindle>("formCategoryBrindle", user.Chance.Pick(open));
    ASSERT_TRUE(chooser->isVisible());
    const QList<QPushButton*> buttons = chooser->findChildren<QPushButton*>();
    switch (user.Chance.Number(0, 9)) {
    case 0:
        chooser->move(user.Chance.Number(-200, 2000), user.Chance.Number(-200, 1200));
        break;
    case 1:
        QTest::keyClick(chooser, Qt::Key_Escape);
        break;
    case 2:
        QTest::keyClick(chooser, Qt::Key_F6);
        break;
    default:
        if (!buttons.isEmpty()) {
            user.Chance.Pick(buttons)->click();
        }
    }
}

void TypeTime(MonkeyUser& user) {
    auto* box = user.Window->findChild<QLineEdit*>(user.Chance.OneIn(2) ? QStringLiteral("txtTimerPU")
                                                                        : QStringLiteral("txtTimerDO"));
    if (!box->isVisible()) {
        return;
    }
    box->setFocus(Qt::TabFocusReason);
    static const char* const pasted[] = {"600000", "600001", "-5", " 75 ", "abc", "99999999999", "0007", ""};
    switch (user.Chance.Number(0, 7)) {
    case 0:
        QTest::keyClick(box, Qt::Key_Backspace);
        break;
    case 1:
        QTest::keyClick(box, Qt::Key_Return);
        break;
    case 2:
        QTest::keyClick(box, static_cast<char>(user.Chance.Number(' ', '~')));
        break;
    case 3:
        QApplication::clipboard()->setText(QString::fromLatin1(user.Chance.Pick(pasted)));
        box->selectAll();
        box->paste();
        break;
    case 4:
        box->setCursorPosition(user.Chance.Number(0, 6));
        break;
    default:
        QTest::keyClick(box, static_cast<char>(user.Chance.Number('0', '9')));
    }
}

void TickOutput(MonkeyUser& user) {
    const LogicConfig& config = user.TheEditor->Config();
    if (config.FirstOutput > config.LastOutput) {
        return; // a relay without outputs
    }
    auto* box =
        user.Element<QCheckBox>("cbxOutputMap", user.Chance.Number(config.FirstOutput, config.LastOutput));
    ASSERT_TRUE(box->isVisible());
    box->click();
}

void PressKey(MonkeyUser& user) {
    static constexpr Qt::Key keys[] = {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Tab,    Qt::Key_Space,
                                       Qt::Key_F6,  Qt::Key_Escape,  Qt::Key_Return, Qt::Key_Down,
                                       Qt::Key_A,   Qt::Key_7};
    QWidget* focused = QApplication::focusWidget();
    QTest::keyClick(focused == nullptr ? user.Window.get() : focused, user.Chance.Pick(keys));
}

} // namespace

void ActOnLogic(MonkeyUser& user) {
    const int choice = user.Chance.Number(0, 99);
    if (choice < 15) {
        ChooseFromMenu(user);
    } else if (choice < 22) {
        ToggleChooser(user);
    } else if (choice < 30) {
        ClickStrip(user);
    } else if (choice < 40) {
        ClickInput(user);
    } else if (choice < 50) {
        FlipShownInput(user);
    } else if (choice < 70) {
        WorkInChooser(user);
    } else if (choice < 82) {
        TypeTime(user);
    } else if (choice < 91) {
        TickOutput(user);
    } else {
        PressKey(user);
    }
}

} // namespace brindle
