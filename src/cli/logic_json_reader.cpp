#include "cli/json_fields.h"
#include "cli/json_text.h"
#include "cli/logic_json.h"
#include "model/number_text.h"

#include <nlohmann/json.hpp>

#include <limits>

namespace brindle {

namespace {

using nlohmann::json;

/// Reads a 32-bit integer of the program file.
void ReadInt32(JsonFields& fields, const json& value, const std::string& path, std::int32_t& target) {
    using Limits = std::numeric_limits<std::int32_t>;
    std::int64_t number = 0;
    if (fields.Whole(value, path, Limits::min(), Limits::max(), number)) {
        target = static_cast<std::int32_t>(number);
    }
}

void ReadHeader(JsonFields& fields, const json& value, ProgramHeader& header) {
    const std::string path = "header";
    if (!fields.Object(value, path, {"magic", "version_text", "header_word", "text1", "text2"})) {
        return;
    }
    fields.Bytes(value["magic"], path + ".magic", header.Magic);
    fields.Bytes(value["version_text"], path + ".version_text", header.VersionText);
    ReadInt32(fields, value["header_word"], path + ".header_word", header.HeaderWord);
    fields.Bytes(value["text1"], path + ".text1", header.Text1);
    fields.Bytes(value["text2"], path + ".text2", header.Text2);
}

void ReadInputs(JsonFields& fields, const json& value, const std::string& path, LogicUnit& unit) {
    if (!fields.List(value, path, unit.Inputs.size())) {
        return;
    }
    constexpr int lastCode = 255; // one byte of the program file
    for (std::size_t i = 0; i < unit.Inputs.size(); ++i) {
        std::int64_t code = 0;
        if (fields.Whole(value[i], ElementPath(path, i), 0, lastCode, code)) {
            unit.Inputs.at(i) = static_cast<UnitInput>(code);
        }
    }
}

void ReadUnit(JsonFields& fields, const json& value, const std::string& path, const UnitInfo& info,
              LogicGroup& group) {
    const bool timer = IsTimer(info.Number);
    const bool shaped = timer ? fields.Object(value, path, {"tag", "inputs", "pick_up", "drop_out"})
                              : fields.Object(value, path, {"tag", "inputs"});
    std::string tag;
    if (!shaped || !fields.Text(value["tag"], path + ".tag", tag)) {
        return;
    }
    if (tag != info.Tag) {
        fields.Refuse(path + ".tag", "not \"" + std::string(info.Tag) + "\"");
        return;
    }
    ReadInputs(fields, value["inputs"], path + ".inputs", group.Unit(info.Number));
    if (timer) {
        UnitTimer& times = group.Timer(info.Number);
        ReadInt32(fields, value["pick_up"], path + ".pick_up", times.PickUp);
        ReadInt32(fields, value["drop_out"], path + ".drop_out", times.DropOut);
    }
}

/// Reads the words of one map slot. A program file holds the first; the others must say what it will read.
void ReadSlot(JsonFields& fields, const json& value, const std::string& path, std::uint32_t& word) {
    if (!fields.List(value, path, MapBanks)) {
        return;
    }
    for (std::size_t i = 0; i < MapBanks; ++i) {
        const std::int64_t most = i == 0 ? std::numeric_limits<std::uint32_t>::max() : 0;
        std::int64_t number = 0;
        if (fields.Whole(value[i], ElementPath(path, i), 0, most, number) && i == 0) {
            word = static_cast<std::uint32_t>(number);
        }
    }
}

void ReadGroup(JsonFields& fields, const json& value, const std::string& path, LogicGroup& group) {
    if (!fields.Object(value, path, {"units", "output_map"})) {
        return;
    }
    const std::string unitsPath = path + ".units";
    if (fields.List(value["units"], unitsPath, UnitsPerGroup)) {
        for (std::size_t i = 0; i < UnitsPerGroup; ++i) {
            ReadUnit(fields, value["units"][i], ElementPath(unitsPath, i), UnitTable.at(i), group);
        }
    }
    const std::string mapPath = path + ".output_map";
    if (fields.List(value["output_map"], mapPath, MapSlots)) {
        for (std::size_t i = 0; i < MapSlots; ++i) {
            ReadSlot(fields, value["output_map"][i], ElementPath(mapPath, i),
                     group.OutputMap(static_cast<int>(i) + 1, 1));
        }
    }
}

void ReadLogic(JsonFields& fields, const json& value, LogicConfig& config) {
    if (!fields.Object(value, "", {"relay_model", "version", "group_count", "header", "groups"})) {
        return;
    }
    constexpr auto model = static_cast<std::int64_t>(RelayKind::Vdr812);
    std::int64_t number = 0;
    std::string version;
    fields.Whole(value["relay_model"], "relay_model", model, model, number);
    fields.Whole(value["group_count"], "group_count", MaxGroups, MaxGroups, number);
    ReadHeader(fields, value["header"], config.Header);
    if (fields.Text(value["version"], "version", version) && version != VersionField(config.Header)) {
        fields.Refuse("version", "not \"" + VersionField(config.Header) + "\", as header.version_text says");
    }
    if (fields.List(value["groups"], "groups", MaxGroups)) {
        for (std::size_t i = 0; i < MaxGroups; ++i) {
            ReadGroup(fields, value["groups"][i], ElementPath("groups", i), config.Groups.at(i));
        }
    }
}

} // namespace

std::string LogicFromJson(std::string_view text, LogicConfig& config) {
    json value;
    std::string fault = ParseJson(text, value);
    if (!fault.empty()) {
        return fault;
    }
    JsonFields fields;
    LogicConfig read;
    ReadLogic(fields, value, read);
    if (fields.Refusal().empty()) {
        const std::string_view versionText(read.Header.VersionText.data(), read.Header.VersionText.size());
        BecomeVdr812(config, LeadingNumber(versionText));
        config.Header = read.Header;
        config.Groups = read.Groups;
    }
    return fields.Refusal();
}

} // namespace brindle
