#pragma once

#include "editor/diagram_layout.h"
#include "settings/screen_scale.h"

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

/// The artwork of the unit diagram: gates, timer, latch and wires, drawn from their layout.
namespace brindle {

QRect ToPixels(const LayoutRect& rect);

/// Colours of the drawing, taken from the desktop's palette so that it reads well in light and dark.
struct DiagramColours {
    QColor Card;          ///< behind the diagram
    QColor Border;        ///< of the card
    QColor Line;          ///< wires and outlines
    QColor Symbol;        ///< inside gates, timer and latch
    QColor Caption;       ///< text in symbols
    QColor Field;         ///< inside an empty check box
    QColor Choice;        ///< caption of a check box: black on a light ground
    QColor FocusedChoice; ///< the same with the keyboard: blue
};

DiagramColours ColoursOf(const QPalette& palette);

/// Draws with lines of one weight that fall on whole device pixels.
class DiagramPainter {
  public:
    DiagramPainter(QPainter& painter, const DiagramColours& colours);

    void DrawWire(const LayoutWire& wire);
    void DrawAndGate(const LayoutRect& gate);
    void DrawOrGate(const LayoutRect& gate);
    void DrawTimer(const LayoutRect& symbol);
    void DrawBox(const LayoutRect& symbol);

    /// Small AND gates into an OR gate: the picture of the latch's other side.
    void DrawLogicPicture(const QRectF& area);

    /// The head of an arrow that points to the left, its tip at `tip`.
    void DrawArrowToLeft(const LayoutPoint& tip);

    /// The dot where a wire branches off.
    void DrawBranch(const LayoutPoint& at);

    void DrawInvertMark(const QRectF& area);

  private:
    [[nodiscard]] QRectF Aligned(const QRectF& rect) const;
    void DrawOutline(const QPainterPath& path);

    QPainter& painter_;
    DiagramColours colours_;
    qreal lineWidth_;
    qreal shift_; ///< from a grid line to the middle of the line drawn on it
};

} // namespace brindle
