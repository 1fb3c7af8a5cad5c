#pragma once

#include "editor/category_choosers.h"
#include "editor/connect_rule.h"
#include "editor/logic_file.h"
#include "editor/relay_output_map.h"
#include "editor/save_prompt.h"
#include "editor/timer_entry.h"
#include "editor/unit_view.h"
#include "files/option_file.h"
#include "files/plc_folder.h"
#include "files/program_file.h"
#include "files/vdr810_reader.h"
#include "model/logic_config.h"
#include "model/signal_catalogue.h"
#include "platform/browser.h"
#include "platform/clock.h"
#include "platform/file_dialog.h"
#include "platform/file_lock.h"
#include "platform/file_system.h"
#include "platform/folders.h"
#include "platform/message_box.h"
#include "report/logic_report.h"
#include "report/print_job.h"
#include "settings/file_command.h"
#include "settings/profile.h"
#include "settings/recent_files.h"
#include "settings/recovery_keeper.h"
#include "settings/settings_file.h"
#include "settings/vdr810_options.h"
#include "settings/web_links.h"
#include "settings/window_placement.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace brindle {

/// What showing a unit may disturb.
enum class UnitRedraw {
    Selected, ///< a unit was selected: every control takes its new content
    Refreshed ///< the same unit is drawn anew: what the user is typing stays
};

/// What the editor asks of the main window. The window copies what the editor's views say onto its controls.
struct EditorWindow {
    std::function<void(bool busy)> ShowHourglass;
    std::function<void()> ShowTitle;
    std::function<void()> ShowIdentity; ///< what is told of the file of a VDR810 logic
    std::function<void()> ShowStatus;   ///< the line at the foot follows StatusNotices()
    /// Lets the user choose the option file of a new VDR810 logic; false when the choice was cancelled.
    std::function<bool(Vdr810Options& options)> ChooseVdr810Options;
    std::function<void()> ShowCategories;  ///< the categories menu and the choosers follow the catalogue
    std::function<void()> ShowRecentFiles; ///< the File menu follows the files used last
    std::function<void()> ShowOutputMap;   ///< the output boxes follow the range of outputs
    std::function<void(UnitRedraw redraw)> ShowUnit;
    /// Opens a chooser, made when first asked for, at its home; it takes the keyboard.
    std::function<void(int category)> ShowChooser;
    std::function<void(int category)> HideChooser;
    std::function<void(int category)> MoveChooserHome;
    std::function<void(int category)> RaiseChooser;
    std::function<void()> ShowOpenChoosers;    ///< the menu's check marks follow the choosers that are open
    std::function<void(int input)> FocusInput; ///< the keyboard goes to an input of the main window
    PlacedForm Placement;                      ///< the window's place on the screen
    std::function<void()> Unload;
};

/// What the editor knows and uses of the world around it, handed in once at start.
struct EditorSurroundings {
    std::string ProgramFolder;
    int ProgramMajor = 0;
    int ProgramMinor = 0;
    int ProgramRevision = 0;
    std::string CommandLine; ///< absolute path of the file to open at start; empty for none
    FileSystem Files;
    FileLocks Locks; ///< none: no recovery copies are kept, and programs change the settings at once
    ProfileFunctions Profile;
    FolderFunctions Folders;
    brindle::ShowMessageBox ShowMessageBox;
    brindle::RunFileDialog RunFileDialog;
    BrowserFunctions Browser;
    std::function<DateAndTime()> Now;
};

/// A file that a command is to open.
struct ChosenFile {
    std::string Path;
    std::string Title;
    RelayKind Model = RelayKind::Vdr812;
};

/// The one editor of a running program: the logic, what of it is shown, and the commands of the main window.
/// Runs without a window in sight; commands that would discard changes ask first, and a command that is
/// cancelled or fails leaves logic, file and title as they were. There are two exceptions: Save As keeps the
/// new name when its writing fails, and a VDR810 file with a line that is refused leaves what was read of it,
/// as a new file.
class Editor {
  public:
    explicit Editor(EditorSurroundings surroundings);

