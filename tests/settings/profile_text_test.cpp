#include "settings/profile_text.h"

#include <gtest/gtest.h>

#include <string>

namespace brindle {
namespace {

using Value = std::optional<std::string>;

TEST(ProfileText, AValueIsFoundByItsSectionAndKey) {
    const std::string text = "[A]\r\nKey=1\r\n[B]\r\nKey=2\r\n";
    EXPECT_EQ(Value("1"), FindProfileValue(text, "A", "Key"));
    EXPECT_EQ(Value("2"), FindProfileValue(text, "B", "Key"));
}

TEST(ProfileText, WhatIsMissingHasNoValue) {
    EXPECT_EQ(Value(), FindProfileValue("", "A", "Key"));
    EXPECT_EQ(Value(), FindProfileValue("[A]\r\nOther=1\r\n", "A", "Key"));
    EXPECT_EQ(Value(), FindProfileValue("[A]\r\nKey=1\r\n", "B", "Key"));
}

TEST(ProfileText, AKeyWithoutTextHasAnEmptyValue) {
    EXPECT_EQ(Value(""), FindProfileValue("[A]\r\nKey=\r\n", "A", "Key"));
    EXPECT_EQ(Value(""), FindProfileValue("[A]\r\nKey=   \r\n", "A", "Key"));
}

TEST(ProfileText, TheCaseOfLettersCountsForNothing) {
    EXPECT_EQ(Value("1"), FindProfileValue("[bRINDLE]\r\nhomeDIR=1\r\n", "Brindle", "HomeDir"));
    EXPECT_EQ(Value(), FindProfileValue("[\xC4]\r\nKey=1\r\n", "\xE4", "Key")); // letters of ASCII only
}

TEST(ProfileText, ANameIsNotThatOfALongerOne) {
    const std::string text = "[Brindle Recent]\r\nRecent0=a\r\n[Brindle]\r\nRecent=b\r\n";
    EXPECT_EQ(Value(), FindProfileValue(text, "Brindle", "Recent0"));
    EXPECT_EQ(Value(), FindProfileValue(text, "Brindle Recent", "Recent"));
}

TEST(ProfileText, BlanksAroundNamesAndValuesCountForNothing) {
    EXPECT_EQ(Value("a  b"), FindProfileValue(" [ A ] \n \tKey =  a  b \t\n", "A", "Key"));
}

TEST(ProfileText, OnePairOfEqualQuotesIsStripped) {
    const auto read = [](const std::string& value) {
        return *FindProfileValue("[A]\nKey=" + value, "A", "Key");
    };
    EXPECT_EQ(" a ", read("\" a \""));
    EXPECT_EQ(" a ", read("' a '"));
    EXPECT_EQ("\"a\"", read("\"\"a\"\""));
    EXPECT_EQ("", read("''"));
    EXPECT_EQ("\"a'", read("\"a'"));
    EXPECT_EQ("'", read("'"));
    EXPECT_EQ("a'", read("a'"));
}

TEST(ProfileText, AValueKeepsItsEqualsSignsAndSemicolons) {
    EXPECT_EQ(Value("a=b;c"), FindProfileValue("[A]\nKey=a=b;c\n", "A", "Key"));
}

TEST(ProfileText, AValueEndsAtItsFirstZeroByte) {
    const std::string text = std::string("[A]\nKey=ab") + '\0' + "cd\n";
    EXPECT_EQ(Value("ab"), FindProfileValue(text, "A", "Key"));
}

TEST(ProfileText, ACommentIsNoKey) {
    EXPECT_EQ(Value(), FindProfileValue("[A]\n;Key=1\n ; Key=2\n", "A", "; Key"));
}

TEST(ProfileText, TextBeforeTheFirstSectionMeansNothing) {
    EXPECT_EQ(Value(), FindProfileValue("Key=1\n[A]\n", "A", "Key"));
}

TEST(ProfileText, AHeadingNeedsItsClosingBracket) {
    EXPECT_EQ(Value("1"), FindProfileValue("[A]\n[B\nKey=1\n", "A", "Key"));
    EXPECT_EQ(Value("1"), FindProfileValue("[A] and more\nKey=1\n", "A", "Key"));
}

TEST(ProfileText, TheFirstOfTwoSectionsOrKeysCounts) {
    const std::string text = "[A]\nKey=1\nKey=2\n[A]\nKey=3\nOther=4\n";
    EXPECT_EQ(Value("1"), FindProfileValue(text, "A", "Key"));
    EXPECT_EQ(Value(), FindProfileValue(text, "A", "Other"));
}

TEST(ProfileText, AByteOrderMarkDoesNotHideTheFirstSection) {
    const std::string text = "\xEF\xBB\xBF[A]\r\nKey=1\r\n";
    EXPECT_EQ(Value("1"), FindProfileValue(text, "A", "Key"));
    EXPECT_EQ("\xEF\xBB\xBF", DeleteProfileSection(text, "A"));
    EXPECT_EQ("\xEF\xBB\xBF[A]\r\nKey=1\r\n", SetProfileValue("\xEF\xBB\xBF", "A", "Key", "1"));
}

TEST(ProfileInteger, TakesAMinusAndTheLeadingDigits) {
    EXPECT_EQ(120, ProfileInteger("120", 7));
    EXPECT_EQ(-120, ProfileInteger("-120 twips", 7));
    EXPECT_EQ(12, ProfileInteger("12.5", 7));
    EXPECT_EQ(0, ProfileInteger("0x10", 7));
}

TEST(ProfileInteger, WithoutDigitsIsTheDefault) {
    for (const char* value : {"", "-", "+1", "a1", "- 1", "--1", ".5"}) {
        EXPECT_EQ(7, ProfileInteger(value, 7)) << value;
    }
}

TEST(ProfileInteger, BeyondItsRangeIsTheNearestInIt) {
    EXPECT_EQ(2147483647, ProfileInteger("2147483647", 7));
    EXPECT_EQ(2147483647, ProfileInteger("2147483648", 7));
    EXPECT_EQ(-2147483647 - 1, ProfileInteger("-2147483649", 7));
    EXPECT_EQ(2147483647, ProfileInteger(std::string(400, '9'), 7));
    EXPECT_EQ(-2147483647 - 1, ProfileInteger("-" + std::string(400, '9'), 7));
}

TEST(SetProfileValue, TheFirstKeyOfANewTextGetsItsSectionInCrLf) {
    EXPECT_EQ("[A]\r\nKey=1\r\n", SetProfileValue("", "A", "Key", "1"));
}

TEST(SetProfileValue, AnOldKeyKeepsItsPlaceSpellingAndBlanks) {
    const std::string text = "; top\n[A]\nFirst=1\n KEY = old \n; note\nLast=3\n";
    EXPECT_EQ("; top\n[A]\nFirst=1\n KEY = new \n; note\nLast=3\n", SetProfileValue(text, "A", "Key", "new"));
}

TEST(SetProfileValue, AnEmptyValueIsFilledAfterTheEqualsSign) {
    EXPECT_EQ("[A]\nKey=1\n", SetProfileValue("[A]\nKey=\n", "A", "Key", "1"));
    EXPECT_EQ("[A]\nKey=1", SetProfileValue("[A]\nKey=", "A", "Key", "1"));
}

TEST(SetProfileValue, ANewValueTakesThePlaceOfTheQuotesToo) {
    EXPECT_EQ("[A]\nKey=new\n", SetProfileValue("[A]\nKey=\"old\"\n", "A", "Key", "new"));
}

TEST(SetProfileValue, AValueThatReadsAlikeChangesNothing) {
    const std::string text = "[A]\nKey = \"same\"\n";
    EXPECT_EQ(text, SetProfileValue(text, "A", "key", "same"));
}

TEST(SetProfileValue, AValueThatWouldReadOtherwiseIsWrittenInQuotes) {
    const auto written = [](const std::string& value) {
        std::string text = SetProfileValue("[A]\nKey=1\n", "A", "Key", value);
        EXPECT_EQ(Value(value), FindProfileValue(text, "A", "Key"));
        EXPECT_EQ(text, SetProfileValue(text, "A", "Key", value));
        return text;
    };
    EXPECT_EQ("[A]\nKey=\"  two \"\n", written("  two "));
    EXPECT_EQ("[A]\nKey=\"two\t\"\n", written("two\t"));
    EXPECT_EQ("[A]\nKey=\" \"\n", written(" "));
    EXPECT_EQ("[A]\nKey=\"\"two\"\"\n", written("\"two\""));
    EXPECT_EQ("[A]\nKey=\"' '\"\n", written("' '"));
    EXPECT_EQ("[A]\nKey=\"''\"\n", written("''"));
    EXPECT_EQ("[A]\nKey=\"two\n", written("\"two")) << "a quote at one end is a letter as others";
    EXPECT_EQ("[A]\nKey='\n", written("'"));
    EXPECT_EQ("[A]\nKey=\n", written(""));
}

TEST(SetProfileValue, ANewKeyGoesToTheEndOfItsSectionBeforeTheBlankLines) {
    EXPECT_EQ("[A]\n; note\nOld=1\n; end\nKey=2\n\n \n[B]\n",
              SetProfileValue("[A]\n; note\nOld=1\n; end\n\n \n[B]\n", "A", "Key", "2"));
    EXPECT_EQ("[A]\nKey=2\n\n[B]\n", SetProfileValue("[A]\n\n[B]\n", "A", "Key", "2"));
}

TEST(SetProfileValue, ANewSectionGoesToTheEndOfTheText) {
    EXPECT_EQ("[A]\nKey=1\n\n[B]\nKey=2\n", SetProfileValue("[A]\nKey=1\n\n", "B", "Key", "2"));
    EXPECT_EQ("junk\n[B]\nKey=2\n", SetProfileValue("junk\n", "B", "Key", "2"));
}

TEST(SetProfileValue, AnOpenLastLineIsEndedFirst) {
    EXPECT_EQ("[A]\nOld=1\nKey=2\n", SetProfileValue("[A]\nOld=1", "A", "Key", "2"));
    EXPECT_EQ("[A]\r\n[B]\r\nKey=2\r\n", SetProfileValue("[A]", "B", "Key", "2"));
}

TEST(SetProfileValue, NewLinesEndAsTheFirstLineDoes) {
    EXPECT_EQ("[A]\nOld=1\r\nKey=2\n", SetProfileValue("[A]\nOld=1\r\n", "A", "Key", "2"));
    EXPECT_EQ("[A]\r\nOld=1\nKey=2\r\n", SetProfileValue("[A]\r\nOld=1\n", "A", "Key", "2"));
    EXPECT_EQ("\n[A]\nKey=2\n", SetProfileValue("\n", "A", "Key", "2"));
}

TEST(SetProfileValue, TheFirstOfTwoKeysIsTheOneThatChanges) {
    EXPECT_EQ("[A]\nKey=9\nKey=2\n[A]\nKey=3\n",
              SetProfileValue("[A]\nKey=1\nKey=2\n[A]\nKey=3\n", "A", "Key", "9"));
}

TEST(DeleteProfileKey, TakesItsWholeLineAlone) {
    EXPECT_EQ("[A]\r\n; note\r\nLast=3\r\n",
              DeleteProfileKey("[A]\r\n; note\r\nKEY = 1\r\nLast=3\r\n", "A", "Key"));
    EXPECT_EQ("[A]\n", DeleteProfileKey("[A]\nKey=1", "A", "Key"));
}

TEST(DeleteProfileKey, NoSecondLineOfThatNameComesToCount) {
    EXPECT_EQ("[A]\nOther=2\n", DeleteProfileKey("[A]\nKey=1\nOther=2\nKey=3\n", "A", "Key"));
}

TEST(DeleteProfileKey, WhatIsMissingChangesNothing) {
    const std::string text = "Key=0\n[A]\nOther=1\n[B]\nKey=2\n";
    EXPECT_EQ(text, DeleteProfileKey(text, "A", "Key"));
    EXPECT_EQ(text, DeleteProfileKey(text, "C", "Key"));
}

TEST(DeleteProfileSection, TakesKeysCommentsAndBlankLinesUpToTheNextHeading) {
    EXPECT_EQ("top\n[B]\nKey=2\n", DeleteProfileSection("top\n[A]\nKey=1\n; note\n\n[B]\nKey=2\n", "a"));
    EXPECT_EQ("[B]\nKey=2\n\n", DeleteProfileSection("[B]\nKey=2\n\n[A]\nKey=1\n\n", "A"));
}

TEST(DeleteProfileSection, SparesASectionWhoseNameIsLonger) {
    EXPECT_EQ("[Brindle Recent]\nRecent0=EMPTY\n",
              DeleteProfileSection("[Brindle]\nHomeDir=/a\n[Brindle Recent]\nRecent0=EMPTY\n", "Brindle"));
    EXPECT_EQ("[Brindle Recent]\nRecent0=EMPTY\n",
              DeleteProfileSection("[Brindle Recent]\nRecent0=EMPTY\n[Brindle]\nHomeDir=/a\n", "Brindle"));
}

TEST(DeleteProfileSection, NoSecondSectionOfThatNameComesToCount) {
    EXPECT_EQ("[B]\nKey=2\n", DeleteProfileSection("[A]\nKey=1\n[B]\nKey=2\n[A]\nKey=3\n", "A"));
}

TEST(DeleteProfileSection, WhatIsMissingChangesNothing) {
    EXPECT_EQ("[A]\nKey=1", DeleteProfileSection("[A]\nKey=1", "B"));
}

TEST(IsProfileEntry, TakesNamesAndValuesThatReadBack) {
    EXPECT_TRUE(IsProfileEntry("Brindle Recent", "Recent0", "C:\\a [b]; c=d.pl,1"));
    EXPECT_TRUE(IsProfileEntry("A", "Key", ""));
    EXPECT_TRUE(IsProfileEntry("A", "Key", std::nullopt));
    EXPECT_TRUE(IsProfileEntry("A", std::nullopt, std::nullopt));
}

TEST(IsProfileEntry, RefusesWhatWouldBreakTheFile) {
    const std::string zero(1, '\0');
    for (const std::string& value : {std::string("a\nb"), std::string("a\r"), "a" + zero}) {
        EXPECT_FALSE(IsProfileEntry("A", "Key", value)) << value;
    }
    for (const std::string& key : {std::string(), std::string(" a"), std::string("a "), std::string("a=b"),
                                   std::string(";a"), std::string("[a"), std::string("a\nb"), "a" + zero}) {
        EXPECT_FALSE(IsProfileEntry("A", key, "1")) << key;
    }
    for (const std::string& section :
         {std::string(), std::string(" a"), std::string("a]"), std::string("a\nb")}) {
        EXPECT_FALSE(IsProfileEntry(section, "Key", "1")) << section;
    }
}

} // namespace
} // namespace brindle
