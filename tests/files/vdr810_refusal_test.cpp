#include "files/vdr810_refusal.h"
#include "support/vdr810_text.h"

#include <gtest/gtest.h>

#include <string>

namespace brindle {
namespace {

/// The box of the line after the tag of Timer 1; two groups of two banks.
std::string TimerRefusal(const std::string& line) {
    return RefusalOf(Vdr810Text().Units(2, 1, 2).Outputs(1, 32).Line("<TIMER 1>").Line(line).Text());
}

std::string CategoryRefusal(const std::string& line) {
    return RefusalOf(Vdr810Text().Line("<CATEGORY INFO>").Line("1,Zone").Line(line).Text());
}

std::string LabelRefusal(const std::string& line) {
    return RefusalOf(Vdr810Text().Line("<LABEL INFO>").Line("1,5,Z1").Line(line).Text());
}

/// A box of a line of Timer 1 that has other faults than its number of fields.
std::string TimerBox(const std::string& record, const std::string& cause) {
    return "VDR810 File Read in Problem!\r\n(Unit 1 DATA " + record + ")\r\n" + cause +
           "\r\nArray Element = 1\r\nAborting";
}

TEST(Vdr810Refusal, IsACriticalBoxWithItsOwnTitle) {
    const Vdr810Reading reading = ReadText(Vdr810Text().Line("<TIMER 1>").Line("1,1").Text()).Reading;
    ASSERT_TRUE(reading.Refusal.has_value());
    EXPECT_EQ("VDR810 File Read in Problem", reading.Refusal->Title);
    EXPECT_EQ(MessageIcon::CriticalStop, reading.Refusal->Icon);
    EXPECT_EQ(MessageButtons::Ok, reading.Refusal->Buttons);
    EXPECT_FALSE(reading.Error.Failed());
    EXPECT_FALSE(reading.Done());
}

TEST(Vdr810Refusal, ACategoryOfOtherThanTwoFields) {
    EXPECT_EQ("VDR810 File Read in Problem (Category Info)\r\nMissing 1Fields\r\nArray Element = 2\r\n"
              "Should be Have 2 Fields.\r\nAborting",
              CategoryRefusal("2"));
    EXPECT_EQ("VDR810 File Read in Problem (Category Info)\r\nExtra 1Fields\r\nArray Element = 2\r\n"
              "Should be Have 2 Fields.\r\nAborting",
              CategoryRefusal("2,Zone,Zone"));
    EXPECT_EQ("VDR810 File Read in Problem (Category Info)\r\nExtra 3Fields\r\nArray Element = 2\r\n"
              "Should be Have 2 Fields.\r\nAborting",
              CategoryRefusal("x,,,,"))
        << "the number of fields is judged first";
}

TEST(Vdr810Refusal, ALabelOfOtherThanThreeFieldsNamesTwo) {
    EXPECT_EQ("VDR810 File Read in Problem (Label Info)\r\nMissing 1Fields\r\nArray Element = 2\r\n"
              "Should be Have 2 Fields.\r\nAborting",
              LabelRefusal("1,6"));
    EXPECT_EQ("VDR810 File Read in Problem (Label Info)\r\nMissing 2Fields\r\nArray Element = 2\r\n"
              "Should be Have 2 Fields.\r\nAborting",
              LabelRefusal("-1"));
    EXPECT_EQ("VDR810 File Read in Problem (Label Info)\r\nExtra 3Fields\r\nArray Element = 2\r\n"
              "Should be Have 2 Fields.\r\nAborting",
              LabelRefusal("1,6,Z2,Z2,True,True"));
}

TEST(Vdr810Refusal, AUnitLineWithOneFieldMore) {
    const std::string text = Vdr810Text().Units(2, 1, 0).Line("<TIMER 1>").Line("1,5,130,0,7").Text();
    EXPECT_EQ("VDR810 File Read in Problem!\r\n(Unit 1 DATA 1)\r\nExtra 1Fields\r\nArray Element = 1\r\n"
              "Should be Have 4 Fields.\r\nAborting",
              RefusalOf(text));
}

TEST(Vdr810Refusal, AUnitLineWithTooFewFieldsOfEachRecord) {
    EXPECT_EQ("VDR810 File Read in Problem!\r\n(Unit 1 DATA 1)\r\nMissing 1Fields\r\nArray Element = 1\r\n"
              "Should be Have 4 Fields.\r\nAborting",
              TimerRefusal("1,5,130"));
    EXPECT_EQ("VDR810 File Read in Problem!\r\n(Unit 1 DATA 2)\r\nMissing 3Fields\r\nArray Element = 1\r\n"
              "Should be Have 6 Fields.\r\nAborting",
              TimerRefusal("2,1,0"));
    EXPECT_EQ("VDR810 File Read in Problem!\r\n(Unit 1 DATA 3)\r\nMissing 3Fields\r\nArray Element = 1\r\n"
              "Should be Have 4 Fields.\r\nAborting",
              TimerRefusal("3"));
    EXPECT_EQ("VDR810 File Read in Problem!\r\n(Unit 1 DATA 4)\r\nExtra 2Fields\r\nArray Element = 1\r\n"
              "Should be Have 4 Fields.\r\nAborting",
              TimerRefusal("4,1,0,0,,"));
}

TEST(Vdr810Refusal, TheArrayElementCountsTheLinesOfTheSection) {
    const auto box = [](const Vdr810Text& text) { return RefusalOf(text.Text("\r\n\r\n")); };
    EXPECT_EQ("VDR810 File Read in Problem!\r\n(Unit 10 DATA 2)\r\nMissing 1Fields\r\nArray Element = 18\r\n"
              "Should be Have 3 Fields.\r\nAborting",
              box(Vdr810Text().Units(1, 0, 2).Section(9, 0).Section(10, 0).Line("2,8")))
        << "blank lines and tags are not counted, the sections before neither";
}

TEST(Vdr810Refusal, TimesOfALatchHaveTheirNumberOfFieldsToo) {
    const auto box = [](const std::string& line) {
        return RefusalOf(Vdr810Text().Units(2, 0, 1).Line("<LATCH 1 RESET>").Line(line).Text());
    };
    EXPECT_EQ("", box("3,1,0,0"));
    EXPECT_EQ("VDR810 File Read in Problem!\r\n(Unit 8 DATA 3)\r\nMissing 1Fields\r\nArray Element = 1\r\n"
              "Should be Have 4 Fields.\r\nAborting",
              box("3,1,0"));
    EXPECT_EQ("VDR810 File Read in Problem!\r\n(Unit 8 DATA 4)\r\nExtra 1Fields\r\nArray Element = 1\r\n"
              "Should be Have 4 Fields.\r\nAborting",
              box("4,1,0,0,0"));
}

TEST(Vdr810Refusal, AFieldThatIsNoNumberIsNamed) {
    EXPECT_EQ(TimerBox("1", "Field 4 is not a number."), TimerRefusal("1,5,130,x"));
    EXPECT_EQ(TimerBox("1", "Field 3 is not a number."), TimerRefusal("1,5,,x")) << "the first of them";
    EXPECT_EQ(TimerBox("1", "Field 2 is not a number."), TimerRefusal("1,1.5,0,0"));
    EXPECT_EQ(TimerBox("2", "Field 2 is not a number."), TimerRefusal("2,,0,0,0,0"));
    EXPECT_EQ(TimerBox("2", "Field 6 is not a number."), TimerRefusal("2,1,0,0,0,"));
    EXPECT_EQ(TimerBox("one", "Field 1 is not a number."), TimerRefusal("one,5,130,0"));
    EXPECT_EQ(TimerBox("", "Field 1 is not a number."), TimerRefusal(",5,130,0"));
    EXPECT_EQ(TimerBox("<TIMER 11>", "Field 1 is not a number."), TimerRefusal("<TIMER 11>"));
}

TEST(Vdr810Refusal, ANumberBeyond32BitsIsNamed) {
    EXPECT_EQ(TimerBox("1", "Field 4 is out of range."), TimerRefusal("1,5,0,2147483648"));
    EXPECT_EQ(TimerBox("2", "Field 3 is out of range."), TimerRefusal("2,1,4294967295,0,0,0"));
    EXPECT_EQ(TimerBox("3", "Field 2 is out of range."), TimerRefusal("3,-2147483649,0,0"));
    EXPECT_EQ(TimerBox("99999999999", "Field 1 is out of range."), TimerRefusal("99999999999,5,0,0"));
}

TEST(Vdr810Refusal, AnInputOutside1To16IsNamed) {
    EXPECT_EQ(TimerBox("1", "There is no input 0."), TimerRefusal("1,0,130,0"));
    EXPECT_EQ(TimerBox("1", "There is no input 17."), TimerRefusal("1,17,130,0"));
    EXPECT_EQ(TimerBox("1", "There is no input -1."), TimerRefusal("1,-1,130,0"));
}

TEST(Vdr810Refusal, AnUnknownRecordIsNamed) {
    for (const char* record : {"0", "5", "7", "-1"}) {
        const std::string cause = "Record type " + std::string(record) + " is not known.";
        EXPECT_EQ(TimerBox(record, cause), TimerRefusal(std::string(record) + ",5,130,0"));
        EXPECT_EQ(TimerBox(record, cause), TimerRefusal(record)) << "whatever number of fields it has";
    }
}

TEST(Vdr810Refusal, DataBeforeAnySectionIsNamed) {
    EXPECT_EQ("VDR810 File Read in Problem!\r\n(Unit 0 DATA 1)\r\nNo section has begun.\r\n"
              "Array Element = 1\r\nAborting",
              RefusalOf(Vdr810Text().Line("1,5,130").Text()));
}

TEST(Vdr810Refusal, AUnitThatTheHeadDoesNotPromiseIsNamed) {
    const auto box = [](int timers, int latches, const std::string& tag) {
        return RefusalOf(Vdr810Text().Units(1, timers, latches).Line(tag).Text());
    };
    EXPECT_EQ("", box(3, 1, "<TIMER 3>"));
    EXPECT_EQ("", box(0, 1, "<LATCH 1 RESET>"));
    EXPECT_EQ(
        "VDR810 File Read in Problem!\r\n(Unit 4 DATA <TIMER 4>)\r\nThe header promises no such unit.\r\n"
        "Array Element = 1\r\nAborting",
        box(3, 1, "<TIMER 4>"));
    EXPECT_EQ("VDR810 File Read in Problem!\r\n(Unit 9 DATA <LATCH 2 SET>)\r\n"
              "The header promises no such unit.\r\nArray Element = 1\r\nAborting",
              box(6, 1, "<LATCH 2 SET>"));
}

TEST(Vdr810Refusal, AListEntryThatIsNoNumberIsNamed) {
    EXPECT_EQ("VDR810 File Read in Problem (Category Info)\r\nField 1 is not a number.\r\n"
              "Array Element = 2\r\nAborting",
              CategoryRefusal("two,Zone 2"));
    EXPECT_EQ("VDR810 File Read in Problem (Category Info)\r\nField 1 is out of range.\r\n"
              "Array Element = 2\r\nAborting",
              CategoryRefusal("2147483648,Zone 2"));
    EXPECT_EQ("VDR810 File Read in Problem (Label Info)\r\nField 1 is out of range.\r\n"
              "Array Element = 2\r\nAborting",
              LabelRefusal("32768,6,Z2"));
    EXPECT_EQ("VDR810 File Read in Problem (Label Info)\r\nField 2 is not a number.\r\n"
              "Array Element = 2\r\nAborting",
              LabelRefusal("1,,Z2"));
    EXPECT_EQ("VDR810 File Read in Problem (Label Info)\r\nField 2 is out of range.\r\n"
              "Array Element = 2\r\nAborting",
              LabelRefusal("1,-2147483649,Z2"));
}

TEST(Vdr810Refusal, AnUnconnectedSignalBeyond16BitsIsNamed) {
    EXPECT_EQ("", LabelRefusal("1,32767,FALSE"));
    EXPECT_EQ("", LabelRefusal("1,32768,OTHER"));
    EXPECT_EQ("VDR810 File Read in Problem (Label Info)\r\nField 2 is out of range.\r\n"
              "Array Element = 2\r\nAborting",
              LabelRefusal("1,32768,FALSE"));
}

TEST(Vdr810Refusal, MoreEntriesThanTheHeadPromisesAreNamed) {
    EXPECT_EQ("", CategoryRefusal("2,B"));
    EXPECT_EQ("VDR810 File Read in Problem (Category Info)\r\nThe header promises fewer categories.\r\n"
              "Array Element = 3\r\nAborting",
              CategoryRefusal("2,B\r\n3,C"));
    EXPECT_EQ("", LabelRefusal("1,6,B\r\n1,7,C"));
    EXPECT_EQ("VDR810 File Read in Problem (Label Info)\r\nThe header promises fewer labels.\r\n"
              "Array Element = 4\r\nAborting",
              LabelRefusal("1,6,B\r\n1,7,C\r\n1,8,FALSE"));
}

TEST(Vdr810Refusal, ARecordOfMegabytesIsCut) {
    EXPECT_EQ(TimerBox("xxxxxxxxxxxxxxxxxxxx...", "Field 1 is not a number."),
              TimerRefusal(std::string(3000000, 'x')));
    EXPECT_EQ(TimerBox("xxxxxxxxxxxxxxxxxxxx", "Field 1 is not a number."),
              TimerRefusal(std::string(20, 'x')));
}

TEST(Vdr810Refusal, TheLogicHoldsTheLinesBeforeAndNothingOfTheRefusedOne) {
    const Vdr810Text before =
        Vdr810Text().Units(2, 1, 0).Line("<TIMER 1>").Line("1,1,8,9").Line("3,1,500,600");
    const LogicConfig expected = ReadText(before.Text()).Config;
    for (const char* line :
         {"1,2,5,x", "1,1,5", "1,1,6,7,8", "2,1,3,x", "3,1,700,2147483648", "4,1,7,x", "5,1,7,7", "x"}) {
        const Vdr810Read read = ReadText(Vdr810Text(before).Line(line).Line("1,1,77,77").Text());
        ASSERT_TRUE(read.Reading.Refusal.has_value()) << line;
        EXPECT_TRUE(SameVdr810(expected, read.Config)) << line;
    }
    EXPECT_EQ(9, expected.InputCode(2, 1, 1));
    EXPECT_EQ(600, expected.Group(2).Timer(1).PickUp);
}

TEST(Vdr810Refusal, ARefusedLabelDoesNotTellTheUnconnectedSignal) {
    for (const char* line :
         {"32768,104,FALSE", "1,104,FALSE,", "1,40000,FALSE", "1,2,B\r\n1,3,C\r\n1,104,FALSE"}) {
        const Vdr810Read read = ReadText(Vdr810Text().Line("<LABEL INFO>").Line("1,5,Z1").Line(line).Text());
        ASSERT_TRUE(read.Reading.Refusal.has_value()) << line;
        EXPECT_EQ(255, read.Config.Coding.FalseCode) << line;
    }
}

} // namespace
} // namespace brindle
