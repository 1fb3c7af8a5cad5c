#include "editor/unit_diagram_widget.h"

#include "editor/diagram_painter.h"
#include "editor/diagram_parts_widget.h"
#include "editor/menu_tree.h"
#include "editor/strip_label_widget.h"

#include <QCheckBox>
#include <QEvent>
#include <QFocusEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

namespace brindle {

namespace {

constexpr int DiagramMargin = 1; // pixels kept for the card's border

QString Element(const char* array, int index) {
    return QString::fromStdString(ElementName(array, index));
}

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

/// The boxes' grounds are light whatever the desktop's palette, so their text is dark.
QPalette BoxPalette(const QPalette& base, Colour ground, bool idle) {
    QPalette palette = base;
    palette.setColor(QPalette::Base, ToQColor(ground));
    palette.setColor(QPalette::Text, idle ? QColor(92, 98, 108) : QColor(16, 20, 28));
    return palette;
}

/// The output frame's measures are drawn larger than the twips of its layout, so that a check box has room
/// for today's fonts.
constexpr int MapScaleNumerator = 4;
constexpr int MapScaleDenominator = 3;

int MapTwips(int twips) {
    return twips * MapScaleNumerator / MapScaleDenominator / LayoutGrid * LayoutGrid;
}

} // namespace

UnitDiagramWidget::UnitDiagramWidget(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("picDiagram"));
    CreateInputs();
    CreateGates();
    CreateTimer();
    CreateLatch();
    CreateOutputFrame();
}

