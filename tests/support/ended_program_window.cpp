#include "support/ended_program_window.h"

#include "app/outside_end.h"
#include "app/surroundings.h"
#include "editor/form_plg.h"
#include "platform/termination_notifier.h"

#include <QApplication>
#include <QTimer>

#include <iostream>

namespace brindle {

int RunEndedProgram() {
    const std::string folder = qEnvironmentVariable(EndedProgramFolder).toStdString();
    formPLG* window = nullptr;
    Editor editor(RealSurroundings(folder, [&window] { return window; }));
    editor.Form_Initialize();
    formPLG mainWindow(editor);
    window = &mainWindow;
    const OutsideEnd outsideEnd({[&editor] { editor.KeepRecoveryCopyAtOnce(); },
                                 [&mainWindow] { mainWindow.AskNothing(); }, EndAsWanted});
    mainWindow.LoadAndShow();
    QTimer::singleShot(0, [&editor] {
        editor.txtTimerPU_Change(std::to_string(EndedProgramTime));
        std::cout << "ready" << std::endl; // read while we run
    });
    return QApplication::exec();
}

} // namespace brindle
