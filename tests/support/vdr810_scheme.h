#pragma once

#include "files/option_file.h"
#include "files/vdr810_writer.h"

#include <string>

namespace brindle {

inline constexpr std::int16_t SchemeFalse =
    255; ///< its unconnected signal: the inverted "TRUE" of 256 signals

/// An option file's content: four categories that count from 5, eight signals, 20 outputs in two banks.
inline LogicConfig SchemeLists(double version, std::int16_t options, std::int16_t groups = 8) {
    Vdr810Head head;
    head.Identity = "Feeder scheme";
    head.FormatNumber = 1;
    head.Version = static_cast<float>(version);
    head.SettingsVersion = version;
    head.Options = options;
    head.Groups = groups;
    head.Timers = 6;
    head.Latches = 2;
    head.Categories = 4;
    head.Labels = 9;
    head.Signals = 256;
    head.FirstOutput = 1;
    head.LastOutput = 20;
    LogicConfig config;
    config.Coding.FalseCode = SchemeFalse;
    BecomeVdr810(config, head);
    config.Lists.Categories = {{5, "&General", "General"},
                               {6, "Zone &1", "Zone 1"},
                               {9, "Inputs", "Inputs"},
                               {EndNumber, EndName, EndName}};
    config.Lists.Labels = {{5, 0, "NO CONNECT", "NO CONNECT", false, false},
                           {5, 1, "TRUE", "TRUE", true, true},
                           {5, SchemeFalse, "FALSE", "FALSE", true, true},
                           {6, 20, "Z1P", "Zone 1 phase", true, true},
                           {6, 21, "Z1G", "Zone 1 ground", true, true},
                           {6, 21, "SECOND NAME", "Again", true, true},
                           {9, 40, "IN1", "Input 1", true, true},
                           {9, 41, "IN2", "Input 2", false, true},
                           {9, 42, "IN3", "Input 3", true, false}};
    return config;
}

/// The text of the option file of that version and options number.
inline std::string SchemeOptionFile(double version, std::int16_t options, std::int16_t groups = 8) {
    return EncodeOptionFile(SchemeLists(version, options, groups));
}

/// The text of a logic file: group 1, timer 1 has "Z1P" inverted at input 5 and is mapped to output 17.
inline std::string SchemeLogicFile(double version, std::int16_t options, std::int16_t groups = 8) {
    LogicConfig config = SchemeLists(version, options, groups);
    config.Group(1).Unit(1).Inputs[4] = 256 - 20;
    config.Group(1).Timer(1) = {250, 61005};
    config.Group(1).OutputMap(1, 2) = 0x8000;
    return EncodeVdr810(config);
}

} // namespace brindle
