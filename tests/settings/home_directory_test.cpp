#include "settings/home_directory.h"
#include "settings/setting_keys.h"
#include "support/fake_folders.h"
#include "support/memory_profile.h"

#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace brindle {
namespace {

using Texts = std::vector<std::string>;

/// A chooser over folders in memory that has been loaded with "/home/me".
class HomeDirectoryChooserTest : public testing::Test {
  protected:
    HomeDirectoryChooserTest() {
        Disk.Existing = {"/",   "/home", "/home/me", "/home/me/plc", "/home/me/sub", "/home/me/sub/deep",
                         "/mnt"};
        Disk.Volumes = {"/", "/mnt"};
        Disk.Current = "/home";
        Load("/home/me");
    }

    void Load(const std::string& homeDirectory) {
        NewFolderFunctions functions;
        functions.Folders = Disk.Operations();
        functions.ShowMessageBox = [this](const MessageBox& box) {
            Boxes.push_back(box);
            if (BeforeAnswer) {
                BeforeAnswer();
            }
            return Answer;
        };
        functions.ShowInputBox = [this](const InputBox&) { return std::optional<std::string>(TypedName); };
        Chooser = std::make_unique<HomeDirectoryChooser>(
            functions, [this](const std::string& folder) { Chosen.push_back(folder); }, PosixPaths);
        Chooser->Load(homeDirectory);
    }

    /// The captions of the rows, the selected one in brackets.
    [[nodiscard]] std::string Listed() const {
        std::string text;
        for (std::size_t row = 0; row < Chooser->Rows().size(); ++row) {
            const std::string& caption = Chooser->Rows()[row].Caption;
            text += row == Chooser->SelectedRow() ? "[" + caption + "] " : caption + " ";
        }
        return text;
    }

