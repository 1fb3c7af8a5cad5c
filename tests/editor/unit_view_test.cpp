#include "editor/unit_view.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace brindle {
namespace {

struct Shown {
    LogicConfig Config;
    SignalCatalogue Catalogue;
    ViewSelection Selection;

    explicit Shown(float version) : Catalogue(BuildVdr812Catalogue(version)) {
        MakeNewVdr812(Config, version);
        Selection.Input = version < Version230 ? 1 : 5;
    }

    [[nodiscard]] UnitView View() const { return BuildUnitView(Config, Catalogue, Selection); }

    UnitInput& Code(int input) {
        return Config.Group(Selection.Group)
            .Unit(Selection.Unit)
            .Inputs.at(static_cast<std::size_t>(input - 1));
    }
};

const InputView& Input(const UnitView& view, int input) {
    return view.Inputs.at(static_cast<std::size_t>(input - 1));
}

TEST(UnitView, ATimerOfAVersion100IsCaptionedByItsTag) {
    Shown shown(Version100);
    shown.Selection.Unit = 2;
    const UnitView view = shown.View();
    EXPECT_EQ(view.GroupCaption, "Group:");
    EXPECT_EQ(view.UnitCaption, "Timer:");
    EXPECT_EQ(Input(view, 1).LineCaption, "T211");
    EXPECT_EQ(Input(view, 16).LineCaption, "T244");
    EXPECT_EQ(view.Gates[0].Caption, "T2A1");
    EXPECT_EQ(view.Gates[3].Caption, "T2A4");
    EXPECT_EQ(view.OrCaption, "T2OR");
    EXPECT_EQ(view.Timer.PickUpCaption, "T2PU");
    EXPECT_EQ(view.Timer.DropOutCaption, "T2DO");
    EXPECT_FALSE(view.LatchShown);
}

TEST(UnitView, AVersion230HidesTheOuterRowsAndNamesTheGatesItsOwnWay) {
    Shown shown(Version230);
    shown.Selection.Unit = 8;
    shown.Code(1) = 254; // an inverted code in a row that is not in use
    const UnitView view = shown.View();
    EXPECT_EQ(view.Gates[0].Caption, "S1A3");
    EXPECT_EQ(view.Gates[1].Caption, "S1A1");
    EXPECT_EQ(view.Gates[2].Caption, "S1A2");
    EXPECT_EQ(view.Gates[3].Caption, "S1A4");
    EXPECT_EQ(Input(view, 5).LineCaption, "S111");
    EXPECT_EQ(Input(view, 11).LineCaption, "S123");
    for (int input = 1; input <= InputsPerUnit; ++input) {
        EXPECT_EQ(Input(view, input).Visible, input >= 5 && input <= 12) << input;
    }
    EXPECT_FALSE(view.Gates[0].Visible);
    EXPECT_TRUE(view.Gates[1].Visible);
    EXPECT_TRUE(view.Gates[2].Visible);
    EXPECT_FALSE(view.Gates[3].Visible);
    EXPECT_FALSE(Input(view, 1).InvertMark) << "the marks of hidden rows are hidden too";
}

TEST(UnitView, UnitsOfALatchNameTheirSideAndTheOther) {
    struct Row {
        int Unit;
        const char* Caption;
        const char* OtherSide;
        const char* Latch;
    };

    Shown shown(Version100);
    for (const Row& row :
         {Row{7, "Latch Reset:", "Latch Set Signal", "Q1"}, Row{8, "Latch Set:", "Latch Reset Signal", "Q1"},
          Row{9, "Latch Reset:", "Latch Set Signal", "Q2"},
          Row{10, "Latch Set:", "Latch Reset Signal", "Q2"}}) {
        shown.Selection.Unit = row.Unit;
        const UnitView view = shown.View();
        EXPECT_TRUE(view.LatchShown);
        EXPECT_EQ(view.UnitCaption, row.Caption);
        EXPECT_EQ(view.Latch.OtherSideCaption, row.OtherSide);
        EXPECT_EQ(view.Latch.Caption, row.Latch);
    }
}

TEST(UnitView, TheSelectedInputCaptionAfterUnitSelectionEndsIn11) {
    Shown shown(Version230);
    shown.Selection.Group = 3;
    shown.Selection.Unit = 2;
    EXPECT_EQ(shown.View().SelectedInputCaption, "Connect Signal to:  G3 - T2:11");
    shown.Selection.Group = 1;
    shown.Selection.Unit = 7;
    EXPECT_EQ(shown.View().SelectedInputCaption, "Connect Signal to:  G1 - R1:11");
}

TEST(UnitView, TheSelectedInputCaptionOfALatchNamesTheOtherSideOnceAnInputIsSelected) {
    Shown shown(Version100);
    shown.Selection.InputSelected = InputSelection::ByItself;
    shown.Selection.Input = 10;
    const std::array<const char*, 4> captions{
        "Connect Signal to:  G1 - S1:32", "Connect Signal to:  G1 - R1:32", "Connect Signal to:  G1 - S2:32",
        "Connect Signal to:  G1 - R2:32"};
    for (int unit = 7; unit <= 10; ++unit) {
        shown.Selection.Unit = unit;
        EXPECT_EQ(shown.View().SelectedInputCaption, captions.at(static_cast<std::size_t>(unit - 7)));
    }
    shown.Selection.Unit = 4;
    shown.Selection.Group = 2;
    shown.Selection.Input = 9;
    EXPECT_EQ(shown.View().SelectedInputCaption, "Connect Signal to:  G2 - T4:31");
}

TEST(UnitView, TheSelectedInputCaptionFollowsTheTagsOfTheVersion) {
    Shown shown(Version230);
    shown.Selection.InputSelected = InputSelection::ByItself;
    shown.Selection.Unit = 4;
    shown.Selection.Input = 9;
    EXPECT_EQ(shown.View().SelectedInputCaption, "Connect Signal to:  G1 - T4:21");
}

TEST(UnitView, FalseShowsNoMarkerAlthoughItsCodeIsInTheUpperHalf) {
    Shown shown(Version100);
    shown.Code(1) = 255;
    EXPECT_EQ(Input(shown.View(), 1).Text, "FALSE");
    EXPECT_FALSE(Input(shown.View(), 1).InvertMark);
}

TEST(UnitView, AnUpperHalfCodeShowsTheMarkerAndTheBaseSignalsName) {
    Shown shown(Version100);
    shown.Code(1) = 254;
    EXPECT_EQ(Input(shown.View(), 1).Text, "Z1GT");
    EXPECT_TRUE(Input(shown.View(), 1).InvertMark);
    shown.Code(1) = 2;
    EXPECT_EQ(Input(shown.View(), 1).Text, "Z1GT");
    EXPECT_FALSE(Input(shown.View(), 1).InvertMark);
    shown.Code(1) = 128;
    EXPECT_TRUE(Input(shown.View(), 1).InvertMark) << "half the base is inverted";
    EXPECT_EQ(Input(shown.View(), 1).Text, "");
}

TEST(UnitView, NumbersAreTheStoredCodesInHexadecimal) {
    Shown shown(Version100);
    shown.Selection.NumbersShown.set();
    shown.Code(1) = 251;
    shown.Code(2) = 5;
    shown.Code(3) = 255;
    const UnitView view = shown.View();
    EXPECT_EQ(Input(view, 1).Text, "FB -> ZONE 2 TRIP");
    EXPECT_EQ(Input(view, 2).Text, "5 -> ZONE 2 TRIP");
    EXPECT_EQ(Input(view, 3).Text, "FF -> FALSE");
    EXPECT_EQ(Input(view, 4).Text, "0 -> NO CONNECT");
}

TEST(UnitView, Codes104And105AreNamedByPosition) {
    Shown shown(Version230);
    shown.Code(5) = 104;
    shown.Code(6) = 105;
    shown.Code(7) = 106;
    EXPECT_EQ(Input(shown.View(), 5).Text, "FALSE");
    EXPECT_EQ(Input(shown.View(), 6).Text, "END");
    EXPECT_EQ(Input(shown.View(), 7).Text, "");
}

TEST(UnitView, OnlyTheSelectedInputIsColoured) {
    Shown shown(Version230);
    const UnitView view = shown.View();
    for (int input = 1; input <= InputsPerUnit; ++input) {
        EXPECT_EQ(Input(view, input).BackColour, input == 5 ? 0x00FFC0C0U : 0x00FFFFFFU);
    }
}

TEST(UnitView, TheStripsMarkTheSelection) {
    Shown shown(Version230);
    shown.Selection.Group = 8;
    shown.Selection.Unit = 10;
    const UnitView view = shown.View();
    for (std::size_t i = 0; i < view.Groups.size(); ++i) {
        EXPECT_TRUE(view.Groups.at(i).Visible);
        EXPECT_EQ(view.Groups.at(i).Checked, i == 7);
        EXPECT_EQ(view.Groups.at(i).BackColour, i == 7 ? 0x00FFFF80U : 0x00C0C0C0U);
    }
    for (std::size_t i = 0; i < view.Units.size(); ++i) {
        EXPECT_EQ(view.Units.at(i).Checked, i == 9);
        EXPECT_EQ(view.Units.at(i).BackColour, i == 9 ? 0x00FFFF80U : 0x00C0C0C0U);
    }
}

TEST(UnitView, WhilePrintingUnselectedLabelsAreWhite) {
    Shown shown(Version230);
    shown.Selection.Printing = true;
    const UnitView view = shown.View();
    EXPECT_EQ(view.Groups[0].BackColour, 0x00FFFF80U);
    EXPECT_EQ(view.Groups[1].BackColour, 0x00FFFFFFU);
    EXPECT_EQ(view.Units[9].BackColour, 0x00FFFFFFU);
}

TEST(UnitView, TimesAreShownWithTheirReadOut) {
    Shown shown(Version230);
    shown.Config.Group(1).Timer(1) = {61005, 600000};
    const UnitView view = shown.View();
    EXPECT_EQ(view.Timer.PickUpText, "61005");
    EXPECT_EQ(view.Timer.PickUpReadOut, "Min:1 Sec:1 mSec:5");
    EXPECT_EQ(view.Timer.DropOutText, "600000");
    EXPECT_EQ(view.Timer.DropOutReadOut, "Min:10 Sec:0 mSec:0");
}

TEST(UnitView, AStoredTimeOutOfRangeIsShownAsItIs) {
    Shown shown(Version230);
    shown.Config.Group(1).Timer(1) = {-1, 2147483647};
    EXPECT_EQ(shown.View().Timer.PickUpText, "-1");
    EXPECT_EQ(shown.View().Timer.PickUpReadOut, "Min:0 Sec:0 mSec:-1");
    EXPECT_EQ(shown.View().Timer.DropOutText, "2147483647");
    EXPECT_EQ(shown.View().Timer.DropOutReadOut, "Min:35791 Sec:23 mSec:647");
}

TEST(UnitView, TheOutputBoxesFollowTheBitsOfTheUnitsSlot) {
    Shown shown(Version230);
    shown.Config.Group(1).OutputMap(7, 1) = 0x10000U | 0x20U; // outputs 2 and 13
    for (const int unit : {7, 8}) {
        shown.Selection.Unit = unit;
        const UnitView view = shown.View();
        EXPECT_EQ(view.OutputSet.size(), 12U);
        for (const auto& [output, ticked] : view.OutputSet) {
            EXPECT_EQ(ticked, output == 2 || output == 13) << output;
        }
    }
    shown.Selection.Unit = 9;
    EXPECT_FALSE(shown.View().OutputSet.at(2));
}

TEST(UnitView, AVdr810LogicShowsAtMostSixGroups) {
    Shown shown(Version230);
    shown.Config.RelayModel = RelayKind::Vdr810;
    EXPECT_TRUE(shown.View().Groups[5].Visible);
    EXPECT_FALSE(shown.View().Groups[6].Visible);
    EXPECT_FALSE(shown.View().Groups[7].Visible);
    shown.Config.GroupCount = 2;
    EXPECT_TRUE(shown.View().Groups[1].Visible);
    EXPECT_FALSE(shown.View().Groups[2].Visible);
}

RC_GTEST_PROP(UnitView, AnyByteInAnyInputHasAView, ()) {
    Shown shown(*rc::gen::element(Version100, Version230));
    shown.Selection.Unit = *rc::gen::inRange(1, 11);
    shown.Selection.NumbersShown = InputSet(*rc::gen::arbitrary<std::uint16_t>());
    const int input = *rc::gen::inRange(1, 17);
    const int code = *rc::gen::inRange(0, 256);
    shown.Code(input) = code;
    const InputView view = Input(shown.View(), input);
    RC_ASSERT(view.InvertMark == (view.Visible && code >= 128 && code != 255));
    RC_ASSERT(view.Idle == (code == 0 || code == 255));
}

TEST(TimeReadOut, SplitsMillisecondsIntoMinutesSecondsAndTheRest) {
    EXPECT_EQ(TimeReadOut(0), "Min:0 Sec:0 mSec:0");
    EXPECT_EQ(TimeReadOut(999), "Min:0 Sec:0 mSec:999");
    EXPECT_EQ(TimeReadOut(61005), "Min:1 Sec:1 mSec:5");
    EXPECT_EQ(TimeReadOut(600000), "Min:10 Sec:0 mSec:0");
    EXPECT_EQ(TimeReadOut(-2147483647 - 1), "Min:-35791 Sec:-23 mSec:-648");
}

} // namespace
} // namespace brindle
