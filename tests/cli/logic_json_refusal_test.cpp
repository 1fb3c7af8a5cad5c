#include "cli/json_text.h"
#include "cli/logic_json.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brindle {
namespace {

std::string NewJson() {
    LogicConfig config;
    MakeNewVdr812(config, Version230);
    return LogicToJson(config);
}

/// What is said of `json`, after seeing that the logic that was to be filled is untouched.
std::string RefusalOf(const std::string& json) {
    LogicConfig config;
    config.Group(1).Unit(1).Inputs.fill(42);
    const LogicConfig before = config;
    std::string refusal = LogicFromJson(json, config);
    if (!refusal.empty()) {
        EXPECT_EQ(before.Groups, config.Groups);
        EXPECT_EQ(before.Header, config.Header);
        EXPECT_EQ(before.Version, config.Version);
    }
    return refusal;
}

/// A new program's JSON with the occurrence number `nth` (from 1) of `from` replaced.
std::string Changed(const std::string& from, const std::string& to, int nth = 1) {
    std::string json = NewJson();
    std::size_t at = json.find(from);
    for (int i = 1; i < nth; ++i) {
        at = json.find(from, at + 1);
    }
    EXPECT_NE(std::string::npos, at) << from;
    return json.replace(at, from.size(), to);
}

struct Case {
    std::string From;
    std::string To;
    std::string Refusal;
    int Nth = 1;
};

void ExpectRefusals(const std::vector<Case>& cases) {
    for (const Case& one : cases) {
        EXPECT_EQ(one.Refusal, RefusalOf(Changed(one.From, one.To, one.Nth))) << one.From << " -> " << one.To;
    }
}

constexpr const char* NoInputs = "[0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0]";

TEST(LogicJsonRefusal, ANewProgramIsNotRefused) {
    EXPECT_EQ("", RefusalOf(NewJson()));
}

TEST(LogicJsonRefusal, ACodeThatDoesNotFitItsByteIsNamedByUnitAndInput) {
    ExpectRefusals({
        {NoInputs, "[0, 0, 0, 0, 0, 300, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0]",
         "groups[0].units[3].inputs[5]: 300 is not in 0 to 255", 4},
        {NoInputs, "[-1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0]",
         "groups[7].units[9].inputs[0]: -1 is not in 0 to 255", 80},
        {NoInputs, "[0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 256]",
         "groups[0].units[0].inputs[15]: 256 is not in 0 to 255"},
    });
}

TEST(LogicJsonRefusal, NumbersMustBeWhole) {
    const std::string where = "groups[0].units[0].pick_up: ";
    const std::string what = " is not a whole number in -2147483648 to 2147483647";
    ExpectRefusals({
        {"\"pick_up\": 0", "\"pick_up\": 1.5", where + "1.5" + what},
        {"\"pick_up\": 0", "\"pick_up\": 1e3", where + "1e3" + what},
        {"\"pick_up\": 0", "\"pick_up\": 2.0", where + "2.0" + what},
        {"\"pick_up\": 0", "\"pick_up\": true", where + "true" + what},
        {"\"pick_up\": 0", "\"pick_up\": null", where + "null" + what},
        {"\"pick_up\": 0", "\"pick_up\": \"5\"", where + "a text" + what},
        {"\"pick_up\": 0", "\"pick_up\": [5]", where + "a list" + what},
        {"\"pick_up\": 0", "\"pick_up\": {}", where + "an object" + what},
    });
}

TEST(LogicJsonRefusal, TimesAndHeaderWordAreSigned32BitNumbers) {
    const std::string range = " is not in -2147483648 to 2147483647";
    ExpectRefusals({
        {"\"pick_up\": 0", "\"pick_up\": 2147483648", "groups[0].units[0].pick_up: 2147483648" + range},
        {"\"drop_out\": 0", "\"drop_out\": -2147483649", "groups[0].units[1].drop_out: -2147483649" + range,
         2},
        {"\"header_word\": 0", "\"header_word\": 4294967295", "header.header_word: 4294967295" + range},
        {"\"header_word\": 0", "\"header_word\": 18446744073709551615",
         "header.header_word: 18446744073709551615" + range},
    });
    EXPECT_EQ("", RefusalOf(Changed("\"pick_up\": 0", "\"pick_up\": -2147483648")));
    EXPECT_EQ("", RefusalOf(Changed("\"pick_up\": 0", "\"pick_up\": 2147483647")));
}

TEST(LogicJsonRefusal, OutputWordsAreUnsigned32BitNumbersAndOnlyTheFirstIsStored) {
    const std::string slot = "        [0, 0, 0, 0, 0, 0, 0, 0]";
    ExpectRefusals({
        {slot, "[4294967296, 0, 0, 0, 0, 0, 0, 0]",
         "groups[0].output_map[0][0]: 4294967296 is not in 0 to 4294967295"},
        {slot, "[-1, 0, 0, 0, 0, 0, 0, 0]", "groups[0].output_map[1][0]: -1 is not in 0 to 4294967295", 2},
        {slot, "[0, 1, 0, 0, 0, 0, 0, 0]", "groups[0].output_map[0][1]: 1 is not in 0 to 0"},
        {slot, "[0, 0, 0, 0, 0, 0, 0, 5]", "groups[1].output_map[7][7]: 5 is not in 0 to 0", 16},
    });
    EXPECT_EQ("", RefusalOf(Changed(slot, "[4294967295, 0, 0, 0, 0, 0, 0, 0]")));
}

TEST(LogicJsonRefusal, ListsHaveTheirExactLength) {
    ExpectRefusals({
        {NoInputs, "[0]", "groups[0].units[0].inputs: 1 elements, not 16"},
        {NoInputs, "[]", "groups[0].units[9].inputs: 0 elements, not 16", 10},
        {NoInputs, "0", "groups[0].units[0].inputs: 0 is not a list"},
        {"[0, 0, 0, 0, 0, 0, 0, 0]", "[0, 0, 0, 0, 0, 0, 0, 0, 0]",
         "groups[0].output_map[0]: 9 elements, not 8"},
        {"\"output_map\": [", "\"output_map\": [[0, 0, 0, 0, 0, 0, 0, 0],",
         "groups[0].output_map: 9 elements, not 8"},
    });
    EXPECT_EQ("groups: 7 elements, not 8", RefusalOf([] {
                  const std::string json = NewJson();
                  const std::size_t first = json.find("    {\n");
                  const std::size_t second = json.find("    {\n", first + 1);
                  return json.substr(0, first) + json.substr(second);
              }()));
}

TEST(LogicJsonRefusal, TextsHaveTheirExactLengthAndOnlyBytes) {
    ExpectRefusals({
        {"\"plcd\"", "\"plc\"", "header.magic: 3 characters, not 4"},
        {"\"plcd\"", "\"plcde\"", "header.magic: 5 characters, not 4"},
        {"\"plcd\"", "\"plc\\u0100\"", "header.magic: a character above U+00FF"},
        {"\"plcd\"", "\"plc\u20AC\"", "header.magic: a character above U+00FF"},
        {"\"plcd\"", "\"plc\U0001F600\"", "header.magic: a character above U+00FF"},
        {"\"plcd\"", "7", "header.magic: 7 is not a text"},
        {"\\u0000\"", "\"", "header.text1: 19 characters, not 20"},
        {"\"2.30  \"", "\"2.30\"", "header.version_text: 4 characters, not 6"},
    });
    EXPECT_EQ("", RefusalOf(Changed("\"plcd\"", "\"pl\u00FF\\u00ff\""))) << "UTF-8 and escapes are one";
}

TEST(LogicJsonRefusal, ModelAndGroupCountAreThoseOfAVdr812) {
    ExpectRefusals({
        {"\"relay_model\": 1", "\"relay_model\": 3", "relay_model: 3 is not in 1 to 2"},
        {"\"group_count\": 8", "\"group_count\": 6", "group_count: 6 is not in 8 to 8"},
    });
}

TEST(LogicJsonRefusal, TheVersionMustBeThatOfTheHeadersText) {
    ExpectRefusals({
        {"\"2.30\"", "\"1.00\"", "version: not \"2.30\", as header.version_text says"},
        {"\"2.30\"", "\"2.3\"", "version: not \"2.30\", as header.version_text says"},
        {"\"2.30\"", "2.30", "version: 2.30 is not a text"},
        {"\"2.30  \"", "\"1.00  \"", "version: not \"1.00\", as header.version_text says"},
    });
}

TEST(LogicJsonRefusal, UnitsStandInTheirOrder) {
    ExpectRefusals({
        {"\"T2\"", "\"T3\"", "groups[0].units[1].tag: not \"T2\""},
        {"\"S1\"", "\"R1\"", "groups[0].units[7].tag: not \"S1\""},
        {"\"T1\"", "\"t1\"", "groups[4].units[0].tag: not \"T1\"", 5},
        {"\"T1\"", "1", "groups[0].units[0].tag: 1 is not a text"},
    });
}

TEST(LogicJsonRefusal, EveryFieldMustBeThere) {
    ExpectRefusals({
        {"\"relay_model\": 1,", "", "relay_model: missing"},
        {"\"magic\": \"plcd\",", "", "header.magic: missing"},
        {", \"drop_out\": 0", "", "groups[0].units[0].drop_out: missing"},
        {"\"tag\": \"R1\", ", "", "groups[0].units[6].tag: missing"},
    });
}

TEST(LogicJsonRefusal, NoFieldMayBeUnknown) {
    ExpectRefusals({
        {"{\n  \"relay_model\"", "{\n  \"comment\": 1, \"relay_model\"", "comment: unknown field"},
        {"\"magic\"", "\"Magic\"", "header.Magic: unknown field"},
        {"\"tag\": \"R1\"", "\"pick_up\": 0, \"tag\": \"R1\"", "groups[0].units[6].pick_up: unknown field"},
        {"\"units\"", "\"unit\"", "groups[0].unit: unknown field"},
    });
}

TEST(LogicJsonRefusal, NoFieldMayBeGivenTwice) {
    ExpectRefusals({
        {"\"relay_model\": 1", "\"relay_model\": 1, \"relay_model\": 1", "relay_model: given twice"},
        {"\"magic\": \"plcd\"", "\"magic\": \"plcd\", \"magic\": \"plcd\"", "header.magic: given twice"},
        {"\"pick_up\": 0", "\"pick_up\": 5, \"pick_up\": 0", "groups[1].units[3].pick_up: given twice", 10},
    });
}

TEST(LogicJsonRefusal, OtherJsonIsNoModel) {
    EXPECT_EQ("a list is not an object", RefusalOf("[]"));
    EXPECT_EQ("null is not an object", RefusalOf("null"));
    EXPECT_EQ("a text is not an object", RefusalOf("\"plcd\""));
    EXPECT_EQ("relay_model: missing", RefusalOf("{}"));
}

TEST(LogicJsonRefusal, TextThatIsNoJsonIsRefusedWithLineAndColumn) {
    EXPECT_EQ(0U, RefusalOf("").find("parse error at line 1, column 1: "));
    EXPECT_EQ(0U, RefusalOf("{\n  \"relay_model\": 1,\n  oops\n}").find("parse error at line 3, column 3: "));
    EXPECT_EQ(0U, RefusalOf(NewJson() + "{}").find("parse error at line "));
    EXPECT_EQ(0U, RefusalOf(std::string("{\"a\xC3\x28\": 1}")).find("parse error at line 1, column 5: "))
        << "ill-formed UTF-8";
    EXPECT_EQ(0U, RefusalOf(std::string("\0\0\0\0", 4)).find("parse error at line 1, column 1: "));
}

TEST(LogicJsonRefusal, ANumberBeyondAllNumbersIsRefused) {
    EXPECT_EQ(0U, RefusalOf(Changed("\"pick_up\": 0", "\"pick_up\": 1e999")).find("number overflow"));
}

/// `levels` lists, each in the one before, closed again.
std::string NestedLists(std::size_t levels) {
    return std::string(levels, '[') + std::string(levels, ']');
}

TEST(LogicJsonRefusal, ListsAndObjectsStandSixteenDeepAndNoDeeper) {
    EXPECT_EQ("a list is not an object", RefusalOf(NestedLists(16)));
    const std::string what = ": more than 16 lists and objects in each other";
    std::string where;
    for (int i = 0; i < 16; ++i) {
        where += "[0]";
    }
    EXPECT_EQ(where + what, RefusalOf(NestedLists(17)));
    EXPECT_EQ("groups[1].a" + where.substr(0, std::size_t{13} * 3) + what,
              RefusalOf("{\"groups\": [0, {\"a\": " + NestedLists(15) + "}]}"));
    EXPECT_EQ(where + what, RefusalOf(std::string(1000000, '['))) << "what follows is not looked at";
}

TEST(LogicJsonRefusal, WhateverIsRefusedTakesOneShortLine) {
    constexpr std::size_t longText = 200000;
    constexpr std::size_t mostLine = 1000;
    const auto repeated = [](const std::string& text) {
        std::string all;
        while (all.size() < longText) {
            all += text;
        }
        return all;
    };
    const std::string name = repeated("k");
    std::string twice = "{\"";
    twice.append(name).append("\": 1, \"").append(name).append("\": 1}");
    for (const std::string& text : {repeated("["),
                                    repeated("{\"a\":"),
                                    repeated("{\"" + std::string(100, 'a') + "\":"),
                                    repeated("t"),
                                    "\"" + repeated("x"),
                                    "\"" + repeated("\xC3\xA9"),
                                    "\"" + repeated("\x01"),
                                    repeated("\xFF"),
                                    repeated("1"),
                                    "-" + repeated("9"),
                                    "0." + repeated("1"),
                                    "1e" + repeated("9"),
                                    "{\"" + name + "\": 1}",
                                    twice,
                                    "{\"" + name + "\": " + NestedLists(17) + "}",
                                    "[" + repeated("1, ") + "1]",
                                    "[" + repeated("1, "),
                                    "{" + repeated("\"k\": 1, ") + "}",
                                    Changed("\"pick_up\": 0", "\"pick_up\": 0." + repeated("1")),
                                    Changed("\"pick_up\": 0", "\"pick_up\": \"" + repeated("x") + "\""),
                                    Changed("\"plcd\"", "\"" + repeated("x") + "\"")}) {
        const std::string refusal = RefusalOf(text);
        EXPECT_NE("", refusal) << text.substr(0, 20);
        EXPECT_LE(refusal.size(), mostLine) << text.substr(0, 20);
    }
}

TEST(LogicJsonRefusal, AnExcerptHasBeginningAndEndAndCutsNoCharacter) {
    EXPECT_EQ("abcdef", Excerpt("abcdef", 6));
    EXPECT_EQ("abcd...ij", Excerpt("abcdefghij", 6));
    EXPECT_EQ("", Excerpt("", 6));
    EXPECT_EQ("\xC3\xA9...\xC3\xA9", Excerpt("\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", 5));
    EXPECT_EQ("\xC3\xA9...", Excerpt("\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", 3));
    const std::string name(100, 'k');
    EXPECT_EQ(std::string(26, 'k') + "..." + std::string(14, 'k') + ": unknown field",
              RefusalOf("{\"" + name + "\": 1}"));
}

} // namespace
} // namespace brindle
