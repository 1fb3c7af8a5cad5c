#include "settings/recent_files.h"
#include "settings/setting_keys.h"
#include "support/fake_file_system.h"
#include "support/memory_profile.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace brindle {
namespace {

const std::string EmptyKeys = "Recent0=EMPTY\r\nRecent1=EMPTY\r\nRecent2=EMPTY\r\nRecent3=EMPTY\r\n"
                              "Recent4=EMPTY\r\nRecent5=EMPTY\r\nRecent6=EMPTY\r\nRecent7=EMPTY\r\n"
                              "Recent8=EMPTY\r\nRecent9=EMPTY\r\n";

RecentFile File(const std::string& name, RelayKind model = RelayKind::Vdr812) {
    return {"/home/me/" + name, name, model};
}

/// The names of the entries, "-" for an unused one, up to the last used.
std::string NamesOf(const RecentFiles& files) {
    std::string names;
    std::string gap;
    for (const RecentFile& file : files) {
        if (file.Used()) {
            names += gap + file.Name + " ";
            gap.clear();
        } else {
            gap += "- ";
        }
    }
    return names;
}

/// A list over a settings file in memory and files in memory.
class RecentFileListTest : public testing::Test {
  protected:
    RecentFileListTest() {
        Files.AddFolder("/home");
        Files.AddFolder("/home/me");
    }

    RecentFileList List(const std::string& programFolder = "/opt/brindle") {
        runs_.push_back(std::make_unique<SettingsFile>(programFolder, Profile.Functions(), Profile.Files(),
                                                       Profile.Show()));
        return {programFolder, *runs_.back(), Files.Operations()};
    }

    void Put(const std::string& name) { Files.AddFile("/home/me/" + name, "logic"); }

    /// What is stored under the key of an entry.
    [[nodiscard]] std::string Stored(int index) {
        return Profile.Functions().ReadText("", SectionRecent, KeyRecent + std::to_string(index), "(none)");
    }

    MemoryProfile Profile;
    FakeFileSystem Files;