    FakeFolders Disk;
    MessageAnswer Answer = MessageAnswer::Ok;
    std::function<void()> BeforeAnswer;
    std::string TypedName = "New Folder";
    std::vector<MessageBox> Boxes;
    Texts Chosen;
    std::unique_ptr<HomeDirectoryChooser> Chooser;
};

TEST(FolderRows, LeadFromTheRootToTheFolderAndShowWhatItHolds) {
    const std::vector<FolderRow> expected{{"/", "/", 0, true},
                                          {"home", "/home", 1, true},
                                          {"a", "/home/a", 2, false},
                                          {"b", "/home/b", 2, false}};
    EXPECT_EQ(expected, FolderRows("/home/", {"a", "b"}, PosixPaths));
}

TEST(FolderRows, OfARootHaveNoDoubledSeparator) {
    const std::vector<FolderRow> posix{{"/", "/", 0, true}, {"home", "/home", 1, false}};
    EXPECT_EQ(posix, FolderRows("/", {"home"}, PosixPaths));
    const std::vector<FolderRow> windows{{R"(C:\)", R"(C:\)", 0, true}, {"plc", R"(C:\plc)", 1, false}};
    EXPECT_EQ(windows, FolderRows(R"(C:\)", {"plc"}, WindowsPaths));
}

TEST(FolderRows, OfASharedFolderBeginWithTheShare) {
    const std::vector<FolderRow> expected{{R"(\\office\plc)", R"(\\office\plc)", 0, true},
                                          {"north", R"(\\office\plc\north)", 1, true}};
    EXPECT_EQ(expected, FolderRows(R"(\\office\plc\north)", {}, WindowsPaths));
}

TEST_F(HomeDirectoryChooserTest, BeginsWithTheHomeDirectoryOpenAndSelected) {
    EXPECT_EQ("/ home [me] plc sub ", Listed());
    EXPECT_EQ("/home/me", Chooser->Selected());
    EXPECT_EQ(0U, Chooser->SelectedDrive());
}

TEST_F(HomeDirectoryChooserTest, BeginsWithTheNearestFolderOfOneThatHasGone) {
    Load("/home/me/gone/too");
    EXPECT_EQ("/ home [me] plc sub ", Listed());
    Load("/gone");
    EXPECT_EQ("[/] home mnt ", Listed());
}

TEST_F(HomeDirectoryChooserTest, SelectingAFolderMakesItCurrentAndLeavesTheList) {
    Chooser->dirHomeDir_Change(4);
    EXPECT_EQ("/ home me plc [sub] ", Listed());
    EXPECT_EQ("/home/me/sub", Chooser->Selected());
    EXPECT_EQ("/home/me/sub", Disk.Current);
}

TEST_F(HomeDirectoryChooserTest, OpeningAFolderListsWhatItHolds) {
    Chooser->OpenRow(4);
    EXPECT_EQ("/ home me [sub] deep ", Listed());
    Chooser->OpenRow(1);
    EXPECT_EQ("/ [home] me ", Listed());
    EXPECT_EQ("/home", Disk.Current);
}

TEST_F(HomeDirectoryChooserTest, OpeningTheParentStopsAtTheRoot) {
    Chooser->dirHomeDir_Change(3);
    Chooser->OpenParent();
    EXPECT_EQ("/ [home] me ", Listed()) << "the parent of the open folder, whichever is selected";
    Chooser->OpenParent();
    Chooser->OpenParent();
    EXPECT_EQ("[/] home mnt ", Listed());
}

TEST_F(HomeDirectoryChooserTest, ChoosingAVolumeOpensIt) {
    Chooser->Drive1_Change(1);
    EXPECT_EQ("/ [mnt] ", Listed());
    EXPECT_EQ("/mnt", Disk.Current);
    EXPECT_EQ(1U, Chooser->SelectedDrive());
}

TEST_F(HomeDirectoryChooserTest, AVolumeThatIsNotReadyIsTriedAgainOrGivenUp) {
    Disk.Closed.insert("/mnt");
    Answer = MessageAnswer::Cancel;
    Chooser->Drive1_Change(1);
    ASSERT_EQ(1U, Boxes.size());
    EXPECT_EQ("Drive not ready.  Insert disk and select Retry or press Cancel.", Boxes[0].Text);
    EXPECT_EQ("/ home [me] plc sub ", Listed());
    EXPECT_EQ("/home/me", Disk.Current);

    Answer = MessageAnswer::Retry;
    BeforeAnswer = [this] { Disk.Closed.clear(); };
    Chooser->Drive1_Change(1);
    EXPECT_EQ(2U, Boxes.size());
    EXPECT_EQ("/ [mnt] ", Listed());
}

TEST_F(HomeDirectoryChooserTest, ANewFolderIsMadeInTheSelectedOneAndShown) {
    Chooser->dirHomeDir_Change(4);
    TypedName = "north";
    Chooser->cmdNewFolder_Click();
    EXPECT_EQ(Texts{"/home/me/sub/north"}, Disk.Made);
    EXPECT_EQ("/ home me sub [north] ", Listed());
}

TEST_F(HomeDirectoryChooserTest, ANewFolderThatIsNotMadeLeavesTheList) {
    TypedName = "plc";
    Chooser->cmdNewFolder_Click();
    EXPECT_EQ("/ home [me] plc sub ", Listed());
}

TEST_F(HomeDirectoryChooserTest, DoneTellsTheSelectedFolder) {
    Chooser->dirHomeDir_Change(3);
    EXPECT_TRUE(Chooser->cmdDone_Click());
    EXPECT_EQ(Texts{"/home/me/plc"}, Chosen);
    EXPECT_EQ("/home/me/plc", Disk.Current);
}

TEST_F(HomeDirectoryChooserTest, AFolderThatCannotBeEnteredIsRefused) {
    Disk.Closed.insert("/home/me/plc");
    Chooser->dirHomeDir_Change(3);
    EXPECT_FALSE(Chooser->cmdDone_Click());
    EXPECT_TRUE(Chosen.empty());
    ASSERT_EQ(1U, Boxes.size());
    EXPECT_EQ("The selected path can not be accessed.", Boxes[0].Text);
}

TEST_F(HomeDirectoryChooserTest, CancelChangesNothing) {
    Disk.Current = "/home";
    Load("/home/me");
    Chooser->dirHomeDir_Change(3);
    Chooser->cmdCancel_Click();
    EXPECT_TRUE(Chosen.empty());
    EXPECT_EQ("/home", Disk.Current);
}

TEST(HomeDirectoryDrives, EachHasACurrentFolderOfItsOwn) {
    std::string current = R"(C:\plc)";
    NewFolderFunctions functions;
    functions.Folders.FolderExists = [](const std::string&) { return true; };
    functions.Folders.CurrentFolder = [&] { return current; };
    functions.Folders.ChangeFolder = [&](const std::string& path) {
        current = path;
        return true;
    };
    functions.Folders.ChangeDrive = [&](const std::string& path) {
        if (path[0] == 'D') {
            current = R"(D:\north\bay)";
        }
    };
    functions.Folders.Drives = [] { return Texts{R"(C:\)", R"(D:\)"}; };
    functions.Folders.Subfolders = [](const std::string&) { return Texts{}; };
    HomeDirectoryChooser chooser(
        functions, [](const std::string&) {}, WindowsPaths);
    chooser.Load(R"(c:\plc)");
    EXPECT_EQ(0U, chooser.SelectedDrive()) << "letters of either case name a drive";
    chooser.Drive1_Change(1);
    EXPECT_EQ(R"(D:\north\bay)", chooser.Selected());
    EXPECT_EQ(1U, chooser.SelectedDrive());
    chooser.Load(R"(\\office\plc)");
    EXPECT_EQ(std::nullopt, chooser.SelectedDrive());
}

TEST(StoreHomeDirectory, ReadsBackAsItIs) {
    MemoryProfile profile;
    SettingsFile settings = profile.Settings();
    for (const char* folder : {"/home/me", "/", "/home/odd ~ name ", R"(C:\)", R"(/a'b"c)"}) {
        EXPECT_TRUE(StoreHomeDirectory(settings, folder));
        EXPECT_EQ(folder, settings.Read(SectionBrindle, KeyHomeDir));
    }
}

TEST(StoreHomeDirectory, AFailureIsReturned) {
    MemoryProfile profile;
    profile.FailFrom = 1;
    SettingsFile settings = profile.Settings();
    EXPECT_FALSE(StoreHomeDirectory(settings, "/home/me"));
    EXPECT_EQ(1U, profile.Boxes.size());
}

} // namespace
} // namespace brindle
