#include "platform/wide_text_windows.h"
#include "settings/own_profile.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <windows.h>

/// The system's own private-profile functions, and that a file of theirs and one of ours are the same.
namespace brindle {
namespace {

struct ProfileOfWindows : testing::Test {
    TempFolder Folder;
    std::string Path = Folder.Path("Benchkit.ini");
    ProfileFunctions System = SystemProfile(RealFileSystem());
    ProfileFunctions Own = OwnProfile(RealFileSystem());
};

TEST_F(ProfileOfWindows, AMissingFileReadsAsDefaultsAndIsNotMadeByDeleting) {
    EXPECT_EQ("0", System.ReadText(Path, "Brindle", "BrindleVersion", "0"));
    EXPECT_EQ(7, System.ReadInteger(Path, "Brindle", "WindowWidth", 7));
    EXPECT_TRUE(System.Write(Path, "Brindle", std::nullopt, std::nullopt));
    EXPECT_TRUE(System.Write(Path, "Brindle", "HomeDir", std::nullopt));
    EXPECT_EQ(0, Folder.Count());
}

TEST_F(ProfileOfWindows, WhatTheSystemWritesOursReads) {
    EXPECT_TRUE(System.Write(Path, "Brindle", "HomeDir", "C:\\Relay files"));
    EXPECT_TRUE(System.Write(Path, "Brindle", "WindowTop", "-120"));
    EXPECT_TRUE(System.Write(Path, "Brindle Recent", "Recent0", "EMPTY"));
    EXPECT_EQ("C:\\Relay files", Own.ReadText(Path, "brindle", "homedir", ""));
    EXPECT_EQ(-120, Own.ReadInteger(Path, "Brindle", "WindowTop", 7));
    EXPECT_EQ("EMPTY", Own.ReadText(Path, "Brindle Recent", "Recent0", ""));
}

TEST_F(ProfileOfWindows, WhatOursWritesTheSystemReads) {
    EXPECT_TRUE(Own.Write(Path, "Brindle", "HomeDir", "C:\\Relay files"));
    EXPECT_TRUE(Own.Write(Path, "Brindle", "WindowTop", "-120"));
    EXPECT_EQ("C:\\Relay files", System.ReadText(Path, "BRINDLE", "HOMEDIR", ""));
    EXPECT_EQ(-120, System.ReadInteger(Path, "Brindle", "WindowTop", 7));
}

TEST_F(ProfileOfWindows, WhatNeedsQuotesReadsBackAsItWasWritten) {
    for (const std::string value : {"C:\\blank ", "' '", "\"quoted\"", " "}) {
        EXPECT_TRUE(System.Write(Path, "Brindle", "HomeDir", value));
        EXPECT_EQ(value, System.ReadText(Path, "Brindle", "HomeDir", ""));
        EXPECT_EQ(value, Own.ReadText(Path, "Brindle", "HomeDir", ""));
    }
}

TEST_F(ProfileOfWindows, EachDeletesWhatTheOtherWrote) {
    EXPECT_TRUE(System.Write(Path, "Brindle", "HomeDir", "C:\\"));
    EXPECT_TRUE(System.Write(Path, "Brindle", "Revision", "1"));
    EXPECT_TRUE(Own.Write(Path, "Brindle", "HomeDir", std::nullopt));
    EXPECT_EQ("gone", System.ReadText(Path, "Brindle", "HomeDir", "gone"));
    EXPECT_EQ("1", System.ReadText(Path, "Brindle", "Revision", ""));
    EXPECT_TRUE(Own.Write(Path, "Brindle Recent", "Recent0", "EMPTY"));
    EXPECT_TRUE(System.Write(Path, "Brindle", std::nullopt, std::nullopt));
    EXPECT_EQ("gone", Own.ReadText(Path, "Brindle", "Revision", "gone"));
    EXPECT_EQ("EMPTY", Own.ReadText(Path, "Brindle Recent", "Recent0", ""));
}

TEST_F(ProfileOfWindows, WhatWouldBreakTheFileIsRefused) {
    EXPECT_FALSE(System.Write(Path, "Brindle", "HomeDir", "C:\\\n[Brindle Recent]"));
    EXPECT_FALSE(System.Write(Path, "Brindle", "", "C:\\"));
    EXPECT_EQ(0, Folder.Count());
}

TEST_F(ProfileOfWindows, ASettingsFileAtAPathInAnyWritingIsFound) {
    const std::string folder = Folder.Path() + "\\\xE5\xA4\x89\xE9\x9B\xBB\xE6\x89\x80";
    ASSERT_NE(0, CreateDirectoryW(WideText(folder).c_str(), nullptr));
    EXPECT_TRUE(System.Write(folder + "\\Benchkit.ini", "Brindle", "HomeDir", "C:\\"));
    EXPECT_EQ("C:\\", System.ReadText(folder + "\\Benchkit.ini", "Brindle", "HomeDir", ""));
}

TEST_F(ProfileOfWindows, AHomeFolderInAnyWritingIsRememberedWhereTheCodePageIsUtf8) {
    if (GetACP() != CP_UTF8) {
        GTEST_SKIP() << "this system does not heed the code page of our manifest";
    }
    const std::string home = "C:\\\xE5\xA4\x89\xE9\x9B\xBB\xE6\x89\x80 \xD0\x9B";
    EXPECT_TRUE(System.Write(Path, "Brindle", "HomeDir", home));
    EXPECT_EQ(home, System.ReadText(Path, "Brindle", "HomeDir", ""));
    EXPECT_EQ(home, Own.ReadText(Path, "Brindle", "HomeDir", ""));
}

} // namespace
} // namespace brindle
