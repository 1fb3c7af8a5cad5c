#pragma once

#include "editor/diagram_layout.h"
#include "editor/editor.h"
#include "editor/unit_view.h"

#include <QPalette>
#include <QString>

#include <functional>

class QAbstractButton;
class QLabel;
class QLineEdit;
class QWidget;

/// The controls of the diagram's right half: those of a timer's two delays and those of a latch. They are
/// children of the diagram, which draws the symbols themselves.
namespace brindle {

/// A caption in the diagram.
QLabel* NewDiagramLabel(QWidget* parent, const QString& name, Qt::Alignment alignment, bool bold = false);

/// A text box in the diagram that shows and does not take text.
QLineEdit* NewDiagramBox(QWidget* parent, const QString& name);

/// The palette of a text box: its ground is light whatever the desktop's palette, so its text is dark; an
/// idle text stands back.
QPalette BoxPalette(const QPalette& base, Colour ground, bool idle);

/// One delay of a timer: its label, box and read-out, and its caption in the timer's symbol.
class DelayControls {
  public:
    /// `letters` are "PU" or "DO", as in the controls' names.
    DelayControls(QWidget* parent, const QString& letters, const QString& label);

    /// Comes after `previous` in the order of the Tab key; returns what the next control comes after.
    QWidget* TabAfter(QWidget* previous);
    void SetShown(bool shown);
    void Show(const std::string& caption, const std::string& text, const std::string& readOut,
              UnitRedraw redraw);
    void Place(const LayoutRect& label, const LayoutRect& box, const LayoutRect& readOut,
               const LayoutRect& caption);

  private:
    QLabel* label_;   ///< lblTimerPU, lblTimerDO
    QLineEdit* box_;  ///< txtTimerPU, txtTimerDO
    QLabel* readOut_; ///< lblPUTime, lblDOTime
    QLabel* caption_; ///< lblTPU, lblTDO
};

/// The captions of a latch and the picture of its other side.
class LatchControls {
  public:
    /// `onOtherSide` is called when the picture or its label is clicked.
    LatchControls(QWidget* parent, const std::function<void()>& onOtherSide);

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
