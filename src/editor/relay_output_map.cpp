#include "editor/relay_output_map.h"

#include "settings/screen_scale.h"

#include <algorithm>

namespace brindle {

namespace {

constexpr int BoxesPerColumn = 16;
constexpr int BoxHeight = 240;
constexpr int BoxWidth = 600;
constexpr int FirstColumnLeft = 120;
constexpr int ColumnStep = 620;
// The frame grows by less than a column's step, on purpose.
constexpr int FrameWidthOfOneColumn = 1200;
constexpr int FrameWidthPerExtraColumn = 300;
constexpr int FrameBottomMargin = 100;
constexpr int RightMargin = 60;

/// A row of 240 becomes 315, which is 21 pixels, so that the rows are evenly spaced.
int Drawn(int twips) {
    return twips * 21 / 16 / TwipsPerPixel * TwipsPerPixel;
}

} // namespace

OutputMapLayout SetupRelayOutputMapWindow(const LogicConfig& config) {
    OutputMapLayout layout{};
    int count = 0;
    for (int output = config.FirstOutput; output <= config.LastOutput; ++output, ++count) {
        const int column = count / BoxesPerColumn;
        const int row = count % BoxesPerColumn;
        layout.Boxes.push_back({output, FirstColumnLeft + column * ColumnStep, (row + 1) * BoxHeight,
                                BoxWidth, BoxHeight, std::to_string(output)});
    }
    const int extraColumns = count > 0 ? (count - 1) / BoxesPerColumn : 0;
    layout.FrameWidth = FrameWidthOfOneColumn + FrameWidthPerExtraColumn * extraColumns;
    layout.FrameHeight = (std::min(count, BoxesPerColumn) + 1) * BoxHeight + FrameBottomMargin;
    return layout;
}

OutputMapLayout DrawnOutputMap(OutputMapLayout layout) {
    for (OutputBoxLayout& box : layout.Boxes) {
        box.Left = Drawn(box.Left);
        box.Top = Drawn(box.Top);
        box.Width = Drawn(box.Width);
        box.Height = Drawn(box.Height);
    }
    layout.FrameWidth = Drawn(layout.FrameWidth);
    for (const OutputBoxLayout& box : layout.Boxes) {
        layout.FrameWidth = std::max(layout.FrameWidth, box.Left + box.Width + Drawn(RightMargin));
    }
    layout.FrameHeight = Drawn(layout.FrameHeight);
    return layout;
}

} // namespace brindle
