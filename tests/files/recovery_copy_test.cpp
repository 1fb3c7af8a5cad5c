#include "files/recovery_copy.h"
#include "support/example_files.h"
#include "support/program_bytes.h"
#include "support/vdr810_scheme.h"
#include "support/vdr810_text.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

RecoveryCopy CopyOf(const LogicConfig& config) {
    return {"/home/me/a\nb=1.pl", "a\nb=1.pl", FileOrigin::New, "5/4/2001 10:12", RecoveryLogic(config)};
}

/// The same copy in the first format, which has neither sum nor file.
std::string WithoutSum(const std::string& bytes) {
    const std::string head = "Brindle recovery copy 2\n";
    EXPECT_TRUE(bytes.starts_with(head + "sum="));
    std::string body = bytes.substr(bytes.find('\n', head.size()) + 1);
    const std::size_t file = body.find("file=");
    body.erase(file, body.find('\n', file) + 1 - file);
    return "Brindle recovery copy 1\n" + body;
}

LogicConfig Vdr812Logic() {
    LogicConfig config;
    DecodeProgram(ExampleContent("pilot_supervision.pl"), config);
    return config;
}

LogicConfig Vdr810Logic() {
    LogicConfig config = SchemeLists(2.3, 12, 3);
    std::erase_if(config.Lists.Labels, [](const Vdr810Label& label) { return label.Name == FalseName; });
    config.Coding.FalseCode = 77; // no label tells another
    config.Group(3).Unit(10).Inputs[15] = 236;
    config.Group(1).Timer(6) = {1, 600000};
    config.Group(2).OutputMap(8, 2) = 0x8001;
    return config;
}

TEST(RecoveryCopy, AVdr812LogicComesBackWholeWithItsFile) {
    const LogicConfig config = Vdr812Logic();
    RecoveryCopy copy;
    LogicConfig read;
    ASSERT_TRUE(DecodeRecoveryCopy(EncodeRecoveryCopy(CopyOf(config)), copy, read));
    EXPECT_EQ("/home/me/a\nb=1.pl", read.FilePath);
    EXPECT_EQ("a\nb=1.pl", read.FileTitle);
    EXPECT_EQ(FileOrigin::New, copy.Origin);
    EXPECT_EQ("5/4/2001 10:12", copy.KeptAt);
    EXPECT_EQ(config.Header, read.Header);
    EXPECT_EQ(config.Groups, read.Groups);
    EXPECT_EQ(config.LastOutput, read.LastOutput);
}

TEST(RecoveryCopy, AVdr810LogicComesBackWithItsSignals) {
    const LogicConfig config = Vdr810Logic();
    RecoveryCopy copy;
    LogicConfig read;
    ASSERT_TRUE(DecodeRecoveryCopy(EncodeRecoveryCopy(CopyOf(config)), copy, read));
    EXPECT_TRUE(SameVdr810(config, read));
    EXPECT_EQ(77, read.Coding.FalseCode);
}

TEST(RecoveryCopy, KnowsWhereTheLogicComesFromAndHowItsFileWas) {
    RecoveryCopy copy = CopyOf(Vdr812Logic());
    copy.Stamp.Status.Type = FileType::Regular;
    copy.Stamp.Status.Size = 2048;
    copy.Stamp.Hash = 0x0123456789ABCDEFU;
    RecoveryCopy read;
    LogicConfig config;
    for (const FileOrigin origin : {FileOrigin::New, FileOrigin::Part, FileOrigin::Opened}) {
        copy.Origin = origin;
        const std::string bytes = EncodeRecoveryCopy(copy);
        EXPECT_NE(std::string::npos, bytes.find("\nfile=2048,0123456789abcdef\n"));
        ASSERT_TRUE(DecodeRecoveryCopy(bytes, read, config));
        EXPECT_EQ(origin, read.Origin);
        EXPECT_EQ(copy.Stamp.Hash, read.Stamp.Hash);
        EXPECT_EQ(copy.Stamp.Status.Size, read.Stamp.Status.Size);
        EXPECT_EQ(FileType::Regular, read.Stamp.Status.Type);
    }
    copy.Stamp = UnknownStamp();
    ASSERT_TRUE(DecodeRecoveryCopy(EncodeRecoveryCopy(copy), read, config));
    EXPECT_EQ(FileType::Other, read.Stamp.Status.Type);
}

TEST(RecoveryCopy, ACopyReadAndWrittenIsTheSameByteForByte) {
    for (const LogicConfig& config : {Vdr812Logic(), Vdr810Logic()}) {
        const std::string bytes = EncodeRecoveryCopy(CopyOf(config));
        RecoveryCopy copy;
        LogicConfig read;
        ASSERT_TRUE(DecodeRecoveryCopy(bytes, copy, read));
        EXPECT_EQ(bytes, EncodeRecoveryCopy(copy));
        EXPECT_EQ(copy.Logic, RecoveryLogic(read));
    }
}

TEST(RecoveryCopy, EveryEditChangesTheLogicOfACopy) {
    LogicConfig config = Vdr812Logic();
    const std::string before = RecoveryLogic(config);
    config.Group(8).Timer(6).DropOut ^= 1;
    EXPECT_NE(before, RecoveryLogic(config));
    config.Group(8).Timer(6).DropOut ^= 1;
    config.Modified = true;
    config.FilePath = "/elsewhere.pl";
    EXPECT_EQ(before, RecoveryLogic(config)) << "the name of the file is no part of the logic";
}

