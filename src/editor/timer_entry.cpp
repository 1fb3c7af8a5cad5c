#include "editor/timer_entry.h"

#include "platform/ascii.h"

#include <array>
#include <charconv>

namespace brindle {

namespace {

/// Blanks as text from documents and tables brings them along, in UTF-8: those of ASCII, the no-break ones,
/// the figure and the ideographic one, and the ends of lines and paragraphs.
constexpr std::array<std::string_view, 12> Blanks{
    " ",        "\t",           "\r",           "\n",           "\v",           "\f",
    "\xC2\xA0", "\xE2\x80\xAF", "\xE2\x80\x87", "\xE3\x80\x80", "\xE2\x80\xA8", "\xE2\x80\xA9"};

std::string_view WithoutSurroundingBlanks(std::string_view text) {
    for (std::size_t before = 0; before != text.size();) {
        before = text.size();
        for (const std::string_view blank : Blanks) {
            if (text.starts_with(blank)) {
                text.remove_prefix(blank.size());
            }
            if (text.ends_with(blank)) {
                text.remove_suffix(blank.size());
            }
        }
    }
    return text;
}

MessageBox Notice(const std::string& text) {
    return {text, MessageIcon::Exclamation, MessageButtons::Ok};
}

} // namespace

std::optional<std::int32_t> DelayOfText(std::string_view text) {
    std::string_view digits = WithoutSurroundingBlanks(text);
    if (digits.size() > 1 && digits.front() == '+' && IsDigit(digits[1])) {
        digits.remove_prefix(1);
    }
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
