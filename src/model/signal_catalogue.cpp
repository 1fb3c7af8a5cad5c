#include "model/signal_catalogue.h"

#include "model/logic_config.h"
#include "model/number_text.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace brindle {

namespace {

/// What one file version says of a signal.
struct SignalColumn {
    std::int16_t Category;
    bool Enabled;
    bool Visible;
};

struct SignalRow {
    std::string_view Name;
    SignalColumn V100;
    SignalColumn V230;
};

struct CategoryRow {
    std::string_view Name;
    bool Visible100;
    bool Visible230;
};

constexpr std::size_t SignalCapacity = 141; // positions 0 to 140
constexpr std::int16_t FalseSignalCode = 255;
constexpr std::size_t OuterBlinderPosition = 16;
constexpr std::string_view OuterBlinderName230 = "OUTER BLINDER";

// clang-format off
// Positions are the codes that program files store, so the order is part of the file format.
constexpr std::array SignalTable = std::to_array<SignalRow>({
    {"NO CONNECT", {NoCategory, true, true}, {NoCategory, true, true}}, // 0
    {"TRUE", {0, true, true}, {0, true, true}}, // 1
    {"Z1GT", {1, true, true}, {1, true, true}}, // 2
    {"Z1PT", {1, true, true}, {1, true, true}}, // 3
    {"Z1TRIP", {1, true, true}, {1, true, true}}, // 4
    {"ZONE 2 TRIP", {2, true, true}, {2, true, true}}, // 5
    {"ZONE 3 TRIP", {3, true, true}, {3, true, true}}, // 6
    {"PFGT", {4, true, true}, {4, true, true}}, // 7
    {"PFPT", {4, true, true}, {4, true, true}}, // 8
    {"PFT", {4, true, true}, {4, true, true}}, // 9
    {"FWP PILOT TRIP", {4, true, true}, {NoCategory, true, false}}, // 10
    {"PRGT", {5, true, true}, {5, true, true}}, // 11
    {"PRPT", {5, true, true}, {5, true, true}}, // 12
    {"PRT", {5, false, false}, {5, true, true}}, // 13
    {"RVP PILOT TRIP", {5, true, true}, {NoCategory, true, false}}, // 14
    {"BLINDERS INNER SUPERVISED", {6, true, true}, {6, true, true}}, // 15
    {"BLINDERS OUTER SUPERVISED", {6, true, true}, {25, true, true}}, // 16
    {"OSB", {6, true, true}, {NoCategory, true, false}}, // 17
    {"HS TRIP", {7, true, true}, {7, true, true}}, // 18
    {"HS 50N", {7, true, true}, {7, true, true}}, // 19
    {"HS 50P", {7, true, true}, {7, true, true}}, // 20
    {"HS 50Q", {7, true, true}, {7, true, true}}, // 21
    {"50M SUPV PHASE", {8, true, true}, {8, true, true}}, // 22
    {"50M SUPV 3PH", {8, true, true}, {8, true, true}}, // 23
    {"50NM SUPV", {8, true, true}, {8, true, true}}, // 24
    {"50QM SUPV", {8, true, true}, {8, true, true}}, // 25
    {"MEDIUM SET GROUND TRIP", {8, true, true}, {NoCategory, true, false}}, // 26
    {"MEDIUM SET NEGATIVE SEQUENCE TRIP", {8, true, true}, {NoCategory, true, false}}, // 27
    {"50NL SUPV", {9, true, true}, {NoCategory, true, false}}, // 28
    {"50QL SUPV", {9, true, true}, {NoCategory, true, false}}, // 29
    {"50 POL", {9, false, true}, {NoCategory, false, false}}, // 30
    {"CURRENT LOW SET", {9, true, true}, {NoCategory, true, false}}, // 31
    {"LOSS OF CURRENT ALARM", {9, true, true}, {NoCategory, true, false}}, // 32
    {"51P TRIP", {10, true, true}, {10, true, true}}, // 33
    {"51Q TRIP", {10, true, true}, {10, true, true}}, // 34
    {"51N TRIP", {10, true, true}, {10, true, true}}, // 35
    {"STUB BUS", {11, true, true}, {NoCategory, true, false}}, // 36
    {"CLOSE INTO FAULT TRIP", {11, true, true}, {NoCategory, true, false}}, // 37
    {"UNDERVOLTAGE", {12, true, true}, {12, true, true}}, // 38
    {"3 PHASE UNDERVOLTAGE", {12, true, true}, {12, true, true}}, // 39
    {"59N OVERVOLTAGE", {12, true, true}, {12, true, true}}, // 40
    {"HS LOP BLOCK SET", {12, true, true}, {NoCategory, true, false}}, // 41
    {"FORWARD 3 PHASE", {13, true, true}, {13, true, true}}, // 42
    {"FORWARD GF", {13, true, true}, {13, true, true}}, // 43
    {"REVERSE 3 PH", {13, true, true}, {13, true, true}}, // 44
    {"REVERSE GF", {13, true, true}, {13, true, true}}, // 45
    {"PILOT TRIP COMBINED", {14, true, true}, {14, true, true}}, // 46
    {"PILOT CHANNEL START", {14, true, true}, {14, true, true}}, // 47
    {"PILOT CHANNEL STOP", {14, true, true}, {NoCategory, true, false}}, // 48
    {"CHANNEL RECEIVE", {14, true, true}, {NoCategory, true, false}}, // 49
    {"ECHO KEY", {14, true, true}, {NoCategory, true, false}}, // 50
    {"WEAKFEED KEY", {14, true, true}, {NoCategory, true, false}}, // 51
    {"FAULT INCEPTION DETECTOR", {15, true, true}, {NoCategory, true, false}}, // 52
    {"FAULT INCEPTION DETECTOR I", {15, true, true}, {NoCategory, true, false}}, // 53
    {"FAULT INCEPTION DETECTOR V", {15, true, true}, {NoCategory, true, false}}, // 54
    {"AG", {16, true, true}, {NoCategory, true, false}}, // 55
    {"BG", {16, true, true}, {NoCategory, true, false}}, // 56
    {"CG", {16, true, true}, {NoCategory, true, false}}, // 57
    {"SLG FAULT", {16, true, true}, {24, true, true}}, // 58
    {"AG FAULT", {17, true, true}, {17, true, true}}, // 59
    {"BG FAULT", {17, true, true}, {17, true, true}}, // 60
    {"CG FAULT", {17, true, true}, {17, true, true}}, // 61
    {"AB FAULT", {17, true, true}, {17, true, true}}, // 62
    {"BC FAULT", {17, true, true}, {17, true, true}}, // 63
    {"CA FAULT", {17, true, true}, {17, true, true}}, // 64
    {"ABG FAULT", {17, true, true}, {17, true, true}}, // 65
    {"BCG FAULT", {17, true, true}, {17, true, true}}, // 66
    {"CAG FAULT", {17, true, true}, {17, true, true}}, // 67
    {"3-PHASE FAULT", {17, true, true}, {17, true, true}}, // 68
    {"DSP TRIP", {18, true, true}, {NoCategory, true, false}}, // 69
    {"SINGLE POLE TRIP PH A", {18, true, true}, {NoCategory, true, false}}, // 70
    {"SINGLE POLE TRIP PH B", {18, true, true}, {NoCategory, true, false}}, // 71
    {"SINGLE POLE TRIP PH C", {18, true, true}, {NoCategory, true, false}}, // 72
    {"TRIP 3 POLE", {18, true, true}, {NoCategory, true, false}}, // 73
    {"BREAKER FAILURE INITIATE", {19, true, true}, {19, true, true}}, // 74
    {"BREAKER FAILURE RETRIP", {19, true, true}, {19, true, true}}, // 75
    {"BREAKER FAILURE TRIP", {19, true, true}, {23, true, true}}, // 76
    {"HSRI", {20, true, true}, {20, true, true}}, // 77
    {"TDRI", {20, true, true}, {20, true, true}}, // 78
    {"RECL BLOCK", {20, true, true}, {20, true, true}}, // 79
    {"SINGLE POLE RECLOSE INITIATE", {20, true, true}, {NoCategory, true, false}}, // 80
    {"BKR FAIL RB", {20, true, true}, {NoCategory, true, false}}, // 81
    {"SINGLE POLE TRIP PHASE A", {21, true, true}, {21, true, true}}, // 82
    {"SINGLE POLE TRIP PHASE B", {21, true, true}, {21, true, true}}, // 83
    {"SINGLE POLE TRIP PHASE C", {21, true, true}, {21, true, true}}, // 84
    {"INP1", {22, true, true}, {22, true, true}}, // 85
    {"INP2", {22, true, true}, {22, true, true}}, // 86
    {"INP3", {22, true, true}, {22, true, true}}, // 87
    {"INP4", {22, true, true}, {22, true, true}}, // 88
    {"INP5", {22, true, true}, {22, true, true}}, // 89
    {"INP6", {22, true, true}, {22, true, true}}, // 90
    {"INP7", {22, true, true}, {22, true, true}}, // 91
    {"INP8", {22, true, true}, {22, true, true}}, // 92
    {"INP9", {22, true, true}, {22, true, true}}, // 93
    {"INP10", {22, true, true}, {NoCategory, true, false}}, // 94
    {"INP11", {22, true, true}, {NoCategory, true, false}}, // 95
    {"INP12", {22, true, true}, {NoCategory, true, false}}, // 96
    {"59P OVERVOLTAGE 1", {NoCategory, true, false}, {12, true, true}}, // 97
    {"59P OVERVOLTAGE 2", {NoCategory, true, false}, {12, true, true}}, // 98
    {"NETWORK 52 CLOSE", {NoCategory, true, false}, {23, true, true}}, // 99
    {"BREAKER OPEN", {NoCategory, true, false}, {23, true, true}}, // 100
    {"2 PHG FAULT", {NoCategory, true, false}, {24, true, true}}, // 101
    {"3P TRIP SEAL", {NoCategory, true, false}, {18, true, true}}, // 102
    {"SP TRIP SEAL", {NoCategory, true, false}, {18, true, true}}, // 103
    {"FALSE", {0, true, true}, {0, true, true}}, // 104
    {"END", {NoCategory, false, false}, {NoCategory, false, false}}, // 105
});
// clang-format on

// Every category is enabled in both versions; what differs is whether its menu item is shown.
constexpr std::array CategoryTable = std::to_array<CategoryRow>({
    {"General", true, true},
    {"Zone - 1", true, true},
    {"Zone - 2", true, true},
    {"Zone - 3", true, true},
    {"Foward Pilot", true, true},
    {"Reverse Pilot", true, true},
    {"Out of step and Load Restriction", true, false},
    {"High Set Overcurrent Elements and Functions", true, true},
    {"Medium Set Overcurrent Elements and Functions", true, true},
    {"Low Set Overcurrent Elements and Functions", true, false},
    {"Time-Overcurrent Elements", true, true},
    {"Other Overcurrent Elements and Logic Functions", true, false},
    {"Voltage Elements and Logic Functions", true, true},
    {"Directional Elements", true, true},
    {"Pilot Logic", true, true},
    {"Fault Inception Detector", true, false},
    {"High Speed Phase Selection Logic", true, false},
    {"Phase Selection at Fault/Trip", true, true},
    {"Trip Signals", true, true},
    {"Breaker Failure Logic", true, false},
    {"Reclose Initiate and Block", true, true},
    {"Single Pole Trip", true, false},
    {"Binary Inputs", true, true},
    {"Breaker Logic", false, true},
    {"Fault Type", false, true},
    {"Outer Blinder", false, true},
    {"Not Used ", false, false},
    {"Not Used ", false, false},
    {"Not Used ", false, false},
    {"Not Used ", false, false},
    {"Not Used ", false, false},
});

// The one category whose caption carries an access key.
constexpr std::size_t AccessKeyCategory = 3;
constexpr std::string_view AccessKeyCaption = "Zone - &3";

std::int32_t CodeAt(std::size_t position) {
    const std::size_t end = SignalTable.size() - 1;
    if (position == end) {
        return EndNumber;
    }
    return position == end - 1 ? FalseSignalCode : static_cast<std::int32_t>(position);
}

} // namespace

