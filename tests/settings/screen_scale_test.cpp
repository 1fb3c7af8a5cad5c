#include "settings/screen_scale.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace brindle {
namespace {

constexpr double Small = 0.8;

TEST(ScreenScaleFactor, OnlyTheOneSmallScreenIsScaled) {
    EXPECT_DOUBLE_EQ(Small, ScreenScaleFactor(7200));
    for (const int height : {0, 7199, 7201, 9000, 16200}) {
        EXPECT_EQ(1.0, ScreenScaleFactor(height)) << height;
    }
}

TEST(Scaled, ALineHasItsEndPointsMultiplied) {
    ScaledControl line;
    line.Kind = ScaledControlKind::Line;
    line.X1 = 9495;
    line.Y1 = 3780;
    line.X2 = 8055;
    line.Y2 = 5040;
    const ScaledControl scaled = Scaled(line, Small);
    EXPECT_DOUBLE_EQ(7596, scaled.X1);
    EXPECT_DOUBLE_EQ(3024, scaled.Y1);
    EXPECT_DOUBLE_EQ(6444, scaled.X2);
    EXPECT_DOUBLE_EQ(4032, scaled.Y2);
}

ScaledControl Box(ScaledControlKind kind) {
    ScaledControl box;
    box.Kind = kind;
    box.FontSize = 8.25;
    box.Top = 100;
    box.Left = 200;
    box.Height = 300;
    box.Width = 400;
    return box;
}

TEST(Scaled, ATextedControlHasPlaceSizeAndFontMultiplied) {
    const ScaledControl scaled = Scaled(Box(ScaledControlKind::Texted), Small);
    EXPECT_DOUBLE_EQ(80, scaled.Top);
    EXPECT_DOUBLE_EQ(160, scaled.Left);
    EXPECT_DOUBLE_EQ(240, scaled.Height);
    EXPECT_DOUBLE_EQ(320, scaled.Width);
    EXPECT_EQ(6, scaled.FontSize);
}

TEST(Scaled, AFontTakesTheWholePartEvenUnscaled) {
    EXPECT_EQ(8, Scaled(Box(ScaledControlKind::Texted), 1.0).FontSize);
}

TEST(Scaled, AWholeProductLosesNothing) {
    ScaledControl box = Box(ScaledControlKind::Texted);
    for (int size = 5; size <= 100; size += 5) {
        box.FontSize = size;
        EXPECT_EQ(size / 5 * 4, Scaled(box, ScreenScaleFactor(7200)).FontSize) << size;
    }
}

TEST(Scaled, AnotherPlacedControlKeepsItsFont) {
    const ScaledControl scaled = Scaled(Box(ScaledControlKind::Placed), Small);
    EXPECT_DOUBLE_EQ(320, scaled.Width);
    EXPECT_EQ(8.25, scaled.FontSize);
}

TEST(Scaled, MenusTimersAndDialogsAreSkipped) {
    EXPECT_EQ(Box(ScaledControlKind::Unplaced), Scaled(Box(ScaledControlKind::Unplaced), Small));
}

TEST(TwipsToPixels, RoundsToTheNearestPixel) {
    EXPECT_EQ(0, TwipsToPixels(7));
    EXPECT_EQ(1, TwipsToPixels(8));
    EXPECT_EQ(1, TwipsToPixels(22));
    EXPECT_EQ(2, TwipsToPixels(23));
    EXPECT_EQ(0, TwipsToPixels(-7));
    EXPECT_EQ(-1, TwipsToPixels(-8));
    EXPECT_EQ(143165576, TwipsToPixels(2147483647));
    EXPECT_EQ(-143165577, TwipsToPixels(-2147483647 - 1));
}

RC_GTEST_PROP(TwipsToPixels, PixelsAreTheSameAfterTwips, ()) {
    const int pixels = *rc::gen::inRange(-100000000, 100000000);
    RC_ASSERT(TwipsToPixels(PixelsToTwips(pixels)) == pixels);
}

} // namespace
} // namespace brindle
