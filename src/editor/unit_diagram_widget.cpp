#include "editor/unit_diagram_widget.h"

#include "editor/diagram_controls_widget.h"
#include "editor/diagram_painter.h"
#include "editor/diagram_parts_widget.h"
#include "editor/menu_tree.h"
#include "editor/relay_output_frame_widget.h"
#include "platform/foreign_text.h"

#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace brindle {

namespace {

constexpr int DiagramMargin = 1;                          // pixels kept for the card's border
constexpr QKeyCombination FlipKey = Qt::CTRL | Qt::Key_I; // what a double-click does, without a pointer

QString Element(const char* array, int index) {
    return QString::fromStdString(ElementName(array, index));
}

/// Whether two units are drawn with the same gates, wires and symbol, so that only captions and texts differ.
bool SameShape(const UnitView& a, const UnitView& b) {
    const auto sameRow = [](const GateView& one, const GateView& other) {
        return one.Visible == other.Visible;
    };
    return a.LatchShown == b.LatchShown && a.Latch.Side == b.Latch.Side &&
           a.FeedbackCaption.empty() == b.FeedbackCaption.empty() &&
           std::ranges::equal(a.Gates, b.Gates, sameRow);
}

} // namespace

UnitDiagramWidget::UnitDiagramWidget(QWidget* parent, DiagramEvents events)
    : QWidget(parent), events_(std::move(events)),
      pickUp_(this, QStringLiteral("PU"), QStringLiteral("Pick Up Timer (1msec)"), events_.PickUp),
      dropOut_(this, QStringLiteral("DO"), QStringLiteral("Drop Out Timer (1msec)"), events_.DropOut),
      latch_(this, events_.SetResetClicked), fraMapRelayOutput_(new RelayOutputFrameWidget(this)) {
    setObjectName(QStringLiteral("picDiagram"));
    fraMapRelayOutput_->OnOutputClicked = events_.OutputClicked;
    CreateInputs();
    CreateGates();
    latch_.TabAfter(dropOut_.TabAfter(pickUp_.TabAfter(txtPlo_.back())));
}

void UnitDiagramWidget::CreateInputs() {
    for (int input = 1; input <= InputsPerUnit; ++input) {
        const auto index = static_cast<std::size_t>(input - 1);
        lblInputLine_.at(index) = NewDiagramLabel(this, Element("lblInputLine", input), Qt::AlignRight);
        QLineEdit* box = NewDiagramBox(this, Element("txtPlo", input));
        box->setContextMenuPolicy(Qt::NoContextMenu);
        box->installEventFilter(this);
        // The text cannot be edited, so marking it, as a Tab into the box does, would only distract.
        connect(box, &QLineEdit::selectionChanged, box, &QLineEdit::deselect);
        txtPlo_.at(index) = box;
        shpInvert_.at(index) = new InvertMarkWidget(Element("shpInvert", input), this);
        CopyInput(index, view_.Inputs.at(index));
    }
}

void UnitDiagramWidget::CreateGates() {
    for (int row = 1; row <= GatesPerUnit; ++row) {
        lblAND_.at(static_cast<std::size_t>(row - 1)) =
            NewDiagramLabel(this, Element("lblAND", row), Qt::AlignHCenter, true);
    }
    lblOR_ = NewDiagramLabel(this, QStringLiteral("lblOR"), Qt::AlignHCenter, true);
    pctTimerLatchFB_ = NewDiagramLabel(this, QStringLiteral("pctTimerLatchFB"), Qt::AlignHCenter, true);
}

void UnitDiagramWidget::ShowOutputMap(const OutputMapLayout& layout) {
    fraMapRelayOutput_->ShowLayout(layout);
    PlaceVisibleControls();
    updateGeometry();
}

void UnitDiagramWidget::ShowUnit(const UnitView& view, UnitRedraw redraw) {
    loading_ = true;
    const bool sameShape = SameShape(view, view_);
    for (std::size_t i = 0; i < view.Inputs.size(); ++i) {
        if (view.Inputs.at(i) != view_.Inputs.at(i)) {
            CopyInput(i, view.Inputs.at(i));
        }
    }
    view_ = view;
    for (std::size_t row = 0; row < view.Gates.size(); ++row) {
        lblAND_.at(row)->setText(ShownText(view.Gates.at(row).Caption));
        lblAND_.at(row)->setVisible(view.Gates.at(row).Visible);
    }
    lblOR_->setText(ShownText(view.OrCaption));
    pickUp_.SetShown(!view.LatchShown);
    dropOut_.SetShown(!view.LatchShown);
    latch_.SetShown(view.LatchShown);
    if (view.LatchShown) {
        latch_.Show(view.Latch);
    } else {
        const TimerView& timer = view.Timer;
        pickUp_.Show(timer.PickUpCaption, timer.PickUpText, timer.PickUpReadOut, redraw);
        dropOut_.Show(timer.DropOutCaption, timer.DropOutText, timer.DropOutReadOut, redraw);
    }
    pctTimerLatchFB_->setText(ShownText(view.FeedbackCaption));
    pctTimerLatchFB_->setVisible(!view.FeedbackCaption.empty());
    fraMapRelayOutput_->ShowOutputs(view.OutputSet);
    if (!sameShape) {
        PlaceVisibleControls();
    }
    loading_ = false;
}

