#pragma once

#include "settings/window_placement.h"

#include <functional>

class QWidget;

namespace brindle {

/// A window as its placement sees it, on the primary screen. `maximise` is called when it was stored as
/// maximised; a window that the user cannot size needs none. The window outlives what is returned.
PlacedForm PlacedFormOf(
    QWidget& window, bool sizable, std::function<void()> maximise = [] {});

} // namespace brindle
