#pragma once

#include "editor/unit_view.h"

#include <QAbstractButton>

namespace brindle {

/// One label of the group or the unit strip: a number or tag on a coloured ground that is clicked to be
/// selected.
class StripLabelWidget : public QAbstractButton {
    Q_OBJECT
  public:
    StripLabelWidget(const QString& name, const QString& text, QWidget* parent);

    void ShowView(const StripLabelView& view);

    [[nodiscard]] Colour BackColour() const { return backColour_; }

    [[nodiscard]] QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Colour backColour_ = UnselectedColour;
    bool selected_ = false;
};

/// The Qt colour of a colour value in blue-green-red order.
QColor ToQColor(Colour colour);

} // namespace brindle
