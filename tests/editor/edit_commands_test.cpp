#include "editor/group_editing.h"
#include "support/editor_harness.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace brindle {
namespace {

using Lines = std::vector<std::string>;

/// A started editor: a new 2.30 logic, group 1, timer 1.
struct EditCommands : testing::Test {
    EditorHarness Harness;

    EditCommands() {
        Harness.Start();
        Harness.Log.clear();
    }

    [[nodiscard]] const LogicConfig& Config() { return Harness->Config(); }

    LogicConfig& Logic() { return Harness->EditConfig(); }

    /// The index of the button `caption` in the chooser of `category`.
    int Button(int category, const std::string& caption) {
        const ChooserView view = BuildChooserView(Harness->Catalogue(), category);
        for (std::size_t j = 0; j < view.Buttons.size(); ++j) {
            if (view.Buttons[j].Caption == caption) {
                return static_cast<int>(j);
            }
        }
        ADD_FAILURE() << caption;
        return 0;
    }

    void Choose(int category, const std::string& caption) {
        Harness->cmdSelectCategory_Click(category, Button(category, caption));
    }
};

TEST_F(EditCommands, AChoosersButtonConnectsItsSignalAndGivesTheKeyboardBack) {
    Harness->txtPlo_GotFocus(6);
    Harness.Log.clear();
    Choose(22, "INP2");
    EXPECT_EQ(Config().InputCode(1, 1, 6), 86);
    EXPECT_EQ(Config().InputCode(1, 1, 5), 1);
    EXPECT_EQ(Config().InputCode(1, 1, 9), 255);
    EXPECT_TRUE(Config().Modified);
    EXPECT_EQ(Harness->LastChosenButton(), 86);
    EXPECT_EQ(Harness.Log, (Lines{"focus input 6", "unit refreshed"}));
    EXPECT_EQ(Harness->Shown().Input, 6);
}

TEST_F(EditCommands, FalseIsConnectedByItsCodeAndNotItsPosition) {
    Choose(0, "FALSE");
    EXPECT_EQ(Config().InputCode(1, 1, 5), 255);
    EXPECT_EQ(Harness->LastChosenButton(), 104);
}

TEST_F(EditCommands, AButtonStandsForTheSignalThatItsVersionHasThere) {
    Harness->cmdSelectCategory_Click(18, 0);
    EXPECT_EQ(Config().InputCode(1, 1, 5), 102);
    EXPECT_EQ(Harness->View().Inputs[4].Text, "3P TRIP SEAL");
    Logic().Modified = false;
    Harness->mnuNewFileVer100_Click();
    Harness->cmdSelectCategory_Click(18, 0);
    EXPECT_EQ(Config().InputCode(1, 1, 1), 69);
    EXPECT_EQ(Harness->View().Inputs[0].Text, "DSP TRIP");
}

TEST_F(EditCommands, AChooserWhoseButtonWasPressedLiesOnTop) {
    for (const int category : {22, 0}) {
        Harness->mnuLogicCategoriesCategory_Click(category);
    }
    Choose(22, "INP1");
    EXPECT_EQ(Harness->Choosers().Current(), 22);
    EXPECT_EQ(Harness->Choosers().FromBackToFront(), (std::vector<int>{0, 22}));
}

TEST_F(EditCommands, ACategoryOrButtonThatIsNotThereIsAFaultOfTheCaller) {
    EXPECT_THROW(Harness->cmdSelectCategory_Click(22, 9), std::out_of_range);
    EXPECT_THROW(Harness->cmdSelectCategory_Click(31, 0), std::out_of_range);
    EXPECT_THROW(Harness->mnuLogicCategoriesCategory_Click(31), std::out_of_range);
    EXPECT_FALSE(Config().Modified);
    EXPECT_TRUE(Harness.Log.empty());
}

TEST_F(EditCommands, AfterAConnectTheInvertMarkIsThatOfTheNewCode) {
    Choose(22, "INP2");
    Harness->txtPlo_DblClick(5);
    EXPECT_EQ(Config().InputCode(1, 1, 5), 170);
    EXPECT_TRUE(Harness->View().Inputs[4].InvertMark);
    Choose(22, "INP3");
    EXPECT_FALSE(Harness->View().Inputs[4].InvertMark);
    EXPECT_EQ(Harness->View().Inputs[4].Text, "INP3");
}

TEST_F(EditCommands, TheKeyboardsReturnSpellsALatchTheOtherWayRound) {
    Harness->mnuTimerLatch_Click(7);
    EXPECT_EQ(Harness->View().SelectedInputCaption, "Connect Signal to:  G1 - R1:11");
    Choose(22, "INP1");
    EXPECT_EQ(Harness->View().SelectedInputCaption, "Connect Signal to:  G1 - S1:11");
}

TEST_F(EditCommands, ADoubleClickSelectsItsInputFirst) {
    Choose(22, "INP1");
    Harness->txtPlo_DblClick(10);
    EXPECT_EQ(Harness->Shown().Input, 10);
    EXPECT_EQ(Config().InputCode(1, 1, 10), 1) << "its gate was wholly FALSE";
    EXPECT_EQ(Config().InputCode(1, 1, 9), 1);
    EXPECT_EQ(Config().InputCode(1, 1, 5), 85) << "the input selected before stays";
}

TEST_F(EditCommands, AChooserOpensAndClosesByItsMenuItem) {
    Harness->mnuLogicCategoriesCategory_Click(22);
    EXPECT_EQ(Harness.Log, (Lines{"open choosers", "show chooser 22"}));
    EXPECT_EQ(Harness->Choosers().OpenCount(), 1);
    EXPECT_EQ(Harness->Choosers().Current(), 22);
    Harness.Log.clear();
    Harness->mnuLogicCategoriesCategory_Click(22);
    EXPECT_EQ(Harness.Log, (Lines{"open choosers", "hide chooser 22"}));
    EXPECT_EQ(Harness->Choosers().OpenCount(), 0);
    EXPECT_FALSE(Config().Modified);
}

TEST_F(EditCommands, AClickOnAnInputBringsTheOpenChoosersForward) {
    for (const int category : {2, 22, 5}) {
        Harness->mnuLogicCategoriesCategory_Click(category);
    }
    Harness->UseChooser(2);
    Harness.Log.clear();
    Harness->txtPlo_Click(5);
    EXPECT_EQ(Harness.Log, (Lines{"raise chooser 5", "raise chooser 22", "raise chooser 2"}));
}

TEST_F(EditCommands, LocateAllMovesTheOpenChoosersHomeTheCurrentOneLast) {
    for (const int category : {2, 22, 5}) {
        Harness->mnuLogicCategoriesCategory_Click(category);
    }
    Harness->UseChooser(22);
    Harness.Log.clear();
    Harness->mnuLogicCategoriesLocateAll_Click();
    EXPECT_EQ(Harness.Log, (Lines{"move chooser home 2", "raise chooser 2", "move chooser home 5",
                                  "raise chooser 5", "move chooser home 22", "raise chooser 22"}));
}

TEST_F(EditCommands, CloseAllClosesEveryOpenChooserInOrder) {
    for (const int category : {22, 2}) {
        Harness->mnuLogicCategoriesCategory_Click(category);
    }
    Harness.Log.clear();
    Harness->mnuLogicCategoriesCloseAll_Click();
    EXPECT_EQ(Harness.Log, (Lines{"open choosers", "hide chooser 2", "open choosers", "hide chooser 22"}));
    EXPECT_EQ(Harness->Choosers().OpenCount(), 0);
}

TEST_F(EditCommands, AChooserClosedByItsWindowIsOpenedAnewByItsMenuItem) {
    Harness->mnuLogicCategoriesCategory_Click(22);
    Harness->CloseChooser(22);
    EXPECT_FALSE(Harness->Choosers().IsOpen(22));
    Harness.Log.clear();
    Harness->mnuLogicCategoriesCategory_Click(22);
    EXPECT_EQ(Harness.Log, (Lines{"open choosers", "show chooser 22"}));
}

TEST_F(EditCommands, ATimeIsStoredInItsFieldOfTheShownTimer) {
    Harness->mnuGroup_Click(3);
    Harness->mnuTimerLatch_Click(4);
    const TimerEcho echo = Harness->txtTimerPU_Change("061005");
    EXPECT_EQ(echo.Text, "61005");
    EXPECT_EQ(echo.ReadOut, "Min:1 Sec:1 mSec:5");
    Harness->txtTimerDO_Change("600000");
    EXPECT_EQ(Config().Group(3).Timer(4), (UnitTimer{61005, 600000}));
    EXPECT_TRUE(Harness.Boxes.empty());
}

TEST_F(EditCommands, OnlyThePickUpTimeMarksTheLogicModified) {
    Harness->txtTimerDO_Change("75");
    Harness->txtTimerDO_Change("");
    EXPECT_FALSE(Config().Modified);
    EXPECT_EQ(Config().Group(1).Timer(1).DropOut, 75);
    Harness->txtTimerPU_Change("");
    EXPECT_TRUE(Config().Modified) << "first of all, whatever the text is";
}

TEST_F(EditCommands, AnEmptyBoxKeepsTheTimeAndItsReadOut) {
    Logic().Group(1).Timer(1) = {5, 6};
    EXPECT_EQ(Harness->txtTimerPU_Change("").ReadOut, std::nullopt);
    EXPECT_EQ(Harness->txtTimerDO_Change("").ReadOut, std::nullopt);
    EXPECT_EQ(Config().Group(1).Timer(1), (UnitTimer{5, 6}));
}

TEST_F(EditCommands, ATimeThatCannotBeIsRefusedAndBecomesZero) {
    for (const char* text : {"600001", "-1", "99999999999", "abc", " "}) {
        Logic().Group(1).Timer(1) = {5, 6};
        Harness.Boxes.clear();
        const TimerEcho echo = Harness->txtTimerPU_Change(text);
        ASSERT_EQ(Harness.Boxes.size(), 1U) << text;
        EXPECT_EQ(Harness.Boxes[0].Text, "An integer in the range 0 to 600000 must be entered.");
        EXPECT_EQ(echo.Text, "0");
        EXPECT_EQ(echo.ReadOut, "Min:0 Sec:0 mSec:0");
        EXPECT_EQ(Config().Group(1).Timer(1), (UnitTimer{0, 6}));
    }
    EXPECT_EQ(Harness->txtTimerDO_Change("600001").Text, "0");
    EXPECT_EQ(Config().Group(1).Timer(1), (UnitTimer{0, 0}));
}

TEST_F(EditCommands, LoadingAPickUpTimeMarksTheLogicModifiedAndStoresNothing) {
    Logic().Group(1).Timer(1) = {700000, -5};
    Harness->txtTimerPU_Load();
    EXPECT_TRUE(Config().Modified);
    EXPECT_EQ(Config().Group(1).Timer(1), (UnitTimer{700000, -5}));
    EXPECT_TRUE(Harness.Boxes.empty());
}

TEST_F(EditCommands, AChangeOfATimesTextWhileALatchIsShownIsNobodys) {
    Harness->mnuTimerLatch_Click(7);
    Logic().Modified = false;
    const auto before = Config().Groups;
    EXPECT_EQ(Harness->txtTimerPU_Change("5").ReadOut, std::nullopt);
    EXPECT_EQ(Harness->txtTimerDO_Change("600001").ReadOut, std::nullopt);
    EXPECT_EQ(Config().Groups, before);
    EXPECT_FALSE(Config().Modified);
    EXPECT_TRUE(Harness.Boxes.empty());
}

TEST_F(EditCommands, AnEditShowsTheNumberOfTheEditedInputAlone) {
    Choose(22, "INP1");
    Harness->mnuShowNumbers_Click();
    EXPECT_EQ(Harness->View().Inputs[4].Text, "INP1") << "the texts follow later";
    Harness->txtPlo_DblClick(5);
    EXPECT_EQ(Harness->View().Inputs[4].Text.substr(2), " -> INP1");
    EXPECT_EQ(Harness->View().Inputs[5].Text, "TRUE") << "it was not edited";
    Harness->txtPlo_GotFocus(6);
    EXPECT_EQ(Harness->View().Inputs[5].Text, "TRUE") << "selecting an input is no edit";
    Harness->mnuTimerLatch_Click(1);
    EXPECT_EQ(Harness->View().Inputs[5].Text, "1 -> TRUE");
    Harness->mnuShowNumbers_Click();
    Harness->txtPlo_DblClick(5);
    EXPECT_EQ(Harness->View().Inputs[4].Text, "INP1");
    EXPECT_EQ(Harness->View().Inputs[5].Text, "1 -> TRUE");
}

TEST_F(EditCommands, EveryInputThatAnEditGivesACodeShowsItsNumber) {
    Harness->mnuShowNumbers_Click();
    Harness->txtPlo_DblClick(5);
    EXPECT_EQ(Harness->View().Inputs[4].Text, "NO CONNECT") << "a flip gives it no code";
    Choose(22, "INP1");
    EXPECT_NE(Harness->View().Inputs[4].Text.find(" -> INP1"), std::string::npos);
    EXPECT_EQ(Harness->View().Inputs[5].Text, "1 -> TRUE");
    EXPECT_EQ(Harness->View().Inputs[8].Text, "FF -> FALSE");
    EXPECT_EQ(Harness->View().Inputs[0].Text, "NO CONNECT") << "a hidden input is given none";
}

TEST_F(EditCommands, EventsOfHiddenInputsAreIgnored) {
    const auto before = Config().Groups;
    const int selected = Harness->Shown().Input;
    for (const int hidden : {1, 4, 13, 16}) {
        Harness->txtPlo_GotFocus(hidden);
        Harness->txtPlo_Click(hidden);
        Harness->txtPlo_DblClick(hidden);
        EXPECT_EQ(selected, Harness->Shown().Input) << hidden;
    }
    EXPECT_EQ(Config().Groups, before);
    EXPECT_FALSE(Config().Modified);
    Harness->mnuNewFileVer100_Click();
    Harness->txtPlo_GotFocus(16);
    EXPECT_EQ(16, Harness->Shown().Input) << "which version 1.00 shows";
}

TEST_F(EditCommands, AUnitShownToBePrintedMarksNothingModified) {
    Harness->mnuGroup_Click(2);
    Harness->mnuTimerLatch_Click(3);
    Logic().Modified = false;
    Harness->BeginPrinting();
    Harness->mnuGroup_Click(5);
    Harness->mnuTimerLatch_Click(1);
    Harness->txtTimerPU_Load();
    EXPECT_FALSE(Config().Modified);
    EXPECT_TRUE(Harness->Shown().Printing);
    Harness->EndPrinting();
    EXPECT_EQ(2, Harness->Shown().Group);
    EXPECT_EQ(3, Harness->Shown().Unit);
    EXPECT_FALSE(Harness->Shown().Printing);
    Harness->txtTimerPU_Load();
    EXPECT_TRUE(Config().Modified) << "printed no longer";
}

TEST_F(EditCommands, AnEditDuringPrintingAndOneBeforeItStayMarked) {
    Logic().Modified = false;
    Harness->BeginPrinting();
    Harness->txtTimerPU_Change("5");
    Harness->EndPrinting();
    EXPECT_TRUE(Config().Modified);
    Harness->BeginPrinting();
    Harness->txtTimerPU_Load();
    Harness->EndPrinting();
    EXPECT_TRUE(Config().Modified);
}

TEST_F(EditCommands, AKeyThatIsNoDigitIsRefusedWithANotice) {
    EXPECT_TRUE(Harness->txtTimer_KeyPress(U'7'));
    EXPECT_TRUE(Harness->txtTimer_KeyPress(8));
    EXPECT_FALSE(Harness->txtTimer_KeyPress(13));
    EXPECT_TRUE(Harness.Boxes.empty());
    EXPECT_FALSE(Harness->txtTimer_KeyPress(U'-'));
    ASSERT_EQ(Harness.Boxes.size(), 1U);
    EXPECT_EQ(Harness.Boxes[0].Text,
              "An integer number must be entered.  Only number keys 0 to 9 are allowed.");
}

TEST_F(EditCommands, AnOutputIsMappedInTheSlotOfTheShownUnit) {
    Harness->mnuGroup_Click(2);
    Harness->mnuTimerLatch_Click(8);
    Harness->cbxOutputMap_Click(5, true);
    EXPECT_EQ(Config().Group(2).OutputMap(7, 1), 0x2000U);
    EXPECT_TRUE(Config().Modified);
    Harness->mnuTimerLatch_Click(7);
    EXPECT_TRUE(Harness->View().OutputSet.at(5)) << "both sides of a latch share their outputs";
    Harness->cbxOutputMap_Click(6, true);
    Harness->cbxOutputMap_Click(5, false);
    EXPECT_EQ(Config().Group(2).OutputMap(7, 1), 0x1000U);
}

TEST_F(EditCommands, ClearingTheShownGroupShowsItsUnitAnew) {
    Logic().Group(1).Timer(1).PickUp = 5;
    Harness.AnswerBox(MessageAnswer::Ok);
    Harness->cmdClearGroup_Click(1);
    EXPECT_EQ(Harness.Boxes.at(0).Text, ClearGroupQuestion(1).Text);
    EXPECT_EQ(Config().Group(1).Timer(1).PickUp, 0);
    EXPECT_TRUE(Config().Modified);
    EXPECT_EQ(Harness.Log, (Lines{"hourglass on", "unit selected", "hourglass off"}));
}

TEST_F(EditCommands, ClearingAnotherGroupLeavesTheWindow) {
    Logic().Group(2).Timer(1).PickUp = 5;
    Harness.AnswerBox(MessageAnswer::Ok);
    Harness->cmdClearGroup_Click(2);
    EXPECT_EQ(Config().Group(2).Timer(1).PickUp, 0);
    EXPECT_EQ(Harness.Log, (Lines{"hourglass on", "hourglass off"}));
}

TEST_F(EditCommands, ACancelledQuestionChangesNothing) {
    Logic().Group(1).Timer(1).PickUp = 5;
    const auto before = Config().Groups;
    for (int question = 0; question < 3; ++question) {
        Harness.AnswerBox(MessageAnswer::Cancel);
    }
    Harness->cmdClearGroup_Click(AllGroups);
    Harness->cmdCopyGroup_Click(1, 2);
    Harness->mnuClearDisplayedUnit_Click();
    EXPECT_EQ(Config().Groups, before);
    EXPECT_FALSE(Config().Modified);
    EXPECT_TRUE(Harness.Log.empty());
}

TEST_F(EditCommands, ACopyOntoTheSameGroupIsRefusedAfterTheQuestion) {
    Harness.AnswerBox(MessageAnswer::Ok);
    Harness->cmdCopyGroup_Click(2, 2);
    ASSERT_EQ(Harness.Boxes.size(), 2U);
    EXPECT_EQ(Harness.Boxes[1].Text, "Can not copy to the same group.");
    EXPECT_FALSE(Config().Modified);
    EXPECT_TRUE(Harness.Log.empty());
}

TEST_F(EditCommands, ACopyOntoTheShownGroupShowsItsUnitAnew) {
    Logic().Group(4).Timer(1).PickUp = 5;
    Harness.AnswerBox(MessageAnswer::Ok);
    Harness->cmdCopyGroup_Click(4, AllGroups);
    EXPECT_EQ(Config().Group(1).Timer(1).PickUp, 5);
    EXPECT_EQ(Harness.Log, (Lines{"hourglass on", "unit selected", "hourglass off"}));
    Harness.Log.clear();
    Harness.AnswerBox(MessageAnswer::Ok);
    Harness->cmdCopyGroup_Click(1, AllGroups);
    EXPECT_EQ(Harness.Log, (Lines{"hourglass on", "hourglass off"})) << "the shown group is the source";
}

TEST_F(EditCommands, ClearingTheShownLatchTakesTheOutputsOfItsOtherSideToo) {
    Logic().Group(1).Unit(7).Inputs.fill(20);
    Logic().Group(1).Unit(8).Inputs.fill(30);
    Logic().Group(1).OutputMap(7, 1) = 0x2000;
    Harness->mnuTimerLatch_Click(8);
    Harness.Log.clear();
    Harness.AnswerBox(MessageAnswer::Ok);
    Harness->mnuClearDisplayedUnit_Click();
    EXPECT_EQ(Harness.Boxes.at(0).Text, ClearUnitQuestion().Text);
    EXPECT_EQ(Config().Group(1).Unit(8), LogicUnit{});
    EXPECT_EQ(Config().InputCode(1, 7, 16), 20);
    EXPECT_EQ(Config().Group(1).OutputMap(7, 1), 0U);
    EXPECT_TRUE(Config().Modified);
    EXPECT_EQ(Harness.Log, Lines{"unit selected"});
}

TEST_F(EditCommands, ClearingAVdr810TimerLeavesItsUnconnectedSignalInItsInputs) {
    Logic().RelayModel = RelayKind::Vdr810;
    Logic().Coding = {1000, 400};
    Logic().Group(1).Unit(1).Inputs.fill(33);
    Logic().Group(1).Timer(1) = {5, 6};
    Harness.AnswerBox(MessageAnswer::Ok);
    Harness->mnuClearDisplayedUnit_Click();
    EXPECT_EQ(Config().InputCode(1, 1, 1), 400);
    EXPECT_EQ(Config().InputCode(1, 1, 16), 400) << "hidden inputs too";
    EXPECT_EQ(Config().Group(1).Timer(1), UnitTimer{});
}

TEST_F(EditCommands, ThePlaceOfTheGroupEditingWindowIsKept) {
    PlacedForm form;
    FormBounds bounds{600, 900, 3000, 4500};
    form.Screen = [] { return ScreenSize{16200, 28800}; };
    form.State = [] { return WindowState::Normal; };
    form.Bounds = [&] { return bounds; };
    form.Place = [&](const FormBounds& place) { bounds = place; };
    form.Maximise = [] { ADD_FAILURE() << "was not maximised"; };
    Harness->SavePlace(form, GroupEditingKeys);
    const FormBounds kept = bounds;
    bounds.Top = 0;
    bounds.Left = 0;
    Harness->RestorePlace(form, GroupEditingKeys);
    EXPECT_EQ(bounds.Top, kept.Top);
    EXPECT_EQ(bounds.Left, kept.Left);
}

} // namespace
} // namespace brindle
