#include "files/plc_folder.h"

#include "files/option_file.h"
#include "files/text_fields.h"
#include "files/vdr810_head.h"
#include "model/number_text.h"
#include "platform/ascii.h"
#include "platform/memory_guard.h"
#include "platform/paths.h"

#include <algorithm>
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
    const long wanted = VersionHundredths(version);
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

std::vector<std::string> OptionFileMisfits(const PlcFolderEntry& entry, const OptionFile& option,
                                           std::int32_t signalCount) {
    std::vector<std::string> misfits;
    const std::string file = "The option file " + entry.Name;
    const Vdr810Head& head = option.Head;
    if (VersionHundredths(head.SettingsVersion) != NumberOf(entry.VersionText) ||
        head.Options != entry.Options) {
        misfits.push_back(file + " says in its head that it is of version " +
                          FormatFixed(head.SettingsVersion, 2) + " and options " +
                          std::to_string(head.Options) + ".");
    }
    if (head.Signals != signalCount) {
        misfits.push_back(file + " counts " + std::to_string(head.Signals) + " signals, this logic " +
                          std::to_string(signalCount) + ".");
    }
    return misfits;
}

FileError LoadLists(const FileSystem& files, const PlcFolder& folder, LogicConfig& config,
                    LoadedLists& loaded) {
    loaded = {};
    const PlcFolderEntry* entry = folder.Find(config.Vdr810.SettingsVersion, config.Vdr810.Options);
    if (entry == nullptr) {
        return {};
    }
    loaded.Found = true;
    return TellLackOfMemory([&] {
        OptionFile option;
        FileError error = ReadOptionFile(files, JoinPath(folder.Path, entry->Name), option);
        if (!error.Failed()) {
            loaded.Misfits = OptionFileMisfits(*entry, option, config.Coding.InvertBase);
            TakeLists(config, option);
        }
        return error;
    });
}

} // namespace brindle
