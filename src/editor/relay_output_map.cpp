#include "editor/relay_output_map.h"

#include <algorithm>

namespace brindle {

namespace {

constexpr int BoxesPerColumn = 16;
constexpr int BoxHeight = 240;
constexpr int BoxWidth = 600;
constexpr int FirstColumnLeft = 120;
constexpr int ColumnStep = 620;
// The frame grows by less than a column's step, as users of the frame know it.
constexpr int FrameWidthOfOneColumn = 1200;
constexpr int FrameWidthPerExtraColumn = 300;
constexpr int FrameBottomMargin = 100;

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

} // namespace brindle
