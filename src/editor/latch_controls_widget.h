#pragma once

#include "editor/diagram_layout.h"
#include "editor/unit_view.h"

#include <functional>

class QAbstractButton;
class QLabel;
class QWidget;

/// The controls of a latch. They are children of the diagram, which draws the latch itself.
namespace brindle {

/// The captions of a latch and the picture of its other side.
class LatchControls {
  public:
    /// `onOtherSide` is called when the picture or its label is clicked.
    LatchControls(QWidget* parent, const std::function<void()>& onOtherSide);
    ~LatchControls() = default;

    LatchControls(const LatchControls&) = delete;
    LatchControls& operator=(const LatchControls&) = delete;
    LatchControls(LatchControls&&) = delete;
    LatchControls& operator=(LatchControls&&) = delete;

    QWidget* TabAfter(QWidget* previous);
    void SetShown(bool shown);
    void Show(const LatchView& view);
    void Place(const LatchLayout& layout);

  private:
    QLabel* lblS_;
    QLabel* lblR_;
    QLabel* lblQ_;
    QLabel* lblLSR_;
    QAbstractButton* pctSetReset_;
    QAbstractButton* lblSetReset_;
};

} // namespace brindle
