#include "editor/diagram_parts_widget.h"

#include "editor/diagram_painter.h"

namespace brindle {

InvertMarkWidget::InvertMarkWidget(const QString& name, QWidget* parent) : QWidget(parent) {
    setObjectName(name);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void InvertMarkWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    DiagramPainter(painter, ColoursOf(palette())).DrawInvertMark(QRectF(rect()));
}

SetResetPictureWidget::SetResetPictureWidget(const QString& name, QWidget* parent) : QAbstractButton(parent) {
    setObjectName(name);
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
}

void SetResetPictureWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const DiagramColours colours = ColoursOf(palette());
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setPen(hasFocus() || underMouse() ? palette().color(QPalette::Highlight) : colours.Border);
    painter.setBrush(colours.Card);
    painter.drawRect(area);
    DiagramPainter(painter, colours).DrawLogicPicture(area.adjusted(4, 4, -4, -4));
}

ClickLabelWidget::ClickLabelWidget(const QString& name, QWidget* parent) : QAbstractButton(parent) {
    setObjectName(name);
    setFocusPolicy(Qt::NoFocus); // the picture beside it has the keyboard
    setCursor(Qt::PointingHandCursor);
}

void ClickLabelWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, text());
}

} // namespace brindle
