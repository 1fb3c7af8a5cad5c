#include "settings/window_placement.h"
#include "support/memory_profile.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

namespace brindle {
namespace {

using Texts = std::vector<std::string>;

/// A form that remembers what was done to it, on a screen of 1280 by 800 pixels.
struct FormOnDesk {
    FormBounds Bounds{100, 200, 6000, 9000};
    WindowState State = WindowState::Normal;
    Texts Done;
    int LeastHeight = 0;
    int LeastWidth = 0;

    PlacedForm Placed(bool sizable = true) {
        PlacedForm form;
        form.Sizable = sizable;
        form.Screen = [] { return ScreenSize{12000, 19200}; };
        form.State = [this] { return State; };
        form.Bounds = [this] { return Bounds; };
        form.Place = [this](const FormBounds& bounds) {
            Bounds = {bounds.Top, bounds.Left, std::max(bounds.Height, LeastHeight),
                      std::max(bounds.Width, LeastWidth)};
            Done.emplace_back("place");
        };
        form.Maximise = [this] {
            State = WindowState::Maximised;
            Done.emplace_back("maximise");
        };
        return form;
    }
};

std::string Stored(int state, const FormBounds& bounds) {
    return "[Brindle]\r\nScreenMode=" + std::to_string(state) +
           "\r\nWindowTop=" + std::to_string(bounds.Top) + "\r\nWindowLeft=" + std::to_string(bounds.Left) +
           "\r\nWindowHeight=" + std::to_string(bounds.Height) +
           "\r\nWindowWidth=" + std::to_string(bounds.Width) + "\r\n";
}

class Placement : public testing::Test {
  protected:
    bool Save() {
        SettingsFile settings = profile_.Settings();
        return SavePlacement(settings, SectionBrindle, desk_.Placed(), MainWindowKeys);
    }

    void Restore(bool sizable = true) {
        SettingsFile settings = profile_.Settings();
        RestorePlacement(settings, SectionBrindle, desk_.Placed(sizable), MainWindowKeys);
    }

