#include "files/option_file.h"
#include "support/fake_file_system.h"
#include "support/vdr810_scheme.h"
#include "support/vdr810_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brindle {
namespace {

/// An option file of 2 categories and 3 labels.
Vdr810Text SmallOption() {
    return Vdr810Text()
        .Line(" 104")
        .Line("<CATEGORY INFO>")
        .Line("1,&General,General")
        .Line("2,Zone - &1,Zone 1")
        .Line("<LABEL INFO>")
        .Line("1,1,TRUE,True,True,True")
        .Line("1,105,FALSE,False,True,False")
        .Line("2,9,Z1GT,Zone 1 ground,False,True");
}

OptionFile OptionIn(const std::string& text) {
    OptionFile option;
    const FileError error = DecodeOptionFile(text, "read x.810", option);
    EXPECT_FALSE(error.Failed()) << error.Description << ", " << error.Source;
    return option;
}

FileError OptionError(const std::string& text) {
    OptionFile option;
    option.Unconnected = 77;
    FileError error = DecodeOptionFile(text, "read x.810", option);
    EXPECT_EQ(error.Failed(), option.Unconnected == 77) << "on failure the option stays";
    EXPECT_EQ(error.Failed(), option.Head == Vdr810Head{});
    EXPECT_TRUE(!error.Failed() || option.Lists.Empty());
    return error;
}

int ErrorWithLine(std::size_t line, const std::string& text) {
    std::vector<std::string> lines = SmallOption().Lines();
    lines.at(line) = text;
    std::string whole;
    for (const std::string& each : lines) {
        whole += each + "\r\n";
    }
    return OptionError(whole).Number;
}

constexpr std::size_t UnconnectedLine = 11; // of SmallOption, from 0
constexpr std::size_t CategoryLine = 13;
constexpr std::size_t LabelLine = 16;

TEST(OptionFileName, HoldsVersionAndOptionsInFiveDigits) {
    EXPECT_EQ("PLC00230_OPT00012.810", OptionFileName(2.3, 12));
    EXPECT_EQ("PLC00100_OPT00000.810", OptionFileName(1, 0));
    EXPECT_EQ("PLC00005_OPT00123.810", OptionFileName(0.05, 123));
    EXPECT_EQ("PLC00000_OPT09999.810", OptionFileName(0, 9999));
    EXPECT_EQ("PLC09999_OPT00001.810", OptionFileName(99.99, 1));
}

TEST(OptionFileName, ANumberOfFiveDigitsHasNoLettersBeforeIt) {
    EXPECT_EQ("10000_OPT00012.810", OptionFileName(100, 12));
    EXPECT_EQ("PLC0023012345.810", OptionFileName(2.3, 12345));
    EXPECT_EQ("1000032767.810", OptionFileName(100, 32767));
}

TEST(OptionFileName, TheVersionIsRounded) {
    EXPECT_EQ("PLC00230_OPT00001.810", OptionFileName(2.2999, 1));
    EXPECT_EQ("PLC00229_OPT00001.810", OptionFileName(2.29, 1)) << "a hundred times it is a little below 229";
    EXPECT_EQ(OptionFileName(2.3, 1), OptionFileName(double{2.3F}, 1));
}

TEST(OptionFile, HoldsHeadUnconnectedSignalAndLists) {
    const OptionFile option = OptionIn(SmallOption().Text());
    EXPECT_EQ("LINE 7 EAST", option.Head.Identity);
    EXPECT_EQ(12, option.Head.Options);
    EXPECT_EQ((std::vector<Vdr810Category>{{1, "&General", "General"}, {2, "Zone - &1", "Zone 1"}}),
              option.Lists.Categories);
    EXPECT_EQ((std::vector<Vdr810Label>{{1, 1, "TRUE", "True", true, true},
                                        {1, 105, "FALSE", "False", true, false},
                                        {2, 9, "Z1GT", "Zone 1 ground", false, true}}),
              option.Lists.Labels);
}

TEST(OptionFile, TheLabelFalseTellsTheUnconnectedSignalElseTheLineBeforeTheLists) {
    EXPECT_EQ(105, OptionIn(SmallOption().Text()).Unconnected);
    EXPECT_EQ(104, OptionIn(Vdr810Text().Value(8, "0").Value(9, "0").Line(" 104").Text()).Unconnected);
    EXPECT_EQ(-5, OptionIn(Vdr810Text().Value(8, "0").Value(9, "0").Line("-5").Text()).Unconnected);
}

TEST(OptionFile, FlagsAreReadInAnyCaseWithBlanksAround) {
    const std::string text = Vdr810Text()
                                 .Value(8, "2")
                                 .Value(9, "0")
                                 .Line("0")
                                 .Line("<LABEL INFO>")
                                 .Line("1,1,A,A,TRUE, false ")
                                 .Line("1,2,B,B,\tFalse,true")
                                 .Text();
    const OptionFile option = OptionIn(text);
    EXPECT_TRUE(option.Lists.Labels[0].Enabled);
    EXPECT_FALSE(option.Lists.Labels[0].Visible);
    EXPECT_FALSE(option.Lists.Labels[1].Enabled);
    EXPECT_TRUE(option.Lists.Labels[1].Visible);
}

TEST(OptionFile, LineEndsMayBeCrLfOrLfAndBlankLinesAreSkipped) {
    const OptionFile option = OptionIn(SmallOption().Text());
    for (const char* lineEnd : {"\n", "\r\n\r\n", "\n \t\r\n"}) {
        const OptionFile other = OptionIn(SmallOption().Text(lineEnd));
        EXPECT_EQ(option.Head, other.Head);
        EXPECT_EQ(option.Lists, other.Lists);
        EXPECT_EQ(option.Unconnected, other.Unconnected);
    }
}

TEST(OptionFile, AListEndsAtItsEndEntryAndTheRestUpToTheNextTagIsSkipped) {
    const OptionFile option = OptionIn(Vdr810Text()
                                           .Line("104")
                                           .Line("<LABEL INFO>")
                                           .Line("1,9,Z,Z,True,True")
                                           .Line("0,-1,END,END,False,False")
                                           .Line("rubbish")
                                           .Line("1,7,FALSE,F,True,True")
                                           .Line("<CATEGORY INFO>")
                                           .Line("1,C,C")
                                           .Line("-1")
                                           .Line("x")
                                           .Text());
    EXPECT_EQ(2U, option.Lists.Labels.size());
    EXPECT_EQ("END", option.Lists.Labels.back().Name);
    EXPECT_EQ((Vdr810Category{-1, "END", "END"}), option.Lists.Categories.back());
    EXPECT_EQ(104, option.Unconnected);
}

TEST(OptionFile, OfARepeatedSectionTheLastHolds) {
    const OptionFile option = OptionIn(Vdr810Text()
                                           .Value(8, "1")
                                           .Value(9, "1")
                                           .Line("104")
                                           .Line("<LABEL INFO>")
                                           .Line("1,7,FALSE,F,True,True")
                                           .Line("<CATEGORY INFO>")
                                           .Line("1,Old,Old")
                                           .Line("<CATEGORY INFO>")
                                           .Line("2,New,New")
                                           .Line("<LABEL INFO>")
                                           .Line("1,8,A,A,True,True")
                                           .Text());
    EXPECT_EQ((std::vector<Vdr810Category>{{2, "New", "New"}}), option.Lists.Categories);
    EXPECT_EQ((std::vector<Vdr810Label>{{1, 8, "A", "A", true, true}}), option.Lists.Labels);
    EXPECT_EQ(104, option.Unconnected);
}

TEST(OptionFile, EachLineHasItsNumberOfFields) {
    for (const char* line : {"1", "1,General", "1,General,General,x", "1,General,General,"}) {
        EXPECT_EQ(SubscriptError, ErrorWithLine(CategoryLine, line)) << line;
    }
    for (const char* line : {"1", "1,1,TRUE", "1,1,TRUE,True,True", "1,1,TRUE,True,True,True,"}) {
        EXPECT_EQ(SubscriptError, ErrorWithLine(LabelLine, line)) << line;
    }
}

TEST(OptionFile, WhatIsNoNumberOrFlagIsATypeMismatch) {
    for (const char* line : {"x", "1.5", "104,"}) {
        EXPECT_EQ(TypeMismatchError, ErrorWithLine(UnconnectedLine, line)) << line;
    }
    for (const char* line : {"x,General,General", ",General,General"}) {
        EXPECT_EQ(TypeMismatchError, ErrorWithLine(CategoryLine, line)) << line;
    }
    for (const char* line : {"x,1,TRUE,True,True,True", "1,,TRUE,True,True,True", "1,1,TRUE,True,yes,True",
                             "1,1,TRUE,True,True,1", "1,1,TRUE,True,True,", "1,1,TRUE,True,Tru,True"}) {
        EXPECT_EQ(TypeMismatchError, ErrorWithLine(LabelLine, line)) << line;
    }
    EXPECT_EQ(TypeMismatchError, ErrorWithLine(4, "one"));
}

TEST(OptionFile, ANumberBeyondItsTypeIsAnOverflow) {
    EXPECT_EQ(OverflowError, ErrorWithLine(UnconnectedLine, "32768"));
    EXPECT_EQ(OverflowError, ErrorWithLine(CategoryLine, "2147483648,General,General"));
    EXPECT_EQ(OverflowError, ErrorWithLine(LabelLine, "32768,1,TRUE,True,True,True"));
    EXPECT_EQ(OverflowError, ErrorWithLine(LabelLine, "1,2147483648,TRUE,True,True,True"));
    EXPECT_EQ(OverflowError, ErrorWithLine(LabelLine, "1,32768,FALSE,True,True,True"));
    EXPECT_EQ(OverflowError, ErrorWithLine(3, "32768"));
}

TEST(OptionFile, ALabelOfTheNumberOrTheNameOfAnEndAloneIsOneLikeOthers) {
    const std::string text = Vdr810Text()
                                 .Value(8, "4")
                                 .Value(9, "2")
                                 .Line(" 104")
                                 .Line("<CATEGORY INFO>")
                                 .Line("1,C,C")
                                 .Line("2,END,END")
                                 .Line("<LABEL INFO>")
                                 .Line("1,-1,SPARE,Spare,True,True")
                                 .Line("1,7,END,End,True,True")
                                 .Line("1,9,Z,Z,True,True")
                                 .Line("0,-1,END,END,False,False")
                                 .Text();
    const OptionFile option = OptionIn(text);
    EXPECT_EQ((std::vector<Vdr810Category>{{1, "C", "C"}, {2, "END", "END"}}), option.Lists.Categories);
    ASSERT_EQ(4U, option.Lists.Labels.size());
    EXPECT_EQ((Vdr810Label{1, -1, "SPARE", "Spare", true, true}), option.Lists.Labels[0]);
    EXPECT_EQ("Z", option.Lists.Labels[2].Name);
    LogicConfig made;
    MakeNewVdr810(made, option);
    const std::string written = EncodeOptionFile(made);
    const std::string lists = "<CATEGORY INFO>";
    EXPECT_EQ(text.substr(text.find(lists)), written.substr(written.find(lists)));
}

TEST(OptionFile, OneOfNoTimersAndNoLatchesIsRefused) {
    EXPECT_EQ(SubscriptError, OptionError(SmallOption().Units(1, 0, 0).Text()).Number);
}

TEST(OptionFile, MoreEntriesThanTheHeadPromisesAreASubscriptOutOfRange) {
    EXPECT_EQ(SubscriptError, OptionError(Vdr810Text(SmallOption()).Line("1,5,A,A,True,True").Text()).Number);
    EXPECT_EQ(SubscriptError, OptionError(Vdr810Text(SmallOption()).Value(9, "1").Text()).Number);
    EXPECT_EQ(NoFileError,
              OptionError(Vdr810Text(SmallOption()).Line("0,-1,END,END,True,True").Text()).Number)
        << "the END entry is not counted";
}

TEST(OptionFile, FewerEntriesThanTheHeadPromisesAndNoEndAreAnInputPastTheEnd) {
    EXPECT_EQ(InputPastEndError, OptionError(Vdr810Text(SmallOption()).Value(8, "4").Text()).Number);
    EXPECT_EQ(InputPastEndError, OptionError(Vdr810Text(SmallOption()).Value(9, "3").Text()).Number);
    EXPECT_EQ(InputPastEndError, OptionError(Vdr810Text().Line("104").Text()).Number);
}

TEST(OptionFile, ALineOutsideAnySectionIsASubscriptOutOfRange) {
    EXPECT_EQ(SubscriptError, OptionError(Vdr810Text().Line("104").Line("1,A,A").Text()).Number);
    EXPECT_EQ(SubscriptError, OptionError(Vdr810Text().Line("104").Line("<TIMER 1>").Text()).Number);
}

TEST(OptionFile, AnErrorNamesTheFileAndThePlace) {
    EXPECT_EQ("read x.810, value 5 of the header", OptionError(Vdr810Text().Value(5, "x").Text()).Source);
    EXPECT_EQ("read x.810, unconnected signal", OptionError(Vdr810Text().Line("x").Text()).Source);
    EXPECT_EQ("read x.810, line 2 after the unconnected signal",
              OptionError(Vdr810Text().Line("104").Line("<CATEGORY INFO>").Line("1,A").Text()).Source);
    const FileError ended = OptionError(Vdr810Text().Text());
    EXPECT_EQ("read x.810", ended.Source);
    EXPECT_EQ(InputPastEndError, ended.Number);
}

TEST(OptionFile, CutAtAnyByteItIsRefusedWhole) {
    const std::string text = SmallOption().Text();
    const std::size_t last = text.size() - 2; // the end of the last line is not needed
    for (std::size_t size = 0; size < last; ++size) {
        ASSERT_TRUE(OptionError(text.substr(0, size)).Failed()) << text.substr(0, size);
    }
    EXPECT_FALSE(OptionError(text.substr(0, last)).Failed());
}

TEST(OptionFile, AnyByteReplacedIsReadOrAStatedError) {
    const std::string text = SmallOption().Text();
    for (std::size_t at = 0; at < text.size(); ++at) {
        for (const char byte : {'\0', '\n', '\r', ' ', ',', '-', '0', '9', '<', 'A', '\xFF'}) {
            std::string changed = text;
            changed[at] = byte;
            const int error = OptionError(changed).Number;
            ASSERT_TRUE(error == NoFileError || error == OverflowError || error == SubscriptError ||
                        error == TypeMismatchError || error == InputPastEndError)
                << error << "\n"
                << changed;
        }
    }
}

TEST(EncodeOptionFile, IsTheHeadTheUnconnectedSignalAndTheListsCountedAsTheyAre) {
    LogicConfig config;
    MakeNewVdr810(config, OptionIn(SmallOption().Text()));
    config.Lists.Labels.push_back({0, -1, "END", "END", false, false});
    config.Lists.Categories[0].Name = "A,B";
    EXPECT_EQ("LINE 7 EAST\r\n1.00\r\n2.30\r\n 12\r\n 1\r\n 1\r\n 0\r\n 4\r\n 2\r\n 256\r\n1,16\r\n 105\r\n"
              "<CATEGORY INFO>\r\n1,&General,A B\r\n2,Zone - &1,Zone 1\r\n"
              "<LABEL INFO>\r\n1,1,TRUE,True,True,True\r\n1,105,FALSE,False,True,False\r\n"
              "2,9,Z1GT,Zone 1 ground,False,True\r\n0,-1,END,END,False,False\r\n",
              EncodeOptionFile(config));
}

TEST(EncodeOptionFile, TheListsOfALogicFileAreWrittenWithTheNameTwiceAndBothFlagsTrue) {
    const LogicConfig config = ReadText(Vdr810Text()
                                            .Line("<CATEGORY INFO>")
                                            .Line("3,Zone")
                                            .Line("<LABEL INFO>")
                                            .Line("3,104,FALSE")
                                            .Text())
                                   .Config;
    const std::string text = EncodeOptionFile(config);
    EXPECT_EQ(" 104\r\n<CATEGORY INFO>\r\n3,Zone,Zone\r\n<LABEL INFO>\r\n3,104,FALSE,FALSE,True,True\r\n",
              text.substr(text.find(" 104\r\n")));
    EXPECT_EQ(1, OptionIn(text).Head.Labels);
}

TEST(WriteOptionFile, WritesTheFileThatIsNotThereAndNoOther) {
    LogicConfig config;
    MakeNewVdr810(config, OptionIn(SmallOption().Text()));
    FakeFileSystem disk;
    disk.AddFolder("/plc");
    EXPECT_FALSE(WriteOptionFile(disk.Operations(), "/plc", config).Failed());
    EXPECT_EQ(EncodeOptionFile(config), disk.Content("/plc/PLC00230_OPT00012.810"));
    OptionFile read;
    EXPECT_FALSE(ReadOptionFile(disk.Operations(), "/plc/PLC00230_OPT00012.810", read).Failed());
    EXPECT_EQ(config.Lists, read.Lists);
    config.Lists.Labels.clear();
    EXPECT_FALSE(WriteOptionFile(disk.Operations(), "/plc/", config).Failed());
    EXPECT_NE(EncodeOptionFile(config), disk.Content("/plc/PLC00230_OPT00012.810")) << "never overwritten";
}

TEST(WriteOptionFile, AFailureIsReturned) {
    LogicConfig config;
    MakeNewVdr810(config, OptionIn(SmallOption().Text()));
    FakeFileSystem disk;
    disk.FailAll("write", DiskFullError);
    EXPECT_EQ(DiskFullError, WriteOptionFile(disk.Operations(), "/", config).Number);
    EXPECT_EQ(1U, disk.Names().size()) << "the root alone";
}

TEST(ReadOptionFile, AMissingFileIsNotFound) {
    FakeFileSystem disk;
    OptionFile option;
    EXPECT_EQ(FileNotFoundError, ReadOptionFile(disk.Operations(), "/none.810", option).Number);
}

TEST(TakeLists, GivesListsAndUnconnectedSignalAndLeavesTheHead) {
    LogicConfig config = ReadText(Vdr810Text().Value(1, "MINE").Value(8, "9").Section(1, 5).Text()).Config;
    const LogicConfig before = config;
    const OptionFile option = OptionIn(SmallOption().Text());
    TakeLists(config, option);
    EXPECT_EQ(option.Lists, config.Lists);
    EXPECT_EQ(105, UnconnectedCode(config));
    EXPECT_EQ(HeadOf(before), HeadOf(config));
    EXPECT_EQ(before.Groups, config.Groups);
}

TEST(TakeLists, AnUnconnectedSignalThatTheLogicDoesNotHaveIsNotTaken) {
    LogicConfig config = ReadText(Vdr810Text().Value(10, "100").Section(1, 5).Text()).Config;
    const LogicConfig before = config;
    const OptionFile option = OptionIn(SmallOption().Text()); // says 105
    TakeLists(config, option);
    EXPECT_EQ(option.Lists, config.Lists);
    EXPECT_EQ(before.Coding.FalseCode, config.Coding.FalseCode);
}

TEST(MakeNewVdr810, IsAnEmptyLogicOfTheOptionFile) {
    LogicConfig config = ReadText(Vdr810Text().Value(1, "MINE").Section(1, 5).Text()).Config;
    const OptionFile option = OptionIn(SmallOption().Units(5, 4, 1).Outputs(1, 40).Text());
    MakeNewVdr810(config, option);
    EXPECT_EQ(RelayKind::Vdr810, config.RelayModel);
    EXPECT_EQ(option.Head, HeadOf(config));
    EXPECT_EQ(option.Lists, config.Lists);
    EXPECT_EQ(105, config.InputCode(1, 1, 1));
    EXPECT_EQ(105, config.InputCode(5, 10, 16));
    EXPECT_EQ(UnitTimer{}, config.Group(1).Timer(1));
    EXPECT_EQ(0U, config.Group(1).OutputMap(1, 1));
}

TEST(OptionFile, ACarriageReturnAmidALineIsABlank) {
    std::string text = SchemeOptionFile(2.3, 12);
    for (const std::string name : {"Feeder scheme", "Zone &1,Zone 1", "Z1P,Zone 1 phase"}) {
        text[text.find(name) + name.find(' ')] = '\r';
    }
    OptionFile option;
    ASSERT_FALSE(DecodeOptionFile(text, "x", option).Failed());
    LogicConfig config;
    MakeNewVdr810(config, option);
    EXPECT_EQ(SchemeOptionFile(2.3, 12), EncodeOptionFile(config));
}

} // namespace
} // namespace brindle