SignalCatalogue BuildVdr812Catalogue(float version) {
    const bool is230 = IsVersion230(version);
    SignalCatalogue catalogue;
    catalogue.Signals.resize(SignalCapacity);
    for (std::size_t i = 0; i < SignalTable.size(); ++i) {
        const SignalRow& row = SignalTable.at(i);
        const SignalColumn& column = is230 ? row.V230 : row.V100;
        const std::string name(is230 && i == OuterBlinderPosition ? OuterBlinderName230 : row.Name);
        catalogue.Signals[i] = {column.Category, CodeAt(i), name, name, column.Enabled, column.Visible};
    }
    for (std::size_t i = 0; i < CategoryTable.size(); ++i) {
        const CategoryRow& row = CategoryTable.at(i);
        const std::string caption(i == AccessKeyCategory ? AccessKeyCaption : row.Name);
        catalogue.Categories.push_back({static_cast<std::int32_t>(i), caption, std::string(row.Name), true,
                                        is230 ? row.Visible230 : row.Visible100});
    }
    for (std::size_t i = 0; i < SignalCapacity; ++i) {
        catalogue.PositionOfNumber.emplace_back(static_cast<std::int32_t>(i), i);
    }
    return catalogue;
}

SignalCatalogue BuildCatalogue(const LogicConfig& config) {
    return config.RelayModel == RelayKind::Vdr812 ? BuildVdr812Catalogue(config.Version)
                                                  : BuildVdr810Catalogue(config.Lists);
}

