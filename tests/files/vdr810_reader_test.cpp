#include "files/vdr810_reader.h"
#include "model/output_map.h"
#include "support/fake_file_system.h"
#include "support/vdr810_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace brindle {
namespace {

/// The logic of a text that is read without complaint.
LogicConfig LogicIn(const std::string& text) {
    const Vdr810Read read = ReadText(text);
    EXPECT_EQ("", read.Reading.Error.Description);
    EXPECT_EQ("", read.Reading.Refusal ? read.Reading.Refusal->Text : "");
    return read.Config;
}

Vdr810Text FullRelay() {
    return Vdr810Text().Units(2, 6, 2);
}

int BanksOf(int first, int last) {
    return BankCount(LogicIn(Vdr810Text().Outputs(first, last).Text()));
}

/// The units that the text promises and does not hold in full.
std::vector<int> IncompleteIn(const std::string& text) {
    const Vdr810Read read = ReadText(text);
    return IncompleteUnits(read.Config, read.Reading);
}

TEST(Vdr810Reader, TheHeadMakesTheLogic) {
    const LogicConfig config = LogicIn(Vdr810Text().Outputs(3, 60).Text());
    EXPECT_EQ(RelayKind::Vdr810, config.RelayModel);
    EXPECT_EQ("LINE 7 EAST", config.Vdr810.Identity);
    EXPECT_EQ(1, config.GroupCount);
    EXPECT_EQ(2.3F, config.Version);
    EXPECT_EQ(256, config.Coding.InvertBase);
    EXPECT_EQ(3, config.FirstOutput);
    EXPECT_EQ(60, config.LastOutput);
}

TEST(Vdr810Reader, SixteenOutputsAreABank) {
    EXPECT_EQ(1, BanksOf(1, 16));
    EXPECT_EQ(2, BanksOf(1, 17));
    EXPECT_EQ(1, BanksOf(16, 16));
    EXPECT_EQ(8, BanksOf(1, 128));
    EXPECT_EQ(8, BanksOf(5, 117));
}

TEST(Vdr810Reader, AnInputLineGivesTheInputOfEachGroup) {
    const LogicConfig config =
        LogicIn(Vdr810Text().Units(2, 1, 0).Line("<TIMER 1>").Line("1,5,130,0").Text());
    EXPECT_EQ(130, config.InputCode(1, 1, 5));
    EXPECT_EQ(0, config.InputCode(2, 1, 5));
}

TEST(Vdr810Reader, AnOutputMapLineGivesTheBanksOfEachGroupInTurn) {
    const LogicConfig config =
        LogicIn(Vdr810Text().Units(2, 1, 0).Outputs(1, 33).Line("<TIMER 1>").Line("2,1,1,2,3,4,5,-1").Text());
    EXPECT_EQ(1U, config.Group(1).OutputMap(1, 1));
    EXPECT_EQ(2U, config.Group(1).OutputMap(1, 2));
    EXPECT_EQ(3U, config.Group(1).OutputMap(1, 3));
    EXPECT_EQ(4U, config.Group(2).OutputMap(1, 1));
    EXPECT_EQ(0xFFFFFFFFU, config.Group(2).OutputMap(1, 3));
    EXPECT_EQ(0U, config.Group(1).OutputMap(1, 4));
}

TEST(Vdr810Reader, TimeLinesGiveTheTimesOfEachGroup) {
    const LogicConfig config = LogicIn(Vdr810Text()
                                           .Units(2, 3, 0)
                                           .Line("<TIMER 3>")
                                           .Line("3,3,100,-5")
                                           .Line("4,3,600000,2147483647")
                                           .Text());
    EXPECT_EQ((UnitTimer{100, 600000}), config.Group(1).Timer(3));
    EXPECT_EQ((UnitTimer{-5, 2147483647}), config.Group(2).Timer(3));
}

TEST(Vdr810Reader, EachTagSelectsItsUnitAndItsSlot) {
    Vdr810Text text = FullRelay();
    for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
        text.Section(unit, 10 * unit);
    }
    const LogicConfig config = LogicIn(text.Text());
    for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
        EXPECT_EQ(10 * unit, config.InputCode(2, unit, 16)) << unit;
    }
    for (int timer = 1; timer <= TimersPerGroup; ++timer) {
        EXPECT_EQ(static_cast<std::uint32_t>(10 * timer), config.Group(2).OutputMap(timer, 1));
        EXPECT_EQ((UnitTimer{10 * timer, 10 * timer}), config.Group(2).Timer(timer));
    }
    EXPECT_EQ(80U, config.Group(1).OutputMap(7, 1)) << "of the two sides of a latch the last line holds";
    EXPECT_EQ(100U, config.Group(1).OutputMap(8, 1));
}

