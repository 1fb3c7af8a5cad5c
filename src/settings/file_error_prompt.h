#pragma once

#include "platform/message_box.h"

#include <cstdint>

namespace brindle {

/// What the caller of a failed file operation is to do.
enum class FileAction : std::int16_t {
    Retry = 0,         ///< try the failed step again
    Skip = 1,          ///< pass over the failed step and go on
    GiveUp = 2,        ///< end the operation
    NotRecognised = 3, ///< the error has no text of its own; no box was shown
    Overwrite = 4      ///< the user agreed to overwrite an existing file
};

/// Shows the "Disk Error" box of a runtime file-error number and returns what to do.
FileAction FileErrorPrompt(int errorNumber, const ShowMessageBox& showMessageBox);

} // namespace brindle