  private:
    std::vector<std::unique_ptr<SettingsFile>> runs_;
};

TEST(RecentFileValue, IsPathNameAndModelJoinedByCommas) {
    EXPECT_EQ("/home/me/x.pl,x.pl,1", RecentFileValue(File("x.pl")));
    EXPECT_EQ("/home/me/x.c10,x.c10,2", RecentFileValue(File("x.c10", RelayKind::Vdr810)));
    EXPECT_EQ("EMPTY", RecentFileValue({}));
}

TEST(RecentFileValue, WhatWouldReadBackAsAnotherFileIsStoredAsEmpty) {
    EXPECT_EQ("EMPTY", RecentFileValue({"/home/a,b/x.pl", "x.pl", RelayKind::Vdr812}));
    EXPECT_EQ("EMPTY", RecentFileValue({"/home/x.pl", "x,y.pl", RelayKind::Vdr812}));
    EXPECT_EQ("EMPTY", RecentFileValue({"/home/a\nb/x.pl", "x.pl", RelayKind::Vdr812}));
}

TEST(ParseRecentFile, GivesBackWhatWasStored) {
    EXPECT_EQ(File("x.pl"), ParseRecentFile("/home/me/x.pl,x.pl,1"));
    EXPECT_EQ(File("x.c10", RelayKind::Vdr810), ParseRecentFile("/home/me/x.c10,x.c10,2"));
    EXPECT_EQ((RecentFile{"/x", "", RelayKind::Vdr812}), ParseRecentFile("/x,,1")) << "a name may be missing";
}

TEST(ParseRecentFile, RefusesWhatIsNoEntry) {
    for (const char* value :
         {"EMPTY", "", ",", ",,", ",x.pl,1", "/a/x.pl", "/a/x.pl,1", "/a/x.pl,x.pl,", "/a/x.pl,x.pl,0",
          "/a/x.pl,x.pl,3", "/a/x.pl,x.pl,12", "/a/x.pl,x.pl,one", "/a/b,c/x.pl,x.pl,1", "/a/x.pl,x.pl,1,1",
          "/a\r/x.pl,x.pl,1", "/a/x.pl,x\r.pl,2"}) {
        EXPECT_EQ(std::nullopt, ParseRecentFile(value)) << value;
    }
}

TEST(EnterRecentFile, TheNewestStandsAtTheHead) {
    RecentFiles files;
    EnterRecentFile(files, File("a.pl"));
    EnterRecentFile(files, File("b.pl"));
    EXPECT_EQ("b.pl a.pl ", NamesOf(files));
}

TEST(EnterRecentFile, AFileUsedAgainMovesToTheHeadAndTakesItsNewModel) {
    RecentFiles files;
    for (const char* name : {"a.pl", "b.pl", "c.pl"}) {
        EnterRecentFile(files, File(name));
    }
    EnterRecentFile(files, File("b.pl", RelayKind::Vdr810));
    EXPECT_EQ("b.pl c.pl a.pl ", NamesOf(files));
    EXPECT_EQ(RelayKind::Vdr810, files[0].Model);
}

TEST(EnterRecentFile, TheEleventhFileDropsTheOldest) {
    RecentFiles files;
    for (int i = 1; i <= 11; ++i) {
        EnterRecentFile(files, File(std::to_string(i)));
    }
    EXPECT_EQ("11 10 9 8 7 6 5 4 3 2 ", NamesOf(files));
    EnterRecentFile(files, File("2"));
    EXPECT_EQ("2 11 10 9 8 7 6 5 4 3 ", NamesOf(files)) << "nothing is dropped for a file that is there";
}

TEST(EnterRecentFile, GapsCloseUp) {
    RecentFiles files;
    files[2] = File("a.pl");
    files[7] = File("b.pl");
    EnterRecentFile(files, File("c.pl"));
    EXPECT_EQ("c.pl a.pl b.pl ", NamesOf(files));
}

TEST(EnterRecentFile, CaseTellsFilesApartExceptWhereThereAreDrives) {
    const RecentFile lower{R"(C:\plc/x.pl)", "x.pl", RelayKind::Vdr812};
    const RecentFile upper{R"(c:\PLC\X.PL)", "X.PL", RelayKind::Vdr812};
    RecentFiles files;
    EnterRecentFile(files, lower, WindowsPaths);
    EnterRecentFile(files, upper, WindowsPaths);
    EXPECT_EQ("X.PL ", NamesOf(files));
    EnterRecentFile(files, lower, PosixPaths);
    EXPECT_EQ("x.pl X.PL ", NamesOf(files));
}

TEST(EnterRecentFile, TwoWritingsOfAPathAreOneFile) {
    RecentFiles files;
    EnterRecentFile(files, {"/home/me/a.pl", "a.pl", RelayKind::Vdr812});
    EnterRecentFile(files, {"/home/me/x/../a.pl", "a.pl", RelayKind::Vdr812});
    EXPECT_EQ("a.pl ", NamesOf(files));
    EXPECT_EQ("/home/me/x/../a.pl", files[0].Path) << "what the system was asked for is what it opens";
    EnterRecentFile(files, {"/home/me//./a.pl", "a.pl", RelayKind::Vdr812});
    EXPECT_EQ("a.pl ", NamesOf(files));
    EnterRecentFile(files, {"/home/a.pl", "a.pl", RelayKind::Vdr812});
    EXPECT_EQ("a.pl a.pl ", NamesOf(files));
}

TEST_F(RecentFileListTest, AMissingSectionYieldsTenEmptySlotsAndTenKeys) {
    RecentFileList list = List();
    list.Load();
    EXPECT_EQ("", NamesOf(list.Entries()));
    EXPECT_EQ("[Brindle Recent]\r\n" + EmptyKeys, Profile.Text);
}

TEST_F(RecentFileListTest, EntriesKeepTheirPlaces) {
    Put("a.pl");
    Put("b.c10");
    Profile.Text = "[Brindle Recent]\r\nRecent1=/home/me/a.pl,a.pl,1\r\nRecent9=/home/me/b.c10,b.c10,2\r\n";
    RecentFileList list = List();
    list.Load();
    EXPECT_EQ(File("a.pl"), list.Entries()[1]);
    EXPECT_EQ(File("b.c10", RelayKind::Vdr810), list.Entries()[9]);
    EXPECT_EQ("- a.pl - - - - - - - b.c10 ", NamesOf(list.Entries()));
}

TEST_F(RecentFileListTest, AFileDeletedSinceTheLastRunBecomesEmptyAtTheNextStart) {
    Put("a.pl");
    RecentFileList first = List();
    first.Enter(File("gone.pl"));
    first.Enter(File("a.pl"));
    EXPECT_EQ("a.pl gone.pl ", NamesOf(first.Entries())) << "until then it stays";
    RecentFileList next = List();
    next.Load();
    EXPECT_EQ("a.pl ", NamesOf(next.Entries()));
    EXPECT_EQ("EMPTY", Stored(1));
}

TEST_F(RecentFileListTest, AFolderIsNoFile) {
    Profile.Text = "[Brindle Recent]\r\nRecent0=/home/me,me,1\r\n";
    RecentFileList list = List();
    list.Load();
    EXPECT_EQ("", NamesOf(list.Entries()));
}

TEST_F(RecentFileListTest, AFileThatCannotBeLookedForStays) {
    Profile.Text = "[Brindle Recent]\r\nRecent0=/home/me/a.pl,a.pl,1\r\n";
    Files.FailAll("status", PermissionDeniedError);
    RecentFileList list = List();
    list.Load();
    EXPECT_EQ("a.pl ", NamesOf(list.Entries()));
    EXPECT_EQ("/home/me/a.pl,a.pl,1", Stored(0));
}

TEST_F(RecentFileListTest, MalformedEntriesBecomeEmpty) {
    Put("a.pl");
    Profile.Text = "[Brindle Recent]\r\nRecent0=/home/me/a.pl\r\nRecent1=/home/me/a.pl,a.pl,7\r\n"
                   "Recent2=/home/me/a.pl,a.pl,1,1\r\nRecent3=\r\nRecent4=/home/me/a.pl,a.pl,1\r\n";
    RecentFileList list = List();
    list.Load();
    EXPECT_EQ("- - - - a.pl ", NamesOf(list.Entries()));
    for (int index = 0; index < 4; ++index) {
        EXPECT_EQ("EMPTY", Stored(index)) << index;
    }
}

TEST_F(RecentFileListTest, AnEnteredFileIsStoredAtOnceAndUnusedSlotsAsEmpty) {
    RecentFileList list = List();
    list.Enter(File("a.pl"));
    EXPECT_EQ("/home/me/a.pl,a.pl,1", Stored(0));
    for (int index = 1; index < RecentFileCount; ++index) {
        EXPECT_EQ("EMPTY", Stored(index)) << index;
    }
}

TEST_F(RecentFileListTest, APathWithACommaIsOfferedInThisRunAndForgottenByTheNext) {
    Files.AddFile("/home/me/a,b.pl", "logic");
    Put("a");
    RecentFileList list = List();
    list.Enter(File("a,b.pl"));
    EXPECT_EQ("a,b.pl ", NamesOf(list.Entries()));
    RecentFileList next = List();
    next.Load();
    EXPECT_EQ("", NamesOf(next.Entries()));
    EXPECT_TRUE(Profile.Boxes.empty());
}

TEST_F(RecentFileListTest, AFailedSaveIsToldInItsOwnWords) {
    Profile.FailFrom = 1;
    List().Enter(File("a.pl"));
    ASSERT_EQ(1U, Profile.Boxes.size());
    EXPECT_EQ("There was an error saving the window position information for "
              "/opt/brindle/Benchkit.ini, vbExclamation, vbOKOnly",
              Profile.Boxes[0].Text);
    EXPECT_EQ(MessageButtons::Ok, Profile.Boxes[0].Buttons);
    EXPECT_EQ(MessageIcon::None, Profile.Boxes[0].Icon);
    EXPECT_EQ(DefaultMessageTitle, Profile.Boxes[0].Title);
}

TEST_F(RecentFileListTest, TheMessageHasASeparatorOfItsOwnBehindARootFolder) {
    Profile.FailFrom = 1;
    List("/").Enter(File("a.pl"));
    EXPECT_EQ("There was an error saving the window position information for "
              "//Benchkit.ini, vbExclamation, vbOKOnly",
              Profile.Boxes.at(0).Text);
}

TEST_F(RecentFileListTest, FailedSavesAreToldOnceARunAndTheListIsKept) {
    Profile.FailFrom = 1;
    RecentFileList list = List();
    list.Enter(File("a.pl"));
    list.Enter(File("b.pl"));
    EXPECT_EQ(1U, Profile.Boxes.size());
    EXPECT_EQ("b.pl a.pl ", NamesOf(list.Entries()));
}

TEST_F(RecentFileListTest, ProgramsThatShareItKeepEachOthersFiles) {
    RecentFileList first = List();
    RecentFileList second = List();
    first.Enter(File("a.pl"));
    second.Enter(File("b.pl"));
    EXPECT_EQ("b.pl a.pl ", NamesOf(second.Entries()));
    first.Enter(File("c.pl"));
    EXPECT_EQ("c.pl b.pl a.pl ", NamesOf(first.Entries()));
    EXPECT_EQ("/home/me/b.pl,b.pl,1", Stored(1));
}

TEST_F(RecentFileListTest, WhatCouldNotBeStoredIsStoredWithTheNextFile) {
    RecentFileList first = List();
    RecentFileList second = List();
    Profile.FailFrom = 1;
    first.Enter(File("a.pl"));
    Profile.FailFrom = 0;
    second.Enter(File("b.pl"));
    first.Enter(File("c.pl"));
    EXPECT_EQ("c.pl a.pl b.pl ", NamesOf(first.Entries()));
    EXPECT_EQ("/home/me/a.pl,a.pl,1", Stored(1));
    second.Enter(File("a.pl"));
    second.Enter(File("d.pl"));
    first.Enter(File("e.pl"));
    EXPECT_EQ("e.pl d.pl a.pl c.pl b.pl ", NamesOf(first.Entries())) << "no file twice";
}

TEST_F(RecentFileListTest, APathWithACommaStaysInItsPlaceOfThisRun) {
    RecentFileList list = List();
    list.Enter(File("a.pl"));
    list.Enter(File("b,c.pl"));
    list.Enter(File("d.pl"));
    EXPECT_EQ("d.pl b,c.pl a.pl ", NamesOf(list.Entries()));
    EXPECT_EQ("EMPTY", Stored(1));
}

TEST_F(RecentFileListTest, AFileUsedByAnotherProgramWhileThisOneLooksForFilesIsKept) {
    Put("a.pl");
    Profile.Text = "[Brindle Recent]\r\nRecent0=/home/me/gone.pl,gone.pl,1\r\n";
    ProfileFunctions functions = Profile.Functions();
    functions.Update = [&](const std::string& path, const std::string& section,
                           const DecideProfileEntries& decide) {
        List().Enter(File("a.pl")); // of the other program
        return Profile.Functions().Update(path, section, decide);
    };
    SettingsFile settings("/opt/brindle", functions, Profile.Files(), Profile.Show());
    RecentFileList list("/opt/brindle", settings, Files.Operations());
    list.Load();
    EXPECT_EQ("a.pl ", NamesOf(list.Entries()));
    EXPECT_EQ("/home/me/a.pl,a.pl,1", Stored(0));
    EXPECT_EQ("EMPTY", Stored(1));
}

TEST_F(RecentFileListTest, AFailedSettingThatWasToldOfIsNotToldAgainForTheList) {
    Profile.FailFrom = 1;
    SettingsFile settings("/opt/brindle", Profile.Functions(), Profile.Files(), Profile.Show());
    RecentFileList list("/opt/brindle", settings, Files.Operations());
    EXPECT_FALSE(settings.Write(KeyHomeDir, "/home", SectionBrindle));
    list.Enter(File("a.pl"));
    EXPECT_EQ(1U, Profile.Boxes.size());
}

TEST_F(RecentFileListTest, LoadingFromAFolderThatCannotBeWrittenIsSilent) {
    Profile.FailFrom = 1;
    List().Load();
    EXPECT_TRUE(Profile.Boxes.empty());
}

} // namespace
} // namespace brindle