TEST(Vdr810Reader, LatchTagsNameTheSidesTheOtherWayRoundThanTheUnits) {
    const LogicConfig config = LogicIn(FullRelay()
                                           .Line("<LATCH 2 RESET>")
                                           .Line("1,1,40,40")
                                           .Line("<LATCH 1 SET>")
                                           .Line("1,1,10,10")
                                           .Line("<LATCH 2 SET>")
                                           .Line("1,1,30,30")
                                           .Line("<LATCH 1 RESET>")
                                           .Line("1,1,20,20")
                                           .Text());
    EXPECT_EQ(10, config.InputCode(1, 7, 1));
    EXPECT_EQ(20, config.InputCode(1, 8, 1));
    EXPECT_EQ(30, config.InputCode(1, 9, 1));
    EXPECT_EQ(40, config.InputCode(1, 10, 1));
    EXPECT_EQ("R1", Unit(7).Tag);
}

TEST(Vdr810Reader, ASlotIsThatOfItsTagWhateverNumberItsLineHas) {
    const std::string text = Vdr810Text().Units(1, 3, 1).Line("<LATCH 1 SET>").Line("2,4,9").Text();
    EXPECT_EQ(9U, LogicIn(text).Group(1).OutputMap(7, 1)) << "three timers: the file counts the latch 4";
}

TEST(Vdr810Reader, TimesOfALatchAreIgnored) {
    const Vdr810Text plain = Vdr810Text().Units(1, 6, 1).Section(7, 5);
    const std::string text = Vdr810Text(plain).Line("3,7,100").Line("4,x,y").Text();
    EXPECT_TRUE(SameVdr810(LogicIn(plain.Text()), LogicIn(text)));
}

TEST(Vdr810Reader, SectionsMayComeInAnyOrder) {
    Vdr810Text forward = FullRelay();
    Vdr810Text backward = FullRelay().Line("<LABEL INFO>").Line("1,7,A");
    for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
        forward.Section(unit, unit > TimersPerGroup ? 1 : unit);
        const int back = UnitsPerGroup + 1 - unit;
        backward.Section(back, back > TimersPerGroup ? 1 : back);
    }
    forward.Line("<CATEGORY INFO>").Line("3,C").Line("<LABEL INFO>").Line("1,7,A");
    backward.Line("<CATEGORY INFO>").Line("3,C");
    EXPECT_TRUE(SameVdr810(LogicIn(forward.Text()), LogicIn(backward.Text())));
}

TEST(Vdr810Reader, OfARepeatedUnitTheLastHolds) {
    Vdr810Read read = ReadText(Vdr810Text().Section(1, 77).Line("<TIMER 1>").Line("1,2,5").Text());
    ClearUnreadInputs(read.Config, read.Reading);
    EXPECT_EQ(5, read.Config.InputCode(1, 1, 2));
    EXPECT_EQ(UnconnectedCode(read.Config), read.Config.InputCode(1, 1, 1));
    EXPECT_EQ(UnitTimer{}, read.Config.Group(1).Timer(1));
    EXPECT_EQ(0U, read.Config.Group(1).OutputMap(1, 1));
    EXPECT_EQ(std::vector<int>{1}, IncompleteUnits(read.Config, read.Reading));
}

TEST(Vdr810Reader, ARepeatedSideOfALatchKeepsTheMappingOfTheOtherSide) {
    const auto mapping = [](const std::string& before) {
        return LogicIn(Vdr810Text().Units(1, 0, 1).Line(before).Line("2,1,6").Line("<LATCH 1 SET>").Text())
            .Group(1)
            .OutputMap(7, 1);
    };
    EXPECT_EQ(6U, mapping("<LATCH 1 RESET>"));
    EXPECT_EQ(0U, mapping("<LATCH 1 SET>"));
}

TEST(Vdr810Reader, OfARepeatedListTheLastHolds) {
    const LogicConfig config = LogicIn(Vdr810Text()
                                           .Line("<CATEGORY INFO>")
                                           .Line("1,Old")
                                           .Line("2,Older")
                                           .Line("<LABEL INFO>")
                                           .Line("1,5,OLD")
                                           .Line("1,104,FALSE")
                                           .Line("<CATEGORY INFO>")
                                           .Line("3,New")
                                           .Line("<LABEL INFO>")
                                           .Line("3,6,NEW")
                                           .Text());
    EXPECT_EQ((std::vector<Vdr810Category>{{3, "New", "New"}}), config.Lists.Categories);
    EXPECT_EQ((std::vector<Vdr810Label>{{3, 6, "NEW", "NEW", true, true}}), config.Lists.Labels);
    EXPECT_EQ(255, config.Coding.FalseCode) << "nothing of the first list is left";
}

