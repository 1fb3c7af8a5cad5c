#include "cli/commands.h"
#include "cli/complaint.h"
#include "cli/logic_json.h"
#include "files/program_file.h"
#include "files/whole_file.h"

#include <filesystem>
#include <system_error>

namespace brindle {

namespace {

/// Far above any model (about 25 kB), and low enough to hold whatever file was named by mistake.
constexpr std::size_t ModelSizeLimit = 1U << 20U;

} // namespace

int BuildCommand(const std::string& model, const std::string& out, const CommandEnvironment& environment) {
    std::error_code notThere;
    if (std::filesystem::equivalent(model, out, notThere)) {
        Complain(environment, out + ": is the model itself and would be lost");
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
    error = WriteProgramFile(environment.Files, out, config);
    return error.Failed() ? ComplainOfFile(environment, out, error) : static_cast<int>(ExitWell);
}

} // namespace brindle
