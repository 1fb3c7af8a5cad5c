#include "files/option_file.h"
#include "files/plc_folder.h"
#include "support/fake_file_system.h"
#include "support/fake_folders.h"
#include "support/temp_folder.h"
#include "support/vdr810_text.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>

namespace brindle {
namespace {

PlcFolder FolderOf(const std::vector<std::string>& names) {
    FakeFolders folders;
    folders.FilesOf["/plc"] = names;
    return ScanPlcFolder(folders.Operations(), "/plc");
}

std::vector<std::string> NamesOf(const PlcFolder& folder) {
    std::vector<std::string> names;
    for (const PlcFolderEntry& entry : folder.Entries) {
        names.push_back(entry.Name);
    }
    return names;
}

/// An option file of one label, named `label`.
std::string OptionOfLabel(const std::string& label) {
    return Vdr810Text()
        .Value(8, "1")
        .Value(9, "0")
        .Line(" 99")
        .Line("<LABEL INFO>")
        .Line("1,5," + label + ",C,True,True")
        .Text();
}

TEST(PlcFolder, AnEntryIsWhatTheNameTells) {
    const PlcFolder folder = FolderOf({"PLC00230_OPT00012.810"});
    EXPECT_EQ("/plc", folder.Path);
    EXPECT_EQ((std::vector<PlcFolderEntry>{{"PLC00230_OPT00012.810", "00230", "00012", 2.3, 12, 0}}),
              folder.Entries);
}

TEST(PlcFolder, NamesWithoutTheirDigitsAreLeftOut) {
    EXPECT_TRUE(FolderOf({"PLC0230_OPT00012.810", "PLC00230_OPT0012.810", "PLC00230_OPT00012.81",
                          "PLC00230_OPT00012.8100", "PLC002 0_OPT00012.810", "PLC-0230_OPT00012.810",
                          "PLC00230-OPT00012.810", "10000_OPT00012.810", "PLC0023012345.810",
                          "xPLC00230_OPT00012.810", "PLC.810", "PLCxxxxx_OPTxxxxx.810", "readme.txt", ""})
                    .Entries.empty());
}

TEST(PlcFolder, NamesCountInCapitalsOrNot) {
    EXPECT_EQ(2.3, FolderOf({"plc00230_Opt00012.810"}).Entries.at(0).Version);
}

TEST(PlcFolder, OptionsNumbersEndAt32767) {
    EXPECT_EQ((std::vector<std::string>{"PLC00100_OPT32767.810"}),
              NamesOf(FolderOf({"PLC00100_OPT32768.810", "PLC00100_OPT32767.810", "PLC00100_OPT99999.810"})));
}

TEST(PlcFolder, EntriesAreInTheOrderOfVersionAndOptionsWhateverTheSystemsOrder) {
    const std::vector<std::string> ordered{"PLC00100_OPT00001.810", "PLC00100_OPT00020.810",
                                           "plc00230_opt00003.810", "PLC01000_OPT00001.810"};
    std::vector<std::string> names = ordered;
    std::sort(names.begin(), names.end());
    do {
        EXPECT_EQ(ordered, NamesOf(FolderOf(names)));
    } while (std::next_permutation(names.begin(), names.end()));
}

TEST(PlcFolder, VersionCodesNumberTheDifferentVersionsFrom0Upward) {
    const PlcFolder folder =
        FolderOf({"PLC00230_OPT00001.810", "PLC00100_OPT00002.810", "PLC00230_OPT00007.810",
                  "PLC01000_OPT00001.810", "PLC00100_OPT00001.810"});
    std::vector<int> codes;
    for (const PlcFolderEntry& entry : folder.Entries) {
        codes.push_back(entry.VersionCode);
    }
    EXPECT_EQ((std::vector<int>{0, 0, 1, 1, 2}), codes);
    EXPECT_EQ(1.0, folder.VersionOfCode(0));
    EXPECT_EQ(2.3, folder.VersionOfCode(1));
    EXPECT_EQ(10.0, folder.VersionOfCode(2));
    EXPECT_EQ(-1.0, folder.VersionOfCode(3));
    EXPECT_EQ(-1.0, folder.VersionOfCode(-1));
    EXPECT_EQ(-1.0, FolderOf({}).VersionOfCode(0));
}

TEST(PlcFolder, APairIsLookedUpByVersionCodeAndOptions) {
    const PlcFolder folder =
        FolderOf({"PLC00100_OPT00001.810", "PLC00100_OPT00002.810", "PLC00230_OPT00002.810"});
    EXPECT_EQ(0, folder.EntryOfPair(0, 1));
    EXPECT_EQ(1, folder.EntryOfPair(0, 2));
    EXPECT_EQ(2, folder.EntryOfPair(1, 2));
    EXPECT_EQ(-1, folder.EntryOfPair(1, 1));
    EXPECT_EQ(-1, folder.EntryOfPair(2, 2));
}

TEST(PlcFolder, AnEntryIsFoundByVersionToTheHundredthAndOptions) {
    const PlcFolder folder = FolderOf({"PLC00230_OPT00012.810"});
    EXPECT_NE(nullptr, folder.Find(2.3, 12));
    EXPECT_NE(nullptr, folder.Find(double{2.3F}, 12)) << "in single precision too";
    EXPECT_NE(nullptr, folder.Find(2.304, 12));
    EXPECT_EQ(nullptr, folder.Find(2.31, 12));
    EXPECT_EQ(nullptr, folder.Find(2.3, 13));
    EXPECT_EQ(nullptr, folder.Find(1e30, 12));
}

RC_GTEST_PROP(PlcFolder, EveryNameThatAnOptionFileCanHaveIsFoundAgain, ()) {
    const double version = *rc::gen::inRange(0, 10000) / 100.0;
    const int options = *rc::gen::inRange(0, 10000);
    const PlcFolder folder = FolderOf({"PLC00100_OPT00001.810", OptionFileName(version, options)});
    const PlcFolderEntry* entry = folder.Find(version, options);
    RC_ASSERT(entry != nullptr);
    RC_ASSERT(entry->Name == OptionFileName(version, options));
    RC_ASSERT(folder.EntryOfPair(entry->VersionCode, options) >= 0);
    RC_ASSERT(folder.VersionOfCode(entry->VersionCode) == version);
}

TEST(PlcFolder, IsReadFromARealFolder) {
    const TempFolder folder;
    folder.Put("PLC00230_OPT00012.810", "x");
    folder.Put("other.txt", "x");
    std::filesystem::create_directory(folder.Path("PLC00100_OPT00001.810"));
    const PlcFolder scanned = ScanPlcFolder(RealFolders(), folder.Path());
    EXPECT_EQ((std::vector<std::string>{"PLC00230_OPT00012.810"}), NamesOf(scanned));
    EXPECT_TRUE(ScanPlcFolder(RealFolders(), folder.Path("none")).Entries.empty());
}

TEST(PlcFolder, TheVersionThatIsWrittenNamesTheFileAndFindsIt) {
    // A tie between two hundredths is written with the even one.
    EXPECT_EQ("PLC00212_OPT00012.810", OptionFileName(2.125, 12));
    EXPECT_NE(nullptr, FolderOf({"PLC00212_OPT00012.810"}).Find(2.125, 12));
    EXPECT_EQ(nullptr, FolderOf({"PLC00213_OPT00012.810"}).Find(2.125, 12));
}

std::vector<std::string> MisfitsOf(int number, const std::string& value, std::int32_t signalCount = 256) {
    const PlcFolderEntry entry = FolderOf({"PLC00230_OPT00012.810"}).Entries.at(0);
    const std::string text = Vdr810Text().Value(8, "0").Value(9, "0").Value(number, value).Line(" 99").Text();
    OptionFile option;
    EXPECT_FALSE(DecodeOptionFile(text, "read x.810", option).Failed());
    return OptionFileMisfits(entry, option, signalCount);
}

TEST(OptionFileMisfits, AFileOfItsNamesVersionAndOptionsFits) {
    EXPECT_TRUE(MisfitsOf(1, "LINE 8").empty());
    EXPECT_TRUE(MisfitsOf(3, "2.304").empty()) << "a name holds hundredths";
}

TEST(OptionFileMisfits, AHeadOfAnotherVersionOrOptionsThanTheNameIsTold) {
    const std::string file = "The option file PLC00230_OPT00012.810 says in its head that it is of version ";
    EXPECT_EQ(std::vector<std::string>{file + "2.31 and options 12."}, MisfitsOf(3, "2.31"));
    EXPECT_EQ(std::vector<std::string>{file + "2.30 and options 13."}, MisfitsOf(4, "13"));
}

TEST(OptionFileMisfits, AnotherNumberOfSignalsThanTheLogicHasIsTold) {
    EXPECT_EQ(std::vector<std::string>{"The option file PLC00230_OPT00012.810 counts 300 signals, this logic "
                                       "256."},
              MisfitsOf(10, "300"));
    EXPECT_EQ(1U, MisfitsOf(1, "LINE 8", 255).size());
}

TEST(LoadLists, AFileThatCountsOtherSignalsIsUsedAndToldOf) {
    FakeFileSystem disk;
    disk.AddFolder("/plc");
    disk.AddFile("/plc/PLC00230_OPT00012.810", OptionOfLabel("A"));
    LogicConfig config = ReadText(Vdr810Text().Value(10, "300").Text()).Config;
    LoadedLists loaded;
    EXPECT_FALSE(LoadLists(disk.Operations(), FolderOf({"PLC00230_OPT00012.810"}), config, loaded).Failed());
    EXPECT_TRUE(loaded.Found);
    EXPECT_EQ(1U, loaded.Misfits.size());
    EXPECT_EQ("A", config.Lists.Labels.at(0).Name);
    EXPECT_EQ(300, config.Coding.InvertBase) << "its own head holds";
}

TEST(LoadLists, GivesALogicTheListsOfItsVersionAndOptions) {
    FakeFileSystem disk;
    disk.AddFolder("/plc");
    disk.AddFile("/plc/plc00230_opt00012.810", OptionOfLabel("RIGHT"));
    disk.AddFile("/plc/PLC00230_OPT00013.810", OptionOfLabel("WRONG"));
    const PlcFolder folder = FolderOf({"PLC00230_OPT00013.810", "plc00230_opt00012.810"});
    LogicConfig config = ReadText(Vdr810Text().Text()).Config;
    LoadedLists loaded;
    EXPECT_FALSE(LoadLists(disk.Operations(), folder, config, loaded).Failed());
    EXPECT_TRUE(loaded.Found);
    ASSERT_EQ(1U, config.Lists.Labels.size());
    EXPECT_EQ("RIGHT", config.Lists.Labels[0].Name);
    EXPECT_EQ(99, UnconnectedCode(config));
}

TEST(LoadLists, WithoutAnOptionFileTheLogicKeepsItsOwn) {
    FakeFileSystem disk;
    LogicConfig config = ReadText(Vdr810Text().Line("<LABEL INFO>").Line("1,104,FALSE").Text()).Config;
    const LogicConfig before = config;
    LoadedLists loaded{true, {"of another logic"}};
    EXPECT_FALSE(LoadLists(disk.Operations(), FolderOf({"PLC00230_OPT00013.810"}), config, loaded).Failed());
    EXPECT_FALSE(loaded.Found);
    EXPECT_TRUE(SameVdr810(before, config));
    EXPECT_TRUE(disk.Log().empty());
}

TEST(LoadLists, AMalformedOptionFileLeavesTheLogicItsOwn) {
    FakeFileSystem disk;
    disk.AddFolder("/plc");
    disk.AddFile("/plc/PLC00230_OPT00012.810", OptionOfLabel("A,B"));
    LogicConfig config = ReadText(Vdr810Text().Line("<LABEL INFO>").Line("1,104,FALSE").Text()).Config;
    const LogicConfig before = config;
    LoadedLists loaded;
    const FileError error = LoadLists(disk.Operations(), FolderOf({"PLC00230_OPT00012.810"}), config, loaded);
    EXPECT_EQ(SubscriptError, error.Number);
    EXPECT_EQ("read /plc/PLC00230_OPT00012.810, line 2 after the unconnected signal", error.Source);
    EXPECT_TRUE(loaded.Found);
    EXPECT_TRUE(SameVdr810(before, config));
}

} // namespace
} // namespace brindle
