#include "cli/logic_input.h"

#include "cli/complaint.h"
#include "files/file_model.h"
#include "files/option_file.h"
#include "files/plc_folder.h"
#include "files/program_file.h"
#include "files/vdr810_reader.h"

#include <algorithm>
#include <ostream>

namespace brindle {

namespace {

int ReadProgram(const CommandEnvironment& environment, const std::string& path, LogicConfig& config) {
    ProgramReading reading;
    const FileError error = ReadProgramFile(environment.Files, path, config, reading);
    if (error.Failed()) {
        return ComplainOfFile(environment, path, error);
    }
    if (reading.Kind == ProgramKind::Vdr812) {
        return ExitWell;
    }
    Complain(environment, path + ": " + ForeignNotice(reading.Kind, reading.Size));
    return ExitFinding;
}

/// The lines of a box. They quote the file, so control characters become blanks as in any complaint.
void WriteLines(const CommandEnvironment& environment, std::string text) {
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c != '\n' && static_cast<unsigned char>(c) < ' '; },
        ' ');
    environment.Err << text << '\n';
}

/// Gives the logic the lists of its option file. One that is not there is missed only by a logic whose own
/// file names no signal.
int ReadLists(const CommandEnvironment& environment, const std::string& plcFolder, LogicConfig& config) {
    LoadedLists loaded;
    const PlcFolder folder = ScanPlcFolder(environment.Folders, plcFolder);
    const FileError error = LoadLists(environment.Files, folder, config, loaded);
    const std::string path =
        JoinPath(plcFolder, OptionFileName(config.Vdr810.SettingsVersion, config.Vdr810.Options));
    if (error.Failed()) {
        ComplainOfFile(environment, path, error);
        return ExitFinding;
    }
    if (!loaded.Found && config.Lists.Labels.empty()) {
        Complain(environment, path + ": not there, so signals have no names");
        return ExitFinding;
    }
    for (const std::string& misfit : loaded.Misfits) {
        Complain(environment, misfit);
    }
    return loaded.Misfits.empty() ? ExitWell : ExitFinding;
}

int ReadLogicFile(const CommandEnvironment& environment, const LogicInput& input, LogicConfig& config) {
    const Vdr810Reading reading = ReadVdr810File(environment.Files, input.File, config);
    if (reading.Error.Failed()) {
        return ComplainOfFile(environment, input.File, reading.Error);
    }
    if (reading.Refusal) {
        WriteLines(environment, reading.Refusal->Text);
        return ExitFailed;
    }
    int result = ReadLists(environment, input.PlcFolder.value_or(environment.PlcFolder), config);
    ClearUnreadInputs(config, reading);
    const std::vector<int> incomplete = IncompleteUnits(config, reading);
    if (!incomplete.empty()) {
        Complain(environment, IncompleteNotice(input.File, incomplete).Text);
        result = ExitFinding;
    }
    return result;
}

} // namespace

int ReadLogicInput(const CommandEnvironment& environment, const LogicInput& input, LogicConfig& config) {
    const RelayKind model = input.Model.value_or(ModelOfPath(input.File).value_or(RelayKind::Vdr812));
    return model == RelayKind::Vdr812 ? ReadProgram(environment, input.File, config)
                                      : ReadLogicFile(environment, input, config);
}

} // namespace brindle
