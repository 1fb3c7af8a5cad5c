#pragma once

#include "editor/gate_rows.h"
#include "editor/unit_view.h"
#include "model/signal_catalogue.h"
#include "report/logic_report.h"

#include <cstdio>
#include <cstdlib>

/// What the fuzz targets share.
namespace brindle {

/// Ends the program when a rule does not hold; the fuzzer then keeps the bytes that led here.
inline void Require(bool holds, const char* rule) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", rule);
        std::abort();
    }
}

/// Shows and reports one unit of a logic that was read. Which one follows `pick`, so that many inputs cover
/// them all.
inline void ShowAndReport(const LogicConfig& config, std::size_t pick) {
    const int unit = 1 + static_cast<int>(pick % UnitsPerGroup);
    const int group =
        1 + static_cast<int>(pick / UnitsPerGroup % static_cast<std::size_t>(config.GroupCount));
    const SignalCatalogue catalogue = BuildCatalogue(config);
    ViewSelection shown;
    shown.Group = group;
    shown.Unit = unit;
    shown.NumbersShown.set();
    const UnitView view = BuildUnitView(config, catalogue, shown);
    Require(!view.UnitCaption.empty(), "a unit has a caption");
    UnitReportRequest request;
    request.Group = group;
    request.Unit = unit;
    request.GateRowsShown = GateRowsShown(config.Version);
    Require(!BuildUnitReport(config, catalogue, request).empty(), "a unit has a report");
}

} // namespace brindle
