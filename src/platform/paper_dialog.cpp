#include "platform/paper_dialog.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>

#include <array>

namespace brindle {

namespace {

constexpr std::array UsualPapers{QPageSize::A3,        QPageSize::A4,     QPageSize::A5,
                                 QPageSize::B5,        QPageSize::Letter, QPageSize::Legal,
                                 QPageSize::Executive, QPageSize::Tabloid};

/// How long a margin may be; less than half of the shortest side of any of the papers.
constexpr double MarginLimit = 50; // mm
constexpr double MmPerInch = 25.4;

/// The unit in which the user measures paper, the steps in which it is told and its name.
struct PaperUnit {
    QPageLayout::Unit Unit;
    double Limit;
    int Decimals;
    double Step;
    const char* Suffix;
};

PaperUnit UnitOf(const QLocale& locale) {
    if (locale.measurementSystem() == QLocale::ImperialUSSystem) {
        return {QPageLayout::Inch, MarginLimit / MmPerInch, 2, 0.05, " in"};
    }
    return {QPageLayout::Millimeter, MarginLimit, 1, 1, " mm"};
}

QDoubleSpinBox* NewMarginBox(const char* name, double margin, const PaperUnit& unit) {
    auto* box = new QDoubleSpinBox;
    box->setObjectName(QString::fromLatin1(name));
    box->setDecimals(unit.Decimals);
    box->setSingleStep(unit.Step);
    box->setRange(0, unit.Limit);
    box->setSuffix(QString::fromLatin1(unit.Suffix));
    box->setValue(margin);
    return box;
}

QComboBox* NewPaperList(const QPageSize& current) {
    auto* list = new QComboBox;
    list->setObjectName(QStringLiteral("cmbPaper"));
    for (const QPageSize::PageSizeId paper : UsualPapers) {
        list->addItem(QPageSize::name(paper), paper);
    }
    if (list->findData(current.id()) < 0) { // what a system's own usual paper may be
        list->addItem(current.name(), current.id());
    }
    list->setCurrentIndex(list->findData(current.id()));
    return list;
}

} // namespace

bool ShowPaperDialog(QWidget* owner, QPageLayout& layout, const QLocale& locale) {
    const PaperUnit unit = UnitOf(locale);
    const QMarginsF before = layout.margins(unit.Unit);
    QDialog dialog(owner);
    dialog.setObjectName(QStringLiteral("PaperDialog"));
    dialog.setWindowTitle(QStringLiteral("Paper of the PDF File"));
    QComboBox* paper = NewPaperList(layout.pageSize());
    QDoubleSpinBox* left = NewMarginBox("spnLeft", before.left(), unit);
    QDoubleSpinBox* right = NewMarginBox("spnRight", before.right(), unit);
    QDoubleSpinBox* top = NewMarginBox("spnTop", before.top(), unit);
    QDoubleSpinBox* bottom = NewMarginBox("spnBottom", before.bottom(), unit);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);

    auto* rows = new QFormLayout(&dialog);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    rows->addRow(QStringLiteral("&Paper:"), paper);
    rows->addRow(QStringLiteral("&Left margin:"), left);
    rows->addRow(QStringLiteral("&Right margin:"), right);
    rows->addRow(QStringLiteral("&Top margin:"), top);
    rows->addRow(QStringLiteral("&Bottom margin:"), bottom);
    rows->addRow(buttons);
    if (dialog.exec() != QDialog::Accepted) {
        return false;
    }

    const auto chosen = static_cast<QPageSize::PageSizeId>(paper->currentData().toInt());
    const QPageSize size = chosen == layout.pageSize().id() ? layout.pageSize() : QPageSize(chosen);
    const QMarginsF margins(left->value(), top->value(), right->value(), bottom->value());
    layout = QPageLayout(size, layout.orientation(), margins, unit.Unit);
    return true;
}

} // namespace brindle
