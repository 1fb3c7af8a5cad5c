#include "report/form_print_brindle.h"

#include "files/whole_file.h"
#include "report/print_fonts.h"
#include "settings/placed_form_widget.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHideEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <utility>

/// The controls of the print dialog and what they offer.
namespace brindle {

namespace {

const QMarginsF UsualMargins(20, 15, 15, 15); // millimetres; room for a binding at the left

std::vector<std::string> Plain(const QStringList& names) {
    std::vector<std::string> plain;
    for (const QString& name : names) {
        plain.push_back(name.toStdString());
    }
    return plain;
}

QGroupBox* NewFrame(const char* name, const QString& caption, QWidget* parent) {
    auto* frame = new QGroupBox(caption, parent);
    frame->setObjectName(QString::fromLatin1(name));
    new QVBoxLayout(frame);
    return frame;
}

QPushButton* NewButton(const char* name, const QString& caption, QWidget* parent) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false); // Enter prints, wherever the keyboard is
    return button;
}

QComboBox* NewList(const char* name, QWidget* parent) {
    constexpr int roomForNames = 30; // letters
    auto* list = new QComboBox(parent);
    list->setObjectName(QString::fromLatin1(name));
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(roomForNames);
    return list;
}

QLabel* NewLabel(const char* name, const QString& caption, QWidget* buddy) {
    auto* label = new QLabel(caption, buddy->parentWidget());
    label->setObjectName(QString::fromLatin1(name));
    label->setBuddy(buddy);
    return label;
}

} // namespace

formPrintBrindle::formPrintBrindle(PrintSurroundings surroundings, QWidget* owner)
    : QDialog(owner), surroundings_(std::move(surroundings)),
      layout_(QPageSize(QPageSize::A4), QPageLayout::Portrait, UsualMargins, QPageLayout::Millimeter) {
    setObjectName(QStringLiteral("formPrintBrindle"));
    setWindowTitle(QStringLiteral("Print"));
    setWindowModality(Qt::WindowModal); // a run steps the main window
    choices_ = new QWidget(this);
    auto* grid = new QGridLayout(choices_);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(10);
    grid->addWidget(BuildPrinterRows(), 0, 0, 1, 2);
    grid->addWidget(BuildScopeFrame(), 1, 0, 2, 1);
    grid->addWidget(BuildFormatFrame(), 1, 1);
    grid->addWidget(BuildOrientationFrame(), 2, 1);
    chkPrintToFile_ = new QCheckBox(QStringLiteral("Print to a Te&xt File"), choices_);
    chkPrintToFile_->setObjectName(QStringLiteral("chkPrintToFile"));
    grid->addWidget(chkPrintToFile_, 3, 0, 1, 2);

    auto* column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->setSpacing(12);
    column->addWidget(choices_);
    column->addWidget(BuildProgress());
    column->addWidget(BuildButtons());

    optPrintCurrentForm_->setChecked(true);
    optPrintText_->setChecked(true);
    optPrintPortrait_->setChecked(true);
    connect(cmbPrinterList_, &QComboBox::currentIndexChanged, this, [this] { ChoosePrinter(); });
    connect(chkPrintToFile_, &QCheckBox::toggled, this, [this] { EnableChoices(); });
    connect(optPrintText_, &QRadioButton::toggled, this, [this] { EnableChoices(); });
}

QWidget* formPrintBrindle::BuildPrinterRows() {
    printerRows_ = new QWidget(choices_);
    cmbPrinterList_ = NewList("cmbPrinterList", printerRows_);
    cmbFontList_ = NewList("cmbFontList", printerRows_);
    lblFont_ = NewLabel("lblFont", QStringLiteral("&Font:"), cmbFontList_);
    cmdSetup_ = NewButton("cmdSetup", QStringLiteral("&Setup..."), printerRows_);
    connect(cmdSetup_, &QPushButton::clicked, this, [this] { SetupPrinter(); });
    auto* grid = new QGridLayout(printerRows_);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(NewLabel("lblPrinter", QStringLiteral("P&rinter:"), cmbPrinterList_), 0, 0);
    grid->addWidget(cmbPrinterList_, 0, 1);
    grid->addWidget(cmdSetup_, 0, 2);
    grid->addWidget(lblFont_, 1, 0);
    grid->addWidget(cmbFontList_, 1, 1);
    grid->setColumnStretch(1, 1);
    return printerRows_;
}

