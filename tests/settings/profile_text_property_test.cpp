#include "settings/profile_lines.h"
#include "settings/profile_text.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

namespace brindle {
namespace {

using Value = std::optional<std::string>;

const std::vector<std::string> Sections{"Brindle", "Brindle Recent", "Other"};
const std::vector<std::string> Keys{"HomeDir", "WindowTop", "Recent0"};

/// A file as users, programs and accidents leave it: known lines in any order among all sorts of bytes.
rc::Gen<std::string> AnyText() {
    const auto line =
        rc::gen::oneOf(rc::gen::element<std::string>("[Brindle]", "[ brindle recent ]", "[Other] x", "[Other",
                                                     "HomeDir=/a", "homedir = 'b'", "WindowTop=12",
                                                     "Recent0=EMPTY", "; note", "", "  ", "=", "]"),
                       rc::gen::arbitrary<std::string>());
    const auto ending = rc::gen::element<std::string>("\n", "\r\n", "", "\r");
    return rc::gen::map(
        rc::gen::container<std::vector<std::pair<std::string, std::string>>>(rc::gen::pair(line, ending)),
        [](const std::vector<std::pair<std::string, std::string>>& lines) {
            std::string text;
            for (const auto& [content, end] : lines) {
                text += content + end;
            }
            return text;
        });
}

/// Any text that can be stored, bare or among the blanks and quotes that a reader takes off.
rc::Gen<std::string> AnyStorable() {
    const auto edge = rc::gen::element<std::string>("", " ", "\t", "\"", "'", "\" ", " '");
    return rc::gen::map(rc::gen::tuple(edge, rc::gen::arbitrary<std::string>(), edge),
                        [](const std::tuple<std::string, std::string, std::string>& parts) {
                            std::string text = std::get<0>(parts) + std::get<1>(parts) + std::get<2>(parts);
                            std::erase_if(text, [](char c) { return c == '\r' || c == '\n' || c == '\0'; });
                            return text;
                        });
}

/// Any name that a section and a key can have.
rc::Gen<std::string> AnyName() {
    return rc::gen::map(AnyStorable(), [](std::string text) {
        std::erase_if(text, [](char c) { return c == '=' || c == ']' || c == ';' || c == '['; });
        const std::string name(TrimProfileText(text));
        return name.empty() ? "'" : name;
    });
}

std::vector<Value> AllValues(const std::string& text) {
    std::vector<Value> values;
    for (const std::string& section : Sections) {
        for (const std::string& key : Keys) {
            values.push_back(FindProfileValue(text, section, key));
        }
    }
    return values;
}

std::size_t CommonStart(const std::string& a, const std::string& b) {
    return static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
}

RC_GTEST_PROP(ProfileText, AWrittenValueReadsBackInAnyFile, ()) {
    const std::string text = *AnyText();
    const std::string section = *rc::gen::elementOf(Sections);
    const std::string key = *rc::gen::elementOf(Keys);
    const std::string value = *AnyStorable();
    const std::string edited = SetProfileValue(text, section, key, value);
    RC_ASSERT(FindProfileValue(edited, section, key) == Value(value));
    RC_ASSERT(SetProfileValue(edited, section, key, value) == edited);
}

RC_GTEST_PROP(ProfileText, WhatIsReadUnderAnyKeyIsWrittenAndReadTheSame, ()) {
    const std::string section = *AnyName();
    const std::string key = *AnyName();
    RC_ASSERT(IsProfileEntry(section, key, ""));
    const std::string text = "[" + section + "]\n" + key + "=" + *AnyStorable() + "\n";
    const Value read = FindProfileValue(text, section, key);
    RC_ASSERT(read.has_value());
    RC_ASSERT(SetProfileValue(text, section, key, *read) == text);
    const std::string moved = SetProfileValue("", section, key, *read);
    RC_ASSERT(FindProfileValue(moved, section, key) == read);
}

RC_GTEST_PROP(ProfileText, WritingOneKeyLeavesEveryOtherValue, ()) {
    const std::string text = *AnyText();
    const auto section = *rc::gen::inRange<std::size_t>(0, Sections.size());
    const auto key = *rc::gen::inRange<std::size_t>(0, Keys.size());
    std::vector<Value> expected = AllValues(text);
    expected[section * Keys.size() + key] = "new";
    RC_ASSERT(AllValues(SetProfileValue(text, Sections[section], Keys[key], "new")) == expected);
}

RC_GTEST_PROP(ProfileText, WritingAnOldKeyChangesBytesOfItsLineAlone, ()) {
    const std::string section = *rc::gen::elementOf(Sections);
    const std::string key = *rc::gen::elementOf(Keys);
    const std::string text = SetProfileValue(*AnyText(), section, key, *AnyStorable());
    const ProfileLine line = *FindProfileKey(text, *FindProfileSection(text, section), key);
    const std::string edited = SetProfileValue(text, section, key, "new");
    RC_ASSERT(edited.substr(0, line.Begin) == text.substr(0, line.Begin));
    RC_ASSERT(edited.ends_with(text.substr(line.Next)));
}

RC_GTEST_PROP(ProfileText, ANewKeyOnlyAddsBytes, ()) {
    const std::string text = *AnyText();
    const std::string section = *rc::gen::elementOf(Sections);
    const std::string edited = SetProfileValue(text, section, "NewKey", "value");
    const std::size_t start = CommonStart(text, edited);
    RC_ASSERT(edited.size() > text.size());
    RC_ASSERT(edited.ends_with(text.substr(start)));
}

RC_GTEST_PROP(ProfileText, ADeletedKeyIsMissingAndTheOthersStay, ()) {
    const std::string text = *AnyText();
    const auto section = *rc::gen::inRange<std::size_t>(0, Sections.size());
    const auto key = *rc::gen::inRange<std::size_t>(0, Keys.size());
    std::vector<Value> expected = AllValues(text);
    expected[section * Keys.size() + key] = std::nullopt;
    RC_ASSERT(AllValues(DeleteProfileKey(text, Sections[section], Keys[key])) == expected);
}

RC_GTEST_PROP(ProfileText, ADeletedSectionIsMissingAndTheOthersStay, ()) {
    const std::string text = *AnyText();
    const auto section = *rc::gen::inRange<std::size_t>(0, Sections.size());
    std::vector<Value> expected = AllValues(text);
    for (std::size_t key = 0; key < Keys.size(); ++key) {
        expected[section * Keys.size() + key] = std::nullopt;
    }
    const std::string edited = DeleteProfileSection(text, Sections[section]);
    RC_ASSERT(AllValues(edited) == expected);
    RC_ASSERT(!FindProfileSection(edited, Sections[section]).has_value());
}

RC_GTEST_PROP(ProfileText, DeletingWhatWasAddedGivesTheOldTextOfWholeLines, ()) {
    std::string text = *AnyText();
    text += "\n";
    RC_PRE(!FindProfileSection(text, "New").has_value());
    RC_ASSERT(DeleteProfileSection(SetProfileValue(text, "New", "Key", "1"), "New") == text);
}

} // namespace
} // namespace brindle
