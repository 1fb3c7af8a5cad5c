#include "cli/logic_json.h"
#include "files/vdr810_head.h"
#include "model/number_text.h"

#include <nlohmann/json.hpp>

#include <array>
#include <utility>

namespace brindle {

namespace {

template<std::size_t Size>
std::string TextOf(const std::array<char, Size>& bytes) {
    return {bytes.data(), bytes.size()};
}

/// `bytes` as a JSON text in quotes, each byte as the character of the same value.
std::string Quoted(std::string_view bytes) {
    constexpr unsigned char firstOfTwo = 0x80; // from here on a character takes two bytes of UTF-8
    std::string utf8;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < firstOfTwo) {
            utf8 += c;
        } else {
            utf8 += static_cast<char>(0xC0 | (byte >> 6));
            utf8 += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    constexpr bool asciiOnly = true;
    return nlohmann::json(utf8).dump(-1, ' ', asciiOnly);
}

template<typename Numbers>
std::string List(const Numbers& numbers) {
    std::string text;
    for (const auto number : numbers) {
        text += (text.empty() ? "[" : ", ") + std::to_string(number);
    }
    return text + "]";
}

/// The lines of a list, which all but the last end in a comma.
std::string CommaAfter(int index, int last) {
    return index == last ? "\n" : ",\n";
}

std::string HeaderJson(const ProgramHeader& header) {
    return "  \"header\": {\n    \"magic\": " + Quoted(TextOf(header.Magic)) +
           ",\n    \"version_text\": " + Quoted(TextOf(header.VersionText)) +
           ",\n    \"header_word\": " + std::to_string(header.HeaderWord) +
           ",\n    \"text1\": " + Quoted(TextOf(header.Text1)) +
           ",\n    \"text2\": " + Quoted(TextOf(header.Text2)) + "\n  },\n";
}

std::string Vdr810HeaderJson(const LogicConfig& config) {
    const Vdr810Head head = HeadOf(config);
    std::string text = "  \"header\": {\n    \"identity\": " + Quoted(head.Identity) +
                       ",\n    \"format_number\": " + Quoted(FormatFixed(head.FormatNumber, 2)) +
                       ",\n    \"settings_version\": " + Quoted(FormatFixed(head.SettingsVersion, 2));
    const std::pair<const char*, std::int32_t> numbers[] = {
        {"options", head.Options},        {"group_count", head.Groups},
        {"timers", head.Timers},          {"latches", head.Latches},
        {"labels", head.Labels},          {"categories", head.Categories},
        {"signals", head.Signals},        {"first_output", head.FirstOutput},
        {"last_output", head.LastOutput}, {"unconnected", config.Coding.FalseCode}};
    for (const auto& [name, number] : numbers) {
        text += ",\n    \"" + std::string(name) + "\": " + std::to_string(number);
    }
    return text + "\n  },\n";
}

std::string UnitJson(const LogicGroup& group, int unit) {
    std::string text =
        "{\"tag\": " + Quoted(Unit(unit).Tag) + ", \"inputs\": " + List(group.Unit(unit).Inputs);
    if (IsTimer(unit)) {
        const UnitTimer& timer = group.Timer(unit);
        text += ", \"pick_up\": " + std::to_string(timer.PickUp) +
                ", \"drop_out\": " + std::to_string(timer.DropOut);
    }
    return text + "}";
}

std::string GroupJson(const LogicGroup& group) {
    std::string text = "    {\n      \"units\": [\n";
    for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
        text += "        " + UnitJson(group, unit) + CommaAfter(unit, UnitsPerGroup);
    }
    text += "      ],\n      \"output_map\": [\n";
    for (int slot = 1; slot <= MapSlots; ++slot) {
        text += "        " + List(group.OutputWords.at(static_cast<std::size_t>(slot - 1))) +
                CommaAfter(slot, MapSlots);
    }
    return text + "      ]\n    }";
}

} // namespace

std::string VersionField(const ProgramHeader& header) {
    return FormatFixed(LeadingNumber(TextOf(header.VersionText)), 2);
}

std::string LogicToJson(const LogicConfig& config) {
    const bool vdr812 = config.RelayModel == RelayKind::Vdr812;
    const std::string version =
        vdr812 ? VersionField(config.Header) : FormatFixed(config.Vdr810.SettingsVersion, 2);
    std::string text = "{\n  \"relay_model\": " + std::to_string(static_cast<int>(config.RelayModel)) +
                       ",\n  \"version\": " + Quoted(version) +
                       ",\n  \"group_count\": " + std::to_string(config.GroupCount) + ",\n" +
                       (vdr812 ? HeaderJson(config.Header) : Vdr810HeaderJson(config)) + "  \"groups\": [\n";
    for (int group = 1; group <= config.GroupCount; ++group) {
        text += GroupJson(config.Group(group)) + CommaAfter(group, config.GroupCount);
    }
    return text + "  ]\n}\n";
}

} // namespace brindle
