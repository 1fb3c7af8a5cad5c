#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

namespace brindle {

/// The line at the foot of the main window: what the user ought to know of the file, without being stopped.
/// One line high whatever it says, so that nothing moves when it speaks up; what does not fit is in its tool
/// tip.
class StatusLineWidget : public QWidget {
    Q_OBJECT
  public:
    explicit StatusLineWidget(QWidget* parent);

    /// Shows these sentences, with a warning sign before them; nothing for none.
    void ShowNotices(const QStringList& notices);

    [[nodiscard]] const QStringList& Notices() const { return notices_; }

    [[nodiscard]] QSize sizeHint() const override;

    [[nodiscard]] QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QStringList notices_;
};

} // namespace brindle
