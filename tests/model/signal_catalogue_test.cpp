#include "model/logic_config.h"
#include "model/signal_catalogue.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <set>

namespace brindle {
namespace {

const SignalCatalogue& Catalogue100() {
    static const SignalCatalogue catalogue = BuildVdr812Catalogue(Version100);
    return catalogue;
}

const SignalCatalogue& Catalogue230() {
    static const SignalCatalogue catalogue = BuildVdr812Catalogue(Version230);
    return catalogue;
}

/// Number of signals of each of the categories 0 to 25.
std::vector<std::size_t> CountsByCategory(const SignalCatalogue& catalogue) {
    std::vector<std::size_t> counts;
    for (std::int32_t category = 0; category <= 25; ++category) {
        counts.push_back(SignalsOfCategory(catalogue, category).size());
    }
    return counts;
}

/// Positions before END whose flag differs from true.
std::set<std::size_t> PositionsWithout(const SignalCatalogue& catalogue, Bool16 SignalEntry::*flag) {
    std::set<std::size_t> positions;
    for (std::size_t i = 0; i < SignalCount(catalogue); ++i) {
        if (!(catalogue.Signals[i].*flag)) {
            positions.insert(i);
        }
    }
    return positions;
}

std::set<std::int32_t> HiddenCategories(const SignalCatalogue& catalogue) {
    std::set<std::int32_t> hidden;
    for (const CategoryEntry& category : catalogue.Categories) {
        if (!category.Visible) {
            hidden.insert(category.Number);
        }
    }
    return hidden;
}

void ExpectSignal(const SignalCatalogue& catalogue, std::size_t position, const std::string& name,
                  std::int16_t category, bool enabled, bool visible) {
    const SignalEntry& entry = catalogue.Signals.at(position);
    EXPECT_EQ(name, entry.Name) << position;
    EXPECT_EQ(category, entry.Category) << position;
    EXPECT_EQ(Bool16(enabled), entry.Enabled) << position;
    EXPECT_EQ(Bool16(visible), entry.Visible) << position;
}

TEST(SignalCatalogue, HasRoomFor141EntriesOf105SignalsAndEnd) {
    for (const SignalCatalogue* catalogue : {&Catalogue100(), &Catalogue230()}) {
        EXPECT_EQ(141U, catalogue->Signals.size());
        EXPECT_EQ(105U, SignalCount(*catalogue));
        for (std::size_t i = 106; i < catalogue->Signals.size(); ++i) {
            EXPECT_EQ(SignalEntry{}, catalogue->Signals[i]) << i;
        }
    }
}

TEST(SignalCatalogue, CodesEqualPositionsButForFalseAndEnd) {
    for (const SignalCatalogue* catalogue : {&Catalogue100(), &Catalogue230()}) {
        for (std::size_t i = 0; i < 104; ++i) {
            EXPECT_EQ(static_cast<std::int32_t>(i), catalogue->Signals[i].Code);
        }
        EXPECT_EQ("FALSE", catalogue->Signals[104].Name);
        EXPECT_EQ(255, catalogue->Signals[104].Code);
        EXPECT_EQ("END", catalogue->Signals[105].Name);
        EXPECT_EQ(-1, catalogue->Signals[105].Code);
        ExpectSignal(*catalogue, 105, "END", NoCategory, false, false);
    }
}

TEST(SignalCatalogue, LabelsAreCopiesOfTheNames) {
    for (const SignalEntry& entry : Catalogue230().Signals) {
        EXPECT_EQ(entry.Name, entry.Label);
    }
}

TEST(SignalCatalogue, NamesAreAllDifferent) {
    for (const SignalCatalogue* catalogue : {&Catalogue100(), &Catalogue230()}) {
        std::set<std::string> names;
        for (std::size_t i = 0; i < SignalCount(*catalogue); ++i) {
            EXPECT_TRUE(names.insert(catalogue->Signals[i].Name).second) << i;
        }
    }
}

TEST(SignalCatalogue, Position16IsNamedByVersion) {
    ExpectSignal(Catalogue100(), 16, "BLINDERS OUTER SUPERVISED", 6, true, true);
    ExpectSignal(Catalogue230(), 16, "OUTER BLINDER", 25, true, true);
    EXPECT_EQ("OUTER BLINDER", Catalogue230().Signals[16].Label);
}

TEST(SignalCatalogue, PrtIsNeitherEnabledNorShownIn100ButKeepsItsCategory) {
    ExpectSignal(Catalogue100(), 13, "PRT", 5, false, false);
    ExpectSignal(Catalogue230(), 13, "PRT", 5, true, true);
}

TEST(SignalCatalogue, FiftyPolIsShownIn100ButNeverEnabled) {
    ExpectSignal(Catalogue100(), 30, "50 POL", 9, false, true);
    ExpectSignal(Catalogue230(), 30, "50 POL", NoCategory, false, false);
}

TEST(SignalCatalogue, Signals97To103HaveNoCategoryIn100AndStillAName) {
    for (std::size_t i = 97; i <= 103; ++i) {
        EXPECT_EQ(NoCategory, Catalogue100().Signals[i].Category) << i;
        EXPECT_FALSE(Catalogue100().Signals[i].Visible) << i;
        EXPECT_TRUE(Catalogue230().Signals[i].Visible) << i;
    }
    EXPECT_EQ("2 PHG FAULT", NameOfCode(Catalogue100(), InputCoding{}, 101));
}

TEST(SignalCatalogue, OnlyPrtAnd50PolAreEverDisabled) {
    EXPECT_EQ((std::set<std::size_t>{13, 30}), PositionsWithout(Catalogue100(), &SignalEntry::Enabled));
    EXPECT_EQ((std::set<std::size_t>{30}), PositionsWithout(Catalogue230(), &SignalEntry::Enabled));
}

TEST(SignalCatalogue, TheHiddenSignalsOfEachVersion) {
    EXPECT_EQ((std::set<std::size_t>{13, 97, 98, 99, 100, 101, 102, 103}),
              PositionsWithout(Catalogue100(), &SignalEntry::Visible));
    EXPECT_EQ((std::set<std::size_t>{10, 14, 17, 26, 27, 28, 29, 30, 31, 32, 36, 37, 41, 48, 49, 50, 51,
                                     52, 53, 54, 55, 56, 57, 69, 70, 71, 72, 73, 80, 81, 94, 95, 96}),
              PositionsWithout(Catalogue230(), &SignalEntry::Visible));
}

TEST(SignalCatalogue, CountsPerCategoryOf100) {
    EXPECT_EQ((std::vector<std::size_t>{2, 3, 1, 1, 4,  4, 3, 4, 6, 5,  3, 2, 4,
                                        4, 6, 3, 4, 10, 5, 3, 5, 3, 12, 0, 0, 0}),
              CountsByCategory(Catalogue100()));
    EXPECT_EQ(8U, SignalsOfCategory(Catalogue100(), NoCategory).size());
}

TEST(SignalCatalogue, CountsPerCategoryOf230) {
    EXPECT_EQ((std::vector<std::size_t>{2, 3, 1, 1, 3,  3, 1, 4, 4, 0, 3, 0, 5,
                                        4, 2, 0, 0, 10, 2, 2, 3, 3, 9, 3, 2, 1}),
              CountsByCategory(Catalogue230()));
    EXPECT_EQ(34U, SignalsOfCategory(Catalogue230(), NoCategory).size());
}

TEST(SignalCatalogue, ACategoryListsItsSignalsInPositionOrderUpToEnd) {
    const auto general = SignalsOfCategory(Catalogue230(), 0);
    ASSERT_EQ(2U, general.size());
    EXPECT_EQ("TRUE", general[0]->Name);
    EXPECT_EQ("FALSE", general[1]->Name);
    const auto breaker = SignalsOfCategory(Catalogue230(), 23);
    ASSERT_EQ(3U, breaker.size());
    EXPECT_EQ("BREAKER FAILURE TRIP", breaker[0]->Name);
    EXPECT_EQ("NETWORK 52 CLOSE", breaker[1]->Name);
    EXPECT_EQ("BREAKER OPEN", breaker[2]->Name);
}

TEST(SignalCatalogue, TheSpellingsOfTheRelayAreKept) {
    EXPECT_EQ("FWP PILOT TRIP", Catalogue100().Signals[10].Name);
    EXPECT_EQ("MEDIUM SET NEGATIVE SEQUENCE TRIP", Catalogue100().Signals[27].Name);
    EXPECT_EQ("REVERSE 3 PH", Catalogue100().Signals[44].Name);
    EXPECT_EQ("SINGLE POLE TRIP PH C", Catalogue100().Signals[72].Name);
    EXPECT_EQ("SINGLE POLE TRIP PHASE C", Catalogue100().Signals[84].Name);
    EXPECT_EQ("SP TRIP SEAL", Catalogue230().Signals[103].Name);
}

TEST(SignalCatalogue, HiddenCategoriesOfEachVersion) {
    EXPECT_EQ((std::set<std::int32_t>{23, 24, 25, 26, 27, 28, 29, 30}), HiddenCategories(Catalogue100()));
    EXPECT_EQ((std::set<std::int32_t>{6, 9, 11, 15, 16, 19, 21, 26, 27, 28, 29, 30}),
              HiddenCategories(Catalogue230()));
}

TEST(SignalCatalogue, HiddenCategoriesOf230KeepSomeOfTheirSignals) {
    ExpectSignal(Catalogue230(), 15, "BLINDERS INNER SUPERVISED", 6, true, true);
    ExpectSignal(Catalogue230(), 74, "BREAKER FAILURE INITIATE", 19, true, true);
    ExpectSignal(Catalogue230(), 75, "BREAKER FAILURE RETRIP", 19, true, true);
    for (std::size_t i = 82; i <= 84; ++i) {
        EXPECT_EQ(21, Catalogue230().Signals[i].Category) << i;
    }
}

TEST(SignalCatalogue, CategoriesAreNumberedByPositionAndAllEnabled) {
    for (const SignalCatalogue* catalogue : {&Catalogue100(), &Catalogue230()}) {
        ASSERT_EQ(31U, catalogue->Categories.size());
        for (std::size_t i = 0; i < catalogue->Categories.size(); ++i) {
            EXPECT_EQ(static_cast<std::int32_t>(i), catalogue->Categories[i].Number);
            EXPECT_TRUE(catalogue->Categories[i].Enabled) << i;
        }
    }
}

TEST(SignalCatalogue, CaptionsAreTheNamesButForTheAccessKeyOfZone3) {
    for (const CategoryEntry& category : Catalogue230().Categories) {
        EXPECT_EQ(category.Number == 3 ? "Zone - &3" : category.Name, category.Caption);
    }
    EXPECT_EQ("Zone - 3", Catalogue230().Categories[3].Name);
    EXPECT_EQ("Foward Pilot", Catalogue230().Categories[4].Caption);
    EXPECT_EQ("Phase Selection at Fault/Trip", Catalogue230().Categories[17].Caption);
    EXPECT_EQ("Not Used ", Catalogue230().Categories[26].Caption) << "with its blank";
    EXPECT_EQ("Not Used ", Catalogue230().Categories[30].Caption);
}

TEST(SignalCatalogue, AnyVersionFrom230OnHasTheColumnOf230AndAnyOtherThatOf100) {
    EXPECT_EQ(Catalogue230(), BuildVdr812Catalogue(2.31F));
    EXPECT_EQ(Catalogue230(), BuildVdr812Catalogue(9.0F));
    EXPECT_EQ(Catalogue100(), BuildVdr812Catalogue(2.29F));
    EXPECT_EQ(Catalogue100(), BuildVdr812Catalogue(0.0F));
}

TEST(SignalCatalogue, ARebuildForAnotherVersionLeavesNoTrace) {
    SignalCatalogue catalogue = BuildVdr812Catalogue(Version100);
    catalogue = BuildVdr812Catalogue(Version230);
    EXPECT_EQ(Catalogue230(), catalogue);
    EXPECT_NE(Catalogue100(), catalogue);
    catalogue = BuildVdr812Catalogue(Version100);
    EXPECT_EQ(Catalogue100(), catalogue);
}

TEST(NameOfCode, TheFixedCodes) {
    EXPECT_EQ("NO CONNECT", NameOfCode(Catalogue230(), InputCoding{}, 0));
    EXPECT_EQ("TRUE", NameOfCode(Catalogue230(), InputCoding{}, 1));
    EXPECT_EQ("FALSE", NameOfCode(Catalogue230(), InputCoding{}, 255));
}

TEST(NameOfCode, AnInvertedCodeHasTheNameOfItsSignal) {
    EXPECT_EQ("Z1GT", NameOfCode(Catalogue230(), InputCoding{}, 254));
    EXPECT_EQ("ZONE 2 TRIP", NameOfCode(Catalogue230(), InputCoding{}, 251));
}

TEST(NameOfCode, Codes104And105AreNamedByPosition) {
    EXPECT_EQ("FALSE", NameOfCode(Catalogue230(), InputCoding{}, 104));
    EXPECT_EQ("END", NameOfCode(Catalogue230(), InputCoding{}, 105));
}

TEST(NameOfCode, ACodeWithoutAnEntryHasAnEmptyName) {
    for (const std::int32_t code : {106, 127, 128, 150, 300, 100000, -1, -1000}) {
        EXPECT_EQ("", NameOfCode(Catalogue230(), InputCoding{}, code)) << code;
    }
}

TEST(SignalText, ShowsTheStoredCodeInHexadecimalOnRequest) {
    EXPECT_EQ("FB -> ZONE 2 TRIP", SignalText(Catalogue230(), InputCoding{}, 251, true));
    EXPECT_EQ("0 -> NO CONNECT", SignalText(Catalogue230(), InputCoding{}, 0, true));
    EXPECT_EQ("FF -> FALSE", SignalText(Catalogue230(), InputCoding{}, 255, true));
    EXPECT_EQ("6A -> ", SignalText(Catalogue230(), InputCoding{}, 106, true));
    EXPECT_EQ("ZONE 2 TRIP", SignalText(Catalogue230(), InputCoding{}, 251, false));
}

RC_GTEST_PROP(NameOfCode, ASignalAndItsInverseHaveOneName, ()) {
    const auto signal = *rc::gen::inRange<std::int32_t>(2, 104);
    RC_ASSERT(NameOfCode(Catalogue230(), InputCoding{}, signal) ==
              NameOfCode(Catalogue230(), InputCoding{}, ToggleInvert(InputCoding{}, signal)));
}

} // namespace
} // namespace brindle