    /// Gives the editor its window; before Form_Load.
    void AttachWindow(EditorWindow window) { window_ = std::move(window); }

    // Start, activation and end of the main window.

    /// Before the window is loaded: stored settings of another program version are dropped.
    void Form_Initialize();
    /// Makes a new 2.30 logic, finds the home directory, places the window, shows group 1, timer 1, offers
    /// unsaved work that a crash left, and opens the file of the command line.
    void Form_Load();
    /// The window became active: the shown unit is drawn anew; the selected input stays. What another program
    /// did to the file meanwhile is told at the foot of the window.
    void Form_Activate();
    /// The window is closing: its place is stored.
    void Form_Unload();
    /// The window has closed: offers to save what Exit did not ask about.
    void Form_Terminate();

    /// To be called about once a second: keeps a copy of unsaved work, which a crash then does not lose.
    void KeepRecoveryCopy() { recovery_.Tick(WorkNow()); }

    /// The program may be ended from outside at any moment, and nobody can be asked: a copy of unsaved work
    /// is made at once, for the next start.
    void KeepRecoveryCopyAtOnce() { recovery_.KeepAtOnce(WorkNow()); }

    // File commands.

    void mnuNewFileVer100_Click() { NewVdr812(Version100); }

    void mnuNewFileVer230_Click() { NewVdr812(Version230); }

    /// A new VDR810 logic of the option file that the user chooses.
    void mnuFileNewVdr810_Click();

    void mnuOpenBin_Click();
    /// Open without its dialog: a file that the command line or the recent list names.
    void OpenNamed(const ChosenFile& file);

    /// Opens the file at an absolute path; its model follows its extension.
    void OpenPath(const std::string& path) { OpenNamed(FileOfPath(path)); }

    /// Save. Asks before it replaces a file that another program has changed, or that is no file of the
    /// logic's relay; a logic that is a part of a refused file goes to Save As.
    void mnuFileSave_Click();
    /// Save As; before printing only the dialog's title differs.
    void mnuSaveBin_Click(bool beforePrinting = false);
    void mnuExit_Click();
    /// Opens entry `index` (0 to 9) of Recent() anew; nothing for an unused one.
    void mnuFileRecentFiles_Click(int index);
    /// Takes `folder` as home directory, in which dialogs open and new files are named, and stores it.
    void ChooseHomeDirectory(const std::string& folder);
    /// Writes the signal constants into the current folder.
    void Command1_Click();

    // Printing. The print dialog is the window's; it steps through units by mnuGroup_Click and
    // mnuTimerLatch_Click.

    /// Before the print dialog opens: a logic with changes is offered to Save As.
    void mnuPrint_Click();

    /// Units are about to be stepped through for printing: unselected labels are white from the next unit
    /// shown, and showing units marks nothing modified.
    void BeginPrinting();
    /// The stepping is over: the unit that was shown before it is shown again.
    void EndPrinting();

    /// What the reports of this logic have in common.
    [[nodiscard]] UnitReportRequest ReportStart() const;

    // The web.

    [[nodiscard]] WebLinks Web() const { return ReadWebLinks(settings_); }

    /// Opens a web address in the user's browser; tells why when that fails.
    void OpenAddress(const std::string& address);

    // What is shown.

    void mnuGroup_Click(int group);     ///< 1 to 8
    void mnuTimerLatch_Click(int unit); ///< 1 to 10
    void txtPlo_GotFocus(int input); ///< 1 to 16: selects the input; nothing for a hidden one, here and below
    void pctSetReset_Click();        ///< flips between the sides of the shown latch; nothing for a timer
    void mnuShowNumbers_Click();     ///< the inputs' texts follow at the next drawing of a unit, one that is
                                     ///< edited then

    // Signals of the shown unit's inputs.

