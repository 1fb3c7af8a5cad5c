#include "editor/identity_label_widget.h"

#include "platform/foreign_text.h"

#include <QPainter>

namespace brindle {

IdentityLabelWidget::IdentityLabelWidget(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("lblIdentity"));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    hide();
}

void IdentityLabelWidget::ShowText(const QString& text) {
    text_ = text;
    SetForeignToolTip(*this, text);
    setAccessibleName(text);
    setVisible(!text.isEmpty());
    update();
}

void IdentityLabelWidget::paintEvent(QPaintEvent* /*event*/) {
    const QStringList lines = text_.split(QLatin1Char('\n'));
    QFont small = font();
    small.setPointSizeF(font().pointSizeF() * 0.9);
    QPainter painter(this);
    painter.setFont(small);
    painter.setPen(palette().color(QPalette::WindowText));
    const QFontMetrics metrics(small);
    // Four lines beside two rows of buttons stand a little closer than they would by themselves.
    const int step = std::min(metrics.lineSpacing(), height() / static_cast<int>(lines.size()));
    int top = (height() - step * static_cast<int>(lines.size())) / 2;
    for (const QString& line : lines) {
        painter.drawText(QRect(0, top, width(), metrics.height()), Qt::AlignRight | Qt::AlignTop,
                         metrics.elidedText(line, Qt::ElideMiddle, width()));
        top += step;
    }
}

} // namespace brindle
