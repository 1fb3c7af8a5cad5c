#include "model/logic_config.h"
#include "model/signal_catalogue.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

namespace brindle {
namespace {

Vdr810Lists SmallLists() {
    return {{{5, "&General", "General"}, {2, "Zone - &1", "Zone 1"}},
            {{5, 0, "NO CONNECT", "None", true, true},
             {5, 1, "TRUE", "True", true, true},
             {2, 56, "Z1GT", "Zone 1 ground", true, false},
             {2, 128, "HALF", "Half", false, true},
             {5, 200, "UPPER", "Upper", true, true}}};
}

InputCoding CodingOf(std::int32_t signals, std::int16_t falseCode) {
    return {signals, falseCode};
}

std::string NameIn(const Vdr810Lists& lists, const InputCoding& coding, std::int32_t code) {
    return NameOfCode(BuildVdr810Catalogue(lists), coding, code);
}

TEST(Vdr810Catalogue, HoldsTheListsInTheirOrder) {
    const SignalCatalogue catalogue = BuildVdr810Catalogue(SmallLists());
    EXPECT_EQ((std::vector<CategoryEntry>{{5, "&General", "General", true, true},
                                          {2, "Zone - &1", "Zone 1", true, true}}),
              catalogue.Categories);
    ASSERT_EQ(5U, catalogue.Signals.size());
    EXPECT_EQ((SignalEntry{2, 56, "Z1GT", "Zone 1 ground", true, false}), catalogue.Signals[2]);
    EXPECT_EQ((SignalEntry{2, 128, "HALF", "Half", false, true}), catalogue.Signals[3]);
    EXPECT_EQ(5U, SignalCount(catalogue));
}

TEST(Vdr810Catalogue, ShowsTheAmpersandOfACaptionThatIsTheVeryName) {
    const Vdr810Lists lists{{{1, "R&D", "R&D"}, {2, "R&D", "RD"}}, {}};
    const SignalCatalogue catalogue = BuildVdr810Catalogue(lists);
    EXPECT_EQ("R&&D", catalogue.Categories[0].Caption);
    EXPECT_EQ("R&D", catalogue.Categories[0].Name);
    EXPECT_EQ("R&D", catalogue.Categories[1].Caption) << "an access key";
}

TEST(Vdr810Catalogue, EndsAtTheEndEntries) {
    Vdr810Lists lists = SmallLists();
    lists.Labels.insert(lists.Labels.begin() + 2, {0, -1, "END", "x", true, true});
    lists.Categories.insert(lists.Categories.begin() + 1, {-1, "any", "any"});
    const SignalCatalogue catalogue = BuildVdr810Catalogue(lists);
    EXPECT_EQ(2U, SignalCount(catalogue));
    EXPECT_EQ(1U, catalogue.Categories.size());
    EXPECT_EQ("", NameOfCode(catalogue, CodingOf(256, 104), 56));
}

TEST(Vdr810Catalogue, ASignalMayHaveTheNumberOrTheNameOfAnEnd) {
    Vdr810Lists lists = SmallLists();
    lists.Labels.insert(lists.Labels.begin(),
                        {{2, -1, "SPARE", "Spare", true, true}, {2, 7, "END", "End", true, true}});
    lists.Categories.insert(lists.Categories.begin(), {7, "END", "END"});
    const SignalCatalogue catalogue = BuildVdr810Catalogue(lists);
    EXPECT_EQ(7U, SignalCount(catalogue));
    EXPECT_EQ(3U, catalogue.Categories.size());
    EXPECT_EQ("SPARE", SignalsOfCategory(catalogue, 2).at(0)->Name);
    EXPECT_EQ("END", NameOfCode(catalogue, CodingOf(256, 104), 7));
    EXPECT_EQ("Z1GT", NameOfCode(catalogue, CodingOf(256, 104), 56));
}

TEST(Vdr810Catalogue, ACategoryTakesItsSignalsByItsNumber) {
    const SignalCatalogue catalogue = BuildVdr810Catalogue(SmallLists());
    const auto signals = SignalsOfCategory(catalogue, 2);
    ASSERT_EQ(2U, signals.size());
    EXPECT_EQ("Z1GT", signals[0]->Name);
    EXPECT_EQ("HALF", signals[1]->Name);
    EXPECT_EQ(3U, SignalsOfCategory(catalogue, 5).size());
    EXPECT_TRUE(SignalsOfCategory(catalogue, 0).empty());
}

TEST(Vdr810Catalogue, IsThatOfAVdr810Logic) {
    LogicConfig config;
    config.RelayModel = RelayKind::Vdr810;
    config.Lists = SmallLists();
    EXPECT_EQ(BuildVdr810Catalogue(SmallLists()), BuildCatalogue(config));
    config.RelayModel = RelayKind::Vdr812;
    EXPECT_EQ(BuildVdr812Catalogue(config.Version), BuildCatalogue(config));
}

TEST(Vdr810Names, TheUpperHalfMirrorsTheLower) {
    const InputCoding coding = CodingOf(256, 104);
    EXPECT_EQ("Z1GT", NameIn(SmallLists(), coding, 56));
    EXPECT_EQ("Z1GT", NameIn(SmallLists(), coding, 200)) << "not the label of 200";
    EXPECT_EQ("HALF", NameIn(SmallLists(), coding, 128)) << "256 - 128";
    EXPECT_EQ("NO CONNECT", NameIn(SmallLists(), coding, 256));
    EXPECT_EQ("TRUE", NameIn(SmallLists(), coding, 255));
}

TEST(Vdr810Names, HalfOfAnOddCountIsRoundedDown) {
    const Vdr810Lists lists{{}, {{0, 2, "TWO", "", true, true}, {0, 3, "THREE", "", true, true}}};
    EXPECT_EQ("TWO", NameIn(lists, CodingOf(5, 100), 3));
    EXPECT_EQ("THREE", NameIn(lists, CodingOf(5, 100), 2));
}

TEST(Vdr810Names, TheUnconnectedSignalIsFalseAndNotMirrored) {
    EXPECT_EQ("FALSE", NameIn(SmallLists(), CodingOf(256, 200), 200));
    EXPECT_EQ("FALSE", NameIn({}, CodingOf(256, 104), 104)) << "whether a label names it or not";
}

TEST(Vdr810Names, OfTwoLabelsOfOneNumberTheFirstNamesIt) {
    Vdr810Lists lists = SmallLists();
    lists.Labels.push_back({2, 56, "SECOND", "", true, true});
    lists.Labels.insert(lists.Labels.begin(), {2, 56, "FIRST", "", true, true});
    EXPECT_EQ("FIRST", NameIn(lists, CodingOf(256, 104), 56));
}

TEST(Vdr810Names, ANumberThatNoLabelHasIsEmpty) {
    for (const std::int32_t code : {57, 199, 257, -1, 1000, INT32_MAX, INT32_MIN}) {
        EXPECT_EQ("", NameIn(SmallLists(), CodingOf(256, 104), code)) << code;
    }
    EXPECT_EQ("39 -> ", SignalText(BuildVdr810Catalogue(SmallLists()), CodingOf(256, 104), 57, true));
}

/// The look-up as the labels are described: the first from the top.
std::string NameByWalking(const Vdr810Lists& lists, const InputCoding& coding, std::int32_t code) {
    const bool mirrored = code != coding.FalseCode && code >= coding.InvertBase / 2;
    const std::int32_t signal = mirrored ? coding.InvertBase - code : code;
    for (const Vdr810Label& label : lists.Labels) {
        if (label.Signal == signal) {
            return label.Name;
        }
    }
    return {};
}

RC_GTEST_PROP(Vdr810Names, AreThoseOfAWalkThroughTheLabels, ()) {
    Vdr810Lists lists;
    const int count = *rc::gen::inRange(0, 40);
    for (int i = 0; i < count; ++i) {
        lists.Labels.push_back({0, *rc::gen::inRange(0, 30), "L" + std::to_string(i), "", true, true});
    }
    const InputCoding coding = CodingOf(*rc::gen::inRange(2, 40), 500);
    const auto code = *rc::gen::oneOf(rc::gen::inRange(-5, 60), rc::gen::arbitrary<std::int32_t>());
    RC_PRE(code != coding.FalseCode);
    RC_ASSERT(NameIn(lists, coding, code) == NameByWalking(lists, coding, code));
}

} // namespace
} // namespace brindle
