#include "support/ended_program_window.h"
#include "support/saving_program_window.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // Where no other platform is asked for, the windows are driven on one that needs no display. On Windows
    // that knows no fonts but those named.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    qputenv("QT_QPA_FONTDIR", BRINDLE_FONTS);
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); // whose controls no test could reach
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brindle"));
    QApplication::setQuitOnLastWindowClosed(false);
    if (qEnvironmentVariableIsSet(brindle::SavingProgramFolder)) {
        return brindle::RunSavingProgram(); // started by a test
    }
    if (qEnvironmentVariableIsSet(brindle::EndedProgramFolder)) {
        return brindle::RunEndedProgram();
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
