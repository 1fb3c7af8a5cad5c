#include "report/print_to_file.h"

#include "files/whole_file.h"
#include "platform/paths.h"
#include "settings/file_command.h"

namespace brindle {

namespace {

constexpr const char* SaveFailed = "There was an error trying to save the File.";

MessageBox SavedNotice(const std::string& path) {
    return {"The Programmable Logic configuration was saved to the text file: " + path, MessageIcon::None,
            MessageButtons::Ok};
}

} // namespace

std::string PrintFileName(std::string_view fileName, std::string_view extension) {
    const std::string stem = Get_File_Name_Parts(fileName).Name;
    return (stem.empty() ? "New_File" : stem) + "." + std::string(extension);
}

FileDialogRequest PrintToFileRequest(std::string_view fileName) {
    FileDialogRequest request;
    request.Kind = FileDialogKind::SaveAs;
    request.Title = "Print Settings to a File";
    request.Filter = "Text File (*.txt)|*.txt |All Files (*.*)|*.*";
    request.FilterIndex = 1;
    request.DefaultExtension = "txt";
    request.InitialFileName = PrintFileName(fileName, request.DefaultExtension);
    return request;
}

std::string ReportText(const LogicConfig& config, const SignalCatalogue& catalogue, UnitReportRequest start,
                       const std::vector<UnitPlace>& units) {
    std::string text;
    for (const UnitPlace& place : units) {
        start.Group = place.Group;
        start.Unit = place.Unit;
        text += JoinReportLines(BuildUnitReport(config, catalogue, start));
    }
    return text;
}

bool WritePrintFile(const PrintFileWorld& world, const std::string& path, std::string_view bytes) {
    const auto write = [&] { return ReplaceWholeFile(world.Files, path, bytes); };
    return RunFileCommand({write}, SaveFailed, world.ShowMessageBox) == FileOutcome::Done;
}

void PrintToFile(const PrintFileWorld& world, std::string_view fileName,
                 const std::function<std::string()>& reports) {
    const std::optional<FileDialogAnswer> file = world.RunFileDialog(PrintToFileRequest(fileName));
    if (file && WritePrintFile(world, file->FileName, reports())) {
        world.ShowMessageBox(SavedNotice(file->FileName));
    }
}

} // namespace brindle
