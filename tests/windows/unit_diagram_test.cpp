#include "editor/gate_rows.h"
#include "editor/menu_tree.h"
#include "editor/strip_label_widget.h"
#include "support/main_window_test_window.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace brindle {
namespace {

/// A logic of `version` in which every input, time and output of every group and unit differs from its
/// neighbours.
LogicConfig ManifoldLogic(float version) {
    LogicConfig config;
    MakeNewVdr812(config, version);
    for (int group = 1; group <= MaxGroups; ++group) {
        for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
            for (int input = 1; input <= InputsPerUnit; ++input) {
                config.Group(group).Unit(unit).Inputs.at(static_cast<std::size_t>(input - 1)) =
                    (group * 31 + unit * 17 + input * 7) % 256;
            }
        }
        for (int timer = 1; timer <= TimersPerGroup; ++timer) {
            config.Group(group).Timer(timer) = {group * 1000 + timer, 600000 - group * timer};
        }
        for (int slot = 1; slot <= MapSlots; ++slot) {
            config.Group(group).OutputMap(slot, 1) = static_cast<std::uint32_t>(group * 9973 + slot * 3571);
        }
    }
    return config;
}

class UnitDiagramWindow : public MainWindowTest {
  protected:
    static std::string Element(const char* array, int index) { return ElementName(array, index); }

    /// Compares every control of the shown unit with the editor's view.
    void ExpectControlsShow(const UnitView& view) {
        EXPECT_EQ(TextOf("lblSelectedInput"), view.SelectedInputCaption);
        EXPECT_EQ(TextOf("lblGroup"), view.GroupCaption);
        EXPECT_EQ(TextOf("lblTimerLatchUnit"), view.UnitCaption);
        EXPECT_EQ(TextOf("lblOR"), view.OrCaption);
        ExpectInputsShow(view);
        ExpectUnitSymbolShows(view);
        for (const auto& [output, ticked] : view.OutputSet) {
            auto* box = Find<QCheckBox>(Element("cbxOutputMap", output).c_str());
            EXPECT_EQ(box->isChecked(), ticked) << output;
            EXPECT_TRUE(box->isVisible()) << output;
        }
    }

    void ExpectInputsShow(const UnitView& view) {
        for (int input = 1; input <= InputsPerUnit; ++input) {
            const InputView& expected = view.Inputs.at(static_cast<std::size_t>(input - 1));
            const std::string box = Element("txtPlo", input);
            EXPECT_EQ(TextOf(box.c_str()), expected.Visible ? expected.Text : "(hidden)");
            EXPECT_EQ(TextOf(Element("lblInputLine", input).c_str()),
                      expected.Visible ? expected.LineCaption : "(hidden)");
            EXPECT_EQ(Find<QWidget>(Element("shpInvert", input).c_str())->isVisible(), expected.InvertMark)
                << box;
            EXPECT_EQ(Find<QLineEdit>(box.c_str())->palette().color(QPalette::Base),
                      ToQColor(expected.BackColour));
        }
        for (int row = 1; row <= GatesPerUnit; ++row) {
            const GateView& gate = view.Gates.at(static_cast<std::size_t>(row - 1));
            EXPECT_EQ(TextOf(Element("lblAND", row).c_str()), gate.Visible ? gate.Caption : "(hidden)");
        }
    }