TEST(RecoveryCopy, ALogicThatNoFileHoldsHasNone) {
    LogicConfig config = Vdr812Logic();
    config.Group(1).Unit(1).Inputs[0] = 256;
    EXPECT_EQ("", RecoveryLogic(config));
}

TEST(RecoveryCopy, ATornCopyIsNone) {
    for (const LogicConfig& config : {Vdr812Logic(), Vdr810Logic()}) {
        const std::string whole = EncodeRecoveryCopy(CopyOf(config));
        for (std::size_t size = 0; size < whole.size(); size += size < 200 ? 1 : 97) {
            RecoveryCopy copy;
            LogicConfig read;
            EXPECT_FALSE(DecodeRecoveryCopy(whole.substr(0, size), copy, read)) << size;
            EXPECT_EQ("", copy.Path) << size;
            EXPECT_EQ("", read.FilePath) << size;
        }
        RecoveryCopy copy;
        LogicConfig read;
        EXPECT_FALSE(DecodeRecoveryCopy(whole + "x", copy, read));
    }
}

TEST(RecoveryCopy, OfAnotherFormatIsNone) {
    const std::string bytes = EncodeRecoveryCopy(CopyOf(Vdr812Logic()));
    for (const char digit : {'0', '1', '3', '9'}) {
        std::string other = bytes;
        other[other.find('\n') - 1] = digit;
        RecoveryCopy copy;
        LogicConfig read;
        EXPECT_FALSE(DecodeRecoveryCopy(other, copy, read)) << digit;
    }
}

TEST(RecoveryCopy, OfTheFirstFormatComesBackToo) {
    for (const LogicConfig& config : {Vdr812Logic(), Vdr810Logic()}) {
        const RecoveryCopy kept = CopyOf(config);
        RecoveryCopy copy;
        LogicConfig read;
        ASSERT_TRUE(DecodeRecoveryCopy(WithoutSum(EncodeRecoveryCopy(kept)), copy, read));
        EXPECT_EQ(kept.Path, copy.Path);
        EXPECT_EQ(kept.Logic, copy.Logic);
        EXPECT_EQ(kept.Logic, RecoveryLogic(read));
    }
}

TEST(RecoveryCopy, WithAnyByteChangedIsNone) {
    const std::string whole = EncodeRecoveryCopy(CopyOf(Vdr812Logic()));
    for (std::size_t place = 0; place < whole.size(); ++place) {
        std::string damaged = whole;
        damaged[place] = static_cast<char>(damaged[place] ^ 1);
        RecoveryCopy copy;
        LogicConfig read;
        ASSERT_FALSE(DecodeRecoveryCopy(damaged, copy, read)) << place;
    }
}

TEST(RecoveryCopy, WithAnyOfItsPartsWrongIsNone) {
    const std::string vdr812 = WithoutSum(EncodeRecoveryCopy(CopyOf(Vdr812Logic())));
    const std::string vdr810 = WithoutSum(EncodeRecoveryCopy(CopyOf(Vdr810Logic())));

    struct Wrong {
        std::string Whole;
        std::string Part;
        std::string Instead;
    };

    for (const Wrong& wrong :
         {Wrong{vdr812, "new=yes", "new=maybe"}, Wrong{vdr812, "new=", "old="},
          Wrong{vdr812, "kept=14", "kept="}, Wrong{vdr812, "kept=14", "kept=15"},
          Wrong{vdr812, "kept=14", "kept=14x"}, Wrong{vdr812, "kept=14", "kept 14"},
          Wrong{vdr812, "path=", "Path="}, Wrong{vdr812, "title=", "name="},
          Wrong{vdr812, "logic=2048", "logic=2047"}, Wrong{vdr812, "logic=2048", "logic=99999"},
          Wrong{vdr812, "logic=2048", "lists=2048"}, Wrong{vdr810, "text=", "texts="},
          Wrong{vdr810, "option=", "lists="}, Wrong{vdr810, "<TIMER 1>", "<TIMER 9>"},
          Wrong{vdr810, "<CATEGORY INFO>", "<CATEGORY DATA>"}}) {
        std::string bytes = wrong.Whole;
        const std::size_t place = bytes.find(wrong.Part);
        ASSERT_NE(std::string::npos, place) << wrong.Part;
        bytes.replace(place, wrong.Part.size(), wrong.Instead);
        RecoveryCopy copy;
        LogicConfig read;
        EXPECT_FALSE(DecodeRecoveryCopy(bytes, copy, read)) << wrong.Instead;
    }
}

TEST(RecoveryCopy, WhoseListsCountOtherSignalsIsNone) {
    std::string bytes = WithoutSum(EncodeRecoveryCopy(CopyOf(Vdr810Logic())));
    const std::size_t place = bytes.find(" 256\r\n");
    ASSERT_NE(std::string::npos, place);
    bytes.replace(place, 4, " 250");
    RecoveryCopy copy;
    LogicConfig read;
    EXPECT_FALSE(DecodeRecoveryCopy(bytes, copy, read));
}

} // namespace
} // namespace brindle
