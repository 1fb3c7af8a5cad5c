#include "files/plc_folder.h"

#include "files/option_file.h"
#include "files/text_fields.h"
#include "files/whole_file.h"
#include "model/number_text.h"
#include "platform/ascii.h"
#include "platform/memory_guard.h"
#include "platform/paths.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace brindle {

namespace {

constexpr double VersionUnit = 100;                               // a name holds a hundred times the version
constexpr std::string_view NamePattern = "PLC#####_OPT#####.810"; // # is a digit
constexpr std::size_t VersionPlace = 3;
constexpr std::size_t OptionsPlace = 12;
constexpr std::size_t DigitCount = 5;

bool IsOptionFileName(std::string_view name) {
    return std::equal(
        name.begin(), name.end(), NamePattern.begin(), NamePattern.end(),
        [](char c, char pattern) { return pattern == '#' ? IsDigit(c) : UpperLetter(c) == pattern; });
}

std::int32_t NumberOf(std::string_view digits) {
    std::int32_t number = 0;
    ParseNumber(digits, number);
    return number;
}

} // namespace

const PlcFolderEntry* PlcFolder::Find(double version, int options) const {
    const long wanted = std::lround(version * VersionUnit);
    const auto found = std::find_if(Entries.begin(), Entries.end(), [&](const PlcFolderEntry& entry) {
        return NumberOf(entry.VersionText) == wanted && entry.Options == options;
    });
    return found == Entries.end() ? nullptr : &*found;
}

double PlcFolder::VersionOfCode(int code) const {
    const auto found = std::find_if(Entries.begin(), Entries.end(), [code](const PlcFolderEntry& entry) {
        return entry.VersionCode == code;
    });
    return found == Entries.end() ? -1 : found->Version;
}

int PlcFolder::EntryOfPair(int code, int options) const {
    const auto found = std::find_if(Entries.begin(), Entries.end(), [&](const PlcFolderEntry& entry) {
        return entry.VersionCode == code && entry.Options == options;
    });
    return found == Entries.end() ? -1 : static_cast<int>(found - Entries.begin());
}

PlcFolder ScanPlcFolder(const FolderFunctions& folders, const std::string& folder) {
    PlcFolder scanned{folder, {}};
    std::vector<std::string> names = folders.Files(folder);
    std::sort(names.begin(), names.end());
    for (const std::string& name : names) {
        if (!IsOptionFileName(name)) {
            continue;
        }
        PlcFolderEntry entry;
        entry.Name = name;
        entry.VersionText = name.substr(VersionPlace, DigitCount);
        entry.OptionsText = name.substr(OptionsPlace, DigitCount);
        entry.Version = NumberOf(entry.VersionText) / VersionUnit;
        if (ParseNumber(entry.OptionsText, entry.Options) == NumberFault::None) {
            scanned.Entries.push_back(std::move(entry));
        }
    }
    // Names in capitals sort before others, so the order of the names is not yet that of the versions.
    std::stable_sort(scanned.Entries.begin(), scanned.Entries.end(), [](const auto& a, const auto& b) {
        return a.VersionText + a.OptionsText < b.VersionText + b.OptionsText;
    });
    for (std::size_t i = 1; i < scanned.Entries.size(); ++i) {
        const PlcFolderEntry& before = scanned.Entries[i - 1];
        scanned.Entries[i].VersionCode = static_cast<std::int16_t>(
            before.VersionCode + (before.VersionText == scanned.Entries[i].VersionText ? 0 : 1));
    }
    return scanned;
}

FileError DecodeEntry(const PlcFolderEntry& entry, std::string_view text, const std::string& source,
                      OptionFile& option) {
    OptionFile read;
    FileError error = DecodeOptionFile(text, source, read);
    if (error.Failed()) {
        return error;
    }
    const bool named = std::lround(read.Head.SettingsVersion * VersionUnit) == NumberOf(entry.VersionText) &&
                       read.Head.Options == entry.Options;
    if (!named) {
        return MakeFileError(SubscriptError, source + ", header of version " +
                                                 FormatFixed(read.Head.SettingsVersion, 2) + " and options " +
                                                 std::to_string(read.Head.Options));
    }
    option = std::move(read);
    return {};
}

FileError ReadEntry(const FileSystem& files, const PlcFolder& folder, const PlcFolderEntry& entry,
                    OptionFile& option) {
    return TellLackOfMemory([&] {
        const std::string path = JoinPath(folder.Path, entry.Name);
        std::string text;
        FileError error = ReadWholeText(files, path, text);
        return error.Failed() ? error : DecodeEntry(entry, text, "read " + path, option);
    });
}

FileError LoadLists(const FileSystem& files, const PlcFolder& folder, LogicConfig& config, bool& found) {
    const PlcFolderEntry* entry = folder.Find(config.Vdr810.SettingsVersion, config.Vdr810.Options);
    found = entry != nullptr;
    if (!found) {
        return {};
    }
    return TellLackOfMemory([&] {
        OptionFile option;
        FileError error = ReadEntry(files, folder, *entry, option);
        return error.Failed() ? error
                              : TakeLists(config, option, "read " + JoinPath(folder.Path, entry->Name));
    });
}

} // namespace brindle
