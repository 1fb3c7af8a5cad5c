#include "files/option_file.h"
#include "files/vdr810_writer.h"
#include "model/output_map.h"
#include "support/vdr810_text.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>

namespace brindle {
namespace {

std::int16_t Any16(int least, int most) {
    return static_cast<std::int16_t>(*rc::gen::inRange(least, most + 1));
}

/// A text that a field can hold.
std::string AnyField() {
    return *rc::gen::container<std::string>(rc::gen::suchThat(
        rc::gen::arbitrary<char>(), [](char c) { return c != ',' && c != '\r' && c != '\n'; }));
}

/// Any 32 bits, small numbers and the ends of the range more often than others.
std::int32_t AnyWord() {
    return *rc::gen::oneOf(rc::gen::arbitrary<std::int32_t>(), rc::gen::inRange(0, 300),
                           rc::gen::element(INT32_MIN, INT32_MAX, -1, 600000));
}

/// The head of any relay: 1 to 8 groups, 0 to 6 timers, 0 to 2 latches, not both 0, 1 to 8 banks of outputs.
Vdr810Head AnyHead() {
    Vdr810Head head;
    head.Identity = AnyField();
    head.FormatNumber = static_cast<float>(*rc::gen::inRange(0, 10000)) / 100;
    head.SettingsVersion = *rc::gen::inRange(0, 100000) / 100.0;
    head.Version = static_cast<float>(head.SettingsVersion);
    head.Options = Any16(0, 32767);
    head.Groups = Any16(1, 8);
    head.Timers = Any16(0, 6);
    head.Latches = Any16(head.Timers == 0 ? 1 : 0, 2);
    head.Labels = Any16(0, 32767);
    head.Categories = Any16(0, 32767);
    head.Signals = *rc::gen::inRange(2, INT32_MAX);
    head.FirstOutput = Any16(0, 300);
    head.LastOutput = static_cast<std::int16_t>(head.FirstOutput + Any16(0, 127));
    return head;
}

/// Any logic of a relay of `head`: codes, words and times of any 32 bits wherever the relay has them, and
/// what it does not have unconnected.
LogicConfig AnyLogic(const Vdr810Head& head, std::int16_t unconnected = InputCoding{}.FalseCode) {
    LogicConfig config;
    config.Coding.FalseCode = unconnected;
    BecomeVdr810(config, head);
    // A few random words, varied by place, fill a logic faster than a random word for each of its places.
    const auto words = *rc::gen::container<std::vector<std::int32_t>>(5, rc::gen::exec(AnyWord));
    std::size_t place = 0;
    const auto next = [&] {
        ++place;
        return static_cast<std::int32_t>(static_cast<std::uint32_t>(words[place % words.size()]) ^
                                         static_cast<std::uint32_t>(place / words.size()));
    };
    for (int g = 1; g <= config.GroupCount; ++g) {
        for (const UnitInfo& unit : UnitTable) {
            if (!HasUnit(config, unit.Number)) {
                continue;
            }
            LogicGroup& group = config.Group(g);
            for (UnitInput& input : group.Unit(unit.Number).Inputs) {
                input = next();
            }
            for (int bank = 1; bank <= BankCount(config); ++bank) {
                group.OutputMap(unit.MapSlot, bank) = static_cast<std::uint32_t>(next());
            }
            if (IsTimer(unit.Number)) {
                group.Timer(unit.Number) = {next(), next()};
            }
        }
    }
    return config;
}

Vdr810Lists AnyLists() {
    Vdr810Lists lists;
    const int categories = *rc::gen::inRange(0, 6);
    for (int i = 0; i < categories; ++i) {
        const Vdr810Category category{AnyWord(), AnyField(), AnyField()};
        if (!IsEnd(category)) {
            lists.Categories.push_back(category);
        }
    }
    const int labels = *rc::gen::inRange(0, 10);
    for (int i = 0; i < labels; ++i) {
        const Vdr810Label label{
            Any16(-32768, 32767),       AnyWord(), AnyField(), AnyField(), *rc::gen::arbitrary<bool>(),
            *rc::gen::arbitrary<bool>()};
        if (!IsEnd(label) && label.Name != FalseName) {
            lists.Labels.push_back(label);
        }
    }
    if (*rc::gen::arbitrary<bool>()) {
        lists.Categories.push_back({EndNumber, EndName, EndName});
        lists.Labels.push_back({0, EndNumber, EndName, EndName, false, false});
    }
    return lists;
}

RC_GTEST_PROP(Vdr810Property, ALogicWrittenAndReadIsTheSame, ()) {
    const LogicConfig config = AnyLogic(AnyHead());
    LogicConfig read;
    const Vdr810Reading reading = DecodeVdr810(EncodeVdr810(config), "x", read);
    RC_ASSERT(reading.Done());
    RC_ASSERT(SameVdr810(config, read));
    RC_ASSERT(IncompleteUnits(read, reading).empty());
}

RC_GTEST_PROP(Vdr810Property, AFileReadAndWrittenIsTheSameByteForByte, ()) {
    const std::string text = EncodeVdr810(AnyLogic(AnyHead()));
    RC_ASSERT(EncodeVdr810(ReadText(text).Config) == text);
}

RC_GTEST_PROP(Vdr810Property, ALogicOpenBeforeLeavesNothingButTheUnconnectedSignal, ()) {
    LogicConfig config = AnyLogic(AnyHead());
    config.Lists = AnyLists();
    config.Coding.FalseCode = Any16(-32768, 32767);
    const LogicConfig next = AnyLogic(AnyHead(), config.Coding.FalseCode); // no label tells another
    RC_ASSERT(DecodeVdr810(EncodeVdr810(next), "x", config).Done());
    RC_ASSERT(SameVdr810(next, config));
}

RC_GTEST_PROP(OptionFileProperty, AnOptionFileWrittenAndReadIsTheSame, ()) {
    LogicConfig config = AnyLogic(AnyHead());
    config.Coding.FalseCode = Any16(-32768, 32767);
    config.Lists = AnyLists();
    OptionFile option;
    RC_ASSERT(!DecodeOptionFile(EncodeOptionFile(config), "x", option).Failed());
    Vdr810Head head = HeadOf(config);
    head.Categories = static_cast<std::int16_t>(config.Lists.Categories.size());
    head.Labels = static_cast<std::int16_t>(config.Lists.Labels.size());
    RC_ASSERT(option.Head == head);
    RC_ASSERT(option.Unconnected == config.Coding.FalseCode);
    RC_ASSERT(option.Lists == config.Lists);
    LogicConfig made;
    MakeNewVdr810(made, option);
    RC_ASSERT(EncodeOptionFile(made) == EncodeOptionFile(config));
}

} // namespace
} // namespace brindle
