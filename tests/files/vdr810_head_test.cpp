#include "files/vdr810_head.h"
#include "support/vdr810_text.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace brindle {
namespace {

constexpr int HeadValues = 12;

FileError ReadHead(const std::string& text, Vdr810Head& head) {
    TextCursor cursor(text);
    return ReadVdr810Head(cursor, "read x.c10", head);
}

int HeadError(const std::string& text) {
    Vdr810Head head;
    return ReadHead(text, head).Number;
}

Vdr810Head HeadIn(const std::string& text) {
    Vdr810Head head;
    const FileError error = ReadHead(text, head);
    EXPECT_FALSE(error.Failed()) << error.Description << ", " << error.Source;
    return head;
}

int ErrorWithValue(int number, const std::string& value) {
    return HeadError(Vdr810Text().Value(number, value).Text());
}

TEST(Vdr810Head, HoldsTheTwelveValues) {
    const Vdr810Head head = HeadIn("LINE 7 EAST\r\n1.50\r\n2.30\r\n 12\r\n 8\r\n 6\r\n 2\r\n 150\r\n 20\r\n"
                                   " 70000\r\n3,60\r\n");
    EXPECT_EQ("LINE 7 EAST", head.Identity);
    EXPECT_EQ(1.5F, head.FormatNumber);
    EXPECT_EQ(2.3F, head.Version);
    EXPECT_EQ(2.3, head.SettingsVersion) << "read from the digits, not from the single-precision version";
    EXPECT_EQ(12, head.Options);
    EXPECT_EQ(8, head.Groups);
    EXPECT_EQ(6, head.Timers);
    EXPECT_EQ(2, head.Latches);
    EXPECT_EQ(150, head.Labels);
    EXPECT_EQ(20, head.Categories);
    EXPECT_EQ(70000, head.Signals);
    EXPECT_EQ(3, head.FirstOutput);
    EXPECT_EQ(60, head.LastOutput);
}

TEST(Vdr810Head, ValuesEndAtCommasOrAtLineEnds) {
    const Vdr810Head head = HeadIn(Vdr810Text().Text());
    EXPECT_EQ(head, HeadIn("LINE 7 EAST,1.00,2.30,12,1,1,0,3,2,256,1,16"));
    EXPECT_EQ(head, HeadIn("LINE 7 EAST\n1.00\n2.30\n12\n1\n1\n0\n3\n2\n256\n1\n16\n"));
    EXPECT_EQ(head, HeadIn("LINE 7 EAST\r\n1.00, 2.30 ,12\n1\r\n1,0\n 3 \r\n2,256,1\r\n16"));
}

TEST(Vdr810Head, BlankLinesBeforeANumberAreSkipped) {
    EXPECT_EQ(HeadIn(Vdr810Text().Text()), HeadIn(Vdr810Text().Text("\r\n \t\r\n\n")));
}

TEST(Vdr810Head, AnEmptyFirstLineIsAnEmptyIdentity) {
    EXPECT_EQ("", HeadIn(Vdr810Text().Value(1, "").Text()).Identity);
    EXPECT_EQ(" x ", HeadIn(Vdr810Text().Value(1, " x ").Text()).Identity) << "blanks are kept";
}

TEST(Vdr810Head, WhatFollowsTheLastValueIsLeftForTheNextReader) {
    const std::string text = Vdr810Text().Line("<TIMER 1>").Text();
    TextCursor cursor(text);
    Vdr810Head head;
    ASSERT_FALSE(ReadVdr810Head(cursor, "x", head).Failed());
    std::string_view line;
    ASSERT_TRUE(cursor.NextLine(line));
    EXPECT_EQ("<TIMER 1>", line);
}

TEST(Vdr810Head, AValueThatIsNoNumberIsATypeMismatchAtEveryPlaceButTheFirst) {
    EXPECT_EQ(NoFileError, ErrorWithValue(1, "x"));
    for (int number = 2; number <= HeadValues; ++number) {
        EXPECT_EQ(TypeMismatchError, ErrorWithValue(number, "x")) << number;
        EXPECT_EQ(TypeMismatchError, ErrorWithValue(number, "1 2")) << number;
        EXPECT_EQ(TypeMismatchError, ErrorWithValue(number, "1\r")) << number;
    }
}

TEST(Vdr810Head, ARealWhereAWholeNumberBelongsIsATypeMismatch) {
    for (int number = 4; number <= HeadValues; ++number) {
        EXPECT_EQ(TypeMismatchError, ErrorWithValue(number, "1.0")) << number;
    }
}

TEST(Vdr810Head, AValueBeyondItsTypeIsAnOverflowAtEveryPlaceButTheFirst) {
    EXPECT_EQ(NoFileError, ErrorWithValue(1, "99999999999"));
    for (int number : {2, 3}) {
        EXPECT_EQ(OverflowError, ErrorWithValue(number, "1e39")) << number;
    }
    for (int number : {4, 5, 6, 7, 8, 9, 11, 12}) {
        EXPECT_EQ(OverflowError, ErrorWithValue(number, "32768")) << number;
        EXPECT_EQ(OverflowError, ErrorWithValue(number, "-32769")) << number;
    }
    EXPECT_EQ(OverflowError, ErrorWithValue(10, "2147483648"));
    EXPECT_EQ(OverflowError, ErrorWithValue(10, "-2147483649"));
    EXPECT_EQ(NoFileError, ErrorWithValue(10, "2147483647"));
}

TEST(Vdr810Head, ATextThatEndsBeforeAnyOfTheValuesIsAnInputPastTheEnd) {
    const std::vector<std::string> values{"LINE 7", "1.00", "2.30", "12",  "1", "1",
                                          "0",      "3",    "2",    "256", "1", "16"};
    std::string inOneLine;
    std::string inLines;
    for (const std::string& value : values) {
        EXPECT_EQ(InputPastEndError, HeadError(inOneLine)) << inOneLine;
        EXPECT_EQ(InputPastEndError, HeadError(inLines)) << inLines;
        inOneLine += value + ",";
        inLines += value + "\r\n \r\n";
    }
    EXPECT_EQ(NoFileError, HeadError(inOneLine));
    EXPECT_EQ(NoFileError, HeadError(inLines));
}

TEST(Vdr810Head, VersionAndOptionsNameAFileSoTheyAreNotNegativeNorWithoutBounds) {
    EXPECT_EQ(SubscriptError, ErrorWithValue(3, "-0.01"));
    EXPECT_EQ(SubscriptError, ErrorWithValue(3, "1000000.01"));
    EXPECT_EQ(NoFileError, ErrorWithValue(3, "1000000"));
    EXPECT_EQ(SubscriptError, ErrorWithValue(4, "-1"));
}

TEST(Vdr810Head, OneOfNoTimersAndNoLatchesIsASubscriptOutOfRange) {
    const auto errorOf = [](int timers, int latches) {
        return HeadError(Vdr810Text().Units(1, timers, latches).Text());
    };
    EXPECT_EQ(SubscriptError, errorOf(0, 0));
    EXPECT_EQ(NoFileError, errorOf(1, 0));
    EXPECT_EQ(NoFileError, errorOf(0, 1));
}

TEST(Vdr810Head, CountsThatNoLogicCanHaveAreASubscriptOutOfRange) {
    struct Range {
        int Number;
        int Least;
        int Most;
    };

    for (const Range& range : {Range{5, 1, 8}, Range{6, 1, 6}, Range{7, 0, 2}, Range{8, 0, 32767},
                               Range{9, 0, 32767}, Range{10, 2, INT32_MAX}}) {
        EXPECT_EQ(NoFileError, ErrorWithValue(range.Number, std::to_string(range.Least))) << range.Number;
        EXPECT_EQ(NoFileError, ErrorWithValue(range.Number, std::to_string(range.Most))) << range.Number;
        EXPECT_EQ(SubscriptError, ErrorWithValue(range.Number, std::to_string(range.Least - 1)))
            << range.Number;
        if (range.Most < 32767) {
            EXPECT_EQ(SubscriptError, ErrorWithValue(range.Number, std::to_string(range.Most + 1)))
                << range.Number;
        }
        EXPECT_EQ(SubscriptError, ErrorWithValue(range.Number, "-1")) << range.Number;
    }
}

TEST(Vdr810Head, OutputsAreAtLeastOneAndAtMost128) {
    const auto error = [](int first, int last) {
        return HeadError(Vdr810Text().Outputs(first, last).Text());
    };
    EXPECT_EQ(NoFileError, error(0, 0));
    EXPECT_EQ(NoFileError, error(5, 5));
    EXPECT_EQ(NoFileError, error(1, 128));
    EXPECT_EQ(NoFileError, error(32640, 32767));
    EXPECT_EQ(SubscriptError, error(5, 4));
    EXPECT_EQ(SubscriptError, error(1, 129));
    EXPECT_EQ(SubscriptError, error(-1, 5));
    EXPECT_EQ(SubscriptError, error(-32768, 32767));
}

TEST(Vdr810Head, AnErrorNamesTheFileAndTheValue) {
    Vdr810Head head;
    const FileError mismatch = ReadHead(Vdr810Text().Value(7, "two").Text(), head);
    EXPECT_EQ("Type mismatch", mismatch.Description);
    EXPECT_EQ("read x.c10, value 7 of the header", mismatch.Source);
    const FileError ended = ReadHead("LINE 7\r\n", head);
    EXPECT_EQ("read x.c10, value 2 of the header", ended.Source);
    const FileError range = ReadHead(Vdr810Text().Value(5, "9").Text(), head);
    EXPECT_EQ("Subscript out of range", range.Description);
    EXPECT_EQ("read x.c10, header", range.Source);
}

TEST(Vdr810Head, AFailureLeavesTheHeadAsItWas) {
    const Vdr810Head before = HeadIn(Vdr810Text().Text());
    for (const char* bad : {"x", "32768", "-1", ""}) {
        Vdr810Head head = before;
        EXPECT_TRUE(ReadHead(Vdr810Text().Value(1, "OTHER").Value(5, bad).Text(), head).Failed()) << bad;
        EXPECT_EQ(before, head) << bad;
    }
}

TEST(Vdr810HeadText, IsElevenLinesWithABlankBeforeNumbersThatStandAlone) {
    Vdr810Head head = HeadIn(Vdr810Text().Text());
    head.Options = -3;
    EXPECT_EQ("LINE 7 EAST\r\n1.00\r\n2.30\r\n-3\r\n 1\r\n 1\r\n 0\r\n 3\r\n 2\r\n 256\r\n1,16\r\n",
              Vdr810HeadText(head));
}

TEST(Vdr810HeadText, AnIdentityKeepsItsPlace) {
    Vdr810Head head = HeadIn(Vdr810Text().Text());
    head.Identity = "A,B\r\nC";
    EXPECT_EQ("A B  C", HeadIn(Vdr810HeadText(head)).Identity);
}

TEST(AloneOnLine, HasABlankInThePlaceOfAPlus) {
    EXPECT_EQ(" 0\r\n", AloneOnLine(0));
    EXPECT_EQ(" 2147483647\r\n", AloneOnLine(INT32_MAX));
    EXPECT_EQ("-2147483648\r\n", AloneOnLine(INT32_MIN));
}

RC_GTEST_PROP(Vdr810Head, WrittenAndReadIsTheSame, ()) {
    const auto within = [](int least, int most) {
        return static_cast<std::int16_t>(*rc::gen::inRange(least, most + 1));
    };
    Vdr810Head head;
    head.Identity = *rc::gen::container<std::string>(rc::gen::suchThat(
        rc::gen::arbitrary<char>(), [](char c) { return c != ',' && c != '\r' && c != '\n'; }));
    head.FormatNumber = static_cast<float>(*rc::gen::inRange(0, 10000)) / 100;
    const int hundredths = *rc::gen::inRange(0, 100000000);
    head.SettingsVersion = hundredths / 100.0;
    head.Version = static_cast<float>(head.SettingsVersion);
    head.Options = within(0, 32767);
    head.Groups = within(1, 8);
    head.Timers = within(0, 6);
    head.Latches = within(head.Timers == 0 ? 1 : 0, 2);
    head.Labels = within(0, 32767);
    head.Categories = within(0, 32767);
    head.Signals = *rc::gen::inRange(2, INT32_MAX);
    head.FirstOutput = within(0, 32000);
    head.LastOutput = static_cast<std::int16_t>(head.FirstOutput + within(0, 127));
    Vdr810Head read;
    RC_ASSERT(!ReadHead(Vdr810HeadText(head), read).Failed());
    RC_ASSERT(read == head);
}

TEST(BecomeVdr810, MakesAnEmptyLogicOfTheHead) {
    LogicConfig config;
    config.Groups[7].Unit(3).Inputs.fill(9);
    config.Groups[0].Timer(2) = {5, 6};
    config.Groups[0].OutputMap(8, 8) = 7;
    config.Lists.Labels.push_back({1, 2, "X", "X", true, true});
    config.Coding.FalseCode = 99;
    config.FilePath = "/a/x.c10";
    config.Modified = true;
    const Vdr810Head head = HeadIn(Vdr810Text().Units(2, 3, 1).Outputs(3, 40).Text());
    BecomeVdr810(config, head);
    EXPECT_EQ(RelayKind::Vdr810, config.RelayModel);
    EXPECT_EQ(head, HeadOf(config));
    EXPECT_EQ(2, config.GroupCount);
    EXPECT_EQ(256, config.Coding.InvertBase);
    EXPECT_EQ(99, config.Coding.FalseCode) << "stays until a list tells another";
    EXPECT_TRUE(config.Lists.Empty());
    for (const LogicGroup& group : config.Groups) {
        for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
            EXPECT_EQ(16, std::count(group.Unit(unit).Inputs.begin(), group.Unit(unit).Inputs.end(), 99));
        }
        EXPECT_EQ(LogicGroup{}.Timers, group.Timers);
        EXPECT_EQ(LogicGroup{}.OutputWords, group.OutputWords);
    }
    EXPECT_EQ("/a/x.c10", config.FilePath);
    EXPECT_TRUE(config.Modified);
}

} // namespace
} // namespace brindle
