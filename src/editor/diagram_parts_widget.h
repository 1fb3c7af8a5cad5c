#pragma once

#include <QAbstractButton>
#include <QWidget>

namespace brindle {

/// The circle that marks an inverted input.
class InvertMarkWidget : public QWidget {
    Q_OBJECT
  public:
    InvertMarkWidget(const QString& name, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The small picture of the logic that drives the latch's other side; a click opens that side.
class SetResetPictureWidget : public QAbstractButton {
    Q_OBJECT
  public:
    SetResetPictureWidget(const QString& name, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// Text that is clicked like the picture beside it; wraps where it must.
class ClickLabelWidget : public QAbstractButton {
    Q_OBJECT
  public:
    ClickLabelWidget(const QString& name, QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace brindle
