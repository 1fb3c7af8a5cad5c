#include "report/logic_report.h"

#include "model/output_map.h"

#include <algorithm>

namespace brindle {

namespace {

constexpr std::size_t HeadingRule = 85; // hyphens under each heading
constexpr std::size_t GateRule = 14;
constexpr std::size_t TimerRule = 20;
constexpr std::size_t RelayRule = 40;
constexpr std::size_t BlankLinesAtEnd = 4;

using Lines = std::vector<std::string>;

std::string Rule(std::size_t hyphens) {
    return std::string(hyphens, '-');
}

std::string Heading(const UnitReportRequest& request, const std::string& tag) {
    return "Programmable Logic For Group G" + std::to_string(request.Group) + " - " + tag +
           "   File: " + request.FileName + " " + request.Date + " " + request.Time;
}

std::string GateHeading(const std::string& tag, std::size_t gate) {
    return tag + " AND gate " + std::to_string(gate);
}

std::string InputLine(const std::string& tag, std::size_t gate, std::size_t input, const std::string& text) {
    return tag + ":" + std::to_string(gate) + std::to_string(input) + " " + text;
}

void AddGates(Lines& lines, const LogicConfig& config, const SignalCatalogue& catalogue,
              const UnitReportRequest& request, const std::string& tag) {
    const LogicUnit& unit = config.Group(request.Group).Unit(request.Unit);
    std::size_t gate = 0; // counts the printed ones only
    for (std::size_t row = 0; row < GatesPerUnit; ++row) {
        if (!request.GateRowsShown.at(row)) {
            continue;
        }
        ++gate;
        lines.push_back(GateHeading(tag, gate));
        lines.push_back(Rule(GateRule));
        for (std::size_t j = 0; j < InputsPerGate; ++j) {
            const UnitInput code = unit.Inputs.at(row * InputsPerGate + j);
            lines.push_back(InputLine(tag, gate, j + 1,
                                      ReportInputText(catalogue, config.Coding, code, request.NumbersShown)));
        }
        lines.emplace_back();
    }
}

void AddTimer(Lines& lines, const UnitTimer& timer, const std::string& tag) {
    lines.push_back(tag + " Timer Settings");
    lines.push_back(Rule(TimerRule));
    lines.push_back(tag + ":PU Timer = " + std::to_string(timer.PickUp) + " (milliseconds)");
    lines.push_back(tag + ":DO Timer = " + std::to_string(timer.DropOut) + " (milliseconds)");
}

} // namespace

std::string ReportInputText(const SignalCatalogue& catalogue, const InputCoding& coding, UnitInput code,
                            bool numbersShown) {
    const std::string prefix = IsInverted(coding, code) ? "(NOT) " : "";
    return prefix + SignalText(catalogue, coding, code, numbersShown);
}

std::string RelayListText(const LogicConfig& config, int group, int unit) {
    int first = config.FirstOutput;
    int last = config.LastOutput;
    if (config.RelayModel == RelayKind::Vdr812) {
        first = std::max(first, 1);
        last = std::min(last, Vdr812OutputBits);
    }
    std::string list;
    for (int output = first; output <= last; ++output) {
        if (OutputMapped(config, group, unit, output)) {
            list += (list.empty() ? "Rly" : ", Rly") + std::to_string(output);
        }
    }
    return list.empty() ? "None" : list;
}

std::vector<std::string> BuildUnitReport(const LogicConfig& config, const SignalCatalogue& catalogue,
                                         const UnitReportRequest& request) {
    const std::string tag(Unit(request.Unit).Tag);
    Lines lines{Heading(request, tag), Rule(HeadingRule), ""};
    AddGates(lines, config, catalogue, request, tag);
    if (IsTimer(request.Unit)) {
        AddTimer(lines, config.Group(request.Group).Timer(request.Unit), tag);
    }
    lines.emplace_back();
    lines.push_back(tag + " Relay Output Mapping");
    lines.push_back(Rule(RelayRule));
    lines.push_back(RelayListText(config, request.Group, request.Unit));
    lines.insert(lines.end(), BlankLinesAtEnd, "");
    return lines;
}

std::string JoinReportLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line;
        text += "\r\n";
    }
    return text;
}

} // namespace brindle
