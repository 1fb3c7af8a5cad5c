#include "files/program_file.h"
#include "support/fake_file_system.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>

namespace brindle {
namespace {

constexpr std::size_t FirstGroup = 128;
constexpr std::size_t GroupSize = 240;

std::string Encoded(const LogicConfig& config) {
    ProgramImage image{};
    const FileError error = EncodeProgram(config, image);
    EXPECT_FALSE(error.Failed()) << error.Source;
    return {image.data(), image.size()};
}

LogicConfig Decoded(const std::string& bytes) {
    LogicConfig config;
    DecodeProgram(bytes, config);
    return config;
}

LogicConfig NewProgram(float version) {
    LogicConfig config;
    MakeNewVdr812(config, version);
    return config;
}

std::string WithVersion(const std::string& text) {
    std::string bytes(ProgramFileSize, '\0');
    return bytes.replace(8, text.size(), text);
}

template<std::size_t Size>
std::string TextOf(const std::array<char, Size>& text) {
    return {text.data(), text.size()};
}

TEST(ProgramFile, ANewProgramIsItsHeadAndZeros) {
    const std::string rest(ProgramFileSize - 14, '\0');
    EXPECT_EQ(std::string("plcd\0\0\0\0002.30  ", 14) + rest, Encoded(NewProgram(Version230)));
    EXPECT_EQ(std::string("plcd\0\0\0\0001.00  ", 14) + rest, Encoded(NewProgram(Version100)));
}

TEST(ProgramFile, AnInvertedSignalIsStoredAs256LessItsNumberAndFalseAsFF) {
    LogicConfig config = NewProgram(Version230);
    config.Group(1).Unit(1).Inputs[0] = ToggleInvert(config.Coding, 2);
    config.Group(1).Unit(1).Inputs[1] = ToggleInvert(config.Coding, TrueCode);
    const std::string bytes = Encoded(config);
    EXPECT_EQ('\xFE', bytes[FirstGroup]);
    EXPECT_EQ('\xFF', bytes[FirstGroup + 1]);
}

TEST(ProgramFile, TimesAreStoredMostSignificantByteFirst) {
    LogicConfig config = NewProgram(Version230);
    config.Group(1).Timer(1) = {1000, 600000};
    EXPECT_EQ(std::string("\x00\x00\x03\xE8\x00\x09\x27\xC0", 8),
              Encoded(config).substr(FirstGroup + 160, 8));
}

TEST(ProgramFile, EveryInputOfEveryUnitHasItsByte) {
    for (int group = 1; group <= MaxGroups; ++group) {
        for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
            for (int input = 1; input <= InputsPerUnit; ++input) {
                std::string bytes(ProgramFileSize, '\0');
                const int offset = 128 + 240 * (group - 1) + 16 * (unit - 1) + (input - 1);
                bytes[static_cast<std::size_t>(offset)] = '\x5A';
                const LogicConfig config = Decoded(bytes);
                ASSERT_EQ(0x5A, config.InputCode(group, unit, input));
                ASSERT_EQ('\x5A', Encoded(config)[static_cast<std::size_t>(offset)]);
            }
        }
    }
}

TEST(ProgramFile, EveryTimerAndOutputWordOfEveryGroupHasItsPlace) {
    LogicConfig config = NewProgram(Version230);
    for (int group = 1; group <= MaxGroups; ++group) {
        for (int timer = 1; timer <= TimersPerGroup; ++timer) {
            config.Group(group).Timer(timer) = {group * 100 + timer, group * 100 + timer + 50};
        }
        for (int slot = 1; slot <= MapSlots; ++slot) {
            config.Group(group).OutputMap(slot, 1) = static_cast<std::uint32_t>(group * 16 + slot);
        }
    }
    const std::string bytes = Encoded(config);
    for (std::size_t group = 1; group <= MaxGroups; ++group) {
        const std::size_t start = FirstGroup + GroupSize * (group - 1);
        for (std::size_t timer = 1; timer <= TimersPerGroup; ++timer) {
            const std::size_t pickUp = start + 160 + 8 * (timer - 1) + 3; // the least significant byte
            EXPECT_EQ(static_cast<char>(group * 100 + timer), bytes[pickUp]);
            EXPECT_EQ(static_cast<char>(group * 100 + timer + 50), bytes[pickUp + 4]);
        }
        for (std::size_t slot = 1; slot <= MapSlots; ++slot) {
            EXPECT_EQ(static_cast<char>(group * 16 + slot), bytes[start + 208 + 4 * (slot - 1) + 3]);
        }
    }
    EXPECT_EQ(config.Groups, Decoded(bytes).Groups);
}

TEST(ProgramFile, AnOutputWordKeepsAllItsBits) {
    LogicConfig config = NewProgram(Version230);
    config.Group(8).OutputMap(8, 1) = 0xFEDCBA98U;
    const std::string bytes = Encoded(config);
    EXPECT_EQ("\xFE\xDC\xBA\x98", bytes.substr(ProgramFileSize - 4));
    EXPECT_EQ(0xFEDCBA98U, Decoded(bytes).Group(8).OutputMap(8, 1));
}

TEST(ProgramFile, OnlyTheFirstBankOfTheOutputMapIsStored) {
    LogicConfig config = NewProgram(Version230);
    for (LogicGroup& group : config.Groups) {
        for (auto& slot : group.OutputWords) {
            slot.fill(0xFFFFFFFFU);
        }
    }
    DecodeProgram(Encoded(config), config);
    for (const LogicGroup& group : config.Groups) {
        for (const auto& slot : group.OutputWords) {
            EXPECT_EQ(0xFFFFFFFFU, slot[0]);
            EXPECT_EQ(MapBanks - 1, std::count(slot.begin() + 1, slot.end(), 0U));
        }
    }
}

TEST(ProgramFile, EveryByteIsACodeAndEveryCodeAByte) {
    for (int code = 0; code <= 255; ++code) {
        LogicConfig config = NewProgram(Version230);
        config.Group(3).Unit(10).Inputs[15] = code;
        const std::string bytes = Encoded(config);
        EXPECT_EQ(code, static_cast<unsigned char>(bytes[FirstGroup + 2 * GroupSize + 159]));
        EXPECT_EQ(code, Decoded(bytes).InputCode(3, 10, 16));
    }
}

TEST(ProgramFile, ACodeThatIsNoByteOverflowsAndLeavesTheImage) {
    for (const int code : {-1, 256, 1000000, -2147483647}) {
        LogicConfig config = NewProgram(Version230);
        config.Group(8).Unit(10).Inputs[15] = code;
        ProgramImage image{};
        image.fill('x');
        const FileError error = EncodeProgram(config, image);
        EXPECT_EQ(6, error.Number) << code;
        EXPECT_EQ("input 16 of S2 in group 8", error.Source);
        EXPECT_EQ(static_cast<long>(ProgramFileSize), std::count(image.begin(), image.end(), 'x'));
    }
}

TEST(ProgramFile, HeadWordAndTextsAreCarriedThroughWithEveryByte) {
    std::string bytes = WithVersion("1.00  ");
    bytes.replace(14, 4, "\x80\x01\x02\x03");
    bytes.replace(18, 20, std::string("\0a\xFF text of ours, 20", 20));
    bytes.replace(38, 20, std::string("\x93\0\0 another one, \0\xE4 ", 20));
    const LogicConfig config = Decoded(bytes);
    EXPECT_EQ(static_cast<std::int32_t>(0x80010203U), config.Header.HeaderWord);
    EXPECT_EQ(bytes.substr(18, 20), TextOf(config.Header.Text1));
    EXPECT_EQ(bytes.substr(38, 20), TextOf(config.Header.Text2));
    EXPECT_EQ(bytes, Encoded(config));
}

TEST(ProgramFile, TheTwoReservedAreasAreWrittenAsZero) {
    const std::string bytes(ProgramFileSize, 'r');
    std::string expected = bytes;
    expected.replace(4, 4, 4, '\0').replace(58, 70, 70, '\0');
    EXPECT_EQ(expected, Encoded(Decoded(bytes)));
}

TEST(ProgramFile, ReadingMakesAVdr812ProgramOfWhateverWasOpen) {
    LogicConfig config;
    config.RelayModel = RelayKind::Vdr810;
    config.GroupCount = 6;
    config.Coding = {1024, 512};
    config.FilePath = "/home/x.pl";
    config.FileTitle = "x.pl";
    config.Modified = true;
    DecodeProgram(WithVersion("2.30  "), config);
    EXPECT_EQ(RelayKind::Vdr812, config.RelayModel);
    EXPECT_EQ(8, config.GroupCount);
    EXPECT_EQ(256, config.Coding.InvertBase);
    EXPECT_EQ(255, config.Coding.FalseCode);
    EXPECT_EQ("/home/x.pl", config.FilePath);
    EXPECT_EQ("x.pl", config.FileTitle);
    EXPECT_TRUE(config.Modified);
}

TEST(ProgramFile, TheOutputRangeFollowsTheVersion) {
    for (const auto& [text, version, lastOutput] : {std::tuple{"2.30  ", 2.3F, 13},
                                                    {"2.29  ", 2.29F, 9},
                                                    {"1.00  ", 1.0F, 9},
                                                    {"  2.3 ", 2.3F, 13},
                                                    {"10.5  ", 10.5F, 13},
                                                    {"      ", 0.0F, 9},
                                                    {"v2.30 ", 0.0F, 9},
                                                    {"2,30  ", 2.0F, 9}}) {
        const LogicConfig config = Decoded(WithVersion(text));
        EXPECT_EQ(version, config.Version) << text;
        EXPECT_EQ(2, config.FirstOutput) << text;
        EXPECT_EQ(lastOutput, config.LastOutput) << text;
        EXPECT_EQ(text, TextOf(config.Header.VersionText));
    }
}

TEST(ProgramFile, MagicIsNotExaminedAndComesOutAsItCame) {
    std::string bytes = WithVersion("2.30  ");
    bytes.replace(0, 4, "ZZ\0\xFF", 4);
    EXPECT_EQ(bytes, Encoded(Decoded(bytes)));
}

TEST(ProgramFile, MissingBytesReadAsZeroAndFurtherOnesAreIgnored) {
    const std::string whole(ProgramFileSize, '\x11');
    EXPECT_EQ(Encoded(Decoded(whole)), Encoded(Decoded(whole + "and more")));
    const std::string cut = whole.substr(0, FirstGroup + 5);
    const LogicConfig config = Decoded(cut);
    EXPECT_EQ(0x11, config.InputCode(1, 1, 5));
    EXPECT_EQ(0, config.InputCode(1, 1, 6));
    EXPECT_EQ(LogicGroup{}, config.Group(2));
    EXPECT_EQ(std::string(ProgramFileSize, '\0'), Encoded(Decoded("")));
}

TEST(ProgramFileOnDisk, IsWrittenAndReadBack) {
    const TempFolder folder;
    LogicConfig config = NewProgram(Version230);
    config.Group(4).Timer(6) = {1, 2};
    ASSERT_FALSE(WriteProgramFile(RealFileSystem(), folder.Path("x.pl"), config).Failed());
    EXPECT_EQ(Encoded(config), folder.Content("x.pl"));
    LogicConfig read;
    ProgramReading reading;
    ASSERT_FALSE(ReadProgramFile(RealFileSystem(), folder.Path("x.pl"), read, reading).Failed());
    EXPECT_EQ(ProgramFileSize, reading.Size);
    EXPECT_EQ(ProgramKind::Vdr812, reading.Kind);
    EXPECT_EQ(config.Groups, read.Groups);
    EXPECT_EQ(config.Header, read.Header);
}

TEST(ProgramFileOnDisk, SavedOverALongerFileHas2048Bytes) {
    const TempFolder folder;
    folder.Put("x.pl", std::string(5000, 'x'));
    ASSERT_FALSE(WriteProgramFile(RealFileSystem(), folder.Path("x.pl"), NewProgram(Version100)).Failed());
    EXPECT_EQ(Encoded(NewProgram(Version100)), folder.Content("x.pl"));
}

TEST(ProgramFileOnDisk, TellsHowManyBytesAreThereAndWhatTheyAre) {
    FakeFileSystem disk;
    for (const std::size_t size : {0U, 1U, 2047U, 2048U, 2049U, 9000U}) {
        disk.AddFile("/x.pl", std::string(size, 'x'));
        LogicConfig config;
        ProgramReading reading;
        EXPECT_FALSE(ReadProgramFile(disk.Operations(), "/x.pl", config, reading).Failed());
        EXPECT_EQ(size, reading.Size);
        EXPECT_EQ(size < 4 ? ProgramKind::OtherSize : ProgramKind::NoMagic, reading.Kind);
    }
}

TEST(ProgramFileOnDisk, AFailedReadLeavesTheLogic) {
    FakeFileSystem disk;
    disk.AddFile("/x.pl", std::string(ProgramFileSize + 1, 'x'));
    LogicConfig config = NewProgram(Version100);
    config.Group(1).Timer(1) = {7, 8};
    const LogicConfig before = config;
    constexpr std::size_t operations = 5; // the last asks how long a file is that is too long
    for (std::size_t n = 1; n <= operations; ++n) {
        disk.FailOnce(n, DeviceIoError);
        ProgramReading reading;
        EXPECT_EQ(DeviceIoError, ReadProgramFile(disk.Operations(), "/x.pl", config, reading).Number);
        EXPECT_EQ(before.Groups, config.Groups);
        EXPECT_EQ(before.Header, config.Header);
        EXPECT_EQ(before.Version, config.Version);
    }
}

TEST(ProgramFileOnDisk, ALogicThatCannotBeStoredTouchesNoFile) {
    FakeFileSystem disk;
    disk.AddFile("/x.pl", "old");
    LogicConfig config = NewProgram(Version230);
    config.Group(1).Unit(1).Inputs[0] = 256;
    EXPECT_EQ(OverflowError, WriteProgramFile(disk.Operations(), "/x.pl", config).Number);
    EXPECT_TRUE(disk.Log().empty());
    EXPECT_EQ("old", disk.Content("/x.pl"));
}

} // namespace
} // namespace brindle
