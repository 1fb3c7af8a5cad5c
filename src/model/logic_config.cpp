#include "model/logic_config.h"

#include "model/number_text.h"

#include <algorithm>

namespace brindle {

std::array<char, 6> VersionTextOf(float version) {
    std::array<char, 6> text{};
    text.fill(' ');
    const std::string digits = FormatFixed(version, 2);
    std::copy_n(digits.begin(), std::min(digits.size(), text.size()), text.begin());
    return text;
}

void ClearConfig(LogicConfig& config) {
    for (int group = 1; group <= config.GroupCount; ++group) {
        ClearGroup(config.Group(group), UnconnectedCode(config));
    }
    config.Header.Magic = {'p', 'l', 'c', 'd'};
    config.Header.VersionText = VersionTextOf(config.Version);
}

void BecomeVdr812(LogicConfig& config, float version) {
    config.RelayModel = RelayKind::Vdr812;
    config.Version = version;
    config.GroupCount = MaxGroups;
    config.Coding = InputCoding{};
    config.Vdr810 = {};
    config.Lists = {};
    SetVdr812Outputs(config);
}

void MakeNewVdr812(LogicConfig& config, float version) {
    BecomeVdr812(config, version);
    ClearConfig(config);
}

void SetVdr812Outputs(LogicConfig& config) {
    config.FirstOutput = 2;
    config.LastOutput = IsVersion230(config.Version) ? 13 : 9;
}

void ClearUnit(LogicGroup& group, int unit, UnitInput emptyCode) {
    group.Unit(unit).Inputs.fill(emptyCode);
    if (IsTimer(unit)) {
        group.Timer(unit) = UnitTimer{};
    }
    group.OutputWords.at(static_cast<std::size_t>(Unit(unit).MapSlot - 1)).fill(0);
}

void ClearGroup(LogicGroup& group, UnitInput emptyCode) {
    for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
        ClearUnit(group, unit, emptyCode);
    }
}

void CopyGroup(LogicConfig& config, int from, int to) {
    if (from != to) {
        config.Group(to) = config.Group(from);
    }
}

} // namespace brindle
