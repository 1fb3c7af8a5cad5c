#pragma once

#include "model/logic_config.h"

#include <cstdint>

/// Which bit of which word stands for a relay output.
namespace brindle {

inline constexpr int Vdr812OutputBits = 18; ///< bit positions of a VDR812 word, outputs 1 to 18
inline constexpr int OutputsPerBank = 16;   ///< outputs in one word of a VDR810

/// Number of words that the outputs of the logic take: sixteen outputs each, the last perhaps fewer.
int BankCount(const LogicConfig& config);

/// Where an output stands in the words of a map slot.
struct OutputBit {
    int Bank;           ///< 1 to 8
    std::uint32_t Mask; ///< one bit
};

/// The place of relay output `output`: for the VDR812 (1 to 18) always bank 1, output 18 the lowest bit; for
/// the VDR810 counted from the logic's first output, sixteen a bank, the first of a bank the highest of 16
/// bits. An output outside these ranges is a fault of the caller (std::out_of_range).
OutputBit BitOfOutput(const LogicConfig& config, int output);

/// Whether `output` is mapped to `unit` (1 to 10) of `group`.
bool OutputMapped(const LogicConfig& config, int group, int unit, int output);

/// Maps `output` to `unit` (1 to 10) of `group`, or no longer; every other bit stays. Both sides of a latch
/// share the mapping.
void MapOutput(LogicConfig& config, int group, int unit, int output, bool mapped);

} // namespace brindle
