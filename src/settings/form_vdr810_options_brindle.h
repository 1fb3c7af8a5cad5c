#pragma once

#include "settings/vdr810_options.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QPushButton;

namespace brindle {

/// Asks which settings file version and options number a new VDR810 logic is for.
class formVdr810OptionsBrindle : public QDialog {
    Q_OBJECT
  public:
    /// `options` outlives the dialog and holds the choice once it is done. `plcFolder` is where option files
    /// belong.
    formVdr810OptionsBrindle(Vdr810Options& options, const std::string& plcFolder, QWidget* owner);

  private:
    QWidget* NewFrame(const char* name, const QString& caption, QComboBox* box);
    void OfferOptions();

    Vdr810Options& options_;
    QComboBox* cboSettingsFileVersionVdr810_;
    QComboBox* cboSelectOptions_;
    QPushButton* cmdDone_;
};

} // namespace brindle
