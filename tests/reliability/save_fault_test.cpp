#include "files/in_place.h"
#include "files/vdr810_writer.h"
#include "support/editor_harness.h"
#include "support/fake_file_system.h"
#include "support/fault_sweep.h"
#include "support/file_prompts.h"
#include "support/program_bytes.h"
#include "support/vdr810_scheme.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>

/// Save and Save As, from the command down to the disk, with a fault at every operation: the old file or the
/// new one is there whole, the logic is as it was, `Modified` tells the truth and the user is told.
namespace brindle {
namespace {

constexpr const char* SettingsPath = "/opt/brindle/Benchkit.ini";
constexpr const char* SettingsOfOthers = "[Kept]\r\nKey=of another version\r\n";
constexpr const char* RecentFilesWarning = "There was an error saving the window position information for "
                                           "/opt/brindle/Benchkit.ini, vbExclamation, vbOKOnly";

/// How a logic is saved: the file that was opened, the command, and the file that it writes.
struct SaveCase {
    const char* Opened;
    void (*Command)(EditorHarness& harness);
    const char* Target;
};

void SaveByMenu(EditorHarness& harness) {
    harness->mnuFileSave_Click();
}

const SaveCase SavesProgram{"/data/x.pl", SaveByMenu, "/data/x.pl"};
const SaveCase SavesVdr810{"/data/x.c10", SaveByMenu, "/data/x.c10"};
const SaveCase SavesAs{"/data/x.pl",
                       [](EditorHarness& harness) {
                           harness.ChooseFile("/data", "y.pl");
                           harness->mnuSaveBin_Click();
                       },
                       "/data/y.pl"};

/// An editor over a disk that fails on demand, its settings included, with a logic that was changed since it
/// was opened.
struct ChangedLogic {
    explicit ChangedLogic(const char* opened) {
        Disk.AddFolder("/data");
        Disk.AddFolder("/opt");
        Disk.AddFolder("/opt/brindle");
        // Made once: the sweeps start thousands of editors.
        static const std::string optionFile = SchemeOptionFile(2.3, 12);
        static const std::string logicFile = SchemeLogicFile(2.3, 12);
        static std::string settings = SettingsOfOthers; // those of a program that has run before
        Disk.AddFile(SettingsPath, settings);
        Disk.AddFile("/opt/brindle/PLC00230_OPT00012.810", optionFile);
        Disk.AddFile("/data/x.pl", NewProgramBytes(Version230));
        Disk.AddFile("/data/y.pl", NewProgramBytes(Version100));
        Disk.AddFile("/data/x.c10", logicFile);
        Harness.Surroundings.Files = Disk.Operations();
        Harness.Surroundings.Folders.Files = [](const std::string& /*folder*/) {
            return std::vector<std::string>{"PLC00230_OPT00012.810"};
        };
        Harness.ProfileOnDisk = true;
        Harness.Start();
        settings = *Disk.Content(SettingsPath);
        Harness->OpenPath(opened);
        Harness->EditConfig().Group(1).Timer(2).PickUp = 4321;
        Harness->EditConfig().Modified = true;
        EXPECT_TRUE(Harness.Boxes.empty());
        LogicBefore = Harness->Config();
        const bool vdr812 = LogicBefore.RelayModel == RelayKind::Vdr812;
        NewBytes = vdr812 ? ProgramBytes(LogicBefore) : EncodeVdr810(LogicBefore);
    }

    /// A file beside or a copy is left.
    [[nodiscard]] bool HasFileBeside() const {
        const std::vector<std::string> names = Disk.Names();
        return std::any_of(names.begin(), names.end(), [](const std::string& name) {
            return name.find(".brindle-save-") != std::string::npos ||
                   name.find("BeforeSave-") != std::string::npos;
        });
    }

