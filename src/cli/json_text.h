#pragma once

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <string_view>

/// Private to this folder, as every header that names the JSON library.
namespace brindle {

/// Parses `text` as JSON. Returns an empty text, or what is wrong with it and at which line and column, or
/// which field is given twice.
std::string ParseJson(std::string_view text, nlohmann::json& value);

/// The name of field `name` of the value at `path`: "header" + "text1" is "header.text1".
std::string FieldPath(const std::string& path, const std::string& name);

/// The name of element `index` (from 0) of the list at `path`: "groups[0]".
std::string ElementPath(const std::string& path, std::size_t index);

} // namespace brindle
