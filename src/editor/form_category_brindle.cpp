#include "editor/form_category_brindle.h"

#include "editor/menu_tree.h"
#include "platform/foreign_text.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <algorithm>

namespace brindle {

namespace {

constexpr int Margin = 4; // pixels around the buttons

} // namespace

formCategoryBrindle::formCategoryBrindle(int category, QWidget* owner)
    : QWidget(owner, Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      scroll_(new QScrollArea(this)) {
    setObjectName(QString::fromStdString(ElementName("formCategoryBrindle", category)));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setWidgetResizable(true);
    scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll_->setFocusPolicy(Qt::NoFocus);
    scroll_->setMinimumHeight(1); // a short list makes a low window, which must not grow once it is placed
    column->addWidget(scroll_);
}

void formCategoryBrindle::ShowView(const ChooserView& view, int width) {
    SetForeignTitle(*this, ShownText(view.Title));
    auto* list = new QWidget;
    auto* column = new QVBoxLayout(list);
    column->setContentsMargins(Margin, Margin, Margin, Margin);
    column->setSpacing(0);
    int index = 0;
    for (const ChooserButton& entry : view.Buttons) {
        auto* button = new QPushButton(WithoutAccessKeys(ShownText(entry.Caption)), list);
        button->setObjectName(QString::fromStdString(ElementName("cmdSelectCategory", index)));
        button->setAccessibleName(ShownText(entry.Caption));
        button->setEnabled(entry.Enabled);
        button->setAutoDefault(true); // so that Enter presses it, like the space bar
        connect(button, &QPushButton::clicked, this, [this, index] { OnButton(index); });
        column->addWidget(button);
        ++index;
    }
    column->addStretch(1);
    scroll_->setWidget(list); // deletes the buttons of the catalogue before
    setFixedWidth(width);
}

void formCategoryBrindle::FocusButton() {
    if (focusWidget() != nullptr) {
        focusWidget()->setFocus(Qt::OtherFocusReason);
        return;
    }
    for (auto* button : scroll_->widget()->findChildren<QPushButton*>()) {
        if (button->isEnabled()) {
            button->setFocus(Qt::OtherFocusReason);
            return;
        }
    }
}

int formCategoryBrindle::FullHeight() const {
    return scroll_->widget()->sizeHint().height();
}

int formCategoryBrindle::WidthFor(const ChooserView& view) const {
    constexpr int buttonFrame = 28; // what a button needs beside its caption
    int widest = 0;
    for (const ChooserButton& entry : view.Buttons) {
        widest = std::max(widest, fontMetrics().horizontalAdvance(ShownText(entry.Caption)));
    }
    return widest + buttonFrame + 2 * Margin + scroll_->verticalScrollBar()->sizeHint().width();
}

bool formCategoryBrindle::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        OnUsed();
    }
    return QWidget::event(event);
}

void formCategoryBrindle::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Escape:
        close();
        break;
    case Qt::Key_F6:
        OnBack();
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void formCategoryBrindle::closeEvent(QCloseEvent* event) {
    OnClosed();
    event->accept(); // hides the window; it opens again as it was
}

} // namespace brindle
