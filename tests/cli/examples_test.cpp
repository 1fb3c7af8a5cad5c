#include "cli/logic_json.h"
#include "editor/gate_rows.h"
#include "model/output_map.h"
#include "model/signal_catalogue.h"
#include "support/command_run.h"
#include "support/example_files.h"
#include "support/program_bytes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace brindle {
namespace {

class Example : public testing::TestWithParam<std::string> {
  protected:
    static std::string Content(const char* extension) { return ExampleContent(GetParam() + extension); }

    static LogicConfig Logic() {
        LogicConfig config;
        DecodeProgram(Content(".pl"), config);
        return config;
    }
};

TEST_P(Example, IsTheFileThatItsModelBuilds) {
    CommandRun run;
    run.Files.AddFile("/home/me/x.json", Content(".json"));
    ASSERT_EQ(ExitWell, run.Run({"build", "/home/me/x.json", "/home/me/x.pl"})) << run.Err.str();
    EXPECT_EQ(Content(".pl"), run.Files.Content("/home/me/x.pl"));
}

TEST_P(Example, DumpsAsItsModel) {
    CommandRun run;
    run.Files.AddFile("/home/me/x.pl", Content(".pl"));
    ASSERT_EQ(ExitWell, run.Run({"dump", "/home/me/x.pl"})) << run.Err.str();
    EXPECT_EQ(Content(".json"), run.Out.str());
}

TEST_P(Example, IsInTheReadMe) {
    EXPECT_NE(std::string::npos, ExampleContent("README.md").find("`" + GetParam() + ".pl`"));
}

TEST_P(Example, UsesOnlySignalsThatItsVersionOffers) {
    const LogicConfig config = Logic();
    const SignalCatalogue catalogue = BuildVdr812Catalogue(config.Version);
    for (const LogicGroup& group : config.Groups) {
        for (const LogicUnit& unit : group.Units) {
            for (const UnitInput code : unit.Inputs) {
                const auto signal = static_cast<std::size_t>(SignalOfCode(config.Coding, code));
                const SignalEntry& entry = catalogue.Signals.at(signal == 255 ? 104 : signal);
                EXPECT_TRUE(entry.Enabled && entry.Visible) << entry.Name;
                EXPECT_TRUE(code == 0 ||
                            catalogue.Categories.at(static_cast<std::size_t>(entry.Category)).Visible)
                    << entry.Name << ": no menu item leads to it";
            }
        }
    }
}

/// The four codes of a gate row.
std::vector<UnitInput> RowCodes(const LogicUnit& unit, int row) {
    const auto* const first = unit.Inputs.begin() + static_cast<std::ptrdiff_t>(4 * (row - 1));
    return {first, first + 4};
}

TEST_P(Example, IsFilledAsTheEditorFillsIt) {
    const LogicConfig config = Logic();
    const auto shown = GateRowsShown(config.Version);
    for (const LogicGroup& group : config.Groups) {
        for (const LogicUnit& unit : group.Units) {
            const bool used = unit != LogicUnit{};
            for (int row = 1; row <= GatesPerUnit; ++row) {
                const std::vector<UnitInput> codes = RowCodes(unit, row);
                const auto count = [&codes](UnitInput code) {
                    return std::count(codes.begin(), codes.end(), code);
                };
                if (!used || !shown.at(static_cast<std::size_t>(row - 1))) {
                    EXPECT_EQ(4, count(NoConnectCode));
                } else {
                    EXPECT_EQ(0, count(NoConnectCode));
                    EXPECT_TRUE(count(255) == 4 || count(255) == 0) << "a FALSE would block its gate";
                    EXPECT_NE(4, count(TrueCode)) << "the unit would always be on";
                }
            }
        }
    }
}

TEST_P(Example, MapsOutputsInRangeToConnectedUnitsAlone) {
    const LogicConfig config = Logic();
    std::uint32_t inRange = 0;
    for (int output = config.FirstOutput; output <= config.LastOutput; ++output) {
        inRange |= BitOfOutput(config, output).Mask;
    }
    for (int group = 1; group <= MaxGroups; ++group) {
        for (int unit = 1; unit <= UnitsPerGroup; ++unit) {
            const std::uint32_t word = config.Group(group).OutputMap(Unit(unit).MapSlot, 1);
            EXPECT_EQ(0U, word & ~inRange);
            EXPECT_EQ(config.Group(group).Unit(unit) != LogicUnit{}, word != 0)
                << "group " << group << ", " << Unit(unit).Tag;
        }
    }
}

TEST_P(Example, TimesAreThoseThatTheEditorAdmits) {
    for (const LogicGroup& group : Logic().Groups) {
        for (const UnitTimer& timer : group.Timers) {
            EXPECT_TRUE(timer.PickUp >= 0 && timer.PickUp <= 600000);
            EXPECT_TRUE(timer.DropOut >= 0 && timer.DropOut <= 600000);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Programs, Example, testing::ValuesIn(ExamplesEndingIn(".pl")),
                         [](const auto& name) { return name.param; });

TEST(Examples, ThereAreAtLeastThreeOfBothVersions) {
    int version100 = 0;
    int version230 = 0;
    for (const std::string& name : ExamplesEndingIn(".pl")) {
        LogicConfig config;
        DecodeProgram(ExampleContent(name + ".pl"), config);
        ++(IsVersion230(config.Version) ? version230 : version100);
    }
    EXPECT_GE(version100 + version230, 3);
    EXPECT_GE(version100, 1);
    EXPECT_GE(version230, 1);
}

} // namespace
} // namespace brindle
