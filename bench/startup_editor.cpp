#include "app/surroundings.h"
#include "editor/form_plg.h"
#include "first_paint.h"

#include <QApplication>

#include <cstdio>

/// startup_editor PROGRAM_FOLDER: the editor from its start to the first paint of its window, with its
/// settings in that folder.
int main(int argc, char** argv) {
    using namespace brindle;
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brindle"));
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2) {
        std::fprintf(stderr, "startup_editor PROGRAM_FOLDER\n");
        return 2;
    }

    formPLG* window = nullptr;
    Editor editor(RealSurroundings(arguments.at(1).toStdString(), [&window] { return window; }));
    editor.Form_Initialize();
    formPLG mainWindow(editor);
    window = &mainWindow;
    FirstPaint shown(mainWindow);
    mainWindow.LoadAndShow();
    return shown.Run();
}
