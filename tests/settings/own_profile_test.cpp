#include "platform/file_system.h"
#include "settings/own_profile.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace brindle {
namespace {

/// A profile in a new folder on the disk; its file system counts and fails as a test asks.
class OwnProfileOnDisk : public testing::Test {
  protected:
    [[nodiscard]] ProfileFunctions Profile() { return OwnProfile(files_); }

    void MakeFile(const std::string& text) const { std::ofstream(path_, std::ios::binary) << text; }

    [[nodiscard]] std::string Text() const {
        std::ifstream file(path_, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    [[nodiscard]] bool Exists() const { return std::filesystem::exists(path_); }

    /// The file can be neither opened nor looked into, whoever runs the test.
    void ForbidReading() {
        files_.OpenForReading = [](const std::string& path, FileHandle&) {
            return MakeFileError(PermissionDeniedError, "open " + path);
        };
    }

    void CountRenames() {
        files_.Rename = [this, rename = files_.Rename](const std::string& from, const std::string& to) {
            ++renames_;
            return rename(from, to);
        };
    }

    FileSystem files_ = RealFileSystem();
    int renames_ = 0;
    TempFolder folder_;
    std::string path_ = folder_.Path("Benchkit.ini");
};

TEST_F(OwnProfileOnDisk, AMissingFileReadsAsDefaults) {
    EXPECT_EQ("0", Profile().ReadText(path_, "Brindle", "BrindleVersion", "0"));
    EXPECT_EQ(7, Profile().ReadInteger(path_, "Brindle", "WindowWidth", 7));
    EXPECT_FALSE(Exists());
}

TEST_F(OwnProfileOnDisk, TheFirstWriteCreatesTheFile) {
    EXPECT_TRUE(Profile().Write(path_, "Brindle", "HomeDir", "/home/me"));
    EXPECT_EQ("[Brindle]\r\nHomeDir=/home/me\r\n", Text());
    EXPECT_EQ("/home/me", Profile().ReadText(path_, "brindle", "homedir", "0"));
}

TEST_F(OwnProfileOnDisk, DeletingFromAMissingFileSucceedsAndCreatesNone) {
    EXPECT_TRUE(Profile().Write(path_, "Brindle", std::nullopt, std::nullopt));
    EXPECT_TRUE(Profile().Write(path_, "Brindle", "HomeDir", std::nullopt));
    EXPECT_FALSE(Exists());
}

TEST_F(OwnProfileOnDisk, AMissingFolderReadsAsDefaultsAndCannotBeWritten) {
    const std::string path = folder_.Path("nowhere/Benchkit.ini");
    EXPECT_EQ("0", Profile().ReadText(path, "Brindle", "HomeDir", "0"));
    EXPECT_TRUE(Profile().Write(path, "Brindle", std::nullopt, std::nullopt));
    EXPECT_FALSE(Profile().Write(path, "Brindle", "HomeDir", "/a"));
}

TEST_F(OwnProfileOnDisk, IntegersReadAsTheirLeadingDigits) {
    MakeFile("[Brindle]\nWindowTop=-120.5\nWindowLeft=left\nWindowWidth=\"42\"\n");
    EXPECT_EQ(-120, Profile().ReadInteger(path_, "Brindle", "WindowTop", 7));
    EXPECT_EQ(7, Profile().ReadInteger(path_, "Brindle", "WindowLeft", 7));
    EXPECT_EQ(42, Profile().ReadInteger(path_, "Brindle", "WindowWidth", 7));
}

TEST_F(OwnProfileOnDisk, ADeletedSectionSparesOneOfALongerName) {
    MakeFile("; mine\n[Brindle]\nHomeDir=/a\n[Brindle Recent]\nRecent0=EMPTY\n");
    EXPECT_TRUE(Profile().Write(path_, "Brindle", std::nullopt, std::nullopt));
    EXPECT_EQ("; mine\n[Brindle Recent]\nRecent0=EMPTY\n", Text());
}

TEST_F(OwnProfileOnDisk, ADeletedKeyLeavesTheRest) {
    MakeFile("[Brindle]\nHomeDir=/a\nRevision=1\n");
    EXPECT_TRUE(Profile().Write(path_, "Brindle", "HomeDir", std::nullopt));
    EXPECT_EQ("[Brindle]\nRevision=1\n", Text());
}

TEST_F(OwnProfileOnDisk, AFileThatAlreadySaysSoIsNotReplaced) {
    MakeFile("[Brindle]\nHomeDir=/a\n");
    CountRenames();
    EXPECT_TRUE(Profile().Write(path_, "Brindle", "HomeDir", "/a"));
    EXPECT_TRUE(Profile().Write(path_, "Other", std::nullopt, std::nullopt));
    EXPECT_EQ(0, renames_);
    EXPECT_TRUE(Profile().Write(path_, "Brindle", "HomeDir", "/b"));
    EXPECT_EQ(1, renames_) << "and it is replaced whole";
}

TEST_F(OwnProfileOnDisk, WhatWouldBreakTheFileIsRefused) {
    MakeFile("[Brindle]\nHomeDir=/a\n");
    EXPECT_FALSE(Profile().Write(path_, "Brindle", "HomeDir", "/b\n[Brindle Recent]"));
    EXPECT_FALSE(Profile().Write(path_, "Brindle", "", "/b"));
    EXPECT_FALSE(Profile().Write(path_, "", std::nullopt, std::nullopt));
    EXPECT_EQ("[Brindle]\nHomeDir=/a\n", Text());
}

TEST_F(OwnProfileOnDisk, AFileThatCannotBeReadIsNotWiped) {
    MakeFile("[Brindle]\nHomeDir=/a\n");
    ForbidReading();
    EXPECT_EQ("0", Profile().ReadText(path_, "Brindle", "HomeDir", "0"));
    EXPECT_FALSE(Profile().Write(path_, "Brindle", "HomeDir", "/b"));
    EXPECT_FALSE(Profile().Write(path_, "Brindle", std::nullopt, std::nullopt));
    EXPECT_EQ("[Brindle]\nHomeDir=/a\n", Text());
}

TEST_F(OwnProfileOnDisk, AFileThatSeemedMissingForAMomentIsNotWiped) {
    const std::string text = "[Brindle]\r\nHomeDir=/home/me\r\n";
    MakeFile(text);
    for (const int missing : {FileNotFoundError, PathNotFoundError}) {
        files_.OpenForReading = [missing](const std::string& path, FileHandle&) {
            return MakeFileError(missing, "open " + path);
        };
        EXPECT_FALSE(Profile().Write(path_, "Brindle", "ScreenMode", "2"));
        EXPECT_EQ(text, Text());
    }
}

TEST_F(OwnProfileOnDisk, AFailedWriteLeavesTheOldFile) {
    MakeFile("[Brindle]\nHomeDir=/a\n");
    files_.Write = [](FileHandle, const char*, std::size_t) { return MakeFileError(DiskFullError, "write"); };
    EXPECT_FALSE(Profile().Write(path_, "Brindle", "HomeDir", "/b"));
    EXPECT_EQ("[Brindle]\nHomeDir=/a\n", Text());
}

TEST_F(OwnProfileOnDisk, AFolderInItsPlaceReadsAsDefaultsAndCannotBeWritten) {
    std::filesystem::create_directory(path_);
    EXPECT_EQ("0", Profile().ReadText(path_, "Brindle", "HomeDir", "0"));
    EXPECT_FALSE(Profile().Write(path_, "Brindle", "HomeDir", "/a"));
    EXPECT_TRUE(std::filesystem::is_directory(path_));
}

TEST_F(OwnProfileOnDisk, AFileOfTheGreatestSizeCanBeWrittenAndALongerOneIsNotCutShort) {
    const std::string start = "[Brindle]\nHomeDir=/a\n;";
    MakeFile(start + std::string(GreatestProfileSize - start.size(), 'x'));
    EXPECT_TRUE(Profile().Write(path_, "Brindle", "HomeDir", "/b"));
    MakeFile(start + std::string(GreatestProfileSize - start.size() + 1, 'x'));
    EXPECT_EQ("/a", Profile().ReadText(path_, "Brindle", "HomeDir", "0"));
    EXPECT_FALSE(Profile().Write(path_, "Brindle", "HomeDir", "/b"));
    EXPECT_EQ(GreatestProfileSize + 1, Text().size());
}

TEST_F(OwnProfileOnDisk, TheProfileOfThisSystemReadsWhatItWrote) {
    const ProfileFunctions profile = SystemProfile(files_);
    EXPECT_TRUE(profile.Write(path_, "Brindle", "WindowTop", "1200"));
    EXPECT_EQ("1200", profile.ReadText(path_, "Brindle", "WindowTop", ""));
    EXPECT_EQ(1200, profile.ReadInteger(path_, "Brindle", "WindowTop", 0));
}

} // namespace
} // namespace brindle
