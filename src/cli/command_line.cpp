#include "cli/command_line.h"

#include "app/version.h"
#include "cli/complaint.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>
#include <new>
#include <ostream>

namespace brindle {

namespace {

/// What the arguments hold once they are parsed.
struct Request {
    ReportArguments Report;
    LogicInput Dump;
    BuildArguments Build;
    std::string CatalogueVersion = "2.30";
    LogicInput Signals;
};

std::string VersionLine() {
    return std::string(CompanionName) + " " + std::to_string(ProgramMajor) + "." +
           std::to_string(ProgramMinor) + "." + std::to_string(ProgramRevision);
}

constexpr const char* Footer = R"(Exit codes:
  0  all is well
  1  done, but the file is not as it should be (standard error says how)
  2  bad arguments
  3  a file could not be read or written, or the model was refused)";

CLI::Option* AddModel(CLI::App& command, std::optional<RelayKind>& model) {
    const std::map<std::string, RelayKind> models{{"vdr812", RelayKind::Vdr812},
                                                  {"vdr810", RelayKind::Vdr810}};
    return command.add_option("--model", model, "The relay, vdr812 or vdr810; otherwise the extension tells")
        ->transform(CLI::CheckedTransformer(models, CLI::ignore_case))
        ->type_name("MODEL")
        ->option_text("MODEL");
}

CLI::Option* AddPlcFolder(CLI::App& command, std::optional<std::string>& folder) {
    return command
        .add_option("--plc-folder", folder,
                    "Folder of the option files of VDR810 logic; otherwise the program's")
        ->type_name("DIR");
}

/// What every command takes that must have a file of either model.
void AddInput(CLI::App& command, LogicInput& input) {
    command.add_option("FILE", input.File, "Program file (.pl) or logic file (.c10)")->required();
    AddModel(command, input.Model);
    AddPlcFolder(command, input.PlcFolder);
}

CLI::App* AddReport(CLI::App& app, Request& request) {
    CLI::App* report = app.add_subcommand("report", "Write the text report of a file's units");
    AddInput(*report, request.Report.Input);
    report
        ->add_option("--group", request.Report.Groups,
                     "Report this setting group only, 1 to 8; may be given again")
        ->type_name("N")
        ->allow_extra_args(false);
    report
        ->add_option("--unit", request.Report.Units,
                     "Report this unit only: T1 to T6, R1, S1, R2 or S2; may be given again")
        ->type_name("TAG")
        ->allow_extra_args(false);
    report->add_flag("--numbers", request.Report.Numbers, "Show the stored code of each input");
    return report;
}

CLI::App* AddDump(CLI::App& app, Request& request) {
    CLI::App* dump = app.add_subcommand("dump", "Write the whole logic of a file as JSON");
    AddInput(*dump, request.Dump);
    return dump;
}

CLI::App* AddBuild(CLI::App& app, Request& request) {
    CLI::App* build = app.add_subcommand("build", "Make the file that a JSON model describes");
    build->add_option("MODEL", request.Build.Model, "JSON as dump writes it; every field must be there")
        ->required();
    build->add_option("OUT", request.Build.Out, "File (.pl or .c10) to write; an old one is replaced")
        ->required();
    AddModel(*build, request.Build.Relay);
    return build;
}

CLI::App* AddSignals(CLI::App& app, Request& request) {
    CLI::App* signals = app.add_subcommand("signals", "List the signals that inputs can be connected to");
    CLI::Option* file = signals->add_option("FILE", request.Signals.File,
                                            "Of this option file (.810), logic file (.c10) or program (.pl)");
    AddModel(*signals, request.Signals.Model)->needs(file);
    AddPlcFolder(*signals, request.Signals.PlcFolder)->needs(file);
    signals->add_option("--version", request.CatalogueVersion, "Of this file version: 1.00 or 2.30")
        ->type_name("VERSION")
        ->capture_default_str()
        ->excludes(file);
    return signals;
}

bool HasCommand(CLI::App& app, const std::string& name) {
    const std::vector<CLI::App*> commands = app.get_subcommands({});
    return std::any_of(commands.begin(), commands.end(),
                       [&name](const CLI::App* command) { return command->get_name() == name; });
}

/// Parses the arguments and runs the command they name.
int Dispatch(std::vector<std::string> arguments, const CommandEnvironment& environment) {
    Request request;
    CLI::App app("Looks into and makes VDR812 program files and VDR810 logic files, without a window.",
                 CompanionName);
    app.allow_windows_style_options(false); // "/relays/x.pl" is a path on Windows too
    app.require_subcommand(1);
    app.footer(Footer);
    app.set_version_flag("--version", VersionLine());
    const CLI::App* report = AddReport(app, request);
    const CLI::App* dump = AddDump(app, request);
    const CLI::App* build = AddBuild(app, request);
    const CLI::App* signals = AddSignals(app, request);
    if (!arguments.empty() && !arguments.front().starts_with('-') && !HasCommand(app, arguments.front())) {
        // The parser would only say that a command is missing.
        Complain(environment, "\"" + arguments.front() + "\" is no command (see --help)");
        return ExitBadArguments;
    }
    try {
        std::reverse(arguments.begin(), arguments.end()); // the parser takes them from the back
        app.parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
        environment.Out << app.help();
        return ExitWell;
    } catch (const CLI::CallForVersion&) {
        environment.Out << VersionLine() << '\n';
        return ExitWell;
    } catch (const CLI::ParseError& error) {
        Complain(environment, std::string(error.what()) + " (see --help)");
        return ExitBadArguments;
    }
    if (report->parsed()) {
        return ReportCommand(request.Report, environment);
    }
    if (dump->parsed()) {
        return DumpCommand(request.Dump, environment);
    }
    if (build->parsed()) {
        return BuildCommand(request.Build, environment);
    }
    if (signals->count("FILE") != 0) {
        return FileSignalsCommand(request.Signals, environment);
    }
    return SignalsCommand(request.CatalogueVersion, environment);
}

/// The one place of the companion for a lack of memory that no routine below has told; its words need none.
int DispatchOrLackMemory(const std::vector<std::string>& arguments, const CommandEnvironment& environment) {
    try {
        return Dispatch(arguments, environment);
    } catch (const std::bad_alloc&) {
        environment.Err << CompanionName << ": out of memory\n";
        return ExitFailed;
    }
}

} // namespace

int RunCommandLine(const std::vector<std::string>& arguments, const CommandEnvironment& environment) {
    const int result = DispatchOrLackMemory(arguments, environment);
    environment.Out.flush();
    if (!environment.Out) {
        environment.Err << CompanionName << ": standard output: not everything could be written\n";
        return ExitFailed;
    }
    return result;
}

} // namespace brindle
