#include "editor/latch_controls_widget.h"

#include "editor/diagram_controls_widget.h"
#include "editor/diagram_painter.h"
#include "editor/diagram_parts_widget.h"
#include "editor/strip_label_widget.h"
#include "platform/foreign_text.h"

#include <QLabel>
#include <QLineEdit>

#include <initializer_list>

namespace brindle {

namespace {

void SetVisible(std::initializer_list<QWidget*> controls, bool visible) {
    for (QWidget* control : controls) {
        control->setVisible(visible);
    }
}

} // namespace

LatchControls::LatchControls(QWidget* parent, const std::function<void()>& onOtherSide)
    : lblS_(NewDiagramLabel(parent, QStringLiteral("lblS"), Qt::AlignLeft)),
      lblR_(NewDiagramLabel(parent, QStringLiteral("lblR"), Qt::AlignLeft)),
      lblQ_(NewDiagramLabel(parent, QStringLiteral("lblQ"), Qt::AlignRight)),
      lblLSR_(NewDiagramLabel(parent, QStringLiteral("lblLSR"), Qt::AlignHCenter, true)),
      pctSetReset_(new SetResetPictureWidget(QStringLiteral("pctSetReset"), parent)),
      lblSetReset_(new ClickLabelWidget(QStringLiteral("lblSetReset"), parent)) {
    lblS_->setText(QStringLiteral("S"));
    lblR_->setText(QStringLiteral("R"));
    lblQ_->setText(QStringLiteral("Q"));
    for (QAbstractButton* button : {pctSetReset_, lblSetReset_}) {
        QObject::connect(button, &QAbstractButton::clicked, parent, onOtherSide);
    }
}

QWidget* LatchControls::TabAfter(QWidget* previous) {
    QWidget::setTabOrder(previous, pctSetReset_);
    return pctSetReset_;
}

void LatchControls::SetShown(bool shown) {
    SetVisible({lblS_, lblR_, lblQ_, lblLSR_, pctSetReset_, lblSetReset_}, shown);
}

void LatchControls::Show(const LatchView& view) {
    lblLSR_->setText(ShownText(view.Caption));
    lblSetReset_->setText(ShownText(view.OtherSideCaption));
    pctSetReset_->setAccessibleName(ShownText(view.OtherSideCaption));
}

void LatchControls::Place(const LatchLayout& layout) {
    lblS_->setGeometry(ToPixels(layout.Set));
    lblR_->setGeometry(ToPixels(layout.Reset));
    lblQ_->setGeometry(ToPixels(layout.Output));
    lblLSR_->setGeometry(ToPixels(layout.Caption));
    pctSetReset_->setGeometry(ToPixels(layout.OtherSidePicture));
    lblSetReset_->setGeometry(ToPixels(layout.OtherSideCaption));
}

} // namespace brindle