TEST(Vdr810Reader, OfARepeatedInputLineTheLastHolds) {
    EXPECT_EQ(6,
              LogicIn(Vdr810Text().Line("<TIMER 1>").Line("1,2,5").Line("1,2,6").Text()).InputCode(1, 1, 2));
}

TEST(Vdr810Reader, AListLineFillsTheCaptionWithTheName) {
    const LogicConfig config = LogicIn(Vdr810Text()
                                           .Line("<CATEGORY INFO>")
                                           .Line(" 70000 , Zone 1 ")
                                           .Line("<LABEL INFO>")
                                           .Line("-3, 70001 ,Z1 ")
                                           .Text());
    EXPECT_EQ((std::vector<Vdr810Category>{{70000, " Zone 1 ", " Zone 1 "}}), config.Lists.Categories);
    EXPECT_EQ((std::vector<Vdr810Label>{{-3, 70001, "Z1 ", "Z1 ", true, true}}), config.Lists.Labels);
}

TEST(Vdr810Reader, TheLabelFalseTellsTheUnconnectedSignal) {
    const auto unconnected = [](const std::string& label) {
        return UnconnectedCode(LogicIn(Vdr810Text().Line("<LABEL INFO>").Line(label).Text()));
    };
    EXPECT_EQ(104, unconnected("1,104,FALSE"));
    EXPECT_EQ(255, unconnected("1,104,FALSE 2")) << "no such label: it stays as it was";
    EXPECT_EQ(255, unconnected("1,104,false"));
}

TEST(Vdr810Reader, WithoutALabelFalseTheUnconnectedSignalStaysAsItWas) {
    const std::string text = Vdr810Text().Value(10, "400").Text();
    EXPECT_EQ(255, UnconnectedCode(LogicIn(text))) << "as at the start";
    LogicConfig config = LogicIn(Vdr810Text().Line("<LABEL INFO>").Line("1,104,FALSE").Text());
    EXPECT_TRUE(DecodeVdr810(text, "x", config).Done());
    EXPECT_EQ(104, UnconnectedCode(config));
    EXPECT_EQ(104, config.InputCode(1, 1, 1));
    EXPECT_EQ(104, config.InputCode(8, 10, 16)) << "a group that the file does not have";
}

TEST(Vdr810Reader, ARepeatedListWithoutALabelFalseLeavesItAsItWasBeforeTheFile) {
    LogicConfig config = LogicIn(Vdr810Text().Line("<LABEL INFO>").Line("1,77,FALSE").Text());
    const std::string text =
        Vdr810Text().Line("<LABEL INFO>").Line("1,104,FALSE").Line("<LABEL INFO>").Line("1,9,A").Text();
    EXPECT_TRUE(DecodeVdr810(text, "x", config).Done());
    EXPECT_EQ(77, UnconnectedCode(config));
}

TEST(Vdr810Reader, AListEndsAtItsEndEntryAndTheRestUpToTheNextTagIsSkipped) {
    const LogicConfig config = LogicIn(Vdr810Text()
                                           .Line("<CATEGORY INFO>")
                                           .Line("1,Zone")
                                           .Line(" -1 ")
                                           .Line("rubbish,,")
                                           .Line("2,Two")
                                           .Line("<LABEL INFO>")
                                           .Line("1,5,A")
                                           .Line("0,-1,END")
                                           .Line("1,104,FALSE")
                                           .Line("<TIMER 1>")
                                           .Line("1,1,9")
                                           .Text());
    EXPECT_EQ((std::vector<Vdr810Category>{{1, "Zone", "Zone"}, {-1, "END", "END"}}),
              config.Lists.Categories);
    EXPECT_EQ((std::vector<Vdr810Label>{{1, 5, "A", "A", true, true}, {0, -1, "END", "END", true, true}}),
              config.Lists.Labels);
    EXPECT_EQ(255, config.Coding.FalseCode);
    EXPECT_EQ(9, config.InputCode(1, 1, 1));
}

