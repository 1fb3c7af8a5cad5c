#include "app/surroundings.h"

#include "app/version.h"
#include "platform/common_dialogs.h"
#include "platform/qt_file_dialog.h"

#include <QApplication>

#include <utility>

namespace brindle {

EditorSurroundings RealSurroundings(const std::string& programFolder, std::function<QWidget*()> parent) {
    // Boxes come up over the dialog that is open, else over the main window.
    const auto owner = [parent = std::move(parent)] {
        QWidget* modal = QApplication::activeModalWidget();
        return modal != nullptr ? modal : parent();
    };
    EditorSurroundings surroundings;
    surroundings.ProgramFolder = programFolder;
    surroundings.ProgramMajor = ProgramMajor;
    surroundings.ProgramMinor = ProgramMinor;
    surroundings.ProgramRevision = ProgramRevision;
    surroundings.Files = RealFileSystem();
    surroundings.Locks = RealFileLocks();
    surroundings.Profile = SystemProfile(surroundings.Files);
    surroundings.Folders = RealFolders();
    surroundings.ShowMessageBox = [owner](const MessageBox& box) { return ShowQtMessageBox(owner(), box); };
    surroundings.RunFileDialog = [owner](const FileDialogRequest& request) {
        return RunQtFileDialog(owner(), request);
    };
    surroundings.Browser = RealBrowser();
    surroundings.Now = WriteNow;
    return surroundings;
}

} // namespace brindle
