#include "editor/relay_output_map.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

OutputMapLayout LayoutOf(int first, int last) {
    LogicConfig config;
    config.FirstOutput = static_cast<std::int16_t>(first);
    config.LastOutput = static_cast<std::int16_t>(last);
    return SetupRelayOutputMapWindow(config);
}

TEST(SetupRelayOutputMapWindow, AVersion100Shows2To9InOneColumn) {
    LogicConfig config;
    MakeNewVdr812(config, Version100);
    const OutputMapLayout layout = SetupRelayOutputMapWindow(config);
    ASSERT_EQ(layout.Boxes.size(), 8U);
    for (std::size_t i = 0; i < layout.Boxes.size(); ++i) {
        const OutputBoxLayout& box = layout.Boxes[i];
        EXPECT_EQ(box.Output, static_cast<int>(i) + 2);
        EXPECT_EQ(box.Caption, std::to_string(i + 2));
        EXPECT_EQ(box.Left, 120);
        EXPECT_EQ(box.Top, (static_cast<int>(i) + 1) * 240);
        EXPECT_EQ(box.Width, 600);
        EXPECT_EQ(box.Height, 240);
    }
    EXPECT_EQ(layout.FrameHeight, 9 * 240 + 100);
    EXPECT_EQ(layout.FrameWidth, 1200);
}

TEST(SetupRelayOutputMapWindow, AVersion230Shows2To13) {
    LogicConfig config;
    MakeNewVdr812(config, Version230);
    const OutputMapLayout layout = SetupRelayOutputMapWindow(config);
    ASSERT_EQ(layout.Boxes.size(), 12U);
    EXPECT_EQ(layout.Boxes.front().Caption, "2");
    EXPECT_EQ(layout.Boxes.back().Caption, "13");
    EXPECT_EQ(layout.FrameHeight, 13 * 240 + 100);
}

TEST(SetupRelayOutputMapWindow, TwentyOutputsStandInTwoColumns) {
    const OutputMapLayout layout = LayoutOf(1, 20);
    ASSERT_EQ(layout.Boxes.size(), 20U);
    EXPECT_EQ(layout.Boxes[15].Left, 120);
    EXPECT_EQ(layout.Boxes[15].Top, 16 * 240);
    EXPECT_EQ(layout.Boxes[16].Left, 120 + 620);
    EXPECT_EQ(layout.Boxes[16].Top, 240);
    EXPECT_EQ(layout.Boxes[19].Top, 4 * 240);
    EXPECT_EQ(layout.FrameHeight, 4180);
    EXPECT_EQ(layout.FrameWidth, 1500);
}

TEST(SetupRelayOutputMapWindow, SixteenOutputsNeedNoSecondColumn) {
    EXPECT_EQ(LayoutOf(1, 16).FrameWidth, 1200);
    EXPECT_EQ(LayoutOf(1, 17).FrameWidth, 1500);
}

TEST(SetupRelayOutputMapWindow, AnEmptyRangeShowsAnEmptyFrame) {
    const OutputMapLayout layout = LayoutOf(3, 2);
    EXPECT_TRUE(layout.Boxes.empty());
    EXPECT_EQ(layout.FrameWidth, 1200);
    EXPECT_EQ(layout.FrameHeight, 340);
}

TEST(DrawnOutputMap, TheFrameIsAsWideAsItsColumnsNeed) {
    LogicConfig config;
    config.RelayModel = RelayKind::Vdr810;
    config.FirstOutput = 1;
    for (const int last : {16, 32, 48, 128}) {
        config.LastOutput = static_cast<std::int16_t>(last);
        const OutputMapLayout drawn = DrawnOutputMap(SetupRelayOutputMapWindow(config));
        EXPECT_GT(drawn.FrameWidth, drawn.Boxes.back().Left + drawn.Boxes.back().Width) << last;
    }
}

TEST(DrawnOutputMap, EnlargesEvenlyToWholePixels) {
    const OutputMapLayout layout = DrawnOutputMap(LayoutOf(1, 20));
    for (std::size_t i = 0; i < layout.Boxes.size(); ++i) {
        const OutputBoxLayout& box = layout.Boxes[i];
        EXPECT_EQ(box.Top, (static_cast<int>(i % 16) + 1) * 315) << "21 pixels a row";
        EXPECT_EQ(box.Height, 315);
        EXPECT_EQ(box.Left % 15, 0);
        EXPECT_EQ(box.Width % 15, 0);
    }
    EXPECT_EQ(layout.FrameHeight, 5475);
    EXPECT_EQ(layout.FrameWidth, 1965);
}

} // namespace
} // namespace brindle
