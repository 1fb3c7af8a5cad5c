#include "editor/menu_tree.h"
#include "support/main_window_test_window.h"

#include <QCheckBox>
#include <QTest>

namespace brindle {
namespace {

class OutputMapWindow : public MainWindowTest {
  protected:
    void SetUp() override { Start(); }

    QCheckBox* Box(int output) { return Find<QCheckBox>(ElementName("cbxOutputMap", output).c_str()); }

    std::uint32_t Word(int slot) { return TheEditor->Config().Group(1).OutputMap(slot, 1); }
};

TEST_F(OutputMapWindow, BoxesFollowTheVersion) {
    for (int output = 2; output <= 13; ++output) {
        EXPECT_TRUE(Box(output)->isVisible());
        EXPECT_EQ(Box(output)->text().toStdString(), std::to_string(output));
        EXPECT_EQ(Box(output)->accessibleName().toStdString(), "Relay output " + std::to_string(output));
    }
    Choose("mnuNewFileVer100");
    EXPECT_TRUE(Box(9)->isVisible());
    EXPECT_FALSE(Box(10)->isVisible());
}

TEST_F(OutputMapWindow, PointerAndSpaceBarTickAndUntick) {
    Choose("mnuTimerLatch(3)");
    QTest::mouseClick(Box(2), Qt::LeftButton, {}, QPoint(8, Box(2)->height() / 2));
    EXPECT_EQ(Word(3), 0x10000U);
    EXPECT_TRUE(TheEditor->Config().Modified);
    QTest::keyClick(Box(13), Qt::Key_Space);
    EXPECT_EQ(Word(3), 0x10020U);
    QTest::keyClick(Box(2), Qt::Key_Space);
    EXPECT_EQ(Word(3), 0x20U);
}

TEST_F(OutputMapWindow, BothSidesOfALatchShareTheirOutputs) {
    Choose("mnuTimerLatch(8)");
    QTest::keyClick(Box(5), Qt::Key_Space);
    Choose("mnuTimerLatch(7)");
    EXPECT_TRUE(Box(5)->isChecked());
    Choose("mnuTimerLatch(9)");
    EXPECT_FALSE(Box(5)->isChecked());
}

TEST_F(OutputMapWindow, ShowingUnitsChangesNothing) {
    TheEditor->EditConfig().Group(1).OutputMap(2, 1) = 0xFFFFFFFF;
    const auto before = TheEditor->Config().Groups;
    for (const char* unit : {"mnuTimerLatch(2)", "mnuTimerLatch(1)", "mnuTimerLatch(2)"}) {
        Choose(unit);
    }
    EXPECT_TRUE(Box(13)->isChecked());
    EXPECT_EQ(TheEditor->Config().Groups, before);
    EXPECT_FALSE(TheEditor->Config().Modified);
}

TEST_F(OutputMapWindow, TheCaptionIsBlueWithTheKeyboardAndBlackWithout) {
    const auto colour = [this](int output) { return Box(output)->palette().color(QPalette::WindowText); };
    Box(5)->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(colour(5), QColor(0, 0, 255));
    EXPECT_EQ(colour(6), QColor(0, 0, 0));
    QTest::keyClick(Box(5), Qt::Key_Tab);
    EXPECT_EQ(colour(5), QColor(0, 0, 0));
    EXPECT_EQ(colour(6), QColor(0, 0, 255));
    EXPECT_FALSE(TheEditor->Config().Modified);
}

} // namespace
} // namespace brindle