    MemoryProfile profile_;
    FormOnDesk desk_;
};

const Texts AllWrites{"[Brindle] ScreenMode=0", "[Brindle] WindowTop=100", "[Brindle] WindowLeft=200",
                      "[Brindle] WindowHeight=6000", "[Brindle] WindowWidth=9000"};

TEST_F(Placement, ANormalFormStoresStateTopLeftHeightAndWidthInThisOrder) {
    EXPECT_TRUE(Save());
    EXPECT_EQ(AllWrites, profile_.Writes);
}

TEST_F(Placement, AMaximisedFormStoresOnlyItsState) {
    desk_.State = WindowState::Maximised;
    EXPECT_TRUE(Save());
    EXPECT_EQ(Texts{"[Brindle] ScreenMode=2"}, profile_.Writes);
}

TEST_F(Placement, AMinimisedFormStoresOnlyItsState) {
    desk_.State = WindowState::Minimised;
    EXPECT_TRUE(Save());
    EXPECT_EQ(Texts{"[Brindle] ScreenMode=1"}, profile_.Writes);
}

TEST_F(Placement, SavingStopsAtTheFirstFailedWriteWithOneWarning) {
    for (std::size_t failing = 1; failing <= AllWrites.size(); ++failing) {
        profile_ = MemoryProfile();
        profile_.FailFrom = failing;
        EXPECT_FALSE(Save());
        EXPECT_EQ(failing, profile_.Writes.size());
        EXPECT_EQ(1U, profile_.Boxes.size());
    }
}

TEST_F(Placement, AFailedWriteOfAMaximisedStateIsAFailure) {
    desk_.State = WindowState::Maximised;
    profile_.FailFrom = 1;
    EXPECT_FALSE(Save());
}

TEST_F(Placement, AMissingFileCentresTheFormAndStoresItAtOnce) {
    Restore();
    EXPECT_EQ((FormBounds{3000, 5100, 6000, 9000}), desk_.Bounds);
    EXPECT_EQ(Stored(0, desk_.Bounds), profile_.Text);
}

TEST_F(Placement, AStoredWidthOf0IsNoPlacement) {
    profile_.Text = Stored(2, {10, 20, 7000, 0});
    Restore();
    EXPECT_EQ((FormBounds{3000, 5100, 6000, 9000}), desk_.Bounds);
    EXPECT_EQ(Texts{"place"}, desk_.Done);
    EXPECT_EQ(Stored(0, desk_.Bounds), profile_.Text);
}

TEST_F(Placement, AFileOfOtherKeysIsNoPlacement) {
    profile_.Text = "[Brindle]\r\nHomeDir=/a\r\n";
    Restore();
    EXPECT_EQ(5100, desk_.Bounds.Left);
    EXPECT_EQ(5U, profile_.Writes.size());
}

TEST_F(Placement, AStoredPlaceAndSizeComeBack) {
    profile_.Text = Stored(0, {300, 450, 7500, 10500});
    Restore();
    EXPECT_EQ((FormBounds{300, 450, 7500, 10500}), desk_.Bounds);
    EXPECT_EQ(Texts(), profile_.Writes);
}

TEST_F(Placement, AFormOfFixedSizeTakesOnlyThePlace) {
    profile_.Text = Stored(0, {300, 450, 7500, 10500});
    Restore(false);
    EXPECT_EQ((FormBounds{300, 450, 6000, 9000}), desk_.Bounds);
}

TEST_F(Placement, OnlyAPositiveSizeIsTaken) {
    profile_.Text = Stored(0, {300, 450, -7500, -1});
    Restore();
    EXPECT_EQ((FormBounds{300, 450, 6000, 9000}), desk_.Bounds);
    profile_.Text = Stored(0, {300, 450, 0, 10500});
    Restore();
    EXPECT_EQ((FormBounds{300, 450, 6000, 10500}), desk_.Bounds);
}

TEST_F(Placement, AFormThatFitsTheScreenExactlyStays) {
    profile_.Text = Stored(0, {4500, 8700, 7500, 10500});
    Restore();
    EXPECT_EQ((FormBounds{4500, 8700, 7500, 10500}), desk_.Bounds);
}

TEST_F(Placement, APlaceBeyondTheScreenGoesToItsTopOrLeftEdge) {
    profile_.Text = Stored(0, {4501, 300, 7500, 10500});
    Restore();
    EXPECT_EQ((FormBounds{0, 300, 7500, 10500}), desk_.Bounds);
    profile_.Text = Stored(0, {300, 8701, 7500, 10500});
    Restore();
    EXPECT_EQ((FormBounds{300, 0, 7500, 10500}), desk_.Bounds);
    profile_.Text = Stored(0, {-1, -1, 7500, 10500});
    Restore();
    EXPECT_EQ((FormBounds{0, 0, 7500, 10500}), desk_.Bounds);
}

TEST_F(Placement, AFormStoredSmallerThanItsLeastSizeIsKeptOnTheScreenByTheSizeItGets) {
    desk_.LeastHeight = 5000;
    desk_.LeastWidth = 7000;
    profile_.Text = Stored(0, {7001, 12201, 1000, 1000});
    Restore();
    EXPECT_EQ((FormBounds{0, 0, 5000, 7000}), desk_.Bounds);
    profile_.Text = Stored(0, {7000, 12200, 1000, 1000});
    Restore();
    EXPECT_EQ((FormBounds{7000, 12200, 5000, 7000}), desk_.Bounds) << "where it just fits";
}

TEST_F(Placement, NumbersAtTheEndsOfTheirRangeAreBeyondTheScreen) {
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int greatest = std::numeric_limits<int>::max();
    profile_.Text = Stored(0, {greatest, greatest, greatest, greatest});
    Restore();
    EXPECT_EQ((FormBounds{0, 0, greatest, greatest}), desk_.Bounds);
    profile_.Text = Stored(0, {least, least, least, least});
    desk_.Bounds = {100, 200, 6000, 9000};
    Restore();
    EXPECT_EQ((FormBounds{0, 0, 6000, 9000}), desk_.Bounds);
}

TEST_F(Placement, AFormOfFixedSizeIsKeptOnTheScreenByItsOwnSize) {
    profile_.Text = Stored(0, {5000, 10000, 7500, 10500});
    Restore(false);
    EXPECT_EQ((FormBounds{5000, 10000, 6000, 9000}), desk_.Bounds);
}

TEST_F(Placement, AMaximisedFormIsMaximisedOverItsLastNormalPlace) {
    profile_.Text = Stored(2, {300, 450, 7500, 10500});
    Restore();
    EXPECT_EQ((Texts{"place", "maximise"}), desk_.Done);
    EXPECT_EQ((FormBounds{300, 450, 7500, 10500}), desk_.Bounds);
}

TEST_F(Placement, AMinimisedFormComesBackNormal) {
    profile_.Text = Stored(1, {300, 450, 7500, 10500});
    Restore();
    EXPECT_EQ(Texts{"place"}, desk_.Done);
    EXPECT_EQ(WindowState::Normal, desk_.State);
}

TEST_F(Placement, AStateThatNoFormHasComesBackNormal) {
    for (const int state : {3, -1, 2147483647}) {
        profile_.Text = Stored(state, {300, 450, 7500, 10500});
        desk_.Done.clear();
        Restore();
        EXPECT_EQ(Texts{"place"}, desk_.Done) << state;
    }
}

TEST_F(Placement, MaximisingAndClosingKeepsTheNormalPlaceInTheFile) {
    profile_.Text = Stored(0, {300, 450, 7500, 10500});
    Restore();
    desk_.State = WindowState::Maximised;
    EXPECT_TRUE(Save());
    EXPECT_EQ(Stored(2, {300, 450, 7500, 10500}), profile_.Text);
}

RC_GTEST_FIXTURE_PROP(Placement, AnyStoredNumbersGiveAPlaceOnTheScreen, ()) {
    const auto any =
        rc::gen::oneOf(rc::gen::inRange(-20000, 20000), rc::gen::arbitrary<int>(),
                       rc::gen::element(std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
    profile_.Text = Stored(*any, {*any, *any, *any, *rc::gen::nonZero<int>()});
    Restore();
    RC_ASSERT(desk_.Bounds.Top >= 0 && desk_.Bounds.Top < 12000);
    RC_ASSERT(desk_.Bounds.Left >= 0 && desk_.Bounds.Left < 19200);
    RC_ASSERT(desk_.Bounds.Height > 0 && desk_.Bounds.Width > 0);
}

} // namespace
} // namespace brindle