TEST(Vdr810Reader, ALabelOfTheNumberOrTheNameOfAnEndAloneIsOneLikeOthers) {
    const LogicConfig config = LogicIn(Vdr810Text()
                                           .Line("<CATEGORY INFO>")
                                           .Line("1,END")
                                           .Line("2,Two")
                                           .Line("<LABEL INFO>")
                                           .Line("1,-1,SPARE")
                                           .Line("1,7,END")
                                           .Line("1,104,FALSE")
                                           .Text());
    EXPECT_EQ((std::vector<Vdr810Category>{{1, "END", "END"}, {2, "Two", "Two"}}), config.Lists.Categories);
    EXPECT_EQ((std::vector<Vdr810Label>{{1, -1, "SPARE", "SPARE", true, true},
                                        {1, 7, "END", "END", true, true},
                                        {1, 104, "FALSE", "FALSE", true, true}}),
              config.Lists.Labels);
    EXPECT_EQ(104, UnconnectedCode(config));
}

TEST(Vdr810Reader, ALabelOfAnEndsNumberAloneIsCountedAgainstTheHead) {
    const std::string text = Vdr810Text().Value(8, "1").Line("<LABEL INFO>").Line("1,9,A").Text();
    EXPECT_EQ("", RefusalOf(text + "0,-1,END\r\n"));
    EXPECT_NE("", RefusalOf(text + "1,-1,SPARE\r\n"));
}

TEST(Vdr810Reader, AnEndLineOfCategoriesMayHaveAnyNumberOfFields) {
    for (const char* line : {"-1", "-1,END", "-1,END,END,END", "-1,"}) {
        const LogicConfig config = LogicIn(Vdr810Text().Line("<CATEGORY INFO>").Line(line).Text());
        EXPECT_EQ((std::vector<Vdr810Category>{{-1, "END", "END"}}), config.Lists.Categories) << line;
    }
}

TEST(Vdr810Reader, AnEndEntryIsNotCountedAgainstTheHead) {
    const LogicConfig config = LogicIn(Vdr810Text()
                                           .Line("<CATEGORY INFO>")
                                           .Line("1,A")
                                           .Line("2,B")
                                           .Line("-1,END")
                                           .Line("<LABEL INFO>")
                                           .Line("1,1,A")
                                           .Line("1,2,B")
                                           .Line("1,3,C")
                                           .Line("1,-1,END")
                                           .Text());
    EXPECT_EQ(3U, config.Lists.Categories.size());
    EXPECT_EQ(4U, config.Lists.Labels.size());
}

TEST(Vdr810Reader, LineEndsMayBeCrLfOrLfAndBlankLinesAreSkipped) {
    const Vdr810Text text = Vdr810Text().Section(1, 7).Line("<CATEGORY INFO>").Line("1,Zone");
    const LogicConfig config = LogicIn(text.Text());
    EXPECT_TRUE(SameVdr810(config, LogicIn(text.Text("\n"))));
    EXPECT_TRUE(SameVdr810(config, LogicIn(text.Text("\r\n\r\n"))));
    EXPECT_TRUE(SameVdr810(config, LogicIn(text.Text("\n \t \r\n\n"))));
    std::string mixed = text.Text();
    for (std::size_t end = mixed.find('\r'); end != std::string::npos; end = mixed.find('\r', end + 20)) {
        mixed.erase(end, 1);
    }
    EXPECT_TRUE(SameVdr810(config, LogicIn(mixed)));
}

TEST(Vdr810Reader, TheLastLineNeedsNoEnd) {
    EXPECT_EQ(600, LogicIn(Vdr810Text().Line("<TIMER 1>").Text() + "4,1,600").Group(1).Timer(1).DropOut);
}

TEST(Vdr810Reader, BlanksAroundNumbersAndTagsAreAccepted) {
    const LogicConfig config =
        LogicIn(Vdr810Text().Line(" <TIMER 1>\t").Line(" 1 , 2 ,\t130 ").Line(" 3, 1, +500").Text());
    EXPECT_EQ(130, config.InputCode(1, 1, 2));
    EXPECT_EQ(500, config.Group(1).Timer(1).PickUp);
}

TEST(Vdr810Reader, WhatFollowsATagOnItsLineIsIgnored) {
    EXPECT_EQ(9, LogicIn(Vdr810Text().Line("<TIMER 1>,1,2,3").Line("1,1,9").Text()).InputCode(1, 1, 1));
}

TEST(Vdr810Reader, NothingOfTheLogicOpenBeforeRemains) {
    const std::string text = Vdr810Text().Section(1, 3).Text();
    LogicConfig config =
        LogicIn(FullRelay().Section(5, 9).Section(9, 9).Line("<CATEGORY INFO>").Line("1,A").Text());
    EXPECT_TRUE(DecodeVdr810(text, "x", config).Done());
    EXPECT_TRUE(SameVdr810(LogicIn(text), config));
}

