#pragma once

#include "model/logic_config.h"

#include <string>
#include <string_view>

/// The logic of either relay as JSON, described in docs/logic-json.md.
namespace brindle {

/// The whole logic as JSON text: one unit or output slot a line, so that two programs can be compared with
/// line tools. ASCII only: byte b of a text field is the character U+00b, escaped where it must be. The lists
/// of signals of a VDR810 are not in it.
std::string LogicToJson(const LogicConfig& config);

/// What the field "version" says of a header: the number of its version text with two decimals.
std::string VersionField(const ProgramHeader& header);

/// Fills `config` with the logic that `text` describes. Returns an empty text, or why it was refused, with
/// the name of the field or the place in the text; `config` is then unchanged. Strict: no field may be
/// missing, unknown or given twice, and nothing may be said that the relay's file cannot hold. File path,
/// title and `Modified` are the caller's.
std::string LogicFromJson(std::string_view text, LogicConfig& config);

} // namespace brindle
