#pragma once

#include "editor/unit_view.h"

#include <QPalette>
#include <QString>

class QLabel;
class QLineEdit;
class QWidget;

/// The plain controls of the diagram. They are children of the diagram, which draws the symbols themselves.
namespace brindle {

/// A caption in the diagram.
QLabel* NewDiagramLabel(QWidget* parent, const QString& name, Qt::Alignment alignment, bool bold = false);

/// A text box in the diagram that shows and does not take text.
QLineEdit* NewDiagramBox(QWidget* parent, const QString& name);

/// The colours of a text box over those of the desktop: its ground is light in every desktop, so its text is
/// dark; an idle text stands back.
QPalette BoxPalette(Colour ground, bool idle);

} // namespace brindle
