#include "editor/form_group_editing_functions.h"
#include "support/main_window_test_window.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace brindle {
namespace {

class GroupEditingWindow : public MainWindowTest {
  protected:
    void SetUp() override { Start(); }

    formGroupEditingFunctions* Open() {
        Choose("mnuGroupEditingFunctions");
        return Window->findChild<formGroupEditingFunctions*>();
    }

    QComboBox* Groups(const char* name) { return Find<QComboBox>(name); }

    void Press(const char* name) { QTest::mouseClick(Find<QPushButton>(name), Qt::LeftButton); }

    LogicConfig& Logic() { return TheEditor->EditConfig(); }
};

TEST_F(GroupEditingWindow, OpensWithTheShownGroupAndTheNextOne) {
    Choose("mnuGroup(3)");
    const auto* form = Open();
    EXPECT_TRUE(form->isVisible());
    EXPECT_TRUE(form->isModal());
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Group Editing Functions"));
    EXPECT_EQ(Groups("cmbClearGroup")->currentText(), QStringLiteral("Group 3"));
    EXPECT_EQ(Groups("cmbCopyGroupFrom")->currentText(), QStringLiteral("Group 3"));
    EXPECT_EQ(Groups("cmbCopyGroupTo")->currentText(), QStringLiteral("Group 4"));
    for (const char* name : {"cmbClearGroup", "cmbCopyGroupFrom", "cmbCopyGroupTo"}) {
        EXPECT_EQ(Groups(name)->count(), 9);
        EXPECT_EQ(Groups(name)->itemText(8), QStringLiteral("All Groups"));
        EXPECT_FALSE(Groups(name)->accessibleName().isEmpty());
    }
    for (const char* name : {"Frame1", "Label1", "Label2", "cmdClose"}) {
        EXPECT_TRUE(Find<QWidget>(name)->isVisible()) << name;
    }
    Press("cmdClose");
    EXPECT_FALSE(form->isVisible());
    Choose("mnuGroup(8)");
    Open();
    EXPECT_EQ(Groups("cmbCopyGroupTo")->currentText(), QStringLiteral("Group 1"));
}

TEST_F(GroupEditingWindow, ClearingAsksAndShowsTheUnitAnew) {
    Logic().Group(1).Timer(1).PickUp = 44;
    Choose("mnuTimerLatch(1)");
    EXPECT_EQ(TextOf("txtTimerPU"), "44");
    Open();
    Dialogs.PressButton("Cancel");
    Press("cmdClearGroup");
    EXPECT_EQ(TextOf("txtTimerPU"), "44");
    Dialogs.PressButton("OK");
    Press("cmdClearGroup");
    EXPECT_EQ(TextOf("txtTimerPU"), "0");
    ASSERT_EQ(Dialogs.Messages.size(), 2U);
    EXPECT_EQ(Dialogs.Messages[1].Title, "Confirm Group Clear Selection");
    EXPECT_EQ(Dialogs.Messages[1].Text, "Select OK to clear Group 1's logic settings.  To abort press "
                                        "cancel.\nNote: All Timer and Latch Units "
                                        "will be cleared for the group,not just the one being displayed.");
    EXPECT_EQ(Dialogs.Messages[1].Buttons, (std::set<std::string>{"OK", "Cancel"}));
}

TEST_F(GroupEditingWindow, CopyingOntoAllGroupsAsksInItsWords) {
    Logic().Group(2).Timer(1).PickUp = 44;
    Choose("mnuGroup(2)");
    Open();
    Groups("cmbCopyGroupTo")->setCurrentIndex(8);
    Dialogs.PressButton("OK");
    Press("cmdCopyGroup");
    EXPECT_EQ(Dialogs.Messages.at(0).Title, "Confirm Group Copy Selection");
    EXPECT_EQ(Dialogs.Messages.at(0).Text,
              "Select OK to copy from Group 2 to All Groups.  To abort the copy press cancel.\nNote: All "
              "Timer and Latch "
              "Units will be copied for the group,not just the one being displayed.");
    for (int group = 1; group <= MaxGroups; ++group) {
        EXPECT_EQ(Logic().Group(group).Timer(1).PickUp, 44);
    }
}

TEST_F(GroupEditingWindow, ACopyOntoTheSameGroupIsRefused) {
    Open();
    Groups("cmbCopyGroupTo")->setCurrentIndex(0);
    Dialogs.PressButton("OK");
    Dialogs.PressButton("OK");
    Press("cmdCopyGroup");
    EXPECT_EQ(Dialogs.Messages.at(1).Text, "Can not copy to the same group.");
    EXPECT_FALSE(Logic().Modified);
}

TEST_F(GroupEditingWindow, GroupsBeyondTheLogicsCannotBeChosen) {
    Logic().GroupCount = 6;
    Open();
    const auto* box = Groups("cmbClearGroup");
    const auto enabled = [box](int index) {
        return (box->model()->flags(box->model()->index(index, 0)) & Qt::ItemIsEnabled) != 0;
    };
    EXPECT_TRUE(enabled(5));
    EXPECT_FALSE(enabled(6));
    EXPECT_FALSE(enabled(7));
    EXPECT_TRUE(enabled(8)) << "all groups";
}

TEST_F(GroupEditingWindow, GroupsOfAFileThatAreNotShownCanBeChosen) {
    Logic().RelayModel = RelayKind::Vdr810;
    Logic().GroupCount = 8;
    Logic().Group(8).Timer(2).PickUp = 9;
    Open();
    for (const char* name : {"cmbClearGroup", "cmbCopyGroupFrom", "cmbCopyGroupTo"}) {
        const auto* box = Groups(name);
        for (const int index : {6, 7}) {
            EXPECT_TRUE(box->model()->flags(box->model()->index(index, 0)) & Qt::ItemIsEnabled) << name;
        }
    }
    Groups("cmbClearGroup")->setCurrentIndex(7);
    Dialogs.PressButton("OK");
    Press("cmdClearGroup");
    EXPECT_EQ(0, Logic().Group(8).Timer(2).PickUp);
}

TEST_F(GroupEditingWindow, EscapeAndEnterCloseItWithoutAsking) {
    auto* form = Open();
    QTest::keyClick(form, Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    Open();
    QTest::keyClick(Groups("cmbClearGroup"), Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
    EXPECT_TRUE(Dialogs.Messages.empty());
}

TEST_F(GroupEditingWindow, ItsPlaceIsKeptUnderItsOwnKeys) {
    auto* form = Open();
    form->move(123, 77);
    Press("cmdClose");
    Close();
    const std::string settings = Content("Benchkit.ini");
    EXPECT_NE(settings.find("GEFScreenMode=0"), std::string::npos) << settings;
    EXPECT_NE(settings.find("GEFWinTop=" + std::to_string(77 * 15)), std::string::npos);
    EXPECT_NE(settings.find("GEFWinLeft=" + std::to_string(123 * 15)), std::string::npos);
    EXPECT_NE(settings.find("GEFWinHeight="), std::string::npos);
    EXPECT_NE(settings.find("GEFWinWidth="), std::string::npos);
    Start();
    EXPECT_EQ(Open()->pos(), QPoint(123, 77));
}

TEST_F(GroupEditingWindow, ClearingTheDisplayedUnitAsksAndClearsItAlone) {
    Logic().Group(1).Timer(2).PickUp = 44;
    Logic().Group(1).Timer(3).PickUp = 55;
    Choose("mnuTimerLatch(2)");
    Dialogs.PressEscape();
    Choose("mnuClearDisplayedUnit");
    EXPECT_EQ(TextOf("txtTimerPU"), "44");
    Dialogs.PressButton("OK");
    Choose("mnuClearDisplayedUnit");
    EXPECT_EQ(TextOf("txtTimerPU"), "0");
    EXPECT_EQ(Logic().Group(1).Timer(3).PickUp, 55);
    EXPECT_EQ(Dialogs.Messages.at(1).Text,
              "Select OK to clear all the settings on the currently displayed form.  To abort press cancel.");
    EXPECT_EQ(Dialogs.Messages.at(1).Title, "Confirm Group Clear Selection");
}

} // namespace
} // namespace brindle
