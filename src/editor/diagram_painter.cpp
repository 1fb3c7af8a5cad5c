#include "editor/diagram_painter.h"

#include <cmath>

namespace brindle {

namespace {

QColor Blend(const QColor& a, const QColor& b, qreal share) {
    const auto mix = [share](int from, int to) {
        return static_cast<int>(std::lround(from + (to - from) * share));
    };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

QPainterPath AndGatePath(const QRectF& gate) {
    const qreal arc = std::min(gate.width() * 1.1, gate.height());
    const qreal straight = gate.right() - arc / 2;
    QPainterPath path(gate.topLeft());
    path.lineTo(straight, gate.top());
    path.arcTo(QRectF(straight - arc / 2, gate.top(), arc, gate.height()), 90, -180);
    path.lineTo(gate.bottomLeft());
    path.closeSubpath();
    return path;
}

QPainterPath OrGatePath(const QRectF& gate, qreal depth) {
    const qreal middle = gate.center().y();
    const qreal shoulder = gate.left() + gate.width() * 0.42;
    const qreal nose = gate.right() - gate.width() * 0.16;
    QPainterPath path(gate.topLeft());
    path.cubicTo(shoulder, gate.top(), nose, middle - gate.height() * 0.24, gate.right(), middle);
    path.cubicTo(nose, middle + gate.height() * 0.24, shoulder, gate.bottom(), gate.left(), gate.bottom());
    // A parabola through both corners: its control point lies twice as deep as its vertex.
    path.quadTo(gate.left() + 2 * depth, middle, gate.left(), gate.top());
    path.closeSubpath();
    return path;
}

} // namespace

QRect ToPixels(const LayoutRect& rect) {
    return {TwipsToPixels(rect.Left), TwipsToPixels(rect.Top), TwipsToPixels(rect.Width),
            TwipsToPixels(rect.Height)};
}

DiagramColours ColoursOf(const QPalette& palette) {
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    const QColor text = palette.color(QPalette::Active, QPalette::Text);
    const bool dark = base.lightness() < text.lightness();
    DiagramColours colours;
    colours.Card = base;
    colours.Border = Blend(base, text, 0.2);
    colours.Line = dark ? Blend(text, QColor(150, 190, 240), 0.5) : Blend(text, QColor(50, 90, 140), 0.6);
    colours.Symbol =
        dark ? Blend(base, QColor(60, 100, 160), 0.35) : Blend(base, QColor(200, 224, 250), 0.35);
    colours.Caption = text;
    colours.Field = dark ? Blend(base, text, 0.22) : base;
    colours.Choice = dark ? text : QColor(0, 0, 0);
    colours.FocusedChoice = dark ? QColor(138, 180, 255) : QColor(0, 0, 255);
    return colours;
}

DiagramPainter::DiagramPainter(QPainter& painter, const DiagramColours& colours)
    : painter_(painter), colours_(colours) {
    constexpr qreal wantedWidth = 1.5;
    const qreal ratio = painter.device()->devicePixelRatioF();
    const qreal devicePixels = std::max(1.0, std::round(wantedWidth * ratio));
    lineWidth_ = devicePixels / ratio;
    shift_ = static_cast<int>(devicePixels) % 2 == 1 ? 0.5 / ratio : 0;
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(QPen(colours_.Line, lineWidth_, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter_.setBrush(colours_.Symbol);
}

QRectF DiagramPainter::Aligned(const QRectF& rect) const {
    return rect.translated(shift_, shift_);
}

void DiagramPainter::DrawOutline(const QPainterPath& path) {
    painter_.drawPath(path.translated(shift_, shift_));
}

void DiagramPainter::DrawWire(const LayoutWire& wire) {
    QPolygonF line;
    for (const LayoutPoint& point : wire) {
        line << QPointF(TwipsToPixels(point.X) + shift_, TwipsToPixels(point.Y) + shift_);
    }
    painter_.save();
    painter_.setBrush(Qt::NoBrush);
    painter_.drawPolyline(line);
    painter_.restore();
}

void DiagramPainter::DrawAndGate(const LayoutRect& gate) {
    DrawOutline(AndGatePath(QRectF(ToPixels(gate))));
}

void DiagramPainter::DrawOrGate(const LayoutRect& gate) {
    DrawOutline(OrGatePath(QRectF(ToPixels(gate)), TwipsToPixels(OrGateGreatestDepth(gate))));
}

void DiagramPainter::DrawTimer(const LayoutRect& symbol) {
    const QRectF box = Aligned(QRectF(ToPixels(symbol)));
    painter_.drawRect(box);
    painter_.drawLine(box.bottomLeft(), box.topRight());
}

void DiagramPainter::DrawBox(const LayoutRect& symbol) {
    painter_.drawRect(Aligned(QRectF(ToPixels(symbol))));
}

void DiagramPainter::DrawLogicPicture(const QRectF& area) {
    const qreal gateWidth = std::floor(area.width() * 0.32);
    const qreal gateHeight = std::floor(area.height() * 0.34);
    const qreal orWidth = std::floor(area.width() * 0.38);
    const QRectF orGate(area.right() - orWidth, area.top() + std::floor(area.height() * 0.2), orWidth,
                        std::floor(area.height() * 0.6));
    for (const qreal top : {area.top() + 1, area.bottom() - gateHeight - 1}) {
        const QRectF gate(area.left(), top, gateWidth, gateHeight);
        const qreal pin = top < area.center().y() ? orGate.top() + orGate.height() / 4
                                                  : orGate.bottom() - orGate.height() / 4;
        const qreal bend = std::round((gate.right() + orGate.left()) / 2);
        QPainterPath wire(QPointF(gate.right(), gate.center().y()));
        wire.lineTo(bend, gate.center().y());
        wire.lineTo(bend, pin);
        wire.lineTo(orGate.left() + orWidth / 6, pin);
        painter_.save();
        painter_.setBrush(Qt::NoBrush);
        DrawOutline(wire);
        painter_.restore();
        DrawOutline(AndGatePath(gate));
    }
    DrawOutline(OrGatePath(orGate, orWidth / 5));
}

void DiagramPainter::DrawArrowToLeft(const LayoutPoint& tip) {
    constexpr qreal length = 8;
    constexpr qreal half = 4;
    const QPointF point(TwipsToPixels(tip.X) + shift_, TwipsToPixels(tip.Y) + shift_);
    painter_.save();
    painter_.setBrush(colours_.Line);
    painter_.drawPolygon(QPolygonF{point, point + QPointF(length, -half), point + QPointF(length, half)});
    painter_.restore();
}

void DiagramPainter::DrawBranch(const LayoutPoint& at) {
    constexpr qreal radius = 2.5;
    painter_.save();
    painter_.setBrush(colours_.Line);
    painter_.drawEllipse(QPointF(TwipsToPixels(at.X) + shift_, TwipsToPixels(at.Y) + shift_), radius, radius);
    painter_.restore();
}

void DiagramPainter::DrawInvertMark(const QRectF& area) {
    painter_.setBrush(colours_.Card);
    const qreal inset = lineWidth_ / 2;
    painter_.drawEllipse(area.adjusted(inset, inset, -inset, -inset));
}

} // namespace brindle
