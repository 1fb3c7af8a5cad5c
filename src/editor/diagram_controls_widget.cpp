#include "editor/diagram_controls_widget.h"

#include "editor/strip_label_widget.h"

#include <QLabel>
#include <QLineEdit>

namespace brindle {

QLabel* NewDiagramLabel(QWidget* parent, const QString& name, Qt::Alignment alignment, bool bold) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setAlignment(alignment | Qt::AlignVCenter);
    label->setTextFormat(Qt::PlainText);
    QFont font = label->font();
    font.setBold(bold);
    label->setFont(font);
    return label;
}

QLineEdit* NewDiagramBox(QWidget* parent, const QString& name) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(name);
    box->setReadOnly(true);
    box->setTextMargins(3, 0, 3, 0);
    return box;
}

QPalette BoxPalette(Colour ground, bool idle) {
    QPalette palette;
    palette.setColor(QPalette::Base, ToQColor(ground));
    palette.setColor(QPalette::Text, idle ? QColor(92, 98, 108) : QColor(16, 20, 28));
    return palette;
}

} // namespace brindle
