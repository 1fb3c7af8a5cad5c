#include "model/output_map.h"

#include <stdexcept>

namespace brindle {

int BankCount(const LogicConfig& config) {
    return (config.LastOutput - config.FirstOutput + OutputsPerBank) / OutputsPerBank;
}

OutputBit BitOfOutput(const LogicConfig& config, int output) {
    if (config.RelayModel == RelayKind::Vdr812) {
        if (output < 1 || output > Vdr812OutputBits) {
            throw std::out_of_range("relay output");
        }
        return {1, std::uint32_t{1} << (Vdr812OutputBits - output)};
    }
    const int place = output - config.FirstOutput;
    if (place < 0 || place >= MapBanks * OutputsPerBank) {
        throw std::out_of_range("relay output");
    }
    return {place / OutputsPerBank + 1, std::uint32_t{1} << (OutputsPerBank - 1 - place % OutputsPerBank)};
}

bool OutputMapped(const LogicConfig& config, int group, int unit, int output) {
    const OutputBit bit = BitOfOutput(config, output);
    return (config.Group(group).OutputMap(Unit(unit).MapSlot, bit.Bank) & bit.Mask) != 0;
}

void MapOutput(LogicConfig& config, int group, int unit, int output, bool mapped) {
    const OutputBit bit = BitOfOutput(config, output);
    std::uint32_t& word = config.Group(group).OutputMap(Unit(unit).MapSlot, bit.Bank);
    word = mapped ? word | bit.Mask : word & ~bit.Mask;
}

} // namespace brindle
