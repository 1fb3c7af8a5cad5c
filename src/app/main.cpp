#include "app/run_editor.h"
#include "app/start_arguments.h"
#include "platform/arguments.h"
#include "platform/environment.h"
#include "platform/file_size_limit.h"
#include "platform/folders.h"
#include "platform/standard_output.h"
#include "settings/program_folder.h"

#include <QApplication>
#include <QIcon>

#include <cstdlib>
#include <iostream>

namespace {

/// The arguments in bytes, without those that Qt has taken for itself. Where main() is given less than the
/// user typed, only Qt knows which those are.
std::vector<std::string> ArgumentsLeftByQt(int argc, char** argv) {
    std::vector<std::string> arguments = brindle::ProgramArguments(argc, argv);
    const QStringList left = QApplication::arguments().mid(1);
    if (arguments.size() != static_cast<std::size_t>(left.size())) {
        arguments.clear();
        for (const QString& argument : left) {
            arguments.push_back(argument.toStdString());
        }
    }
    return arguments;
}

} // namespace

/// The editor: puts the rooms together and runs until the main window has closed.
int main(int argc, char** argv) {
    using namespace brindle;
    LetLargeFilesFail();
    // Asked of a program on a machine without a display too, where Qt would end it.
    if (const std::optional<std::string> answer = AnswerWithoutWindow(ProgramArguments(argc, argv))) {
        AttachStandardOutput();
        std::cout << *answer << std::flush;
        return std::cout ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brindle"));
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 128, 256}) {
        icon.addFile(QStringLiteral(":/icons/brindle-%1.png").arg(size), QSize(size, size));
    }
    QApplication::setWindowIcon(icon);
    QApplication::setQuitOnLastWindowClosed(false); // the main window quits once it has asked what it must

    const FolderFunctions folders = RealFolders();
    const std::string programFolder = ProvideProgramFolder(
        FindProgramFolders(ExecutableFolder(), EnvironmentVariable, folders), RealFileSystem(), folders);
    return RunEditor(programFolder, PathOfArguments(ArgumentsLeftByQt(argc, argv), folders.CurrentFolder()));
}
