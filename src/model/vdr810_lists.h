#pragma once

#include "model/bool16.h"

#include <cstdint>
#include <string>
#include <vector>

/// What a logic of the VDR810 carries beside its units: the head of its file and the relay's own lists of
/// signals and categories. A VDR812 has its signals built in and carries the defaults.
namespace brindle {

inline constexpr std::int32_t EndNumber = -1;     ///< number of the entry that ends a list
inline constexpr const char* EndName = "END";     ///< and its name
inline constexpr const char* FalseName = "FALSE"; ///< name of the signal that an unconnected input holds

/// One category of signals. Texts are bytes of the Windows-1252 code page, as in the file.
struct Vdr810Category {
    std::int32_t Number = 0; ///< EndNumber ends the list
    std::string Caption;     ///< of the menu item
    std::string Name;        ///< equal to the caption when a logic file brought the list

    bool operator==(const Vdr810Category&) const = default;
};

/// One named signal.
struct Vdr810Label {
    std::int16_t Category = 0; ///< number of the category whose chooser offers it
    std::int32_t Signal = 0;   ///< the number that it names
    std::string Name;
    std::string Caption; ///< of its button in a chooser; equal to the name when a logic file brought the list
    Bool16 Enabled = true;
    Bool16 Visible = true;

    bool operator==(const Vdr810Label&) const = default;
};

/// The lists that name the signals, each with its END entry where the file had one.
struct Vdr810Lists {
    std::vector<Vdr810Category> Categories;
    std::vector<Vdr810Label> Labels;

    [[nodiscard]] bool Empty() const { return Categories.empty() && Labels.empty(); }

    bool operator==(const Vdr810Lists&) const = default;
};

/// What of a file's head the logic does not hold otherwise. `Version`, group count, coding and outputs are
/// fields of LogicConfig.
struct Vdr810Header {
    std::string Identity;       ///< first line, carried through unchanged
    float FormatNumber = 0;     ///< carried through
    double SettingsVersion = 0; ///< the same as `Version`, in double precision
    std::int16_t Options = 0;   ///< options number; with the version it names the option file
    std::int16_t TimerCount = 6;
    std::int16_t LatchCount = 2;
    std::int16_t LabelCount = 0;    ///< entries of the label list, as the file says
    std::int16_t CategoryCount = 0; ///< entries of the category list, as the file says

    bool operator==(const Vdr810Header&) const = default;
};

/// Whether the entry ends the list of categories: its number alone tells.
inline bool IsEnd(const Vdr810Category& category) {
    return category.Number == EndNumber;
}

/// Whether the entry ends the list of labels. A signal can have the number or the name alone.
inline bool IsEnd(const Vdr810Label& label) {
    return label.Signal == EndNumber && label.Name == EndName;
}

} // namespace brindle
