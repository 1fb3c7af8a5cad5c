#pragma once

#include "model/logic_config.h"
#include "platform/message_box.h"

#include <array>
#include <cstddef>
#include <functional>
#include <vector>

/// What is printed, and the run that prints it unit by unit.
namespace brindle {

/// A unit of the logic by its place.
struct UnitPlace {
    int Group = 1; ///< 1 to 8
    int Unit = 1;  ///< 1 to 10

    bool operator==(const UnitPlace&) const = default;
};

enum class PrintScope {
    EveryGroup,
    ShownUnit,     ///< the one in the main window
    SelectedGroups ///< every unit of the groups that are ticked
};

/// What the user chose to print.
struct PrintChoice {
    PrintScope Scope = PrintScope::ShownUnit;
    std::array<bool, MaxGroups> GroupsTicked{}; ///< group n at n - 1

    [[nodiscard]] bool Ticked(int group) const {
        return GroupsTicked.at(static_cast<std::size_t>(group - 1));
    }
};

/// The units to print, by group and then by unit. Groups that the logic does not have are left out, so that
/// the list is empty when none of its groups is ticked.
std::vector<UnitPlace> UnitsToPrint(const PrintChoice& choice, const LogicConfig& config,
                                    const UnitPlace& shown);

/// Told when the groups to print were to be selected and none was.
MessageBox NoGroupsNotice();

/// Told when printing a unit failed.
MessageBox PrintFailedNotice();

/// What a print run asks of its surroundings. A run knows neither windows nor printers.
struct PrintRun {
    std::function<void(const UnitPlace& unit)> Show;  ///< the main window shows the unit
    std::function<bool(const UnitPlace& unit)> Print; ///< prints the shown unit; false when that failed
    /// `unit` is about to be printed after `printed` of `total` units.
    std::function<void(const UnitPlace& unit, std::size_t printed, std::size_t total)> Progress;
    std::function<bool()> Cancelled; ///< asked between units
};

enum class PrintOutcome { Done, Cancelled, Failed };

struct PrintResult {
    PrintOutcome Outcome = PrintOutcome::Done;
    std::size_t Printed = 0; ///< units that were printed well
};

/// Shows and prints `units` in order. The first that fails ends the run, and so does a cancel, though not
/// before the unit under way is printed.
PrintResult RunPrint(const std::vector<UnitPlace>& units, const PrintRun& run);

} // namespace brindle
