#include "cli/json_fields.h"

#include "cli/json_text.h"
#include "files/text_fields.h"
#include "model/number_text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <limits>
#include <vector>

namespace brindle {

namespace {

using nlohmann::json;

/// What `value` is, in a refusal: numbers and truth values as they stand, others by their kind, since they
/// may be long.
std::string Shown(const json& value) {
    if (value.is_number() || value.is_boolean() || value.is_null()) {
        return value.dump();
    }
    if (value.is_string()) {
        return "a text";
    }
    return value.is_array() ? "a list" : "an object";
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

bool JsonFields::Object(const json& value, const std::string& path,
                        std::initializer_list<std::string_view> fields) {
    if (!refusal_.empty()) {
        return false;
    }
    if (!value.is_object()) {
        return Refuse(path, Shown(value) + " is not an object");
    }
    for (const auto& item : value.items()) {
        if (std::find(fields.begin(), fields.end(), item.key()) == fields.end()) {
            return Refuse(FieldPath(path, item.key()), "unknown field");
        }
    }
    for (const std::string_view field : fields) {
        if (!value.contains(field)) {
            return Refuse(FieldPath(path, std::string(field)), "missing");
        }
    }
    return true;
}

bool JsonFields::List(const json& value, const std::string& path, std::size_t size) {
    if (!refusal_.empty()) {
        return false;
    }
    if (!value.is_array()) {
        return Refuse(path, Shown(value) + " is not a list");
    }
    if (value.size() != size) {
        return Refuse(path, std::to_string(value.size()) + " elements, not " + std::to_string(size));
    }
    return true;
}

bool JsonFields::Whole(const json& value, const std::string& path, std::int64_t least, std::int64_t most,
                       std::int64_t& number) {
    if (!refusal_.empty()) {
        return false;
    }
    const std::string range = std::to_string(least) + " to " + std::to_string(most);
    if (!value.is_number_integer()) {
        return Refuse(path, Shown(value) + " is not a whole number in " + range);
    }
    constexpr auto top = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    const bool beyond = value.is_number_unsigned() && value.get<std::uint64_t>() > top;
    const std::int64_t whole = beyond ? 0 : value.get<std::int64_t>();
    if (beyond || whole < least || whole > most) {
        return Refuse(path, Shown(value) + " is not in " + range);
    }
    number = whole;
    return true;
}

bool JsonFields::Text(const json& value, const std::string& path, std::string& text) {
    if (!refusal_.empty()) {
        return false;
    }
    if (!value.is_string()) {
        return Refuse(path, Shown(value) + " is not a text");
    }
    text = value.get<std::string>();
    return true;
}

bool JsonFields::AnyBytes(const json& value, const std::string& path, std::string& bytes) {
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

bool JsonFields::Bytes(const json& value, const std::string& path, std::span<char> bytes) {
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

bool JsonFields::Line(const json& value, const std::string& path, std::string& bytes) {
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

bool JsonFields::TwoDecimals(const json& value, const std::string& path, float& number) {
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

bool JsonFields::TwoDecimals(const json& value, const std::string& path, float& single, double& precise) {
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
