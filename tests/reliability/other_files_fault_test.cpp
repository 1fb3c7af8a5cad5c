#include "files/signal_constants.h"
#include "report/print_to_file.h"
#include "settings/home_directory.h"
#include "settings/own_profile.h"
#include "settings/profile_text.h"
#include "settings/setting_keys.h"
#include "settings/settings_file.h"
#include "support/editor_harness.h"
#include "support/fake_file_system.h"
#include "support/fault_sweep.h"
#include "support/file_prompts.h"
#include "support/vdr810_scheme.h"

#include <gtest/gtest.h>

#include <iostream>

/// The same for the files that are no logic: a printed file, the constants, the settings and option files.
namespace brindle {
namespace {

constexpr const char* OldText = "the old file\r\n";
constexpr const char* HomeSettings = "[Brindle]\r\nHomeDir=/old\r\nScreenMode=2\r\n[Kept]\r\nKey=1\r\n";
constexpr const char* MadeOptionFile = "/opt/brindle/PLC00230_OPT00012.810";

/// A folder /data with an old file in it, and boxes that are answered with one answer throughout.
struct FaultyFolder {
    explicit FaultyFolder(MessageAnswer answer = MessageAnswer::Cancel) {
        Disk.AddFolder("/data");
        Disk.AddFile("/data/print.txt", OldText);
        Disk.AddFile("/data/Const.tmp", OldText);
        Disk.AddFile("/data/Benchkit.ini", HomeSettings);
        Show = [this, answer](const MessageBox& box) {
            Boxes.push_back(box);
            const bool again = answer == MessageAnswer::Retry && Boxes.size() < 2;
            return box.Buttons == MessageButtons::Ok         ? MessageAnswer::Ok
                   : again || answer != MessageAnswer::Retry ? answer
                                                             : MessageAnswer::Cancel;
        };
    }

