#include "support/ended_program_window.h"

#include "app/run_editor.h"

#include <QtGlobal>

#include <iostream>

namespace brindle {

int RunEndedProgram() {
    return RunEditor(qEnvironmentVariable(EndedProgramFolder).toStdString(), {}, [](Editor& editor) {
        editor.txtTimerPU_Change(std::to_string(EndedProgramTime));
        std::cout << "ready" << std::endl; // read while we run
    });
}

} // namespace brindle
