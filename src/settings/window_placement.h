#pragma once

#include "settings/setting_keys.h"
#include "settings/settings_file.h"

#include <functional>
#include <string>

namespace brindle {

/// The numbers are those of the settings file.
enum class WindowState : int { Normal = 0, Minimised = 1, Maximised = 2 };

/// Where a form stands when it is neither minimised nor maximised, in twips.
struct FormBounds {
    int Top = 0;
    int Left = 0;
    int Height = 0;
    int Width = 0;

    bool operator==(const FormBounds&) const = default;
};

struct ScreenSize {
    int Height = 0; ///< twips
    int Width = 0;
};

/// A form as its placement sees it.
struct PlacedForm {
    bool Sizable = true; ///< the user can size it
    std::function<ScreenSize()> Screen;
    std::function<WindowState()> State;
    std::function<FormBounds()> Bounds;
    std::function<void(const FormBounds& bounds)>
        Place;                      ///< sets the bounds; Bounds then returns those it really got
    std::function<void()> Maximise; ///< keeps the bounds for when it becomes normal again
};

/// Stores a form's state and, of a normal form, its bounds: a minimised or maximised one keeps those of its
/// last normal place in the file. Stops at the first write that fails and returns false.
bool SavePlacement(SettingsFile& settings, const std::string& section, const PlacedForm& form,
                   const PlacementKeys& keys);

/// Puts a form where it was stored, on the screen by the size that it really gets; only a sizable one takes
/// the stored size, where that is positive. A form stored as maximised is maximised again, one stored as
/// minimised is normal. A form never stored is centred and stored at once; it then may reach beyond a screen
/// smaller than itself.
void RestorePlacement(SettingsFile& settings, const std::string& section, const PlacedForm& form,
                      const PlacementKeys& keys);

} // namespace brindle
