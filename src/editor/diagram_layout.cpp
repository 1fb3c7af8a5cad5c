#include "editor/diagram_layout.h"

#include <algorithm>

namespace brindle {

namespace {

constexpr int Dots(int count) {
    return count * LayoutGrid;
}

constexpr int Snap(int twips) {
    return twips / LayoutGrid * LayoutGrid;
}

constexpr int Margin = Dots(12);
constexpr int LineCaptionWidth = Dots(42);

/// The widths between the input captions and the relay frame, from left to right. Each has a least and a
/// greatest width; what the window offers beyond the least is shared out in proportion to the difference.
enum Column {
    InputColumn,
    InputWire,
    AndGate,
    Routing,
    OrGateColumn,
    OrWire,
    UnitColumn,
    OutputWire,
    ColumnCount
};

struct WidthRange {
    int Least;
    int Greatest;
};

constexpr std::array<WidthRange, ColumnCount> ColumnWidths{{
    {Dots(180), Dots(330)}, // InputColumn
    {Dots(30), Dots(56)},   // InputWire
    {Dots(62), Dots(90)},   // AndGate
    {Dots(48), Dots(90)},   // Routing
    {Dots(78), Dots(120)},  // OrGateColumn
    {Dots(14), Dots(54)},   // OrWire
    {Dots(150), Dots(150)}, // UnitColumn
    {Dots(18), Dots(90)},   // OutputWire
}};

constexpr WidthRange InputPitch{Dots(18), Dots(30)}; // the least fits a screen of 480 pixels
constexpr WidthRange GateGap{Dots(6), Dots(40)};
constexpr int BoxSpacing = Dots(4);
constexpr int InvertMarkSize = Dots(11);

struct Columns {
    std::array<int, ColumnCount> Left{};
    std::array<int, ColumnCount> Width{};
    int MapLeft = 0;
    int CaptionLeft = 0;
};

int SumOfLeast() {
    int sum = 0;
    for (const WidthRange& width : ColumnWidths) {
        sum += width.Least;
    }
    return sum;
}

Columns PlaceColumns(const DiagramSize& size) {
    const int fixed = 2 * Margin + LineCaptionWidth + size.MapFrameWidth;
    const int least = SumOfLeast();
    int slack = 0;
    for (const WidthRange& width : ColumnWidths) {
        slack += width.Greatest - width.Least;
    }
    const int offered = std::max(0, size.Width - fixed - least);
    const int used = std::min(offered, slack);

    Columns columns;
    columns.CaptionLeft = Snap(Margin + (offered - used) / 2);
    int left = columns.CaptionLeft + LineCaptionWidth;
    for (std::size_t i = 0; i < ColumnCount; ++i) {
        const WidthRange& range = ColumnWidths.at(i);
        columns.Left.at(i) = left;
        columns.Width.at(i) =
            Snap(range.Least + (range.Greatest - range.Least) * (used / LayoutGrid) / (slack / LayoutGrid));
        left += columns.Width.at(i);
    }
    columns.MapLeft = left;
    return columns;
}

struct Rows {
    int Pitch = 0;
    int Gap = 0;
    int Top = 0;

