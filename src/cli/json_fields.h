#pragma once

#include "cli/json_value.h"

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace brindle {

/// Takes values out of parsed JSON, each only as what it is asked to be. The first refusal is kept; from then
/// on every routine returns false and fills nothing.
class JsonFields {
  public:
    /// Why the JSON is refused, with the name of the field; empty as long as all is well.
    [[nodiscard]] const std::string& Refusal() const { return refusal_; }

    /// Whether the value at `path` is an object of exactly these fields, in any order.
    bool Object(const JsonValue& value, const std::string& path,
                std::initializer_list<std::string_view> fields);

    /// Whether the value is a list of `size` elements.
    bool List(const JsonValue& value, const std::string& path, std::size_t size);

    /// Whether the value is a whole number from `least` to `most`.
    bool Whole(const JsonValue& value, const std::string& path, std::int64_t least, std::int64_t most,
               std::int64_t& number);

    bool Text(const JsonValue& value, const std::string& path, std::string& text);

    /// Takes a text of as many characters as `bytes` has, each the byte of the same value.
    bool Bytes(const JsonValue& value, const std::string& path, std::span<char> bytes);

    /// Takes a text of any length without commas and line ends, each character the byte of the same value.
    bool Line(const JsonValue& value, const std::string& path, std::string& bytes);

    /// Takes a text that is a number with exactly two decimals, "2.30", none of which single precision loses.
    bool TwoDecimals(const JsonValue& value, const std::string& path, float& number);

    /// Takes such a text in both precisions; digits that single precision loses are no fault.
    bool TwoDecimals(const JsonValue& value, const std::string& path, float& single, double& precise);

    /// Notes a refusal of the value at `path`. Always false.
    bool Refuse(const std::string& path, const std::string& reason);

  private:
    /// The bytes of a text, each of the value of a character.
    bool AnyBytes(const JsonValue& value, const std::string& path, std::string& bytes);

    std::string refusal_;
};

} // namespace brindle
