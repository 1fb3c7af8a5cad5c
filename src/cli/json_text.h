#pragma once

#include "cli/json_value.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace brindle {

/// How many lists and objects may stand in each other; those of a logic are six.
inline constexpr std::size_t MostJsonDepth = 16;

/// Parses `text` as JSON. Returns an empty text, or one short line: what is wrong with it and at which line
/// and column, which field is given twice, or which list or object stands too deep. Takes time and memory in
/// proportion to the text, whatever it is.
std::string ParseJson(std::string_view text, JsonValue& value);

/// `text`, or where it is longer than `most` bytes, its beginning and end around "...". No character of UTF-8
/// is cut in two.
std::string Excerpt(std::string_view text, std::size_t most);

/// The name of field `name` of the value at `path`: "header" + "text1" is "header.text1". A long name is cut.
std::string FieldPath(const std::string& path, std::string_view name);

/// The name of element `index` (from 0) of the list at `path`: "groups[0]".
std::string ElementPath(const std::string& path, std::size_t index);

} // namespace brindle
