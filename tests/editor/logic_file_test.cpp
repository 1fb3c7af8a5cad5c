#include "editor/logic_file.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

LogicFile Opened() {
    LogicFile file;
    file.Origin = FileOrigin::Opened;
    return file;
}

TEST(StatusNotices, AFileThatIsAsItShouldBeSaysNothing) {
    EXPECT_TRUE(StatusNotices(Opened()).empty());
    EXPECT_TRUE(StatusNotices({}).empty());
}

TEST(StatusNotices, TellWhatIsWrongTheWeightiestFirst) {
    LogicFile file = Opened();
    file.Change = FileChange::Changed;
    file.Foreign = "foreign";
    file.Misfits = {"one", "two"};
    EXPECT_EQ(
        (std::vector<std::string>{"Another program has changed this file since it was opened or saved here.",
                                  "foreign", "one", "two"}),
        StatusNotices(file));
    file.Change = FileChange::Gone;
    EXPECT_EQ("This file has been moved or deleted since it was opened or saved here.",
              StatusNotices(file).at(0));
}

TEST(ReplaceQuestion, NothingIsAskedOfAFileThatIsAsItWas) {
    EXPECT_FALSE(ReplaceQuestion(Opened(), "/x.pl", FileChange::None));
    EXPECT_FALSE(ReplaceQuestion(Opened(), "/x.pl", FileChange::Gone)) << "nothing can be lost";
}

TEST(ReplaceQuestion, AFileThatAnotherProgramChangedIsAskedAbout) {
    const std::optional<MessageBox> box = ReplaceQuestion(Opened(), "/x.pl", FileChange::Changed);
    ASSERT_TRUE(box);
    EXPECT_EQ(
        "Another program has changed the file /x.pl since it was opened or saved here.\r\nSave As keeps it "
        "and saves this logic under another name.  Overwrite replaces what the other program wrote.",
        box->Text);
    EXPECT_EQ(MessageIcon::Exclamation, box->Icon);
    EXPECT_EQ(MessageButtons::SaveAsOverwriteCancel, box->Buttons);
}

TEST(ReplaceQuestion, AForeignFileIsAskedAboutUnlessItIsGone) {
    LogicFile file = Opened();
    file.Foreign = "This is not a VDR812 program.";
    const std::optional<MessageBox> box = ReplaceQuestion(file, "/x.pl", FileChange::None);
    ASSERT_TRUE(box);
    EXPECT_EQ("/x.pl\r\nThis is not a VDR812 program.\r\nSave As keeps it and saves this logic under another "
              "name.  Overwrite replaces it.",
              box->Text);
    EXPECT_FALSE(ReplaceQuestion(file, "/x.pl", FileChange::Gone));
}

TEST(ReplaceQuestion, ANewFileOverwritesUnasked) {
    LogicFile file;
    EXPECT_FALSE(ReplaceQuestion(file, "/New_File.pl", FileChange::Changed));
}

} // namespace
} // namespace brindle
