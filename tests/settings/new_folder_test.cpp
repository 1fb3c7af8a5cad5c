#include "platform/folders.h"
#include "settings/new_folder.h"
#include "support/fake_folders.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

namespace brindle {
namespace {

/// Makes folders in memory; the input box and the message boxes are answered from here.
class NewFolder : public testing::Test {
  protected:
    NewFolder() { Disk.Existing.insert("/home"); }

    /// The user types `name` (nothing: cancels) for a folder in `folder`.
    std::optional<std::string> Make(const std::optional<std::string>& name,
                                    const std::string& folder = "/home") {
        NewFolderFunctions functions;
        functions.Folders = Disk.Operations();
        functions.ShowMessageBox = [this](const MessageBox& box) {
            Boxes.push_back(box);
            return Answer;
        };
        functions.ShowInputBox = [this, name](const InputBox& box) {
            Asked.push_back(box);
            return name;
        };
        return MakeNewFolder(folder, functions, PosixPaths);
    }

    [[nodiscard]] std::string OnlyText() const {
        return Boxes.size() == 1 ? Boxes[0].Text : "(no single box)";
    }

    FakeFolders Disk;
    MessageAnswer Answer = MessageAnswer::Ok;
    std::vector<MessageBox> Boxes;
    std::vector<InputBox> Asked;
};

TEST_F(NewFolder, AsksForItsNameInTheSelectedFolder) {
    Make("relays");
    ASSERT_EQ(1U, Asked.size());
    EXPECT_EQ("Enter Folder Name", Asked[0].Title);
    EXPECT_EQ("Enter the folder name to create in /home.", Asked[0].Prompt);
    EXPECT_EQ("New Folder", Asked[0].Default);
}

TEST_F(NewFolder, IsMadeWithoutAWord) {
    EXPECT_EQ("/home/North_2-a~b 7", Make("North_2-a~b 7"));
    EXPECT_EQ(std::vector<std::string>{"/home/North_2-a~b 7"}, Disk.Made);
    EXPECT_TRUE(Boxes.empty());
}

TEST_F(NewFolder, InARootHasOneSeparator) {
    EXPECT_EQ("/relays", Make("relays", "/"));
}

TEST_F(NewFolder, AnEmptyNameAndACancelledBoxEndSilently) {
    EXPECT_EQ(std::nullopt, Make(""));
    EXPECT_EQ(std::nullopt, Make(std::nullopt));
    EXPECT_TRUE(Boxes.empty());
    EXPECT_TRUE(Disk.Made.empty());
}

TEST_F(NewFolder, ANameOf100CharactersIsTakenWithoutAQuestion) {
    const std::string name(100, 'x');
    EXPECT_EQ("/home/" + name, Make(name));
    EXPECT_TRUE(Boxes.empty());
}

TEST_F(NewFolder, ANameOf101CharactersIsCutWhenTheUserAgrees) {
    const std::string cut(100, 'x');
    EXPECT_EQ("/home/" + cut, Make(cut + "y"));
    EXPECT_EQ("The folder name must be less than 100 characters.  To use the truncated name " + cut +
                  " select ok.",
              OnlyText());
    EXPECT_EQ(MessageButtons::OkCancel, Boxes[0].Buttons);
    EXPECT_EQ(MessageIcon::Exclamation, Boxes[0].Icon);
}

TEST_F(NewFolder, ALongNameThatIsNotCutMakesNone) {
    Answer = MessageAnswer::Cancel;
    EXPECT_EQ(std::nullopt, Make(std::string(101, 'x')));
    EXPECT_TRUE(Disk.Made.empty());
}

TEST_F(NewFolder, ACutNameIsCheckedAsAnyOther) {
    EXPECT_EQ(std::nullopt, Make("." + std::string(100, 'x')));
    ASSERT_EQ(2U, Boxes.size());
    EXPECT_EQ(0U, Boxes[1].Text.find("The illegal character '.' was used in the folder name.  \r\n"));
    EXPECT_EQ("/home/" + std::string(100, 'x'), Make(std::string(100, 'x') + "."))
        << "what was cut off does no harm";
}

TEST_F(NewFolder, APointIsIllegal) {
    EXPECT_EQ(std::nullopt, Make("a.b/c"));
    EXPECT_EQ(
        "The illegal character '.' was used in the folder name.  \r\nOnly the characters A to Z, a to z, 0 "
        "to 9, and the symbols '_', '-', '~', and spaces are allowed.",
        OnlyText());
    EXPECT_EQ("Aborted Make Directory Function", Boxes[0].Title);
    EXPECT_EQ(MessageIcon::Exclamation, Boxes[0].Icon);
    EXPECT_TRUE(Disk.Made.empty());
}

TEST_F(NewFolder, AnExistingFolderIsRefusedAndNothingChanges) {
    Disk.Existing.insert("/home/relays");
    EXPECT_EQ(std::nullopt, Make("relays"));
    EXPECT_EQ("The folder 'relays' already exists.", OnlyText());
    EXPECT_EQ("Aborted Make Directory Function", Boxes[0].Title);
    EXPECT_EQ(MessageIcon::Exclamation, Boxes[0].Icon);
    EXPECT_TRUE(Disk.Made.empty());
}

TEST_F(NewFolder, AFolderThatTakesNoneIsToldAsAFileError) {
    Disk.FailMaking = PathAccessError;
    EXPECT_EQ(std::nullopt, Make("relays"));
    EXPECT_EQ("The selected path can not be accessed.", OnlyText());
    EXPECT_EQ("Disk Error", Boxes[0].Title);
}

TEST_F(NewFolder, AFailureWithoutATextIsToldWithItsNumber) {
    Disk.FailMaking = InternalError;
    EXPECT_EQ(std::nullopt, Make("relays"));
    EXPECT_EQ("There was an error trying to create the folder.\r\nError number: 51",
              OnlyText().substr(0, 65));
}

TEST(JudgeFolderName, TakesEveryAllowedCharacterAndNoOther) {
    for (int code = 1; code < 128; ++code) {
        const auto c = static_cast<char>(code);
        const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        const bool allowed = letter || (c >= '0' && c <= '9') || c == '_' || c == '-' || c == '~' || c == ' ';
        const JudgedFolderName judged = JudgeFolderName(std::string("a") + c + "b");
        EXPECT_EQ(allowed ? FolderNameFault::None : FolderNameFault::IllegalCharacter, judged.Fault) << code;
        EXPECT_EQ(allowed ? "" : std::string(1, c), judged.Character) << code;
    }
}

TEST(JudgeFolderName, NamesAnIllegalCharacterWhole) {
    EXPECT_EQ("\xC3\xA4", JudgeFolderName("Gera\xC3\xA4t").Character);
    EXPECT_EQ("\xE2\x82\xAC", JudgeFolderName("\xE2\x82\xAC.").Character);
}

TEST(JudgeFolderName, CountsCharactersAndNotBytes) {
    std::string name;
    for (int i = 0; i < 100; ++i) {
        name += "\xC3\xA4";
    }
    EXPECT_EQ(FolderNameFault::IllegalCharacter, JudgeFolderName(name).Fault);
    EXPECT_EQ(FolderNameFault::TooLong, JudgeFolderName(name + "x").Fault);
    EXPECT_EQ(name, JudgeFolderName(name + "x").Offered);
}

RC_GTEST_PROP(JudgeFolderName, NoNameThatPassesLeavesItsFolder, ()) {
    const auto name = *rc::gen::container<std::string>(
        rc::gen::weightedElement<char>({{40, 'a'}, {40, ' '}, {1, '.'}, {1, '/'}, {1, '\\'}, {1, ':'}}));
    const bool passes = JudgeFolderName(name).Fault == FolderNameFault::None;
    const bool leaves = name.find_first_of("./\\:") != std::string::npos;
    RC_CLASSIFY(passes, "passes");
    RC_ASSERT(passes == (!name.empty() && !leaves));
    if (passes) {
        RC_ASSERT(Get_File_Name_Parts(JoinPath("/home", name, PosixPaths), WindowsPaths).Folder == "/home/");
    }
}

} // namespace
} // namespace brindle