QRadioButton* formPrintBrindle::AddOption(QGroupBox* frame, const char* name, const QString& caption) {
    auto* option = new QRadioButton(caption, frame);
    option->setObjectName(QString::fromLatin1(name));
    qobject_cast<QVBoxLayout*>(frame->layout())->addWidget(option);
    return option;
}

QGroupBox* formPrintBrindle::BuildScopeFrame() {
    constexpr int columns = 2;
    constexpr int indent = 20; // pixels, under the option that they belong to
    QGroupBox* frame = NewFrame("fraGroup", QStringLiteral("Groups"), choices_);
    optPrintAll_ = AddOption(frame, "optPrintAll", QStringLiteral("&All Groups"));
    optPrintCurrentForm_ = AddOption(frame, "optPrintCurrentForm", QStringLiteral("&Displayed Unit"));
    optPrintSelected_ = AddOption(frame, "optPrintSelected", QStringLiteral("S&elected Groups"));
    auto* grid = new QGridLayout;
    grid->setContentsMargins(indent, 0, 0, 0);
    for (int group = 1; group <= MaxGroups; ++group) {
        auto* box = new QCheckBox(QStringLiteral("Group &%1").arg(group), frame);
        box->setObjectName(QStringLiteral("chkPrintGroup(%1)").arg(group));
        connect(box, &QCheckBox::clicked, this, [this] { optPrintSelected_->setChecked(true); });
        grid->addWidget(box, (group - 1) / columns, (group - 1) % columns);
        chkPrintGroup_.at(static_cast<std::size_t>(group - 1)) = box;
    }
    auto* column = qobject_cast<QVBoxLayout*>(frame->layout());
    column->addLayout(grid);
    column->addStretch(1);
    return frame;
}

QGroupBox* formPrintBrindle::BuildFormatFrame() {
    fraDataFormat_ = NewFrame("fraDataFormat", QStringLiteral("Format"), choices_);
    optPrintText_ = AddOption(fraDataFormat_, "optPrintText", QStringLiteral("&Text"));
    optPrintGraphic_ =
        AddOption(fraDataFormat_, "optPrintGraphic", QStringLiteral("P&icture of the Main Window"));
    qobject_cast<QVBoxLayout*>(fraDataFormat_->layout())->addStretch(1);
    return fraDataFormat_;
}

QGroupBox* formPrintBrindle::BuildOrientationFrame() {
    fraPrinterOrientation_ = NewFrame("fraPrinterOrientation", QStringLiteral("Orientation"), choices_);
    optPrintPortrait_ = AddOption(fraPrinterOrientation_, "optPrintPortrait", QStringLiteral("P&ortrait"));
    optPrintLandscape_ = AddOption(fraPrinterOrientation_, "optPrintLandscape", QStringLiteral("&Landscape"));
    qobject_cast<QVBoxLayout*>(fraPrinterOrientation_->layout())->addStretch(1);
    return fraPrinterOrientation_;
}

QWidget* formPrintBrindle::BuildProgress() {
    auto* rows = new QWidget(this);
    prgUnits_ = new QProgressBar(rows);
    prgUnits_->setObjectName(QStringLiteral("prgUnits"));
    prgUnits_->setTextVisible(false);
    prgUnits_->setAccessibleName(QStringLiteral("Printed units"));
    QSizePolicy policy = prgUnits_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    prgUnits_->setSizePolicy(policy);
    prgUnits_->hide();
    lblProgress_ = NewLabel("lblProgress", QString(), prgUnits_);
    auto* column = new QVBoxLayout(rows);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(lblProgress_);
    column->addWidget(prgUnits_);
    return rows;
}

QWidget* formPrintBrindle::BuildButtons() {
    auto* row = new QWidget(this);
    cmdPrint_ = NewButton("cmdPrint", QStringLiteral("&Print"), row);
    cmdPrint_->setDefault(true);
    cmdCancel_ = NewButton("cmdCancel", QStringLiteral("&Close"), row);
    connect(cmdPrint_, &QPushButton::clicked, this, [this] { cmdPrint_Click(); });
    connect(cmdCancel_, &QPushButton::clicked, this, [this] { reject(); });
    auto* buttons = new QHBoxLayout(row);
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->addStretch(1);
    buttons->addWidget(cmdPrint_);
    buttons->addWidget(cmdCancel_);
    return row;
}

