#include "cli/commands.h"
#include "cli/complaint.h"
#include "cli/program_input.h"
#include "editor/gate_rows.h"
#include "platform/paths.h"
#include "report/logic_report.h"

#include <algorithm>
#include <ostream>
#include <set>

namespace brindle {

namespace {

char AsciiUpper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// The number of the unit with tag `tag` in either case, 0 when there is none.
int UnitOfTag(std::string tag) {
    std::transform(tag.begin(), tag.end(), tag.begin(), AsciiUpper);
    for (const UnitInfo& unit : UnitTable) {
        if (unit.Tag == tag) {
            return unit.Number;
        }
    }
    return 0;
}

std::set<int> NumbersTo(int last) {
    std::set<int> numbers;
    for (int number = 1; number <= last; ++number) {
        numbers.insert(number);
    }
    return numbers;
}

/// The units to report; sets, because each is reported once and in order, however it was asked for.
struct Selection {
    std::set<int> Groups;
    std::set<int> Units;
};

/// Returns what is wrong with the arguments, or an empty text.
std::string Select(const ReportArguments& arguments, Selection& selection) {
    for (const int group : arguments.Groups) {
        if (group < 1 || group > MaxGroups) {
            return "group " + std::to_string(group) + " is not in 1 to " + std::to_string(MaxGroups);
        }
        selection.Groups.insert(group);
    }
    for (const std::string& tag : arguments.Units) {
        const int unit = UnitOfTag(tag);
        if (unit == 0) {
            return "unit \"" + tag + "\" is none of T1 to T6, R1, S1, R2, S2";
        }
        selection.Units.insert(unit);
    }
    if (selection.Groups.empty()) {
        selection.Groups = NumbersTo(MaxGroups);
    }
    if (selection.Units.empty()) {
        selection.Units = NumbersTo(UnitsPerGroup);
    }
    return {};
}

} // namespace

int ReportCommand(const ReportArguments& arguments, const CommandEnvironment& environment) {
    Selection selection;
    const std::string refusal = Select(arguments, selection);
    if (!refusal.empty()) {
        Complain(environment, refusal);
        return ExitBadArguments;
    }
    LogicConfig config;
    const int result = ReadProgramInput(environment, arguments.File, config);
    if (result == ExitFailed) {
        return result;
    }
    const SignalCatalogue catalogue = BuildVdr812Catalogue(config.Version);
    UnitReportRequest request;
    request.FileName = AbsolutePath(environment.StartFolder, arguments.File);
    request.NumbersShown = arguments.Numbers;
    request.GateRowsShown = GateRowsShown(config.Version);
    request.Date = environment.Date();
    request.Time = environment.Time();
    for (const int group : selection.Groups) {
        for (const int unit : selection.Units) {
            request.Group = group;
            request.Unit = unit;
            environment.Out << JoinReportLines(BuildUnitReport(config, catalogue, request));
        }
    }
    return result;
}

} // namespace brindle
