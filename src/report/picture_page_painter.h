#pragma once

#include <QSize>
#include <QString>

#include <functional>

class QPagedPaintDevice;
class QPainter;

namespace brindle {

/// What a window shows.
struct WindowPicture {
    QSize Size;                                  ///< in pixels of the screen
    std::function<void(QPainter& painter)> Draw; ///< from (0, 0), in those pixels
};

/// Draws pictures of a window, one on a page, as large as the page has room inside its margins, below a line
/// of text: as lines and texts into a file, and as fine pixels on a printer.
class PicturePagePainter {
  public:
    /// `painter` draws on `device`, from its first page on; both outlive this one.
    PicturePagePainter(QPagedPaintDevice& device, QPainter& painter);

    /// Draws a picture below `caption`. False when the device refused a page.
    bool PrintPicture(const QString& caption, const WindowPicture& picture);

  private:
    QPagedPaintDevice& device_;
    QPainter& painter_;
    bool firstPage_ = true;
};

} // namespace brindle