void formPrintBrindle::OfferGroups() {
    const int groups = surroundings_.Config().GroupCount;
    for (int group = 1; group <= MaxGroups; ++group) {
        chkPrintGroup_.at(static_cast<std::size_t>(group - 1))->setVisible(group <= groups);
    }
}

void formPrintBrindle::OfferPrinters() {
    const QString before = cmbPrinterList_->currentText();
    const PrinterFunctions& printers = surroundings_.Printers;
    {
        const QSignalBlocker quiet(cmbPrinterList_);
        cmbPrinterList_->clear();
        cmbPrinterList_->addItems(printers.Names());
        cmbPrinterList_->addItem(QStringLiteral("PDF File"));
        // The one chosen before, if it is still there; else the system's; else the file.
        int known = before.isEmpty() ? -1 : cmbPrinterList_->findText(before);
        known = known < 0 ? cmbPrinterList_->findText(printers.Default()) : known;
        cmbPrinterList_->setCurrentIndex(known < 0 ? cmbPrinterList_->count() - 1 : known);
    }
    if (cmbPrinterList_->currentText() != before) {
        ChoosePrinter();
    }
}

void formPrintBrindle::ChoosePrinter() {
    layout_.setPageSize(
        surroundings_.Printers.Choose(PrintsToPdf() ? QString() : cmbPrinterList_->currentText()));
    OfferFonts();
    EnableChoices();
}

void formPrintBrindle::OfferFonts() {
    const std::vector<std::string> printerFonts = Plain(surroundings_.Printers.Fonts());
    const std::vector<std::string> screenFonts = Plain(surroundings_.Printers.ScreenFonts());
    const std::string font = FontForPrinter(printerFonts);
    cmbFontList_->clear();
    for (const std::string& both : FontsOnBoth(printerFonts, screenFonts)) {
        cmbFontList_->addItem(QString::fromStdString(both));
    }
    cmbFontList_->setCurrentText(QString::fromStdString(font));

    const std::string log = qEnvironmentVariable("BRINDLE_FONT_LOG").toStdString();
    if (!log.empty()) {
        const std::string printer = cmbPrinterList_->currentText().toStdString();
        // A listing that cannot be written keeps nobody from printing.
        static_cast<void>(ReplaceWholeFile(surroundings_.Outside.Files, log,
                                           FontListing(printer, font, printerFonts, screenFonts)));
    }
}

void formPrintBrindle::EnableChoices() {
    const bool pages = !chkPrintToFile_->isChecked();
    printerRows_->setEnabled(pages);
    cmbFontList_->setEnabled(optPrintText_->isChecked());
    lblFont_->setEnabled(optPrintText_->isChecked());
    fraDataFormat_->setEnabled(pages);
    fraPrinterOrientation_->setEnabled(pages);
}

bool formPrintBrindle::PrintsToPdf() const {
    return cmbPrinterList_->currentIndex() == cmbPrinterList_->count() - 1;
}

QPageLayout formPrintBrindle::PageLayout() const {
    QPageLayout layout = layout_;
    layout.setOrientation(optPrintLandscape_->isChecked() ? QPageLayout::Landscape : QPageLayout::Portrait);
    return layout;
}

void formPrintBrindle::SetupPrinter() {
    QPageLayout layout = PageLayout();
    if (surroundings_.Printers.Setup(this, layout)) {
        layout_ = layout;
        const bool landscape = layout.orientation() == QPageLayout::Landscape;
        (landscape ? optPrintLandscape_ : optPrintPortrait_)->setChecked(true);
    }
}

PrintChoice formPrintBrindle::Choice() const {
    PrintChoice choice;
    if (optPrintAll_->isChecked()) {
        choice.Scope = PrintScope::EveryGroup;
    } else if (optPrintSelected_->isChecked()) {
        choice.Scope = PrintScope::SelectedGroups;
    }
    for (std::size_t index = 0; index < chkPrintGroup_.size(); ++index) {
        choice.GroupsTicked.at(index) = chkPrintGroup_.at(index)->isChecked();
    }
    return choice;
}

void formPrintBrindle::OpenAtPlace() {
    OfferGroups();
    OfferPrinters();
    lblProgress_->clear();
    adjustSize();
    surroundings_.RestorePlacement(PlacedFormOf(*this, false));
    cmdPrint_->setFocus();
    show();
}

void formPrintBrindle::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    if (!event->spontaneous()) {
        surroundings_.SavePlacement(PlacedFormOf(*this, false));
    }
}

} // namespace brindle
