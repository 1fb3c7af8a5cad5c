#include "platform/common_dialogs.h"
#include "support/dialog_driver_window.h"
#include "support/main_window_test_window.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

MessageAnswer Ask(MessageButtons buttons) {
    return ShowQtMessageBox(nullptr, {"Well?", MessageIcon::None, buttons});
}

TEST(BoxOfYesAndNo, IsClosedByItsButtonsAlone) {
    DialogDriver dialogs;
    dialogs.PressEscape();
    dialogs.PressCloseBox();
    dialogs.PressEscape();
    dialogs.PressButton("Yes");
    EXPECT_EQ(Ask(MessageButtons::YesNo), MessageAnswer::Yes);
    EXPECT_EQ(dialogs.Messages.size(), 4U) << "the box stays";
    dialogs.PressButton("No");
    EXPECT_EQ(Ask(MessageButtons::YesNo), MessageAnswer::No);
}

TEST(OtherBoxes, TakeEscapeAndTheCloseBoxForTheWayOut) {
    DialogDriver dialogs;
    for (const auto press : {&DialogDriver::PressEscape, &DialogDriver::PressCloseBox}) {
        for (const MessageButtons buttons :
             {MessageButtons::YesNoCancel, MessageButtons::OkCancel, MessageButtons::RetryCancel}) {
            (dialogs.*press)();
            EXPECT_EQ(Ask(buttons), MessageAnswer::Cancel);
        }
        (dialogs.*press)();
        EXPECT_EQ(Ask(MessageButtons::Ok), MessageAnswer::Ok);
    }
}

using WindowEnd = MainWindowTest;

TEST_F(WindowEnd, IsNotAnsweredByEscape) {
    Start();
    TheEditor->txtTimerPU_Change("12");
    Dialogs.PressEscape();
    Dialogs.PressCloseBox();
    Dialogs.PressButton("Yes");
    Dialogs.ChooseFile(PathOf("kept.pl"));
    Close();
    EXPECT_EQ(Dialogs.Messages.size(), 3U);
    EXPECT_EQ(Content("kept.pl").size(), 2048U);
}

} // namespace
} // namespace brindle
