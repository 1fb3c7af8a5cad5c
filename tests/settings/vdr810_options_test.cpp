#include "settings/vdr810_options.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>

namespace brindle {
namespace {

/// Look-ups in a folder of option files, given as options numbers by version.
PlcFolderLookups Folder(const std::map<double, std::vector<int>>& files) {
    PlcFolderLookups lookups;
    lookups.VersionOfCode = [files](int code) {
        return code < static_cast<int>(files.size()) ? std::next(files.begin(), code)->first : -1.0;
    };
    lookups.EntryOfPair = [files](int code, int options) {
        if (code >= static_cast<int>(files.size())) {
            return -1;
        }
        const std::vector<int>& numbers = std::next(files.begin(), code)->second;
        return std::find(numbers.begin(), numbers.end(), options) == numbers.end() ? -1 : 7;
    };
    return lookups;
}

const std::map<double, std::vector<int>> TwoVersions{{1.0, {3}}, {2.3, {0, 12}}};

TEST(Vdr810Options, AnEmptyFolderGivesEmptyListsAndNothingToChoose) {
    const Vdr810Options options(Folder({}), {});
    EXPECT_TRUE(options.Versions().empty());
    EXPECT_TRUE(options.Options().empty());
    EXPECT_FALSE(options.PairChosen());
}

TEST(Vdr810Options, VersionsHaveTwoDecimalsAndStandInCodeOrder) {
    const Vdr810Options options(Folder(TwoVersions), {});
    EXPECT_EQ(options.Versions(), (std::vector<std::string>{"1.00", "2.30"}));
}

TEST(Vdr810Options, EachVersionListsItsOwnOptionsAscending) {
    Vdr810Options options(Folder(TwoVersions), {});
    EXPECT_EQ(options.Options(), std::vector<int>{3});
    options.ChooseVersion(1);
    EXPECT_EQ(options.Options(), (std::vector<int>{0, 12}));
}

TEST(Vdr810Options, ChoosingAVersionChoosesItsFirstOptions) {
    Vdr810Options options(Folder(TwoVersions), {});
    options.ChooseVersion(1);
    options.ChooseOptions(1);
    options.ChooseVersion(0);
    EXPECT_EQ(options.Choice(), (Vdr810Choice{0, 1.0, 0, 3}));
    options.ChooseVersion(1);
    EXPECT_EQ(options.Choice(), (Vdr810Choice{1, 2.3, 0, 0}));
}

TEST(Vdr810Options, ChoosingOptionsKeepsTheVersion) {
    Vdr810Options options(Folder(TwoVersions), {});
    options.ChooseVersion(1);
    options.ChooseOptions(1);
    EXPECT_EQ(options.Choice(), (Vdr810Choice{1, 2.3, 1, 12}));
}

TEST(Vdr810Options, OpensWithWhatWasChosenBefore) {
    const Vdr810Options options(Folder(TwoVersions), {1, 2.3, 1, 12});
    EXPECT_EQ(options.Choice(), (Vdr810Choice{1, 2.3, 1, 12}));
}

TEST(Vdr810Options, FindsWhatWasChosenWhereverItStandsNow) {
    const Vdr810Options options(Folder({{1.0, {3}}, {1.5, {0}}, {2.3, {0, 5, 12}}}), {1, 2.3, 1, 12});
    EXPECT_EQ(options.Choice(), (Vdr810Choice{2, 2.3, 2, 12}));
}

TEST(Vdr810Options, AListThatHasBecomeShorterOpensAtItsFirstEntries) {
    const Vdr810Options options(Folder(TwoVersions), {5, 9.9, 4, 99});
    EXPECT_EQ(options.Choice(), (Vdr810Choice{0, 1.0, 0, 3}));
}

TEST(Vdr810Options, OptionsNumbersReachUpTo32767) {
    const Vdr810Options options(Folder({{1.0, {0, 32767, 32768}}}), {});
    EXPECT_EQ(options.Options(), (std::vector<int>{0, 32767}));
}

} // namespace
} // namespace brindle
