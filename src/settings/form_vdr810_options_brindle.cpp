#include "settings/form_vdr810_options_brindle.h"

#include "platform/foreign_text.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace brindle {

formVdr810OptionsBrindle::formVdr810OptionsBrindle(Vdr810Options& options, const std::string& plcFolder,
                                                   QWidget* owner)
    : QDialog(owner), options_(options), cboSettingsFileVersionVdr810_(new QComboBox(this)),
      cboSelectOptions_(new QComboBox(this)), cmdDone_(new QPushButton(QStringLiteral("Done"), this)) {
    setObjectName(QStringLiteral("formVdr810OptionsBrindle"));
    setWindowTitle(QStringLiteral("Change VDR810 Version"));
    cboSettingsFileVersionVdr810_->setObjectName(QStringLiteral("cboSettingsFileVersionVdr810"));
    cboSelectOptions_->setObjectName(QStringLiteral("cboSelectOptions"));
    cmdDone_->setObjectName(QStringLiteral("cmdDone"));
    auto* cancel = new QPushButton(QStringLiteral("Cancel"), this);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    connect(cmdDone_, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->setSpacing(12);
    column->addWidget(
        NewFrame("Frame2", QStringLiteral("Settings Database Version"), cboSettingsFileVersionVdr810_));
    column->addWidget(
        NewFrame("frmRelaySettingsOptions", QStringLiteral("Relay Settings Options"), cboSelectOptions_));
    if (!options_.PairChosen()) {
        auto* missing = new QLabel(this);
        missing->setObjectName(QStringLiteral("lblNoOptionFile"));
        SetForeignText(
            *missing,
            QStringLiteral("No option file (PLC*.810) was found.  Option files belong into the folder ") +
                ShownText(plcFolder) + QLatin1Char('.'));
        missing->setWordWrap(true);
        column->addWidget(missing);
    }
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdDone_);
    buttons->addWidget(cancel);
    column->addLayout(buttons);

    for (const std::string& version : options_.Versions()) {
        cboSettingsFileVersionVdr810_->addItem(QString::fromStdString(version));
    }
    cboSettingsFileVersionVdr810_->setCurrentIndex(options_.PairChosen() ? options_.Choice().VersionIndex
                                                                         : -1);
    OfferOptions();
    connect(cboSettingsFileVersionVdr810_, &QComboBox::currentIndexChanged, this, [this](int index) {
        options_.ChooseVersion(index);
        OfferOptions();
    });
    connect(cboSelectOptions_, &QComboBox::activated, this,
            [this](int index) { options_.ChooseOptions(index); });

    cmdDone_->setDefault(true);
    cmdDone_->setEnabled(options_.PairChosen());
    (options_.PairChosen() ? cmdDone_ : cancel)->setFocus();
}

QWidget* formVdr810OptionsBrindle::NewFrame(const char* name, const QString& caption, QComboBox* box) {
    auto* frame = new QGroupBox(caption, this);
    frame->setObjectName(QString::fromLatin1(name));
    box->setAccessibleName(caption);
    box->setMinimumContentsLength(24);
    auto* column = new QVBoxLayout(frame);
    column->addWidget(box);
    return frame;
}

void formVdr810OptionsBrindle::OfferOptions() {
    cboSelectOptions_->clear();
    for (const int number : options_.Options()) {
        cboSelectOptions_->addItem(QString::number(number));
    }
    cboSelectOptions_->setCurrentIndex(options_.PairChosen() ? options_.Choice().OptionsIndex : -1);
}

} // namespace brindle
