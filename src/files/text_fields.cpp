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

} // namespace

bool TextCursor::NextLine(std::string_view& line) {
    if (rest_.empty()) {
        return false;
    }
    const std::size_t end = rest_.find('\n');
    line = rest_.substr(0, end);
    rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
    if (!line.empty() && line.back() == '\r') {
        line.remove_suffix(1);
    }
    atLineStart_ = true;
    return true;
}

bool TextCursor::NextFilledLine(std::string_view& line) {
    while (NextLine(line)) {
        if (!Trimmed(line).empty()) {
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

std::string OneField(std::string text) {
    for (char& c : text) {
        if (c == ',' || c == '\r' || c == '\n') {
            c = ' ';
        }
    }
    return text;
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
        std::from_chars_result read = std::from_chars(at, end, numbers[count]);
        if (read.ec != std::errc{} || (read.ptr != end && *read.ptr != ',')) { // blanks, a plus, or no number
            read.ptr = std::find(at, end, ',');
            const std::string_view field(at, static_cast<std::size_t>(read.ptr - at));
            if (ParseNumber(field, numbers[count]) != NumberFault::None) {
                return 0;
            }
        }
        if (read.ptr == end) {
            return count + 1;
        }
        at = read.ptr + 1;
    }
    return 0;
}

} // namespace brindle
