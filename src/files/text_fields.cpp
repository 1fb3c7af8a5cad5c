#include "files/text_fields.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

namespace brindle {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

template<class Number>
NumberFault Parse(std::string_view field, Number& value) {
    std::string_view digits = Trimmed(field);
    if (digits.size() > 1 && digits.front() == '+' && digits[1] != '-') {
        digits.remove_prefix(1); // from_chars knows the minus alone
    }
    Number parsed{};
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), parsed);
    if (result.ec == std::errc::invalid_argument || result.ptr != digits.data() + digits.size()) {
        return NumberFault::NotANumber;
    }
    if (result.ec == std::errc::result_out_of_range) {
        return NumberFault::OutOfRange;
    }
    if constexpr (!std::is_integral_v<Number>) {
        if (!std::isfinite(parsed)) {
            return NumberFault::NotANumber; // "inf" and "nan" are read too
        }
    }
    value = parsed;
    return NumberFault::None;
}

/// Reads a number as nearly all fields hold it, at most nine digits after an optional minus and nothing else,
/// and passes it; false for any other field.
bool PassPlainNumber(const char*& at, const char* end, std::int32_t& value) {
    constexpr std::ptrdiff_t mostDigits = 9; // that every 32-bit number has room for
    const bool negative = at != end && *at == '-';
    const char* const digits = negative ? at + 1 : at;
    const char* next = digits;
    std::uint32_t read = 0;
    for (; next != end && *next >= '0' && *next <= '9'; ++next) {
        read = read * 10 + static_cast<std::uint32_t>(*next - '0');
    }
    if (next == digits || next - digits > mostDigits || (next != end && *next != ',')) {
        return false;
    }
    value = negative ? -static_cast<std::int32_t>(read) : static_cast<std::int32_t>(read);
    at = next;
    return true;
}

} // namespace

bool TextCursor::NextLine(std::string_view& line) {
    if (rest_.empty()) {
        return false;
    }
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    line = rest_.substr(0, end);
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    if (!line.empty() && line.back() == '\r') {
        line.remove_suffix(1);
    }
    atLineStart_ = true;
    return true;
}

bool TextCursor::NextFilledLine(std::string_view& line) {
    while (NextLine(line)) {
        if (!line.empty() && (!IsBlank(line.front()) || !Trimmed(line).empty())) {
            return true;
        }
    }
    return false;
}

bool TextCursor::NextValue(std::string_view& value) {
    if (rest_.empty()) {
        return false;
    }
    const std::size_t end = rest_.find_first_of(",\n");
    if (end == std::string_view::npos || rest_[end] == '\n') {
        return NextLine(value);
    }
    value = rest_.substr(0, end);
    rest_.remove_prefix(end + 1);
    atLineStart_ = false;
    return true;
}

void TextCursor::SkipBlankLines() {
    std::string_view line;
    TextCursor ahead = *this;
    while (atLineStart_ && ahead.NextLine(line) && Trimmed(line).empty()) {
        *this = ahead;
    }
}

bool FieldCursor::Next(std::string_view& field) {
    if (!more_) {
        return false;
    }
    const std::size_t comma = rest_.find(',');
    field = rest_.substr(0, comma);
    more_ = comma != std::string_view::npos;
    rest_.remove_prefix(more_ ? comma + 1 : rest_.size());
    return true;
}

int FieldCount(std::string_view line) {
    return static_cast<int>(std::count(line.begin(), line.end(), ',')) + 1;
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && IsBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

std::string OneField(std::string_view text) {
    std::string field(text);
    for (char& c : field) {
        if (c == ',' || c == '\r' || c == '\n') {
            c = ' ';
        }
    }
    return field;
}

NumberFault ParseNumber(std::string_view field, std::int16_t& value) {
    return Parse(field, value);
}

NumberFault ParseNumber(std::string_view field, std::int32_t& value) {
    return Parse(field, value);
}

NumberFault ParseNumber(std::string_view field, float& value) {
    return Parse(field, value);
}

NumberFault ParseNumber(std::string_view field, double& value) {
    return Parse(field, value);
}

std::size_t ReadNumbers(std::string_view line, std::span<std::int32_t> numbers) {
    const char* at = line.data();
    const char* const end = at + line.size();
    for (std::size_t count = 0; count < numbers.size(); ++count) {
        const char* const field = at;
        if (!PassPlainNumber(at, end, numbers[count])) {
            at = std::find(field, end, ',');
            if (ParseNumber({field, static_cast<std::size_t>(at - field)}, numbers[count]) !=
                NumberFault::None) {
                return 0;
            }
        }
        if (at == end) {
            return count + 1;
        }
        ++at;
    }
    return 0;
}

} // namespace brindle
