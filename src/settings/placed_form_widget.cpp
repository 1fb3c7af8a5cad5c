#include "settings/placed_form_widget.h"

#include "settings/screen_scale.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <utility>

namespace brindle {

PlacedForm PlacedFormOf(QWidget& window, bool sizable, std::function<void()> maximise) {
    PlacedForm form;
    form.Sizable = sizable;
    form.Screen = [] {
        const QSize screen = QGuiApplication::primaryScreen()->size();
        return ScreenSize{PixelsToTwips(screen.height()), PixelsToTwips(screen.width())};
    };
    form.State = [&window] {
        if (window.isMinimized()) {
            return WindowState::Minimised;
        }
        return window.isMaximized() ? WindowState::Maximised : WindowState::Normal;
    };
    form.Bounds = [&window] {
        return FormBounds{PixelsToTwips(window.y()), PixelsToTwips(window.x()),
                          PixelsToTwips(window.height()), PixelsToTwips(window.width())};
    };
    form.Place = [&window](const FormBounds& bounds) {
        // A settings file may hold any number; no desktop is larger than all of its screens.
        const QSize stored(TwipsToPixels(bounds.Width), TwipsToPixels(bounds.Height));
        window.resize(stored.boundedTo(QGuiApplication::primaryScreen()->virtualSize()));
        window.move(TwipsToPixels(bounds.Left), TwipsToPixels(bounds.Top));
    };
    form.Maximise = std::move(maximise);
    return form;
}

} // namespace brindle
