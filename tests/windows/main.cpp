#include "support/saving_program_window.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // The windows are driven where no display is needed. On Windows no fonts are known there but those named.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    qputenv("QT_QPA_FONTDIR", BRINDLE_FONTS);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brindle"));
    QApplication::setQuitOnLastWindowClosed(false);
    if (qEnvironmentVariableIsSet(brindle::SavingProgramFolder)) {
        return brindle::RunSavingProgram(); // started by a test
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
