#include "settings/file_error_prompt.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace brindle {
namespace {

struct Expected {
    const char* Text;
    MessageButtons Buttons;
};

const std::map<int, Expected> AllTexts{
    {52,
     {"That filename is illegal.\r\nCheck the filename for improper format or illegal characters.",
      MessageButtons::Ok}},
    {53, {"File not found.", MessageButtons::Ok}},
    {54, {"Can't open your file for that type of access.", MessageButtons::Ok}},
    {55, {"This file is already open.", MessageButtons::Ok}},
    {57, {"Internal disk error.", MessageButtons::Ok}},
    {58, {"File already exists.  Overwrite the file?", MessageButtons::YesNo}},
    {59, {"Bad record length.", MessageButtons::Ok}},
    {61, {"Disk is full. \r\nClear some space and Retry or press Cancel.", MessageButtons::RetryCancel}},
    {62,
     {"This file has a nonstandard end-of-file marker, "
      "or an attempt was made to read beyond "
      "the end-of-file marker.",
      MessageButtons::Ok}},
    {63, {"Bad record number.", MessageButtons::Ok}},
    {64,
     {"That filename is illegal.\r\nCheck the filename for improper format or illegal characters.",
      MessageButtons::Ok}},
    {67, {"Can't open file.  Too many files are open.", MessageButtons::Ok}},
    {68, {"That device appears unavailable.", MessageButtons::RetryCancel}},
    {70, {"Access denied.  File may be locked or in use by another program.", MessageButtons::Ok}},
    {71, {"Drive not ready.  Insert disk and select Retry or press Cancel.", MessageButtons::RetryCancel}},
    {74, {"Can't rename with different drive.", MessageButtons::Ok}},
    {75, {"The selected path can not be accessed.", MessageButtons::Ok}},
    {76, {"That path doesn't exist.", MessageButtons::Ok}},
};

int Answered(int number, MessageAnswer answer) {
    return static_cast<int>(FileErrorPrompt(number, [answer](const MessageBox& /*box*/) { return answer; }));
}

TEST(FileErrorPrompt, ShowsTheTextAndButtonsOfEachErrorUnderDiskErrorAndNoBoxForAnyOther) {
    for (int number = -10; number <= 1000; ++number) {
        std::vector<MessageBox> boxes;
        const FileAction action = FileErrorPrompt(number, [&boxes](const MessageBox& box) {
            boxes.push_back(box);
            return MessageAnswer::Cancel;
        });
        const auto expected = AllTexts.find(number);
        if (expected == AllTexts.end()) {
            EXPECT_TRUE(boxes.empty()) << number;
            EXPECT_EQ(FileAction::NotRecognised, action) << number;
            continue;
        }
        ASSERT_EQ(1U, boxes.size()) << number;
        EXPECT_EQ(expected->second.Text, boxes[0].Text);
        EXPECT_EQ(expected->second.Buttons, boxes[0].Buttons) << number;
        EXPECT_EQ(MessageIcon::Exclamation, boxes[0].Icon) << number;
        EXPECT_EQ("Disk Error", boxes[0].Title) << number;
        EXPECT_EQ(FileAction::GiveUp, action) << number;
    }
}

TEST(FileErrorPrompt, AnOverwriteAnsweredYesReturns4AndNo2) {
    EXPECT_EQ(4, Answered(58, MessageAnswer::Yes));
    EXPECT_EQ(2, Answered(58, MessageAnswer::No));
}

TEST(FileErrorPrompt, ARetryReturns0AndACancel2) {
    for (const int number : {61, 68, 71}) {
        EXPECT_EQ(0, Answered(number, MessageAnswer::Retry)) << number;
        EXPECT_EQ(2, Answered(number, MessageAnswer::Cancel)) << number;
    }
}

TEST(FileErrorPrompt, AnOkOrAbortReturns2) {
    EXPECT_EQ(2, Answered(53, MessageAnswer::Ok));
    EXPECT_EQ(2, Answered(53, MessageAnswer::Abort));
}

TEST(FileErrorPrompt, AnIgnoreReturns1) {
    EXPECT_EQ(1, Answered(61, MessageAnswer::Ignore));
}

TEST(FileErrorPrompt, YesMeansOverwriteForTheOverwriteQuestionAlone) {
    EXPECT_EQ(0, Answered(61, MessageAnswer::Yes));
    EXPECT_EQ(4, Answered(58, MessageAnswer::Retry));
}

TEST(FileErrorPrompt, AnAnswerThatIsNoButtonReturns3) {
    EXPECT_EQ(3, Answered(53, static_cast<MessageAnswer>(99)));
}

} // namespace
} // namespace brindle
