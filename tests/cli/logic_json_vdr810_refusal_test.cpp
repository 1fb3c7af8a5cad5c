#include "cli/logic_json.h"
#include "support/vdr810_scheme.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// What the JSON of a VDR810 may not say.
namespace brindle {
namespace {

/// Three groups, two banks; group 1, timer 1 is used and mapped.
std::string RelayJson() {
    LogicConfig config = SchemeLists(2.3, 12, 3);
    config.Group(1).Unit(1).Inputs[4] = 256 - 20;
    config.Group(1).Timer(1) = {250, 61005};
    config.Group(1).OutputMap(1, 2) = 0x8000;
    return LogicToJson(config);
}

struct Slip {
    std::string From; ///< its first occurrence is replaced
    std::string To;
    std::string Refusal;
};

/// What is said of the JSON with one thing in it replaced, after seeing that a logic to be filled is
/// untouched.
std::string RefusalOfSlip(const std::string& from, const std::string& to) {
    std::string json = RelayJson();
    const std::size_t at = json.find(from);
    EXPECT_NE(std::string::npos, at) << from;
    json.replace(at, from.size(), to);
    LogicConfig config;
    config.Group(1).Unit(1).Inputs.fill(42);
    const LogicConfig before = config;
    std::string refusal = LogicFromJson(json, config);
    if (!refusal.empty()) {
        EXPECT_EQ(before.Groups, config.Groups);
        EXPECT_EQ(before.RelayModel, config.RelayModel);
        EXPECT_EQ(before.Vdr810, config.Vdr810);
    }
    return refusal;
}

void ExpectRefused(const std::vector<Slip>& slips) {
    for (const Slip& slip : slips) {
        EXPECT_EQ(slip.Refusal, RefusalOfSlip(slip.From, slip.To)) << slip.From << " -> " << slip.To;
    }
}

void ExpectTaken(const std::string& from, const std::string& to) {
    EXPECT_EQ("", RefusalOfSlip(from, to)) << from << " -> " << to;
}

const std::string Identity = "\"Feeder scheme\"";

TEST(Vdr810JsonRefusal, TheIdentityIsOneField) {
    const std::string line = "header.identity: a comma or line end, which the file has no place for";
    ExpectRefused({
        {Identity, "\"Feeder, scheme\"", line},
        {Identity, "\"Feeder\\nscheme\"", line},
        {Identity, "\"Feeder\\r\"", line},
        {Identity, "\"\u20AC\"", "header.identity: a character above U+00FF"},
        {Identity, "5", "header.identity: 5 is not a text"},
    });
    ExpectTaken(Identity, "\"\"");
    ExpectTaken(Identity, "\" \\t\u00FF\\u0080 \"");
}

TEST(Vdr810JsonRefusal, FormatNumberAndVersionHaveTwoDecimals) {
    const std::string version = "\"settings_version\": ";
    const std::string format = "\"format_number\": ";
    const std::string what = "not a number with two decimals";
    for (const char* text : {"2.3", "2.300", "2", "", " 2.30", "2.30 ", "+2.30", "02.30", "2,30", "-0.00",
                             "nan", "inf", "1e2", "x"}) {
        ExpectRefused(
            {{version + "\"2.30\"", version + "\"" + text + "\"", "header.settings_version: " + what},
             {format + "\"1.00\"", format + "\"" + text + "\"", "header.format_number: " + what}});
    }
    ExpectRefused({{version + "\"2.30\"", version + "2.30", "header.settings_version: 2.30 is not a text"}});
}

TEST(Vdr810JsonRefusal, NumbersThatSinglePrecisionCannotHoldAreRefused) {
    const std::string beyond = "1" + std::string(39, '0') + ".00";
    const std::string tooMany = "too many digits";
    ExpectRefused({
        {"\"1.00\"", "\"" + beyond + "\"", "header.format_number: not a number with two decimals"},
        {"\"1.00\"", "\"16777217.00\"", "header.format_number: " + tooMany},
        {"\"1.00\"", "\"1000000.01\"", "header.format_number: " + tooMany},
    });
    ExpectTaken("\"1.00\"", "\"16777216.00\"");
    ExpectTaken("\"1.00\"", "\"12345.67\"");
}

TEST(Vdr810JsonRefusal, TheVersionIsOneThatNamesAnOptionFile) {
    const std::string version = "\"settings_version\": ";
    for (const char* text : {"-0.01", "1000000.01", "-2.30"}) {
        ExpectRefused({{version + "\"2.30\"", version + "\"" + text + "\"",
                        "header.settings_version: not in 0.00 to 1000000.00"}});
    }
}

TEST(Vdr810JsonRefusal, TheVersionIsThatOfTheHeader) {
    ExpectRefused({{"\"version\": \"2.30\"", "\"version\": \"2.31\"",
                    "version: not \"2.30\", as header.settings_version says"},
                   {"\"settings_version\": \"2.30\"", "\"settings_version\": \"1.00\"",
                    "version: not \"1.00\", as header.settings_version says"}});
}

TEST(Vdr810JsonRefusal, CountsOfTheHeaderAreInRange) {
    const std::string groups = "12,\n    \"group_count\": ";
    const std::string options = " is not in 0 to 32767";
    const std::string word = " is not in -32768 to 32767";
    ExpectRefused({
        {"\"options\": 12", "\"options\": 32768", "header.options: 32768" + options},
        {"\"options\": 12", "\"options\": -1", "header.options: -1" + options},
        {groups + "3", groups + "0", "header.group_count: 0 is not in 1 to 8"},
        {groups + "3", groups + "9", "header.group_count: 9 is not in 1 to 8"},
        {"\"timers\": 6", "\"timers\": 7", "header.timers: 7 is not in 0 to 6"},
        {"\"timers\": 6", "\"timers\": -1", "header.timers: -1 is not in 0 to 6"},
        {"\"latches\": 2", "\"latches\": 3", "header.latches: 3 is not in 0 to 2"},
        {"\"latches\": 2", "\"latches\": -1", "header.latches: -1 is not in 0 to 2"},
        {"\"labels\": 9", "\"labels\": -1", "header.labels: -1 is not in 0 to 32767"},
        {"\"labels\": 9", "\"labels\": 32768", "header.labels: 32768 is not in 0 to 32767"},
        {"\"categories\": 4", "\"categories\": -1", "header.categories: -1 is not in 0 to 32767"},
        {"\"categories\": 4", "\"categories\": 1.5",
         "header.categories: 1.5 is not a whole number in 0 to 32767"},
        {"\"signals\": 256", "\"signals\": 1", "header.signals: 1 is not in 2 to 2147483647"},
        {"\"signals\": 256", "\"signals\": 2147483648",
         "header.signals: 2147483648 is not in 2 to 2147483647"},
        {"\"unconnected\": 255", "\"unconnected\": 32768", "header.unconnected: 32768" + word},
        {"\"unconnected\": 255", "\"unconnected\": -32769", "header.unconnected: -32769" + word},
    });
}

TEST(Vdr810JsonRefusal, OutputsFillAtMostEightBanks) {
    const std::string last = "\"last_output\": 20";
    const std::string first = "\"first_output\": 1";
    ExpectRefused({
        {first, "\"first_output\": -1", "header.first_output: -1 is not in 0 to 32767"},
        {first, "\"first_output\": 21", "header.last_output: 20 is not in 21 to 148"},
        {last, "\"last_output\": 0", "header.last_output: 0 is not in 1 to 128"},
        {last, "\"last_output\": 129", "header.last_output: 129 is not in 1 to 128"},
    });
    ExpectTaken(last, "\"last_output\": 128");
    ExpectTaken(first, "\"first_output\": 0");
    ExpectRefused({{first + ",\n    " + last, "\"first_output\": 32767,\n    \"last_output\": 32768",
                    "header.last_output: 32768 is not in 32767 to 32767"}});
}

TEST(Vdr810JsonRefusal, ThereAreAsManyGroupsAsTheHeaderSays) {
    const std::string groups = "12,\n    \"group_count\": ";
    ExpectRefused({
        {"\"group_count\": 3", "\"group_count\": 8", "group_count: 8 is not in 3 to 3"},
        {groups + "3", groups + "4", "group_count: 3 is not in 4 to 4"},
    });
    std::string json = RelayJson();
    for (int i = 0; i < 2; ++i) {
        json.replace(json.find("\"group_count\": 3"), 16, "\"group_count\": 4");
    }
    LogicConfig config;
    EXPECT_EQ("groups: 3 elements, not 4", LogicFromJson(json, config));
}

TEST(Vdr810JsonRefusal, CodesAndTimesAreSigned32BitNumbers) {
    const std::string range = " is not in -2147483648 to 2147483647";
    ExpectRefused({
        {"\"inputs\": [255", "\"inputs\": [2147483648", "groups[0].units[0].inputs[0]: 2147483648" + range},
        {"\"inputs\": [255", "\"inputs\": [-2147483649", "groups[0].units[0].inputs[0]: -2147483649" + range},
        {"\"drop_out\": 61005", "\"drop_out\": 2147483648",
         "groups[0].units[0].drop_out: 2147483648" + range},
    });
    ExpectTaken("\"inputs\": [255", "\"inputs\": [-2147483648");
    ExpectTaken("\"inputs\": [255", "\"inputs\": [2147483647");
}

TEST(Vdr810JsonRefusal, WordsBeyondTheBanksOfTheOutputsAreZero) {
    const std::string slot = "[0, 32768, 0, 0, 0, 0, 0, 0]";
    ExpectRefused({
        {slot, "[0, 32768, 1, 0, 0, 0, 0, 0]", "groups[0].output_map[0][2]: 1 is not in 0 to 0"},
        {slot, "[0, 4294967296, 0, 0, 0, 0, 0, 0]",
         "groups[0].output_map[0][1]: 4294967296 is not in 0 to 4294967295"},
        {slot, "[-1, 0, 0, 0, 0, 0, 0, 0]", "groups[0].output_map[0][0]: -1 is not in 0 to 4294967295"},
        {"\"last_output\": 20", "\"last_output\": 16", "groups[0].output_map[0][1]: 32768 is not in 0 to 0"},
    });
    ExpectTaken(slot, "[4294967295, 4294967295, 0, 0, 0, 0, 0, 0]");
    ExpectTaken("\"last_output\": 20", "\"last_output\": 17");
}

TEST(Vdr810JsonRefusal, ALogicHasAUnit) {
    const std::string both = "\"timers\": 6,\n    \"latches\": 2";
    ExpectRefused({{both, "\"timers\": 0,\n    \"latches\": 0",
                    "header.latches: 0, as header.timers is, and no unit is left"}});
    ExpectTaken(both, "\"timers\": 1,\n    \"latches\": 0");
}

TEST(Vdr810JsonRefusal, UnitsThatTheHeaderDoesNotPromiseAreEmpty) {
    const std::string what = ": not empty, and the header promises no such unit";
    ExpectRefused({{"\"timers\": 6", "\"timers\": 0", "groups[0].units[0]" + what}});
    ExpectTaken("\"timers\": 6", "\"timers\": 1");
    ExpectTaken("\"latches\": 2", "\"latches\": 0");

    LogicConfig config = SchemeLists(2.3, 12, 3);
    config.Vdr810.LatchCount = 1;
    config.Vdr810.TimerCount = 5;
    LogicConfig read;
    EXPECT_EQ("", LogicFromJson(LogicToJson(config), read));
    const auto refusalWith = [&config](const auto& change) {
        LogicConfig changed = config;
        change(changed.Group(3));
        LogicConfig filled;
        return LogicFromJson(LogicToJson(changed), filled);
    };
    EXPECT_EQ("groups[2].units[5]" + what,
              refusalWith([](LogicGroup& group) { group.Timer(6).DropOut = 1; }));
    EXPECT_EQ("groups[2].units[8]" + what, refusalWith([](LogicGroup& group) { group.OutputMap(8, 1) = 1; }));
    EXPECT_EQ("groups[2].units[9]" + what,
              refusalWith([](LogicGroup& group) { group.Unit(10).Inputs[15] = 0; }));
    EXPECT_EQ("", refusalWith([](LogicGroup& group) { group.OutputMap(7, 1) = 1; }));
}

TEST(Vdr810JsonRefusal, EveryFieldOfTheHeaderMustBeThereOnce) {
    for (const char* field :
         {"identity", "format_number", "settings_version", "options", "timers", "latches", "labels",
          "categories", "signals", "first_output", "last_output", "unconnected"}) {
        const std::string name = "\"" + std::string(field) + "\"";
        EXPECT_EQ("header.Other" + std::string(field) + ": unknown field",
                  RefusalOfSlip(name, "\"Other" + std::string(field) + "\""));
        EXPECT_EQ("header." + std::string(field) + ": given twice",
                  RefusalOfSlip("\"header\": {", "\"header\": {" + name + ": 1,"));
    }
    ExpectRefused({
        {",\n    \"unconnected\": 255", "", "header.unconnected: missing"},
        {"    \"options\": 12,\n", "", "header.options: missing"},
    });
}

TEST(Vdr810JsonRefusal, TheHeaderIsThatOfTheModel) {
    const std::string refusal = RefusalOfSlip("\"relay_model\": 2", "\"relay_model\": 1");
    EXPECT_EQ(0U, refusal.find("header.")) << refusal;
    EXPECT_NE(std::string::npos, refusal.find(": unknown field")) << refusal;
    ExpectRefused({
        {"\"relay_model\": 2", "\"relay_model\": 3", "relay_model: 3 is not in 1 to 2"},
        {"\"relay_model\": 2", "\"relay_model\": 0", "relay_model: 0 is not in 1 to 2"},
    });
}

} // namespace
} // namespace brindle
