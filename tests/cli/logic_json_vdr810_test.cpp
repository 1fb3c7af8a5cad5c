#include "cli/logic_json.h"
#include "files/vdr810_reader.h"
#include "files/vdr810_writer.h"
#include "model/output_map.h"
#include "support/vdr810_scheme.h"
#include "support/vdr810_text.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <random>

namespace brindle {
namespace {

LogicConfig SchemeLogic() {
    LogicConfig config = SchemeLists(2.3, 12, 3);
    DecodeVdr810(SchemeLogicFile(2.3, 12, 3), "x.c10", config);
    return config;
}

std::string SchemeJson() {
    return LogicToJson(SchemeLogic());
}

TEST(Vdr810Json, HoldsTheWholeHeadOneFieldALine) {
    const std::string head = "{\n  \"relay_model\": 2,\n  \"version\": \"2.30\",\n  \"group_count\": 3,\n"
                             "  \"header\": {\n    \"identity\": \"Feeder scheme\",\n"
                             "    \"format_number\": \"1.00\",\n    \"settings_version\": \"2.30\",\n"
                             "    \"options\": 12,\n    \"group_count\": 3,\n    \"timers\": 6,\n"
                             "    \"latches\": 2,\n    \"labels\": 9,\n    \"categories\": 4,\n"
                             "    \"signals\": 256,\n    \"first_output\": 1,\n    \"last_output\": 20,\n"
                             "    \"unconnected\": 255\n  },\n  \"groups\": [\n    {\n      \"units\": [\n"
                             "        {\"tag\": \"T1\", \"inputs\": [255, 255, 255, 255, 236, ";
    EXPECT_EQ(head, SchemeJson().substr(0, head.size()));
}

TEST(Vdr810Json, HoldsEveryBankOfASlot) {
    EXPECT_NE(std::string::npos, SchemeJson().find("\n        [0, 32768, 0, 0, 0, 0, 0, 0],\n"));
}

TEST(Vdr810Json, ReadsBackWhatWasWrittenButTheLists) {
    LogicConfig read;
    read.FileTitle = "title";
    ASSERT_EQ("", LogicFromJson(SchemeJson(), read));
    LogicConfig withoutLists = SchemeLogic();
    withoutLists.Lists = {};
    EXPECT_TRUE(SameVdr810(withoutLists, read));
    EXPECT_EQ("title", read.FileTitle) << "the caller's";
}

TEST(Vdr810Json, LeavesNothingOfTheLogicThatWasThere) {
    LogicConfig read;
    MakeNewVdr812(read, Version100);
    read.Header.HeaderWord = 7;
    read.Group(8).Unit(1).Inputs.fill(42);
    ASSERT_EQ("", LogicFromJson(SchemeJson(), read));
    EXPECT_EQ(SchemeLogic().Groups, read.Groups) << "groups beyond the count are unconnected";
    EXPECT_EQ(ProgramHeader{}, read.Header);
    ASSERT_EQ("", LogicFromJson(LogicToJson(LogicConfig{}), read));
    EXPECT_EQ(Vdr810Header{}, read.Vdr810) << "and the other way round";
}

/// A relay and its logic drawn from `seed`: every count, and any 32 bits wherever the file has a place.
LogicConfig LogicOfSeed(std::uint32_t seed) {
    std::mt19937 random(seed);
    const auto upTo = [&random](int least, int most) {
        return static_cast<std::int16_t>(std::uniform_int_distribution<int>(least, most)(random));
    };
    Vdr810Head head;
    for (int size = upTo(0, 30); size > 0; --size) {
        const auto c = static_cast<char>(upTo(-128, 127));
        head.Identity += c == ',' || c == '\r' || c == '\n' ? ' ' : c;
    }
    head.FormatNumber = static_cast<float>(upTo(-999, 9999)) / 100;
    head.SettingsVersion = upTo(0, 32767) / 100.0;
    head.Version = static_cast<float>(head.SettingsVersion);
    head.Options = upTo(0, 32767);
    head.Groups = upTo(1, MaxGroups);
    head.Timers = upTo(0, TimersPerGroup);
    head.Latches = upTo(head.Timers == 0 ? 1 : 0, LatchesPerGroup);
    head.Labels = upTo(0, 32767);
    head.Categories = upTo(0, 32767);
    head.Signals = 2 + static_cast<std::int32_t>(random() & 0x3FFFFFFFU);
    head.FirstOutput = upTo(0, 32600);
    head.LastOutput = static_cast<std::int16_t>(head.FirstOutput + upTo(0, MapBanks * OutputsPerBank - 1));
    LogicConfig config;
    config.Coding.FalseCode = upTo(-32768, 32767);
    BecomeVdr810(config, head);
    const auto word = [&random] { return static_cast<std::int32_t>(random()); };
    for (int g = 1; g <= config.GroupCount; ++g) {
        LogicGroup& group = config.Group(g);
        for (const UnitInfo& unit : UnitTable) {
            if (!HasUnit(config, unit.Number)) {
                continue;
            }
            for (UnitInput& input : group.Unit(unit.Number).Inputs) {
                input = word();
            }
            for (int bank = 1; bank <= BankCount(config); ++bank) {
                group.OutputMap(unit.MapSlot, bank) = static_cast<std::uint32_t>(word());
            }
            if (IsTimer(unit.Number)) {
                group.Timer(unit.Number) = {word(), word()};
            }
        }
    }
    return config;
}

RC_GTEST_PROP(Vdr810Json, AnyLogicFileComesBackByteForByte, (std::uint32_t seed)) {
    const LogicConfig written = LogicOfSeed(seed);
    const std::string file = EncodeVdr810(written);
    LogicConfig decoded;
    decoded.Coding.FalseCode = written.Coding.FalseCode; // an option file's matter
    RC_ASSERT(DecodeVdr810(file, "x.c10", decoded).Done());
    const std::string json = LogicToJson(decoded);
    LogicConfig read;
    RC_ASSERT(LogicFromJson(json, read) == "");
    RC_ASSERT(EncodeVdr810(read) == file);
    RC_ASSERT(LogicToJson(read) == json);
    RC_ASSERT(SameVdr810(decoded, read));
}

RC_GTEST_PROP(Vdr810Json, ADamagedByteIsRefusedOrMakesAFileThatReads, ()) {
    std::string json = SchemeJson();
    const auto at = *rc::gen::inRange<std::size_t>(0, json.size());
    json.at(at) = *rc::gen::arbitrary<char>();
    LogicConfig read;
    const LogicConfig before = read;
    if (LogicFromJson(json, read).empty()) {
        LogicConfig decoded;
        decoded.Coding.FalseCode = read.Coding.FalseCode;
        RC_ASSERT(DecodeVdr810(EncodeVdr810(read), "x.c10", decoded).Done());
        RC_ASSERT(SameVdr810(decoded, read));
    } else {
        RC_ASSERT(read.Groups == before.Groups);
        RC_ASSERT(read.RelayModel == before.RelayModel);
    }
}

RC_GTEST_PROP(Vdr810Json, ATextThatBreaksOffIsRefused, ()) {
    const std::string json = SchemeJson();
    const auto size = *rc::gen::inRange<std::size_t>(0, json.size() - 1); // the last byte is a line end
    LogicConfig read;
    RC_ASSERT(!LogicFromJson(json.substr(0, size), read).empty());
}

} // namespace
} // namespace brindle
