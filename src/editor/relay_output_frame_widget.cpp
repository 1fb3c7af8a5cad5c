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
    box->installEventFilter(this);
    connect(box, &QCheckBox::clicked, this, [this, output](bool ticked) { OnOutputClicked(output, ticked); });
    return box;
}

void RelayOutputFrameWidget::ShowLayout(const OutputMapLayout& layout) {
    widthTwips_ = layout.FrameWidth;
    heightTwips_ = layout.FrameHeight;
    for (const auto& [output, box] : cbxOutputMap_) {
        box->hide();
    }
    QCheckBox* previous = nullptr;
    for (const OutputBoxLayout& place : layout.Boxes) {
        QCheckBox*& box = cbxOutputMap_[place.Output];
        if (box == nullptr) {
            box = NewBox(place.Output);
        }
        box->setText(QString::fromStdString(place.Caption));
        box->setGeometry(TwipsToPixels(place.Left), TwipsToPixels(place.Top), TwipsToPixels(place.Width),
                         TwipsToPixels(place.Height));
        box->show();
        if (previous != nullptr) {
            setTabOrder(previous, box);
        }
        previous = box;
    }
    ColourBoxes();
}

void RelayOutputFrameWidget::ShowOutputs(const std::map<int, bool>& outputs) {
    for (const auto& [output, ticked] : outputs) {
        cbxOutputMap_.at(output)->setChecked(ticked);
    }
}

void RelayOutputFrameWidget::ColourBox(QCheckBox& box) {
    const DiagramColours colours = ColoursOf(palette());
    QPalette boxColours = palette();
    // On the dark card of a dark desktop an empty box would be dark on dark.
    boxColours.setColor(QPalette::Base, colours.Field);
    boxColours.setColor(QPalette::WindowText, box.hasFocus() ? colours.FocusedChoice : colours.Choice);
    box.setPalette(boxColours);
}

void RelayOutputFrameWidget::ColourBoxes() {
    for (const auto& [output, box] : cbxOutputMap_) {
        ColourBox(*box);
    }
}

bool RelayOutputFrameWidget::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        ColourBox(*static_cast<QCheckBox*>(watched));
    }
    return false;
}

void RelayOutputFrameWidget::changeEvent(QEvent* event) {
    QGroupBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        ColourBoxes();
    }
}

} // namespace brindle
