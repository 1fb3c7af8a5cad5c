#include "cli/commands.h"
#include "editor/gate_rows.h"
#include "files/program_file.h"
#include "files/whole_file.h"
#include "report/print_to_file.h"
#include "support/command_run.h"
#include "support/fake_file_system.h"

#include <gtest/gtest.h>

#include <deque>
#include <optional>
#include <string>

namespace brindle {
namespace {

/// Printing into files in memory, with answers from lists.
class PrintToFileTest : public testing::Test {
  protected:
    PrintToFileTest() { Files.AddFolder("/out"); }

    void Print(std::string_view fileName) {
        PrintFileWorld world;
        world.Files = Files.Operations();
        world.RunFileDialog = [this](const FileDialogRequest& request) {
            Dialogs.push_back(request);
            return Answer;
        };
        world.ShowMessageBox = [this](const MessageBox& box) {
            Boxes.push_back(box);
            const MessageAnswer answer = BoxAnswers.empty() ? MessageAnswer::Ok : BoxAnswers.front();
            if (!BoxAnswers.empty()) {
                BoxAnswers.pop_front();
            }
            return answer;
        };
        PrintToFile(world, fileName, [] { return std::string("the report\r\n"); });
    }

    FakeFileSystem Files;
    std::optional<FileDialogAnswer> Answer{{"/out/x.txt", "x.txt", 1}};
    std::deque<MessageAnswer> BoxAnswers;
    std::vector<FileDialogRequest> Dialogs;
    std::vector<MessageBox> Boxes;
};

TEST(PrintFileName, IsTheStemOfTheFileWithTheNewExtension) {
    EXPECT_EQ("line7.txt", PrintFileName("line7.pl", "txt"));
    EXPECT_EQ("line7.a.txt", PrintFileName("line7.a.pl", "txt"));
    EXPECT_EQ("line7.pdf", PrintFileName("line7", "pdf"));
}

TEST(PrintFileName, LeavesOutTheFolder) {
    EXPECT_EQ("x.txt", PrintFileName("/home/me.d/x.pl", "txt"));
}

TEST(PrintFileName, OfNoFileIsNewFile) {
    EXPECT_EQ("New_File.txt", PrintFileName("", "txt"));
    EXPECT_EQ("New_File.txt", PrintFileName(".pl", "txt"));
}

TEST_F(PrintToFileTest, TheDialogAsksForATextFileNamedAfterTheProgram) {
    Print("line7.pl");
    ASSERT_EQ(1U, Dialogs.size());
    const FileDialogRequest& request = Dialogs.front();
    EXPECT_EQ(FileDialogKind::SaveAs, request.Kind);
    EXPECT_EQ("Print Settings to a File", request.Title);
    EXPECT_EQ("Text File (*.txt)|*.txt |All Files (*.*)|*.*", request.Filter);
    EXPECT_EQ(1, request.FilterIndex);
    EXPECT_EQ("txt", request.DefaultExtension);
    EXPECT_EQ("line7.txt", request.InitialFileName);
}

TEST_F(PrintToFileTest, TheChosenFileIsReplacedAndNamedInTheClosingMessage) {
    Files.AddFile("/out/x.txt", "a longer report of another day\r\n");
    Print("line7.pl");
    EXPECT_EQ("the report\r\n", Files.Content("/out/x.txt"));
    ASSERT_EQ(1U, Boxes.size());
    EXPECT_EQ("The Programmable Logic configuration was saved to the text file: /out/x.txt", Boxes[0].Text);
    EXPECT_EQ(MessageButtons::Ok, Boxes[0].Buttons);
}

TEST_F(PrintToFileTest, ACancelledDialogWritesNothingAndShowsNoMessage) {
    Answer.reset();
    Print("line7.pl");
    EXPECT_TRUE(Files.Log().empty());
    EXPECT_TRUE(Boxes.empty());
}

TEST_F(PrintToFileTest, AFullDiskIsToldAndTheOldFileStays) {
    Files.AddFile("/out/x.txt", "old");
    Files.FailAll("write", DiskFullError);
    BoxAnswers = {MessageAnswer::Cancel};
    Print("line7.pl");
    ASSERT_EQ(1U, Boxes.size()); // and no closing message
    EXPECT_EQ("Disk is full. \r\nClear some space and Retry or press Cancel.", Boxes[0].Text);
    EXPECT_EQ("Disk Error", Boxes[0].Title);
    EXPECT_EQ("old", Files.Content("/out/x.txt"));
    EXPECT_EQ(0U, Files.OpenHandles());
}

TEST_F(PrintToFileTest, ARetryWritesTheFileAfterAll) {
    std::size_t writing = 0; // the operation at which the bytes go out
    Print("line7.pl");
    for (std::size_t index = 0; index < Files.Log().size(); ++index) {
        writing = Files.Log()[index].rfind("write", 0) == 0 ? index + 1 : writing;
    }
    ASSERT_GT(writing, 0U);
    Boxes.clear();
    Files.AddFile("/out/x.txt", "old");
    Files.FailOnce(writing, DiskFullError);
    BoxAnswers = {MessageAnswer::Retry, MessageAnswer::Ok};
    Print("line7.pl");
    ASSERT_EQ(2U, Boxes.size());
    EXPECT_EQ("The Programmable Logic configuration was saved to the text file: /out/x.txt", Boxes[1].Text);
    EXPECT_EQ("the report\r\n", Files.Content("/out/x.txt"));
}

TEST_F(PrintToFileTest, AnErrorWithoutATextOfItsOwnIsToldWithItsNumber) {
    Files.FailAll("write", InternalError);
    Print("line7.pl");
    ASSERT_EQ(1U, Boxes.size());
    const std::string start = "There was an error trying to save the File.\r\nError number: 51\r\n";
    EXPECT_EQ(start, Boxes[0].Text.substr(0, start.size()));
    EXPECT_EQ(MessageIcon::Exclamation, Boxes[0].Icon);
}

TEST_F(PrintToFileTest, AReadOnlyFileIsAccessDenied) {
    Files.AddFile("/out/x.txt", "old", 0444);
    Print("line7.pl");
    ASSERT_EQ(1U, Boxes.size());
    EXPECT_EQ("Access denied.  File may be locked or in use by another program.", Boxes[0].Text);
    EXPECT_EQ("old", Files.Content("/out/x.txt"));
}

TEST_F(PrintToFileTest, AFolderThatHasGoneIsTold) {
    Answer = FileDialogAnswer{"/gone/x.txt", "x.txt", 1};
    Print("line7.pl");
    ASSERT_EQ(1U, Boxes.size());
    EXPECT_EQ("That path doesn't exist.", Boxes[0].Text);
}

TEST(ReportText, OfOneUnitIsItsLinesEachWithItsEnd) {
    LogicConfig config;
    MakeNewVdr812(config, Version100);
    const SignalCatalogue catalogue = BuildVdr812Catalogue(config.Version);
    UnitReportRequest request{1, 1, "New_File.pl", "today", "now", false, GateRowsShown(config.Version)};
    const std::string text = ReportText(config, catalogue, request, {{3, 8}});
    request.Group = 3;
    request.Unit = 8;
    EXPECT_EQ(JoinReportLines(BuildUnitReport(config, catalogue, request)), text);
}

/// The example with the most text, as a user has it open, and its bytes.
struct OpenExample {
    std::string Bytes;
    LogicConfig Config;

