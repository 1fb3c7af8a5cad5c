#pragma once

#include <cstddef>

/// Memory that runs out on demand. The program that has this has its own operator new.
namespace brindle {

enum class Shortage {
    Momentary, ///< one allocation fails, those after it do not
    Lasting    ///< it fails, and so do all after it
};

/// From now on allocation number `n` (from 1) fails.
void RunOutOfMemory(std::size_t n, Shortage shortage);

/// There is memory again. Returns whether an allocation has failed.
bool HaveMemoryAgain();

/// How many bytes were asked for since the program began.
std::size_t BytesAllocated();

/// Runs `run` again and again, failing the first allocation, then the second, and so on, until one run has
/// memory for everything; calls `check` after each but that. Returns how many were failed.
template<class Run, class Check>
std::size_t FailEachAllocation(Shortage shortage, const Run& run, const Check& check) {
    for (std::size_t n = 1;; ++n) {
        RunOutOfMemory(n, shortage);
        run();
        if (!HaveMemoryAgain()) {
            return n - 1;
        }
        check(n);
    }
}

} // namespace brindle