    FakeFileSystem Disk;
    EditorHarness Harness;
    LogicConfig LogicBefore;
    std::string NewBytes;
};

/// The operations of a save before it goes on to note the file in the settings.
struct SaveOperations {
    std::size_t Looking = 0; ///< whether another program has changed the file, which a fault leaves unknown
    std::size_t Saving = 0;  ///< these, and those that write
};

SaveOperations OperationsOfSaving(const SaveCase& save) {
    ChangedLogic editor(save.Opened);
    const std::size_t begin = editor.Disk.Log().size();
    save.Command(editor.Harness);
    EXPECT_EQ(editor.NewBytes, editor.Disk.Content(save.Target));
    const std::vector<std::string>& log = editor.Disk.Log();
    const auto first = std::find_if(
        log.begin() + static_cast<std::ptrdiff_t>(begin), log.end(),
        [](const std::string& record) { return record.find(SettingsPath) != std::string::npos; });
    EXPECT_NE(log.end(), first);
    const auto follow = std::find_if(log.begin() + static_cast<std::ptrdiff_t>(begin), first,
                                     [](const std::string& record) { return record.starts_with("follow "); });
    EXPECT_NE(first, follow);
    // The file's status is asked for before its links are followed; once it is written, it is asked for
    // again.
    return {static_cast<std::size_t>(follow - log.begin()) - begin - 1,
            static_cast<std::size_t>(first - log.begin()) - begin - 1};
}

/// One save under one fault; the power may fail right after.
class FaultyRun {
  public:
    FaultyRun(const SaveCase& save, const SaveOperations& operations, const Fault& fault,
              MessageAnswer answer)
        : save_(save), operations_(operations), fault_(fault), answer_(answer), editor_(save.Opened),
          hitsLogic_(fault.Operation <= operations.Saving &&
                     (fault.ForEver || fault.Operation > operations.Looking)),
          hitsStamp_(!fault.ForEver && fault.Operation == operations.Saving + 1),
          old_(*editor_.Disk.Content(save.Target)) {}

    /// False when the run was over before the operation that was to fail.
    bool Met() {
        const std::size_t begin = editor_.Disk.Log().size();
        editor_.Harness.AnswerBox(answer_);
        editor_.Harness.AnswerBox(MessageAnswer::Cancel); // to a retry that fails again
        fault_.LayOn(editor_.Disk);
        save_.Command(editor_.Harness);
        editor_.Disk.FailNoMore();
        if (editor_.Disk.Log().size() < begin + fault_.Operation) {
            return false;
        }
        // What fails for ever from the looking on is told of the first operation that writes.
        const std::size_t made = editor_.Disk.Log().size() - begin;
        const std::size_t told = std::min(std::max(fault_.Operation, operations_.Looking + 1), made);
        const std::string& record = editor_.Disk.Log()[begin + told - 1];
        error_ = ErrorOfSave(record, fault_.Error);
        // A folder that takes no new file leaves the way of writing into the old one.
        wroteInPlace_ = !fault_.ForEver && error_ == PathAccessError &&
                        (record.starts_with("create ") || record.starts_with("rename "));
        CheckBoxes();
        CheckLogic();
        CheckDisk();
        return true;
    }

    void LosePower(UnflushedNames names) {
        editor_.Disk.Crash(names);
        CheckDisk();
    }

    void SaveAgain() {
        editor_.Harness.Boxes.clear();
        editor_.Harness->mnuFileSave_Click();
        EXPECT_TRUE(editor_.Harness.Boxes.empty());
        EXPECT_TRUE(editor_.NewBytes == editor_.Disk.Content(save_.Target));
        EXPECT_FALSE(editor_.Harness->Config().Modified);
        EXPECT_FALSE(editor_.HasFileBeside());
    }

  private:
    [[nodiscard]] bool Retries() const {
        return answer_ == MessageAnswer::Retry &&
               SaveFailurePrompt(error_).Buttons == MessageButtons::RetryCancel;
    }

    [[nodiscard]] bool Saved() const {
        return !hitsLogic_ || wroteInPlace_ || (Retries() && !fault_.ForEver);
    }