std::size_t SignalCount(const SignalCatalogue& catalogue) {
    const auto end =
        std::find_if(catalogue.Signals.begin(), catalogue.Signals.end(), [](const SignalEntry& signal) {
            return signal.Code == EndNumber && signal.Name == EndName;
        });
    return static_cast<std::size_t>(end - catalogue.Signals.begin());
}

std::vector<const SignalEntry*> SignalsOfCategory(const SignalCatalogue& catalogue, std::int32_t category) {
    std::vector<const SignalEntry*> signals;
    const std::size_t count = SignalCount(catalogue);
    for (std::size_t i = 0; i < count; ++i) {
        if (catalogue.Signals[i].Category == category) {
            signals.push_back(&catalogue.Signals[i]);
        }
    }
    return signals;
}

std::string NameOfCode(const SignalCatalogue& catalogue, const InputCoding& coding, std::int32_t code) {
    if (code == coding.FalseCode) {
        return "FALSE";
    }
    const std::int32_t signal = SignalOfCode(coding, code);
    const auto& numbers = catalogue.PositionOfNumber;
    const auto found = std::lower_bound(numbers.begin(), numbers.end(), std::pair{signal, std::size_t{0}});
    return found == numbers.end() || found->first != signal ? std::string()
                                                            : catalogue.Signals[found->second].Name;
}

std::string SignalText(const SignalCatalogue& catalogue, const InputCoding& coding, std::int32_t code,
                       bool showNumbers) {
    std::string name = NameOfCode(catalogue, coding, code);
    return showNumbers ? FormatHex(code) + " -> " + name : name;
}

} // namespace brindle