    FakeFileSystem Disk;
    std::vector<MessageBox> Boxes;
    ShowMessageBox Show;
};

/// A file that a command writes in one go, and what tells the user of the success.
struct OneFileCommand {
    const char* Path;
    std::string NewText;
    std::function<void(FaultyFolder& folder)> Run;
    std::string SuccessText; ///< of a box; empty for none
};

/// Whether the fault was met.
bool RunUnderFault(const OneFileCommand& command, const Fault& fault, MessageAnswer answer) {
    SCOPED_TRACE(testing::Message() << fault);
    FaultyFolder folder(answer);
    fault.LayOn(folder.Disk);
    command.Run(folder);
    folder.Disk.FailNoMore();
    EXPECT_EQ(0U, folder.Disk.OpenHandles());
    const std::string content = folder.Disk.Content(command.Path).value_or("no file");
    if (folder.Disk.Log().size() < fault.Operation) {
        EXPECT_EQ(command.NewText, content);
        return false;
    }
    const int error = ErrorOfSave(folder.Disk.Log()[fault.Operation - 1], fault.Error);
    const bool retries =
        answer == MessageAnswer::Retry && SaveFailurePrompt(error).Buttons == MessageButtons::RetryCancel;
    const bool saved = retries && !fault.ForEver;
    EXPECT_TRUE(content == command.NewText || (!saved && content == OldText));
    const std::size_t failures = retries && fault.ForEver ? 2 : 1;
    const std::size_t successes = saved && !command.SuccessText.empty() ? 1 : 0;
    EXPECT_EQ(failures + successes, folder.Boxes.size());
    for (std::size_t i = 0; i < failures && i < folder.Boxes.size(); ++i) {
        ExpectSaveFailure(folder.Boxes[i], error);
    }
    if (successes == 1) {
        EXPECT_EQ(command.SuccessText, folder.Boxes.back().Text);
    }
    command.Run(folder);
    EXPECT_EQ(command.NewText, folder.Disk.Content(command.Path));
    return true;
}

void SweepOneFile(const OneFileCommand& command) {
    std::size_t met = 0;
    const auto sweepAnswer = [&](const std::vector<int>& errors, MessageAnswer answer) {
        met += SweepFaults(errors, [&](const Fault& fault) { return RunUnderFault(command, fault, answer); });
    };
    sweepAnswer(AskingFaults, MessageAnswer::Retry);
    sweepAnswer(AskingFaults, MessageAnswer::Ignore);
    sweepAnswer(WritingFaults, MessageAnswer::Cancel);
    std::cout << "faults injected: " << met << "\n";
    EXPECT_GT(met, 2 * (2 * AskingFaults.size() + WritingFaults.size()));
}

TEST(OtherFilesUnderFaults, APrintedFileIsOldOrNewAndSuccessIsToldOnlyOfTheNewOne) {
    const auto print = [](FaultyFolder& folder) {
        const PrintFileWorld world{folder.Disk.Operations(),
                                   [](const FileDialogRequest&) {
                                       return FileDialogAnswer{"/data/print.txt", "print.txt", 1};
                                   },
                                   folder.Show};
        PrintToFile(world, "x.pl", [] { return std::string("the new report\r\n"); });
    };
    SweepOneFile({"/data/print.txt", "the new report\r\n", print,
                  "The Programmable Logic configuration was saved to the text file: /data/print.txt"});
}

TEST(OtherFilesUnderFaults, TheConstantsAreOldOrNewAndTheLogicKeepsItsChanges) {
    const auto write = [](FaultyFolder& folder) {
        EditorHarness harness;
        harness.Surroundings.Files = folder.Disk.Operations();
        harness.Surroundings.ShowMessageBox = folder.Show;
        harness.Surroundings.Folders.CurrentFolder = [] { return std::string("/data"); };
        // The start asks the disk nothing, so that the first operation is that of the command.
        const std::size_t before = folder.Disk.Log().size();
        harness.Start();
        ASSERT_EQ(before, folder.Disk.Log().size());
        harness->EditConfig().Modified = true;
        const LogicConfig logic = harness->Config();
        harness->Command1_Click();
        EXPECT_TRUE(harness->Config().Modified);
        EXPECT_EQ(logic.Groups, harness->Config().Groups);
    };
    SweepOneFile({"/data/Const.tmp", SignalConstantsText(), write, ""});
}

TEST(OtherFilesUnderFaults, TheSettingsAreOldOrNewAndTheUserIsToldOnce) {
    const std::string newText = SetProfileValue(HomeSettings, SectionBrindle, KeyHomeDir, "/new");
    std::size_t met = 0;
    for (const UnflushedNames names : {UnflushedNames::Forgotten, UnflushedNames::Kept}) {
        met += SweepFaults(WritingFaults, [&](const Fault& fault) {
            SCOPED_TRACE(testing::Message() << fault);
            FaultyFolder folder;
            const FileSystem files = folder.Disk.Operations();
            SettingsFile settings("/data", OwnProfile(files), files, folder.Show);
            fault.LayOn(folder.Disk);
            const bool faultMet = !StoreHomeDirectory(settings, "/new");
            EXPECT_EQ(faultMet, folder.Disk.Log().size() >= fault.Operation);
            if (faultMet) {
                StoreHomeDirectory(settings, "/new"); // fails anew on a disk that fails for ever
            }
            folder.Disk.FailNoMore();
            EXPECT_EQ(faultMet ? 1U : 0U, folder.Boxes.size());
            if (faultMet) {
                EXPECT_EQ("There was an error saving the window position information for Brindle to the "
                          "file /data/Benchkit.ini.",
                          folder.Boxes.at(0).Text);
                EXPECT_EQ("Warning", folder.Boxes[0].Title);
            }
            folder.Disk.Crash(names);
            const std::string content = folder.Disk.Content("/data/Benchkit.ini").value_or("no file");
            EXPECT_TRUE(content == newText || (faultMet && content == HomeSettings)) << content;
            EXPECT_TRUE(StoreHomeDirectory(settings, "/new"));
            EXPECT_EQ(newText, folder.Disk.Content("/data/Benchkit.ini"));
            return faultMet;
        });
    }
    std::cout << "faults injected: " << met << "\n";
    EXPECT_GT(met, 4 * WritingFaults.size());
}

/// A logic file that brings names of its own, beside a program without an option file for it.
struct OptionFileToMake {
    OptionFileToMake() {
        Disk.AddFolder("/data");
        Disk.AddFolder("/opt");
        Disk.AddFolder("/opt/brindle");
        Disk.AddFile("/data/x.c10", Bytes);
        Harness.Surroundings.Files = Disk.Operations();
        Harness.Surroundings.Folders.Files = [this](const std::string& /*folder*/) {
            return Disk.Content(MadeOptionFile) ? std::vector<std::string>{"PLC00230_OPT00012.810"}
                                                : std::vector<std::string>{};
        };
        Harness.Start();
    }

