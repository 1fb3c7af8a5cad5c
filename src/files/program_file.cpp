#include "files/program_file.h"

#include "files/whole_file.h"
#include "model/number_text.h"
#include "platform/memory_guard.h"

#include <algorithm>

namespace brindle {

namespace {

// Offsets in the file and in a group's record; docs/program-file.md describes them.
constexpr std::size_t MagicOffset = 0;
constexpr std::size_t VersionTextOffset = 8;
constexpr std::size_t HeaderWordOffset = 14;
constexpr std::size_t Text1Offset = 18;
constexpr std::size_t Text2Offset = 38;
constexpr std::size_t GroupsOffset = 128;
constexpr std::size_t GroupSize = 240;
constexpr std::size_t TimersOffset = 160;
constexpr std::size_t OutputWordsOffset = 208;
constexpr std::size_t WordSize = 4;
constexpr int GreatestCode = 255;

static_assert(GroupsOffset + MaxGroups * GroupSize == ProgramFileSize);

/// Integers of a file as this machine's memory holds them: least significant byte first.
void PutWord(ProgramImage& image, std::size_t offset, std::int32_t value) {
    const auto reversed = static_cast<std::uint32_t>(FormatToIntelLong(value));
    for (std::size_t i = 0; i < WordSize; ++i) {
        image.at(offset + i) = static_cast<char>(reversed >> (8 * i) & 0xFFU);
    }
}

std::int32_t GetWord(const ProgramImage& image, std::size_t offset) {
    std::uint32_t reversed = 0;
    for (std::size_t i = 0; i < WordSize; ++i) {
        reversed |= static_cast<std::uint32_t>(static_cast<unsigned char>(image.at(offset + i))) << (8 * i);
    }
    return FormatToIntelLong(static_cast<std::int32_t>(reversed));
}

template<std::size_t Size>
void PutText(ProgramImage& image, std::size_t offset, const std::array<char, Size>& text) {
    std::copy(text.begin(), text.end(), image.begin() + static_cast<std::ptrdiff_t>(offset));
}

template<std::size_t Size>
void GetText(const ProgramImage& image, std::size_t offset, std::array<char, Size>& text) {
    std::copy_n(image.begin() + static_cast<std::ptrdiff_t>(offset), Size, text.begin());
}

FileError EncodeInputs(const LogicGroup& group, int number, std::size_t start, ProgramImage& image) {
    std::size_t offset = start;
    for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
        const LogicUnit& inputs = group.Unit(unit);
        for (std::size_t i = 0; i < inputs.Inputs.size(); ++i, ++offset) {
            const UnitInput code = inputs.Inputs.at(i);
            if (code < 0 || code > GreatestCode) {
                return MakeFileError(OverflowError, "input " + std::to_string(i + 1) + " of " +
                                                        std::string(brindle::Unit(unit).Tag) + " in group " +
                                                        std::to_string(number));
            }
            image.at(offset) = static_cast<char>(code);
        }
    }
    return {};
}

void EncodeTimersAndOutputs(const LogicGroup& group, std::size_t start, ProgramImage& image) {
    std::size_t offset = start + TimersOffset;
    for (const UnitTimer& timer : group.Timers) {
        PutWord(image, offset, timer.PickUp);
        PutWord(image, offset + WordSize, timer.DropOut);
        offset += 2 * WordSize;
    }
    offset = start + OutputWordsOffset;
    for (int slot = 1; slot <= MapSlots; ++slot, offset += WordSize) {
        PutWord(image, offset, static_cast<std::int32_t>(group.OutputMap(slot, 1)));
    }
}

LogicGroup DecodeGroup(const ProgramImage& image, std::size_t start) {
    LogicGroup group;
    std::size_t offset = start;
    for (LogicUnit& unit : group.Units) {
        for (UnitInput& input : unit.Inputs) {
            input = static_cast<unsigned char>(image.at(offset++));
        }
    }
    for (UnitTimer& timer : group.Timers) {
        timer.PickUp = GetWord(image, offset);
        timer.DropOut = GetWord(image, offset + WordSize);
        offset += 2 * WordSize;
    }
    for (int slot = 1; slot <= MapSlots; ++slot, offset += WordSize) {
        group.OutputMap(slot, 1) = static_cast<std::uint32_t>(GetWord(image, offset));
    }
    return group;
}

std::size_t GroupOffset(int group) {
    return GroupsOffset + static_cast<std::size_t>(group - 1) * GroupSize;
}

} // namespace

std::int32_t FormatToIntelLong(std::int32_t value) {
    const auto bits = static_cast<std::uint32_t>(value);
    return static_cast<std::int32_t>(bits >> 24U | (bits >> 8U & 0xFF00U) | (bits << 8U & 0xFF0000U) |
                                     bits << 24U);
}

FileError EncodeProgram(const LogicConfig& config, ProgramImage& image) {
    ProgramImage encoded{};
    PutText(encoded, MagicOffset, config.Header.Magic);
    PutText(encoded, VersionTextOffset, config.Header.VersionText);
    PutWord(encoded, HeaderWordOffset, config.Header.HeaderWord);
    PutText(encoded, Text1Offset, config.Header.Text1);
    PutText(encoded, Text2Offset, config.Header.Text2);
    for (int group = 1; group <= config.GroupCount; ++group) {
        FileError error = EncodeInputs(config.Group(group), group, GroupOffset(group), encoded);
        if (error.Failed()) {
            return error;
        }
        EncodeTimersAndOutputs(config.Group(group), GroupOffset(group), encoded);
    }
    image = encoded;
    return {};
}

void DecodeProgram(std::string_view bytes, LogicConfig& config) {
    ProgramImage image{};
    std::copy_n(bytes.begin(), std::min(bytes.size(), image.size()), image.begin());
    GetText(image, MagicOffset, config.Header.Magic);
    GetText(image, VersionTextOffset, config.Header.VersionText);
    config.Header.HeaderWord = GetWord(image, HeaderWordOffset);
    GetText(image, Text1Offset, config.Header.Text1);
    GetText(image, Text2Offset, config.Header.Text2);
    BecomeVdr812(config, LeadingNumber({config.Header.VersionText.data(), config.Header.VersionText.size()}));
    for (int group = 1; group <= MaxGroups; ++group) {
        config.Group(group) = DecodeGroup(image, GroupOffset(group));
    }
}

FileError ReadProgramFile(const FileSystem& files, const std::string& path, LogicConfig& config,
                          ProgramReading& reading) {
    return TellLackOfMemory([&] {
        std::string bytes;
        FileError error = ReadWholeFile(files, path, ProgramFileSize + 1, bytes);
        FileStatus status;
        status.Size = bytes.size();
        if (bytes.size() > ProgramFileSize) {
            error = files.Status(path, status);
        }
        if (!error.Failed()) {
            reading = {status.Size, KindOfProgram(bytes, status.Size)};
            DecodeProgram(bytes, config);
        }
        return error;
    });
}

FileError WriteProgramFile(const FileSystem& files, const std::string& path, const LogicConfig& config,
                           const ReplaceRules& rules) {
    ProgramImage image{};
    FileError error = EncodeProgram(config, image);
    return error.Failed() ? error : ReplaceWholeFile(files, path, {image.data(), image.size()}, rules);
}

} // namespace brindle