    void CheckBoxes() const {
        const std::vector<MessageBox>& boxes = editor_.Harness.Boxes;
        if (!hitsLogic_ && (hitsStamp_ || fault_.Operation <= operations_.Looking)) {
            EXPECT_TRUE(boxes.empty());
            return;
        }
        if (!hitsLogic_) {
            ASSERT_EQ(1U, boxes.size());
            EXPECT_EQ(RecentFilesWarning, boxes[0].Text);
            return;
        }
        if (wroteInPlace_) {
            EXPECT_TRUE(boxes.empty());
            return;
        }
        ASSERT_EQ(Retries() && fault_.ForEver ? 2U : 1U, boxes.size());
        for (const MessageBox& box : boxes) {
            ExpectSaveFailure(box, error_);
        }
    }

    void CheckLogic() {
        const LogicConfig& logic = editor_.Harness->Config();
        EXPECT_EQ(!Saved(), logic.Modified);
        EXPECT_TRUE(editor_.LogicBefore.Groups == logic.Groups);
        EXPECT_TRUE(editor_.LogicBefore.Lists == logic.Lists);
        EXPECT_EQ(save_.Target, logic.FilePath);
        EXPECT_EQ(0U, editor_.Disk.OpenHandles());
    }

    void CheckDisk() const {
        const std::string content = editor_.Disk.Content(save_.Target).value_or("no file");
        EXPECT_TRUE(content == editor_.NewBytes || (!Saved() && content == old_)) << content.size();
        const std::string settings = editor_.Disk.Content(SettingsPath).value_or("no file");
        EXPECT_EQ(0U, settings.find(SettingsOfOthers)) << settings;
        EXPECT_TRUE(settings.ends_with("\r\n"));
    }

