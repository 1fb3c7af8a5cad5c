#pragma once

#include "model/logic_config.h"
#include "model/signal_catalogue.h"
#include "platform/file_dialog.h"
#include "platform/file_system.h"
#include "platform/message_box.h"
#include "report/logic_report.h"
#include "report/print_job.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// The report of many units as a text file, or as any other file that printing makes.
namespace brindle {

/// The name to propose for a file printed from the logic of `fileName` (a path, a name, or nothing): the
/// name's stem, or "New_File" where there is none, and `extension` (without its point).
std::string PrintFileName(std::string_view fileName, std::string_view extension);

/// The save dialog of print to file.
FileDialogRequest PrintToFileRequest(std::string_view fileName);

/// The reports of `units` one after the other. `start` is what they have in common; its group and unit do not
/// matter.
std::string ReportText(const LogicConfig& config, const SignalCatalogue& catalogue, UnitReportRequest start,
                       const std::vector<UnitPlace>& units);

/// What printing to a file asks of the outside.
struct PrintFileWorld {
    FileSystem Files;
    brindle::RunFileDialog RunFileDialog;
    brindle::ShowMessageBox ShowMessageBox;
};

/// Writes what was printed to `path`, replacing what is there as a whole; file errors are put to the user.
/// False when it was not written.
bool WritePrintFile(const PrintFileWorld& world, const std::string& path, std::string_view bytes);

/// Asks for a file, writes `reports` (made when a file was chosen) into it and tells the user its path. A
/// cancelled dialog ends it silently.
void PrintToFile(const PrintFileWorld& world, std::string_view fileName,
                 const std::function<std::string()>& reports);

} // namespace brindle
