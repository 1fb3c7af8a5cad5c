#include "support/monkey_user_window.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>

/// What a random user does with files, and what other programs do with them meanwhile.
namespace brindle {

namespace {

void MakeNewLogic(MonkeyUser& user) {
    static constexpr const char* items[] = {"mnuNewFileVer100", "mnuNewFileVer230", "mnuFileNewVdr810",
                                            "mnuFileNewVdr810"};
    user.MadeNew = true;
    user.Trigger(QString::fromLatin1(user.Chance.Pick(items)));
}

void DropFiles(MonkeyUser& user) {
    QMimeData files;
    QList<QUrl> urls;
    for (int count = user.Chance.OneIn(5) ? 2 : 1; count > 0; --count) {
        urls.push_back(user.Chance.OneIn(20)
                           ? QUrl(QStringLiteral("https://brindle.example/x.pl"))
                           : QUrl::fromLocalFile(QString::fromStdString(user.Disk.AnyLogicPath())));
    }
    files.setUrls(urls);
    const Qt::DropActions possible = user.Chance.OneIn(5) ? Qt::MoveAction : Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(QPoint(5, 5), possible, &files, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(user.Window.get(), &enter);
    if (enter.isAccepted()) {
        QDropEvent drop(QPointF(5, 5), possible, &files, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(user.Window.get(), &drop);
        QApplication::processEvents(); // the file is opened once the drop is over
    }
}

void PressButton(MonkeyUser& user, const char* name) {
    user.Window->findChild<QPushButton*>(QString::fromLatin1(name))->click();
}

/// Exit may be cancelled; a window that did close is opened anew by the next start of the program.
void Leave(MonkeyUser& user) {
    const std::string next = user.Chance.OneIn(2) ? std::string() : user.Disk.AnyLogicPath();
    if (user.Chance.OneIn(2)) {
        user.Trigger(QStringLiteral("mnuExit"));
        if (user.Window->isVisible()) {
            return;
        }
    }
    user.RestartProgram(next);
}

} // namespace

void ActOnFiles(MonkeyUser& user) {
    const int choice = user.Chance.Number(0, 99);
    if (choice < 15) {
        MakeNewLogic(user);
    } else if (choice < 30) {
        user.Trigger(QStringLiteral("mnuOpenBin"));
    } else if (choice < 40) {
        user.Trigger(QStringLiteral("mnuFileSave"));
    } else if (choice < 45) {
        PressButton(user, "cmdbtnSave");
    } else if (choice < 60) {
        user.Trigger(QStringLiteral("mnuSaveBin"));
    } else if (choice < 72) {
        user.TriggerElement("mnuFileRecentFiles", user.Chance.Number(0, RecentFileCount - 1));
    } else if (choice < 80) {
        DropFiles(user);
    } else if (choice < 83) {
        PressButton(user, "Command1");
    } else if (choice < 95) {
        user.Disk.DoMischief();
    } else {
        Leave(user);
    }
}

} // namespace brindle
