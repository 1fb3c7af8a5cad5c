#pragma once

#include <QWidget>

namespace brindle {

/// Lines of text in the room that is left over: what does not fit is cut short, and told whole by the tool
/// tip.
class IdentityLabelWidget : public QWidget {
    Q_OBJECT
  public:
    explicit IdentityLabelWidget(QWidget* parent);

    /// Lines separated by "\n"; an empty text hides the label.
    void ShowText(const QString& text);

    [[nodiscard]] const QString& Text() const { return text_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString text_;
};

} // namespace brindle
