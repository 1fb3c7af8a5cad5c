#include "files/vdr810_writer.h"

#include "files/vdr810_head.h"
#include "files/vdr810_sections.h"
#include "files/whole_file.h"
#include "model/output_map.h"

namespace brindle {

namespace {

/// The lines of one logic, built up.
class SectionWriter {
  public:
    explicit SectionWriter(const LogicConfig& config)
        : config_(config), text_(Vdr810HeadText(HeadOf(config))) {}

    void Unit(int unit) {
        text_ += UnitTags.at(static_cast<std::size_t>(unit - 1));
        text_ += "\r\n";
        for (int input = 1; input <= InputsPerUnit; ++input) {
            Begin(InputRecord, input);
            ForEachGroup([&](int group) { Value(config_.InputCode(group, unit, input)); });
        }
        OutputMap(unit);
        if (IsTimer(unit)) {
            Begin(PickUpRecord, unit);
            ForEachGroup([&](int group) { Value(config_.Group(group).Timer(unit).PickUp); });
            Begin(DropOutRecord, unit);
            ForEachGroup([&](int group) { Value(config_.Group(group).Timer(unit).DropOut); });
        }
    }

    [[nodiscard]] const std::string& Text() const { return text_; }

  private:
    void OutputMap(int unit) {
        const int slot = brindle::Unit(unit).MapSlot;
        // The file counts a latch from the timers that there are, the logic from those that there can be.
        Begin(OutputMapRecord, IsTimer(unit) ? slot : slot - TimersPerGroup + config_.Vdr810.TimerCount);
        ForEachGroup([&](int group) {
            for (int bank = 1; bank <= BankCount(config_); ++bank) {
                Value(static_cast<std::int32_t>(config_.Group(group).OutputMap(slot, bank)));
            }
        });
    }

    void Begin(UnitRecord record, int number) {
        text_ += std::to_string(record) + "," + std::to_string(number);
    }

    void Value(std::int32_t value) {
        text_ += ',';
        text_ += std::to_string(value);
    }

    template<class Write>
    void ForEachGroup(const Write& write) {
        for (int group = 1; group <= config_.GroupCount; ++group) {
            write(group);
        }
        text_ += "\r\n";
    }

    const LogicConfig& config_;
    std::string text_;
};

} // namespace

std::string EncodeVdr810(const LogicConfig& config) {
    SectionWriter writer(config);
    for (const UnitInfo& unit : UnitTable) {
        if (HasUnit(config, unit.Number)) {
            writer.Unit(unit.Number);
        }
    }
    return writer.Text();
}

FileError WriteVdr810File(const FileSystem& files, const std::string& path, const LogicConfig& config,
                          const ReplaceRules& rules) {
    return ReplaceWholeFile(files, path, EncodeVdr810(config), rules);
}

} // namespace brindle
