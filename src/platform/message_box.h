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

/// Shows a box and returns the button pressed. Closing a box by Escape or its close box answers Cancel or No
/// where it has such a button, else Ok.
using ShowMessageBox = std::function<MessageAnswer(const MessageBox& box)>;

} // namespace brindle
