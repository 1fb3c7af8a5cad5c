#include "files/vdr810_reader.h"

#include "files/text_fields.h"
#include "files/vdr810_head.h"
#include "files/vdr810_section_reader.h"
#include "files/whole_file.h"
#include "platform/memory_guard.h"

#include <utility>

namespace brindle {

namespace {

/// As DecodeVdr810, but when memory runs out it throws and leaves a part in `config`.
Vdr810Reading DecodeInto(std::string_view text, const std::string& source, LogicConfig& config) {
    Vdr810Reading reading;
    TextCursor cursor(text);
    Vdr810Head head;
    reading.Error = ReadVdr810Head(cursor, source, head);
    if (reading.Error.Failed()) {
        return reading;
    }
    BecomeVdr810(config, head);
    Vdr810SectionReader sections(config, reading.Lines);
    std::string_view line;
    while (!reading.Refusal && cursor.NextFilledLine(line)) {
        reading.Refusal = sections.Take(line);
    }
    return reading;
}

} // namespace

Vdr810Reading DecodeVdr810(std::string_view text, const std::string& source, LogicConfig& config) {
    Vdr810Reading reading;
    const FileError lack = TellLackOfMemory([&]() -> FileError {
        LogicConfig read = config;
        reading = DecodeInto(text, source, read);
        config = std::move(read);
        return {};
    });
    if (lack.Failed()) {
        reading.Error = lack;
    }
    return reading;
}

Vdr810Reading ReadVdr810File(const FileSystem& files, const std::string& path, LogicConfig& config) {
    Vdr810Reading reading;
    const FileError failed = TellLackOfMemory([&] {
        std::string text;
        FileError error = ReadWholeText(files, path, text);
        if (!error.Failed()) {
            reading = DecodeVdr810(text, "read " + path, config);
        }
        return error;
    });
    if (failed.Failed()) {
        reading.Error = failed;
    }
    return reading;
}

void ClearUnreadInputs(LogicConfig& config, const Vdr810Reading& reading) {
    for (int group = 1; group <= MaxGroups; ++group) {
        for (std::size_t unit = 0; unit < reading.Lines.size(); ++unit) {
            auto& inputs = config.Group(group).Units.at(unit).Inputs;
            for (std::size_t input = 0; input < InputsPerUnit; ++input) {
                if (group > config.GroupCount || !reading.Lines.at(unit).Inputs.test(input)) {
                    inputs.at(input) = UnconnectedCode(config);
                }
            }
        }
    }
}

std::vector<int> IncompleteUnits(const LogicConfig& config, const Vdr810Reading& reading) {
    std::vector<int> units;
    for (const UnitInfo& unit : UnitTable) {
        const UnitLinesRead& lines = reading.Lines.at(static_cast<std::size_t>(unit.Number - 1));
        const bool whole = lines.Inputs.all() && lines.OutputMap &&
                           (!IsTimer(unit.Number) || (lines.PickUp && lines.DropOut));
        if (!whole && HasUnit(config, unit.Number)) {
            units.push_back(unit.Number);
        }
    }
    return units;
}

MessageBox IncompleteNotice(const std::string& path, const std::vector<int>& units) {
    std::string names;
    for (const int unit : units) {
        names += (names.empty() ? "" : ", ") + std::string(Unit(unit).Tag);
    }
    return {"The file " + path + " lacks lines of these units: " + names +
                ".  What is missing was read as not connected, not mapped and zero.",
            MessageIcon::Exclamation, MessageButtons::Ok};
}

} // namespace brindle
