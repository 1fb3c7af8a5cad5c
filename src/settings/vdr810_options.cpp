#include "settings/vdr810_options.h"

#include "model/number_text.h"

#include <algorithm>

namespace brindle {

namespace {

/// The place of `value` in the list, else its first.
template<class Value>
int PlaceOf(const Value& value, const std::vector<Value>& list) {
    const auto found = std::find(list.begin(), list.end(), value);
    return found == list.end() ? 0 : static_cast<int>(found - list.begin());
}

} // namespace

Vdr810Options::Vdr810Options(const PlcFolderLookups& lookups, const Vdr810Choice& remembered)
    : lookups_(lookups) {
    for (int code = 0;; ++code) {
        const std::string version = FormatFixed(lookups_.VersionOfCode(code), 2);
        if (version == "-1.00") {
            break;
        }
        versions_.push_back(version);
    }
    ChooseVersion(PlaceOf(FormatFixed(remembered.Version, 2), versions_));
    ChooseOptions(PlaceOf(remembered.Options, options_));
}

void Vdr810Options::ChooseVersion(int index) {
    choice_.VersionIndex = index;
    choice_.Version = lookups_.VersionOfCode(index);
    FillOptions();
    ChooseOptions(0);
}

void Vdr810Options::FillOptions() {
    options_.clear();
    for (int options = 0; options <= HighestOptionsNumber; ++options) {
        if (lookups_.EntryOfPair(choice_.VersionIndex, options) != -1) {
            options_.push_back(options);
        }
    }
}

void Vdr810Options::ChooseOptions(int index) {
    choice_.OptionsIndex = index;
    choice_.Options = options_.empty() ? -1 : options_.at(static_cast<std::size_t>(index));
}

} // namespace brindle