    void ExpectUnitSymbolShows(const UnitView& view) {
        const bool latch = view.LatchShown;
        EXPECT_EQ(TextOf("lblTPU"), latch ? "(hidden)" : view.Timer.PickUpCaption);
        EXPECT_EQ(TextOf("lblTDO"), latch ? "(hidden)" : view.Timer.DropOutCaption);
        EXPECT_EQ(TextOf("txtTimerPU"), latch ? "(hidden)" : view.Timer.PickUpText);
        EXPECT_EQ(TextOf("txtTimerDO"), latch ? "(hidden)" : view.Timer.DropOutText);
        EXPECT_EQ(TextOf("lblPUTime"), latch ? "(hidden)" : view.Timer.PickUpReadOut);
        EXPECT_EQ(TextOf("lblDOTime"), latch ? "(hidden)" : view.Timer.DropOutReadOut);
        EXPECT_EQ(TextOf("lblTimerPU"), latch ? "(hidden)" : "Pick Up Timer (1msec)");
        EXPECT_EQ(TextOf("lblTimerDO"), latch ? "(hidden)" : "Drop Out Timer (1msec)");
        EXPECT_EQ(TextOf("lblS"), latch ? "S" : "(hidden)");
        EXPECT_EQ(TextOf("lblR"), latch ? "R" : "(hidden)");
        EXPECT_EQ(TextOf("lblQ"), latch ? "Q" : "(hidden)");
        EXPECT_EQ(TextOf("lblLSR"), latch ? view.Latch.Caption : "(hidden)");
        EXPECT_EQ(TextOf("lblSetReset"), latch ? view.Latch.OtherSideCaption : "(hidden)");
        EXPECT_EQ(Find<QWidget>("pctSetReset")->isVisible(), latch);
    }

    void Click(const std::string& name) { QTest::mouseClick(Find<QWidget>(name.c_str()), Qt::LeftButton); }
};

TEST_F(UnitDiagramWindow, EveryGroupAndUnitIsShownSavedAndReopened) {
    for (const float version : {Version100, Version230}) {
        const LogicConfig logic = ManifoldLogic(version);
        const std::string bytes = ProgramBytes(logic);
        WriteFile("scheme.pl", bytes);
        Start();
        Dialogs.ChooseFile(PathOf("scheme.pl"));
        Choose("mnuOpenBin");
        const SignalCatalogue catalogue = BuildVdr812Catalogue(version);
        for (int group = 1; group <= MaxGroups; ++group) {
            Click(Element("lblGroupNumber", group));
            for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
                Choose(Element("mnuTimerLatch", unit).c_str());
                ViewSelection selection;
                selection.Group = group;
                selection.Unit = unit;
                selection.Input = FirstInput(version);
                ExpectControlsShow(BuildUnitView(logic, catalogue, selection));
            }
        }
        Dialogs.ChooseFile(PathOf("copy.pl"));
        Choose("mnuSaveBin");
        EXPECT_EQ(Content("copy.pl"), bytes);
        Close();

        Start(PathOf("copy.pl"));
        EXPECT_EQ(TheEditor->Config().Groups, logic.Groups);
        EXPECT_NE(Window->windowTitle().indexOf(QStringLiteral("copy.pl")), -1);
        Choose("mnuFileSave");
        EXPECT_EQ(Content("copy.pl"), bytes);
        Close();
        QFile::remove(QString::fromStdString(PathOf("copy.pl")));
    }
}

TEST_F(UnitDiagramWindow, OnlyTheBoxesOfTheOutputsInRangeAreShown) {
    Start();
    Choose("mnuNewFileVer100");
    EXPECT_TRUE(Find<QWidget>("cbxOutputMap(2)")->isVisible());
    EXPECT_TRUE(Find<QWidget>("cbxOutputMap(9)")->isVisible());
    EXPECT_FALSE(Find<QWidget>("cbxOutputMap(10)")->isVisible());
    Choose("mnuNewFileVer230");
    EXPECT_TRUE(Find<QWidget>("cbxOutputMap(13)")->isVisible());
}

TEST_F(UnitDiagramWindow, AClickOnAnInputSelectsIt) {
    Start();
    Choose("mnuTimerLatch(7)");
    EXPECT_EQ(TextOf("lblSelectedInput"), "Connect Signal to:  G1 - R1:11");
    Click("txtPlo(10)");
    EXPECT_EQ(TextOf("lblSelectedInput"), "Connect Signal to:  G1 - S1:22");
    EXPECT_EQ(Find<QLineEdit>("txtPlo(10)")->palette().color(QPalette::Base), QColor(192, 192, 255));
    EXPECT_EQ(Find<QLineEdit>("txtPlo(5)")->palette().color(QPalette::Base), QColor(255, 255, 255));
    Click("txtPlo(5)");
    EXPECT_EQ(TextOf("lblSelectedInput"), "Connect Signal to:  G1 - S1:11");
}

