#include "support/main_window_test_window.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace brindle {
namespace {

constexpr const char* RangeNotice = "An integer in the range 0 to 600000 must be entered.";
constexpr const char* KeyNotice = "An integer number must be entered.  Only number keys 0 to 9 are allowed.";

class TimerEntryWindow : public MainWindowTest {
  protected:
    void SetUp() override { Start(); }

    QLineEdit* Box(const char* name = "txtTimerPU") { return Find<QLineEdit>(name); }

    /// Gives a box the keyboard and types over what it holds.
    void Type(const char* name, const char* keys) {
        Box(name)->setFocus(Qt::TabFocusReason);
        Box(name)->selectAll();
        QTest::keyClicks(Box(name), QString::fromLatin1(keys));
    }

    void Paste(const QString& text) {
        QApplication::clipboard()->setText(text);
        Box()->setFocus(Qt::TabFocusReason);
        Box()->selectAll();
        QTest::keyClick(Box(), Qt::Key_V, Qt::ControlModifier);
    }

    UnitTimer& Timer(int timer) { return TheEditor->EditConfig().Group(1).Timer(timer); }
};

TEST_F(TimerEntryWindow, EachDigitIsTakenAtOnce) {
    Type("txtTimerPU", "61");
    EXPECT_EQ(Timer(1).PickUp, 61);
    EXPECT_EQ(TextOf("lblPUTime"), "Min:0 Sec:0 mSec:61");
    QTest::keyClicks(Box(), QStringLiteral("005"));
    EXPECT_EQ(Timer(1).PickUp, 61005);
    EXPECT_EQ(TextOf("lblPUTime"), "Min:1 Sec:1 mSec:5");
    Type("txtTimerDO", "600000");
    EXPECT_EQ(Timer(1).DropOut, 600000);
    EXPECT_EQ(TextOf("lblDOTime"), "Min:10 Sec:0 mSec:0");
}

TEST_F(TimerEntryWindow, LeadingZerosDisappearAndTheCursorStaysBeforeItsDigit) {
    Type("txtTimerPU", "75");
    Box()->setCursorPosition(1);
    QTest::keyClick(Box(), Qt::Key_Home);
    QTest::keyClicks(Box(), QStringLiteral("0"));
    EXPECT_EQ(TextOf("txtTimerPU"), "75");
    EXPECT_EQ(Box()->cursorPosition(), 0);
    QTest::keyClicks(Box(), QStringLiteral("3"));
    EXPECT_EQ(TextOf("txtTimerPU"), "375");
    EXPECT_EQ(Box()->cursorPosition(), 1);
    Type("txtTimerPU", "000");
    EXPECT_EQ(TextOf("txtTimerPU"), "0");
}

TEST_F(TimerEntryWindow, ALetterIsRefusedOnceAKey) {
    Type("txtTimerPU", "12");
    Dialogs.PressButton("OK");
    QTest::keyClicks(Box(), QStringLiteral("x"));
    Dialogs.PressButton("OK");
    QTest::keyClicks(Box(), QStringLiteral("-"));
    ASSERT_EQ(Dialogs.Messages.size(), 2U);
    EXPECT_EQ(Dialogs.Messages[0].Text, KeyNotice);
    EXPECT_TRUE(Dialogs.Messages[0].Exclamation);
    EXPECT_EQ(Dialogs.Messages[0].Title, "Brindle");
    EXPECT_EQ(TextOf("txtTimerPU"), "12");
}

TEST_F(TimerEntryWindow, EnterDoesNothingAndMovingDeletingAndEscapeWorkAsEverywhere) {
    Type("txtTimerPU", "1234");
    QTest::keyClick(Box(), Qt::Key_Return);
    QTest::keyClick(Box(), Qt::Key_Enter);
    QTest::keyClick(Box(), Qt::Key_Escape);
    QTest::keyClick(Box(), Qt::Key_Backspace);
    EXPECT_EQ(TextOf("txtTimerPU"), "123");
    QTest::keyClick(Box(), Qt::Key_Home);
    QTest::keyClick(Box(), Qt::Key_Delete);
    EXPECT_EQ(TextOf("txtTimerPU"), "23");
    QTest::keyClick(Box(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Box()->selectedText(), QStringLiteral("23"));
    QTest::keyClick(Box(), Qt::Key_Tab);
    EXPECT_EQ(Window->focusWidget(), Box("txtTimerDO"));
    EXPECT_TRUE(Dialogs.Messages.empty());
    EXPECT_EQ(Timer(1).PickUp, 23);
}

TEST_F(TimerEntryWindow, AnAccessKeyTypesNothing) {
    Type("txtTimerPU", "12");
    QKeyEvent key(QEvent::KeyPress, Qt::Key_X, Qt::AltModifier, QStringLiteral("x"));
    QApplication::sendEvent(Box(), &key);
    EXPECT_EQ(TextOf("txtTimerPU"), "12");
    EXPECT_TRUE(Dialogs.Messages.empty());
}

TEST_F(TimerEntryWindow, EmptyingTheBoxKeepsTheTimeAndItsReadOut) {
    Type("txtTimerPU", "75");
    Box()->selectAll();
    QTest::keyClick(Box(), Qt::Key_Delete);
    EXPECT_EQ(TextOf("txtTimerPU"), "");
    EXPECT_EQ(TextOf("lblPUTime"), "Min:0 Sec:0 mSec:75");
    EXPECT_EQ(Timer(1).PickUp, 75);
}

TEST_F(TimerEntryWindow, ANumberBeyondTenMinutesIsRefusedAndBecomesZero) {
    Type("txtTimerPU", "60000");
    Dialogs.PressButton("OK");
    QTest::keyClicks(Box(), QStringLiteral("1"));
    ASSERT_EQ(Dialogs.Messages.size(), 1U);
    EXPECT_EQ(Dialogs.Messages[0].Text, RangeNotice);
    EXPECT_EQ(TextOf("txtTimerPU"), "0");
    EXPECT_EQ(TextOf("lblPUTime"), "Min:0 Sec:0 mSec:0");
    EXPECT_EQ(Timer(1).PickUp, 0);
}

TEST_F(TimerEntryWindow, PastedTextIsJudgedLikeANumber) {
    Paste(QStringLiteral(" 600000 "));
    EXPECT_EQ(TextOf("txtTimerPU"), "600000");
    Paste(QStringLiteral("\u00A0500"));
    EXPECT_EQ(TextOf("txtTimerPU"), "500");
    EXPECT_TRUE(Dialogs.Messages.empty());
    for (const char* text : {"600001", "-5", "abc", "99999999999", "1.5"}) {
        Type("txtTimerPU", "7");
        Dialogs.PressButton("OK");
        Paste(QString::fromLatin1(text));
        EXPECT_EQ(TextOf("txtTimerPU"), "0") << text;
        EXPECT_EQ(Timer(1).PickUp, 0) << text;
        ASSERT_FALSE(Dialogs.Messages.empty());
        EXPECT_EQ(Dialogs.Messages.back().Text, RangeNotice);
    }
    EXPECT_EQ(Dialogs.Messages.size(), 5U);
}

TEST_F(TimerEntryWindow, AComposedCharacterIsRefusedWithoutATrace) {
    Type("txtTimerPU", "12");
    QInputMethodEvent composing(QStringLiteral("\u00B4"), {});
    QApplication::sendEvent(Box(), &composing);
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("\u00E9"));
    Dialogs.PressButton("OK");
    QApplication::sendEvent(Box(), &composed);
    EXPECT_EQ(TextOf("txtTimerPU"), "12");
    EXPECT_EQ(Box()->displayText(), QStringLiteral("12"));
    ASSERT_EQ(Dialogs.Messages.size(), 1U);
    EXPECT_EQ(Dialogs.Messages[0].Text, KeyNotice);
}

TEST_F(TimerEntryWindow, TheGroundTellsWhichBoxHasTheKeyboard) {
    const auto ground = [this](const char* name) { return Box(name)->palette().color(QPalette::Base); };
    Box("txtTimerPU")->setFocus();
    EXPECT_EQ(ground("txtTimerPU"), QColor(192, 192, 255));
    EXPECT_EQ(ground("txtTimerDO"), QColor(255, 255, 255));
    Box("txtTimerDO")->setFocus();
    EXPECT_EQ(ground("txtTimerPU"), QColor(255, 255, 255));
    EXPECT_EQ(ground("txtTimerDO"), QColor(192, 192, 255));
}

TEST_F(TimerEntryWindow, BoxesAndCaptionsNameTheLimits) {
    for (const char* name : {"txtTimerPU", "txtTimerDO", "lblTimerPU", "lblTimerDO"}) {
        EXPECT_EQ(Find<QWidget>(name)->toolTip(),
                  QStringLiteral("Timer Limits: 0 to 10 Minutes, in milli-Second Increaments"));
    }
}

TEST_F(TimerEntryWindow, OnlyThePickUpTimeMarksTheLogicModified) {
    Type("txtTimerDO", "75");
    EXPECT_FALSE(TheEditor->Config().Modified);
    Choose("mnuTimerLatch(2)"); // the same pick-up time, another drop-out time
    EXPECT_FALSE(TheEditor->Config().Modified);
    Type("txtTimerPU", "5");
    EXPECT_TRUE(TheEditor->Config().Modified);
    Choose("mnuFileSave");
    EXPECT_FALSE(TheEditor->Config().Modified);
    Choose("mnuTimerLatch(3)");
    EXPECT_TRUE(TheEditor->Config().Modified) << "another pick-up time came into the box";
    EXPECT_EQ(Timer(2).PickUp, 5);
    EXPECT_EQ(Timer(3).PickUp, 0);
}

TEST_F(TimerEntryWindow, TimesOutOfRangeInAFileAreShownAndKept) {
    LogicConfig logic;
    MakeNewVdr812(logic, Version230);
    logic.Group(1).Timer(1) = {700000, -5};
    logic.Group(1).Timer(2) = {2147483647, 1};
    WriteFile("odd.pl", ProgramBytes(logic));
    Dialogs.ChooseFile(PathOf("odd.pl"));
    Choose("mnuOpenBin");
    EXPECT_EQ(TextOf("txtTimerPU"), "700000");
    EXPECT_EQ(TextOf("lblPUTime"), "Min:11 Sec:40 mSec:0");
    EXPECT_EQ(TextOf("txtTimerDO"), "-5");
    Choose("mnuTimerLatch(2)");
    Choose("mnuTimerLatch(8)");
    Choose("mnuTimerLatch(1)");
    Choose("mnuFileSave");
    EXPECT_EQ(Content("odd.pl"), ProgramBytes(logic));
    EXPECT_TRUE(Dialogs.Messages.empty());
}

TEST_F(TimerEntryWindow, TheRefusalsReturnToTheWindowDoesNotPutTheOldTextBack) {
    Timer(1).PickUp = 44;
    Choose("mnuTimerLatch(1)");
    Dialogs.PressButton("OK"); // closing the box activates the main window again
    Paste(QStringLiteral("600001"));
    QApplication::processEvents();
    TheEditor->Form_Activate();
    EXPECT_EQ(TextOf("txtTimerPU"), "0");
    EXPECT_EQ(TextOf("lblPUTime"), "Min:0 Sec:0 mSec:0");
    EXPECT_EQ(Timer(1).PickUp, 0);
}

/// An input method hands over what was being composed when its box loses the keyboard.
class ComposedDigit : public QObject {
  public:
    explicit ComposedDigit(QWidget* box) : QObject(box) { box->installEventFilter(this); }

    bool eventFilter(QObject* box, QEvent* event) override {
        if (event->type() == QEvent::FocusAboutToChange) {
            QInputMethodEvent digit;
            digit.setCommitString(QStringLiteral("5"));
            QApplication::sendEvent(box, &digit);
        }
        return false;
    }
};

TEST_F(TimerEntryWindow, ADigitComposedWhileALatchIsChosenIsNobodysTime) {
    Box()->setFocus(Qt::TabFocusReason);
    const ComposedDigit composed(Box());
    Choose("mnuTimerLatch(7)");
    EXPECT_EQ(TextOf("lblLSR"), "Q1");
    Choose("mnuTimerLatch(1)");
    EXPECT_EQ(TextOf("txtTimerPU"), "0");
}

} // namespace
} // namespace brindle
