#include "cli/logic_json.h"
#include "editor/gate_rows.h"
#include "model/output_map.h"
#include "model/signal_catalogue.h"
#include "support/command_run.h"
#include "support/program_bytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace brindle {
namespace {

std::string Content(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string> ExampleNames() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(BRINDLE_EXAMPLES)) {
        if (entry.path().extension() == ".pl") {
            names.push_back(entry.path().stem().string());
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

class Example : public testing::TestWithParam<std::string> {
  protected:
    [[nodiscard]] static std::filesystem::path Path(const char* extension) {
        return std::filesystem::path(BRINDLE_EXAMPLES) / (GetParam() + extension);
    }

    static LogicConfig Logic() {
        LogicConfig config;
        DecodeProgram(Content(Path(".pl")), config);
        return config;
    }
};

TEST_P(Example, IsTheFileThatItsModelBuilds) {
    CommandRun run;
    run.Files.AddFile("/home/me/x.json", Content(Path(".json")));
    ASSERT_EQ(ExitWell, run.Run({"build", "/home/me/x.json", "/home/me/x.pl"})) << run.Err.str();
    EXPECT_EQ(Content(Path(".pl")), run.Files.Content("/home/me/x.pl"));
}

TEST_P(Example, DumpsAsItsModel) {
    CommandRun run;
    run.Files.AddFile("/home/me/x.pl", Content(Path(".pl")));
    ASSERT_EQ(ExitWell, run.Run({"dump", "/home/me/x.pl"})) << run.Err.str();
    EXPECT_EQ(Content(Path(".json")), run.Out.str());
}

TEST_P(Example, IsInTheReadMe) {
    EXPECT_NE(std::string::npos,
              Content(std::filesystem::path(BRINDLE_EXAMPLES) / "README.md").find("`" + GetParam() + ".pl`"));
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

INSTANTIATE_TEST_SUITE_P(Programs, Example, testing::ValuesIn(ExampleNames()),
                         [](const auto& name) { return name.param; });

TEST(Examples, ThereAreAtLeastThreeOfBothVersions) {
    int version100 = 0;
    int version230 = 0;
    for (const std::string& name : ExampleNames()) {
        LogicConfig config;
        DecodeProgram(Content(std::filesystem::path(BRINDLE_EXAMPLES) / (name + ".pl")), config);
        ++(IsVersion230(config.Version) ? version230 : version100);
    }
    EXPECT_GE(version100 + version230, 3);
    EXPECT_GE(version100, 1);
    EXPECT_GE(version230, 1);
}

/// The VDR810 examples: a logic file, its JSON, and the option file that it names.
class Vdr810Example : public testing::TestWithParam<const char*> {
  protected:
    Vdr810Example() {
        Run.Files.AddFolder("/plc");
        for (const auto& entry : std::filesystem::directory_iterator(BRINDLE_EXAMPLES)) {
            if (entry.path().extension() == ".810") {
                const std::string name = entry.path().filename().string();
                Run.Files.AddFile("/plc/" + name, Content(entry.path()));
                Run.Folders.FilesOf["/plc"].push_back(name);
            }
        }
        Run.Files.AddFile("/home/me/x.c10", Example(".c10"));
        Run.Files.AddFile("/home/me/x.json", Example(".json"));
    }

    static std::string Example(const char* extension) {
        return Content(std::filesystem::path(BRINDLE_EXAMPLES) / (std::string(GetParam()) + extension));
    }

    CommandRun Run;
};

TEST_P(Vdr810Example, DumpsAsItsModel) {
    ASSERT_EQ(ExitWell, Run.Run({"dump", "/home/me/x.c10", "--plc-folder", "/plc"})) << Run.Err.str();
    EXPECT_EQ(Example(".json"), Run.Out.str());
}

TEST_P(Vdr810Example, IsWhatItsModelBuildsButForListsOfItsOwn) {
    ASSERT_EQ(ExitWell, Run.Run({"build", "/home/me/x.json", "/home/me/y.c10"})) << Run.Err.str();
    const std::string file = Example(".c10");
    EXPECT_EQ(file.substr(0, file.find("<CATEGORY INFO>")), Run.Files.Content("/home/me/y.c10"));
}

TEST_P(Vdr810Example, NamesEverySignalThatItUses) {
    ASSERT_EQ(ExitWell, Run.Run({"report", "/home/me/x.c10", "--plc-folder", "/plc"}));
    std::istringstream report(Run.Out.str());
    int inputs = 0;
    for (std::string line; std::getline(report, line);) {
        if (line.size() > 6 && line[2] == ':' && line[5] == ' ' &&
            line.find("Timer =") == std::string::npos) {
            ++inputs;
            const std::string text = line.substr(6);
            EXPECT_TRUE(text != "\r" && text != "(NOT) \r") << line;
        }
    }
    EXPECT_GT(inputs, 300);
}

TEST_P(Vdr810Example, IsInTheReadMe) {
    EXPECT_NE(std::string::npos, Content(std::filesystem::path(BRINDLE_EXAMPLES) / "README.md")
                                     .find("`" + std::string(GetParam()) + ".c10`"));
}

INSTANTIATE_TEST_SUITE_P(Examples, Vdr810Example, testing::Values("single_breaker", "two_breakers"));

} // namespace
} // namespace brindle
