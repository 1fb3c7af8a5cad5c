#include "editor/timer_entry.h"

#include <charconv>

namespace brindle {

namespace {

std::string_view WithoutSurroundingBlanks(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n\v\f";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

MessageBox Notice(const std::string& text) {
    return {text, MessageIcon::Exclamation, MessageButtons::Ok};
}

} // namespace

std::optional<std::int32_t> DelayOfText(std::string_view text) {
    const std::string_view digits = WithoutSurroundingBlanks(text);
    const char* end = digits.data() + digits.size();
    std::int32_t value = 0;
    const auto [stop, error] = std::from_chars(digits.data(), end, value);
    if (error != std::errc{} || stop != end || value < 0 || value > LongestDelay) {
        return {};
    }
    return value;
}

KeyVerdict JudgeTimerKey(char32_t character) {
    constexpr char32_t backspace = 8;
    constexpr char32_t enter = 13;
    if ((character >= U'0' && character <= U'9') || character == backspace) {
        return KeyVerdict::Accepted;
    }
    return character == enter ? KeyVerdict::Swallowed : KeyVerdict::Refused;
}

MessageBox DelayRangeNotice() {
    return Notice("An integer in the range 0 to " + std::to_string(LongestDelay) + " must be entered.");
}

MessageBox TimerKeyNotice() {
    return Notice("An integer number must be entered.  Only number keys 0 to 9 are allowed.");
}

} // namespace brindle
