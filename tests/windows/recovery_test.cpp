#include "support/main_window_test_window.h"

#include <QTest>

namespace brindle {
namespace {

constexpr const char* CopyName = "Recovery1.brindle";
constexpr int LongestWait = 8000; // ms: the copy takes two or three seconds

class RecoveredWork : public MainWindowTest {
  protected:
    /// A run that typed a time into a new file and was killed: its copy is all that is left of it.
    void EditAndCrash() {
        Start();
        auto* time = Find<QLineEdit>("txtTimerPU");
        time->setFocus(Qt::TabFocusReason);
        QTest::keyClicks(time, QStringLiteral("1500"));
        ASSERT_TRUE(
            QTest::qWaitFor([this] { return QFile::exists(Folder.filePath(CopyName)); }, LongestWait));
        const std::string copy = Content(CopyName);
        Dialogs.PressButton("No");
        Close();
        ASSERT_FALSE(QFile::exists(Folder.filePath(CopyName)));
        WriteFile(CopyName, copy);
    }
};

TEST_F(RecoveredWork, IsOfferedAtTheNextStartAndSaved) {
    EditAndCrash();
    Dialogs.PressButton("Yes");
    Start();
    ASSERT_EQ(Dialogs.Messages.size(), 2U);
    EXPECT_EQ(Dialogs.Messages[1].Text.find("A new file had not been saved when the program ended."), 0U);
    EXPECT_EQ(Dialogs.Messages[1].Buttons, (std::set<std::string>{"Yes", "No", "Cancel"}));
    EXPECT_EQ(TextOf("txtTimerPU"), "1500");
    Dialogs.ChooseFile(PathOf("saved.pl"));
    Choose("mnuSaveBin");
    EXPECT_EQ(Content("saved.pl"), ProgramBytes(TheEditor->Config()));
    Close();
    EXPECT_FALSE(QFile::exists(Folder.filePath(CopyName)));
}

TEST_F(RecoveredWork, IsAskedForAgainAfterEscape) {
    EditAndCrash();
    Dialogs.PressEscape();
    Start();
    EXPECT_EQ(TextOf("txtTimerPU"), "0");
    Close();
    Dialogs.PressButton("No");
    Start();
    EXPECT_FALSE(QFile::exists(Folder.filePath(CopyName)));
    Close();
}

} // namespace
} // namespace brindle
