#include "files/program_file.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

namespace brindle {
namespace {

/// The reversal as the format's description works it: hexadecimal text, padded to eight digits, whose pairs
/// are joined in reverse order and read back as a signed number.
std::int32_t ReversedThroughText(std::int32_t value) {
    std::array<char, 9> digits{};
    std::snprintf(digits.data(), digits.size(), "%08X", static_cast<unsigned>(value));
    const std::string text(digits.data());
    const std::string reversed =
        text.substr(6, 2) + text.substr(4, 2) + text.substr(2, 2) + text.substr(0, 2);
    return static_cast<std::int32_t>(std::stoul(reversed, nullptr, 16));
}

std::string AnyBytes(std::size_t size) {
    return *rc::gen::container<std::string>(size, rc::gen::arbitrary<char>());
}

RC_GTEST_PROP(FormatToIntelLongProperty, IsTheReversalThroughText, (std::int32_t value)) {
    RC_ASSERT(FormatToIntelLong(value) == ReversedThroughText(value));
}

RC_GTEST_PROP(FormatToIntelLongProperty, IsItsOwnInverse, (std::int32_t value)) {
    RC_ASSERT(FormatToIntelLong(FormatToIntelLong(value)) == value);
}

TEST(FormatToIntelLong, ReversesTheFourBytes) {
    EXPECT_EQ(0, FormatToIntelLong(0));
    EXPECT_EQ(0x01000000, FormatToIntelLong(1));
    EXPECT_EQ(-1, FormatToIntelLong(-1));
    EXPECT_EQ(0x78563412, FormatToIntelLong(0x12345678));
    EXPECT_EQ(static_cast<std::int32_t>(0xE8030000U), FormatToIntelLong(1000));
    EXPECT_EQ(static_cast<std::int32_t>(0x80000000U), FormatToIntelLong(0x80));
    EXPECT_EQ(0x80, FormatToIntelLong(static_cast<std::int32_t>(0x80000000U)));
}

TEST(FormatToIntelLong, IsTheReversalThroughTextForEveryByteInEveryPlace) {
    for (unsigned place = 0; place < 32; place += 8) {
        for (std::uint32_t byte = 0; byte <= 255; ++byte) {
            const auto value = static_cast<std::int32_t>(byte << place);
            ASSERT_EQ(ReversedThroughText(value), FormatToIntelLong(value)) << value;
        }
    }
}

RC_GTEST_PROP(ProgramFileProperty, AnyFileReadAndSavedIsTheSameButForTheReservedAreas, ()) {
    std::string bytes = AnyBytes(ProgramFileSize);
    LogicConfig config;
    DecodeProgram(bytes, config);
    ProgramImage image{};
    RC_ASSERT(!EncodeProgram(config, image).Failed());
    bytes.replace(4, 4, 4, '\0').replace(58, 70, 70, '\0');
    RC_ASSERT(bytes == std::string(image.data(), image.size()));
}

RC_GTEST_PROP(ProgramFileProperty, AFileOfAnyLengthReadsAsIfFilledUpWithZerosOrCut, ()) {
    const auto size = *rc::gen::inRange<std::size_t>(0, 4001);
    std::string bytes = AnyBytes(size);
    LogicConfig config;
    DecodeProgram(bytes, config);
    bytes.resize(ProgramFileSize, '\0');
    LogicConfig whole;
    DecodeProgram(bytes, whole);
    RC_ASSERT(config.Groups == whole.Groups);
    RC_ASSERT(config.Header == whole.Header);
    RC_ASSERT(config.Version == whole.Version);
    RC_ASSERT(config.LastOutput == whole.LastOutput);
}

RC_GTEST_PROP(ProgramFileProperty, NothingOfTheLogicOpenBeforeRemains, ()) {
    LogicConfig config;
    DecodeProgram(AnyBytes(ProgramFileSize), config);
    config.Group(*rc::gen::inRange(1, MaxGroups + 1)).OutputMap(*rc::gen::inRange(1, MapSlots + 1), 2) = 1;
    const std::string bytes = AnyBytes(ProgramFileSize);
    DecodeProgram(bytes, config);
    LogicConfig fresh;
    DecodeProgram(bytes, fresh);
    RC_ASSERT(config.Groups == fresh.Groups);
    RC_ASSERT(config.Header == fresh.Header);
}

} // namespace
} // namespace brindle
