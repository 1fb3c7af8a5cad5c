#include "report/picture_page_painter.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>

#include <algorithm>

namespace brindle {

namespace {

constexpr double CaptionSize = 9;     // points
constexpr double PixelsPerInch = 600; // on a printer
constexpr double CaptionGap = 0.5;    // of the caption's height, between it and the picture

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

/// Widgets give a printer pixels alone; left to themselves as many as it has dots, half a gigabyte a page.
void DrawPixels(QPainter& painter, const WindowPicture& picture, qreal scale) {
    QImage pixels((QSizeF(picture.Size) * scale).toSize(), QImage::Format_RGB32);
    pixels.fill(Qt::white);
    QPainter onPixels(&pixels);
    onPixels.setRenderHint(QPainter::Antialiasing);
    onPixels.scale(scale, scale);
    picture.Draw(onPixels);
    onPixels.end();
    painter.drawImage(QRectF(QPointF(), QSizeF(picture.Size)), pixels);
}

} // namespace

PicturePagePainter::PicturePagePainter(QPagedPaintDevice& device, QPainter& painter)
    : device_(device), painter_(painter) {}

bool PicturePagePainter::PrintPicture(const QString& caption, const WindowPicture& picture) {
    if (!firstPage_ && !device_.newPage()) {
        return false;
    }
    firstPage_ = false;
    const QSizeF page(device_.pageLayout().paintRectPixels(device_.logicalDpiY()).size());
    painter_.save();
    const qreal top = DrawCaption(painter_, device_, page, caption);
    const QSizeF size(picture.Size);
    const qreal scale = std::min(page.width() / size.width(), (page.height() - top) / size.height());
    painter_.translate((page.width() - size.width() * scale) / 2, top);
    painter_.scale(scale, scale);
    if (device_.devType() == QInternal::Printer) {
        DrawPixels(painter_, picture, scale * PixelsPerInch / device_.logicalDpiY());
    } else {
        picture.Draw(painter_);
    }
    painter_.restore();
    return true;
}

} // namespace brindle