    void txtPlo_Click(int input);    ///< brings the open choosers forward
    void txtPlo_DblClick(int input); ///< flips "TRUE" and "FALSE", inverts a signal
    /// Opens or closes the chooser of the category at position `category` of the catalogue; another number is
    /// a fault of the caller (std::out_of_range), here and below.
    void mnuLogicCategoriesCategory_Click(int category);
    void mnuLogicCategoriesLocateAll_Click(); ///< open choosers go home and come forward
    void mnuLogicCategoriesCloseAll_Click();
    /// A chooser's button was pressed: its signal is connected to the current input. `button` is its index in
    /// the chooser, from 0.
    void cmdSelectCategory_Click(int category, int button);

    /// The user works in a chooser: it is the one that lies on top.
    void UseChooser(int category) { choosers_.Use(category); }

    /// The user closed a chooser's window.
    void CloseChooser(int category);

    // Times of the shown timer.

    /// The text of a box was changed: a delay that can be admitted is stored, another becomes 0 with a
    /// notice. Returns what box and read-out then say.
    TimerEcho txtTimerPU_Change(const std::string& text) { return ChangeTimer(TimerField::PickUp, text); }

    TimerEcho txtTimerDO_Change(const std::string& text) { return ChangeTimer(TimerField::DropOut, text); }

    /// Showing a timer changed the text of the pick-up box. Nothing is stored, whatever the text is, but the
    /// logic counts as modified unless the unit was shown to be printed.
    void txtTimerPU_Load() { config_.Modified = config_.Modified || !unitBeforePrinting_; }

    /// Whether a key that types `character` may pass into a box; tells the user when a key is refused.
    bool txtTimer_KeyPress(char32_t character);

    // Outputs of the shown unit.

    /// The box of relay output `output`, in the logic's range, was ticked or unticked.
    void cbxOutputMap_Click(int output, bool ticked);

    // Clearing and copying. Choices are those of group_editing.h.

    void cmdClearGroup_Click(int choice);
    void cmdCopyGroup_Click(int from, int to);
    void mnuClearDisplayedUnit_Click();

    // What the window copies.

    [[nodiscard]] const LogicConfig& Config() const { return config_; }

    [[nodiscard]] const SignalCatalogue& Catalogue() const { return catalogue_; }

    [[nodiscard]] const ViewSelection& Shown() const { return shown_; }

    [[nodiscard]] UnitView View() const { return BuildUnitView(config_, catalogue_, shown_); }

    [[nodiscard]] OutputMapLayout OutputMap() const {
        return DrawnOutputMap(SetupRelayOutputMapWindow(config_));
    }

    [[nodiscard]] std::string Title() const;

    /// The identity caption: lines joined by CR LF, empty for a VDR812.
    [[nodiscard]] const std::string& Identity() const { return identity_; }

    /// What is told at the foot of the window, a sentence each.
    [[nodiscard]] std::vector<std::string> StatusNotices() const { return brindle::StatusNotices(file_); }

    /// The check mark of "Show Logic Signal Numbers".
    [[nodiscard]] bool NumbersChecked() const { return numbersChecked_; }

    [[nodiscard]] const std::string& HomeDirectory() const { return homeDirectory_; }

    /// The logic, for tests to bring it into a state of theirs; edits are made by the commands above.
    LogicConfig& EditConfig() { return config_; }

    [[nodiscard]] const CategoryChoosers& Choosers() const { return choosers_; }

    /// Catalogue position of the signal whose button was pressed last; -1 before the first.
    [[nodiscard]] int LastChosenButton() const { return lastChosenButton_; }

    [[nodiscard]] const RecentFiles& Recent() const { return recentFiles_.Entries(); }

    /// What the editor was given at its start.
    [[nodiscard]] const EditorSurroundings& Surroundings() const { return surroundings_; }

    // The places of other windows, kept by the settings file under `keys`.

    void RestorePlace(const PlacedForm& form, const PlacementKeys& keys);
    void SavePlace(const PlacedForm& form, const PlacementKeys& keys);

