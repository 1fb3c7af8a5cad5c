#include "editor/diagram_layout.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace brindle {
namespace {

constexpr int FrameWidth = 1200;
constexpr int FrameHeight = 3220 / LayoutGrid * LayoutGrid;

DiagramSize SizeOf(int width, int height, UnitKind kind) {
    return {width, height, kind, FrameWidth, FrameHeight, true};
}

std::vector<LayoutRect> Elements(const DiagramLayout& layout, UnitKind kind) {
    std::vector<LayoutRect> rects;
    for (const InputLayout& input : layout.Inputs) {
        rects.insert(rects.end(), {input.LineCaption, input.Box});
    }
    for (const GateLayout& gate : layout.Gates) {
        rects.push_back(gate.Gate);
    }
    rects.insert(rects.end(), {layout.OrGate, layout.MapFrame});
    rects.push_back(layout.Feedback.Panel);
    if (kind == UnitKind::Timer) {
        const TimerLayout& timer = layout.Timer;
        rects.insert(rects.end(), {timer.Symbol, timer.PickUpLabel, timer.PickUpBox, timer.PickUpReadOut,
                                   timer.DropOutLabel, timer.DropOutBox, timer.DropOutReadOut});
    } else {
        rects.insert(rects.end(),
                     {layout.Latch.Symbol, layout.Latch.OtherSidePicture, layout.Latch.OtherSideCaption});
    }
    return rects;
}

bool Overlap(const LayoutRect& a, const LayoutRect& b) {
    return a.Left < b.Right() && b.Left < a.Right() && a.Top < b.Bottom() && b.Top < a.Bottom();
}

rc::Gen<DiagramSize> AnySize() {
    const DiagramSize least = LeastDiagramSize(FrameWidth, FrameHeight);
    return rc::gen::map(
        rc::gen::tuple(rc::gen::inRange(least.Width, 60000), rc::gen::inRange(least.Height, 40000),
                       rc::gen::element(UnitKind::Timer, UnitKind::LatchReset, UnitKind::LatchSet)),
        [](const std::tuple<int, int, UnitKind>& of) {
            return SizeOf(std::get<0>(of), std::get<1>(of), std::get<2>(of));
        });
}

RC_GTEST_PROP(DiagramLayout, NoElementOverlapsAnotherOrLeavesTheDiagram, ()) {
    const DiagramSize size = *AnySize();
    const std::vector<LayoutRect> elements = Elements(LayoutDiagram(size), size.Kind);
    for (std::size_t i = 0; i < elements.size(); ++i) {
        RC_ASSERT(elements[i].Left >= 0 && elements[i].Top >= 0);
        RC_ASSERT(elements[i].Width > 0 && elements[i].Height > 0);
        RC_ASSERT(elements[i].Right() <= size.Width && elements[i].Bottom() <= size.Height);
        for (std::size_t j = 0; j < i; ++j) {
            RC_ASSERT(!Overlap(elements[i], elements[j]));
        }
    }
}

RC_GTEST_PROP(DiagramLayout, TheFeedbackLinesLeadFromTheOutputWireThroughThePanel, ()) {
    const DiagramLayout layout = LayoutDiagram(*AnySize());
    const auto& [down, toPanel, out] = layout.Feedback.Lines;
    const LayoutPoint& branch = down.front();
    RC_ASSERT(branch.Y == layout.UnitOutput.front().Y);
    RC_ASSERT(branch.X > layout.UnitOutput.front().X && branch.X < layout.UnitOutput.back().X);
    RC_ASSERT(down.back() == toPanel.front());
    RC_ASSERT(toPanel.back().X == layout.Feedback.Panel.Right());
    RC_ASSERT(out.front().X == layout.Feedback.Panel.Left);
    for (const LayoutWire& line : layout.Feedback.Lines) {
        RC_ASSERT((line.front().X == line.back().X) != (line.front().Y == line.back().Y));
    }
}

RC_GTEST_PROP(DiagramLayout, EveryPlaceIsOnTheGrid, ()) {
    const DiagramSize size = *AnySize();
    for (const LayoutRect& rect : Elements(LayoutDiagram(size), size.Kind)) {
        RC_ASSERT(rect.Left % LayoutGrid == 0 && rect.Top % LayoutGrid == 0);
        RC_ASSERT(rect.Width % LayoutGrid == 0 && rect.Height % LayoutGrid == 0);
    }
}

RC_GTEST_PROP(DiagramLayout, WiresRunStraightAndMeetTheirEnds, ()) {
    const DiagramSize size = *AnySize();
    const DiagramLayout layout = LayoutDiagram(size);
    std::vector<LayoutWire> wires{layout.OrOutput, layout.UnitOutput};
    for (const InputLayout& input : layout.Inputs) {
        RC_ASSERT(input.Wire.front().X == input.Box.Right());
        wires.push_back(input.Wire);
    }
    for (const GateLayout& gate : layout.Gates) {
        RC_ASSERT(gate.Output.front().X == gate.Gate.Right());
        RC_ASSERT(gate.Output.back().X > layout.OrGate.Left);
        RC_ASSERT(gate.Output.back().Y > layout.OrGate.Top && gate.Output.back().Y < layout.OrGate.Bottom());
        wires.push_back(gate.Output);
    }
    if (size.Kind != UnitKind::Timer) {
        RC_ASSERT(layout.Latch.OtherSideWire.back().X == layout.Latch.Symbol.Left);
        wires.push_back(layout.Latch.OtherSideWire);
    }
    for (const LayoutWire& wire : wires) {
        for (std::size_t i = 1; i < wire.size(); ++i) {
            RC_ASSERT(wire[i].X == wire[i - 1].X || wire[i].Y == wire[i - 1].Y);
        }
    }
    RC_ASSERT(layout.UnitOutput.back().X == layout.MapFrame.Left);
    RC_ASSERT(layout.UnitOutput.back().Y >= layout.MapFrame.Top);
    RC_ASSERT(layout.UnitOutput.back().Y <= layout.MapFrame.Bottom());
}

TEST(DiagramLayout, TheShownSideOfALatchIsDrivenByAStraightWire) {
    const DiagramSize least = LeastDiagramSize(FrameWidth, FrameHeight);
    const DiagramLayout reset = LayoutDiagram(SizeOf(least.Width, least.Height, UnitKind::LatchReset));
    const DiagramLayout set = LayoutDiagram(SizeOf(least.Width, least.Height, UnitKind::LatchSet));
    const auto middle = [](const LayoutRect& rect) { return rect.Top + rect.Height / 2; };
    EXPECT_EQ(reset.OrOutput.back().Y, middle(reset.Latch.Reset));
    EXPECT_EQ(set.OrOutput.back().Y, middle(set.Latch.Set));
    EXPECT_EQ(reset.Latch.OtherSideWire.back().Y, middle(reset.Latch.Set));
    EXPECT_EQ(set.Latch.OtherSideWire.back().Y, middle(set.Latch.Reset));
}

TEST(DiagramLayout, TheLeastSizeFitsAWindowOf800By600) {
    const DiagramSize least = LeastDiagramSize(FrameWidth * 4 / 3, FrameHeight * 4 / 3);
    EXPECT_LE(least.Width, (800 - 22) * LayoutGrid);
    EXPECT_LE(least.Height, (600 - 160) * LayoutGrid);
}

TEST(OrGateBackDepth, IsNoneAtTheCornersAndGreatestInTheMiddle) {
    const LayoutRect gate{0, 0, 1500, 2100};
    EXPECT_EQ(OrGateBackDepth(gate, 0), 0);
    EXPECT_EQ(OrGateBackDepth(gate, 2100), 0);
    EXPECT_EQ(OrGateBackDepth(gate, 1050), OrGateGreatestDepth(gate));
    EXPECT_EQ(OrGateBackDepth(gate, 300), OrGateBackDepth(gate, 1800));
}

} // namespace
} // namespace brindle
