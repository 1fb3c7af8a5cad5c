#pragma once

#include "platform/message_box.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// What may be typed as a delay of a timer, in milliseconds.
namespace brindle {

inline constexpr std::int32_t LongestDelay = 600000; ///< ten minutes

enum class TimerField { PickUp, DropOut };

enum class KeyVerdict {
    Accepted,
    Swallowed, ///< the key has no effect
    Refused    ///< the key has no effect, and the user is told why
};

/// The delay that `text` stands for: a whole number from 0 to `LongestDelay`, with a plus sign, leading
/// zeros and surrounding blanks if need be. Nothing for any other number or text.
std::optional<std::int32_t> DelayOfText(std::string_view text);

/// What becomes of a key that types `character`: digits and Backspace pass, Enter is swallowed.
KeyVerdict JudgeTimerKey(char32_t character);

MessageBox DelayRangeNotice();
MessageBox TimerKeyNotice();

/// What a timer's box and the read-out under it say after a change of the box's text.
struct TimerEcho {
    std::string Text;
    std::optional<std::string> ReadOut; ///< nothing: the read-out keeps its caption
};

} // namespace brindle
