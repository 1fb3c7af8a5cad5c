#pragma once

#include "files/option_file.h"
#include "model/logic_config.h"
#include "platform/file_error.h"
#include "platform/file_system.h"
#include "platform/folders.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Which option files the PLC folder, the program's own, holds.
namespace brindle {

struct PlcFolderEntry {
    std::string Name;             ///< of the file
    std::string VersionText;      ///< five digits, a hundred times the version
    std::string OptionsText;      ///< five digits
    double Version = 0;           ///< settings file version
    std::int16_t Options = 0;     ///< options number
    std::int16_t VersionCode = 0; ///< numbers the different versions from 0 upward, ascending

    bool operator==(const PlcFolderEntry&) const = default;
};

struct PlcFolder {
    std::string Path;
    std::vector<PlcFolderEntry> Entries; ///< in the order of their names

    /// The entry of a version and options number; null where the folder has no such file.
    [[nodiscard]] const PlcFolderEntry* Find(double version, int options) const;

    /// The version that `code` numbers, -1 where none has it.
    [[nodiscard]] double VersionOfCode(int code) const;

    /// Index of the entry of a version code and options number; -1 where there is none.
    [[nodiscard]] int EntryOfPair(int code, int options) const;
};

/// Lists the files of `folder` named "PLC", five digits, "_OPT", five digits, ".810", in capitals or not;
/// others, and options numbers above 32767, are none. A folder that cannot be read is empty.
PlcFolder ScanPlcFolder(const FolderFunctions& folders, const std::string& folder);

/// Where the option file of an entry does not fit: its head says another version or options number than its
/// name, or counts another number of signals than the logic, which has `signalCount`. A sentence each.
std::vector<std::string> OptionFileMisfits(const PlcFolderEntry& entry, const OptionFile& option,
                                           std::int32_t signalCount);

/// What a logic got from its option file.
struct LoadedLists {
    bool Found = false;               ///< the folder has such a file
    std::vector<std::string> Misfits; ///< as OptionFileMisfits tells them
};

/// Gives a VDR810 logic the unconnected signal and the lists of the option file of its version and options
/// number. Without such a file, and when it cannot be read, the logic keeps what it has.
FileError LoadLists(const FileSystem& files, const PlcFolder& folder, LogicConfig& config,
                    LoadedLists& loaded);

} // namespace brindle
