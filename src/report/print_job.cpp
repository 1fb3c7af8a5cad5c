#include "report/print_job.h"

namespace brindle {

std::vector<UnitPlace> UnitsToPrint(const PrintChoice& choice, const LogicConfig& config,
                                    const UnitPlace& shown) {
    if (choice.Scope == PrintScope::ShownUnit) {
        return {shown};
    }
    std::vector<UnitPlace> units;
    for (int group = 1; group <= config.GroupCount; ++group) {
        if (choice.Scope == PrintScope::EveryGroup || choice.Ticked(group)) {
            for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
                if (HasUnit(config, unit)) {
                    units.push_back({group, unit});
                }
            }
        }
    }
    return units;
}

MessageBox NoGroupsNotice() {
    return {"No groups were selected to print.", MessageIcon::Exclamation, MessageButtons::Ok};
}

MessageBox PrintFailedNotice() {
    return {"There was an error trying to Print the Form.", MessageIcon::Exclamation, MessageButtons::Ok,
            "Print Error"};
}

PrintResult RunPrint(const std::vector<UnitPlace>& units, const PrintRun& run) {
    PrintResult result;
    for (const UnitPlace& unit : units) {
        run.Progress(unit, result.Printed, units.size()); // where the cancel button is heard
        if (result.Printed > 0 && run.Cancelled()) {
            result.Outcome = PrintOutcome::Cancelled;
            break;
        }
        run.Show(unit);
        if (!run.Print(unit)) {
            result.Outcome = PrintOutcome::Failed;
            break;
        }
        ++result.Printed;
    }
    return result;
}

} // namespace brindle
