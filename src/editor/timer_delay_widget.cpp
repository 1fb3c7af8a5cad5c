#include "editor/timer_delay_widget.h"

#include "editor/diagram_controls_widget.h"
#include "editor/diagram_painter.h"

#include <QDragEnterEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace brindle {

namespace {

/// Whether a text box would take the key's text. AltGr comes as Ctrl with Alt on some systems.
bool TypesText(const QKeyEvent& key) {
    const bool control = (key.modifiers() & Qt::ControlModifier) != 0;
    const bool alt = (key.modifiers() & Qt::AltModifier) != 0;
    return !key.text().isEmpty() && key.text().front().isPrint() && (!control || alt);
}

/// Whether the key, though it has a text, is a command to the window or the desktop.
bool IsAccessKey(const QKeyEvent& key) {
    const bool control = (key.modifiers() & Qt::ControlModifier) != 0;
    return (key.modifiers() & Qt::MetaModifier) != 0 ||
           ((key.modifiers() & Qt::AltModifier) != 0 && !control);
}

} // namespace

TimerBoxWidget::TimerBoxWidget(const QString& name, QWidget* parent) : QLineEdit(parent) {
    setObjectName(name);
    setTextMargins(3, 0, 3, 0);
    setInputMethodHints(Qt::ImhDigitsOnly);
    setPalette(BoxPalette(WhiteColour, false));
}

void TimerBoxWidget::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) {
        event->ignore(); // a file is for the window to open, though its path could be dropped as text
    } else {
        QLineEdit::dragEnterEvent(event);
    }
}

void TimerBoxWidget::keyPressEvent(QKeyEvent* event) {
    constexpr char32_t enter = 13;
    const bool types = TypesText(*event);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        MayType(enter);
    } else if (types && IsAccessKey(*event)) {
        event->ignore();
    } else if (!types || MayType(event->text().toUcs4().front())) {
        QLineEdit::keyPressEvent(event);
    }
}

void TimerBoxWidget::inputMethodEvent(QInputMethodEvent* event) {
    // Characters that are composed of several keys come this way.
    for (const uint character : event->commitString().toUcs4()) {
        if (!MayType(character)) {
            QInputMethodEvent nothing; // takes what was being composed off the box
            QLineEdit::inputMethodEvent(&nothing);
            return;
        }
    }
    QLineEdit::inputMethodEvent(event);
}

void TimerBoxWidget::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    setPalette(BoxPalette(SelectedInputColour, false));
}

void TimerBoxWidget::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    setPalette(BoxPalette(WhiteColour, false));
}

DelayControls::DelayControls(QWidget* parent, const QString& letters, const QString& label,
                             DelayEvents events)
    : events_(std::move(events)),
      label_(NewDiagramLabel(parent, QStringLiteral("lblTimer") + letters, Qt::AlignLeft)),
      box_(new TimerBoxWidget(QStringLiteral("txtTimer") + letters, parent)),
      readOut_(
          NewDiagramLabel(parent, QStringLiteral("lbl") + letters + QStringLiteral("Time"), Qt::AlignLeft)),
      caption_(NewDiagramLabel(parent, QStringLiteral("lblT") + letters,
                               letters == QLatin1String("PU") ? Qt::AlignLeft : Qt::AlignRight, true)) {
    const QString limits = QStringLiteral("Timer Limits: 0 to 10 Minutes, in milli-Second Increaments");
    label_->setText(label);
    label_->setToolTip(limits);
    readOut_->setText(QStringLiteral("Min:    Sec:   mSec:"));
    box_->setToolTip(limits);
    box_->setAccessibleName(label);
    box_->MayType = events_.KeyPress;
    QObject::connect(box_, &QLineEdit::textChanged, parent, [this](const QString& text) { Changed(text); });
}

void DelayControls::Changed(const QString& text) {
    if (loading_) {
        events_.Load();
        return;
    }
    const TimerEcho echo = events_.Change(text.toStdString());
    if (!echo.ReadOut) {
        return;
    }
    readOut_->setText(QString::fromStdString(*echo.ReadOut));
    const QString canonical = QString::fromStdString(echo.Text);
    if (box_->text() != canonical) {
        // The cursor stays before the digit before which it was.
        const auto behindCursor = box_->text().length() - box_->cursorPosition();
        box_->setText(canonical); // raises Change again, with a text that stays
        box_->setCursorPosition(static_cast<int>(std::max<qsizetype>(0, canonical.length() - behindCursor)));
    }
}

QWidget* DelayControls::TabAfter(QWidget* previous) {
    QWidget::setTabOrder(previous, box_);
    return box_;
}

void DelayControls::SetShown(bool shown) {
    for (QWidget* control : std::initializer_list<QWidget*>{label_, box_, readOut_, caption_}) {
        control->setVisible(shown);
    }
}

void DelayControls::Show(const std::string& caption, const std::string& text, const std::string& readOut,
                         UnitRedraw redraw) {
    caption_->setText(QString::fromStdString(caption));
    if (redraw == UnitRedraw::Selected) {
        loading_ = true;
        box_->setText(QString::fromStdString(text));
        loading_ = false;
        readOut_->setText(QString::fromStdString(readOut));
    }
}

void DelayControls::Place(const LayoutRect& label, const LayoutRect& box, const LayoutRect& readOut,
                          const LayoutRect& caption) {
    label_->setGeometry(ToPixels(label));
    box_->setGeometry(ToPixels(box));
    readOut_->setGeometry(ToPixels(readOut));
    caption_->setGeometry(ToPixels(caption));
}

} // namespace brindle
