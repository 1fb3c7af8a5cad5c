#include "settings/guide_browser_widget.h"

#include <QFile>
#include <QImage>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextFrame>
#include <QTextTable>

#include <algorithm>

namespace brindle {

namespace {

constexpr int GreatestPictureWidth = 620; // device-independent pixels; fits the page of a window as it opens

/// The anchor of a heading, by the rule of the web sites that show Markdown: lower case, blanks become "-",
/// other punctuation goes.
QString AnchorOf(const QString& heading) {
    QString anchor;
    for (const QChar c : heading.toLower()) {
        if (c.isLetterOrNumber() || c == QLatin1Char('-') || c == QLatin1Char('_')) {
            anchor += c;
        } else if (c == QLatin1Char(' ')) {
            anchor += QLatin1Char('-');
        }
    }
    return anchor;
}

void DressTables(const QTextFrame& frame) {
    for (QTextFrame* child : frame.childFrames()) {
        if (auto* table = qobject_cast<QTextTable*>(child)) {
            QTextTableFormat format = table->format();
            format.setCellPadding(4);
            format.setCellSpacing(0);
            format.setBorder(1);
            format.setBorderCollapse(true);
            table->setFormat(format);
        }
        DressTables(*child);
    }
}

/// The theme's colour of links; lighter where a dark theme has left it dark.
QColor LinkColour(const QPalette& palette) {
    const QColor link = palette.color(QPalette::Link);
    const bool tooDark = palette.color(QPalette::Base).lightness() < 128 && link.lightness() < 160;
    return tooDark ? QColor::fromHsl(link.hslHue(), link.hslSaturation(), 190) : link;
}

void DressLinks(QTextDocument& page, const QColor& colour) {
    QTextCharFormat link;
    link.setForeground(colour);
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        QList<QTextCursor> links; // what is formatted is not walked at the same time
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            if (!piece.fragment().charFormat().anchorHref().isEmpty()) {
                QTextCursor cursor(block);
                cursor.setPosition(piece.fragment().position());
                cursor.setPosition(piece.fragment().position() + piece.fragment().length(),
                                   QTextCursor::KeepAnchor);
                links.push_back(cursor);
            }
        }
        for (QTextCursor& cursor : links) {
            cursor.mergeCharFormat(link);
        }
    }
}

/// Gives each heading its anchor.
void AddAnchors(QTextDocument& page) {
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0 && !block.text().isEmpty()) {
            QTextCharFormat anchor;
            anchor.setAnchor(true);
            anchor.setAnchorNames({AnchorOf(block.text())});
            QTextCursor heading(block);
            heading.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
            heading.mergeCharFormat(anchor);
        }
    }
}

} // namespace

GuideBrowserWidget::GuideBrowserWidget(QWidget* parent) : QTextBrowser(parent) {
    setOpenLinks(false);
    document()->setDocumentMargin(12);
    connect(this, &QTextBrowser::sourceChanged, this, [this](const QUrl& page) { Dress(page); });
    connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
        if (HasPage(link)) {
            ShowPage(link);
        }
    });
}

bool GuideBrowserWidget::HasPage(const QUrl& page) {
    return page.scheme() == QLatin1String("qrc") && QFile::exists(QLatin1Char(':') + page.path());
}

void GuideBrowserWidget::ShowPage(const QUrl& page) {
    setSource(page, QTextDocument::MarkdownResource);
}

QList<GuideHeading> GuideBrowserWidget::Headings() const {
    QList<GuideHeading> headings;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level > 0) {
            headings.push_back({block.text(), AnchorOf(block.text()), level});
        }
    }
    return headings;
}

void GuideBrowserWidget::Dress(const QUrl& page) {
    AddAnchors(*document());
    DressLinks(*document(), LinkColour(palette()));
    DressTables(*document()->rootFrame());
    if (page.hasFragment()) {
        scrollToAnchor(page.fragment()); // it was not there yet when the page was loaded
    }
}

QVariant GuideBrowserWidget::loadResource(int type, const QUrl& name) {
    QVariant resource = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::ImageResource) {
        return resource;
    }
    QImage picture = QImage::fromData(resource.toByteArray());
    if (picture.isNull()) {
        return resource;
    }
    // As sharp as the screen can show it, but no larger on a screen of finer pixels.
    const int shown = std::min(picture.width(), GreatestPictureWidth);
    const int pixels = qRound(shown * devicePixelRatioF());
    if (pixels != picture.width()) {
        picture = picture.scaledToWidth(pixels, Qt::SmoothTransformation);
    }
    picture.setDevicePixelRatio(devicePixelRatioF());
    return picture;
}

} // namespace brindle