    const SaveCase& save_;
    SaveOperations operations_;
    Fault fault_;
    MessageAnswer answer_;
    ChangedLogic editor_;
    bool hitsLogic_; ///< the writing of the file fails
    bool hitsStamp_; ///< the question of its state once it is written
    std::string old_;
    int error_ = NoFileError;   ///< what the user is told of
    bool wroteInPlace_ = false; ///< the fault left a way in which the save went well
};

void SweepSave(const SaveCase& save) {
    const SaveOperations operations = OperationsOfSaving(save);
    const std::size_t saving = operations.Saving;
    std::size_t met = 0;
    const auto sweepAnswer = [&](const std::vector<int>& errors, MessageAnswer answer) {
        met += SweepFaults(errors, [&](const Fault& fault) {
            // What comes after the logic is on the disk asks the user nothing: the next sweep has it.
            if (fault.Operation > saving) {
                return false;
            }
            SCOPED_TRACE(testing::Message() << fault);
            FaultyRun run(save, operations, fault, answer);
            EXPECT_TRUE(run.Met());
            run.SaveAgain();
            return true;
        });
    };
    sweepAnswer(AskingFaults, MessageAnswer::Retry);
    sweepAnswer(AskingFaults, MessageAnswer::Ignore);
    sweepAnswer(WritingFaults, MessageAnswer::Cancel);
    const std::size_t inSaving = met;
    const auto sweepPowerFailure = [&](const std::vector<int>& errors, UnflushedNames names) {
        met += SweepFaults(errors, [&](const Fault& fault) {
            SCOPED_TRACE(testing::Message() << fault << ", then no power");
            FaultyRun run(save, operations, fault, MessageAnswer::Cancel);
            const bool faultMet = run.Met();
            if (faultMet) {
                run.LosePower(names);
                run.SaveAgain();
            }
            return faultMet;
        });
    };
    sweepPowerFailure({DiskFullError, PathNotFoundError}, UnflushedNames::Forgotten);
    sweepPowerFailure({DeviceIoError, PermissionDeniedError}, UnflushedNames::Kept);
    std::cout << "faults injected: " << met << ", of them " << inSaving << " over the " << saving
              << " operations of saving\n";
    EXPECT_GT(met - inSaving, 8 * saving) << "the settings have been reached";
}

TEST(SaveCommandUnderFaults, AProgramFileIsOldOrNewAndTheUserKnowsWhich) {
    SweepSave(SavesProgram);
}

TEST(SaveCommandUnderFaults, ALogicFileIsOldOrNewAndTheUserKnowsWhich) {
    SweepSave(SavesVdr810);
}

TEST(SaveCommandUnderFaults, SaveAsKeepsTheFileOfItsNewNameUntilItIsReplacedAndTheOpenedOneForGood) {
    SweepSave(SavesAs);
}

/// A save of a file with a second name, which is therefore written in place, under one fault.
bool SaveInPlaceUnder(const Fault& fault, bool powerFails) {
    ChangedLogic editor("/data/x.pl");
    editor.Disk.AddName("/data/second.pl", "/data/x.pl");
    const std::string old = *editor.Disk.Content("/data/x.pl");
    const std::size_t begin = editor.Disk.Log().size();
    editor.Harness.AnswerBox(MessageAnswer::Cancel);
    fault.LayOn(editor.Disk);
    editor.Harness->mnuFileSave_Click();
    editor.Disk.FailNoMore();
    if (editor.Disk.Log().size() < begin + fault.Operation) {
        return false;
    }
    const bool saved = !editor.Harness->Config().Modified;
    EXPECT_TRUE(saved || !editor.Harness.Boxes.empty()) << "a failure is told";
    if (powerFails) {
        editor.Disk.Crash(UnflushedNames::Kept);
    }
    const FileSystem files = editor.Disk.Operations();
    const std::string content = editor.Disk.Content("/data/x.pl").value_or("no file");
    const std::vector<std::string> copies = CopiesLeft(files, EditorHarness::ProgramFolder);
    const bool whole = content == editor.NewBytes || (!saved && content == old);
    EXPECT_TRUE(whole || (copies.size() == 1 && editor.Disk.Content(copies[0]) == old)) << content.size();
    editor.Harness->EditConfig().Modified = true;
    editor.Harness->mnuFileSave_Click();
    EXPECT_TRUE(editor.NewBytes == editor.Disk.Content("/data/second.pl"));
    EXPECT_FALSE(editor.Harness->Config().Modified);
    return true;
}

TEST(SaveCommandUnderFaults, AFileThatIsWrittenInPlaceIsOldOrNewOrItsCopyHoldsTheOldOne) {
    std::size_t met = 0;
    for (const bool powerFails : {false, true}) {
        met += SweepFaults({DiskFullError, PathNotFoundError, DeviceIoError}, [&](const Fault& fault) {
            SCOPED_TRACE(testing::Message() << fault << (powerFails ? ", then no power" : ""));
            return SaveInPlaceUnder(fault, powerFails);
        });
    }
    std::cout << "faults injected: " << met << "\n";
    EXPECT_GT(met, 200U);
}

TEST(SaveCommandUnderFaults, AFileThatAppearsInTheWayIsOverwrittenOnlyWhenTheUserSaysSo) {
    for (const MessageAnswer answer : {MessageAnswer::Yes, MessageAnswer::No}) {
        ChangedLogic editor("/data/x.pl");
        const std::string old = *editor.Disk.Content("/data/x.pl");
        const std::size_t begin = editor.Disk.Log().size();
        const std::size_t rename = OperationsOfSaving(SavesProgram).Saving - 2;
        editor.Harness.AnswerBox(answer);
        editor.Disk.FailOnce(rename, FileAlreadyExistsError);
        editor.Harness->mnuFileSave_Click();
        ASSERT_EQ(0U, editor.Disk.Log()[begin + rename - 1].find("rename"));
        ASSERT_EQ(1U, editor.Harness.Boxes.size());
        EXPECT_EQ("File already exists.  Overwrite the file?", editor.Harness.Boxes[0].Text);
        EXPECT_EQ(MessageButtons::YesNo, editor.Harness.Boxes[0].Buttons);
        const bool saved = answer == MessageAnswer::Yes;
        EXPECT_EQ(saved ? editor.NewBytes : old, editor.Disk.Content("/data/x.pl"));
        EXPECT_EQ(!saved, editor.Harness->Config().Modified);
    }
}

} // namespace
} // namespace brindle
