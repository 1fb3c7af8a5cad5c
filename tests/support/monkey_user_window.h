#pragma once

#include "editor/form_plg.h"
#include "support/monkey_chance.h"
#include "support/monkey_dialogs_window.h"
#include "support/monkey_disk_window.h"

#include <QString>

#include <memory>
#include <string>

namespace brindle {

/// A user who presses at random whatever can be pressed, with the program that he runs: the real main window
/// over real files, whose boxes and dialogs are answered at random.
class MonkeyUser {
  public:
    explicit MonkeyUser(unsigned seed);
    ~MonkeyUser();

    MonkeyUser(const MonkeyUser&) = delete;
    MonkeyUser& operator=(const MonkeyUser&) = delete;
    MonkeyUser(MonkeyUser&&) = delete;
    MonkeyUser& operator=(MonkeyUser&&) = delete;

    /// Starts the program; with `commandLine` as the absolute path of a file to open.
    void StartProgram(const std::string& commandLine = {});

    /// Closes the window and starts the program anew. What it remembers must be what it had.
    void RestartProgram(const std::string& commandLine);

    /// Chooses a menu item, if it is enabled and shown.
    void Trigger(const QString& name);
    void TriggerElement(const char* array, int index);

    template<class Control>
    Control* Element(const char* array, int index) {
        return Window->findChild<Control*>(QStringLiteral("%1(%2)").arg(QLatin1String(array)).arg(index));
    }

    MonkeyChance Chance;
    MonkeyDisk Disk;
    MonkeyDialogs Dialogs;
    std::unique_ptr<Editor> TheEditor;
    std::unique_ptr<formPLG> Window;
    int Starts = 0;       ///< of the program
    bool MadeNew = false; ///< the action may have made a new logic

  private:
    EditorSurroundings Surroundings();
    void CompareWritten(const std::string& path, const std::string& content);

    QString folderBefore_;
};

/// The file that saving `config` makes.
std::string BytesOfLogic(const LogicConfig& config);

/// Random actions by theme; each does one.
void ActOnLogic(MonkeyUser& user);   ///< menus, strips, inputs, choosers, times, outputs
void ActOnFiles(MonkeyUser& user);   ///< new, open, save, drop, exit, and other programs at work on the files
void ActInDialogs(MonkeyUser& user); ///< home directory, about, help, group editing, printing

} // namespace brindle
