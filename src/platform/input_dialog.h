#pragma once

#include "platform/input_box.h"

class QWidget;

namespace brindle {

/// Shows an input box over `parent` (may be null) with Qt, and waits for its answer.
std::optional<std::string> ShowQtInputBox(QWidget* parent, const InputBox& box);

} // namespace brindle
