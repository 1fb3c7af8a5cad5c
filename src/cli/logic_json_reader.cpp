#include "cli/json_fields.h"
#include "cli/json_text.h"
#include "cli/logic_json.h"
#include "files/vdr810_head.h"
#include "model/number_text.h"
#include "model/output_map.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace brindle {

namespace {

using Int16 = std::numeric_limits<std::int16_t>;
using Int32 = std::numeric_limits<std::int32_t>;

/// What the groups of a model's files can hold.
struct GroupRanges {
    std::int64_t LeastCode = 0;
    std::int64_t MostCode = 255; ///< one byte of the program file
    int Banks = 1;               ///< words of a map slot
};

/// Reads a whole number from `least` to `most` into the smaller type that holds it.
template<class Number>
void ReadWhole(JsonFields& fields, const JsonValue& value, const std::string& path, std::int64_t least,
               std::int64_t most, Number& target) {
    std::int64_t number = 0;
    if (fields.Whole(value, path, least, most, number)) {
        target = static_cast<Number>(number);
    }
}

void ReadInt32(JsonFields& fields, const JsonValue& value, const std::string& path, std::int32_t& target) {
    ReadWhole(fields, value, path, Int32::min(), Int32::max(), target);
}

void ReadHeader(JsonFields& fields, const JsonValue& value, ProgramHeader& header) {
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

void ReadVdr810Header(JsonFields& fields, const JsonValue& value, Vdr810Head& head,
                      std::int16_t& unconnected) {
    if (!fields.Object(value, "header",
                       {"identity", "format_number", "settings_version", "options", "group_count", "timers",
                        "latches", "labels", "categories", "signals", "first_output", "last_output",
                        "unconnected"})) {
        return;
    }
    const auto whole = [&](const char* name, std::int64_t least, std::int64_t most, auto& target) {
        ReadWhole(fields, value[name], FieldPath("header", name), least, most, target);
    };
    constexpr int mostOutputs = MapBanks * OutputsPerBank;
    fields.Line(value["identity"], "header.identity", head.Identity);
    fields.TwoDecimals(value["format_number"], "header.format_number", head.FormatNumber);
    fields.TwoDecimals(value["settings_version"], "header.settings_version", head.Version,
                       head.SettingsVersion);
    if (head.SettingsVersion < 0 || head.SettingsVersion > GreatestVersion) {
        fields.Refuse("header.settings_version",
                      "not in " + FormatFixed(0, 2) + " to " + FormatFixed(GreatestVersion, 2));
    }
    whole("options", 0, Int16::max(), head.Options);
    whole("group_count", 1, MaxGroups, head.Groups);
    whole("timers", 0, TimersPerGroup, head.Timers);
    whole("latches", 0, LatchesPerGroup, head.Latches);
    if (head.Timers + head.Latches == 0) {
        fields.Refuse("header.latches", "0, as header.timers is, and no unit is left");
    }
    whole("labels", 0, Int16::max(), head.Labels);
    whole("categories", 0, Int16::max(), head.Categories);
    whole("signals", LeastSignals, Int32::max(), head.Signals);
    whole("first_output", 0, Int16::max(), head.FirstOutput);
    whole("last_output", head.FirstOutput, std::min<int>(head.FirstOutput + mostOutputs - 1, Int16::max()),
          head.LastOutput);
    whole("unconnected", Int16::min(), Int16::max(), unconnected);
}

void ReadInputs(JsonFields& fields, const JsonValue& value, const std::string& path,
                const GroupRanges& ranges, LogicUnit& unit) {
    if (!fields.List(value, path, unit.Inputs.size())) {
        return;
    }
    for (std::size_t i = 0; i < unit.Inputs.size(); ++i) {
        ReadWhole(fields, value[i], ElementPath(path, i), ranges.LeastCode, ranges.MostCode,
                  unit.Inputs.at(i));
    }
}

void ReadUnit(JsonFields& fields, const JsonValue& value, const std::string& path, const UnitInfo& info,
              const GroupRanges& ranges, LogicGroup& group) {
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
    ReadInputs(fields, value["inputs"], path + ".inputs", ranges, group.Unit(info.Number));
    if (timer) {
        UnitTimer& times = group.Timer(info.Number);
        ReadInt32(fields, value["pick_up"], path + ".pick_up", times.PickUp);
        ReadInt32(fields, value["drop_out"], path + ".drop_out", times.DropOut);
    }
}

/// Reads the words of one map slot. A file holds those of its banks; the others must say what it will read.
void ReadSlot(JsonFields& fields, const JsonValue& value, const std::string& path, const GroupRanges& ranges,
              int slot, LogicGroup& group) {
    if (!fields.List(value, path, MapBanks)) {
        return;
    }
    for (int bank = 1; bank <= MapBanks; ++bank) {
        const auto index = static_cast<std::size_t>(bank - 1);
        const std::int64_t most = bank <= ranges.Banks ? std::numeric_limits<std::uint32_t>::max() : 0;
        ReadWhole(fields, value[index], ElementPath(path, index), 0, most, group.OutputMap(slot, bank));
    }
}

void ReadGroup(JsonFields& fields, const JsonValue& value, const std::string& path, const GroupRanges& ranges,
               LogicGroup& group) {
    if (!fields.Object(value, path, {"units", "output_map"})) {
        return;
    }
    const std::string unitsPath = path + ".units";
    if (fields.List(value["units"], unitsPath, UnitsPerGroup)) {
        for (std::size_t i = 0; i < UnitsPerGroup; ++i) {
            ReadUnit(fields, value["units"][i], ElementPath(unitsPath, i), UnitTable.at(i), ranges, group);
        }
    }
    const std::string mapPath = path + ".output_map";
    if (fields.List(value["output_map"], mapPath, MapSlots)) {
        for (std::size_t i = 0; i < MapSlots; ++i) {
            ReadSlot(fields, value["output_map"][i], ElementPath(mapPath, i), ranges, static_cast<int>(i) + 1,
                     group);
        }
    }
}

void ReadGroups(JsonFields& fields, const JsonValue& value, const GroupRanges& ranges, LogicConfig& config) {
    const auto count = static_cast<std::size_t>(config.GroupCount);
    std::int64_t number = 0;
    fields.Whole(value["group_count"], "group_count", config.GroupCount, config.GroupCount, number);
    if (fields.List(value["groups"], "groups", count)) {
        for (std::size_t i = 0; i < count; ++i) {
            ReadGroup(fields, value["groups"][i], ElementPath("groups", i), ranges, config.Groups.at(i));
        }
    }
}

void ReadVersion(JsonFields& fields, const JsonValue& value, const std::string& version, const char* field) {
    std::string text;
    if (fields.Text(value["version"], "version", text) && text != version) {
        fields.Refuse("version", "not \"" + version + "\", as " + field + " says");
    }
}

void ReadVdr812(JsonFields& fields, const JsonValue& value, LogicConfig& config) {
    ProgramHeader header;
    ReadHeader(fields, value["header"], header);
    const std::string_view versionText(header.VersionText.data(), header.VersionText.size());
    BecomeVdr812(config, LeadingNumber(versionText));
    config.Header = header;
    ReadGroups(fields, value, {}, config);
    ReadVersion(fields, value, VersionField(header), "header.version_text");
}

/// What a file has no section for cannot be said.
void RefuseUnitsThatAreNone(JsonFields& fields, const LogicConfig& config) {
    for (int g = 1; g <= config.GroupCount; ++g) {
        for (const UnitInfo& unit : UnitTable) {
            LogicGroup cleared = config.Group(g);
            ClearUnit(cleared, unit.Number, UnconnectedCode(config));
            if (!HasUnit(config, unit.Number) && cleared != config.Group(g)) {
                const auto index = static_cast<std::size_t>(unit.Number - 1);
                fields.Refuse(
                    ElementPath(ElementPath("groups", static_cast<std::size_t>(g - 1)) + ".units", index),
                    "not empty, and the header promises no such unit");
                return;
            }
        }
    }
}

void ReadVdr810(JsonFields& fields, const JsonValue& value, LogicConfig& config) {
    Vdr810Head head;
    ReadVdr810Header(fields, value["header"], head, config.Coding.FalseCode);
    if (!fields.Refusal().empty()) {
        return;
    }
    BecomeVdr810(config, head);
    ReadGroups(fields, value, {Int32::min(), Int32::max(), BankCount(config)}, config);
    ReadVersion(fields, value, FormatFixed(head.SettingsVersion, 2), "header.settings_version");
    if (fields.Refusal().empty()) {
        RefuseUnitsThatAreNone(fields, config);
    }
}

void ReadLogic(JsonFields& fields, const JsonValue& value, LogicConfig& config) {
    if (!fields.Object(value, "", {"relay_model", "version", "group_count", "header", "groups"})) {
        return;
    }
    std::int64_t model = 0;
    fields.Whole(value["relay_model"], "relay_model", static_cast<int>(RelayKind::Vdr812),
                 static_cast<int>(RelayKind::Vdr810), model);
    if (model == static_cast<int>(RelayKind::Vdr810)) {
        ReadVdr810(fields, value, config);
    } else {
        ReadVdr812(fields, value, config);
    }
}

} // namespace

std::string LogicFromJson(std::string_view text, LogicConfig& config) {
    JsonValue value;
    std::string fault = ParseJson(text, value);
    if (!fault.empty()) {
        return fault;
    }
    JsonFields fields;
    LogicConfig read;
    ReadLogic(fields, value, read);
    if (fields.Refusal().empty()) {
        read.FilePath = config.FilePath;
        read.FileTitle = config.FileTitle;
        read.Modified = config.Modified;
        config = std::move(read);
    }
    return fields.Refusal();
}

} // namespace brindle
