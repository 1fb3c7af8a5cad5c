#include "cli/logic_json.h"
#include "editor/gate_rows.h"
#include "files/option_file.h"
#include "files/vdr810_reader.h"
#include "files/vdr810_writer.h"
#include "model/output_map.h"
#include "model/signal_catalogue.h"
#include "support/command_run.h"
#include "support/example_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace brindle {
namespace {

OptionFile ExampleOption(const std::string& name) {
    OptionFile option;
    EXPECT_FALSE(DecodeOptionFile(ExampleContent(name + ".810"), name, option).Failed());
    return option;
}

/// An option file of the examples.
class OptionExample : public testing::TestWithParam<std::string> {};

TEST_P(OptionExample, IsNamedAfterItsHeader) {
    const Vdr810Head head = ExampleOption(GetParam()).Head;
    EXPECT_EQ(GetParam() + ".810", OptionFileName(head.SettingsVersion, head.Options));
}

TEST_P(OptionExample, IsWhatTheWriterWrites) {
    LogicConfig config;
    MakeNewVdr810(config, ExampleOption(GetParam()));
    EXPECT_EQ(ExampleContent(GetParam() + ".810"), EncodeOptionFile(config));
}

TEST_P(OptionExample, NamesItsSignalsOnceAndInTheLowerHalf) {
    const OptionFile option = ExampleOption(GetParam());
    const std::int32_t signals = option.Head.Signals;
    EXPECT_EQ(0, signals % 2) << "each signal has an inverse";
    EXPECT_GE(option.Lists.Labels.size(), 100U);
    std::set<std::int32_t> numbers;
    std::set<std::string> names;
    for (const Vdr810Label& label : option.Lists.Labels) {
        EXPECT_TRUE(numbers.insert(label.Signal).second) << label.Signal;
        EXPECT_TRUE(names.insert(label.Name).second) << label.Name;
        if (label.Name == FalseName) {
            EXPECT_EQ(signals - 1, label.Signal) << "the inverse of TRUE";
            EXPECT_EQ(option.Unconnected, label.Signal);
        } else {
            EXPECT_TRUE(label.Signal >= 0 && label.Signal < signals / 2) << label.Name;
        }
    }
    const SignalCatalogue catalogue = BuildVdr810Catalogue(option.Lists);
    const InputCoding coding{signals, option.Unconnected};
    EXPECT_EQ("NO CONNECT", NameOfCode(catalogue, coding, NoConnectCode));
    EXPECT_EQ("TRUE", NameOfCode(catalogue, coding, TrueCode));
    EXPECT_EQ("FALSE", NameOfCode(catalogue, coding, option.Unconnected));
}

TEST_P(OptionExample, HasItsSignalsInCategoriesThatThereAre) {
    const OptionFile option = ExampleOption(GetParam());
    std::set<std::int32_t> categories;
    bool byPosition = true;
    for (const Vdr810Category& category : option.Lists.Categories) {
        EXPECT_TRUE(categories.insert(category.Number).second) << category.Number;
        byPosition = byPosition && category.Number == static_cast<std::int32_t>(categories.size());
    }
    EXPECT_FALSE(byPosition) << "what takes a category's position for its number shows in the examples";
    std::set<std::int32_t> used;
    for (const Vdr810Label& label : option.Lists.Labels) {
        EXPECT_EQ(1U, categories.count(label.Category)) << label.Name;
        used.insert(label.Category);
    }
    EXPECT_EQ(categories, used) << "no chooser is empty";
}

TEST_P(OptionExample, HasSignalsThatCannotBePressedAndSuchThatAreNotShown) {
    const std::vector<Vdr810Label> labels = ExampleOption(GetParam()).Lists.Labels;
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(),
                            [](const Vdr810Label& label) { return !label.Enabled && label.Visible; }));
    EXPECT_TRUE(
        std::any_of(labels.begin(), labels.end(), [](const Vdr810Label& label) { return !label.Visible; }));
}

INSTANTIATE_TEST_SUITE_P(Examples, OptionExample, testing::ValuesIn(ExamplesEndingIn(".810")),
                         [](const auto& name) { return name.param; });

