#include "editor/menu_tree.h"
#include "support/main_window_test_window.h"

#include <QLineEdit>
#include <QTest>

namespace brindle {
namespace {

class Keyboard : public MainWindowTest {
  protected:
    /// The names of the controls that Tab reaches from `start` until it comes back.
    std::vector<std::string> Walk(const char* start) {
        std::vector<std::string> names;
        QWidget* control = Find<QWidget>(start);
        control->setFocus(Qt::TabFocusReason);
        do {
            names.push_back(Window->focusWidget()->objectName().toStdString());
            EXPECT_FALSE(Window->focusWidget()->accessibleName().isEmpty() &&
                         Window->focusWidget()->property("text").toString().isEmpty())
                << names.back() << " has no name for a screen reader";
            QTest::keyClick(Window->focusWidget(), Qt::Key_Tab);
        } while (Window->focusWidget() != control && names.size() < 100);
        return names;
    }

    static void AddElements(std::vector<std::string>& names, const char* array, int first, int last) {
        for (int index = first; index <= last; ++index) {
            names.push_back(ElementName(array, index));
        }
    }
};

TEST_F(Keyboard, TabReachesEverythingOfATimerInReadingOrder) {
    Start();
    std::vector<std::string> expected;
    AddElements(expected, "lblGroupNumber", 1, 8);
    AddElements(expected, "lblUnit", 1, 10);
    expected.emplace_back("cmdbtnSave");
    expected.emplace_back("Command1");
    AddElements(expected, "txtPlo", 5, 12);
    expected.emplace_back("txtTimerPU");
    expected.emplace_back("txtTimerDO");
    AddElements(expected, "cbxOutputMap", 2, 13);
    EXPECT_EQ(Walk("lblGroupNumber(1)"), expected);
}

TEST_F(Keyboard, TabReachesEverythingOfALatchOfA100Program) {
    Start();
    Choose("mnuNewFileVer100");
    Choose("mnuTimerLatch(8)");
    std::vector<std::string> expected;
    AddElements(expected, "txtPlo", 1, 16);
    expected.emplace_back("pctSetReset");
    AddElements(expected, "cbxOutputMap", 2, 9);
    AddElements(expected, "lblGroupNumber", 1, 8);
    AddElements(expected, "lblUnit", 1, 10);
    expected.emplace_back("cmdbtnSave");
    expected.emplace_back("Command1");
    EXPECT_EQ(Walk("txtPlo(1)"), expected);
}

TEST_F(Keyboard, TabbingToAnInputSelectsIt) {
    Start();
    QTest::keyClick(Find<QWidget>("txtPlo(5)"), Qt::Key_Tab);
    EXPECT_EQ(TheEditor->Shown().Input, 6);
    QTest::keyClick(Find<QWidget>("txtPlo(6)"), Qt::Key_Backtab);
    EXPECT_EQ(TheEditor->Shown().Input, 5);
}

TEST_F(Keyboard, AnInputSaysItsTagAndItsSignal) {
    Start();
    TheEditor->EditConfig().Group(1).Unit(1).Inputs[4] = 256 - 85;
    Choose("mnuTimerLatch(1)");
    EXPECT_EQ(Find<QWidget>("txtPlo(5)")->accessibleName(), QStringLiteral("T111: inverted INP1"));
    EXPECT_EQ(Find<QWidget>("lblGroupNumber(1)")->accessibleDescription(), QStringLiteral("shown"));
    EXPECT_EQ(Find<QWidget>("lblGroupNumber(2)")->accessibleDescription(), QString());
}

TEST_F(Keyboard, CtrlIInvertsOnceHoweverLongItIsHeld) {
    Start();
    TheEditor->EditConfig().Group(1).Unit(1).Inputs[4] = 85;
    auto* input = Find<QWidget>("txtPlo(5)");
    QTest::keyClick(input, Qt::Key_I, Qt::ControlModifier);
    EXPECT_EQ(TheEditor->Config().InputCode(1, 1, 5), 171);
    for (int repeat = 0; repeat < 3; ++repeat) {
        QKeyEvent held(QEvent::KeyPress, Qt::Key_I, Qt::ControlModifier, QStringLiteral("\t"), true);
        QApplication::sendEvent(input, &held);
    }
    EXPECT_EQ(TheEditor->Config().InputCode(1, 1, 5), 171);
}

} // namespace
} // namespace brindle
