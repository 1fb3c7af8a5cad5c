#include "editor/group_editing.h"
#include "files/program_file.h"
#include "files/recovery_copy.h"
#include "files/vdr810_reader.h"
#include "files/vdr810_writer.h"
#include "fuzz/check.h"
#include "fuzz/editor_world.h"
#include "fuzz/home_directory_run.h"

#include <algorithm>
#include <array>

namespace brindle {
namespace {

constexpr std::array FileErrors{DiskFullError,         PermissionDeniedError, DeviceIoError,
                                PathNotFoundError,     PathAccessError,       FileNotFoundError,
                                DeviceUnavailableError};
constexpr int GreatestCommands = 60; // of one run, so that it stays short

class EditorRun {
  public:
    explicit EditorRun(std::string_view bytes) : decisions_(bytes), world_(decisions_) {}

    void Run() {
        for (int commands = 0; decisions_.Left() && commands < GreatestCommands; ++commands) {
            const int kind = decisions_.Number(0, 15);
            if (kind == 0) {
                EndRun();
            } else if (kind <= 4) {
                FileCommand();
            } else if (kind <= 9) {
                ShowCommand();
            } else {
                EditCommand();
            }
            RequireSound();
        }
        Require(!Bytes(world_->Config()).empty(), "a logic can be written");
        world_.Disk.FailNoMore();
        world_->Form_Unload();
        world_->Form_Terminate();
    }

  private:
    /// The program ends, of itself or not, and is started again, after seconds pass or none.
    void EndRun() {
        switch (decisions_.Number(0, 5)) {
        case 0:
            world_.StartAgain(RunEnd::Closed);
            break;
        case 1:
            world_.StartAgain(RunEnd::Killed);
            break;
        case 2:
            world_.StartAgain(RunEnd::PowerLost);
            break;
        case 3:
            DamageRecoveryCopy();
            break;
        case 4:
            world_->KeepRecoveryCopy();
            break;
        default:
            KillAndRecover();
        }
    }

    void DamageRecoveryCopy() {
        const std::vector<std::string> copies = world_.RecoveryCopies();
        if (copies.empty()) {
            return;
        }
        const std::string& path =
            copies.at(static_cast<std::size_t>(decisions_.Number(0, static_cast<int>(copies.size()) - 1)));
        std::string bytes = world_.Disk.Content(path).value_or("");
        if (!bytes.empty()) {
            auto at = static_cast<std::size_t>(decisions_.Byte());
            at = at * 256 + static_cast<std::size_t>(decisions_.Byte());
            bytes[at % bytes.size()] = static_cast<char>(decisions_.Byte());
            world_.Disk.AddFile(path, bytes, 0600);
        }
    }

    /// Work that stood still for seconds on a healthy disk is in a copy, from which it comes back letter for
    /// letter.
    void KillAndRecover() {
        constexpr std::size_t mostCopies = 20;
        world_.Disk.FailNoMore();
        if (world_.RecoveryCopies().size() >= mostCopies) {
            return;
        }
        int dropOut = 1;
        do { // one of two different logics is not the one that was saved or made last
            world_->EditConfig().Group(1).Timer(1).DropOut = dropOut;
            for (int seconds = 0; seconds < 3; ++seconds) {
                world_->KeepRecoveryCopy();
            }
        } while (!IsKept(RecoveryLogic(world_->Config())) && ++dropOut <= 2);
        const std::string work = RecoveryLogic(world_->Config());
        Require(IsKept(work), "unsaved work is kept");
        const bool taken = decisions_.Number(0, 1) == 0;
        world_.AnswerAtStart = taken ? MessageAnswer::Yes : MessageAnswer::Cancel;
        world_.StartAgain(decisions_.Number(0, 1) == 0 ? RunEnd::Killed : RunEnd::PowerLost);
        world_.AnswerAtStart.reset();
        Require(IsKept(work), "a copy that was left stays until it is saved or thrown away");
        Require(!taken || IsKept(RecoveryLogic(world_->Config())), "work comes back as it was");
    }

    [[nodiscard]] bool IsKept(const std::string& work) const {
        const std::vector<std::string> copies = world_.RecoveryCopies();
        return std::any_of(copies.begin(), copies.end(), [&](const std::string& path) {
            RecoveryCopy copy;
            LogicConfig config;
            return DecodeRecoveryCopy(world_.Disk.Content(path).value_or(""), copy, config) &&
                   copy.Logic == work;
        });
    }

    void FileCommand() {
        switch (decisions_.Number(0, 14)) {
        case 0:
            world_->mnuNewFileVer100_Click();
            break;
        case 1:
            world_->mnuNewFileVer230_Click();
            break;
        case 2:
            if (decisions_.Number(0, 7) == 0) { // its dialog asks for each of 32768 options numbers
                world_->mnuFileNewVdr810_Click();
            }
            break;
        case 3:
        case 4:
            world_->mnuOpenBin_Click();
            break;
        case 5:
            world_->OpenPath(AnyPath());
            break;
        case 6:
            Save([this] { world_->mnuFileSave_Click(); });
            break;
        case 7:
            Save([this] { world_->mnuSaveBin_Click(); });
            break;
        case 8:
            world_->mnuPrint_Click();
            break;
        case 9:
            world_->mnuFileRecentFiles_Click(decisions_.Number(0, RecentFileCount - 1));
            break;
        case 10:
            world_->Command1_Click();
            break;
        case 11:
            RunHomeDirectory(world_, decisions_);
            break;
        case 12:
            world_->mnuExit_Click();
            break;
        case 13:
            world_->OpenAddress("https://brindle.example/");
            break;
        default:
            BreakDisk();
        }
    }

