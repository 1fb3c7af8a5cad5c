#include "report/text_page_painter.h"

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>

namespace brindle {

namespace {

constexpr double UsualFontSize = 10; // points
constexpr int WidestRule = 85;       // hyphens under a unit's heading

using Lines = std::vector<std::string>;

/// The number of lines without the empty ones at the end.
std::size_t LastLine(const Lines& lines) {
    const auto last =
        std::find_if(lines.rbegin(), lines.rend(), [](const auto& line) { return !line.empty(); });
    return static_cast<std::size_t>(lines.rend() - last);
}

/// The end of the block of lines, up to the next empty one, that begins at `begin`.
std::size_t BlockEnd(const Lines& lines, std::size_t begin, std::size_t end) {
    while (begin < end && !lines.at(begin).empty()) {
        ++begin;
    }
    return begin;
}

/// Letter by letter: what is read or copied from the page are the report's own characters.
QFont PlainFont(const QString& family) {
    QFont font(family);
    font.setPointSizeF(UsualFontSize);
    font.setKerning(false);
    font.setStyleStrategy(QFont::PreferNoShaping);
    return font;
}

} // namespace

TextPagePainter::TextPagePainter(QPagedPaintDevice& device, QPainter& painter, const QString& family)
    : device_(device), painter_(painter), font_(PlainFont(family)),
      page_(device.pageLayout().paintRectPixels(device.logicalDpiY()).size()) {
    const QString rule(WidestRule, QLatin1Char('-'));
    const qreal width = QFontMetricsF(font_, &device_).horizontalAdvance(rule);
    if (width > page_.width()) {
        font_.setPointSizeF(UsualFontSize * page_.width() / width);
    }
    row_ = QFontMetricsF(font_, &device_).lineSpacing();
}

qreal TextPagePainter::SetLine(const std::string& line, qreal top, bool drawn) const {
    if (line.empty()) {
        return row_;
    }
    QTextLayout layout(QString::fromStdString(line), font_, &device_);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    qreal height = 0;
    for (QTextLine row = layout.createLine(); row.isValid(); row = layout.createLine()) {
        row.setLineWidth(page_.width());
        row.setPosition({0, height});
        height += row_;
    }
    layout.endLayout();
    if (drawn) {
        layout.draw(&painter_, {0, top});
    }
    return height;
}

qreal TextPagePainter::HeightOf(const Lines& lines, std::size_t begin, std::size_t end) const {
    qreal height = 0;
    for (std::size_t index = begin; index < end; ++index) {
        height += SetLine(lines.at(index), 0, false);
    }
    return height;
}

bool TextPagePainter::BeginPage() {
    place_ = 0;
    return device_.newPage();
}

bool TextPagePainter::PrintUnit(const Lines& lines) {
    const std::size_t end = LastLine(lines);
    if (place_ > 0 && place_ + HeightOf(lines, 0, end) > page_.height() && !BeginPage()) {
        return false;
    }
    for (std::size_t index = 0; index < end; ++index) {
        const std::string& line = lines.at(index);
        const bool blockBegins = index == 0 || lines.at(index - 1).empty();
        const std::size_t kept = blockBegins ? BlockEnd(lines, index, end) : index + 1;
        const qreal needed = HeightOf(lines, index, kept);
        if (place_ > 0 && place_ + needed > page_.height() && !BeginPage()) {
            return false;
        }
        if (place_ > 0 || !line.empty()) {
            place_ += SetLine(line, place_, true);
        }
    }
    place_ += row_ * static_cast<qreal>(lines.size() - end);
    return true;
}

} // namespace brindle
