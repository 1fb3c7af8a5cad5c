#include "settings/about_text.h"

#include <gtest/gtest.h>

#include <string>

namespace brindle {
namespace {

TEST(VersionText, IsTheVersionInTwoDecimalsAndTheRevisionInFourDigits) {
    EXPECT_EQ("2.30.0012", VersionText(2, 30, 12));
    EXPECT_EQ("1.00.0000", VersionText(1, 0, 0));
    EXPECT_EQ("1.05.0007", VersionText(1, 5, 7));
    EXPECT_EQ("10.99.9999", VersionText(10, 99, 9999));
}

TEST(VersionText, ALongRevisionIsNotCut) {
    EXPECT_EQ("1.00.12345", VersionText(1, 0, 12345));
}

TEST(AboutText, NamesProductVersionAndSystems) {
    const AboutText text = BuildAboutText(2, 30, 12, "6.4.2");
    EXPECT_EQ("Brindle - VDR812 Programmable Logic Designer", text.Product);
    EXPECT_EQ("Version 2.30.0012", text.Version);
    EXPECT_EQ("For use with 32 bit versions of Windows.", text.Systems);
}

TEST(AboutText, NamesEveryLibraryWithItsLicence) {
    const AboutText text = BuildAboutText(1, 0, 0, "6.4.2");
    ASSERT_EQ(3U, text.Libraries.size());
    EXPECT_EQ(0U, text.Libraries[0].find("Qt 6.4.2: GNU Lesser General Public License"));
    EXPECT_NE(std::string::npos, text.Libraries[1].find("BSD"));
    EXPECT_NE(std::string::npos, text.Libraries[2].find("MIT"));
}

} // namespace
} // namespace brindle
