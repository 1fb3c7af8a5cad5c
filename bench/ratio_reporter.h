#pragma once

#include <string>
#include <vector>

namespace brindle {

/// A measured benchmark and the one it is held against, both registered in the same program.
struct Ratio {
    std::string Measured;
    std::string Baseline;
};

/// Runs the registered benchmarks, each nine times and in mixed order unless the command line says otherwise,
/// and prints after their table how many times its baseline's CPU time each measured one takes (by the
/// medians). Returns 1 for arguments that are not understood and when a benchmark gave an error, else 0.
int RunBenchmarks(int argc, char** argv, const std::vector<Ratio>& ratios);

} // namespace brindle
