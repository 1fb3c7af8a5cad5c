#include "support/main_window_test_window.h"

#include "app/surroundings.h"
#include "support/native_path.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace brindle {

MainWindowTest::MainWindowTest() : folderBefore_(QDir::currentPath()) {}

MainWindowTest::~MainWindowTest() {
    Window.reset();
    TheEditor.reset();
    QDir::setCurrent(folderBefore_);
}

void MainWindowTest::Start(const std::string& commandLine) {
    EditorSurroundings surroundings =
        RealSurroundings(NativePath(Folder.path()), [this] { return Window.get(); });
    surroundings.CommandLine = commandLine;
    TheEditor = std::make_unique<Editor>(surroundings);
    TheEditor->Form_Initialize();
    Window = std::make_unique<formPLG>(*TheEditor);
    Window->LoadAndShow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(Window.get()));
}

void MainWindowTest::Close() {
    Window->close();
    Window.reset();
    TheEditor.reset();
}

void MainWindowTest::Choose(const char* action) {
    auto* item = Find<QAction>(action);
    ASSERT_TRUE(item->isEnabled() && item->isVisible()) << action;
    item->trigger();
}

std::string MainWindowTest::TextOf(const char* name) {
    auto* control = Find<QWidget>(name);
    if (!control->isVisible()) {
        return "(hidden)";
    }
    if (const auto* label = qobject_cast<QLabel*>(control)) {
        return label->text().toStdString();
    }
    if (const auto* button = qobject_cast<QAbstractButton*>(control)) {
        return button->text().toStdString();
    }
    return qobject_cast<QLineEdit*>(control)->text().toStdString();
}

std::string MainWindowTest::PathOf(const std::string& name) const {
    return NativePath(Folder.filePath(QString::fromStdString(name)));
}

std::string MainWindowTest::Content(const std::string& name) const {
    QFile file(Folder.filePath(QString::fromStdString(name)));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return file.readAll().toStdString();
}

void MainWindowTest::WriteFile(const std::string& name, const std::string& bytes) const {
    QFile file(Folder.filePath(QString::fromStdString(name)));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << name;
    file.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

std::string ProgramBytes(const LogicConfig& config) {
    ProgramImage image{};
    EXPECT_FALSE(EncodeProgram(config, image).Failed());
    return {image.begin(), image.end()};
}

} // namespace brindle
