#pragma once

/// How a form follows the screen: the scaling of one small screen size, and twips as pixels.
namespace brindle {

inline constexpr int TwipsPerPixel = 15; ///< 1440 twips an inch, 96 device-independent pixels an inch

/// Twips as device-independent pixels, to the nearest.
constexpr int TwipsToPixels(int twips) {
    const int half = twips < 0 ? -TwipsPerPixel / 2 : TwipsPerPixel / 2;
    return twips / TwipsPerPixel + (twips % TwipsPerPixel + half) / TwipsPerPixel;
}

constexpr int PixelsToTwips(int pixels) {
    return pixels * TwipsPerPixel;
}

/// 0.8 on a screen exactly 7200 twips high (480 pixels), 1 on any other.
double ScreenScaleFactor(int screenHeightTwips);

/// Kinds of controls, as far as scaling tells them apart.
enum class ScaledControlKind {
    Line,     ///< has end points
    Texted,   ///< text boxes, check boxes and labels: their font follows as well
    Placed,   ///< any other control with a place
    Unplaced, ///< menus, timers, common dialogs: left as they are
};

/// The measures of a control that scaling changes, in twips; those that its kind does not have stay 0.
struct ScaledControl {
    ScaledControlKind Kind = ScaledControlKind::Placed;
    double FontSize = 0; ///< points
    double Top = 0;
    double Left = 0;
    double Height = 0;
    double Width = 0;
    double X1 = 0; ///< a line's ends
    double Y1 = 0;
    double X2 = 0;
    double Y2 = 0;

    bool operator==(const ScaledControl&) const = default;
};

/// The control scaled by `factor`. A font's size becomes a whole number of points, rounded down, also by
/// factor 1.
ScaledControl Scaled(ScaledControl control, double factor);

} // namespace brindle