    const std::string Bytes = SchemeLogicFile(2.3, 12) + "<LABEL INFO>\r\n3,20,OWN\r\n3,255,FALSE\r\n";
    FakeFileSystem Disk;
    EditorHarness Harness;
};

/// Whether the fault was met. `made` is the option file as it is made without one.
bool MakeOptionFileUnderFault(const std::string& made, const Fault& fault) {
    SCOPED_TRACE(testing::Message() << fault);
    OptionFileToMake desk;
    const std::size_t begin = desk.Disk.Log().size();
    if (SaveFailurePrompt(fault.Error).Buttons == MessageButtons::RetryCancel) {
        desk.Harness.AnswerBox(MessageAnswer::Cancel);
    }
    fault.LayOn(desk.Disk);
    desk.Harness->OpenPath("/data/x.c10");
    desk.Disk.FailNoMore();
    const LogicConfig& logic = desk.Harness->Config();
    EXPECT_TRUE(desk.Bytes == desk.Disk.Content("/data/x.c10"));
    EXPECT_TRUE(made == desk.Disk.Content(MadeOptionFile).value_or(made));
    EXPECT_FALSE(logic.Modified);
    EXPECT_EQ(0U, desk.Disk.OpenHandles());
    if (desk.Disk.Log().size() < begin + fault.Operation) {
        return false;
    }
    EXPECT_EQ(1U, desk.Harness.Boxes.size());
    if (logic.FilePath != "/data/x.c10") {
        EXPECT_EQ(RelayKind::Vdr812, logic.RelayModel) << "a file that was not read changes nothing";
        return true;
    }
    ExpectSaveFailure(desk.Harness.Boxes.at(0),
                      ErrorOfSave(desk.Disk.Log()[begin + fault.Operation - 1], fault.Error));
    EXPECT_EQ("OWN", desk.Harness->View().Inputs[4].Text) << "the names are kept while they are shown";
    desk.Harness.AnswerBox(MessageAnswer::Ok); // the option file is there, though its making was not assured
    desk.Harness->mnuFileSave_Click();
    EXPECT_TRUE(made == desk.Disk.Content(MadeOptionFile)) << "names are written before a save drops them";
    EXPECT_TRUE(SchemeLogicFile(2.3, 12) == desk.Disk.Content("/data/x.c10"));
    return true;
}

TEST(OtherFilesUnderFaults, AnOptionFileIsMadeWholeOrNotAtAllAndItsNamesAreNeverLost) {
    OptionFileToMake clean;
    clean.Harness->OpenPath("/data/x.c10");
    const std::string made = clean.Disk.Content(MadeOptionFile).value_or("");
    ASSERT_NE("", made);
    const std::size_t met =
        SweepFaults(WritingFaults, [&](const Fault& fault) { return MakeOptionFileUnderFault(made, fault); });
    std::cout << "faults injected: " << met << "\n";
    EXPECT_GT(met, 2 * WritingFaults.size());
}

} // namespace
} // namespace brindle
