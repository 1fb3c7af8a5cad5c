#pragma once

/// The sections and keys of the settings file. Measures are in twips, states as in WindowState.
namespace brindle {

inline constexpr const char* SettingsFileName = "Benchkit.ini";  ///< in the program's folder
inline constexpr const char* SettingsLockName = "Benchkit.lock"; ///< beside it, while a program changes it

inline constexpr const char* SectionBrindle = "Brindle";
inline constexpr const char* SectionRecent = "Brindle Recent";

inline constexpr const char* KeyBrindleVersion =
    "BrindleVersion"; ///< as FormatFixed writes it with 6 decimals
inline constexpr const char* KeyRevision = "Revision";
inline constexpr const char* KeyHomeDir = "HomeDir"; ///< default: the program's folder
inline constexpr const char* KeyRecent = "Recent";   ///< followed by the digit of the entry, 0 to 9

/// Under which keys a window's placement is kept.
struct PlacementKeys {
    const char* State;
    const char* Top;
    const char* Left;
    const char* Height;
    const char* Width;
};

inline constexpr PlacementKeys MainWindowKeys{"ScreenMode", "WindowTop", "WindowLeft", "WindowHeight",
                                              "WindowWidth"};
/// Shares its state with the main window, as the settings files in use do.
inline constexpr PlacementKeys PrintWindowKeys{"ScreenMode", "PrintWinTop", "PrintWinLeft", "PrintWinHeight",
                                               "PrintWinWidth"};
inline constexpr PlacementKeys GroupEditingKeys{"GEFScreenMode", "GEFWinTop", "GEFWinLeft", "GEFWinHeight",
                                                "GEFWinWidth"};

} // namespace brindle
