#include "settings/file_command.h"

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

namespace brindle {
namespace {

constexpr const char* OpenFailed = "There was an error trying to open the File.";

/// Steps whose outcomes are error numbers laid down beforehand, and boxes answered the same way.
struct FileCommand : testing::Test {
    /// A step that comes to each of `numbers` in turn and goes well after the last.
    FileStep Step(const std::string& name, std::deque<int> numbers = {}) {
        return [this, name, numbers]() mutable {
            Log.push_back(name);
            if (numbers.empty()) {
                return FileError{};
            }
            const int number = numbers.front();
            numbers.pop_front();
            return number == NoFileError ? FileError{} : MakeFileError(number, name + " /home/x.pl");
        };
    }

    FileOutcome Run(const std::vector<FileStep>& steps) {
        return RunFileCommand(steps, OpenFailed, [this](const MessageBox& box) {
            Boxes.push_back(box);
            if (box.Title != "Disk Error" || Answers.empty()) {
                return MessageAnswer::Ok;
            }
            const MessageAnswer answer = Answers.front();
            Answers.pop_front();
            return answer;
        });
    }

    void ExpectGenericBox(const MessageBox& box, const std::string& numberAndOn) {
        EXPECT_EQ(OpenFailed + std::string("\r\nError number: ") + numberAndOn, box.Text);
        EXPECT_EQ(MessageIcon::Exclamation, box.Icon);
        EXPECT_EQ(MessageButtons::Ok, box.Buttons);
        EXPECT_EQ("Brindle", box.Title);
    }

    std::deque<MessageAnswer> Answers;
    std::vector<MessageBox> Boxes;
    std::vector<std::string> Log;
};

using Names = std::vector<std::string>;

TEST_F(FileCommand, ThatGoesWellRunsEveryStepOnceAndShowsNothing) {
    EXPECT_EQ(FileOutcome::Done, Run({Step("open"), Step("read"), Step("close")}));
    EXPECT_EQ((Names{"open", "read", "close"}), Log);
    EXPECT_TRUE(Boxes.empty());
}

TEST_F(FileCommand, OfNoStepsIsDone) {
    EXPECT_EQ(FileOutcome::Done, Run({}));
}

TEST_F(FileCommand, RetriesTheFailingStepAloneAsOftenAsTheUserSays) {
    Answers = {MessageAnswer::Retry, MessageAnswer::Retry};
    EXPECT_EQ(FileOutcome::Done, Run({Step("open"), Step("write", {61, 71}), Step("close")}));
    EXPECT_EQ((Names{"open", "write", "write", "write", "close"}), Log);
    EXPECT_EQ(2U, Boxes.size());
}

TEST_F(FileCommand, EndsSilentlyWhenTheUserGivesUp) {
    Answers = {MessageAnswer::Retry, MessageAnswer::Cancel};
    EXPECT_EQ(FileOutcome::Ended, Run({Step("open"), Step("write", {61, 61}), Step("close")}));
    EXPECT_EQ((Names{"open", "write", "write"}), Log);
    EXPECT_EQ(2U, Boxes.size());
}

TEST_F(FileCommand, EndsAfterTheDiskErrorBoxAloneForAKnownError) {
    Answers = {MessageAnswer::Ok};
    EXPECT_EQ(FileOutcome::Ended, Run({Step("open", {53}), Step("read")}));
    EXPECT_EQ(Names{"open"}, Log);
    ASSERT_EQ(1U, Boxes.size());
    EXPECT_EQ("Disk Error", Boxes[0].Title);
    EXPECT_EQ("File not found.", Boxes[0].Text);
}

TEST_F(FileCommand, GoesOnAfterAStepThatTheUserIgnores) {
    Answers = {MessageAnswer::Ignore};
    EXPECT_EQ(FileOutcome::Skipped, Run({Step("open", {61}), Step("read"), Step("close")}));
    EXPECT_EQ((Names{"open", "read", "close"}), Log);
}

TEST_F(FileCommand, IsEndedNotSkippedWhenAStepAfterAnIgnoredOneFails) {
    Answers = {MessageAnswer::Ignore, MessageAnswer::Ok};
    EXPECT_EQ(FileOutcome::Ended, Run({Step("open", {61}), Step("read", {57}), Step("close")}));
    EXPECT_EQ((Names{"open", "read"}), Log);
}

TEST_F(FileCommand, ShowsTheGenericBoxForAnErrorWithoutATextAndEnds) {
    EXPECT_EQ(FileOutcome::Ended, Run({Step("open", {51}), Step("read")}));
    EXPECT_EQ(Names{"open"}, Log);
    ASSERT_EQ(1U, Boxes.size());
    ExpectGenericBox(Boxes[0], "51\r\nError description: Internal error\r\nError Source: open /home/x.pl");
}

TEST_F(FileCommand, TriesAgainOnceWhenOverwritingIsAgreed) {
    Answers = {MessageAnswer::Yes};
    EXPECT_EQ(FileOutcome::Done, Run({Step("open", {58}), Step("write")}));
    EXPECT_EQ((Names{"open", "open", "write"}), Log);
    EXPECT_EQ(1U, Boxes.size());
}

TEST_F(FileCommand, DoesNotAskAgainWhenAnAgreedOverwriteFailsButTellsTheUser) {
    for (const int number : {58, 61}) {
        Boxes.clear();
        Answers = {MessageAnswer::Yes};
        EXPECT_EQ(FileOutcome::Ended, Run({Step("open", {58, number}), Step("write")}));
        ASSERT_EQ(2U, Boxes.size());
        ExpectGenericBox(Boxes[1], std::to_string(number) + "\r\nError description: " +
                                       FileErrorDescription(number) + "\r\nError Source: open /home/x.pl");
    }
    EXPECT_EQ((Names{"open", "open", "open", "open"}), Log);
}

TEST_F(FileCommand, ShowsTheGenericBoxForAnOverflow) {
    EXPECT_EQ(FileOutcome::Ended, Run({Step("write", {6})}));
    ASSERT_EQ(1U, Boxes.size());
    ExpectGenericBox(Boxes[0], "6\r\nError description: Overflow\r\nError Source: write /home/x.pl");
}

TEST_F(FileCommand, EndsWithTheGenericBoxWhenTheBoxGaveNoAnswer) {
    Answers = {static_cast<MessageAnswer>(99)};
    EXPECT_EQ(FileOutcome::Ended, Run({Step("open", {53}), Step("read")}));
    ASSERT_EQ(2U, Boxes.size());
    ExpectGenericBox(Boxes[1], "53\r\nError description: File not found\r\nError Source: open /home/x.pl");
}

} // namespace
} // namespace brindle
