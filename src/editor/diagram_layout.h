#pragma once

#include "model/unit_table.h"

#include <array>
#include <vector>

/// Where the elements of the unit diagram stand for a given size of the diagram. All measures in twips, each
/// a whole number of pixels at 96 dpi (15 twips), so that lines are crisp at any whole device scale.
namespace brindle {

inline constexpr int LayoutGrid = 15; ///< twips; every place and size is a multiple

struct LayoutPoint {
    int X = 0;
    int Y = 0;

    bool operator==(const LayoutPoint&) const = default;
};

struct LayoutRect {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;

    [[nodiscard]] int Right() const { return Left + Width; }

    [[nodiscard]] int Bottom() const { return Top + Height; }

    bool operator==(const LayoutRect&) const = default;
};

/// A line of horizontal and vertical stretches.
using LayoutWire = std::vector<LayoutPoint>;

struct InputLayout {
    LayoutRect LineCaption;
    LayoutRect Box;
    LayoutRect InvertMark; ///< touches the gate
    LayoutWire Wire;       ///< from the box to the gate; ends at the mark when the input is inverted
};

struct GateLayout {
    LayoutRect Gate;
    LayoutWire Output; ///< to the back of the OR gate
};

struct TimerLayout {
    LayoutRect Symbol;
    LayoutRect PickUpCaption; ///< inside the symbol, upper left
    LayoutRect DropOutCaption;
    LayoutRect PickUpLabel; ///< above the symbol: label, box, read-out
    LayoutRect PickUpBox;
    LayoutRect PickUpReadOut;
    LayoutRect DropOutLabel; ///< the same below
    LayoutRect DropOutBox;
    LayoutRect DropOutReadOut;
};

/// The panel for the way back of the unit's output to the logic, below the timer or latch.
struct FeedbackLayout {
    LayoutRect Panel;
    std::array<LayoutWire, 3> Lines; ///< down from the output wire, to the panel, and out of it
};

struct LatchLayout {
    LayoutRect Symbol;
    LayoutRect Caption; ///< inside the symbol, its name
    LayoutRect Set;     ///< inside: "S" at its pin
    LayoutRect Reset;   ///< inside: "R" at its pin
    LayoutRect Output;  ///< inside: "Q" at its pin
    LayoutRect OtherSidePicture;
    LayoutRect OtherSideCaption;
    LayoutWire OtherSideWire; ///< from the picture to the pin that the shown inputs do not drive
};

/// What the layout depends on.
struct DiagramSize {
    int Width = 0; ///< of the diagram; below the least size that fits, the right and lower parts are cut off
    int Height = 0;
    UnitKind Kind = UnitKind::Timer;
    int MapFrameWidth = 0;
    int MapFrameHeight = 0;
    bool Feedback = false; ///< the feedback panel is shown
};

struct DiagramLayout {
    std::array<InputLayout, InputsPerUnit> Inputs;
    std::array<GateLayout, GatesPerUnit> Gates; ///< by row
    LayoutRect OrGate;
    LayoutWire OrOutput;     ///< to the timer or latch
    TimerLayout Timer;       ///< set for a timer
    LatchLayout Latch;       ///< set for a latch
    FeedbackLayout Feedback; ///< set when it is shown
    LayoutWire UnitOutput;
    LayoutRect MapFrame;
};

/// The least size that shows every element whole beside a frame of these measures.
DiagramSize LeastDiagramSize(int mapFrameWidth, int mapFrameHeight);

DiagramLayout LayoutDiagram(const DiagramSize& size);

/// How far the back of the OR gate is bent in from its left edge at height `y` (twips, relative to the gate's
/// top): where a wire coming from the left meets it.
int OrGateBackDepth(const LayoutRect& gate, int y);

/// The depth of that bend at the gate's middle, where it is greatest.
int OrGateGreatestDepth(const LayoutRect& gate);

} // namespace brindle
