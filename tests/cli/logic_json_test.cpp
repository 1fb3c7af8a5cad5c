#include "cli/logic_json.h"
#include "files/program_file.h"
#include "support/program_bytes.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstdint>
#include <random>

namespace brindle {
namespace {

/// A program in which something stands in each kind of field.
LogicConfig SomeLogic() {
    LogicConfig config;
    MakeNewVdr812(config, Version230);
    config.Group(1).Unit(1).Inputs = {0, 1, 2, 3, 102, 156, 254, 255, 0, 0, 0, 0, 0, 0, 0, 128};
    config.Group(1).Timer(1) = {1000, -1};
    config.Group(1).OutputMap(1, 1) = 0xFFFFFFFF;
    config.Header.HeaderWord = -5;
    config.Header.Text1 = {'a', '"', '\\', '\n', '\x7F', '\x80', '\xFF'};
    return config;
}

std::string Image(const LogicConfig& config) {
    return ProgramBytes(config);
}

bool HoldsLine(const std::string& text, const std::string& line) {
    return text.find("\n" + line + "\n") != std::string::npos;
}

TEST(LogicToJson, HeadAndHeaderStandOneFieldALine) {
    const std::string json = LogicToJson(SomeLogic());
    const std::string zeros13 = "\\u0000\\u0000\\u0000\\u0000\\u0000\\u0000\\u0000\\u0000\\u0000\\u0000"
                                "\\u0000\\u0000\\u0000";
    const std::string zeros20 = zeros13 + "\\u0000\\u0000\\u0000\\u0000\\u0000\\u0000\\u0000";
    const std::string head =
        "{\n"
        "  \"relay_model\": 1,\n"
        "  \"version\": \"2.30\",\n"
        "  \"group_count\": 8,\n"
        "  \"header\": {\n"
        "    \"magic\": \"plcd\",\n"
        "    \"version_text\": \"2.30  \",\n"
        "    \"header_word\": -5,\n"
        "    \"text1\": \"a\\\"\\\\\\n\\u007f\\u0080\\u00ff" +
        zeros13 +
        "\",\n"
        "    \"text2\": \"" +
        zeros20 +
        "\"\n"
        "  },\n"
        "  \"groups\": [\n"
        "    {\n"
        "      \"units\": [\n"
        "        {\"tag\": \"T1\", \"inputs\": [0, 1, 2, 3, 102, 156, 254, 255, 0, 0, 0, 0, "
        "0, 0, 0, 128], \"pick_up\": 1000, \"drop_out\": -1},\n";
    EXPECT_EQ(head, json.substr(0, head.size()));
}

TEST(LogicToJson, LatchesHaveNoTimes) {
    EXPECT_TRUE(HoldsLine(LogicToJson(SomeLogic()), "        {\"tag\": \"S2\", \"inputs\": "
                                                    "[0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0]}"));
}

TEST(LogicToJson, OutputWordsAreUnsigned) {
    EXPECT_TRUE(HoldsLine(LogicToJson(SomeLogic()), "        [4294967295, 0, 0, 0, 0, 0, 0, 0],"));
}

TEST(LogicToJson, TheVersionIsThatOfTheHeadersText) {
    LogicConfig config = SomeLogic();
    config.Header.VersionText = {'1', '.', '5', 'x', 'x', 'x'};
    EXPECT_TRUE(HoldsLine(LogicToJson(config), "  \"version\": \"1.50\","));
    config.Header.VersionText = {'x'};
    EXPECT_TRUE(HoldsLine(LogicToJson(config), "  \"version\": \"0.00\","));
}

TEST(LogicToJson, IsAsciiWithoutControlCharactersButLineEnds) {
    LogicConfig config = SomeLogic();
    for (std::size_t i = 0; i < config.Header.Text1.size(); ++i) {
        config.Header.Text1.at(i) = static_cast<char>(i);
        config.Header.Text2.at(i) = static_cast<char>(0x7B + i);
    }
    for (const char c : LogicToJson(config)) {
        EXPECT_TRUE(c == '\n' || (c >= ' ' && c <= '~')) << static_cast<int>(c);
    }
}

TEST(LogicFromJson, ReadsBackWhatWasWritten) {
    LogicConfig read;
    ASSERT_EQ("", LogicFromJson(LogicToJson(SomeLogic()), read));
    EXPECT_EQ(Image(SomeLogic()), Image(read));
    EXPECT_EQ(SomeLogic().Header, read.Header);
    EXPECT_EQ(SomeLogic().Groups, read.Groups);
}

TEST(LogicFromJson, SetsModelVersionCodingAndOutputsAsForAFileThatWasRead) {
    LogicConfig version100;
    MakeNewVdr812(version100, Version100);
    LogicConfig read;
    read.RelayModel = RelayKind::Vdr810;
    read.GroupCount = 3;
    read.Coding = {512, 300};
    ASSERT_EQ("", LogicFromJson(LogicToJson(version100), read));
    EXPECT_EQ(RelayKind::Vdr812, read.RelayModel);
    EXPECT_EQ(1.0F, read.Version);
    EXPECT_EQ(8, read.GroupCount);
    EXPECT_EQ(256, read.Coding.InvertBase);
    EXPECT_EQ(255, read.Coding.FalseCode);
    EXPECT_EQ(2, read.FirstOutput);
    EXPECT_EQ(9, read.LastOutput);
}

TEST(LogicFromJson, FieldsMayStandInAnyOrderAndLayout) {
    std::string json = LogicToJson(SomeLogic());
    const std::string model = "  \"relay_model\": 1,\n";
    json.erase(json.find(model), model.size());
    json.insert(json.rfind("\n}"), ",\r\n\t\"relay_model\"\t:1");
    LogicConfig read;
    ASSERT_EQ("", LogicFromJson(json, read));
    EXPECT_EQ(Image(SomeLogic()), Image(read));
}

/// Any 2048 bytes whose reserved areas are zero.
rc::Gen<std::string> AnyProgramBytes() {
    return rc::gen::map(rc::gen::arbitrary<std::uint32_t>(), [](std::uint32_t seed) {
        std::mt19937 random(seed); // quicker by far than a generator a byte
        std::string bytes(ProgramFileSize, '\0');
        for (char& byte : bytes) {
            byte = static_cast<char>(random());
        }
        bytes.replace(4, 4, 4, '\0');
        bytes.replace(58, 70, 70, '\0');
        return bytes;
    });
}

RC_GTEST_PROP(LogicJson, AnyProgramFileComesBackByteForByte, ()) {
    const std::string bytes = *AnyProgramBytes();
    LogicConfig decoded;
    DecodeProgram(bytes, decoded);
    const std::string json = LogicToJson(decoded);
    LogicConfig read;
    RC_ASSERT(LogicFromJson(json, read) == "");
    RC_ASSERT(Image(read) == bytes);
    RC_ASSERT(LogicToJson(read) == json);
}

RC_GTEST_PROP(LogicJson, ADamagedByteIsRefusedOrReadButNeverCrashes, ()) {
    std::string json = LogicToJson(SomeLogic());
    const auto at = *rc::gen::inRange<std::size_t>(0, json.size());
    json.at(at) = *rc::gen::arbitrary<char>();
    LogicConfig read;
    const LogicConfig before = read;
    const std::string refusal = LogicFromJson(json, read);
    if (!refusal.empty()) {
        RC_ASSERT(read.Groups == before.Groups);
        RC_ASSERT(read.Header == before.Header);
    }
}

RC_GTEST_PROP(LogicJson, ATextThatBreaksOffIsRefused, ()) {
    const std::string json = LogicToJson(SomeLogic());
    const auto size = *rc::gen::inRange<std::size_t>(0, json.size() - 1); // the last byte is a line end
    LogicConfig read;
    RC_ASSERT(!LogicFromJson(json.substr(0, size), read).empty());
}

} // namespace
} // namespace brindle
