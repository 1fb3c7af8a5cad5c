#pragma once

#include "model/logic_config.h"
#include "model/signal_catalogue.h"

#include <array>
#include <string>
#include <vector>

/// The logic report: one unit of one group as plain text, the same lines for a printer, a file and a
/// terminal.
namespace brindle {

/// Which unit is reported, and what the report takes from outside the logic.
struct UnitReportRequest {
    int Group = 1;             ///< 1 to 8
    int Unit = 1;              ///< 1 to 10
    std::string FileName;      ///< full path of the file, or the name of one never saved
    std::string Date;          ///< today in the system's short form
    std::string Time;          ///< now in the system's short form
    bool NumbersShown = false; ///< input texts carry the stored codes

    /// Whether rows 1 to 4 of the diagram (at 0 to 3) are in use.
    std::array<bool, GatesPerUnit> GateRowsShown{true, true, true, true};
};

/// The lines of the report, without line ends. Rows that are not shown are left out, and the gates that
/// remain are numbered anew from 1. A group or unit out of range is a fault of the caller
/// (std::out_of_range).
std::vector<std::string> BuildUnitReport(const LogicConfig& config, const SignalCatalogue& catalogue,
                                         const UnitReportRequest& request);

/// The text that stands for one input: its signal's text, after "(NOT) " where the code is inverted. Unlike
/// the diagram, a report has no bubble to show the inversion with.
std::string ReportInputText(const SignalCatalogue& catalogue, const InputCoding& coding, UnitInput code,
                            bool numbersShown);

/// The relay outputs that drive from `unit` (1 to 10) of `group` (1 to 8): "Rly2, Rly5", or "None". Outputs
/// outside the logic's output range are not listed, though their bits may be set.
std::string RelayListText(const LogicConfig& config, int group, int unit);

/// The lines as a report file holds them, each ended by CR LF.
std::string JoinReportLines(const std::vector<std::string>& lines);

} // namespace brindle
