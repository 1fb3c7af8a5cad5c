#include "first_paint.h"

#include <QApplication>
#include <QLabel>
#include <QMainWindow>

#include <cstdio>

/// startup_empty WIDTH HEIGHT [TEXT]: an empty main window of that many pixels, from its start to its first
/// paint. With a text it shows that in one label: the first text makes Qt load the system's fonts.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const QSize size(arguments.value(1).toInt(), arguments.value(2).toInt());
    if (arguments.size() < 3 || arguments.size() > 4 || size.isEmpty()) {
        std::fprintf(stderr, "startup_empty WIDTH HEIGHT [TEXT]\n");
        return 2;
    }

    QMainWindow window;
    window.resize(size);
    if (arguments.size() == 4) {
        window.setCentralWidget(new QLabel(arguments.at(3)));
    }
    brindle::FirstPaint shown(window);
    window.show();
    return shown.Run();
}
