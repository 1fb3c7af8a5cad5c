#pragma once

#include <functional>
#include <optional>
#include <string>

namespace brindle {

/// A question that is answered by a line of text.
struct InputBox {
    std::string Title;
    std::string Prompt;
    std::string Default; ///< stands in the box when it opens, selected
};

/// Shows the box and returns what was typed, UTF-8; nothing when the user cancelled.
using ShowInputBox = std::function<std::optional<std::string>(const InputBox& box)>;

} // namespace brindle
