#include "editor/gate_rows.h"
#include "editor/unit_view.h"
#include "files/program_file.h"
#include "model/logic_config.h"
#include "model/signal_catalogue.h"
#include "ratio_reporter.h"
#include "report/logic_report.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

/// What the core does with one program, in memory: decode, encode, view and report.
namespace {

using namespace brindle;

constexpr std::size_t GroupsOffset = 128; // of the file, behind its header

/// A program as a user has it open.
struct OpenProgram {
    LogicConfig Config;
    SignalCatalogue Catalogue;
    ProgramImage Image{};
};

/// The example with the most text: its version shows four gates a unit. The groups that it leaves empty are
/// filled with its first, as after a copy of the group.
bool Load(OpenProgram& program) {
    ProgramReading reading;
    const FileError error =
        ReadProgramFile(RealFileSystem(), BRINDLE_EXAMPLES "/pilot_supervision.pl", program.Config, reading);
    if (error.Failed()) {
        return false;
    }
    for (int group = 3; group <= MaxGroups; ++group) {
        CopyGroup(program.Config, 1, group);
    }
    program.Catalogue = BuildVdr812Catalogue(program.Config.Version);
    return !EncodeProgram(program.Config, program.Image).Failed();
}

/// The least that decoding can be: every stored field copied, in order, bytes as they come.
void CopyIntoFields(const ProgramImage& image, LogicConfig& config) {
    const char* from = image.data() + GroupsOffset;
    for (LogicGroup& group : config.Groups) {
        for (LogicUnit& unit : group.Units) {
            for (UnitInput& input : unit.Inputs) {
                input = static_cast<unsigned char>(*from++);
            }
        }
        std::memcpy(group.Timers.data(), from, sizeof group.Timers);
        from += sizeof group.Timers;
        for (auto& words : group.OutputWords) {
            std::memcpy(words.data(), from, sizeof words.front());
            from += sizeof words.front();
        }
    }
}

/// The least that encoding can be: the same the other way round.
void CopyFromFields(const LogicConfig& config, ProgramImage& image) {
    char* to = image.data() + GroupsOffset;
    for (const LogicGroup& group : config.Groups) {
        for (const LogicUnit& unit : group.Units) {
            for (const UnitInput input : unit.Inputs) {
                *to++ = static_cast<char>(input);
            }
        }
        std::memcpy(to, group.Timers.data(), sizeof group.Timers);
        to += sizeof group.Timers;
        for (const auto& words : group.OutputWords) {
            std::memcpy(to, words.data(), sizeof words.front());
            to += sizeof words.front();
        }
    }
}

void Decode(benchmark::State& state, const OpenProgram& program) {
    LogicConfig config;
    for (auto _ : state) {
        DecodeProgram({program.Image.data(), program.Image.size()}, config);
        benchmark::DoNotOptimize(config);
        benchmark::ClobberMemory();
    }
    if (config.Groups != program.Config.Groups) {
        state.SkipWithError("decoded another program");
    }
}

void CopyBytesIntoFields(benchmark::State& state, const OpenProgram& program) {
    LogicConfig config;
    for (auto _ : state) {
        CopyIntoFields(program.Image, config);
        benchmark::DoNotOptimize(config);
        benchmark::ClobberMemory();
    }
}

void Encode(benchmark::State& state, const OpenProgram& program) {
    ProgramImage image{};
    for (auto _ : state) {
        FileError error = EncodeProgram(program.Config, image);
        benchmark::DoNotOptimize(error);
        benchmark::ClobberMemory();
    }
    if (image != program.Image) {
        state.SkipWithError("encoded another program");
    }
}

void CopyFieldsIntoBytes(benchmark::State& state, const OpenProgram& program) {
    ProgramImage image{};
    for (auto _ : state) {
        CopyFromFields(program.Config, image);
        benchmark::DoNotOptimize(image);
        benchmark::ClobberMemory();
    }
}

void BuildView(benchmark::State& state, const OpenProgram& program) {
    for (auto _ : state) {
        UnitView view = BuildUnitView(program.Config, program.Catalogue, ViewSelection());
        benchmark::DoNotOptimize(view);
    }
}

void CopyView(benchmark::State& state, const OpenProgram& program) {
    const UnitView view = BuildUnitView(program.Config, program.Catalogue, ViewSelection());
    for (auto _ : state) {
        UnitView copy = view;
        benchmark::DoNotOptimize(copy);
    }
}

std::vector<UnitReportRequest> AllUnits(const LogicConfig& config) {
    std::vector<UnitReportRequest> requests;
    for (int group = 1; group <= MaxGroups; ++group) {
        for (const UnitInfo& unit : UnitTable) {
            requests.push_back({group, unit.Number, "/home/engineer/line 7/pilot_supervision.pl", "11/21/26",
                                "09:41:07", false, GateRowsShown(config.Version)});
        }
    }
    return requests;
}

void ReportAllUnits(benchmark::State& state, const OpenProgram& program) {
    const std::vector<UnitReportRequest> requests = AllUnits(program.Config);
    for (auto _ : state) {
        for (const UnitReportRequest& request : requests) {
            std::string text = JoinReportLines(BuildUnitReport(program.Config, program.Catalogue, request));
            benchmark::DoNotOptimize(text);
        }
    }
}

void JoinReadyLines(benchmark::State& state, const OpenProgram& program) {
    std::vector<std::vector<std::string>> reports;
    for (const UnitReportRequest& request : AllUnits(program.Config)) {
        reports.push_back(BuildUnitReport(program.Config, program.Catalogue, request));
    }
    for (auto _ : state) {
        for (const std::vector<std::string>& lines : reports) {
            std::string text = JoinReportLines(lines);
            benchmark::DoNotOptimize(text);
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    OpenProgram program;
    if (!Load(program)) {
        std::fprintf(stderr, "cannot read the example\n");
        return 1;
    }
    const auto add = [&program](const char* name, void (*run)(benchmark::State&, const OpenProgram&)) {
        benchmark::RegisterBenchmark(name, [&program, run](benchmark::State& state) {
            run(state, program);
        })->Unit(benchmark::kMicrosecond);
    };
    add("Decode", Decode);
    add("CopyBytesIntoFields", CopyBytesIntoFields);
    add("Encode", Encode);
    add("CopyFieldsIntoBytes", CopyFieldsIntoBytes);
    add("BuildView", BuildView);
    add("CopyView", CopyView);
    add("ReportAllUnits", ReportAllUnits);
    add("JoinReadyLines", JoinReadyLines);
    return RunBenchmarks(argc, argv,
                         {{"Decode", "CopyBytesIntoFields"},
                          {"Encode", "CopyFieldsIntoBytes"},
                          {"BuildView", "CopyView"},
                          {"ReportAllUnits", "JoinReadyLines"}});
}
