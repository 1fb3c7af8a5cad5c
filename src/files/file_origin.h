#pragma once

namespace brindle {

/// Where the logic that is being edited comes from.
enum class FileOrigin {
    New,   ///< made here and never saved: its name is a proposal
    Part,  ///< what could be read of a file that was refused: only the user can tell where it belongs
    Opened ///< opened from its file or saved to it
};

} // namespace brindle