QLabel* UnitDiagramWidget::NewLabel(const QString& name, Qt::Alignment alignment) {
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setAlignment(alignment | Qt::AlignVCenter);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLineEdit* UnitDiagramWidget::NewTextBox(const QString& name) {
    auto* box = new QLineEdit(this);
    box->setObjectName(name);
    box->setReadOnly(true);
    box->setTextMargins(3, 0, 3, 0);
    return box;
}

void UnitDiagramWidget::CreateInputs() {
    for (int input = 1; input <= InputsPerUnit; ++input) {
        const auto index = static_cast<std::size_t>(input - 1);
        lblInputLine_.at(index) = NewLabel(Element("lblInputLine", input), Qt::AlignRight);
        QLineEdit* box = NewTextBox(Element("txtPlo", input));
        box->setContextMenuPolicy(Qt::NoContextMenu);
        box->installEventFilter(this);
        txtPlo_.at(index) = box;
        shpInvert_.at(index) = new InvertMarkWidget(Element("shpInvert", input), this);
    }
}

void UnitDiagramWidget::CreateGates() {
    QFont bold = font();
    bold.setBold(true);
    for (int row = 1; row <= GatesPerUnit; ++row) {
        QLabel* label = NewLabel(Element("lblAND", row), Qt::AlignHCenter);
        label->setFont(bold);
        lblAND_.at(static_cast<std::size_t>(row - 1)) = label;
    }
    lblOR_ = NewLabel(QStringLiteral("lblOR"), Qt::AlignHCenter);
    lblOR_->setFont(bold);
}

void UnitDiagramWidget::CreateTimerSide(TimerControls& side, const QString& letters, const QString& caption) {
    side.Label = NewLabel(QStringLiteral("lblTimer") + letters, Qt::AlignLeft);
    side.Label->setText(caption);
    side.Box = NewTextBox(QStringLiteral("txtTimer") + letters);
    side.Box->setPalette(BoxPalette(palette(), WhiteColour, false));
    side.Box->setAccessibleName(caption);
    side.ReadOut = NewLabel(QStringLiteral("lbl") + letters + QStringLiteral("Time"), Qt::AlignLeft);
    side.Symbol = NewLabel(QStringLiteral("lblT") + letters,
                           letters == QLatin1String("PU") ? Qt::AlignLeft : Qt::AlignRight);
    QFont bold = font();
    bold.setBold(true);
    side.Symbol->setFont(bold);
    const QString limits = QStringLiteral("Timer Limits: 0 to 10 Minutes, in milli-Second Increaments");
    side.Label->setToolTip(limits);
    side.Box->setToolTip(limits);
}

void UnitDiagramWidget::CreateTimer() {
    CreateTimerSide(pickUp_, QStringLiteral("PU"), QStringLiteral("Pick Up Timer (1msec)"));
    CreateTimerSide(dropOut_, QStringLiteral("DO"), QStringLiteral("Drop Out Timer (1msec)"));
}

void UnitDiagramWidget::CreateLatch() {
    QFont bold = font();
    bold.setBold(true);
    lblS_ = NewLabel(QStringLiteral("lblS"), Qt::AlignLeft);
    lblS_->setText(QStringLiteral("S"));
    lblR_ = NewLabel(QStringLiteral("lblR"), Qt::AlignLeft);
    lblR_->setText(QStringLiteral("R"));
    lblQ_ = NewLabel(QStringLiteral("lblQ"), Qt::AlignRight);
    lblQ_->setText(QStringLiteral("Q"));
    lblLSR_ = NewLabel(QStringLiteral("lblLSR"), Qt::AlignHCenter);
    lblLSR_->setFont(bold);
    pctSetReset_ = new SetResetPictureWidget(QStringLiteral("pctSetReset"), this);
    connect(pctSetReset_, &QAbstractButton::clicked, this, [this] { OnSetResetClicked(); });
    lblSetReset_ = NewLabel(QStringLiteral("lblSetReset"), Qt::AlignLeft);
    lblSetReset_->setCursor(Qt::PointingHandCursor);
    lblSetReset_->setWordWrap(true);
    lblSetReset_->installEventFilter(this);
}

void UnitDiagramWidget::CreateOutputFrame() {
    fraMapRelayOutput_ = new QGroupBox(QStringLiteral("Map Relay"), this);
    fraMapRelayOutput_->setObjectName(QStringLiteral("fraMapRelayOutput"));
}

void UnitDiagramWidget::ShowOutputMap(const OutputMapLayout& layout) {
    mapLayout_ = layout;
    for (const auto& [output, box] : cbxOutputMap_) {
        box->hide();
    }
    for (const OutputBoxLayout& place : layout.Boxes) {
        QCheckBox*& box = cbxOutputMap_[place.Output];
        if (box == nullptr) {
            box = new QCheckBox(fraMapRelayOutput_);
            box->setObjectName(Element("cbxOutputMap", place.Output));
            box->setAccessibleName(QStringLiteral("Relay output %1").arg(place.Output));
            // Shows the mapping without changing it: not greyed, since it is there to be read.
            box->setAttribute(Qt::WA_TransparentForMouseEvents);
            box->setFocusPolicy(Qt::NoFocus);
        }
        box->setText(Text(place.Caption));
        box->setGeometry(TwipsToPixels(MapTwips(place.Left)), TwipsToPixels(MapTwips(place.Top)),
                         TwipsToPixels(MapTwips(place.Width)), TwipsToPixels(MapTwips(place.Height)));
        box->show();
    }
    PlaceControls();
    updateGeometry();
}

void UnitDiagramWidget::ShowUnit(const UnitView& view, UnitRedraw redraw) {
    view_ = view;
    CopyInputs(view);
    for (std::size_t row = 0; row < view.Gates.size(); ++row) {
        lblAND_.at(row)->setText(Text(view.Gates.at(row).Caption));
        lblAND_.at(row)->setVisible(view.Gates.at(row).Visible);
    }
    lblOR_->setText(Text(view.OrCaption));
    CopyTimer(view.Timer, !view.LatchShown, redraw);
    CopyLatch(view.Latch, view.LatchShown);
    CopyOutputs(view);
    PlaceControls();
}

void UnitDiagramWidget::CopyInputs(const UnitView& view) {
    for (std::size_t i = 0; i < view.Inputs.size(); ++i) {
        const InputView& input = view.Inputs.at(i);
        QLineEdit* box = txtPlo_.at(i);
        box->setText(Text(input.Text));
        box->setCursorPosition(0);
        box->setToolTip(box->text());
        box->setPalette(BoxPalette(palette(), input.BackColour, input.Idle));
        box->setVisible(input.Visible);
        box->setAccessibleName(
            Text(input.LineCaption + (input.InvertMark ? ": inverted " : ": ") + input.Text));
        lblInputLine_.at(i)->setText(Text(input.LineCaption));
        lblInputLine_.at(i)->setVisible(input.Visible);
        shpInvert_.at(i)->setVisible(input.InvertMark);
    }
}

void UnitDiagramWidget::CopyTimerSide(TimerControls& side, const std::string& symbol, const std::string& text,
                                      const std::string& readOut, bool shown, UnitRedraw redraw) {
    for (QWidget* control : {static_cast<QWidget*>(side.Label), static_cast<QWidget*>(side.Box),
                             static_cast<QWidget*>(side.ReadOut), static_cast<QWidget*>(side.Symbol)}) {
        control->setVisible(shown);
    }
    if (!shown) {
        return;
    }
    side.Symbol->setText(Text(symbol));
    if (redraw == UnitRedraw::Selected) {
        side.Box->setText(Text(text));
        side.ReadOut->setText(Text(readOut));
    }
}

void UnitDiagramWidget::CopyTimer(const TimerView& timer, bool shown, UnitRedraw redraw) {
    CopyTimerSide(pickUp_, timer.PickUpCaption, timer.PickUpText, timer.PickUpReadOut, shown, redraw);
    CopyTimerSide(dropOut_, timer.DropOutCaption, timer.DropOutText, timer.DropOutReadOut, shown, redraw);
}

void UnitDiagramWidget::CopyLatch(const LatchView& latch, bool shown) {
    for (QWidget* control : {static_cast<QWidget*>(lblS_), static_cast<QWidget*>(lblR_),
                             static_cast<QWidget*>(lblQ_), static_cast<QWidget*>(lblLSR_),
                             static_cast<QWidget*>(pctSetReset_), static_cast<QWidget*>(lblSetReset_)}) {
        control->setVisible(shown);
    }
    if (shown) {
        lblLSR_->setText(Text(latch.Caption));
        lblSetReset_->setText(Text(latch.OtherSideCaption));
        pctSetReset_->setAccessibleName(Text(latch.OtherSideCaption));
    }
}

void UnitDiagramWidget::CopyOutputs(const UnitView& view) {
    for (const auto& [output, ticked] : view.OutputSet) {
        cbxOutputMap_.at(output)->setChecked(ticked);
    }
}

QSize UnitDiagramWidget::minimumSizeHint() const {
    const DiagramSize least =
        LeastDiagramSize(MapTwips(mapLayout_.FrameWidth), MapTwips(mapLayout_.FrameHeight));
    return {TwipsToPixels(least.Width) + 2 * DiagramMargin, TwipsToPixels(least.Height) + 2 * DiagramMargin};
}

void UnitDiagramWidget::PlaceControls() {
    DiagramSize size;
    size.Width = PixelsToTwips(width());
    size.Height = PixelsToTwips(height());
    size.Kind = view_.LatchShown ? view_.Latch.Side : UnitKind::Timer;
    size.MapFrameWidth = MapTwips(mapLayout_.FrameWidth);
    size.MapFrameHeight = MapTwips(mapLayout_.FrameHeight);
    layout_ = LayoutDiagram(size);

    for (std::size_t i = 0; i < layout_.Inputs.size(); ++i) {
        const InputLayout& place = layout_.Inputs.at(i);
        lblInputLine_.at(i)->setGeometry(ToPixels(place.LineCaption));
        txtPlo_.at(i)->setGeometry(ToPixels(place.Box));
        shpInvert_.at(i)->setGeometry(ToPixels(place.InvertMark));
        FitInputText(*txtPlo_.at(i));
    }
    for (std::size_t row = 0; row < layout_.Gates.size(); ++row) {
        lblAND_.at(row)->setGeometry(ToPixels(layout_.Gates.at(row).Gate));
    }
    lblOR_->setGeometry(
        ToPixels(layout_.OrGate).adjusted(TwipsToPixels(OrGateGreatestDepth(layout_.OrGate)), 0, -8, 0));
    if (view_.LatchShown) {
        lblS_->setGeometry(ToPixels(layout_.Latch.Set));
        lblR_->setGeometry(ToPixels(layout_.Latch.Reset));
        lblQ_->setGeometry(ToPixels(layout_.Latch.Output));
        lblLSR_->setGeometry(ToPixels(layout_.Latch.Caption));
        pctSetReset_->setGeometry(ToPixels(layout_.Latch.OtherSidePicture));
        lblSetReset_->setGeometry(ToPixels(layout_.Latch.OtherSideCaption));
    } else {
        pickUp_.Label->setGeometry(ToPixels(layout_.Timer.PickUpLabel));
        pickUp_.Box->setGeometry(ToPixels(layout_.Timer.PickUpBox));
        pickUp_.ReadOut->setGeometry(ToPixels(layout_.Timer.PickUpReadOut));
        pickUp_.Symbol->setGeometry(ToPixels(layout_.Timer.PickUpCaption));
        dropOut_.Label->setGeometry(ToPixels(layout_.Timer.DropOutLabel));
        dropOut_.Box->setGeometry(ToPixels(layout_.Timer.DropOutBox));
        dropOut_.ReadOut->setGeometry(ToPixels(layout_.Timer.DropOutReadOut));
        dropOut_.Symbol->setGeometry(ToPixels(layout_.Timer.DropOutCaption));
    }
    fraMapRelayOutput_->setGeometry(ToPixels(layout_.MapFrame));
    update();
}

void UnitDiagramWidget::FitInputText(QLineEdit& box) {
    constexpr int frame = 12;          // pixels that the box's frame and text margins take
    constexpr double leastScale = 0.8; // below that, the tool tip has to do
    const int room = box.width() - frame;
    const int needed = QFontMetrics(font()).horizontalAdvance(box.text());
    QFont fitted = font();
    if (needed > room && needed > 0) {
        fitted.setPointSizeF(font().pointSizeF() * std::max(leastScale, double(room) / needed));
    }
    if (box.font() != fitted) {
        box.setFont(fitted);
    }
}

void UnitDiagramWidget::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const DiagramColours colours = ColoursOf(palette());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(colours.Border);
    painter.setBrush(colours.Card);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);

    DiagramPainter diagram(painter, colours);
    for (std::size_t i = 0; i < layout_.Inputs.size(); ++i) {
        if (view_.Inputs.at(i).Visible) {
            diagram.DrawWire(layout_.Inputs.at(i).Wire);
        }
    }
    for (std::size_t row = 0; row < layout_.Gates.size(); ++row) {
        if (view_.Gates.at(row).Visible) {
            diagram.DrawWire(layout_.Gates.at(row).Output);
            diagram.DrawAndGate(layout_.Gates.at(row).Gate);
        }
    }
    diagram.DrawWire(layout_.OrOutput);
    diagram.DrawOrGate(layout_.OrGate);
    diagram.DrawWire(layout_.UnitOutput);
    if (view_.LatchShown) {
        diagram.DrawWire(layout_.Latch.OtherSideWire);
        diagram.DrawBox(layout_.Latch.Symbol);
    } else {
        diagram.DrawTimer(layout_.Timer.Symbol);
    }
}

void UnitDiagramWidget::resizeEvent(QResizeEvent* /*event*/) {
    PlaceControls();
}

void UnitDiagramWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        for (std::size_t i = 0; i < txtPlo_.size(); ++i) {
            const InputView& input = view_.Inputs.at(i);
            txtPlo_.at(i)->setPalette(BoxPalette(palette(), input.BackColour, input.Idle));
        }
        update();
    }
}

bool UnitDiagramWidget::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lblSetReset_) {
        if (event->type() == QEvent::MouseButtonRelease) {
            OnSetResetClicked();
        }
        return false;
    }
    // Only the user's own moves select: focus that the program or a change of window gives must not.
    const bool pressed = event->type() == QEvent::MouseButtonPress;
    bool tabbed = false;
    if (event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        tabbed = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
    }
    if (pressed || tabbed) {
        for (std::size_t i = 0; i < txtPlo_.size(); ++i) {
            if (txtPlo_.at(i) == watched) {
                OnInputSelected(static_cast<int>(i) + 1);
            }
        }
    }
    return false;
}

void UnitDiagramWidget::FocusInput(int input) {
    txtPlo_.at(static_cast<std::size_t>(input - 1))->setFocus(Qt::OtherFocusReason);
}

} // namespace brindle
