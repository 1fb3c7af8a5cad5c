#pragma once

#include <QString>

class QPagedPaintDevice;
class QPainter;
class QWidget;

namespace brindle {

/// Draws pictures of a window, one on a page, as lines and texts at the printer's resolution: as large as the
/// page has room inside its margins, below a line of text.
class PicturePagePainter {
  public:
    /// `painter` draws on `device`, from its first page on; all three outlive this one.
    PicturePagePainter(QPagedPaintDevice& device, QPainter& painter, QWidget& window);

    /// Draws the window as it is now, below `caption`. False when the device refused a page.
    bool PrintWindow(const QString& caption);

  private:
    QPagedPaintDevice& device_;
    QPainter& painter_;
    QWidget& window_;
    bool firstPage_ = true;
};

} // namespace brindle
