#include "editor/form_plg.h"
#include "editor/unit_diagram_widget.h"
#include "report/picture_page_painter.h"

#include <QLabel>
#include <QPainter>

#include <algorithm>

/// The picture of the main window that is printed.
namespace brindle {

namespace {

/// While it lives, a widget and all in it are drawn as on a light desktop. Nothing of it is seen on the
/// screen as long as no events are handled meanwhile.
class LightColours {
  public:
    explicit LightColours(QWidget& widget) : widget_(widget) {
        widget_.setPalette(QPalette(QColor(236, 236, 236), QColor(Qt::white))); // buttons, ground
    }

    LightColours(const LightColours&) = delete;
    LightColours& operator=(const LightColours&) = delete;
    LightColours(LightColours&&) = delete;
    LightColours& operator=(LightColours&&) = delete;

    ~LightColours() { widget_.setPalette(QPalette()); }

  private:
    QWidget& widget_;
};

/// Draws a widget as it is in another size.
void DrawResized(QPainter& painter, QWidget& widget, int top, QSize size) {
    const QSize before = widget.size();
    const QSize least = widget.minimumSize();
    const QSize greatest = widget.maximumSize();
    widget.setFixedSize(size); // else what scrolls it would give it its own
    widget.render(&painter, QPoint(0, top), QRegion(), QWidget::DrawChildren);
    widget.setMinimumSize(least);
    widget.setMaximumSize(greatest);
    widget.resize(before);
}

} // namespace

WindowPicture formPLG::Picture() {
    constexpr int gap = 8; // pixels, as in the window
    const QSize least = diagram_->minimumSizeHint();
    const int width = std::max({usualSize_.width(), least.width(), header_->minimumSizeHint().width()});
    const QSize header(width, header_->minimumSizeHint().height());
    const QSize caption(width, lblSelectedInput_->minimumSizeHint().height());
    const int captionTop = header.height() + gap;
    const int diagramTop = captionTop + caption.height() + gap;
    const QSize diagram(width, std::max(usualSize_.height() - diagramTop, least.height()));
    const auto draw = [=, this](QPainter& painter) {
        const LightColours light(*centralWidget());
        DrawResized(painter, *header_, 0, header);
        DrawResized(painter, *lblSelectedInput_, captionTop, caption);
        DrawResized(painter, *diagram_, diagramTop, diagram);
    };
    return {{width, diagramTop + diagram.height()}, draw};
}

} // namespace brindle
