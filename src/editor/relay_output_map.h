#pragma once

#include "model/logic_config.h"

#include <string>
#include <vector>

/// Where the check boxes of the relay outputs stand in their frame "Map Relay". All measures in twips.
namespace brindle {

/// One check box `cbxOutputMap`(Output); its place is relative to the frame.
struct OutputBoxLayout {
    int Output; ///< relay output number, also the index of the box
    int Left;
    int Top;
    int Width;
    int Height;
    std::string Caption; ///< the number in decimal
};

struct OutputMapLayout {
    std::vector<OutputBoxLayout> Boxes; ///< only these boxes are shown
    int FrameWidth;
    int FrameHeight;
};

/// Lays out one box per relay output of the logic, sixteen to a column.
OutputMapLayout SetupRelayOutputMapWindow(const LogicConfig& config);

/// The layout as the main window draws it: enlarged evenly, so that a check box has room for today's fonts.
/// Every measure is a whole number of pixels at 96 dpi, a row of boxes 21. The frame, which grows by less
/// than its columns, is drawn as wide as they need.
OutputMapLayout DrawnOutputMap(OutputMapLayout layout);

} // namespace brindle
