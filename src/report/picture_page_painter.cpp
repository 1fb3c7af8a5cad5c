#include "report/picture_page_painter.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QWidget>

#include <algorithm>

namespace brindle {

namespace {

constexpr double CaptionSize = 9;  // points
constexpr double CaptionGap = 0.5; // of the caption's height, between it and the picture

/// Draws the caption at the top of the page and returns where the picture may begin.
qreal DrawCaption(QPainter& painter, QPagedPaintDevice& device, const QSizeF& page, const QString& caption) {
    QFont font;
    font.setPointSizeF(CaptionSize);
    painter.setFont(font);
    const int flags = Qt::TextWrapAnywhere | Qt::AlignHCenter | Qt::AlignTop;
    QRectF used;
    painter.drawText(QRectF(QPointF(0, 0), page), flags, caption, &used);
    return used.bottom() + CaptionGap * QFontMetricsF(font, &device).height();
}

} // namespace

PicturePagePainter::PicturePagePainter(QPagedPaintDevice& device, QPainter& painter, QWidget& window)
    : device_(device), painter_(painter), window_(window) {}

bool PicturePagePainter::PrintWindow(const QString& caption) {
    if (!firstPage_ && !device_.newPage()) {
        return false;
    }
    firstPage_ = false;
    const QSizeF page(device_.pageLayout().paintRectPixels(device_.logicalDpiY()).size());
    painter_.save();
    const qreal top = DrawCaption(painter_, device_, page, caption);
    const QSizeF picture(window_.size());
    const qreal scale = std::min(page.width() / picture.width(), (page.height() - top) / picture.height());
    painter_.translate((page.width() - picture.width() * scale) / 2, top);
    painter_.scale(scale, scale);
    window_.render(&painter_, QPoint(), QRegion(), QWidget::DrawWindowBackground | QWidget::DrawChildren);
    painter_.restore();
    return true;
}

} // namespace brindle