  private:
    void NewVdr812(float version);
    void Open(const ChosenFile& file);
    void OpenVdr812(const ChosenFile& file);
    void OpenVdr810(const ChosenFile& file);
    /// A refused file leaves what was read of it, as a new file that is not saved yet.
    void ShowOpenedVdr810(const ChosenFile& file, const LogicConfig& opened, const Vdr810Reading& reading,
                          const LogicFile& known);
    void ScanPlcFolder();
    void TellMalformed(const FileError& malformed);
    /// Reads an option file; tells the user why when it cannot be read.
    [[nodiscard]] bool ReadOption(const PlcFolderEntry& entry, OptionFile& option);
    /// Gives a logic the lists of its option file, with where that does not fit; false when there is none.
    [[nodiscard]] bool TakeOptionFile(LogicConfig& config, std::vector<std::string>& misfits);
    /// Makes the option file of a logic that brought its own lists; false when that is not possible, or when
    /// an opening would not find it.
    [[nodiscard]] bool MakeOptionFile(const LogicConfig& config);
    /// Whether the logic may be written without its lists: an option file has them, or the user agrees.
    [[nodiscard]] bool MayLeaveListsOut();
    void RefreshIdentity();
    /// Everything follows a logic that was made or opened; it counts as saved. `file` is what is known of its
    /// file.
    void ShowNewLogic(LogicFile file);
    [[nodiscard]] std::optional<ChosenFile> ChooseFileToOpen();
    /// The file at a path that no dialog chose; its model follows its extension.
    [[nodiscard]] static ChosenFile FileOfPath(const std::string& path);
    /// Offers the copies of unsaved work that earlier runs left, and tells of those that cannot be read.
    void OfferRecovery();
    void AskForLeftWork();
    void ShowRecovered(const LeftCopy& left);
    /// What the file at `path` is instead of a program; empty for a program and for what cannot be read.
    [[nodiscard]] std::string ForeignNoticeAt(const std::string& path) const;
    /// The work as a recovery copy holds it.
    [[nodiscard]] RecoveryCopy WorkNow() const;
    /// Asks if there are changes; false when the user cancelled. Work that is discarded unasked, or not saved
    /// though the user wanted it, becomes `notSaved_`.
    [[nodiscard]] bool MayDiscard(DiscardingCommand command);
    /// Writes the logic to its file path and, when that went well, takes it as saved.
    void WriteLogic();
    /// Tells what another program did to the file.
    void LookForChange();
    void RebuildCatalogue();
    void ShowFirstUnit();

    [[nodiscard]] InputPlace CurrentInput() const { return {shown_.Group, shown_.Unit, shown_.Input}; }

    TimerEcho ChangeTimer(TimerField field, const std::string& text);
    /// Shows the current unit anew when its group is among `groups`.
    void RedisplayIfShown(const std::vector<int>& groups);
    /// The texts of these inputs carry the stored codes, or no longer, as "Show Logic Signal Numbers" says.
    void FollowCheckMark(const InputSet& inputs);
    void NameNewFile();
    void FindHomeDirectory();
    void EnterRecent(const RecentFile& file);

    EditorSurroundings surroundings_;
    EditorWindow window_;
    SettingsFile settings_;
    RecentFileList recentFiles_;
    RecoveryKeeper recovery_;
    /// Work that a command discards though nobody chose to lose it: a copy of it is for the next start.
    std::optional<RecoveryCopy> notSaved_;
    LogicConfig config_;
    SignalCatalogue catalogue_;
    PlcFolder plcFolder_;
    Vdr810Choice vdr810Choice_;   ///< for the next new VDR810 logic
    bool listsHereAlone_ = false; ///< a VDR810 file brought lists that no option file holds
    LogicFile file_;
    std::string identity_;
    ViewSelection shown_;
    CategoryChoosers choosers_;
    int lastChosenButton_ = -1;
    bool numbersChecked_ = false;
    std::optional<UnitPlace> unitBeforePrinting_; ///< while units are stepped through for printing
    std::string homeDirectory_;
};

} // namespace brindle
