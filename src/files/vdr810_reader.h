#pragma once

#include "model/logic_config.h"
#include "platform/file_error.h"
#include "platform/file_system.h"
#include "platform/message_box.h"

#include <array>
#include <bitset>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Reads the logic file (.c10) of a VDR810, a text described in docs/vdr810-logic-file.md.
namespace brindle {

/// Which lines of a unit's section were read.
struct UnitLinesRead {
    std::bitset<InputsPerUnit> Inputs; ///< input n at n - 1
    bool OutputMap = false;
    bool PickUp = false;
    bool DropOut = false;
};

/// What reading a logic file came to.
struct Vdr810Reading {
    /// The file or its head could not be read; the logic is unchanged.
    FileError Error;
    /// The box that tells which line of the file could not be read; the logic holds what was read before it.
    std::optional<MessageBox> Refusal;
    std::array<UnitLinesRead, UnitsPerGroup> Lines; ///< of unit n at n - 1

    [[nodiscard]] bool Done() const { return !Error.Failed() && !Refusal; }
};

/// Reads the file at `path` into `config`: model, head, lists of signals and categories, and all units. The
/// unconnected signal stays the one of `config` where no label "FALSE" tells another. File path, title and
/// `Modified` are the caller's.
Vdr810Reading ReadVdr810File(const FileSystem& files, const std::string& path, LogicConfig& config);

/// The same from the text of a file; `source` names it in an error.
Vdr810Reading DecodeVdr810(std::string_view text, const std::string& source, LogicConfig& config);

/// Gives every input that the file had no line for the unconnected signal, as it is known now.
void ClearUnreadInputs(LogicConfig& config, const Vdr810Reading& reading);

/// The units (1 to 10) that the head promises and whose section is missing or lacks lines.
std::vector<int> IncompleteUnits(const LogicConfig& config, const Vdr810Reading& reading);

/// The box that names the incomplete units of the file at `path`.
MessageBox IncompleteNotice(const std::string& path, const std::vector<int>& units);

} // namespace brindle
