#include "cli/commands.h"
#include "cli/complaint.h"
#include "cli/logic_input.h"
#include "editor/gate_rows.h"
#include "platform/ascii.h"
#include "platform/paths.h"
#include "report/logic_report.h"

#include <algorithm>
#include <ostream>
#include <set>

namespace brindle {

namespace {

/// The number of the unit with tag `tag` in either case, 0 when there is none.
int UnitNumberOf(std::string tag) {
    std::transform(tag.begin(), tag.end(), tag.begin(), UpperLetter);
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

std::set<int> UnitsOf(const LogicConfig& config) {
    std::set<int> units = NumbersTo(UnitsPerGroup);
    std::erase_if(units, [&config](int unit) { return !HasUnit(config, unit); });
    return units;
}

std::string TagsOf(const std::set<int>& units) {
    std::string tags;
    for (const int unit : units) {
        tags += (tags.empty() ? "" : ", ") + std::string(Unit(unit).Tag);
    }
    return tags;
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
        const int unit = UnitNumberOf(tag);
        if (unit == 0) {
            return "unit \"" + tag + "\" is none of T1 to T6, R1, S1, R2, S2";
        }
        selection.Units.insert(unit);
    }
    return {};
}

/// Fills what was not asked for with all that the logic has. Returns what it does not have of the rest, or an
/// empty text.
std::string FitTo(const LogicConfig& config, Selection& selection) {
    if (selection.Groups.empty()) {
        selection.Groups = NumbersTo(config.GroupCount);
    }
    if (*selection.Groups.rbegin() > config.GroupCount) {
        return "no group " + std::to_string(*selection.Groups.rbegin()) + ", only " +
               std::to_string(config.GroupCount);
    }
    for (const int unit : selection.Units) {
        if (!HasUnit(config, unit)) {
            return "no unit " + std::string(Unit(unit).Tag) + ", only " + TagsOf(UnitsOf(config));
        }
    }
    if (selection.Units.empty()) {
        selection.Units = UnitsOf(config);
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
    const int result = ReadLogicInput(environment, arguments.Input, config);
    if (result == ExitFailed) {
        return result;
    }
    const std::string lacking = FitTo(config, selection);
    if (!lacking.empty()) {
        Complain(environment, arguments.Input.File + ": has " + lacking);
        return ExitBadArguments;
    }
    const SignalCatalogue catalogue = BuildCatalogue(config);
    UnitReportRequest request;
    request.FileName = AbsolutePath(environment.StartFolder, arguments.Input.File);
    request.NumbersShown = arguments.Numbers;
    request.GateRowsShown = GateRowsShown(config.Version);
    const DateAndTime now = environment.Now();
    request.Date = now.Date;
    request.Time = now.Time;
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
