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

/// The plain controls of the diagram, and those of a latch. They are children of the diagram, which draws the
/// symbols themselves.
namespace brindle {

/// A caption in the diagram.
QLabel* NewDiagramLabel(QWidget* parent, const QString& name, Qt::Alignment alignment, bool bold = false);

/// A text box in the diagram that shows and does not take text.
QLineEdit* NewDiagramBox(QWidget* parent, const QString& name);

/// The colours of a text box over those of the desktop: its ground is light in every desktop, so its text is
/// dark; an idle text stands back.
QPalette BoxPalette(Colour ground, bool idle);

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