    OpenExample() {
        const FileSystem disk = RealFileSystem();
        const char* path = BRINDLE_EXAMPLES "/pilot_supervision.pl";
        ProgramReading reading;
        EXPECT_FALSE(ReadProgramFile(disk, path, Config, reading).Failed());
        EXPECT_FALSE(ReadWholeFile(disk, path, ProgramFileSize, Bytes).Failed());
    }
};

TEST(ReportText, OfAllUnitsIsWhatTheCompanionReports) {
    const OpenExample example;
    for (const bool numbers : {false, true}) {
        CommandRun companion;
        companion.Files.AddFile("/home/me/x.pl", example.Bytes);
        std::vector<std::string> arguments{"report", "/home/me/x.pl"};
        if (numbers) {
            arguments.emplace_back("--numbers");
        }
        ASSERT_EQ(ExitWell, companion.Run(arguments)) << companion.Err.str();
        const UnitReportRequest start{
            8, 10, "/home/me/x.pl", "5/4/2001", "10:12:33", numbers, GateRowsShown(example.Config.Version)};
        const PrintChoice all{PrintScope::EveryGroup, {}};
        EXPECT_EQ(companion.Out.str(),
                  ReportText(example.Config, BuildVdr812Catalogue(example.Config.Version), start,
                             UnitsToPrint(all, example.Config, {1, 1})));
    }
}

} // namespace
} // namespace brindle
