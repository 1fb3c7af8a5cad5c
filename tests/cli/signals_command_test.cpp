#include "support/command_run.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

TEST(SignalsCommand, ListsTheCatalogueOf230UnderAHeading) {
    CommandRun run;
    ASSERT_EQ(ExitWell, run.Run({"signals"}));
    const auto lines = LinesOf(run.Out.str());
    ASSERT_EQ(1U + 105U, lines.size());
    EXPECT_EQ("Number  Code  Name                               Category  ", lines[0].substr(0, 59));
    EXPECT_EQ("  Enabled  Visible", lines[0].substr(lines[0].size() - 18));
    EXPECT_EQ("     0     0  NO CONNECT                         -  ", lines[1].substr(0, 52));
    EXPECT_EQ("    16    16  OUTER BLINDER                      25 Outer Blinder  ", lines[17].substr(0, 67));
    EXPECT_EQ("   104   255  FALSE                              0 General  ", lines[105].substr(0, 60));
}

TEST(SignalsCommand, DefaultsToVersion230) {
    CommandRun byDefault;
    CommandRun asked;
    ASSERT_EQ(ExitWell, byDefault.Run({"signals"}));
    ASSERT_EQ(ExitWell, asked.Run({"signals", "--version", "2.30"}));
    EXPECT_EQ(asked.Out.str(), byDefault.Out.str());
}

TEST(SignalsCommand, Version100HasItsOwnNamesAndFlags) {
    CommandRun run;
    ASSERT_EQ(ExitWell, run.Run({"signals", "--version", "1.00"}));
    const auto lines = LinesOf(run.Out.str());
    ASSERT_EQ(1U + 105U, lines.size());
    EXPECT_NE(std::string::npos, lines[17].find("BLINDERS OUTER SUPERVISED"));
    EXPECT_EQ("no       no", lines[14].substr(lines[14].size() - 11)) << "PRT";
    EXPECT_EQ("no       yes", lines[31].substr(lines[31].size() - 12)) << "50 POL";
    EXPECT_EQ("yes      no", lines[98].substr(lines[98].size() - 11)) << "59P OVERVOLTAGE 1";
}

TEST(SignalsCommand, ColumnsAreAligned) {
    for (const char* version : {"1.00", "2.30"}) {
        CommandRun run;
        ASSERT_EQ(ExitWell, run.Run({"signals", "--version", version}));
        const auto lines = LinesOf(run.Out.str());
        const std::size_t enabled = lines[0].find("Enabled");
        for (std::size_t i = 1; i < lines.size(); ++i) {
            const std::string word = lines[i].substr(enabled, 3);
            EXPECT_TRUE(word == "yes" || word == "no ") << lines[i];
            EXPECT_EQ(' ', lines[i][enabled - 1]);
            EXPECT_NE(' ', lines[i].back()) << "no line ends in a blank";
        }
    }
}

TEST(SignalsCommand, EndIsNotListed) {
    CommandRun run;
    ASSERT_EQ(ExitWell, run.Run({"signals"}));
    EXPECT_EQ(std::string::npos, run.Out.str().find(" END "));
}

TEST(SignalsCommand, AnyOtherVersionIsABadArgument) {
    CommandRun run;
    for (const char* version : {"2.3", "1", "2.30 ", "", "3.00"}) {
        EXPECT_EQ(ExitBadArguments, run.Run({"signals", "--version", version})) << version;
        EXPECT_EQ("", run.Out.str());
    }
}

} // namespace
} // namespace brindle
