#include "app/version.h"
#include "editor/form_plg.h"
#include "platform/common_dialogs.h"
#include "platform/folders.h"
#include "platform/paths.h"
#include "settings/profile.h"

#include <QApplication>

/// The editor: puts the rooms together and runs until the main window has closed.
int main(int argc, char** argv) {
    using namespace brindle;
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brindle"));
    QApplication::setQuitOnLastWindowClosed(false); // the main window quits once it has asked what it must

    formPLG* window = nullptr;
    EditorSurroundings surroundings;
    surroundings.Files = RealFileSystem();
    surroundings.Profile = SystemProfile(surroundings.Files);
    surroundings.Folders = RealFolders();
    surroundings.ProgramFolder = ProgramFolder();
    surroundings.ProgramMajor = ProgramMajor;
    surroundings.ProgramMinor = ProgramMinor;
    surroundings.ProgramRevision = ProgramRevision;
    // The whole command line is one path, also where blanks in it were not quoted.
    const QString path = QApplication::arguments().mid(1).join(QLatin1Char(' '));
    if (!path.isEmpty()) {
        surroundings.CommandLine = AbsolutePath(surroundings.Folders.CurrentFolder(), path.toStdString());
    }
    surroundings.ShowMessageBox = [&window](const MessageBox& box) { return ShowQtMessageBox(window, box); };
    surroundings.RunFileDialog = [&window](const FileDialogRequest& request) {
        return RunQtFileDialog(window, request);
    };
    Editor editor(surroundings);
    editor.Form_Initialize();
    formPLG mainWindow(editor);
    window = &mainWindow;
    mainWindow.LoadAndShow();
    return QApplication::exec();
}
