#pragma once

#include "settings/home_directory.h"

#include <QDialog>

class QComboBox;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace brindle {

/// The window in which the user picks the home directory, and makes folders.
class formHomeDir : public QDialog {
    Q_OBJECT
  public:
    /// `homeDirectoryChosen` is told of the folder that the user settles on with Done.
    formHomeDir(const FolderFunctions& folders, const ShowMessageBox& showMessageBox,
                std::function<void(const std::string& folder)> homeDirectoryChosen, QWidget* owner);

    /// Shows the window in the middle of the screen, with `homeDirectory` selected.
    void Open(const std::string& homeDirectory);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void BuildControls();
    QWidget* BuildButtons();
    void reject() override;

    /// A key in the list of folders; false for one that the list takes itself.
    bool PressInFolders(int key);
    void ShowFolders();
    void ShowSelected();

    HomeDirectoryChooser chooser_;
    QComboBox* Drive1_ = nullptr;
    QTreeWidget* dirHomeDir_ = nullptr;
    QLineEdit* txtHomeDir_ = nullptr;
};

} // namespace brindle
