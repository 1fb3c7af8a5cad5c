#pragma once

#include <QList>
#include <QString>
#include <QTextBrowser>

namespace brindle {

/// A heading of a page, and the anchor that links to it name.
struct GuideHeading {
    QString Text;
    QString Anchor;
    int Level = 1; ///< 1 for the page's title
};

/// Shows pages of Markdown that are built into the program, with the pictures in them. Links between pages
/// and to headings work as they do where the pages are read on the web; all others are left to who listens to
/// anchorClicked.
class GuideBrowserWidget : public QTextBrowser {
    Q_OBJECT
  public:
    explicit GuideBrowserWidget(QWidget* parent = nullptr);

    /// Shows a page or, with a fragment, a heading of it.
    void ShowPage(const QUrl& page);

    /// The headings of the shown page, in order.
    [[nodiscard]] QList<GuideHeading> Headings() const;

    /// There is such a page, built into the program.
    [[nodiscard]] static bool HasPage(const QUrl& page);

  protected:
    QVariant loadResource(int type, const QUrl& name) override;

  private:
    /// Gives a page just loaded its anchors and the looks that Markdown does not tell of.
    void Dress(const QUrl& page);
};

} // namespace brindle
