#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace brindle {

struct JsonField;
struct JsonValue;

using JsonList = std::vector<JsonValue>;
using JsonObject = std::vector<JsonField>; ///< no name twice

/// A number that is no whole number, or none that 64 bits hold, as it stands in the text.
struct JsonReal {
    std::string Text;
};

/// A value of a JSON text. It takes no memory to let go of one, so a lack of memory can be told.
struct JsonValue {
    /// A number above the greatest of 64 bits with a sign is the one without.
    std::variant<std::nullptr_t, bool, std::int64_t, std::uint64_t, JsonReal, std::string, JsonList,
                 JsonObject>
        Held;

    /// The value of that field; null where the value is no object or has no such field.
    [[nodiscard]] const JsonValue* Find(std::string_view name) const;

    /// The value of a field that an object has.
    const JsonValue& operator[](std::string_view name) const { return *Find(name); }

    /// Element `index` (from 0) that a list has.
    const JsonValue& operator[](std::size_t index) const { return std::get<JsonList>(Held).at(index); }
};

struct JsonField {
    std::string Name;
    JsonValue Value;
};

} // namespace brindle
