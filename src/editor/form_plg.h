#pragma once

#include "editor/editor.h"
#include "editor/form_category_choosers.h"
#include "editor/menu_tree.h"

#include <QHash>
#include <QMainWindow>

#include <array>

class QAction;
class QHBoxLayout;
class QLabel;
class QMenu;
class QPushButton;

namespace brindle {

struct DiagramEvents;
class IdentityLabelWidget;
class StatusLineWidget;
class StripLabelWidget;
class UnitDiagramWidget;
class formAbout;
class formGroupEditingFunctions;
class formHelp;
class formHomeDir;
class formPrintBrindle;
struct PrintSurroundings;
struct WindowPicture;

/// The main window: the menu bar, the group and unit strips and the diagram of one unit. Every command is the
/// editor's; the window copies the editor's views onto its controls.
class formPLG : public QMainWindow {
    Q_OBJECT
  public:
    /// `editor` outlives the window.
    explicit formPLG(Editor& editor);

    /// Loads the editor (Form_Load) and shows the window as its stored placement says.
    void LoadAndShow();

    /// What the window shows, as in a window of the usual size on a light desktop, whatever this one is like.
    [[nodiscard]] WindowPicture Picture();

    /// From now on the window closes without asking, and unsaved work stays in its copy for the next start:
    /// the desktop's session ends.
    void AskNothing() { asksNothing_ = true; }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    EditorWindow WindowForEditor();
    DiagramEvents EventsOfDiagram();
    ChooserEvents EventsOfChoosers();

    void FitToScreen();
    /// A relay with many outputs needs a wider window; as far as the screen has room, it cannot be made
    /// smaller.
    void GrowToContents();
    void BuildMenus();
    void ConnectMenus();
    QAction* Action(const QString& name) const;
    /// Gives a menu item its command; an item without one stays disabled.
    void Connect(const QString& name, std::function<void()> command);

    QWidget* BuildHeader(QWidget* parent);
    QHBoxLayout* BuildGroupStrip(QWidget* parent);
    QHBoxLayout* BuildUnitStrip(QWidget* parent);

    void ConnectCategory(int category);
    /// A VDR810 may have more categories than the menu tree has items.
    void AddCategoryItems();
    void ShowCategories();
    void CheckOpenChoosers();
    void ShowRecentFiles();
    void BuildWebItems();
    void OpenGroupEditing();
    PrintSurroundings SurroundingsOfPrint();
    void OpenPrint();
    void OpenHomeDir();
    void OpenHelp();
    void OpenAbout();
    bool ChooseVdr810Options(Vdr810Options& options);
    void ShowIdentity();
    void ShowStatus();
    void ShowUnit(UnitRedraw redraw);

    Editor& editor_;
    CategoryChooserForms choosers_;
    QWidget* header_ = nullptr;
    // Dialogs, made when first opened and owned by the window.
    formGroupEditingFunctions* groupEditing_ = nullptr;
    formPrintBrindle* print_ = nullptr;
    formHomeDir* homeDir_ = nullptr;
    formHelp* help_ = nullptr;
    formAbout* about_ = nullptr;
    QSize leastSize_;
    QSize usualSize_; ///< where no placement is stored and the screen has room
    bool loaded_ = false;
    bool asksNothing_ = false;
    Qt::WindowStates restoredState_ = Qt::WindowNoState;

    QHash<QString, QAction*> actions_;
    QMenu* mnuLogicCategories_ = nullptr;
    int categoryItems_ = CategoryItems;
    IdentityLabelWidget* lblIdentity_ = nullptr;
    QLabel* lblGroup_ = nullptr;
    QLabel* lblTimerLatchUnit_ = nullptr;
    QLabel* lblSelectedInput_ = nullptr;
    std::array<StripLabelWidget*, MaxGroups> lblGroupNumber_{};
    std::array<StripLabelWidget*, UnitsPerGroup> lblUnit_{};
    UnitDiagramWidget* diagram_ = nullptr;
    StatusLineWidget* lblStatus_ = nullptr;
};

} // namespace brindle
