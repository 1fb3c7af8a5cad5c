#pragma once

#include "platform/message_box.h"

/// The question whether to save, asked before a command discards unsaved logic.
namespace brindle {

enum class DiscardingCommand {
    Exit,      ///< Yes, No, Cancel
    WindowEnd, ///< the window is gone already: Yes, No
    New,       ///< Yes, No, Cancel
    Open       ///< Yes, No, Cancel; also recent files and the command line
};

/// The box that `command` shows.
MessageBox SavePrompt(DiscardingCommand command);

} // namespace brindle
