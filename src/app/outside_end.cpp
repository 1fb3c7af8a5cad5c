#include "app/outside_end.h"

#include "platform/termination_notifier.h"

#include <QEvent>
#include <QGuiApplication>

#include <utility>

namespace brindle {

OutsideEnd::OutsideEnd(OutsideEndSteps steps) : steps_(std::move(steps)) {
    termination_ = NotifyOfTermination([this] {
        steps_.KeepWork();
        steps_.End();
    });
    // The session asks before it ends, and may then go on after all.
    connect(
        qGuiApp, &QGuiApplication::commitDataRequest, this, [this] { steps_.KeepWork(); },
        Qt::DirectConnection);
    qGuiApp->installEventFilter(this);
}

OutsideEnd::~OutsideEnd() = default;

/// When the session does end, the system quits the program; the main window's own quitting comes when it has
/// closed.
bool OutsideEnd::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qGuiApp && event->type() == QEvent::Quit) {
        steps_.AskNothing();
    }
    return QObject::eventFilter(watched, event);
}

} // namespace brindle