/// A logic file of the examples, its JSON, and the option files.
class Vdr810Example : public testing::TestWithParam<std::string> {
  protected:
    Vdr810Example() {
        Run.Files.AddFolder("/plc");
        for (const std::string& name : ExamplesEndingIn(".810")) {
            Run.Files.AddFile("/plc/" + name + ".810", ExampleContent(name + ".810"));
            Run.Folders.FilesOf["/plc"].push_back(name + ".810");
        }
        Run.Files.AddFile("/home/me/x.c10", ExampleContent(GetParam() + ".c10"));
        Run.Files.AddFile("/home/me/x.json", ExampleContent(GetParam() + ".json"));
    }

    /// With the lists of its option file.
    static LogicConfig Logic() {
        LogicConfig config;
        EXPECT_TRUE(DecodeVdr810(ExampleContent(GetParam() + ".c10"), GetParam(), config).Done());
        const OptionFile option = ExampleOption(Stem(config));
        config.Coding.FalseCode = option.Unconnected;
        config.Lists = option.Lists;
        return config;
    }

    static std::string Stem(const LogicConfig& config) {
        const std::string name = OptionFileName(config.Vdr810.SettingsVersion, config.Vdr810.Options);
        return name.substr(0, name.rfind('.'));
    }

    static bool Used(const LogicConfig& config, const LogicUnit& unit) {
        return std::any_of(unit.Inputs.begin(), unit.Inputs.end(),
                           [&config](UnitInput code) { return code != UnconnectedCode(config); });
    }

    CommandRun Run;
};

TEST_P(Vdr810Example, DumpsAsItsModel) {
    ASSERT_EQ(ExitWell, Run.Run({"dump", "/home/me/x.c10", "--plc-folder", "/plc"})) << Run.Err.str();
    EXPECT_EQ(ExampleContent(GetParam() + ".json"), Run.Out.str());
    EXPECT_EQ("", Run.Err.str());
}

TEST_P(Vdr810Example, IsWhatItsModelBuildsButForListsOfItsOwn) {
    ASSERT_EQ(ExitWell, Run.Run({"build", "/home/me/x.json", "/home/me/y.c10"})) << Run.Err.str();
    const std::string file = ExampleContent(GetParam() + ".c10");
    EXPECT_EQ(file.substr(0, file.find("<CATEGORY INFO>")), Run.Files.Content("/home/me/y.c10"));
}

TEST_P(Vdr810Example, AgreesWithTheHeadOfItsOptionFile) {
    const LogicConfig config = Logic();
    EXPECT_EQ(ExampleOption(Stem(config)).Head, HeadOf(config));
}

TEST_P(Vdr810Example, UsesOnlySignalsThatItsOptionFileOffers) {
    const LogicConfig config = Logic();
    for (int group = 1; group <= config.GroupCount; ++group) {
        for (const LogicUnit& unit : config.Group(group).Units) {
            for (const UnitInput code : unit.Inputs) {
                const std::int32_t signal = SignalOfCode(config.Coding, code);
                const auto label =
                    std::find_if(config.Lists.Labels.begin(), config.Lists.Labels.end(),
                                 [signal](const Vdr810Label& each) { return each.Signal == signal; });
                ASSERT_NE(config.Lists.Labels.end(), label) << signal;
                EXPECT_TRUE(label->Enabled && label->Visible) << label->Name;
            }
        }
    }
}

TEST_P(Vdr810Example, IsFilledAsTheEditorFillsIt) {
    const LogicConfig config = Logic();
    const auto shown = GateRowsShown(config.Version);
    for (int group = 1; group <= config.GroupCount; ++group) {
        for (const LogicUnit& unit : config.Group(group).Units) {
            for (std::size_t row = 0; row < GatesPerUnit; ++row) {
                const auto* const first =
                    unit.Inputs.begin() + static_cast<std::ptrdiff_t>(row * InputsPerGate);
                const auto unconnected = std::count(first, first + InputsPerGate, UnconnectedCode(config));
                if (!Used(config, unit) || !shown.at(row)) {
                    EXPECT_EQ(4, unconnected);
                } else {
                    EXPECT_TRUE(unconnected == 4 || unconnected == 0) << "a FALSE would block its gate";
                    EXPECT_NE(4, std::count(first, first + InputsPerGate, TrueCode)) << "always on";
                }
            }
        }
    }
}