    [[nodiscard]] int InputTop(int input) const { return Top + input * Pitch + input / 4 * Gap; }
};

Rows PlaceRows(int height) {
    const int available = height - 2 * Margin;
    Rows rows;
    rows.Pitch = Snap(
        std::clamp((available - 3 * GateGap.Least) / InputsPerUnit, InputPitch.Least, InputPitch.Greatest));
    rows.Gap =
        Snap(std::clamp((available - InputsPerUnit * rows.Pitch) / 3, GateGap.Least, GateGap.Greatest));
    const int used = InputsPerUnit * rows.Pitch + 3 * rows.Gap;
    rows.Top = Margin + std::max(0, Snap((available - used) / 2));
    return rows;
}

LayoutRect Placed(const Columns& columns, Column column, int top, int height) {
    return {columns.Left.at(column), top, columns.Width.at(column), height};
}

void PlaceInputs(DiagramLayout& layout, const Columns& columns, const Rows& rows) {
    const int boxHeight = rows.Pitch - BoxSpacing;
    const int gateLeft = columns.Left[AndGate];
    for (int i = 0; i < InputsPerUnit; ++i) {
        InputLayout& input = layout.Inputs.at(static_cast<std::size_t>(i));
        const int top = rows.InputTop(i);
        const int middle = Snap(top + boxHeight / 2);
        input.LineCaption = {columns.CaptionLeft, top, LineCaptionWidth - Dots(6), boxHeight};
        input.Box = Placed(columns, InputColumn, top, boxHeight);
        input.InvertMark = {gateLeft - InvertMarkSize, middle - Snap(InvertMarkSize / 2), InvertMarkSize,
                            InvertMarkSize};
        input.Wire = {{input.Box.Right(), middle}, {gateLeft, middle}};
    }
}

void PlaceGates(DiagramLayout& layout, const Columns& columns, const Rows& rows) {
    const int centre =
        Snap((rows.InputTop(0) + rows.InputTop(InputsPerUnit - 1) + rows.Pitch - BoxSpacing) / 2);
    const int pinStep = rows.Pitch + Dots(4);
    layout.OrGate = Placed(columns, OrGateColumn, centre - Snap(pinStep * 5 / 2), Snap(pinStep * 5 / 2) * 2);
    const std::array<int, GatesPerUnit> bends{
        2, 1, 1, 2}; // thirds of the routing column, the outer gates' farther right
    for (int row = 0; row < GatesPerUnit; ++row) {
        const auto index = static_cast<std::size_t>(row);
        GateLayout& gate = layout.Gates.at(index);
        const int top = rows.InputTop(4 * row);
        gate.Gate = Placed(columns, AndGate, top, 4 * rows.Pitch - BoxSpacing);
        const int middle = Snap(top + gate.Gate.Height / 2);
        const int pin = centre + Snap((2 * row - 3) * pinStep / 2);
        const int bend = columns.Left[Routing] + Snap(columns.Width[Routing] * bends.at(index) / 3);
        const int end = layout.OrGate.Left + OrGateBackDepth(layout.OrGate, pin - layout.OrGate.Top);
        gate.Output = {{gate.Gate.Right(), middle}, {bend, middle}, {bend, pin}, {end, pin}};
    }
}

TimerLayout PlaceTimer(const LayoutRect& column, int centre) {
    constexpr int symbolHeight = Dots(88);
    constexpr int textHeight = Dots(18);
    constexpr int boxHeight = Dots(26);
    constexpr int gap = Dots(4);
    constexpr int symbolGap = Dots(12);
    const auto line = [&column](int top, int height) {
        return LayoutRect{column.Left, top, column.Width, height};
    };
    TimerLayout timer;
    timer.Symbol = {column.Left, Snap(centre - symbolHeight / 2), Dots(120), symbolHeight};
    timer.PickUpCaption = {timer.Symbol.Left + Dots(8), timer.Symbol.Top + Dots(8), Dots(56), textHeight};
    timer.DropOutCaption = {timer.Symbol.Right() - Dots(64), timer.Symbol.Bottom() - Dots(8) - textHeight,
                            Dots(56), textHeight};
    timer.PickUpReadOut = line(timer.Symbol.Top - symbolGap - textHeight, textHeight);
    timer.PickUpBox = line(timer.PickUpReadOut.Top - gap - boxHeight, boxHeight);
    timer.PickUpLabel = line(timer.PickUpBox.Top - gap - textHeight, textHeight);
    timer.DropOutLabel = line(timer.Symbol.Bottom() + symbolGap, textHeight);
    timer.DropOutBox = line(timer.DropOutLabel.Bottom() + gap, boxHeight);
    timer.DropOutReadOut = line(timer.DropOutBox.Bottom() + gap, textHeight);
    return timer;
}

/// The shown side's pin stands at the height of the OR gate's output, so that its wire is straight; the other
/// side's picture stands beyond the pin that it drives, above the set or below the reset pin.
LatchLayout PlaceLatch(const LayoutRect& column, int centre, UnitKind side) {
    constexpr int symbolWidth = Dots(88);
    constexpr int pinDistance = Dots(60);
    constexpr int pinMargin = Dots(24);
    constexpr int textHeight = Dots(18);
    constexpr int pictureWidth = Dots(44);
    constexpr int pictureHeight = Dots(36);
    constexpr int pictureGap = Dots(34);
    const bool resetShown = side == UnitKind::LatchReset;
    const int setPin = resetShown ? centre - pinDistance : centre;
    const int resetPin = setPin + pinDistance;

    LatchLayout latch;
    latch.Symbol = {column.Right() - symbolWidth, setPin - pinMargin, symbolWidth,
                    pinDistance + 2 * pinMargin};
    const auto pinText = [&](int left, int pin) {
        return LayoutRect{left, pin - Snap(textHeight / 2), Dots(20), textHeight};
    };
    latch.Set = pinText(latch.Symbol.Left + Dots(8), setPin);
    latch.Reset = pinText(latch.Symbol.Left + Dots(8), resetPin);
    latch.Output = pinText(latch.Symbol.Right() - Dots(28), setPin);
    latch.Caption = {latch.Symbol.Left + Dots(28), latch.Symbol.Top + latch.Symbol.Height / 2 - Dots(9),
                     Dots(32), textHeight};

    const int pictureTop = resetShown ? setPin - pictureGap - pictureHeight : resetPin + pictureGap;
    latch.OtherSidePicture = {column.Left, pictureTop, pictureWidth, pictureHeight};
    latch.OtherSideCaption = {latch.OtherSidePicture.Right() + Dots(6), pictureTop,
                              column.Right() - latch.OtherSidePicture.Right() - Dots(6), pictureHeight};
    const int bend = column.Left + Snap(pictureWidth / 2);
    const int pin = resetShown ? setPin : resetPin;
    latch.OtherSideWire = {{bend, resetShown ? latch.OtherSidePicture.Bottom() : pictureTop},
                           {bend, pin},
                           {latch.Symbol.Left, pin}};
    return latch;
}

/// Below everything of the unit, as close to it as there is room.
FeedbackLayout PlaceFeedback(const LayoutRect& column, int centre, const LayoutPoint& branch, int height) {
    constexpr int panelWidth = Dots(56);
    constexpr int panelHeight = Dots(22);
    constexpr int leftOfPanel = Dots(48);
    constexpr int wayOut = Dots(30);
    constexpr int belowCentre =
        Dots(140); // the read-out of the drop-out time and the latch's picture end above
    FeedbackLayout feedback;
    const int top = std::min(centre + belowCentre, height - Margin / 2 - panelHeight);
    feedback.Panel = {column.Left + leftOfPanel, Snap(top), panelWidth, panelHeight};
    const int middle = feedback.Panel.Top + Snap(panelHeight / 2);
    feedback.Lines[0] = {branch, {branch.X, middle}};
    feedback.Lines[1] = {{branch.X, middle}, {feedback.Panel.Right(), middle}};
    feedback.Lines[2] = {{feedback.Panel.Left, middle}, {feedback.Panel.Left - wayOut, middle}};
    return feedback;
}

} // namespace

int OrGateGreatestDepth(const LayoutRect& gate) {
    return Snap(gate.Width / 5);
}

int OrGateBackDepth(const LayoutRect& gate, int y) {
    // The back is a parabola through the two left corners.
    const long long offset = 2LL * y - gate.Height;
    const long long height = gate.Height;
    const long long depth = OrGateGreatestDepth(gate);
    return static_cast<int>(depth * (height * height - offset * offset) / (height * height));
}

DiagramSize LeastDiagramSize(int mapFrameWidth, int mapFrameHeight) {
    DiagramSize size;
    size.MapFrameWidth = mapFrameWidth;
    size.MapFrameHeight = mapFrameHeight;
    size.Width = 2 * Margin + LineCaptionWidth + SumOfLeast() + mapFrameWidth;
    size.Height = std::max(2 * Margin + InputsPerUnit * InputPitch.Least + 3 * GateGap.Least,
                           2 * Margin + mapFrameHeight);
    return size;
}

DiagramLayout LayoutDiagram(const DiagramSize& size) {
    const Columns columns = PlaceColumns(size);
    const Rows rows = PlaceRows(size.Height);
    DiagramLayout layout;
    PlaceInputs(layout, columns, rows);
    PlaceGates(layout, columns, rows);
    const int centre = layout.OrGate.Top + layout.OrGate.Height / 2;
    const LayoutRect unitColumn = Placed(columns, UnitColumn, 0, size.Height);

    int unitLeft = 0;
    int unitRight = 0;
    int outputHeight = centre;
    if (size.Kind == UnitKind::Timer) {
        layout.Timer = PlaceTimer(unitColumn, centre);
        unitLeft = layout.Timer.Symbol.Left;
        unitRight = layout.Timer.Symbol.Right();
    } else {
        layout.Latch = PlaceLatch(unitColumn, centre, size.Kind);
        unitLeft = layout.Latch.Symbol.Left;
        unitRight = layout.Latch.Symbol.Right();
        outputHeight = layout.Latch.Output.Top + layout.Latch.Output.Height / 2;
    }
    layout.OrOutput = {{layout.OrGate.Right(), centre}, {unitLeft, centre}};
    layout.UnitOutput = {{unitRight, outputHeight}, {columns.MapLeft, outputHeight}};
    if (size.Feedback) {
        const LayoutPoint branch{columns.MapLeft - Snap(columns.Width[OutputWire] / 2), outputHeight};
        layout.Feedback = PlaceFeedback(unitColumn, centre, branch, size.Height);
    }
    const int highestTop = std::max(Margin, size.Height - Margin - size.MapFrameHeight);
    layout.MapFrame = {columns.MapLeft,
                       std::clamp(Snap(outputHeight - size.MapFrameHeight / 2), Margin, highestTop),
                       size.MapFrameWidth, size.MapFrameHeight};
    return layout;
}

} // namespace brindle
