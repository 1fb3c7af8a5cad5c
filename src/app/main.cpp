#include "app/surroundings.h"
#include "editor/form_plg.h"
#include "platform/environment.h"
#include "platform/folders.h"
#include "platform/paths.h"
#include "settings/program_folder.h"

#include <QApplication>
#include <QIcon>

/// The editor: puts the rooms together and runs until the main window has closed.
int main(int argc, char** argv) {
    using namespace brindle;
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brindle"));
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 128, 256}) {
        icon.addFile(QStringLiteral(":/icons/brindle-%1.png").arg(size), QSize(size, size));
    }
    QApplication::setWindowIcon(icon);
    QApplication::setQuitOnLastWindowClosed(false); // the main window quits once it has asked what it must

    formPLG* window = nullptr;
    const FolderFunctions folders = RealFolders();
    const std::string programFolder = ProvideProgramFolder(
        FindProgramFolders(ExecutableFolder(), EnvironmentVariable, folders), RealFileSystem(), folders);
    EditorSurroundings surroundings = RealSurroundings(programFolder, [&window] { return window; });
    // The whole command line is one path, also where blanks in it were not quoted.
    const QString path = QApplication::arguments().mid(1).join(QLatin1Char(' '));
    if (!path.isEmpty()) {
        surroundings.CommandLine = AbsolutePath(surroundings.Folders.CurrentFolder(), path.toStdString());
    }
    Editor editor(surroundings);
    editor.Form_Initialize();
    formPLG mainWindow(editor);
    window = &mainWindow;
    mainWindow.LoadAndShow();
    return QApplication::exec();
}