TEST_P(Vdr810Example, MapsOutputsInRangeToConnectedUnitsAlone) {
    const LogicConfig config = Logic();
    for (int group = 1; group <= config.GroupCount; ++group) {
        for (const UnitInfo& unit : UnitTable) {
            LogicConfig unmapped = config;
            bool mapped = false;
            for (int output = config.FirstOutput; output <= config.LastOutput; ++output) {
                mapped = mapped || OutputMapped(config, group, unit.Number, output);
                MapOutput(unmapped, group, unit.Number, output, false);
            }
            const auto& words =
                unmapped.Group(group).OutputWords.at(static_cast<std::size_t>(unit.MapSlot - 1));
            EXPECT_EQ(0,
                      std::count_if(words.begin(), words.end(), [](std::uint32_t word) { return word != 0; }))
                << "outputs that the relay does not have";
            EXPECT_EQ(Used(config, config.Group(group).Unit(unit.Number)), mapped)
                << "group " << group << ", " << unit.Tag;
        }
    }
}

TEST_P(Vdr810Example, TimesAreThoseThatTheEditorAdmits) {
    const LogicConfig config = Logic();
    for (int group = 1; group <= config.GroupCount; ++group) {
        for (const UnitTimer& timer : config.Group(group).Timers) {
            EXPECT_TRUE(timer.PickUp >= 0 && timer.PickUp <= 600000);
            EXPECT_TRUE(timer.DropOut >= 0 && timer.DropOut <= 600000);
        }
    }
}

TEST_P(Vdr810Example, IsInTheReadMe) {
    EXPECT_NE(std::string::npos, ExampleContent("README.md").find("`" + GetParam() + ".c10`"));
}

INSTANTIATE_TEST_SUITE_P(Examples, Vdr810Example, testing::ValuesIn(ExamplesEndingIn(".c10")),
                         [](const auto& name) { return name.param; });

TEST(Vdr810Examples, ShowWhatTheRelayCanDo) {
    std::set<std::string> optionFiles;
    std::set<int> groupCounts;
    std::set<bool> versions;
    int banks = 0;
    int withLists = 0;
    for (const std::string& name : ExamplesEndingIn(".c10")) {
        LogicConfig config;
        ASSERT_TRUE(DecodeVdr810(ExampleContent(name + ".c10"), name, config).Done());
        optionFiles.insert(OptionFileName(config.Vdr810.SettingsVersion, config.Vdr810.Options));
        groupCounts.insert(config.GroupCount);
        versions.insert(IsVersion230(config.Version));
        banks = std::max(banks, BankCount(config));
        withLists += config.Lists.Categories.empty() || config.Lists.Labels.empty() ? 0 : 1;
    }
    EXPECT_EQ(ExamplesEndingIn(".810").size(), optionFiles.size());
    EXPECT_EQ(2U, groupCounts.size());
    EXPECT_EQ(8, *groupCounts.rbegin());
    EXPECT_EQ(2U, versions.size());
    EXPECT_EQ(2, banks);
    EXPECT_EQ(1, withLists);
}

TEST(Vdr810Examples, ListsOfALogicFileNameWhatItsOptionFileNames) {
    LogicConfig config;
    ASSERT_TRUE(DecodeVdr810(ExampleContent("single_breaker.c10"), "x", config).Done());
    const OptionFile option = ExampleOption("PLC00100_OPT00000");
    ASSERT_EQ(option.Lists.Labels.size(), config.Lists.Labels.size());
    for (std::size_t i = 0; i < option.Lists.Labels.size(); ++i) {
        EXPECT_EQ(option.Lists.Labels[i].Name, config.Lists.Labels[i].Name);
        EXPECT_EQ(option.Lists.Labels[i].Signal, config.Lists.Labels[i].Signal);
        EXPECT_EQ(option.Lists.Labels[i].Category, config.Lists.Labels[i].Category);
    }
    EXPECT_EQ(option.Unconnected, config.Coding.FalseCode);
}

} // namespace
} // namespace brindle
