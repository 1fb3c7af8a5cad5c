#include "editor/timer_entry.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace brindle {
namespace {

TEST(DelayOfText, TakesWholeNumbersFromZeroToTenMinutes) {
    EXPECT_EQ(DelayOfText("0"), 0);
    EXPECT_EQ(DelayOfText("600000"), 600000);
    EXPECT_EQ(DelayOfText("600001"), std::nullopt);
    EXPECT_EQ(DelayOfText("-1"), std::nullopt);
    EXPECT_EQ(DelayOfText("2147483647"), std::nullopt);
}

TEST(DelayOfText, LeadingZerosDoNotCount) {
    EXPECT_EQ(DelayOfText("000"), 0);
    EXPECT_EQ(DelayOfText("0075"), 75);
}

TEST(DelayOfText, BlanksAroundTheNumberDoNotCount) {
    EXPECT_EQ(DelayOfText("  75 "), 75);
    EXPECT_EQ(DelayOfText("\t75\r\n"), 75);
    EXPECT_EQ(DelayOfText("\xC2\xA0 75\xE2\x80\xAF\xE2\x80\xA8"), 75) << "as tables and documents write them";
    EXPECT_EQ(DelayOfText("7 5"), std::nullopt);
    EXPECT_EQ(DelayOfText("\xC2\xA0"), std::nullopt);
}

TEST(DelayOfText, OnePlusSignDoesNotCount) {
    EXPECT_EQ(DelayOfText("+75"), 75);
    for (const char* text : {"+", "++75", "+-75", "+ 75"}) {
        EXPECT_EQ(DelayOfText(text), std::nullopt) << text;
    }
}

TEST(DelayOfText, ANumberBeyond32BitsIsNone) {
    EXPECT_EQ(DelayOfText("4294967296"), std::nullopt); // would be 0 in 32 bits
    EXPECT_EQ(DelayOfText("99999999999999999999"), std::nullopt);
    EXPECT_EQ(DelayOfText("-99999999999999999999"), std::nullopt);
}

TEST(DelayOfText, OtherTextsAreNone) {
    for (const char* text :
         {"", " ", "abc", "5x", "x5", "1.5", "1,000", "1e3", "0x10", "+-5", "--5", "\xD9\xA5"}) {
        EXPECT_EQ(DelayOfText(text), std::nullopt) << text;
    }
}

RC_GTEST_PROP(DelayOfText, TakesEveryDelayInEverySpelling, ()) {
    const auto delay = *rc::gen::inRange<std::int32_t>(0, LongestDelay + 1);
    const std::string zeros(*rc::gen::inRange<std::size_t>(0, 20), '0');
    const std::string blanks(*rc::gen::inRange<std::size_t>(0, 3), ' ');
    RC_ASSERT(DelayOfText(blanks + zeros + std::to_string(delay) + blanks) == delay);
}

RC_GTEST_PROP(DelayOfText, TakesNoOtherNumber, (std::int64_t number)) {
    RC_PRE(number < 0 || number > LongestDelay);
    RC_ASSERT(DelayOfText(std::to_string(number)) == std::nullopt);
}

RC_GTEST_PROP(DelayOfText, TakesNoTextWithACharacterThatIsNeitherDigitNorBlankNorSign, ()) {
    std::string text = std::to_string(*rc::gen::inRange<std::int32_t>(0, LongestDelay + 1));
    const auto isForeign = [](char character) {
        const bool belongs =
            (character >= '0' && character <= '9') || (character >= '\t' && character <= '\r');
        return !belongs && character != ' ' && character != '+';
    };
    const char foreign = *rc::gen::suchThat(rc::gen::arbitrary<char>(), isForeign);
    text.insert(*rc::gen::inRange<std::size_t>(0, text.size() + 1), 1, foreign);
    // "-0" is a whole number in the range.
    RC_ASSERT(text == "-0" || DelayOfText(text) == std::nullopt);
}

TEST(TimerKey, DigitsAndBackspacePass) {
    for (char32_t digit = U'0'; digit <= U'9'; ++digit) {
        EXPECT_EQ(JudgeTimerKey(digit), KeyVerdict::Accepted);
    }
    EXPECT_EQ(JudgeTimerKey(8), KeyVerdict::Accepted);
}

TEST(TimerKey, EnterIsSwallowed) {
    EXPECT_EQ(JudgeTimerKey(13), KeyVerdict::Swallowed);
}

TEST(TimerKey, EveryOtherCharacterIsRefused) {
    for (const char32_t character : {U'a', U' ', U'-', U'+', U'.', U'/', U':', U'\u0665', U'\x1F600'}) {
        EXPECT_EQ(JudgeTimerKey(character), KeyVerdict::Refused);
    }
}

TEST(TimerNotices, AreLetterForLetter) {
    EXPECT_EQ(DelayRangeNotice().Text, "An integer in the range 0 to 600000 must be entered.");
    EXPECT_EQ(TimerKeyNotice().Text,
              "An integer number must be entered.  Only number keys 0 to 9 are allowed.");
    for (const MessageBox& notice : {DelayRangeNotice(), TimerKeyNotice()}) {
        EXPECT_EQ(notice.Icon, MessageIcon::Exclamation);
        EXPECT_EQ(notice.Buttons, MessageButtons::Ok);
        EXPECT_EQ(notice.Title, DefaultMessageTitle);
    }
}

} // namespace
} // namespace brindle
