#pragma once

#include "model/bool16.h"
#include "model/input_code.h"
#include "model/vdr810_lists.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace brindle {

struct LogicConfig;

inline constexpr std::int16_t NoCategory = -1;

/// One signal that an input can be connected to, at its table position.
struct SignalEntry {
    std::int16_t Category = NoCategory; ///< number of its category, or NoCategory
    std::int32_t Code = 0;              ///< the value stored in an input
    std::string Name;
    std::string Label; ///< caption of its button in a chooser
    Bool16 Enabled;    ///< its button can be pressed
    Bool16 Visible;    ///< its button is shown

    bool operator==(const SignalEntry&) const = default;
};

/// One category of signals: a menu item and a chooser window.
struct CategoryEntry {
    std::int32_t Number = 0; ///< what its signals name it by; equal to its position for the VDR812
    std::string Caption;     ///< of the menu item, with "&" before an access key
    std::string Name;
    Bool16 Enabled; ///< the menu item can be chosen
    Bool16 Visible; ///< the menu item is shown

    bool operator==(const CategoryEntry&) const = default;
};

/// Names and categories of the signals of the current relay model and file version.
struct SignalCatalogue {
    std::vector<SignalEntry> Signals; ///< VDR812: positions 0 to 140, the entries after END are empty
    std::vector<CategoryEntry> Categories;
    /// Signal numbers with the position of the entry that names each, ascending.
    std::vector<std::pair<std::int32_t, std::size_t>> PositionOfNumber;

    bool operator==(const SignalCatalogue&) const = default;
};

/// The VDR812 catalogue of a file version (the 2.30 column from 2.3 on, else the 1.00 column). Built whole,
/// so that nothing of another version remains.
SignalCatalogue BuildVdr812Catalogue(float version);

/// The catalogue of a VDR810: what its lists say, up to their END entries, in their order, as UTF-8. A
/// category takes its signals by its number, which need not be its position.
SignalCatalogue BuildVdr810Catalogue(const Vdr810Lists& lists);

/// The catalogue of a logic, for its model and version.
SignalCatalogue BuildCatalogue(const LogicConfig& config);

/// Number of signals before END.
std::size_t SignalCount(const SignalCatalogue& catalogue);

/// The signals of category `category` in position order, up to END.
std::vector<const SignalEntry*> SignalsOfCategory(const SignalCatalogue& catalogue, std::int32_t category);

/// The name of the signal that `code` stands for: "FALSE" for the coding's FalseCode, the base signal's name
/// for an inverted code, else that of the code. A VDR812 names the code at the position equal to it, a VDR810
/// by the first label of that number. None gives an empty name.
std::string NameOfCode(const SignalCatalogue& catalogue, const InputCoding& coding, std::int32_t code);

/// The text of a code where signal numbers may be shown: its name, after the stored code in upper-case
/// hexadecimal and " -> " when `showNumbers` is set.
std::string SignalText(const SignalCatalogue& catalogue, const InputCoding& coding, std::int32_t code,
                       bool showNumbers);

} // namespace brindle
