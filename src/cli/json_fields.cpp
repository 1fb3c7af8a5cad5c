#include "cli/json_fields.h"

#include "cli/json_text.h"
#include "files/text_fields.h"
#include "model/number_text.h"

#include <algorithm>
#include <vector>

namespace brindle {

namespace {

constexpr std::size_t MostDigitsShown = 30;

/// What a value is, in a refusal: numbers and truth values as they stand, others by their kind, since they
/// may be long.
struct Show {
    std::string operator()(std::nullptr_t /*null*/) const { return "null"; }

    std::string operator()(bool value) const { return value ? "true" : "false"; }

    std::string operator()(std::int64_t value) const { return std::to_string(value); }

    std::string operator()(std::uint64_t value) const { return std::to_string(value); }

    std::string operator()(const JsonReal& value) const { return Excerpt(value.Text, MostDigitsShown); }

    std::string operator()(const std::string& /*text*/) const { return "a text"; }

    std::string operator()(const JsonList& /*list*/) const { return "a list"; }

    std::string operator()(const JsonObject& /*object*/) const { return "an object"; }
};

std::string Shown(const JsonValue& value) {
    return std::visit(Show{}, value.Held);
}

/// The characters of a text. The parser has already refused ill-formed UTF-8.
std::vector<char32_t> Characters(const std::string& utf8) {
    std::vector<char32_t> characters;
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xC0U) == 0x80U) { // a following byte: six more bits
            characters.back() = (characters.back() << 6U) | (byte & 0x3FU);
        } else if (byte < 0x80U) {
            characters.push_back(byte);
        } else if (byte < 0xE0U) {
            characters.push_back(byte & 0x1FU);
        } else {
            characters.push_back(byte & (byte < 0xF0U ? 0x0FU : 0x07U));
        }
    }
    return characters;
}

} // namespace

bool JsonFields::Refuse(const std::string& path, const std::string& reason) {
    if (refusal_.empty()) {
        refusal_ = path.empty() ? reason : path + ": " + reason;
    }
    return false;
}

bool JsonFields::Object(const JsonValue& value, const std::string& path,
                        std::initializer_list<std::string_view> fields) {
    if (!refusal_.empty()) {
        return false;
    }
    const auto* object = std::get_if<JsonObject>(&value.Held);
    if (object == nullptr) {
        return Refuse(path, Shown(value) + " is not an object");
    }
    for (const JsonField& field : *object) {
        if (std::find(fields.begin(), fields.end(), field.Name) == fields.end()) {
            return Refuse(FieldPath(path, field.Name), "unknown field");
        }
    }
    for (const std::string_view field : fields) {
        if (value.Find(field) == nullptr) {
            return Refuse(FieldPath(path, field), "missing");
        }
    }
    return true;
}

bool JsonFields::List(const JsonValue& value, const std::string& path, std::size_t size) {
    if (!refusal_.empty()) {
        return false;
    }
    const auto* list = std::get_if<JsonList>(&value.Held);
    if (list == nullptr) {
        return Refuse(path, Shown(value) + " is not a list");
    }
    if (list->size() != size) {
        return Refuse(path, std::to_string(list->size()) + " elements, not " + std::to_string(size));
    }
    return true;
}

bool JsonFields::Whole(const JsonValue& value, const std::string& path, std::int64_t least, std::int64_t most,
                       std::int64_t& number) {
    if (!refusal_.empty()) {
        return false;
    }
    const std::string range = std::to_string(least) + " to " + std::to_string(most);
    const auto* whole = std::get_if<std::int64_t>(&value.Held);
    if (whole == nullptr && !std::holds_alternative<std::uint64_t>(value.Held)) {
        return Refuse(path, Shown(value) + " is not a whole number in " + range);
    }
    if (whole == nullptr || *whole < least || *whole > most) {
        return Refuse(path, Shown(value) + " is not in " + range);
    }
    number = *whole;
    return true;
}

bool JsonFields::Text(const JsonValue& value, const std::string& path, std::string& text) {
    if (!refusal_.empty()) {
        return false;
    }
    const auto* held = std::get_if<std::string>(&value.Held);
    if (held == nullptr) {
        return Refuse(path, Shown(value) + " is not a text");
    }
    text = *held;
    return true;
}

bool JsonFields::AnyBytes(const JsonValue& value, const std::string& path, std::string& bytes) {
    std::string text;
    if (!Text(value, path, text)) {
        return false;
    }
    const std::vector<char32_t> characters = Characters(text);
    constexpr char32_t lastByte = 0xFF;
    if (std::any_of(characters.begin(), characters.end(), [](char32_t c) { return c > lastByte; })) {
        return Refuse(path, "a character above U+00FF");
    }
    bytes.resize(characters.size());
    std::transform(characters.begin(), characters.end(), bytes.begin(),
                   [](char32_t c) { return static_cast<char>(static_cast<unsigned char>(c)); });
    return true;
}

bool JsonFields::Bytes(const JsonValue& value, const std::string& path, std::span<char> bytes) {
    std::string read;
    if (!AnyBytes(value, path, read)) {
        return false;
    }
    if (read.size() != bytes.size()) {
        return Refuse(path, std::to_string(read.size()) + " characters, not " + std::to_string(bytes.size()));
    }
    std::copy(read.begin(), read.end(), bytes.begin());
    return true;
}

bool JsonFields::Line(const JsonValue& value, const std::string& path, std::string& bytes) {
    std::string read;
    if (!AnyBytes(value, path, read)) {
        return false;
    }
    if (read.find_first_of(",\r\n") != std::string::npos) {
        return Refuse(path, "a comma or line end, which the file has no place for");
    }
    bytes = read;
    return true;
}

bool JsonFields::TwoDecimals(const JsonValue& value, const std::string& path, float& number) {
    float single = 0;
    double precise = 0;
    if (!TwoDecimals(value, path, single, precise)) {
        return false;
    }
    if (FormatFixed(single, 2) != FormatFixed(precise, 2)) {
        return Refuse(path, "too many digits");
    }
    number = single;
    return true;
}

bool JsonFields::TwoDecimals(const JsonValue& value, const std::string& path, float& single,
                             double& precise) {
    std::string text;
    if (!Text(value, path, text)) {
        return false;
    }
    double read = 0;
    if (ParseNumber(text, read) != NumberFault::None || FormatFixed(read, 2) != text) {
        return Refuse(path, "not a number with two decimals");
    }
    if (ParseNumber(text, single) != NumberFault::None) {
        return Refuse(path, "too many digits");
    }
    precise = read;
    return true;
}

} // namespace brindle
