#pragma once

#include <QFont>
#include <QSizeF>

#include <string>
#include <vector>

class QPagedPaintDevice;
class QPainter;

namespace brindle {

/// Sets the report of unit after unit on pages, within the margins of the device's page layout. A unit that
/// would be split begins a new page; one higher than a page is split between its blocks. A line wider than
/// the page is continued below.
class TextPagePainter {
  public:
    /// `painter` draws on `device`, from its first page on; both outlive this one. `family` names the font.
    TextPagePainter(QPagedPaintDevice& device, QPainter& painter, const QString& family);

    /// Sets one unit's lines. False when the device refused a page.
    bool PrintUnit(const std::vector<std::string>& lines);

    /// Of the text, in points: the usual size, or what is needed for the rules to fit the page.
    [[nodiscard]] double FontSize() const { return font_.pointSizeF(); }

  private:
    /// The height of a line that is set on as many rows as it needs; drawn at `top` when `drawn`.
    qreal SetLine(const std::string& line, qreal top, bool drawn) const;
    [[nodiscard]] qreal HeightOf(const std::vector<std::string>& lines, std::size_t begin,
                                 std::size_t end) const;
    bool BeginPage();

    QPagedPaintDevice& device_;
    QPainter& painter_;
    QFont font_;
    QSizeF page_;     ///< inside the margins, in the device's pixels
    qreal row_ = 0;   ///< height of a row of text
    qreal place_ = 0; ///< where the next line goes
};

} // namespace brindle
