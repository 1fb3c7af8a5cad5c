#pragma once

#include "platform/message_box.h"

class QWidget;

/// The message boxes that the core asks for, shown with Qt.
namespace brindle {

/// Shows `box` over `parent` (may be null) with a normal pointer, and waits for its button.
MessageAnswer ShowQtMessageBox(QWidget* parent, const MessageBox& box);

} // namespace brindle
