#include "settings/screen_scale.h"

#include <cmath>

namespace brindle {

namespace {

constexpr int SmallScreenHeight = 7200;  // twips: the one screen that the forms are too high for
constexpr int DesignScreenHeight = 9000; // twips: the screen that they were drawn for

} // namespace

double ScreenScaleFactor(int screenHeightTwips) {
    return screenHeightTwips == SmallScreenHeight
               ? static_cast<double>(SmallScreenHeight) / DesignScreenHeight
               : 1.0;
}

ScaledControl Scaled(ScaledControl control, double factor) {
    switch (control.Kind) {
    case ScaledControlKind::Unplaced:
        return control;
    case ScaledControlKind::Line:
        control.X1 *= factor;
        control.Y1 *= factor;
        control.X2 *= factor;
        control.Y2 *= factor;
        return control;
    case ScaledControlKind::Texted:
        control.FontSize = std::floor(control.FontSize * factor);
        break;
    case ScaledControlKind::Placed:
        break;
    }
    control.Top *= factor;
    control.Left *= factor;
    control.Height *= factor;
    control.Width *= factor;
    return control;
}

} // namespace brindle
