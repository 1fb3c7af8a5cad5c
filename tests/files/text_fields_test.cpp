#include "files/text_fields.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace brindle {
namespace {

using TextLines = std::vector<std::string>;

TextLines AllLines(const std::string& text) {
    TextCursor cursor(text);
    TextLines lines;
    for (std::string_view line; cursor.NextLine(line);) {
        lines.emplace_back(line);
    }
    return lines;
}

TextLines FilledLines(const std::string& text) {
    TextCursor cursor(text);
    TextLines lines;
    for (std::string_view line; cursor.NextFilledLine(line);) {
        lines.emplace_back(line);
    }
    return lines;
}

TextLines AllValues(const std::string& text) {
    TextCursor cursor(text);
    TextLines values;
    for (std::string_view value; cursor.NextValue(value);) {
        values.emplace_back(value);
    }
    return values;
}

TextLines AllFields(const std::string& line) {
    FieldCursor cursor(line);
    TextLines fields;
    for (std::string_view field; cursor.Next(field);) {
        fields.emplace_back(field);
    }
    return fields;
}

template<class Number>
NumberFault FaultOf(const std::string& field) {
    Number value{};
    return ParseNumber(field, value);
}

template<class Number>
Number NumberIn(const std::string& field) {
    Number value{};
    EXPECT_EQ(NumberFault::None, ParseNumber(field, value)) << field;
    return value;
}

TEST(TextCursor, LinesEndAtCrLfAtLfAndAtTheEndOfTheText) {
    EXPECT_EQ((TextLines{"a", "b", "", "c"}), AllLines("a\r\nb\n\r\nc"));
    EXPECT_EQ((TextLines{"a", "b"}), AllLines("a\nb\r\n"));
    EXPECT_EQ((TextLines{"", ""}), AllLines("\n\r\n"));
    EXPECT_TRUE(AllLines("").empty());
}

TEST(TextCursor, ACrWithinALineIsPartOfIt) {
    EXPECT_EQ((TextLines{"a\rb", "c\r"}), AllLines("a\rb\r\nc\r\r\n"));
}

TEST(TextCursor, BlankLinesArePassedOver) {
    EXPECT_EQ((TextLines{"a", " b "}), FilledLines("\r\na\r\n \t\r\n\n b \n \n"));
    EXPECT_TRUE(FilledLines("\r\n \n\t\n").empty());
}

TEST(TextCursor, AValueEndsAtACommaOrAtTheEndOfALine) {
    EXPECT_EQ((TextLines{"1", "2", "3", "4"}), AllValues("1,2\r\n3\n4"));
    EXPECT_EQ((TextLines{"", "", "x"}), AllValues(",\r\nx"));
    EXPECT_TRUE(AllValues("").empty());
}

TEST(TextCursor, BlankLinesAreSkippedBetweenLinesAndNotWithinOne) {
    TextCursor cursor("\r\n  \n1,\r\n2");
    std::string_view value;
    cursor.SkipBlankLines();
    ASSERT_TRUE(cursor.NextValue(value));
    EXPECT_EQ("1", value);
    cursor.SkipBlankLines();
    ASSERT_TRUE(cursor.NextValue(value));
    EXPECT_EQ("", value) << "the empty value after the comma is one";
    cursor.SkipBlankLines();
    ASSERT_TRUE(cursor.NextValue(value));
    EXPECT_EQ("2", value);
    cursor.SkipBlankLines();
    EXPECT_FALSE(cursor.NextValue(value));
}

TEST(FieldCursor, FieldsStandBetweenCommas) {
    EXPECT_EQ((TextLines{"1", " 2 ", "", "x y"}), AllFields("1, 2 ,,x y"));
    EXPECT_EQ((TextLines{"", ""}), AllFields(","));
    EXPECT_EQ((TextLines{""}), AllFields(""));
    EXPECT_EQ(1, FieldCount(""));
    EXPECT_EQ(4, FieldCount("1, 2 ,,x y"));
}

RC_GTEST_PROP(FieldCursor, FieldsJoinedAreTheLine, (const std::string& line)) {
    const TextLines fields = AllFields(line);
    std::string joined = fields.front();
    for (std::size_t i = 1; i < fields.size(); ++i) {
        RC_ASSERT(fields[i].find(',') == std::string::npos);
        joined += "," + fields[i];
    }
    RC_ASSERT(joined == line);
    RC_ASSERT(static_cast<int>(fields.size()) == FieldCount(line));
}

TEST(SplitFields, TakesALineOfExactlySoManyFields) {
    std::array<std::string_view, 3> fields;
    EXPECT_TRUE(SplitFields("1, 2 ,", fields));
    EXPECT_EQ((std::array<std::string_view, 3>{"1", " 2 ", ""}), fields);
    EXPECT_FALSE(SplitFields("1,2", fields));
    EXPECT_FALSE(SplitFields("1,2,3,4", fields));
    EXPECT_FALSE(SplitFields("", fields));
}

TEST(ReadNumbers, ReadsALineOfNumbersUpToTheRoomThereIs) {
    std::array<std::int32_t, 4> numbers{};
    EXPECT_EQ(4U, ReadNumbers("1,-2, +3\t,2147483647", numbers));
    EXPECT_EQ((std::array<std::int32_t, 4>{1, -2, 3, 2147483647}), numbers);
    EXPECT_EQ(1U, ReadNumbers(" 7 ", numbers));
    EXPECT_EQ(7, numbers[0]);
    EXPECT_EQ(0U, ReadNumbers("1,2,3,4,5", numbers));
    EXPECT_EQ(0U, ReadNumbers("1,2,3,4,", numbers));
}

TEST(ReadNumbers, ALineWithAnyOtherFieldHasNone) {
    std::array<std::int32_t, 4> numbers{};
    for (const char* line :
         {"", ",", "1,", ",1", "1,,2", "1,x", "x,1", "1,2x", "1 2", "1,2147483648", "1,+-2", "1,2.0"}) {
        EXPECT_EQ(0U, ReadNumbers(line, numbers)) << line;
    }
}

RC_GTEST_PROP(ReadNumbers, IsAParseOfEachField, (const std::vector<std::int32_t>& values)) {
    RC_PRE(!values.empty());
    std::string line;
    for (const std::int32_t value : values) {
        const std::string blanks(*rc::gen::inRange<std::size_t>(0, 2), ' ');
        line += line.empty() ? "" : ",";
        line += blanks;
        line += std::to_string(value);
        line += blanks;
    }
    std::vector<std::int32_t> numbers(values.size());
    RC_ASSERT(ReadNumbers(line, numbers) == values.size());
    RC_ASSERT(numbers == values);
}

TEST(Trimmed, TakesBlanksAndTabsFromBothEndsOnly) {
    EXPECT_EQ("a b", Trimmed(" \ta b \t"));
    EXPECT_EQ("", Trimmed(" \t "));
    EXPECT_EQ("\ra", Trimmed("\ra"));
}

TEST(OneField, CommasAndLineEndsBecomeBlanks) {
    EXPECT_EQ("a b  c d", OneField("a,b\r\nc,d"));
    EXPECT_EQ("Umspannwerk S\xFC"
              "d",
              OneField("Umspannwerk S\xFC"
                       "d"));
}

TEST(ParseNumber, ReadsWholeNumbersUpToTheEndsOfTheirType) {
    EXPECT_EQ(32767, NumberIn<std::int16_t>("32767"));
    EXPECT_EQ(-32768, NumberIn<std::int16_t>("-32768"));
    EXPECT_EQ(INT32_MAX, NumberIn<std::int32_t>("2147483647"));
    EXPECT_EQ(INT32_MIN, NumberIn<std::int32_t>("-2147483648"));
    EXPECT_EQ(7, NumberIn<std::int32_t>("0000000000000007"));
}

TEST(ParseNumber, ANumberBeyondItsTypeIsOutOfRange) {
    for (const char* field : {"32768", "-32769", "99999999999999999999"}) {
        EXPECT_EQ(NumberFault::OutOfRange, FaultOf<std::int16_t>(field)) << field;
    }
    for (const char* field : {"2147483648", "-2147483649", "4294967296", "99999999999999999999"}) {
        EXPECT_EQ(NumberFault::OutOfRange, FaultOf<std::int32_t>(field)) << field;
    }
    EXPECT_EQ(NumberFault::OutOfRange, FaultOf<float>("1e39"));
    EXPECT_EQ(NumberFault::OutOfRange, FaultOf<double>("-1e400"));
}

TEST(ParseNumber, BlanksAroundANumberAndAPlusBeforeItAreAccepted) {
    EXPECT_EQ(12, NumberIn<std::int32_t>(" 12"));
    EXPECT_EQ(-12, NumberIn<std::int16_t>("\t -12 \t"));
    EXPECT_EQ(12, NumberIn<std::int32_t>("+12"));
    EXPECT_EQ(2.5F, NumberIn<float>(" +2.5 "));
}

TEST(ParseNumber, WhatIsNoWholeNumberIsNotANumber) {
    for (const char* field : {"", " ", "+", "-", "+-1", "-+1", "--1", "++1", "1 2", "1.0", "1e3", "0x10", "x",
                              "1x", "\r1", "1\r", "99999999999999999999x", "TRUE"}) {
        EXPECT_EQ(NumberFault::NotANumber, FaultOf<std::int16_t>(field)) << field;
        EXPECT_EQ(NumberFault::NotANumber, FaultOf<std::int32_t>(field)) << field;
    }
    EXPECT_EQ(NumberFault::NotANumber, FaultOf<std::int32_t>(std::string("1\0", 2)));
}

TEST(ParseNumber, WhatIsNoDecimalNumberIsNoReal) {
    for (const char* field :
         {"", ".", "-", "1.2.3", "1,5", "inf", "-INF", "nan", "infinity", "0x1p3", "2.30F", "1e"}) {
        EXPECT_EQ(NumberFault::NotANumber, FaultOf<float>(field)) << field;
        EXPECT_EQ(NumberFault::NotANumber, FaultOf<double>(field)) << field;
    }
}

TEST(ParseNumber, RealsAreReadToTheNearestOfTheirPrecision) {
    EXPECT_EQ(2.3F, NumberIn<float>("2.30"));
    EXPECT_EQ(2.3, NumberIn<double>("2.30"));
    EXPECT_EQ(0.5, NumberIn<double>(".5"));
    EXPECT_EQ(-1250.0, NumberIn<double>("-1.25e3"));
}

TEST(ParseNumber, AFaultLeavesTheValue) {
    std::int32_t whole = 5;
    double real = 5;
    EXPECT_NE(NumberFault::None, ParseNumber("6x", whole));
    EXPECT_NE(NumberFault::None, ParseNumber("2147483648", whole));
    EXPECT_NE(NumberFault::None, ParseNumber("inf", real));
    EXPECT_EQ(5, whole);
    EXPECT_EQ(5, real);
}

RC_GTEST_PROP(ParseNumber, EveryNumberIsReadBackWithBlanksAroundIt, (std::int32_t value)) {
    const std::string before(*rc::gen::inRange<std::size_t>(0, 4), ' ');
    const std::string after(*rc::gen::inRange<std::size_t>(0, 4), '\t');
    const std::string field = before + std::to_string(value) + after;
    RC_ASSERT(NumberIn<std::int32_t>(field) == value);
    const bool fits = value >= INT16_MIN && value <= INT16_MAX;
    RC_ASSERT(FaultOf<std::int16_t>(field) == (fits ? NumberFault::None : NumberFault::OutOfRange));
}

} // namespace
} // namespace brindle
