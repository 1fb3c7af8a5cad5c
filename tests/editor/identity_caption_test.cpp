#include "editor/identity_caption.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

LogicConfig Vdr810Of(double version, std::int16_t options) {
    LogicConfig config;
    config.RelayModel = RelayKind::Vdr810;
    config.FileTitle = "feeder.c10";
    config.Vdr810.SettingsVersion = version;
    config.Vdr810.Options = options;
    return config;
}

TEST(IdentityCaption, TellsFileDateTimeVersionAndOptions) {
    EXPECT_EQ(IdentityCaption(Vdr810Of(2.3, 12), "5/4/2001", "10:12:33", ""),
              "File: feeder.c10\r\nDate:5/4/2001  Time:10:12:33\r\nVersion:2.30  Options:0012");
}

TEST(IdentityCaption, AnOptionsNumberOfMoreThanFourDigitsStandsWhole) {
    EXPECT_NE(IdentityCaption(Vdr810Of(1, 12345), "", "", "").find("Options:12345"), std::string::npos);
    EXPECT_NE(IdentityCaption(Vdr810Of(1, -7), "", "", "").find("Options:-0007"), std::string::npos);
}

TEST(IdentityCaption, NamesTheOptionFileThatIsMissing) {
    const std::string caption = IdentityCaption(Vdr810Of(2.3, 12), "d", "t", "PLC00230_OPT00012.810");
    EXPECT_EQ(caption.substr(caption.rfind("\r\n")), "\r\nMissing: PLC00230_OPT00012.810");
}

TEST(IdentityCaption, AVdr812HasNone) {
    EXPECT_EQ(IdentityCaption(LogicConfig{}, "d", "t", ""), "");
}

} // namespace
} // namespace brindle
