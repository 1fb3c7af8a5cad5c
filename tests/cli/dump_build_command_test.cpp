#include "cli/logic_json.h"
#include "support/command_run.h"
#include "support/program_bytes.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace brindle {
namespace {

std::string NewModel(float version) {
    LogicConfig config;
    MakeNewVdr812(config, version);
    return LogicToJson(config);
}

TEST(DumpCommand, WritesTheLogicAsJson) {
    CommandRun run;
    run.Files.AddFile("/home/me/x.pl", NewProgramBytes(Version100));
    ASSERT_EQ(ExitWell, run.Run({"dump", "/home/me/x.pl"}));
    EXPECT_EQ(NewModel(Version100), run.Out.str());
    EXPECT_EQ("", run.Err.str());
}

TEST(DumpCommand, AShortFileIsDumpedAndFound) {
    CommandRun run;
    run.Files.AddFile("/home/me/x.pl", NewProgramBytes(Version230).substr(0, 2047));
    EXPECT_EQ(ExitFinding, run.Run({"dump", "/home/me/x.pl"}));
    EXPECT_EQ(NewModel(Version230), run.Out.str()) << "the missing byte reads as zero";
    EXPECT_EQ(
        "brindle-cli: /home/me/x.pl: This is not a VDR812 program: 2047 bytes instead of 2048, the missing "
        "ones read as zero.\n",
        run.Err.str());
}

TEST(DumpCommand, AFileThatCannotBeReadWritesNothing) {
    CommandRun run;
    run.Files.AddFile("/home/me/x.pl", NewProgramBytes(Version230));
    run.Files.FailAll("read", DeviceIoError);
    EXPECT_EQ(ExitFailed, run.Run({"dump", "/home/me/x.pl"}));
    EXPECT_EQ("", run.Out.str());
    EXPECT_EQ(0U, run.Err.str().find("brindle-cli: /home/me/x.pl: ")) << run.Err.str();
    EXPECT_NE(std::string::npos, run.Err.str().find("(error 57, ")) << run.Err.str();
    EXPECT_EQ(0U, run.Files.OpenHandles());
}

TEST(DumpCommand, AFolderIsNoProgram) {
    CommandRun run;
    EXPECT_EQ(ExitFailed, run.Run({"dump", "/home/me"}));
    EXPECT_NE(std::string::npos, run.Err.str().find("(error 75, ")) << run.Err.str();
}

TEST(BuildCommand, WritesTheFileThatTheModelDescribes) {
    CommandRun run;
    run.Files.AddFile("/home/me/x.json", NewModel(Version230));
    ASSERT_EQ(ExitWell, run.Run({"build", "/home/me/x.json", "/home/me/x.pl"})) << run.Err.str();
    EXPECT_EQ(NewProgramBytes(Version230), run.Files.Content("/home/me/x.pl"));
    EXPECT_EQ("", run.Out.str());
    EXPECT_EQ("", run.Err.str());
}

TEST(BuildCommand, ReplacesAnOldFileWhole) {
    CommandRun run;
    run.Files.AddFile("/home/me/x.json", NewModel(Version230));
    run.Files.AddFile("/home/me/x.pl", std::string(5000, 'x'));
    ASSERT_EQ(ExitWell, run.Run({"build", "/home/me/x.json", "/home/me/x.pl"}));
    EXPECT_EQ(NewProgramBytes(Version230), run.Files.Content("/home/me/x.pl"));
}

TEST(BuildCommand, SaysWhatTheNewFileDoesNotHaveOfTheOld) {
    CommandRun run;
    run.Files.AddFile("/home/me/x.json", NewModel(Version230));
    run.Files.AddFile("/home/me/x.pl", "old");
    run.Files.LoseTraits({true, true, false, true});
    EXPECT_EQ(ExitFinding, run.Run({"build", "/home/me/x.json", "/home/me/x.pl"}));
    EXPECT_EQ(NewProgramBytes(Version230), run.Files.Content("/home/me/x.pl"));
    EXPECT_EQ("brindle-cli: /home/me/x.pl: replaced, but without the owner, the group and the extended "
              "attributes of the old file\n",
              run.Err.str());
}

TEST(BuildCommand, ARefusedModelNamesFileAndFieldAndLeavesTheOldFile) {
    CommandRun run;
    std::string model = NewModel(Version230);
    model.replace(model.find("\"pick_up\": 0"), 12, "\"pick_up\": 1.5");
    run.Files.AddFile("/home/me/x.json", model);
    run.Files.AddFile("/home/me/x.pl", "old");
    EXPECT_EQ(ExitFailed, run.Run({"build", "/home/me/x.json", "/home/me/x.pl"}));
    EXPECT_EQ("old", run.Files.Content("/home/me/x.pl"));
    EXPECT_EQ("brindle-cli: /home/me/x.json: groups[0].units[0].pick_up: "
              "1.5 is not a whole number in -2147483648 to 2147483647\n",
              run.Err.str());
}

TEST(BuildCommand, AMissingModelFailsByItsName) {
    CommandRun run;
    EXPECT_EQ(ExitFailed, run.Run({"build", "/home/me/x.json", "/home/me/x.pl"}));
    EXPECT_EQ(0U, run.Err.str().find("brindle-cli: /home/me/x.json: File not found (error 53, "));
    EXPECT_FALSE(run.Files.Content("/home/me/x.pl").has_value());
}

TEST(BuildCommand, AFullDiskFailsByTheOutputsNameAndLeavesTheOldFile) {
    CommandRun run;
    run.Files.AddFile("/home/me/x.json", NewModel(Version230));
    run.Files.AddFile("/home/me/x.pl", "old");
    run.Files.FailAll("write", DiskFullError);
    EXPECT_EQ(ExitFailed, run.Run({"build", "/home/me/x.json", "/home/me/x.pl"}));
    EXPECT_EQ(0U, run.Err.str().find("brindle-cli: /home/me/x.pl: ")) << run.Err.str();
    EXPECT_NE(std::string::npos, run.Err.str().find("(error 61, ")) << run.Err.str();
    EXPECT_EQ("old", run.Files.Content("/home/me/x.pl"));
}

TEST(BuildCommand, AModelBeyondOneMebibyteIsRefused) {
    CommandRun run;
    run.Files.AddFile("/home/me/x.json", NewModel(Version230) + std::string(1 << 20, ' '));
    EXPECT_EQ(ExitFailed, run.Run({"build", "/home/me/x.json", "/home/me/x.pl"}));
    EXPECT_EQ("brindle-cli: /home/me/x.json: longer than 1048576 bytes\n", run.Err.str());
}

TEST(BuildCommand, NeverOverwritesItsOwnModel) {
    const TempFolder folder;
    folder.Put("x.json", NewModel(Version230));
    CommandRun run;
    CommandEnvironment environment = run.Environment();
    environment.Files = RealFileSystem();
    const std::string sameByAnotherName = folder.Path() + "/./x.json";
    EXPECT_EQ(ExitBadArguments, BuildCommand({folder.Path("x.json"), sameByAnotherName, {}}, environment));
    EXPECT_EQ(NewModel(Version230), folder.Content("x.json"));
    EXPECT_EQ("brindle-cli: " + sameByAnotherName + ": is the model itself and would be lost\n",
              run.Err.str());
}

} // namespace
} // namespace brindle
