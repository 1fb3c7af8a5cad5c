#include "app/run_editor.h"

#include "app/outside_end.h"
#include "app/surroundings.h"
#include "editor/form_plg.h"
#include "platform/termination_notifier.h"

#include <QApplication>

namespace brindle {

int RunEditor(const std::string& programFolder, const std::string& commandLine,
              const std::function<void(Editor& editor)>& shown) {
    formPLG* window = nullptr;
    EditorSurroundings surroundings = RealSurroundings(programFolder, [&window] { return window; });
    surroundings.CommandLine = commandLine;
    Editor editor(surroundings);
    editor.Form_Initialize();
    formPLG mainWindow(editor);
    window = &mainWindow;
    const OutsideEnd outsideEnd({[&editor] { editor.KeepRecoveryCopyAtOnce(); },
                                 [&mainWindow] { mainWindow.AskNothing(); }, EndAsWanted});
    mainWindow.LoadAndShow();
    shown(editor);
    return QApplication::exec();
}

} // namespace brindle
