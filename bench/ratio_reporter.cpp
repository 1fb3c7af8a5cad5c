#include "ratio_reporter.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>

namespace brindle {

namespace {

/// The console table, which besides keeps what the ratios are made of.
class RatioReporter : public benchmark::ConsoleReporter {
  public:
    RatioReporter() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            failed_ = failed_ || run.error_occurred;
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median") {
                medianSeconds_[run.run_name.function_name] =
                    run.GetAdjustedCPUTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    void PrintRatios(const std::vector<Ratio>& ratios) const {
        for (const Ratio& ratio : ratios) {
            const auto measured = medianSeconds_.find(ratio.Measured);
            const auto baseline = medianSeconds_.find(ratio.Baseline);
            if (measured != medianSeconds_.end() && baseline != medianSeconds_.end()) {
                std::printf("%s takes %.2f times %s\n", ratio.Measured.c_str(),
                            measured->second / baseline->second, ratio.Baseline.c_str());
            }
        }
    }

    [[nodiscard]] bool Failed() const { return failed_; }

  private:
    std::map<std::string, double> medianSeconds_;
    bool failed_ = false;
};

} // namespace

int RunBenchmarks(int argc, char** argv, const std::vector<Ratio>& ratios) {
    // Mixed order spreads a slow moment of the machine over figure and baseline alike.
    std::vector<std::string> defaults{"--benchmark_repetitions=9", "--benchmark_min_time=0.1",
                                      "--benchmark_enable_random_interleaving=true",
                                      "--benchmark_report_aggregates_only=true"};
    std::vector<char*> arguments{argv[0]};
    for (std::string& argument : defaults) {
        arguments.push_back(argument.data());
    }
    arguments.insert(arguments.end(), argv + 1, argv + argc); // later ones win
    arguments.push_back(nullptr);
    int count = static_cast<int>(arguments.size()) - 1;
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return 1;
    }
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    reporter.PrintRatios(ratios);
    return reporter.Failed() ? 1 : 0;
}

} // namespace brindle
