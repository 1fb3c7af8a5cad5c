#include "editor/category_choosers.h"
#include "model/logic_config.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <set>
#include <utility>

namespace brindle {
namespace {

constexpr FormBounds FullHd{0, 0, 1080 * 15, 1920 * 15};
constexpr int Width = 3450;
constexpr int Title = 420;

std::vector<std::string> Captions(const ChooserView& view) {
    std::vector<std::string> captions;
    for (const ChooserButton& button : view.Buttons) {
        captions.push_back(button.Caption);
    }
    return captions;
}

TEST(ChooserView, HasAButtonForEachShownSignalInCatalogueOrder) {
    const ChooserView inputs = BuildChooserView(BuildVdr812Catalogue(Version230), 22);
    EXPECT_EQ(inputs.Title, "Binary Inputs");
    EXPECT_EQ(Captions(inputs), (std::vector<std::string>{"INP1", "INP2", "INP3", "INP4", "INP5", "INP6",
                                                          "INP7", "INP8", "INP9"}));
    EXPECT_EQ(inputs.Buttons.front().Tag, 85);
    EXPECT_EQ(BuildChooserView(BuildVdr812Catalogue(Version100), 22).Buttons.size(), 12U);
}

TEST(ChooserView, TheTagIsThePositionInTheCatalogue) {
    const SignalCatalogue catalogue = BuildVdr812Catalogue(Version100);
    const ChooserView general = BuildChooserView(catalogue, 0);
    EXPECT_EQ(general.Buttons.back().Caption, "FALSE");
    EXPECT_EQ(general.Buttons.back().Tag, 104) << "not its code, 255";
    for (const ChooserButton& button : general.Buttons) {
        EXPECT_EQ(catalogue.Signals.at(static_cast<std::size_t>(button.Tag)).Label, button.Caption);
    }
}

TEST(ChooserView, HiddenSignalsHaveNoButtonAndDisabledOnesAGreyOne) {
    const SignalCatalogue catalogue = BuildVdr812Catalogue(Version100);
    const std::vector<std::string> reverse = Captions(BuildChooserView(catalogue, 5));
    EXPECT_EQ(std::count(reverse.begin(), reverse.end(), "PRT"), 0);
    std::set<std::string> disabled;
    for (int category = 0; category < 31; ++category) {
        for (const ChooserButton& button : BuildChooserView(catalogue, category).Buttons) {
            if (!button.Enabled) {
                disabled.insert(button.Caption);
            }
        }
    }
    EXPECT_EQ(disabled, std::set<std::string>{"50 POL"});
}

TEST(ChooserHomes, StandInColumnsFromTheRightWithTheirTitlesInSight) {
    const std::vector<ChooserHome> homes = ChooserHomes(31, FullHd, Width, Title);
    ASSERT_EQ(homes.size(), 31U);
    EXPECT_EQ(homes[0], (ChooserHome{28800 - 3550, 0}));
    EXPECT_EQ(homes[1], (ChooserHome{28800 - 3550, 420}));
    // Half the screen is 8100 high: 19 titles.
    EXPECT_EQ(homes[18], (ChooserHome{28800 - 3550, 18 * 420}));
    EXPECT_EQ(homes[19], (ChooserHome{28800 - 2 * 3550, 0}));
    EXPECT_EQ(homes[30], (ChooserHome{28800 - 2 * 3550, 11 * 420}));
}

TEST(ChooserHomes, FollowTheScreensOrigin) {
    const FormBounds second{300, 28800, 1080 * 15, 1920 * 15};
    EXPECT_EQ(ChooserHomes(2, second, Width, Title)[1], (ChooserHome{2 * 28800 - 3550, 720}));
}

TEST(ChooserHomes, ASmallScreenPutsThemCloserTogetherInsteadOfBesideItself) {
    const FormBounds small{0, 0, 600 * 15, 800 * 15};
    const std::vector<ChooserHome> homes = ChooserHomes(31, small, Width, Title);
    std::set<std::pair<int, int>> places;
    for (const ChooserHome& home : homes) {
        EXPECT_GE(home.Left, 0);
        places.insert({home.Left, home.Top});
    }
    EXPECT_EQ(places.size(), homes.size()) << "none hides another";
}

RC_GTEST_PROP(ChooserHomes, EveryChooserBeginsOnTheScreenInItsUpperHalf, ()) {
    const FormBounds screen{*rc::gen::inRange(-5000, 5000), *rc::gen::inRange(-50000, 50000),
                            *rc::gen::inRange(3000, 40000), *rc::gen::inRange(3000, 60000)};
    const int count = *rc::gen::inRange(0, 200);
    const int width = *rc::gen::inRange(1000, 9000);
    const std::vector<ChooserHome> homes = ChooserHomes(count, screen, width, *rc::gen::inRange(1, 900));
    RC_ASSERT(homes.size() == static_cast<std::size_t>(count));
    for (const ChooserHome& home : homes) {
        RC_ASSERT(home.Left >= screen.Left);
        RC_ASSERT(home.Left <= screen.Left + std::max(0, screen.Width - width));
        RC_ASSERT(home.Top >= screen.Top);
        RC_ASSERT(home.Top <= screen.Top + screen.Height / 2);
    }
}

TEST(CategoryChoosers, AreClosedAtFirst) {
    CategoryChoosers choosers;
    choosers.Reset(31);
    EXPECT_EQ(choosers.OpenCount(), 0);
    EXPECT_TRUE(choosers.FromBackToFront().empty());
}

TEST(CategoryChoosers, ComeForwardByCategoryWithTheOneUsedLastOnTop) {
    CategoryChoosers choosers;
    choosers.Reset(31);
    for (const int category : {7, 22, 3}) {
        choosers.SetOpen(category, true);
    }
    EXPECT_EQ(choosers.FromBackToFront(), (std::vector<int>{7, 22, 3})) << "opened last, used last";
    choosers.Use(7);
    EXPECT_EQ(choosers.FromBackToFront(), (std::vector<int>{3, 22, 7}));
    EXPECT_EQ(choosers.OpenCount(), 3);
    choosers.SetOpen(7, false);
    EXPECT_EQ(choosers.FromBackToFront(), (std::vector<int>{3, 22})) << "the current one is closed";
    EXPECT_EQ(choosers.OpenCount(), 2);
    choosers.Reset(20);
    EXPECT_EQ(choosers.OpenCount(), 0);
}

} // namespace
} // namespace brindle
