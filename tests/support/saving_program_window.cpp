#include "support/saving_program_window.h"

#include "app/surroundings.h"
#include "editor/form_plg.h"
#include "platform/paths.h"

#include <QPushButton>

#include <iostream>
#include <memory>

namespace brindle {

namespace {

constexpr int Saves = 60;

int PickUpOf(int number, int save) {
    return 1000 * (number + 1) + save;
}

} // namespace

std::int32_t LastPickUpOf(int number) {
    return PickUpOf(number, Saves);
}

int RunSavingProgram() {
    const std::string folder = qEnvironmentVariable(SavingProgramFolder).toStdString();
    const int number = qEnvironmentVariableIntValue(SavingProgramNumber);
    std::unique_ptr<formPLG> window;
    int told = 0;
    EditorSurroundings surroundings = RealSurroundings(folder, [&window] { return window.get(); });
    surroundings.CommandLine = JoinPath(folder, SavingProgramFile);
    surroundings.ShowMessageBox = [&told](const MessageBox& box) {
        if (box.Buttons == MessageButtons::SaveAsOverwriteCancel) {
            return MessageAnswer::Overwrite; // the rival has saved meanwhile
        }
        std::cerr << box.Text << '\n';
        ++told;
        return box.Buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::Cancel;
    };
    Editor editor(surroundings);
    editor.Form_Initialize();
    window = std::make_unique<formPLG>(editor);
    window->LoadAndShow();
    for (int save = 1; save <= Saves; ++save) {
        editor.txtTimerPU_Change(std::to_string(PickUpOf(number, save)));
        window->findChild<QPushButton*>(QStringLiteral("cmdbtnSave"))->click();
    }
    const bool saved = !editor.Config().Modified;
    window.reset();
    return told == 0 && saved ? 0 : 1;
}

} // namespace brindle