TEST_F(UnitDiagramWindow, TabWalksTheInputsAndSelectsThem) {
    Start();
    EXPECT_TRUE(Find<QLineEdit>("txtPlo(5)")->hasFocus());
    QTest::keyClick(Window->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(TextOf("lblSelectedInput"), "Connect Signal to:  G1 - T1:12");
    QTest::keyClick(Window->focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(TextOf("lblSelectedInput"), "Connect Signal to:  G1 - T1:11");
}

TEST_F(UnitDiagramWindow, TabGoesFromTheLastInputToTheTimesOrTheOtherSide) {
    Start();
    Find<QLineEdit>("txtPlo(12)")->setFocus();
    QTest::keyClick(Window->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(Window->focusWidget()->objectName(), QStringLiteral("txtTimerPU"));
    QTest::keyClick(Window->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(Window->focusWidget()->objectName(), QStringLiteral("txtTimerDO"));
    Choose("mnuTimerLatch(8)");
    Find<QLineEdit>("txtPlo(12)")->setFocus();
    QTest::keyClick(Window->focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(Window->focusWidget()->objectName(), QStringLiteral("pctSetReset"));
    QTest::keyClick(Window->focusWidget(), Qt::Key_Space);
    EXPECT_EQ(TheEditor->Shown().Unit, 7);
}

TEST_F(UnitDiagramWindow, TheFocusNeverEndsInAHiddenControl) {
    for (const char* box : {"txtPlo(1)", "txtPlo(3)", "txtPlo(13)", "txtPlo(16)"}) {
        Start();
        Choose("mnuNewFileVer100");
        Click(box);
        ASSERT_EQ(Window->focusWidget()->objectName(), QString::fromLatin1(box));
        Choose("mnuNewFileVer230");
        EXPECT_EQ(TheEditor->Shown().Input, 5) << box;
        EXPECT_EQ(TextOf("lblSelectedInput"), "Connect Signal to:  G1 - T1:11") << box;
        EXPECT_EQ(Find<QLineEdit>("txtPlo(5)")->palette().color(QPalette::Base), QColor(192, 192, 255))
            << box;
        EXPECT_EQ(Window->focusWidget()->objectName(), QStringLiteral("txtPlo(5)")) << box;
        Close();
    }
    Start();
    Find<QLineEdit>("txtTimerPU")->setFocus();
    Choose("mnuTimerLatch(7)");
    EXPECT_EQ(Window->focusWidget()->objectName(), QStringLiteral("txtPlo(5)"));
    EXPECT_EQ(TextOf("lblSelectedInput"), "Connect Signal to:  G1 - R1:11");
    Find<QWidget>("pctSetReset")->setFocus();
    Choose("mnuTimerLatch(8)");
    EXPECT_EQ(Window->focusWidget()->objectName(), QStringLiteral("pctSetReset"))
        << "still shown: it keeps the focus";
    Choose("mnuTimerLatch(2)");
    EXPECT_EQ(Window->focusWidget()->objectName(), QStringLiteral("txtPlo(5)"));
}

TEST_F(UnitDiagramWindow, TextBeingTypedSurvivesAChangeOfWindow) {
    Start();
    auto* box = Find<QLineEdit>("txtTimerPU");
    box->setText(QStringLiteral("12"));
    box->clear(); // the one text of a box that is not stored
    TheEditor->Form_Activate();
    EXPECT_EQ(TextOf("txtTimerPU"), "");
    Choose("mnuTimerLatch(1)");
    EXPECT_EQ(TextOf("txtTimerPU"), "12") << "selecting a unit loads its times";
}

TEST_F(UnitDiagramWindow, InADarkDesktopTheLightBoxesHaveDarkText) {
    Start();
    const QPalette before = QApplication::palette();
    QPalette dark = before;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::WindowText, Qt::white);
    QApplication::setPalette(dark);
    QApplication::processEvents();
    for (const char* name : {"txtPlo(5)", "txtPlo(6)", "txtTimerPU"}) {
        const QPalette palette = Find<QLineEdit>(name)->palette();
        EXPECT_GT(palette.color(QPalette::Base).lightness(), 200) << name;
        EXPECT_LT(palette.color(QPalette::Text).lightness(), 120) << name;
    }
    EXPECT_EQ(Find<QLabel>("lblInputLine(5)")->palette().color(QPalette::WindowText), QColor(Qt::white));
    QApplication::setPalette(before);
}

TEST_F(UnitDiagramWindow, TypingIntoAnInputHasNoEffect) {
    Start();
    QTest::keyClicks(Find<QLineEdit>("txtPlo(5)"), QStringLiteral("abc"));
    QTest::keyClick(Find<QLineEdit>("txtPlo(5)"), Qt::Key_Delete);
    EXPECT_EQ(TextOf("txtPlo(5)"), "NO CONNECT");
    EXPECT_FALSE(TheEditor->Config().Modified);
}

TEST_F(UnitDiagramWindow, ThePictureAndItsLabelFlipTheLatch) {
    Start();
    Choose("mnuTimerLatch(10)");
    Click("pctSetReset");
    EXPECT_EQ(TheEditor->Shown().Unit, 9);
    EXPECT_TRUE(Find<QAction>("mnuTimerLatch(9)")->isChecked());
    EXPECT_FALSE(Find<QAction>("mnuTimerLatch(10)")->isChecked());
    Click("lblSetReset");
    EXPECT_EQ(TheEditor->Shown().Unit, 10);
}

TEST_F(UnitDiagramWindow, TheStripsColoursFollowTheSelection) {
    Start();
    Click("lblUnit(8)");
    EXPECT_EQ(Find<StripLabelWidget>("lblUnit(8)")->BackColour(), HighlightColour);
    EXPECT_EQ(Find<StripLabelWidget>("lblUnit(1)")->BackColour(), UnselectedColour);
    Choose("mnuGroup(3)");
    EXPECT_EQ(Find<StripLabelWidget>("lblGroupNumber(3)")->BackColour(), HighlightColour);
    EXPECT_TRUE(Find<QAction>("mnuGroup(3)")->isChecked());
    Choose("mnuGroup(3)");
    EXPECT_TRUE(Find<QAction>("mnuGroup(3)")->isChecked())
        << "choosing the shown group again keeps its check mark";
}

TEST_F(UnitDiagramWindow, NumbersAppearWithTheNextSelection) {
    Start();
    Choose("mnuShowNumbers");
    EXPECT_TRUE(Find<QAction>("mnuShowNumbers")->isChecked());
    EXPECT_EQ(TextOf("txtPlo(5)"), "NO CONNECT");
    Choose("mnuTimerLatch(2)");
    EXPECT_EQ(TextOf("txtPlo(5)"), "0 -> NO CONNECT");
}

TEST_F(UnitDiagramWindow, AnEditShowsTheNumberOfItsInputAloneUntilTheNextSelection) {
    Start(BRINDLE_EXAMPLES "/pilot_supervision.pl");
    const std::string first = TextOf("txtPlo(1)");
    const std::string second = TextOf("txtPlo(2)");
    Choose("mnuShowNumbers");
    QTest::mouseDClick(Find<QLineEdit>("txtPlo(1)"), Qt::LeftButton);
    EXPECT_NE(std::string::npos, TextOf("txtPlo(1)").find(" -> " + first)) << TextOf("txtPlo(1)");
    EXPECT_EQ(second, TextOf("txtPlo(2)"));
    Choose("mnuTimerLatch(1)");
    EXPECT_NE(std::string::npos, TextOf("txtPlo(2)").find(" -> " + second)) << TextOf("txtPlo(2)");
}

TEST_F(UnitDiagramWindow, AChangeOfWindowKeepsTheSelectedInputAndTheKeyboard) {
    Start();
    Choose("mnuTimerLatch(7)");
    Click("txtPlo(11)");
    const std::string caption = TextOf("lblSelectedInput");
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    Window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(Window.get()));
    EXPECT_EQ(TextOf("lblSelectedInput"), caption);
    EXPECT_EQ(TheEditor->Shown().Input, 11);
    EXPECT_TRUE(Find<QLineEdit>("txtPlo(11)")->hasFocus());
}

} // namespace
} // namespace brindle
