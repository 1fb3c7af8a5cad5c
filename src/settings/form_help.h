#pragma once

#include <QWidget>

#include <functional>
#include <string>

class QLabel;
class QLineEdit;
class QListWidget;
class QToolButton;
class QUrl;

namespace brindle {

class GuideBrowserWidget;

/// The window of the user guide: its contents, a search and a way back. It is not modal, so that the guide
/// can be read while one works.
class formHelp : public QWidget {
    Q_OBJECT
  public:
    /// `openAddress` opens an address of the web that the guide links to.
    formHelp(std::function<void(const std::string& address)> openAddress, QWidget* owner);

    /// Shows the window, in front. The page stays where the user left it.
    void Open();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void BuildControls();
    QWidget* BuildBar();
    QToolButton* NewTool(const char* name, const QString& caption, const QString& tip);
    void ConnectBrowser(std::function<void(const std::string& address)> openAddress);
    void ShowContents(const QUrl& place);
    void ShowChapter(int row);

    /// Looks for the next place of the searched text, or the one before, and begins anew at the end.
    void Find(bool backward);

    GuideBrowserWidget* txtHelp_ = nullptr;
    QListWidget* lstContents_ = nullptr;
    QLineEdit* txtSearch_ = nullptr;
    QLabel* lblFound_ = nullptr;
    QToolButton* cmdBack_ = nullptr;
    QString listedPage_; ///< whose headings the contents are
};

} // namespace brindle
