#pragma once

#include "editor/relay_output_map.h"

#include <QGroupBox>

#include <functional>
#include <map>

class QCheckBox;

namespace brindle {

/// The frame "Map Relay" with one check box per relay output of the open file.
class RelayOutputFrameWidget : public QGroupBox {
    Q_OBJECT
  public:
    explicit RelayOutputFrameWidget(QWidget* parent);

    /// Called with the output whose box the user ticked or unticked.
    std::function<void(int output, bool ticked)> OnOutputClicked;

    /// Places one box per output of `layout` and hides all others.
    void ShowLayout(const OutputMapLayout& layout);

    /// Ticks the boxes by output number; each stands in the layout.
    void ShowOutputs(const std::map<int, bool>& outputs);

    /// The frame's size in twips, as it is drawn.
    [[nodiscard]] int WidthTwips() const { return widthTwips_; }

    [[nodiscard]] int HeightTwips() const { return heightTwips_; }

  protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QCheckBox* NewBox(int output);
    void ColourBox(QCheckBox& box);
    void ColourBoxes();

    std::map<int, QCheckBox*> cbxOutputMap_;
    int widthTwips_ = 0;
    int heightTwips_ = 0;
};

} // namespace brindle