    void BreakDisk() {
        const int error =
            FileErrors.at(static_cast<std::size_t>(decisions_.Number(0, FileErrors.size() - 1)));
        const auto operation = static_cast<std::size_t>(decisions_.Number(1, 20));
        switch (decisions_.Number(0, 2)) {
        case 0:
            world_.Disk.FailOnce(operation, error);
            break;
        case 1:
            world_.Disk.FailFrom(operation, error);
            break;
        default:
            world_.Disk.FailNoMore();
        }
    }

    std::string AnyPath() {
        const auto last = static_cast<int>(EditorWorld::Paths().size()) - 1;
        return EditorWorld::Paths().at(static_cast<std::size_t>(decisions_.Number(0, last)));
    }

    /// A save that took the logic as saved has put it on the disk.
    template<class Command>
    void Save(const Command& command) {
        const std::string path = world_->Config().FilePath;
        const std::optional<std::string> before = world_.Disk.Content(path);
        world_->EditConfig().Modified = true;
        command();
        const LogicConfig& config = world_->Config();
        if (!config.Modified) {
            Require(world_.Disk.Content(config.FilePath) == Bytes(config),
                    "what counts as saved is on the disk");
        } else if (path == config.FilePath && world_.Disk.Content(path) != before) {
            Require(world_.Disk.Content(path) == Bytes(config),
                    "what is on the disk is old or new, and whole");
        }
    }

    static std::string Bytes(const LogicConfig& config) {
        if (config.RelayModel == RelayKind::Vdr810) {
            return EncodeVdr810(config);
        }
        ProgramImage image{};
        Require(!EncodeProgram(config, image).Failed(), "the logic of the editor can be written");
        return {image.begin(), image.end()};
    }

    void EditCommand() {
        switch (decisions_.Number(0, 9)) {
        case 0:
            world_->txtPlo_GotFocus(ShownInput());
            break;
        case 1:
            world_->txtPlo_DblClick(ShownInput());
            break;
        case 2:
        case 3:
            PressSignal();
            break;
        case 4:
            world_->txtTimerPU_Change(decisions_.Text(12));
            break;
        case 5:
            world_->txtTimerDO_Change(decisions_.Text(12));
            break;
        case 6:
            TickOutput();
            break;
        case 7:
            world_->cmdClearGroup_Click(decisions_.Number(0, AllGroups));
            break;
        case 8: {
            const int from = decisions_.Number(0, AllGroups);
            world_->cmdCopyGroup_Click(from, decisions_.Number(0, AllGroups));
            break;
        }
        default:
            world_->mnuClearDisplayedUnit_Click();
        }
    }

    int ShownInput() {
        const UnitView view = world_->View();
        int input = decisions_.Number(1, InputsPerUnit);
        while (!view.Inputs.at(static_cast<std::size_t>(input - 1)).Visible) {
            input = input % InputsPerUnit + 1;
        }
        return input;
    }

    void PressSignal() {
        const int categories = world_->Choosers().Count();
        if (categories == 0) {
            return;
        }
        const int category = decisions_.Number(0, categories - 1);
        const auto buttons = static_cast<int>(BuildChooserView(world_->Catalogue(), category).Buttons.size());
        if (buttons > 0) {
            world_->cmdSelectCategory_Click(category, decisions_.Number(0, std::min(buttons, 256) - 1));
        }
    }

    void TickOutput() {
        const LogicConfig& config = world_->Config();
        const int output = decisions_.Number(config.FirstOutput, config.LastOutput);
        world_->cbxOutputMap_Click(output, decisions_.Number(0, 1) == 1);
    }

    void ShowCommand() {
        switch (decisions_.Number(0, 8)) {
        case 0:
            world_->mnuGroup_Click(decisions_.Number(1, ShownGroups(world_->Config())));
            break;
        case 1:
        case 2:
            ShowUnit();
            break;
        case 3:
            world_->pctSetReset_Click();
            break;
        case 4:
            world_->mnuShowNumbers_Click();
            break;
        case 5:
            if (world_->Choosers().Count() > 0) {
                world_->mnuLogicCategoriesCategory_Click(
                    decisions_.Number(0, std::min(world_->Choosers().Count(), 256) - 1));
            }
            break;
        case 6:
            world_->mnuLogicCategoriesLocateAll_Click();
            break;
        case 7:
            world_->txtTimer_KeyPress(static_cast<char32_t>(decisions_.Byte()));
            break;
        default:
            world_->Form_Activate();
        }
    }

    void ShowUnit() {
        const int unit = decisions_.Number(1, UnitsPerGroup);
        if (HasUnit(world_->Config(), unit)) {
            world_->mnuTimerLatch_Click(unit);
        }
    }

    void RequireSound() {
        const LogicConfig& config = world_->Config();
        const ViewSelection& shown = world_->Shown();
        Require(shown.Group >= 1 && shown.Group <= ShownGroups(config), "a group that there is is shown");
        Require(shown.Unit >= 1 && shown.Unit <= UnitsPerGroup, "a unit is shown");
        const UnitView view = world_->View();
        Require(view.Inputs.at(static_cast<std::size_t>(shown.Input - 1)).Visible,
                "a shown input is selected");
        Require(!world_->Title().empty(), "a window has a title");
        Require(world_.Disk.OpenHandles() == 0, "every file was closed");
    }

    Decisions decisions_;
    EditorWorld world_;
};

} // namespace
} // namespace brindle

/// Bytes that decide what a user does, how boxes are answered and which file operations fail.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    brindle::EditorRun({reinterpret_cast<const char*>(data), size}).Run();
    return 0;
}
