#pragma once

#include "editor/form_plg.h"
#include "support/dialog_driver_window.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace brindle {

/// The real main window over real files: the program's folder is a temporary one, in which the settings file
/// and new files come to stand. Message boxes and file dialogs are the real ones, answered by `Dialogs`.
class MainWindowTest : public testing::Test {
  protected:
    MainWindowTest();
    ~MainWindowTest() override;

    /// Opens the window; with `commandLine` as the absolute path of a file to open.
    void Start(const std::string& commandLine = {});

    /// Closes the window as its close box does, and forgets it.
    void Close();

    /// The control or action of that object name; the test fails when there is none.
    template<class Control>
    Control* Find(const char* name) {
        auto* found = Window->findChild<Control*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    /// Chooses a menu item that is enabled and shown.
    void Choose(const char* action);

    /// The text that a label or box shows; "(hidden)" when it is not visible.
    std::string TextOf(const char* name);

    [[nodiscard]] std::string PathOf(const std::string& name) const;
    [[nodiscard]] std::string Content(const std::string& name) const;
    void WriteFile(const std::string& name, const std::string& bytes) const;

    QTemporaryDir Folder;
    DialogDriver Dialogs;
    std::unique_ptr<Editor> TheEditor;
    std::unique_ptr<formPLG> Window;

  private:
    QString folderBefore_;
};

/// A program file's bytes.
std::string ProgramBytes(const LogicConfig& config);

} // namespace brindle
