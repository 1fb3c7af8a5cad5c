#include "support/command_run.h"
#include "support/program_bytes.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace brindle {
namespace {

void ExpectOneLineOfTrouble(const CommandRun& run) {
    const std::string text = run.Err.str();
    EXPECT_EQ(1, std::count(text.begin(), text.end(), '\n')) << text;
    EXPECT_EQ(0U, text.find("brindle-cli: ")) << text;
    EXPECT_EQ("", run.Out.str());
}

TEST(CommandLine, BadArgumentsExitWith2AndOneLine) {
    const std::vector<std::vector<std::string>> bad{
        {},
        {"frobnicate"},
        {"--frobnicate"},
        {"report"},
        {"report", "x.pl", "--frobnicate"},
        {"report", "x.pl", "y.pl"},
        {"report", "x.pl", "--group"},
        {"report", "x.pl", "--group", "two"},
        {"report", "x.pl", "--group", "1.5"},
        {"report", "x.pl", "--group", "99999999999999999999"},
        {"report", "x.pl", "--unit"},
        {"dump"},
        {"build", "x.json"},
        {"build", "x.json", "x.pl", "y.pl"},
        {"signals", "x.810", "y.810"},
        {"signals", "--version"},
        {"dump", "x.pl", "signals"},
    };
    for (const auto& arguments : bad) {
        CommandRun run;
        EXPECT_EQ(ExitBadArguments, run.Run(arguments)) << testing::PrintToString(arguments);
        ExpectOneLineOfTrouble(run);
        EXPECT_TRUE(run.Files.Log().empty()) << "no file is touched";
    }
}

TEST(CommandLine, AnUnknownCommandIsNamed) {
    CommandRun run;
    EXPECT_EQ(ExitBadArguments, run.Run({"frobnicate"}));
    EXPECT_EQ("brindle-cli: \"frobnicate\" is no command (see --help)\n", run.Err.str());
}

TEST(CommandLine, HelpNamesEveryCommandAndExitCode) {
    CommandRun run;
    ASSERT_EQ(ExitWell, run.Run({"--help"}));
    for (const char* text :
         {"report", "dump", "build", "signals", "\n  0  ", "\n  1  ", "\n  2  ", "\n  3  "}) {
        EXPECT_NE(std::string::npos, run.Out.str().find(text)) << text;
    }
    EXPECT_EQ("", run.Err.str());
}

TEST(CommandLine, EachCommandHasHelpOfItsOwn) {
    CommandRun run;
    ASSERT_EQ(ExitWell, run.Run({"report", "--help"}));
    for (const char* text : {"FILE", "--group", "--unit", "--numbers"}) {
        EXPECT_NE(std::string::npos, run.Out.str().find(text)) << text;
    }
    ASSERT_EQ(ExitWell, run.Run({"build", "--help"}));
    EXPECT_NE(std::string::npos, run.Out.str().find("MODEL"));
    EXPECT_EQ(std::string::npos, run.Out.str().find("--numbers"));
}

TEST(CommandLine, TheVersionIsThreeNumbers) {
    CommandRun run;
    ASSERT_EQ(ExitWell, run.Run({"--version"}));
    const std::string line = run.Out.str();
    EXPECT_EQ(0U, line.find("brindle-cli "));
    EXPECT_EQ(2, std::count(line.begin(), line.end(), '.')) << line;
}

TEST(CommandLine, OutputThatDoesNotArriveIsAFailure) {
    CommandRun run;
    run.Files.AddFile("/home/me/x.pl", NewProgramBytes(Version230));
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--help"},
                                                      {"signals"},
                                                      {"dump", "/home/me/x.pl"},
                                                      {"report", "/home/me/x.pl"}}) {
        std::ostream broken(nullptr); // every write to it fails
        std::ostringstream err;
        const CommandEnvironment whole = run.Environment();
        EXPECT_EQ(ExitFailed,
                  RunCommandLine(arguments, {whole.Files, broken, err, whole.StartFolder, whole.Now}));
        EXPECT_EQ("brindle-cli: standard output: not everything could be written\n", err.str());
    }
}

TEST(CommandLine, ControlCharactersNeverBreakTheOneLine) {
    CommandRun run;
    EXPECT_EQ(ExitFailed, run.Run({"dump", "/home/me/a\nb\x1B[31m.pl"}));
    ExpectOneLineOfTrouble(run);
    EXPECT_EQ(std::string::npos, run.Err.str().find('\x1B'));
}

} // namespace
} // namespace brindle
