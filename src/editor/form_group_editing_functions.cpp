#include "editor/form_group_editing_functions.h"

#include "editor/group_editing.h"
#include "settings/placed_form_widget.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHideEvent>
#include <QLabel>
#include <QPushButton>
#include <QStandardItemModel>
#include <QVBoxLayout>

namespace brindle {

namespace {

/// The choice that a box shows, as group_editing.h counts them: 0 when none is.
int Choice(const QComboBox& box) {
    return box.currentIndex() + 1;
}

/// A grid of labels, boxes and buttons; the boxes of all frames stand in one line.
QGridLayout* NewGrid(QWidget* frame) {
    auto* grid = new QGridLayout(frame);
    grid->setColumnStretch(1, 1);
    grid->setColumnMinimumWidth(0, frame->fontMetrics().horizontalAdvance(QStringLiteral("Group:")) + 4);
    return grid;
}

QPushButton* NewButton(const char* name, const QString& caption, QWidget* parent) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(QString::fromLatin1(name));
    return button;
}

} // namespace

formGroupEditingFunctions::formGroupEditingFunctions(Editor& editor, QWidget* owner)
    : QDialog(owner), editor_(editor) {
    setObjectName(QStringLiteral("formGroupEditingFunctions"));
    setWindowTitle(QStringLiteral("Group Editing Functions"));
    setModal(true);
    auto* column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->setSpacing(12);
    column->addWidget(BuildClearFrame());
    column->addWidget(BuildCopyFrame());
    auto* close = NewButton("cmdClose", QStringLiteral("Close"), this);
    close->setDefault(true); // what Enter in a box of groups presses must not change the logic
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    column->addWidget(close, 0, Qt::AlignRight);
}

QComboBox* formGroupEditingFunctions::NewGroupBox(const char* name, const QString& accessibleName) {
    auto* box = new QComboBox(this);
    box->setObjectName(QString::fromLatin1(name));
    box->setAccessibleName(accessibleName);
    for (const std::string& entry : GroupEntries()) {
        box->addItem(QString::fromStdString(entry));
    }
    box->setMaxVisibleItems(box->count());
    box->setMinimumContentsLength(14);
    return box;
}

QWidget* formGroupEditingFunctions::BuildClearFrame() {
    auto* frame = new QGroupBox(QStringLiteral("Clear"), this);
    frame->setObjectName(QStringLiteral("fraClearGroup"));
    cmbClearGroup_ = NewGroupBox("cmbClearGroup", QStringLiteral("Group to clear"));
    auto* clear = NewButton("cmdClearGroup", QStringLiteral("C&lear Group"), frame);
    connect(clear, &QPushButton::clicked, this,
            [this] { editor_.cmdClearGroup_Click(Choice(*cmbClearGroup_)); });
    auto* label = new QLabel(QStringLiteral("&Group:"), frame);
    label->setObjectName(QStringLiteral("lblClearGroup"));
    label->setBuddy(cmbClearGroup_);
    QGridLayout* grid = NewGrid(frame);
    grid->addWidget(label, 0, 0);
    grid->addWidget(cmbClearGroup_, 0, 1);
    grid->addWidget(clear, 0, 2);
    return frame;
}

QWidget* formGroupEditingFunctions::BuildCopyFrame() {
    auto* frame = new QGroupBox(QStringLiteral("Copy"), this);
    frame->setObjectName(QStringLiteral("Frame1"));
    cmbCopyGroupFrom_ = NewGroupBox("cmbCopyGroupFrom", QStringLiteral("Group to copy from"));
    cmbCopyGroupTo_ = NewGroupBox("cmbCopyGroupTo", QStringLiteral("Group to copy to"));
    auto* copy = NewButton("cmdCopyGroup", QStringLiteral("&Copy Group"), frame);
    connect(copy, &QPushButton::clicked, this,
            [this] { editor_.cmdCopyGroup_Click(Choice(*cmbCopyGroupFrom_), Choice(*cmbCopyGroupTo_)); });
    auto* from = new QLabel(QStringLiteral("&From:"), frame);
    from->setObjectName(QStringLiteral("Label1"));
    from->setBuddy(cmbCopyGroupFrom_);
    auto* to = new QLabel(QStringLiteral("&To:"), frame);
    to->setObjectName(QStringLiteral("Label2"));
    to->setBuddy(cmbCopyGroupTo_);
    QGridLayout* grid = NewGrid(frame);
    grid->addWidget(from, 0, 0);
    grid->addWidget(cmbCopyGroupFrom_, 0, 1);
    grid->addWidget(to, 1, 0);
    grid->addWidget(cmbCopyGroupTo_, 1, 1);
    grid->addWidget(copy, 1, 2);
    return frame;
}

void formGroupEditingFunctions::OfferGroups(QComboBox& box, int choice) {
    const auto* items = qobject_cast<QStandardItemModel*>(box.model());
    for (int index = 0; index < box.count(); ++index) {
        items->item(index)->setEnabled(ChoiceInLogic(editor_.Config(), index + 1));
    }
    box.setCurrentIndex(choice - 1);
}

void formGroupEditingFunctions::OpenAtPlace() {
    const int shown = editor_.Shown().Group;
    OfferGroups(*cmbClearGroup_, shown);
    OfferGroups(*cmbCopyGroupFrom_, shown);
    OfferGroups(*cmbCopyGroupTo_, NextGroup(editor_.Config(), shown));
    adjustSize();
    editor_.RestorePlace(PlacedFormOf(*this, false), GroupEditingKeys);
    cmbClearGroup_->setFocus();
    show();
}

void formGroupEditingFunctions::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    if (!event->spontaneous()) {
        editor_.SavePlace(PlacedFormOf(*this, false), GroupEditingKeys);
    }
}

} // namespace brindle
