#include "files/vdr810_head.h"
#include "files/vdr810_reader.h"
#include "files/vdr810_writer.h"
#include "fuzz/check.h"

#include <string>
#include <string_view>

/// Any bytes as the logic file of a VDR810: refused with words, or loaded, shown, saved and loaded as the
/// same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brindle;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    LogicConfig config;
    const LogicConfig before = config;
    Vdr810Reading reading = DecodeVdr810(text, "read x.c10", config);
    if (reading.Error.Failed()) {
        Require(!reading.Error.Description.empty() && !reading.Error.Source.empty(), "an error has words");
        Require(config.RelayModel == before.RelayModel && config.Groups == before.Groups,
                "a head that is refused changes nothing");
        return 0;
    }
    Require(!reading.Refusal || !reading.Refusal->Text.empty(), "a refusal has words");
    ClearUnreadInputs(config, reading);
    ShowAndReport(config, size);
    if (!reading.Done()) {
        return 0;
    }
    const std::string saved = EncodeVdr810(config);
    LogicConfig again;
    again.Coding.FalseCode = config.Coding.FalseCode;
    reading = DecodeVdr810(saved, "read x.c10", again);
    Require(reading.Done() && IncompleteUnits(again, reading).empty(), "what was saved loads");
    Vdr810Head head = HeadOf(config);
    const Vdr810Head headAgain = HeadOf(again);
    // Reals are written with two decimals.
    head.FormatNumber = headAgain.FormatNumber;
    head.Version = headAgain.Version;
    head.SettingsVersion = headAgain.SettingsVersion;
    Require(headAgain == head, "what was saved has the same head");
    Require(EncodeVdr810(again) == saved, "what was saved is saved as the same again");
    for (int group = 1; group <= config.GroupCount; ++group) {
        for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
            Require(!HasUnit(config, unit) || again.Group(group).Unit(unit) == config.Group(group).Unit(unit),
                    "a unit that was saved loads as the same");
        }
    }
    return 0;
}
