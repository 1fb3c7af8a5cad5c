#include "files/vdr810_writer.h"
#include "support/fake_file_system.h"
#include "support/temp_folder.h"
#include "support/vdr810_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace brindle {
namespace {

/// An empty logic of a relay with so many groups, timers and latches.
LogicConfig RelayOf(int groups, int timers, int latches, int lastOutput = 16) {
    return ReadText(Vdr810Text().Units(groups, timers, latches).Outputs(1, lastOutput).Text()).Config;
}

std::vector<std::string> WrittenLines(const LogicConfig& config) {
    const std::string text = EncodeVdr810(config);
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find("\r\n", at);
        EXPECT_NE(std::string::npos, end);
        lines.push_back(text.substr(at, end - at));
        at = end + 2;
    }
    return lines;
}

std::ptrdiff_t LinesBeginning(const std::vector<std::string>& lines, const std::string& beginning) {
    return std::count_if(lines.begin(), lines.end(),
                         [&](const std::string& line) { return line.rfind(beginning, 0) == 0; });
}

TEST(Vdr810Writer, ASmallLogicLetterForLetter) {
    LogicConfig config = RelayOf(2, 1, 1, 17);
    config.Coding.FalseCode = 104;
    ClearConfig(config);
    config.Group(1).Unit(1).Inputs[0] = 130;
    config.Group(2).Unit(1).Inputs[0] = -2147483647 - 1;
    config.Group(2).Unit(8).Inputs[15] = 7;
    config.Group(1).OutputMap(1, 2) = 0xFFFFFFFF;
    config.Group(2).OutputMap(7, 1) = 0x8000;
    config.Group(1).Timer(1) = {1000, 600000};
    config.Group(2).Timer(1) = {0, -1};
    std::string expected =
        "LINE 7 EAST\r\n1.00\r\n2.30\r\n 12\r\n 2\r\n 1\r\n 1\r\n 3\r\n 2\r\n 256\r\n1,17\r\n"
        "<TIMER 1>\r\n1,1,130,-2147483648\r\n";
    for (int input = 2; input <= 16; ++input) {
        expected += "1," + std::to_string(input) + ",104,104\r\n";
    }
    expected += "2,1,0,-1,0,0\r\n3,1,1000,0\r\n4,1,600000,-1\r\n<LATCH 1 SET>\r\n";
    for (int input = 1; input <= 16; ++input) {
        expected += "1," + std::to_string(input) + ",104,104\r\n";
    }
    expected += "2,2,0,0,32768,0\r\n<LATCH 1 RESET>\r\n";
    for (int input = 1; input <= 15; ++input) {
        expected += "1," + std::to_string(input) + ",104,104\r\n";
    }
    expected += "1,16,104,7\r\n2,2,0,0,32768,0\r\n";
    EXPECT_EQ(expected, EncodeVdr810(config));
}

TEST(Vdr810Writer, AFullRelayHasTenSectionsInTheirOrder) {
    const std::vector<std::string> lines = WrittenLines(RelayOf(8, 6, 2));
    std::vector<std::string> tags;
    std::vector<std::ptrdiff_t> dataLines;
    for (std::size_t i = 11; i < lines.size(); ++i) {
        if (lines[i].front() == '<') {
            tags.push_back(lines[i]);
            dataLines.push_back(0);
        } else {
            ++dataLines.back();
        }
    }
    EXPECT_EQ((std::vector<std::string>{"<TIMER 1>", "<TIMER 2>", "<TIMER 3>", "<TIMER 4>", "<TIMER 5>",
                                        "<TIMER 6>", "<LATCH 1 SET>", "<LATCH 1 RESET>", "<LATCH 2 SET>",
                                        "<LATCH 2 RESET>"}),
              tags);
    EXPECT_EQ((std::vector<std::ptrdiff_t>{19, 19, 19, 19, 19, 19, 17, 17, 17, 17}), dataLines);
}

TEST(Vdr810Writer, ALatchIsCountedFromTheTimersThatThereAre) {
    const std::vector<std::string> three = WrittenLines(RelayOf(1, 3, 2));
    EXPECT_EQ(2, LinesBeginning(three, "2,4,"));
    EXPECT_EQ(2, LinesBeginning(three, "2,5,"));
    const std::vector<std::string> none = WrittenLines(RelayOf(1, 0, 1));
    EXPECT_EQ(2, LinesBeginning(none, "2,1,"));
    EXPECT_EQ(0, LinesBeginning(none, "3,"));
}

TEST(Vdr810Writer, TheListsStayInTheOptionFile) {
    LogicConfig config = RelayOf(1, 0, 1);
    const std::vector<std::string> without = WrittenLines(config);
    config.Lists.Categories.push_back({1, "Zone", "Zone"});
    config.Lists.Labels.push_back({1, 104, "FALSE", "FALSE", true, true});
    EXPECT_EQ(without, WrittenLines(config));
}

TEST(Vdr810Writer, TheHeadIsWrittenBackAsItWasRead) {
    const std::string head = "  LINE \"7\" S\xFC"
                             "D \r\n3.25\r\n12.34\r\n 5\r\n 1\r\n 0\r\n 1\r\n 150\r\n 20\r\n"
                             " 70000\r\n3,60\r\n";
    EXPECT_EQ(head, EncodeVdr810(ReadText(head).Config).substr(0, head.size()));
}

TEST(Vdr810Writer, TheFileIsReplacedWhole) {
    const TempFolder folder;
    folder.Put("x.c10", std::string(100000, 'x'));
    const LogicConfig config = RelayOf(8, 6, 2, 128);
    EXPECT_FALSE(WriteVdr810File(RealFileSystem(), folder.Path("x.c10"), config).Failed());
    EXPECT_EQ(EncodeVdr810(config), folder.Content("x.c10"));
    EXPECT_EQ(1, folder.Count());
    LogicConfig read;
    EXPECT_TRUE(ReadVdr810File(RealFileSystem(), folder.Path("x.c10"), read).Done());
    EXPECT_TRUE(SameVdr810(config, read));
}

TEST(Vdr810Writer, AFailureLeavesTheOldFile) {
    FakeFileSystem disk;
    disk.AddFile("/x.c10", "old");
    disk.FailAll("write", DiskFullError);
    EXPECT_EQ(DiskFullError, WriteVdr810File(disk.Operations(), "/x.c10", RelayOf(1, 1, 0)).Number);
    EXPECT_EQ("old", disk.Content("/x.c10"));
    disk.FailNoMore();
    EXPECT_EQ(PathNotFoundError, WriteVdr810File(disk.Operations(), "/none/x.c10", RelayOf(1, 1, 0)).Number);
}

} // namespace
} // namespace brindle
