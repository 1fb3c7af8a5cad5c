#include "platform/paths.h"
#include "support/command_run.h"
#include "support/example_files.h"
#include "support/program_bytes.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sys/wait.h>

/// The companion as scripts start it: the program itself, with its real output and exit code.
namespace brindle {
namespace {

class CompanionProgram : public testing::Test {
  protected:
    /// Runs the program in the folder with `arguments` for the shell; returns its exit code.
    [[nodiscard]] int Run(const std::string& arguments, const std::string& environment = "") const {
        const std::string command =
            "cd '" + Folder.Path() + "' && " + environment + " '" BRINDLE_CLI "' " + arguments;
        const int status =
            std::system(command.c_str()); // NOLINT(cert-env33-c): the shell is what scripts use
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    TempFolder Folder;
};

TEST_F(CompanionProgram, ReportsWithTheAbsolutePathAndCrLf) {
    Folder.Put("x.pl", NewProgramBytes(Version230));
    ASSERT_EQ(ExitWell, Run("report x.pl --group 2 --unit T1 >out 2>err"));
    const std::string out = Folder.Content("out");
    EXPECT_EQ(0U, out.find("Programmable Logic For Group G2 - T1   File: " +
                           std::filesystem::canonical(Folder.Path()).string() + "/x.pl "));
    EXPECT_EQ("\r\n\r\n", out.substr(out.size() - 4));
    EXPECT_EQ("", Folder.Content("err"));
}

TEST_F(CompanionProgram, DateAndTimeStandInTheHeading) {
    Folder.Put("x.pl", NewProgramBytes(Version230));
    ASSERT_EQ(ExitWell, Run("report x.pl --group 1 --unit T1 >out"));
    const std::string heading = Folder.Content("out").substr(0, Folder.Content("out").find("\r\n"));
    const std::string stamp = heading.substr(heading.find("/x.pl ") + 6);
    // "11/21/26 04:58:49" in the locale of every system; others differ, but hold two texts with digits
    const std::size_t blank = stamp.find(' ');
    ASSERT_NE(std::string::npos, blank) << stamp;
    EXPECT_NE(std::string::npos, stamp.substr(0, blank).find_first_of("0123456789")) << stamp;
    EXPECT_NE(std::string::npos, stamp.substr(blank).find_first_of("0123456789")) << stamp;
}

TEST_F(CompanionProgram, BuildsAndDumpsTheSameFileBothWays) {
    Folder.Put("x.pl", NewProgramBytes(Version100));
    ASSERT_EQ(ExitWell, Run("dump x.pl >x.json"));
    ASSERT_EQ(ExitWell, Run("build x.json y.pl"));
    EXPECT_EQ(NewProgramBytes(Version100), Folder.Content("y.pl"));
    ASSERT_EQ(ExitWell, Run("dump y.pl >y.json"));
    EXPECT_EQ(Folder.Content("x.json"), Folder.Content("y.json"));
}

TEST_F(CompanionProgram, TakesTheOptionFileFromTheFolderThatIsNamedAndMakesNone) {
    const std::string option = "PLC00230_OPT00012.810";
    Folder.Put("x.c10", ExampleContent("two_breakers.c10"));
    std::filesystem::create_directory(Folder.Path("plc"));
    EXPECT_EQ(ExitFinding, Run("report x.c10 --unit T1 --group 1 --plc-folder plc >out 2>err"));
    EXPECT_EQ("brindle-cli: plc/" + option + ": not there, so signals have no names\n",
              Folder.Content("err"));
    EXPECT_TRUE(std::filesystem::is_empty(Folder.Path("plc")));
    Folder.Put("plc/" + option, ExampleContent(option));
    EXPECT_EQ(ExitWell, Run("report x.c10 --unit T1 --group 1 --plc-folder plc/ >out 2>err"));
    EXPECT_EQ("", Folder.Content("err"));
    EXPECT_NE(std::string::npos,
              Folder.Content("out").find("T1:11 BF A INITIATE\r\nT1:12 (NOT) BKR A OPEN\r\n"));
}

TEST_F(CompanionProgram, LooksForOptionFilesBesideItself) {
    std::string file = ExampleContent("two_breakers.c10");
    const std::string options = "\r\n 12\r\n";
    file.replace(file.find(options), options.size(), "\r\n 9123\r\n"); // of which nobody has put one there
    Folder.Put("x.c10", file);
    ASSERT_EQ(ExitFinding, Run("dump x.c10 >out 2>err"));
    const std::string folder = std::filesystem::path(BRINDLE_CLI).parent_path().string();
    EXPECT_EQ("brindle-cli: " + JoinPath(folder, "PLC00230_OPT09123.810") +
                  ": not there, so signals have no names\n",
              Folder.Content("err"));
}

TEST_F(CompanionProgram, TellsALimitOfFileSizesAsAFullDisk) {
    Folder.Put("x.pl", NewProgramBytes(Version230));
    ASSERT_EQ(ExitWell, Run("dump x.pl >x.json"));
    Folder.Put("x.pl", "old");
    EXPECT_EQ(ExitFailed, Run("build x.json x.pl 2>err", "ulimit -f 1;"));
    EXPECT_EQ(0U, Folder.Content("err").find("brindle-cli: x.pl: Disk full")) << Folder.Content("err");
    EXPECT_EQ("old", Folder.Content("x.pl"));
    EXPECT_EQ(3, Folder.Count());
}

TEST_F(CompanionProgram, GivesEachExitCode) {
    Folder.Put("short.pl", "plcd");
    EXPECT_EQ(ExitWell, Run("signals >out"));
    EXPECT_EQ(ExitFinding, Run("dump short.pl >out 2>err"));
    EXPECT_EQ(ExitBadArguments, Run("dump 2>err"));
    EXPECT_EQ(ExitFailed, Run("dump none.pl 2>err"));
}

TEST_F(CompanionProgram, AFullOutputIsAFailure) {
    if (!std::filesystem::exists("/dev/full")) {
        GTEST_SKIP() << "this system has no device that is always full";
    }
    Folder.Put("x.pl", NewProgramBytes(Version230));
    for (const char* arguments : {"signals", "dump x.pl", "report x.pl", "report x.pl --unit T1 --group 1"}) {
        EXPECT_EQ(ExitFailed, Run(std::string(arguments) + " >/dev/full 2>err")) << arguments;
        EXPECT_EQ("brindle-cli: standard output: not everything could be written\n", Folder.Content("err"));
    }
}

TEST_F(CompanionProgram, AnUnknownLocaleIsNoTrouble) {
    Folder.Put("x.pl", NewProgramBytes(Version230));
    EXPECT_EQ(ExitWell, Run("report x.pl --group 1 --unit T1 >other 2>err",
                            "LC_ALL=xx_XX.nonsense LANG=xx_XX.nonsense"));
    EXPECT_EQ("", Folder.Content("err"));
    EXPECT_EQ(0U, Folder.Content("other").find("Programmable Logic For Group G1 - T1   File: "));
}

} // namespace
} // namespace brindle
