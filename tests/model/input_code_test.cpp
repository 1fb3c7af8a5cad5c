#include "model/input_code.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace brindle {
namespace {

constexpr InputCoding Vdr812Coding{};

TEST(InputCode, InvertingTrueYieldsFalseAndInvertingFalseYieldsTrue) {
    EXPECT_EQ(255, ToggleInvert(Vdr812Coding, TrueCode));
    EXPECT_EQ(TrueCode, ToggleInvert(Vdr812Coding, 255));
}

TEST(InputCode, InvertingSignal2Yields254AndBack) {
    EXPECT_EQ(254, ToggleInvert(Vdr812Coding, 2));
    EXPECT_EQ(2, ToggleInvert(Vdr812Coding, 254));
}

TEST(InputCode, NoConnectHasNoInverse) {
    EXPECT_EQ(NoConnectCode, ToggleInvert(Vdr812Coding, NoConnectCode));
}

TEST(InputCode, ExactlyHalfOfTheBaseCountsAsInverted) {
    EXPECT_TRUE(IsInverted(Vdr812Coding, 128));
    EXPECT_EQ(128, SignalOfCode(Vdr812Coding, 128));
    EXPECT_FALSE(IsInverted(Vdr812Coding, 127));
    EXPECT_EQ(127, SignalOfCode(Vdr812Coding, 127));
}

TEST(InputCode, FalseIsNotInvertedThoughItLiesInTheUpperHalf) {
    EXPECT_FALSE(IsInverted(Vdr812Coding, 255));
    EXPECT_EQ(255, SignalOfCode(Vdr812Coding, 255));
}

TEST(InputCode, NoConnectAndTrueAreNotInverted) {
    EXPECT_FALSE(IsInverted(Vdr812Coding, NoConnectCode));
    EXPECT_FALSE(IsInverted(Vdr812Coding, TrueCode));
}

TEST(InputCode, AnInvertedCodeStandsForTheBaseMinusCode) {
    EXPECT_TRUE(IsInverted(Vdr812Coding, 254));
    EXPECT_EQ(2, SignalOfCode(Vdr812Coding, 254));
    EXPECT_EQ(101, SignalOfCode(Vdr812Coding, 155));
}

TEST(InputCode, HalfOfAnOddBaseIsTheIntegerHalf) {
    constexpr InputCoding odd{301, 300};
    EXPECT_TRUE(IsInverted(odd, 150));
    EXPECT_EQ(151, SignalOfCode(odd, 150));
    EXPECT_FALSE(IsInverted(odd, 149));
}

TEST(InputCode, AFalseCodeBelowTheHalfStillTogglesWithTrue) {
    constexpr InputCoding low{512, 40};
    EXPECT_EQ(40, ToggleInvert(low, TrueCode));
    EXPECT_EQ(TrueCode, ToggleInvert(low, 40));
    EXPECT_FALSE(IsInverted(low, 40));
    EXPECT_EQ(40, SignalOfCode(low, 40));
}

RC_GTEST_PROP(InputCode, InvertingTwiceGivesBackTheCode, ()) {
    const auto code = *rc::gen::inRange<std::int32_t>(0, 256);
    RC_ASSERT(ToggleInvert(Vdr812Coding, ToggleInvert(Vdr812Coding, code)) == code);
}

RC_GTEST_PROP(InputCode, InvertingKeepsTheCodeInOneByte, ()) {
    const auto code = *rc::gen::inRange<std::int32_t>(0, 256);
    const std::int32_t inverse = ToggleInvert(Vdr812Coding, code);
    RC_ASSERT(inverse >= 0);
    RC_ASSERT(inverse <= 255);
}

RC_GTEST_PROP(InputCode, ASignalAndItsInverseDifferOnlyInTheMarker, ()) {
    const auto signal = *rc::gen::inRange<std::int32_t>(2, 128);
    const std::int32_t inverse = ToggleInvert(Vdr812Coding, signal);
    RC_ASSERT(!IsInverted(Vdr812Coding, signal));
    RC_ASSERT(IsInverted(Vdr812Coding, inverse));
    RC_ASSERT(SignalOfCode(Vdr812Coding, inverse) == signal);
}

} // namespace
} // namespace brindle
