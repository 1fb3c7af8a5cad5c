#pragma once

#include <functional>
#include <optional>
#include <string>

namespace brindle {

enum class MessageIcon { None, Exclamation, CriticalStop };
enum class MessageButtons { Ok, OkCancel, YesNo, YesNoCancel, RetryCancel, SaveAsOverwriteCancel };
enum class MessageAnswer { Ok, Cancel, Yes, No, Retry, Abort, Ignore, SaveAs, Overwrite };

/// The title of a box that names none: the program's name.
inline constexpr const char* DefaultMessageTitle = "Brindle";

/// A question or a notice to the user. Lines of the text are separated by CR LF.
struct MessageBox {
    std::string Text;
    MessageIcon Icon = MessageIcon::None;
    MessageButtons Buttons = MessageButtons::Ok;
    std::string Title = DefaultMessageTitle;
    std::optional<MessageAnswer>
        Default{}; ///< of the button that Enter presses; the first where none is named
};

/// Shows a box and returns the button pressed. Escape and the close box press Cancel, or OK where there is
/// only that; a box of Yes and No has no way out but its buttons, and they do nothing.
using ShowMessageBox = std::function<MessageAnswer(const MessageBox& box)>;

} // namespace brindle