TEST(Vdr810Reader, AHeadThatCannotBeReadLeavesTheLogic) {
    const LogicConfig before = LogicIn(FullRelay().Section(5, 9).Text());
    LogicConfig config = before;
    const Vdr810Reading reading = DecodeVdr810(Vdr810Text().Value(5, "9").Text(), "read x.c10", config);
    EXPECT_EQ(SubscriptError, reading.Error.Number);
    EXPECT_FALSE(reading.Done());
    EXPECT_TRUE(SameVdr810(before, config));
}

TEST(Vdr810Reader, TheFileIsReadWholeAndAFailureIsNamed) {
    FakeFileSystem disk;
    disk.AddFile("/x.c10", Vdr810Text().Section(1, 3).Text());
    LogicConfig config;
    EXPECT_TRUE(ReadVdr810File(disk.Operations(), "/x.c10", config).Done());
    EXPECT_EQ(3, config.InputCode(1, 1, 1));
    const Vdr810Reading missing = ReadVdr810File(disk.Operations(), "/y.c10", config);
    EXPECT_EQ(FileNotFoundError, missing.Error.Number);
    EXPECT_EQ(3, config.InputCode(1, 1, 1));
    disk.AddFile("/empty.c10", "");
    const Vdr810Reading empty = ReadVdr810File(disk.Operations(), "/empty.c10", config);
    EXPECT_EQ(InputPastEndError, empty.Error.Number);
    EXPECT_EQ("read /empty.c10, value 1 of the header", empty.Error.Source);
    EXPECT_EQ(0U, disk.OpenHandles());
}

TEST(IncompleteUnits, AreThosePromisedWhoseSectionLacksALine) {
    EXPECT_EQ((std::vector<int>{1, 2, 3, 7, 8}), IncompleteIn(Vdr810Text().Units(1, 3, 1).Text()));
    EXPECT_EQ((std::vector<int>{7, 8}), IncompleteIn(Vdr810Text().Units(1, 0, 1).Text()));
    EXPECT_EQ((std::vector<int>{2, 8}),
              IncompleteIn(Vdr810Text().Units(1, 2, 1).Section(1, 0).Section(7, 0).Text()));
}

TEST(IncompleteUnits, EveryLineOfASectionCounts) {
    for (const int unit : {1, 7}) {
        const Vdr810Text whole =
            Vdr810Text().Units(1, 1, 1).Section(unit == 1 ? 7 : 1, 0).Section(8, 0).Section(unit, 0);
        EXPECT_EQ((std::vector<int>{}), IncompleteIn(whole.Text()));
        const std::vector<std::string> lines = whole.Lines();
        for (std::size_t left = lines.size() - (unit == 1 ? 19 : 17); left < lines.size(); ++left) {
            std::string text;
            for (std::size_t i = 0; i < lines.size(); ++i) {
                text += i == left ? "" : lines[i] + "\r\n";
            }
            EXPECT_EQ((std::vector<int>{unit}), IncompleteIn(text)) << lines[left];
        }
    }
}

TEST(IncompleteNotice, NamesTheUnitsByTheirTags) {
    const MessageBox box = IncompleteNotice("/a/x.c10", {1, 6, 8, 9});
    EXPECT_EQ(
        "The file /a/x.c10 lacks lines of these units: T1, T6, S1, R2.  What is missing was read as not "
        "connected, not mapped and zero.",
        box.Text);
    EXPECT_EQ(MessageIcon::Exclamation, box.Icon);
    EXPECT_EQ(MessageButtons::Ok, box.Buttons);
}

TEST(ClearUnreadInputs, GivesThemTheUnconnectedSignalThatIsKnownNow) {
    Vdr810Read read = ReadText(Vdr810Text().Units(1, 2, 0).Line("<TIMER 1>").Line("1,3,255").Text());
    read.Config.Coding.FalseCode = 104;
    ClearUnreadInputs(read.Config, read.Reading);
    EXPECT_EQ(255, read.Config.InputCode(1, 1, 3)) << "the file said so";
    for (int group = 1; group <= MaxGroups; ++group) {
        EXPECT_EQ(104, read.Config.InputCode(group, 1, 2));
        EXPECT_EQ(104, read.Config.InputCode(group, 10, 16));
    }
    EXPECT_EQ(104, read.Config.InputCode(2, 1, 3)) << "a group that the file does not have";
}

} // namespace
} // namespace brindle