void UnitDiagramWidget::CopyInput(std::size_t index, const InputView& input) {
    QLineEdit* box = txtPlo_.at(index);
    box->setText(ShownText(input.Text));
    box->setCursorPosition(0);
    SetForeignToolTip(*box, box->text());
    box->setPalette(BoxPalette(input.BackColour, input.Idle));
    box->setVisible(input.Visible);
    box->setAccessibleName(
        ShownText(input.LineCaption + (input.InvertMark ? ": inverted " : ": ") + input.Text));
    FitInputText(*box);
    lblInputLine_.at(index)->setText(ShownText(input.LineCaption));
    lblInputLine_.at(index)->setVisible(input.Visible);
    shpInvert_.at(index)->setVisible(input.InvertMark);
}

QSize UnitDiagramWidget::minimumSizeHint() const {
    const DiagramSize least =
        LeastDiagramSize(fraMapRelayOutput_->WidthTwips(), fraMapRelayOutput_->HeightTwips());
    return {TwipsToPixels(least.Width) + 2 * DiagramMargin, TwipsToPixels(least.Height) + 2 * DiagramMargin};
}

void UnitDiagramWidget::PlaceVisibleControls() {
    if (isVisible()) {
        PlaceControls();
    }
}

void UnitDiagramWidget::PlaceControls() {
    DiagramSize size;
    size.Width = PixelsToTwips(width());
    size.Height = PixelsToTwips(height());
    size.Kind = view_.LatchShown ? view_.Latch.Side : UnitKind::Timer;
    size.MapFrameWidth = fraMapRelayOutput_->WidthTwips();
    size.MapFrameHeight = fraMapRelayOutput_->HeightTwips();
    size.Feedback = !view_.FeedbackCaption.empty();
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
        latch_.Place(layout_.Latch);
    } else {
        const TimerLayout& timer = layout_.Timer;
        pickUp_.Place(timer.PickUpLabel, timer.PickUpBox, timer.PickUpReadOut, timer.PickUpCaption);
        dropOut_.Place(timer.DropOutLabel, timer.DropOutBox, timer.DropOutReadOut, timer.DropOutCaption);
    }
    pctTimerLatchFB_->setGeometry(ToPixels(layout_.Feedback.Panel));
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
    constexpr int frameInset = 1; // a group box draws its border in its first or second column, by the style
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
    LayoutWire toFrame = layout_.UnitOutput;
    toFrame.back().X += PixelsToTwips(frameInset);
    diagram.DrawWire(toFrame);
    if (!view_.FeedbackCaption.empty()) {
        DrawFeedback(diagram);
    }
    if (view_.LatchShown) {
        diagram.DrawWire(layout_.Latch.OtherSideWire);
        diagram.DrawBox(layout_.Latch.Symbol);
    } else {
        diagram.DrawTimer(layout_.Timer.Symbol);
    }
}

void UnitDiagramWidget::DrawFeedback(DiagramPainter& diagram) const {
    const FeedbackLayout& feedback = layout_.Feedback;
    for (const LayoutWire& line : feedback.Lines) {
        diagram.DrawWire(line);
    }
    diagram.DrawBranch(feedback.Lines.front().front());
    diagram.DrawArrowToLeft(feedback.Lines.back().back());
    diagram.DrawBox(feedback.Panel);
}

void UnitDiagramWidget::resizeEvent(QResizeEvent* /*event*/) {
    PlaceControls();
}

void UnitDiagramWidget::showEvent(QShowEvent* /*event*/) {
    PlaceControls();
}

void UnitDiagramWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        update();
    }
}

int UnitDiagramWidget::InputOf(const QObject* box) const {
    return static_cast<int>(std::ranges::find(txtPlo_, box) - txtPlo_.begin()) + 1;
}

bool UnitDiagramWidget::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        events_.InputSelected(InputOf(watched));
        break;
    case QEvent::FocusIn: {
        // Only the user's own moves select: focus that the program or a change of window gives must not, nor
        // the focus that Qt hands on as if by Tab when the box that had it is hidden.
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (!loading_ && (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason)) {
            events_.InputSelected(InputOf(watched));
        }
        break;
    }
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
            events_.InputClicked(InputOf(watched));
        }
        break;
    case QEvent::MouseButtonDblClick:
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
            events_.InputFlipped(InputOf(watched));
        }
        break;
    case QEvent::KeyPress:
        if (static_cast<QKeyEvent*>(event)->keyCombination() == FlipKey) {
            if (!static_cast<QKeyEvent*>(event)->isAutoRepeat()) { // held down, it must not end by chance
                events_.InputFlipped(InputOf(watched));
            }
            return true;
        }
        break;
    default:
        break;
    }
    return false;
}

void UnitDiagramWidget::FocusInput(int input) {
    txtPlo_.at(static_cast<std::size_t>(input - 1))->setFocus(Qt::OtherFocusReason);
}

} // namespace brindle
