#include "model/number_text.h"
#include "settings/program_version.h"
#include "support/memory_profile.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brindle {
namespace {

using Texts = std::vector<std::string>;

TEST(ProgramVersion, TheMinorNumberCountsHundredths) {
    EXPECT_EQ(2.3F, ProgramVersion(2, 30));
    EXPECT_EQ(1.05F, ProgramVersion(1, 5));
    EXPECT_EQ(1.0F, ProgramVersion(1, 0));
}

TEST(ProgramVersion, EveryVersionReadsBackFromItsStoredText) {
    for (int major = 0; major <= 999; ++major) {
        for (int minor = 0; minor <= 99; ++minor) {
            const float version = ProgramVersion(major, minor);
            ASSERT_EQ(version, LeadingNumber(FormatFixed(version, 6))) << major << '.' << minor;
        }
    }
}

TEST(CheckProgramVersion, TheNextStartOfEveryMinorVersionFindsItEqual) {
    for (int minor = 0; minor <= 99; ++minor) {
        MemoryProfile profile;
        SettingsFile settings = profile.Settings();
        CheckProgramVersion(settings, 1, minor, 7);
        profile.Writes.clear();
        CheckProgramVersion(settings, 1, minor, 7);
        ASSERT_EQ(Texts(), profile.Writes) << minor;
    }
}

TEST(CheckProgramVersion, AMissingFileGetsVersionAndRevision) {
    MemoryProfile profile;
    SettingsFile settings = profile.Settings();
    CheckProgramVersion(settings, 1, 5, 12);
    EXPECT_EQ("[Brindle]\r\nBrindleVersion=1.050000\r\nRevision=12\r\n", profile.Text);
}

TEST(CheckProgramVersion, AnotherVersionDropsTheSettingsAndSparesTheRecentFiles) {
    MemoryProfile profile;
    profile.Text = "[Brindle]\r\nBrindleVersion=1.000000\r\nHomeDir=/a\r\nWindowWidth=9000\r\n"
                   "[Brindle Recent]\r\nRecent0=EMPTY\r\n";
    SettingsFile settings = profile.Settings();
    CheckProgramVersion(settings, 1, 1, 0);
    EXPECT_EQ("[Brindle Recent]\r\nRecent0=EMPTY\r\n[Brindle]\r\nBrindleVersion=1.010000\r\nRevision=0\r\n",
              profile.Text);
}

TEST(CheckProgramVersion, TheSameVersionInOtherDigitsKeepsTheSettings) {
    MemoryProfile profile;
    profile.Text = "[Brindle]\r\nBrindleVersion= 2.3 \r\nHomeDir=/a\r\nRevision=4\r\n";
    SettingsFile settings = profile.Settings();
    CheckProgramVersion(settings, 2, 30, 4);
    EXPECT_EQ(Texts(), profile.Writes);
}

TEST(CheckProgramVersion, AnotherRevisionIsStoredAndKeepsTheSettings) {
    MemoryProfile profile;
    profile.Text = "[Brindle]\r\nBrindleVersion=2.300000\r\nHomeDir=/a\r\nRevision=4\r\n";
    SettingsFile settings = profile.Settings();
    CheckProgramVersion(settings, 2, 30, 5);
    EXPECT_EQ(Texts{"[Brindle] Revision=5"}, profile.Writes);
}

TEST(CheckProgramVersion, WhereTheSettingsCannotBeDroppedTheyAreNotTakenForThisVersions) {
    MemoryProfile profile;
    profile.Text = "[Brindle]\r\nBrindleVersion=1.000000\r\nHomeDir=/a\r\n";
    profile.FailFrom = 1;
    SettingsFile settings = profile.Settings();
    CheckProgramVersion(settings, 2, 0, 0);
    EXPECT_EQ(Texts{"[Brindle] removed"}, profile.Writes);
    EXPECT_EQ(1U, profile.Boxes.size());
}

} // namespace
} // namespace brindle
