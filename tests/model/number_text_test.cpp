#include "model/number_text.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <limits>

namespace brindle {
namespace {

TEST(FormatFixed, HasExactlyTheAskedDecimals) {
    EXPECT_EQ("1.00", FormatFixed(1, 2));
    EXPECT_EQ("0.500000", FormatFixed(0.5, 6));
    EXPECT_EQ("12", FormatFixed(12, 0));
}

TEST(FormatFixed, ASinglePrecisionVersionShowsNoneOfItsError) {
    EXPECT_EQ("2.30", FormatFixed(2.3F, 2));
}

TEST(FormatFixed, RoundsToTheNearestText) {
    EXPECT_EQ("0.13", FormatFixed(0.126, 2));
    EXPECT_EQ("0.12", FormatFixed(0.124, 2));
    EXPECT_EQ("-1.24", FormatFixed(-1.236, 2));
}

TEST(FormatFixed, ANegativeZeroHasNoSign) {
    EXPECT_EQ("0.00", FormatFixed(-0.0, 2));
}

TEST(FormatFixed, AValueThatIsNotFiniteReadsAsZero) {
    EXPECT_EQ("0.00", FormatFixed(std::numeric_limits<double>::infinity(), 2));
    EXPECT_EQ("0.00", FormatFixed(std::numeric_limits<double>::quiet_NaN(), 2));
}

TEST(FormatFixed, HoldsTheLargestDouble) {
    const std::string text = FormatFixed(std::numeric_limits<double>::lowest(), 9);
    EXPECT_EQ(1U + 309U + 1U + 9U, text.size());
}

TEST(LeadingNumber, ReadsTheVersionTexts) {
    EXPECT_EQ(1.0F, LeadingNumber("1.00  "));
    EXPECT_EQ(2.3F, LeadingNumber("2.30  "));
}

TEST(LeadingNumber, IgnoresBlanksAnywhere) {
    EXPECT_EQ(2.3F, LeadingNumber("  2. 3 0"));
}

TEST(LeadingNumber, StopsAtTheFirstForeignCharacter) {
    EXPECT_EQ(2.3F, LeadingNumber("2.30xy"));
    EXPECT_EQ(2.0F, LeadingNumber("2,30")) << "a point is the decimal sign, whatever the locale";
    EXPECT_EQ(1.5F, LeadingNumber("1.5.9"));
    EXPECT_EQ(1.0F, LeadingNumber(std::string_view("1\0002", 3)));
}

TEST(LeadingNumber, ReadsASignAndAPointWithoutDigitsBefore) {
    EXPECT_EQ(-1.5F, LeadingNumber("-1.5"));
    EXPECT_EQ(1.5F, LeadingNumber("+1.5"));
    EXPECT_EQ(0.5F, LeadingNumber(".5"));
    EXPECT_EQ(5.0F, LeadingNumber("5."));
}

TEST(LeadingNumber, NoNumberReadsAsZero) {
    for (const char* text : {"", "      ", "abc", "-", "+", ".", "--1", "+-1", "v2.3"}) {
        EXPECT_EQ(0.0F, LeadingNumber(text)) << text;
    }
}

TEST(LeadingNumber, InfinitiesAreNoNumbers) {
    for (const char* text : {"inf", "-inf", "nan", "+nan"}) {
        EXPECT_EQ(0.0F, LeadingNumber(text)) << text;
    }
}

TEST(LeadingNumber, ReadsNoExponent) {
    EXPECT_EQ(1.0F, LeadingNumber("1e9"));
    EXPECT_EQ(2.0F, LeadingNumber("2E-3"));
}

RC_GTEST_PROP(LeadingNumber, IsFiniteForAnySixBytes, ()) {
    const auto bytes = *rc::gen::container<std::string>(6, rc::gen::arbitrary<char>());
    RC_ASSERT(std::isfinite(LeadingNumber(bytes)));
}

RC_GTEST_PROP(LeadingNumber, ReadsBackWhatFormatFixedWrote, ()) {
    const int hundredths = *rc::gen::inRange(-99999, 100000);
    const auto value = static_cast<float>(hundredths) / 100.0F;
    RC_ASSERT(LeadingNumber(FormatFixed(value, 2)) == value);
}

TEST(FormatHex, IsUpperCaseWithoutLeadingZerosOrPrefix) {
    EXPECT_EQ("0", FormatHex(0));
    EXPECT_EQ("1", FormatHex(1));
    EXPECT_EQ("FB", FormatHex(251));
    EXPECT_EQ("ABCDEF", FormatHex(0xABCDEF));
    EXPECT_EQ("7FFFFFFF", FormatHex(std::numeric_limits<std::int32_t>::max()));
}

TEST(FormatHex, ANegativeValueShowsItsTwosComplement) {
    EXPECT_EQ("FFFFFFFF", FormatHex(-1));
    EXPECT_EQ("80000000", FormatHex(std::numeric_limits<std::int32_t>::min()));
}

} // namespace
} // namespace brindle
