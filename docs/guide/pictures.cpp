#include "app/surroundings.h"
#include "editor/form_plg.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QPalette>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <string>
#include <utility>

/// Takes the guide's pictures of the windows: guide_pictures EXAMPLES_FOLDER PICTURES_FOLDER [dark].
/// Run by scripts/guide-pictures.
namespace {

using namespace brindle;

struct Picture {
    const char* Name;
    const char* Example; ///< in the examples' folder; empty for a new file
    int Group;
    int Unit;
    int Input; ///< selected by the user; 0 for the one that showing the unit selects
    bool Numbers;
    QSize Size;
    void (*Steps)(formPLG& window) = nullptr; ///< what the user then does
    const char* Taken = nullptr;              ///< the window that is taken, when it is not the main window
};

template<class Control>
Control* Find(formPLG& window, const char* name) {
    return window.findChild<Control*>(QString::fromLatin1(name));
}

void SelectInput(formPLG& window, int input) {
    const QString box = QStringLiteral("txtPlo(%1)").arg(input);
    window.findChild<QLineEdit*>(box)->setFocus(Qt::TabFocusReason);
}

void ConnectBinaryInput(formPLG& window, int input, int signal) {
    constexpr const char* item = "mnuLogicCategoriesCategory(22)";
    SelectInput(window, input);
    if (!Find<QAction>(window, item)->isChecked()) {
        Find<QAction>(window, item)->trigger();
    }
    Find<QWidget>(window, "formCategoryBrindle(22)")
        ->findChild<QAbstractButton*>(QStringLiteral("cmdSelectCategory(%1)").arg(signal - 1))
        ->click();
}

void OpenChooser(formPLG& window) {
    Find<QAction>(window, "mnuLogicCategoriesCategory(22)")->trigger();
}

void ConnectFirstSignal(formPLG& window) {
    ConnectBinaryInput(window, 5, 1);
}

void DesignUnit(formPLG& window) {
    ConnectBinaryInput(window, 5, 1);
    ConnectBinaryInput(window, 6, 4);
    QTest::keyClick(Find<QWidget>(window, "txtPlo(6)"), Qt::Key_I, Qt::ControlModifier);
    ConnectBinaryInput(window, 9, 2);
    Find<QCheckBox>(window, "cbxOutputMap(4)")->click();
    Find<QCheckBox>(window, "cbxOutputMap(5)")->click();
    auto* time = Find<QLineEdit>(window, "txtTimerPU");
    time->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(time, QStringLiteral("1500"));
}

void OpenPrint(formPLG& window) {
    Find<QAction>(window, "mnuPrint")->trigger();
}

void OpenGroupEditing(formPLG& window) {
    Find<QAction>(window, "mnuGroupEditingFunctions")->trigger();
}

/// A dialog that waits for its answer is grabbed while it does.
QImage waitingDialog;

void GrabNextDialog(formPLG& window) {
    QTimer::singleShot(0, &window, [] {
        QWidget* dialog = QApplication::activeModalWidget();
        waitingDialog = dialog->grab().toImage();
        dialog->close();
    });
}

void OpenPaper(formPLG& window) {
    OpenPrint(window);
    auto* print = Find<QWidget>(window, "formPrintBrindle");
    auto* printers = print->findChild<QComboBox*>(QStringLiteral("cmbPrinterList"));
    printers->setCurrentIndex(printers->count() - 1); // the PDF file
    GrabNextDialog(window);
    print->findChild<QAbstractButton*>(QStringLiteral("cmdSetup"))->click();
}

void OpenVdr810Options(formPLG& window) {
    GrabNextDialog(window);
    Find<QAction>(window, "mnuFileNewVdr810")->trigger();
}

/// The question of a start after a crash.
void OfferRecovery(formPLG& window) {
    const QTemporaryDir programFolder;
    LogicConfig logic;
    MakeNewVdr812(logic, Version230);
    const std::string copy =
        EncodeRecoveryCopy({"/home/relays/line 7 east.pl", "line 7 east.pl", FileOrigin::Opened,
                            "21 Nov 2026 10:12:33", RecoveryLogic(logic)});
    QFile file(programFolder.filePath(QStringLiteral("Recovery1.brindle")));
    if (!file.open(QIODevice::WriteOnly) || file.write(QByteArray::fromStdString(copy)) < 0) {
        return;
    }
    file.close();
    Editor editor(RealSurroundings(programFolder.path().toStdString(), [&window] { return &window; }));
    editor.Form_Initialize();
    formPLG next(editor);
    GrabNextDialog(window);
    next.LoadAndShow();
}

void OpenHomeDirectory(formPLG& window) {
    Find<QAction>(window, "mnuHomeDir")->trigger();
}

void OpenAbout(formPLG& window) {
    Find<QAction>(window, "mnuAbout")->trigger();
}

void OpenHelp(formPLG& window) {
    Find<QAction>(window, "mnuHelpHelp")->trigger();
}

constexpr QSize Usual(1000, 640);

const Picture Pictures[] = {
    {"main-window", "pilot_supervision.pl", 1, 1, 0, false, {1120, 740}},
    {"recovery", "", 1, 1, 0, false, Usual, OfferRecovery},
    {"timer-100", "pilot_supervision.pl", 1, 1, 2, false, Usual},
    {"timer-230", "breaker_failure.pl", 1, 1, 0, false, Usual},
    {"latch", "lockout.pl", 1, 8, 0, false, Usual},
    {"latch-reset", "lockout.pl", 1, 7, 6, false, Usual},
    {"numbers", "breaker_failure.pl", 1, 2, 0, true, Usual},
    {"new-file", "", 1, 1, 0, false, {800, 600}},
    {"foreign-file", "README.md", 1, 8, 0, false, Usual},
    {"chooser", "", 1, 1, 0, false, Usual, OpenChooser, "formCategoryBrindle(22)"},
    {"first-signal", "", 1, 1, 0, false, Usual, ConnectFirstSignal},
    {"designed-unit", "", 1, 1, 0, false, Usual, DesignUnit},
    {"group-editing", "breaker_failure.pl", 1, 1, 0, false, Usual, OpenGroupEditing,
     "formGroupEditingFunctions"},
    {"print", "breaker_failure.pl", 1, 1, 0, false, Usual, OpenPrint, "formPrintBrindle"},
    {"paper", "breaker_failure.pl", 1, 1, 0, false, Usual, OpenPaper},
    {"vdr810", "two_breakers.c10", 1, 1, 0, false, Usual},
    {"vdr810-latch", "single_breaker.c10", 1, 8, 0, false, Usual},
    {"vdr810-options", "", 1, 1, 0, false, Usual, OpenVdr810Options},
    {"home-directory", "", 1, 1, 0, false, Usual, OpenHomeDirectory, "formHomeDir"},
    {"about", "", 1, 1, 0, false, Usual, OpenAbout, "formAbout"},
    {"help", "", 1, 1, 0, false, Usual, OpenHelp, "formHelp"},
};

void UseDarkPalette() {
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(45, 45, 48));
    dark.setColor(QPalette::Base, QColor(30, 30, 32));
    dark.setColor(QPalette::AlternateBase, QColor(50, 50, 53));
    dark.setColor(QPalette::Button, QColor(60, 60, 63));
    dark.setColor(QPalette::ToolTipBase, QColor(60, 60, 63));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        dark.setColor(role, Qt::white);
        dark.setColor(QPalette::Disabled, role, Qt::gray);
    }
    dark.setColor(QPalette::PlaceholderText, QColor(160, 160, 160));
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    QApplication::setPalette(dark);
}

