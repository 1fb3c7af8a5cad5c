#include "support/pdf_pages_window.h"

#include <QHash>
#include <QRegularExpression>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace brindle {

namespace {

constexpr double PointsPerMillimetre = 72 / 25.4;

struct PdfFont {
    QHash<int, QString> Letters;
    QHash<int, double> Widths; ///< thousandths of the font's size
};

using Objects = QHash<int, QByteArray>;

Objects ObjectsOf(const QByteArray& pdf) {
    Objects objects;
    qsizetype at = 0;
    for (qsizetype marker = pdf.indexOf(" 0 obj\n"); marker >= 0; marker = pdf.indexOf(" 0 obj\n", at)) {
        const qsizetype number = pdf.lastIndexOf('\n', marker) + 1;
        at = pdf.indexOf("endobj", marker);
        const qsizetype begin = marker + 7;
        objects.insert(pdf.mid(number, marker - number).toInt(), pdf.mid(begin, at - begin));
    }
    return objects;
}

/// The number that follows `key` in an object: "/Contents 8 0 R" has 8.
int Reference(const QByteArray& object, const char* key) {
    const QRegularExpression pattern(QString::fromLatin1(key) + QStringLiteral("\\s*\\[?\\s*(\\d+) 0 R"));
    return pattern.match(QString::fromLatin1(object)).captured(1).toInt();
}

QByteArray StreamOf(const QByteArray& object) {
    const qsizetype begin = object.indexOf("stream\n") + 7;
    QByteArray bytes = object.mid(begin, object.lastIndexOf("\nendstream") - begin);
    if (!object.left(begin).contains("/FlateDecode")) {
        return bytes;
    }
    // qUncompress wants a guess of the size before the data.
    return qUncompress(QByteArray("\0\1\0\0", 4) + bytes);
}

int Hex(const QString& digits) {
    return digits.toInt(nullptr, 16);
}

PdfFont FontOf(const Objects& objects, int number) {
    PdfFont font;
    const QString map = QString::fromLatin1(StreamOf(objects[Reference(objects[number], "/ToUnicode")]));
    static const QRegularExpression range(
        QStringLiteral("<([0-9A-Fa-f]+)>\\s*<([0-9A-Fa-f]+)>\\s*(<[0-9A-Fa-f]+>|\\[[^\\]]*\\])"));
    static const QRegularExpression code(QStringLiteral("<([0-9A-Fa-f]+)>"));
    for (auto found = range.globalMatch(map.mid(map.indexOf(QLatin1String("endcodespacerange"))));
         found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        QList<int> letters;
        for (auto codes = code.globalMatch(match.captured(3)); codes.hasNext();) {
            letters.append(Hex(codes.next().captured(1)));
        }
        const int first = Hex(match.captured(1));
        for (int glyph = first; glyph <= Hex(match.captured(2)); ++glyph) {
            const int step = glyph - first;
            const int letter = letters.size() > 1 ? letters.value(step) : letters.value(0) + step;
            // Blank and tab share their glyph, and Qt names it after the tab.
            font.Letters.insert(glyph, letter == '\t' ? QStringLiteral(" ") : QString(QChar(letter)));
        }
    }
    const QByteArray& descendant = objects[Reference(objects[number], "/DescendantFonts")];
    const qsizetype widths = descendant.indexOf("/W [0 [") + 7;
    int glyph = 0;
    for (const QByteArray& width :
         descendant.mid(widths, descendant.indexOf(']', widths) - widths).split(' ')) {
        font.Widths.insert(glyph++, width.toDouble());
    }
    return font;
}

/// Follows the drawing operators of one page.
class PageReader {
  public:
    PageReader(const Objects& objects, PdfPage& page) : objects_(objects), page_(page) {
        const QSizeF points = page.Size * PointsPerMillimetre;
        // From the file's points, counted from the bottom, to millimetres from the top.
        toPage_ = QTransform(1, 0, 0, -1, 0, points.height()) *
                  QTransform::fromScale(1 / PointsPerMillimetre, 1 / PointsPerMillimetre);
    }

    void Read(const QByteArray& content) {
        for (const QByteArray& token : content.simplified().split(' ')) {
            bool number = false;
            const double value = token.toDouble(&number);
            if (number) {
                numbers_.append(value);
            } else if (token.startsWith('/') || token.startsWith('<')) {
                name_ = token;
            } else {
                Do(token);
                numbers_.clear();
            }
        }
    }

  private:
    [[nodiscard]] double Number(qsizetype index) const { return numbers_.value(index); }

