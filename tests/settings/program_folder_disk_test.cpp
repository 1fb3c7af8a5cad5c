#include "platform/paths.h"
#include "settings/program_folder.h"
#include "settings/setting_keys.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

namespace brindle {
namespace {

constexpr const char* SeedName = "PLC00100_OPT00000.810";
constexpr const char* OtherSeedName = "PLC00230_OPT00012.810";

/// A machine with Brindle installed for everybody, and a user who has a home.
struct InstalledProgram : testing::Test {
    void SetUp() override {
        for (const char* folder : {"usr/bin", "usr/share/brindle", "home/me"}) {
            std::filesystem::create_directories(Path(folder));
        }
        Disk.Put(std::string("usr/share/brindle/") + SeedName, "first seed");
        Disk.Put(std::string("usr/share/brindle/") + OtherSeedName, "second seed");
        Environment["HOME"] = Path("home/me");
    }

    [[nodiscard]] std::string Path(const std::string& name) const {
        return std::filesystem::path(Disk.Path(name)).make_preferred().string();
    }

    [[nodiscard]] ProgramFolders Find(const std::string& executableFolder) const {
        const auto variable = [this](const std::string& name) {
            const auto found = Environment.find(name);
            return found == Environment.end() ? std::string() : found->second;
        };
        return FindProgramFolders(executableFolder, variable, RealFolders());
    }

    [[nodiscard]] std::string Provide() const {
        return ProvideProgramFolder(Find(Path("usr/bin")), RealFileSystem(), RealFolders());
    }

    [[nodiscard]] std::string UserFile(const std::string& name) const {
        return Disk.Content("home/me/.local/share/brindle/" + name);
    }

