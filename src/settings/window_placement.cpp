#include "settings/window_placement.h"

#include <cstdint>

namespace brindle {

namespace {

void Centre(const PlacedForm& form) {
    const ScreenSize screen = form.Screen();
    FormBounds bounds = form.Bounds();
    bounds.Left = (screen.Width - bounds.Width) / 2;
    bounds.Top = (screen.Height - bounds.Height) / 2;
    form.Place(bounds);
}

/// The place of a stretch of `size` from `start` on a screen that reaches from 0 to `end`. In 64 bits,
/// because stored numbers may be anything.
int KeptOnScreen(std::int64_t start, std::int64_t size, std::int64_t end) {
    return start < 0 || start + size > end ? 0 : static_cast<int>(start);
}

/// A form of the size of `sized` at the place of `stored`, or at the screen's edge where it would not fit
/// there.
FormBounds KeptOnScreen(const FormBounds& stored, const FormBounds& sized, const ScreenSize& screen) {
    return {KeptOnScreen(stored.Top, sized.Height, screen.Height),
            KeptOnScreen(stored.Left, sized.Width, screen.Width), sized.Height, sized.Width};
}

FormBounds StoredBounds(const SettingsFile& settings, const std::string& section, const PlacedForm& form,
                        const PlacementKeys& keys) {
    FormBounds bounds = form.Bounds();
    bounds.Top = settings.ReadInt(section, keys.Top);
    bounds.Left = settings.ReadInt(section, keys.Left);
    const int height = settings.ReadInt(section, keys.Height);
    const int width = settings.ReadInt(section, keys.Width);
    if (form.Sizable && height > 0) {
        bounds.Height = height;
    }
    if (form.Sizable && width > 0) {
        bounds.Width = width;
    }
    return bounds;
}

} // namespace

bool SavePlacement(SettingsFile& settings, const std::string& section, const PlacedForm& form,
                   const PlacementKeys& keys) {
    const auto write = [&](const char* key, int value) {
        return settings.Write(key, std::to_string(value), section);
    };
    const WindowState state = form.State();
    if (!write(keys.State, static_cast<int>(state))) {
        return false;
    }
    if (state != WindowState::Normal) {
        return true;
    }
    const FormBounds bounds = form.Bounds();
    return write(keys.Top, bounds.Top) && write(keys.Left, bounds.Left) &&
           write(keys.Height, bounds.Height) && write(keys.Width, bounds.Width);
}

void RestorePlacement(SettingsFile& settings, const std::string& section, const PlacedForm& form,
                      const PlacementKeys& keys) {
    // Every stored placement has a width, so that none is the sign of a form never stored.
    if (!settings.Exists() || settings.ReadInt(section, keys.Width) == 0) {
        Centre(form);
        SavePlacement(settings, section, form, keys);
        return;
    }
    const FormBounds stored = StoredBounds(settings, section, form, keys);
    const FormBounds wanted = KeptOnScreen(stored, stored, form.Screen());
    form.Place(wanted);
    // A form has a least size, and a desktop one that no form exceeds.
    const FormBounds real = KeptOnScreen(stored, form.Bounds(), form.Screen());
    if (real != wanted) {
        form.Place(real);
    }
    if (settings.ReadInt(section, keys.State) == static_cast<int>(WindowState::Maximised)) {
        form.Maximise();
    }
}

} // namespace brindle
