#include "cli/commands.h"
#include "cli/complaint.h"
#include "cli/logic_json.h"
#include "files/file_model.h"
#include "files/program_file.h"
#include "files/vdr810_writer.h"
#include "files/whole_file.h"

#include <filesystem>
#include <optional>
#include <system_error>

namespace brindle {

namespace {

/// Far above any model (some 50 kB at most), and low enough to hold whatever file was named by mistake.
constexpr std::size_t ModelSizeLimit = 1U << 20U;

/// Replaces the file, and says what of it the new one does not have.
int WriteLogicFile(const LogicConfig& config, const std::string& out, const CommandEnvironment& environment) {
    FileTraits lost;
    const ReplaceRules rules{environment.PlcFolder, [&](const FileTraits& traits) {
                                 lost = traits;
                                 return LossAnswer::Replace;
                             }};
    const FileError error = config.RelayModel == RelayKind::Vdr812
                                ? WriteProgramFile(environment.Files, out, config, rules)
                                : WriteVdr810File(environment.Files, out, config, rules);
    if (error.Failed()) {
        return ComplainOfFile(environment, out, error);
    }
    if (lost.Any()) {
        Complain(environment, out + ": replaced, but without " + ListOfTraits(lost) + " of the old file");
        return ExitFinding;
    }
    return ExitWell;
}

} // namespace

int BuildCommand(const BuildArguments& arguments, const CommandEnvironment& environment) {
    const std::string& model = arguments.Model;
    const std::string& out = arguments.Out;
    std::error_code notThere;
    if (std::filesystem::equivalent(model, out, notThere)) {
        Complain(environment, out + ": is the model itself and would be lost");
        return ExitBadArguments;
    }
    const std::optional<RelayKind> relayOfOut = ModelOfPath(out);
    if (arguments.Relay && relayOfOut && *arguments.Relay != *relayOfOut) {
        Complain(environment, out + ": its extension is not that of --model");
        return ExitBadArguments;
    }
    std::string text;
    FileError error = ReadWholeFile(environment.Files, model, ModelSizeLimit + 1, text);
    if (error.Failed()) {
        return ComplainOfFile(environment, model, error);
    }
    if (text.size() > ModelSizeLimit) {
        Complain(environment, model + ": longer than " + std::to_string(ModelSizeLimit) + " bytes");
        return ExitFailed;
    }
    LogicConfig config;
    const std::string refusal = LogicFromJson(text, config);
    if (!refusal.empty()) {
        Complain(environment, model + ": " + refusal);
        return ExitFailed;
    }
    const RelayKind wanted = arguments.Relay.value_or(relayOfOut.value_or(config.RelayModel));
    if (wanted != config.RelayModel) {
        Complain(environment, model + ": relay_model " + std::to_string(static_cast<int>(config.RelayModel)) +
                                  " is not that of " + (arguments.Relay ? "--model" : out));
        return ExitBadArguments;
    }
    return WriteLogicFile(config, out, environment);
}

} // namespace brindle