/// Folders of a made-up machine.
FolderFunctions PicturedFolders(FolderFunctions folders) {
    folders.Drives = [] { return std::vector<std::string>{"/", "/media/stick"}; };
    folders.Subfolders = [](const std::string& path) {
        if (path == "/") {
            return std::vector<std::string>{"home", "media"};
        }
        return path.ends_with("relays") ? std::vector<std::string>{"line 1", "line 2", "substation north"}
                                        : std::vector<std::string>{"relays"};
    };
    folders.FolderExists = [](const std::string& /*path*/) { return true; };
    return folders;
}

void CopyOptionFiles(const std::string& examples, const QString& programFolder) {
    const QDir folder(QString::fromStdString(examples));
    for (const QString& name : folder.entryList({QStringLiteral("PLC*.810")})) {
        QFile::copy(folder.filePath(name), programFolder + QLatin1Char('/') + name);
    }
}

bool Take(const Picture& picture, const std::string& examples, const QString& target) {
    const QTemporaryDir programFolder;
    CopyOptionFiles(examples, programFolder.path());
    EditorSurroundings surroundings =
        RealSurroundings(programFolder.path().toStdString(), [] { return nullptr; });
    surroundings.Now = [] { return DateAndTime{"11/21/26", "10:12:33"}; };
    surroundings.Folders = PicturedFolders(surroundings.Folders);
    surroundings.ShowMessageBox = [](const MessageBox& box) {
        std::fprintf(stderr, "%s\n", box.Text.c_str()); // nobody is there to press its button
        return MessageAnswer::Ok;
    };
    if (*picture.Example != '\0') {
        surroundings.CommandLine = examples + "/" + picture.Example;
    }
    const QString file = target + QLatin1Char('/') + QLatin1String(picture.Name) + QStringLiteral(".png");
    Editor editor(surroundings);
    editor.Form_Initialize();
    formPLG window(editor);
    window.LoadAndShow();
    editor.ChooseHomeDirectory("/home/relays");
    window.resize(picture.Size);
    QApplication::processEvents(); // the window becomes active, so that what is done to it is the user's
                                   // doing
    if (picture.Numbers) {
        window.findChild<QAction*>(QStringLiteral("mnuShowNumbers"))->trigger();
    }
    editor.mnuGroup_Click(picture.Group);
    editor.mnuTimerLatch_Click(picture.Unit);
    if (picture.Input != 0) {
        SelectInput(window, picture.Input);
    }
    if (picture.Steps != nullptr) {
        picture.Steps(window);
    }
    QApplication::processEvents();
    if (!waitingDialog.isNull()) {
        return std::exchange(waitingDialog, {}).save(file);
    }
    QWidget* taken = picture.Taken == nullptr ? &window : Find<QWidget>(window, picture.Taken);
    return taken->grab().save(file);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 3) {
        std::fprintf(stderr, "guide_pictures EXAMPLES_FOLDER PICTURES_FOLDER [dark]\n");
        return 2;
    }
    if (arguments.value(3) == QLatin1String("dark")) {
        UseDarkPalette();
    }
    for (const Picture& picture : Pictures) {
        if (!Take(picture, arguments.at(1).toStdString(), arguments.at(2))) {
            return 1;
        }
    }
    return 0;
}
