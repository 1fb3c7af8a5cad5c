#include "platform/paths.h"
#include "settings/setting_keys.h"
#include "settings/settings_file.h"
#include "support/memory_profile.h"

#include <gtest/gtest.h>

#include <string>

namespace brindle {
namespace {

TEST(SettingsFile, LiesInTheProgramsFolder) {
    MemoryProfile profile;
    const std::string separator(1, SystemPaths.Separator);
    const std::string path = separator + "opt" + separator + "Benchkit.ini";
    EXPECT_EQ(path, profile.Settings(separator + "opt").Path());
    EXPECT_EQ(path, profile.Settings(separator + "opt" + separator).Path());
}

TEST(SettingsFile, AMissingFileReadsAsDefaultsAndTheFirstWriteCreatesIt) {
    MemoryProfile profile;
    SettingsFile settings = profile.Settings();
    EXPECT_FALSE(settings.Exists());
    EXPECT_EQ("0", settings.Read(SectionBrindle, KeyBrindleVersion, "0"));
    EXPECT_EQ(5, settings.ReadInt(SectionBrindle, MainWindowKeys.Top, 5));
    EXPECT_TRUE(settings.Write(KeyHomeDir, "/home/me", SectionBrindle));
    EXPECT_TRUE(settings.Exists());
    EXPECT_EQ("[Brindle]\r\nHomeDir=/home/me\r\n", profile.Text);
}

TEST(SettingsFile, WrittenValuesReadBack) {
    MemoryProfile profile;
    SettingsFile settings = profile.Settings();
    ASSERT_TRUE(settings.Write(KeyHomeDir, "/home/me", SectionBrindle));
    ASSERT_TRUE(settings.Write(MainWindowKeys.Top, "-30", SectionBrindle));
    EXPECT_EQ("/home/me", settings.Read(SectionBrindle, KeyHomeDir));
    EXPECT_EQ(-30, settings.ReadInt(SectionBrindle, MainWindowKeys.Top));
    EXPECT_TRUE(profile.Boxes.empty());
}

TEST(SettingsFile, ARemovedSectionSparesTheRecentFiles) {
    MemoryProfile profile;
    profile.Text = "[Brindle]\r\nHomeDir=/a\r\n[Brindle Recent]\r\nRecent0=/a/x.pl,x,1\r\n";
    EXPECT_TRUE(profile.Settings().RemoveSection(SectionBrindle));
    EXPECT_EQ("[Brindle Recent]\r\nRecent0=/a/x.pl,x,1\r\n", profile.Text);
}

TEST(SettingsFile, AFailedWriteIsToldInTheWordsForEveryKey) {
    MemoryProfile profile;
    profile.FailFrom = 1;
    SettingsFile settings = profile.Settings();
    EXPECT_FALSE(settings.Write(KeyHomeDir, "/home/me", SectionBrindle));
    ASSERT_EQ(1U, profile.Boxes.size());
    EXPECT_EQ("There was an error saving the window position information for Brindle to the file " +
                  settings.Path() + ".",
              profile.Boxes[0].Text);
    EXPECT_EQ("Warning", profile.Boxes[0].Title);
    EXPECT_EQ(MessageIcon::Exclamation, profile.Boxes[0].Icon);
    EXPECT_EQ(MessageButtons::Ok, profile.Boxes[0].Buttons);
}

TEST(SettingsFile, TheUserIsToldOnceARun) {
    MemoryProfile profile;
    profile.FailFrom = 1;
    SettingsFile settings = profile.Settings();
    EXPECT_FALSE(settings.RemoveSection(SectionBrindle));
    EXPECT_FALSE(settings.Write(KeyHomeDir, "/home/me", SectionBrindle));
    EXPECT_FALSE(settings.Write("Recent0", "EMPTY", SectionRecent));
    EXPECT_EQ(3U, profile.Writes.size()) << "each is tried all the same";
    EXPECT_EQ(1U, profile.Boxes.size());
}

TEST(SettingKeys, AreThoseOfTheFilesInUse) {
    EXPECT_STREQ("BrindleVersion", KeyBrindleVersion);
    EXPECT_STREQ("Revision", KeyRevision);
    EXPECT_STREQ("ScreenMode", MainWindowKeys.State);
    EXPECT_STREQ("ScreenMode", PrintWindowKeys.State) << "shared with the main window";
    EXPECT_STREQ("PrintWinWidth", PrintWindowKeys.Width);
    EXPECT_STREQ("GEFScreenMode", GroupEditingKeys.State);
    EXPECT_STREQ("GEFWinHeight", GroupEditingKeys.Height);
}

} // namespace
} // namespace brindle
