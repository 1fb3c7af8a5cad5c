#pragma once

#include "files/whole_file.h"
#include "model/logic_config.h"
#include "platform/file_error.h"
#include "platform/file_system.h"

#include <string>

/// Writes the logic file (.c10) of a VDR810, a text described in docs/vdr810-logic-file.md.
namespace brindle {

/// The whole text of the file of a VDR810 logic: its head, then a section for each unit that the relay has.
/// The lists of signals and categories stay in the option file.
std::string EncodeVdr810(const LogicConfig& config);

/// Writes the file at `path`, replacing it whole, or leaves the old file.
FileError WriteVdr810File(const FileSystem& files, const std::string& path, const LogicConfig& config,
                          const ReplaceRules& rules = {});

} // namespace brindle