    TempFolder Disk;
    std::map<std::string, std::string> Environment;
    const std::string Seeds = Path("usr/share/brindle");
    const std::string UsualFolder = Path("home/me/.local/share/brindle");
};

TEST_F(InstalledProgram, HasItsFolderInTheUsersHome) {
    EXPECT_EQ(UsualFolder, Find(Path("usr/bin")).Program);
    EXPECT_EQ(Seeds, Find(Path("usr/bin")).Seeds);
}

TEST_F(InstalledProgram, HasItsFolderWhereTheUserKeepsHisData) {
    Environment["XDG_DATA_HOME"] = Path("data");
    EXPECT_EQ(Path("data/brindle"), Find(Path("usr/bin")).Program);
    Environment["XDG_DATA_HOME"] = AddTrailingSeparator(Path("data"));
    EXPECT_EQ(Path("data/brindle"), Find(Path("usr/bin")).Program);
    Environment.erase("HOME");
    EXPECT_EQ(Path("data/brindle"), Find(Path("usr/bin")).Program);
}

TEST_F(InstalledProgram, PassesOverARelativeDataFolder) {
    for (const char* relative : {"data", "./data", "../data", "~/data"}) {
        Environment["XDG_DATA_HOME"] = relative;
        EXPECT_EQ(UsualFolder, Find(Path("usr/bin")).Program) << relative;
    }
}

TEST_F(InstalledProgram, RunsInTheFolderOfTheSeedsForAUserWithoutAHome) {
    Environment["HOME"] = "home/me";
    EXPECT_EQ(Seeds, Find(Path("usr/bin")).Program);
    Environment.erase("HOME");
    EXPECT_EQ(Seeds, Find(Path("usr/bin")).Program);
    EXPECT_EQ(Seeds, Provide());
    EXPECT_EQ(Seeds, OptionFileFolder(Find(Path("usr/bin")), RealFolders()));
}

TEST_F(InstalledProgram, MakesItsFolderAndSeedsItAtTheFirstStart) {
    EXPECT_EQ(UsualFolder, Provide());
    EXPECT_EQ("first seed", UserFile(SeedName));
    EXPECT_EQ("second seed", UserFile(OtherSeedName));
}

TEST_F(InstalledProgram, SeedsNothingButOptionFiles) {
    Disk.Put("usr/share/brindle/Benchkit.ini", "of somebody else");
    Disk.Put("usr/share/brindle/README", "to be read");
    EXPECT_EQ(UsualFolder, Provide());
    EXPECT_EQ("first seed", UserFile(SeedName));
    EXPECT_EQ(2, std::distance(std::filesystem::directory_iterator(UsualFolder), {}));
}

TEST_F(InstalledProgram, NeverOverwritesAFileThatIsThere) {
    std::filesystem::create_directories(UsualFolder);
    Disk.Put(std::string("home/me/.local/share/brindle/") + SeedName, "the user's own");
    EXPECT_EQ(UsualFolder, Provide());
    EXPECT_EQ("the user's own", UserFile(SeedName));
    EXPECT_EQ("second seed", UserFile(OtherSeedName));
}

TEST_F(InstalledProgram, LeavesASeedAwayThatTheUserRemoved) {
    ASSERT_EQ(UsualFolder, Provide());
    Disk.Put(std::string("home/me/.local/share/brindle/") + SettingsFileName, "[Brindle]\r\n");
    ASSERT_TRUE(std::filesystem::remove(std::filesystem::path(UsualFolder) / SeedName));
    EXPECT_EQ(UsualFolder, Provide());
    EXPECT_EQ("", UserFile(SeedName));
}

TEST_F(InstalledProgram, StartsWithoutSeedsWhereThereAreNone) {
    std::filesystem::remove_all(Seeds);
    std::filesystem::create_directory(Seeds);
    EXPECT_EQ(UsualFolder, Provide());
    EXPECT_TRUE(std::filesystem::is_empty(UsualFolder));
}

TEST_F(InstalledProgram, RunsInTheFolderOfTheSeedsWhereItsOwnCannotBeMade) {
    Disk.Put("home/me/.local", "a file in the way");
    EXPECT_EQ(Seeds, Provide());
    EXPECT_EQ("first seed", Disk.Content(std::string("usr/share/brindle/") + SeedName));
}

TEST_F(InstalledProgram, IsContentWithAFolderThatAnotherStartMakesMeanwhile) {
    FolderFunctions folders = RealFolders();
    folders.MakePrivateFolder = [make = folders.MakePrivateFolder](const std::string& path) {
        make(path);
        return make(path);
    };
    EXPECT_EQ(UsualFolder, ProvideProgramFolder(Find(Path("usr/bin")), RealFileSystem(), folders));
    EXPECT_EQ("first seed", UserFile(SeedName));
}

TEST_F(InstalledProgram, TakesOptionFilesFromTheSeedsUntilTheUserHasAFolder) {
    EXPECT_EQ(Seeds, OptionFileFolder(Find(Path("usr/bin")), RealFolders()));
    EXPECT_FALSE(std::filesystem::exists(UsualFolder));
    ASSERT_EQ(UsualFolder, Provide());
    EXPECT_EQ(UsualFolder, OptionFileFolder(Find(Path("usr/bin")), RealFolders()));
}

TEST_F(InstalledProgram, SeedsItselfWhenItIsInstalledForOneUser) {
    std::filesystem::create_directories(Path("home/me/.local/bin"));
    std::filesystem::create_directories(UsualFolder);
    Disk.Put(std::string("home/me/.local/share/brindle/") + SeedName, "first seed");
    const ProgramFolders found = Find(Path("home/me/.local/bin"));
    EXPECT_EQ(UsualFolder, found.Program);
    EXPECT_EQ(UsualFolder, ProvideProgramFolder(found, RealFileSystem(), RealFolders()));
    EXPECT_EQ("first seed", UserFile(SeedName));
}

TEST_F(InstalledProgram, IsOneWithSharedFilesBesideItsBinFolder) {
    std::filesystem::remove_all(Seeds);
    EXPECT_EQ(Path("usr/bin"), Find(Path("usr/bin")).Program);
    EXPECT_EQ("", Find(Path("usr/bin")).Seeds);
}

TEST_F(InstalledProgram, IsNoneThatIsCarriedAbout) {
    for (const char* folder : {"usr/brindle", "usr/share", "stick"}) {
        std::filesystem::create_directories(Path(folder));
        const ProgramFolders found = Find(Path(folder));
        EXPECT_EQ(Path(folder), found.Program);
        EXPECT_EQ("", found.Seeds);
        EXPECT_EQ(Path(folder), ProvideProgramFolder(found, RealFileSystem(), RealFolders()));
        EXPECT_EQ(Path(folder), OptionFileFolder(found, RealFolders()));
        EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(Path(folder)) / SeedName));
    }
    EXPECT_FALSE(std::filesystem::exists(UsualFolder));
}

} // namespace
} // namespace brindle
