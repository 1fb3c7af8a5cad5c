#include "files/foreign_file.h"
#include "files/program_file.h"
#include "support/program_bytes.h"
#include "support/vdr810_scheme.h"
#include "support/vdr810_text.h"

#include <gtest/gtest.h>

#include <string>

namespace brindle {
namespace {

ProgramKind KindOf(const std::string& bytes) {
    return KindOfProgram(bytes.substr(0, ProgramFileSize + 1), bytes.size());
}

std::string NoticeOf(const std::string& bytes) {
    return ForeignNotice(KindOf(bytes), bytes.size());
}

TEST(ForeignFile, AProgramBeginsWithItsMagicAndHolds2048Bytes) {
    EXPECT_EQ(ProgramKind::Vdr812, KindOf(NewProgramBytes(Version100)));
    EXPECT_EQ(ProgramKind::Vdr812, KindOf("plcd" + std::string(2044, '\xFF'))) << "nothing else is looked at";
    EXPECT_EQ("", NoticeOf(NewProgramBytes(Version230)));
}

TEST(ForeignFile, WithoutItsMagicItIsNone) {
    for (const std::string& bytes :
         {std::string(2048, '\0'), "PLCD" + std::string(2044, '\0'), std::string("{\"relay_model\": 1}"),
          std::string("#!/usr/bin/perl\nuse strict;\n"), std::string(5000, '\n')}) {
        EXPECT_EQ(ProgramKind::NoMagic, KindOf(bytes)) << bytes.substr(0, 20);
    }
    EXPECT_EQ("This is not a VDR812 program: it does not begin with \"plcd\".",
              NoticeOf(std::string(2048, 'x')));
    EXPECT_EQ(
        "This is not a VDR812 program: it does not begin with \"plcd\" and holds 26 bytes instead of 2048.",
        NoticeOf("#!/usr/bin/perl\nprint 1;\n\n"));
}

TEST(ForeignFile, OfAnotherSizeItIsNone) {
    const std::string program = NewProgramBytes(Version230);
    for (const std::size_t size : {0U, 1U, 3U, 4U, 2047U}) {
        EXPECT_EQ(ProgramKind::OtherSize, KindOf(program.substr(0, size))) << size;
    }
    EXPECT_EQ(ProgramKind::OtherSize, KindOf(program + '\0'));
    EXPECT_EQ("This is not a VDR812 program: 1999 bytes instead of 2048, the missing ones read as zero.",
              NoticeOf(program.substr(0, 1999)));
    EXPECT_EQ("This is not a VDR812 program: 1 byte instead of 2048, the missing ones read as zero.",
              NoticeOf("p"));
    EXPECT_EQ("This is not a VDR812 program: 4096 bytes instead of 2048, the last ones ignored.",
              NoticeOf(program + program));
}

TEST(ForeignFile, AVdr810LogicFileIsKnownByItsHeadAndFirstSection) {
    const std::string notice = "This is a VDR810 logic file, though its name does not end in .c10.";
    EXPECT_EQ(notice, NoticeOf(SchemeLogicFile(2.30, 12)));
    EXPECT_EQ(notice, NoticeOf(Vdr810Text().Section(1, 5).Text()));
    EXPECT_EQ(notice, NoticeOf(Vdr810Text().Line("<CATEGORY INFO>").Line("1,General").Text("\n")));
    EXPECT_EQ(notice, NoticeOf(Vdr810Text().Line(" <LATCH 2 RESET> ,").Text()));
    EXPECT_EQ(notice, NoticeOf(Vdr810Text().Value(1, "plcd").Section(1, 5).Text()))
        << "its first line is free";
    EXPECT_EQ(notice, NoticeOf(Vdr810Text().Value(5, "99").Section(1, 5).Text()))
        << "one that is refused is one all the same";
}

TEST(ForeignFile, AVdr810OptionFileIsTold) {
    EXPECT_EQ("This is a VDR810 option file, not a VDR812 program.", NoticeOf(SchemeOptionFile(2.30, 12)));
}

TEST(ForeignFile, ATextOfOtherLinesIsNoneOfAVdr810) {
    EXPECT_EQ(ProgramKind::NoMagic, KindOf(Vdr810Text().Text())) << "a head alone";
    EXPECT_EQ(ProgramKind::NoMagic, KindOf(Vdr810Text().Line("1,2,3").Text()));
    EXPECT_EQ(ProgramKind::NoMagic, KindOf(Vdr810Text().Line("255").Line("255").Text()));
    EXPECT_EQ(ProgramKind::NoMagic, KindOf("<TIMER 1>\r\n" + Vdr810Text().Text())) << "a section alone";
}

} // namespace
} // namespace brindle
