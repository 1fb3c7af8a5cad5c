#pragma once

#include "editor/diagram_layout.h"
#include "editor/editor.h"
#include "editor/latch_controls_widget.h"
#include "editor/relay_output_map.h"
#include "editor/timer_delay_widget.h"
#include "editor/unit_view.h"

#include <QWidget>

#include <array>
#include <functional>

class QLabel;
class QLineEdit;

namespace brindle {

class DiagramPainter;
class InvertMarkWidget;
class RelayOutputFrameWidget;

/// What the diagram tells of. Inputs count from 1 to 16.
struct DiagramEvents {
    std::function<void(int input)> InputSelected; ///< by pointer or keyboard
    std::function<void(int input)> InputClicked;  ///< by the pointer, after it was selected
    std::function<void(int input)> InputFlipped;  ///< double-clicked, or by its key
    std::function<void()> SetResetClicked;        ///< the picture or the label of the latch's other side
    std::function<void(int output, bool ticked)> OutputClicked;
    DelayEvents PickUp;
    DelayEvents DropOut;
};

/// The diagram of one unit: its controls, placed by the layout and filled from the view, over the drawn gates
/// and wires. Decides nothing.
class UnitDiagramWidget : public QWidget {
    Q_OBJECT
  public:
    UnitDiagramWidget(QWidget* parent, DiagramEvents events);

    /// The output boxes follow `layout`.
    void ShowOutputMap(const OutputMapLayout& layout);
    void ShowUnit(const UnitView& view, UnitRedraw redraw);

    /// Gives `input` the keyboard, without telling InputSelected.
    void FocusInput(int input);

    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void CreateInputs();
    void CreateGates();
    void CopyInput(std::size_t index, const InputView& input);
    [[nodiscard]] int InputOf(const QObject* box) const;
    /// Measuring texts takes its time, so what is not yet shown is placed once, when it is.
    void PlaceVisibleControls();
    void PlaceControls();
    void FitInputText(QLineEdit& box);
    void DrawFeedback(DiagramPainter& diagram) const;

    DiagramEvents events_;
    bool loading_ = false; ///< a unit is being shown: what happens to controls now is not the user's doing
    UnitView view_;
    DiagramLayout layout_;

    std::array<QLineEdit*, InputsPerUnit> txtPlo_{};
    std::array<QLabel*, InputsPerUnit> lblInputLine_{};
    std::array<InvertMarkWidget*, InputsPerUnit> shpInvert_{};
    std::array<QLabel*, GatesPerUnit> lblAND_{};
    QLabel* lblOR_ = nullptr;
    QLabel* pctTimerLatchFB_ = nullptr;
    DelayControls pickUp_;
    DelayControls dropOut_;
    LatchControls latch_;
    RelayOutputFrameWidget* fraMapRelayOutput_;
};

} // namespace brindle
