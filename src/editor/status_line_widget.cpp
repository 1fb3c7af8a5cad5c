#include "editor/status_line_widget.h"

#include "platform/foreign_text.h"

#include <QPainter>
#include <QStyle>

namespace brindle {

namespace {

constexpr int StatusGap = 6;    // pixels, between sign and text
constexpr int StatusMargin = 3; // pixels, above and below the text

} // namespace

StatusLineWidget::StatusLineWidget(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("lblStatus"));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize StatusLineWidget::sizeHint() const {
    return {0, fontMetrics().height() + 2 * StatusMargin};
}

void StatusLineWidget::ShowNotices(const QStringList& notices) {
    notices_ = notices;
    setAccessibleName(notices.join(QLatin1Char(' ')));
    setToolTip(ToolTipText(notices.join(QLatin1Char('\n'))));
    update();
}

void StatusLineWidget::paintEvent(QPaintEvent* /*event*/) {
    if (notices_.isEmpty()) {
        return;
    }
    QPainter painter(this);
    const int side = fontMetrics().height();
    const QRect sign(0, (height() - side) / 2, side, side);
    style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this).paint(&painter, sign);
    const QRect place = rect().adjusted(side + StatusGap, 0, 0, 0);
    painter.setPen(palette().color(QPalette::WindowText));
    const QString text = notices_.join(QStringLiteral("   "));
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
}

} // namespace brindle
