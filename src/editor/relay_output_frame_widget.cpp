#include "editor/relay_output_frame_widget.h"

#include "editor/diagram_painter.h"
#include "editor/menu_tree.h"

#include <QCheckBox>
#include <QEvent>

namespace brindle {

RelayOutputFrameWidget::RelayOutputFrameWidget(QWidget* parent)
    : QGroupBox(QStringLiteral("Map Relay"), parent) {
    setObjectName(QStringLiteral("fraMapRelayOutput"));
}

QCheckBox* RelayOutputFrameWidget::NewBox(int output) {
    auto* box = new QCheckBox(this);
    box->setObjectName(QString::fromStdString(ElementName("cbxOutputMap", output)));
    box->setAccessibleName(QStringLiteral("Relay output %1").arg(output));
    // Shows the mapping without changing it: not greyed, since it is there to be read.
    box->setAttribute(Qt::WA_TransparentForMouseEvents);
    box->setFocusPolicy(Qt::NoFocus);
    return box;
}

void RelayOutputFrameWidget::ShowLayout(const OutputMapLayout& layout) {
    widthTwips_ = layout.FrameWidth;
    heightTwips_ = layout.FrameHeight;
    for (const auto& [output, box] : cbxOutputMap_) {
        box->hide();
    }
    for (const OutputBoxLayout& place : layout.Boxes) {
        QCheckBox*& box = cbxOutputMap_[place.Output];
        if (box == nullptr) {
            box = NewBox(place.Output);
        }
        box->setText(QString::fromStdString(place.Caption));
        box->setGeometry(TwipsToPixels(place.Left), TwipsToPixels(place.Top), TwipsToPixels(place.Width),
                         TwipsToPixels(place.Height));
        box->show();
    }
    ColourBoxes();
}

void RelayOutputFrameWidget::ShowOutputs(const std::map<int, bool>& outputs) {
    for (const auto& [output, ticked] : outputs) {
        cbxOutputMap_.at(output)->setChecked(ticked);
    }
}

void RelayOutputFrameWidget::ColourBoxes() {
    // On the dark card of a dark desktop an empty box would be dark on dark.
    const DiagramColours colours = ColoursOf(palette());
    QPalette boxes = palette();
    boxes.setColor(QPalette::Base, colours.Field);
    for (const auto& [output, box] : cbxOutputMap_) {
        box->setPalette(boxes);
    }
}

void RelayOutputFrameWidget::changeEvent(QEvent* event) {
    QGroupBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        ColourBoxes();
    }
}

} // namespace brindle