    [[nodiscard]] QTransform Matrix() const {
        return {Number(0), Number(1), Number(2), Number(3), Number(4), Number(5)};
    }

    void Do(const QByteArray& token) {
        if (token == "q") {
            saved_.append(matrix_);
        } else if (token == "Q") {
            matrix_ = saved_.isEmpty() ? QTransform() : saved_.takeLast();
        } else if (token == "cm") {
            matrix_ = Matrix() * matrix_;
        } else if (token == "Tf") {
            font_ = FontNamed(name_);
            size_ = Number(0);
        } else if (token == "Tm") {
            text_ = Matrix();
        } else if (token == "Td") {
            text_ = QTransform::fromTranslate(Number(0), Number(1)) * text_;
        } else if (token == "Tj") {
            ShowGlyphs();
        } else if (token == "Do") {
            ++page_.Images;
            AddInk({{0, 0}, {1, 1}}, matrix_);
        } else {
            FollowPath(token);
        }
    }

    void FollowPath(const QByteArray& token) {
        static const QList<QByteArray> painting{"S", "s", "f", "f*", "F", "B", "B*", "b", "b*"};
        if (token == "m" || token == "l" || token == "c") {
            for (qsizetype index = 0; index + 1 < numbers_.size(); index += 2) {
                path_.append({Number(index), Number(index + 1)});
            }
        } else if (token == "re") {
            path_.append({Number(0), Number(1)});
            path_.append({Number(0) + Number(2), Number(1) + Number(3)});
        } else if (painting.contains(token)) {
            AddInk(path_, matrix_);
            path_.clear();
        } else if (token == "n") {
            path_.clear(); // a clip
        }
    }

    void AddInk(const QList<QPointF>& points, const QTransform& matrix) {
        for (const QPointF& point : points) {
            const QPointF place = (matrix * toPage_).map(point);
            page_.Ink = page_.Ink.isNull() ? QRectF(place, QSizeF(1e-9, 1e-9))
                                           : QRectF(QPointF(std::min(page_.Ink.left(), place.x()),
                                                            std::min(page_.Ink.top(), place.y())),
                                                    QPointF(std::max(page_.Ink.right(), place.x()),
                                                            std::max(page_.Ink.bottom(), place.y())));
        }
    }

    void ShowGlyphs() {
        const QTransform place = text_ * matrix_;
        const double row = (place * toPage_).map(QPointF(0, 0)).y();
        if (!page_.Text.empty() && std::abs(row - row_) > 0.1) {
            page_.Text += '\n';
        }
        row_ = row;
        double pen = 0;
        for (qsizetype index = 1; index + 4 < name_.size(); index += 4) {
            const int glyph = Hex(QString::fromLatin1(name_.mid(index, 4)));
            page_.Text += font_.Letters.value(glyph).toStdString();
            pen += font_.Widths.value(glyph) * size_ / 1000;
        }
        AddInk({{0, 0}, {pen, 0}}, place);
    }

    PdfFont FontNamed(const QByteArray& name) {
        const int number = name.mid(2).toInt(); // "/F7" is object 7
        if (!fonts_.contains(number)) {
            fonts_.insert(number, FontOf(objects_, number));
        }
        return fonts_.value(number);
    }

    const Objects& objects_;
    PdfPage& page_;
    QTransform toPage_;
    QTransform matrix_;
    QList<QTransform> saved_;
    QList<double> numbers_;
    QByteArray name_;
    QList<QPointF> path_;
    QTransform text_;
    QHash<int, PdfFont> fonts_;
    PdfFont font_;
    double size_ = 0;
    double row_ = 0;
};

} // namespace

double PdfPage::LeastMargin() const {
    return std::min({Ink.left(), Ink.top(), Size.width() - Ink.right(), Size.height() - Ink.bottom()});
}

std::vector<PdfPage> PdfPages(const QByteArray& pdf) {
    const Objects objects = ObjectsOf(pdf);
    QList<int> numbers = objects.keys();
    std::sort(numbers.begin(), numbers.end());
    static const QRegularExpression box(QStringLiteral("/MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)\\]"));
    std::vector<PdfPage> pages;
    for (const int number : numbers) {
        if (objects[number].contains("/Type /Page\n")) {
            const auto found = box.match(QString::fromLatin1(objects[number]));
            PdfPage page;
            page.Size =
                QSizeF(found.captured(1).toDouble(), found.captured(2).toDouble()) / PointsPerMillimetre;
            PageReader(objects, page).Read(StreamOf(objects[Reference(objects[number], "/Contents")]));
            pages.push_back(page);
        }
    }
    return pages;
}

} // namespace brindle
