#include "editor/strip_label_widget.h"

#include <QPainter>

namespace brindle {

QColor ToQColor(Colour colour) {
    return {static_cast<int>(colour & 0xFFU), static_cast<int>(colour >> 8U & 0xFFU),
            static_cast<int>(colour >> 16U & 0xFFU)};
}

StripLabelWidget::StripLabelWidget(const QString& name, const QString& text, QWidget* parent)
    : QAbstractButton(parent) {
    setObjectName(name);
    setText(text);
    setCheckable(false);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void StripLabelWidget::ShowView(const StripLabelView& view) {
    setVisible(view.Visible);
    selected_ = view.Checked;
    setAccessibleDescription(selected_ ? QStringLiteral("shown") : QString());
    backColour_ = view.BackColour;
    update();
}

QSize StripLabelWidget::sizeHint() const {
    const QSize text = fontMetrics().size(Qt::TextSingleLine, QStringLiteral("S2"));
    return {text.width() + 20, text.height() + 10};
}

void StripLabelWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ground = ToQColor(backColour_);
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setBrush(isDown() || underMouse() ? ground.darker(106) : ground);
    painter.setPen(
        QPen(hasFocus() ? palette().color(QPalette::Highlight) : ground.darker(selected_ ? 180 : 130),
             hasFocus() ? 2 : 1));
    painter.drawRoundedRect(area, 3, 3);
    // The grounds are light whatever the desktop's palette, so their text is dark.
    painter.setPen(QColor(20, 26, 36));
    QFont labelFont = font();
    labelFont.setBold(selected_);
    painter.setFont(labelFont);
    painter.drawText(rect(), Qt::AlignCenter, text());
}

} // namespace brindle
