#include "support/monkey_user_window.h"

#include "app/surroundings.h"
#include "editor/menu_tree.h"
#include "files/program_file.h"
#include "files/vdr810_reader.h"
#include "files/vdr810_writer.h"
#include "platform/paths.h"
#include "settings/own_profile.h"

#include <QAction>
#include <QDir>
#include <QTest>
#include <gtest/gtest.h>

namespace brindle {

namespace {

/// An entry whose path has a comma is in the menu until the program ends; a file that has gone leaves it at
/// the next start.
bool Remembered(const RecentFile& entry, const MonkeyDisk& disk) {
    return RecentFileValue(entry) != "EMPTY" && disk.Owns(entry.Path) &&
           QFileInfo(QString::fromStdString(entry.Path)).isFile();
}

std::vector<RecentFile> RememberedOf(const Editor& editor, const MonkeyDisk& disk) {
    std::vector<RecentFile> remembered;
    for (const RecentFile& entry : editor.Recent()) {
        if (entry.Used() && Remembered(entry, disk)) {
            remembered.push_back(entry);
        }
    }
    return remembered;
}

/// What a reader makes of a saved file, saved again.
std::string SavedAgain(const LogicConfig& config, const std::string& content) {
    LogicConfig again;
    if (config.RelayModel == RelayKind::Vdr812) {
        DecodeProgram(content, again);
    } else {
        EXPECT_TRUE(DecodeVdr810(content, "saved", again).Done());
    }
    return BytesOfLogic(again);
}

} // namespace

std::string BytesOfLogic(const LogicConfig& config) {
    if (config.RelayModel == RelayKind::Vdr810) {
        return EncodeVdr810(config);
    }
    ProgramImage image{};
    EXPECT_FALSE(EncodeProgram(config, image).Failed());
    return {image.begin(), image.end()};
}

MonkeyUser::MonkeyUser(unsigned seed)
    : Chance(seed), Disk(Chance), Dialogs(Chance, Disk), folderBefore_(QDir::currentPath()) {
    Disk.WhenWritten = [this](const std::string& path, const std::string& content) {
        CompareWritten(path, content);
    };
}

MonkeyUser::~MonkeyUser() {
    Window.reset();
    TheEditor.reset();
    QDir::setCurrent(folderBefore_);
}

EditorSurroundings MonkeyUser::Surroundings() {
    EditorSurroundings surroundings = RealSurroundings(Disk.ProgramFolder(), [this] { return Window.get(); });
    surroundings.Files = Disk.Files();
    surroundings.Profile = OwnProfile(surroundings.Files); // whose disk is seen, on Windows too
    surroundings.Folders = Disk.Folders();
    surroundings.ShowMessageBox = [this, real = surroundings.ShowMessageBox](const MessageBox& box) {
        return Dialogs.AnswerBox(box, real);
    };
    surroundings.RunFileDialog = [this, real = surroundings.RunFileDialog](const FileDialogRequest& request) {
        return Dialogs.AnswerFile(request, real);
    };
    surroundings.Browser.StartProgram = [](const std::string&, const std::string&) {
        return GreatestProgramFault + 1; // no browser is to come up
    };
    return surroundings;
}

void MonkeyUser::StartProgram(const std::string& commandLine) {
    EditorSurroundings surroundings = Surroundings();
    surroundings.CommandLine = commandLine;
    TheEditor = std::make_unique<Editor>(surroundings);
    TheEditor->Form_Initialize();
    Window = std::make_unique<formPLG>(*TheEditor);
    Window->LoadAndShow();
    MadeNew = true;
    ++Starts;
    EXPECT_TRUE(QTest::qWaitForWindowActive(Window.get()));
}

void MonkeyUser::RestartProgram(const std::string& commandLine) {
    if (Window->isVisible()) {
        Window->close();
    }
    const std::vector<RecentFile> recent = RememberedOf(*TheEditor, Disk);
    const std::string home = TheEditor->HomeDirectory();
    Window.reset();
    TheEditor.reset();
    const bool compared = !Disk.HadBadSpell();
    Disk.ForgetBadSpells();
    StartProgram({});
    if (compared) {
        EXPECT_EQ(recent, RememberedOf(*TheEditor, Disk));
        EXPECT_EQ(home, TheEditor->HomeDirectory());
    }
    if (!commandLine.empty()) {
        Window.reset();
        TheEditor.reset();
        StartProgram(commandLine);
    }
}

void MonkeyUser::CompareWritten(const std::string& path, const std::string& content) {
    const LogicConfig& config = TheEditor->Config();
    const std::string extension = Get_File_Name_Parts(path).Extension;
    const bool printed = extension == "txt" || extension == "pdf" || extension == "htm";
    if (path != config.FilePath || printed) {
        return; // settings, constants, an option file, a print
    }
    EXPECT_EQ(content, BytesOfLogic(config)) << path;
    EXPECT_EQ(content, SavedAgain(config, content)) << path << " does not read back";
}

void MonkeyUser::Trigger(const QString& name) {
    auto* item = Window->findChild<QAction*>(name);
    ASSERT_NE(item, nullptr) << name.toStdString();
    if (item->isEnabled() && item->isVisible()) {
        item->trigger();
    }
}

void MonkeyUser::TriggerElement(const char* array, int index) {
    Trigger(QString::fromStdString(ElementName(array, index)));
}

} // namespace brindle
