#pragma once

#include <QByteArray>
#include <QRectF>
#include <QSizeF>

#include <string>
#include <vector>

namespace brindle {

/// What stands on one page of a PDF file.
struct PdfPage {
    QSizeF Size;      ///< millimetres
    QRectF Ink;       ///< around all texts, lines, areas and images; millimetres from the top left corner
    std::string Text; ///< in the order in which it was drawn, a line break between rows
    int Images = 0;   ///< pixel images drawn

    /// The millimetres between the ink and the page's edges, the least of the four.
    [[nodiscard]] double LeastMargin() const;
};

/// The pages of a PDF file as Qt writes it; of any other, little will be understood.
std::vector<PdfPage> PdfPages(const QByteArray& pdf);

} // namespace brindle
