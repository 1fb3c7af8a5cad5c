#pragma once

#include "model/logic_config.h"
#include "model/signal_catalogue.h"
#include "platform/printer_dialogs.h"
#include "report/logic_report.h"
#include "report/picture_page_painter.h"
#include "report/print_job.h"
#include "report/print_to_file.h"
#include "settings/window_placement.h"

#include <QDialog>

#include <array>
#include <functional>
#include <string>
#include <vector>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QProgressBar;
class QPagedPaintDevice;
class QPushButton;
class QRadioButton;

namespace brindle {

/// What the print dialog asks of the editor, its main window and the machine.
struct PrintSurroundings {
    std::function<const LogicConfig&()> Config;
    std::function<const SignalCatalogue&()> Catalogue;
    /// What the reports printed now have in common; its group and unit do not matter.
    std::function<UnitReportRequest()> ReportStart;
    std::function<std::string()> Title; ///< of the main window
    std::function<UnitPlace()> Shown;   ///< the unit in the main window
    std::function<void(const UnitPlace& unit)> Show;
    /// Units are about to be stepped through for printing: the main window's unselected labels are white from
    /// the next unit shown, and the logic is not modified by it.
    std::function<void()> BeginPrinting;
    std::function<void()> EndPrinting;      ///< the main window shows again what it showed before
    std::function<WindowPicture()> Picture; ///< of what the main window shows
    std::function<void(const PlacedForm& form)> RestorePlacement;
    std::function<void(const PlacedForm& form)> SavePlacement;
    PrintFileWorld Outside;
    PrinterFunctions Printers;
};

/// The window that prints units as reports or as pictures of the main window, on a printer or into a file.
class formPrintBrindle : public QDialog {
    Q_OBJECT
  public:
    formPrintBrindle(PrintSurroundings surroundings, QWidget* owner);

    /// Shows the window where it stood last, with the groups of the logic and the printers of now.
    void OpenAtPlace();

    /// While a print is running this cancels it, and the window stays.
    void reject() override;

  protected:
    void hideEvent(QHideEvent* event) override;

  private:
    QWidget* BuildPrinterRows();
    QGroupBox* BuildScopeFrame();
    QGroupBox* BuildFormatFrame();
    QGroupBox* BuildOrientationFrame();
    QWidget* BuildProgress();
    QWidget* BuildButtons();
    QRadioButton* AddOption(QGroupBox* frame, const char* name, const QString& caption);

    void OfferGroups();
    void OfferPrinters();
    void OfferFonts();
    /// A choice that has no effect on what would be printed now cannot be made.
    void EnableChoices();

    void ChoosePrinter();
    void SetupPrinter();
    [[nodiscard]] bool PrintsToPdf() const;
    [[nodiscard]] QPageLayout PageLayout() const;
    [[nodiscard]] PrintChoice Choice() const;

    void cmdPrint_Click();
    void PrintText(const std::vector<UnitPlace>& units);
    void PrintPdf(const std::vector<UnitPlace>& units);
    PrintResult PrintPages(QPagedPaintDevice& device, const std::vector<UnitPlace>& units);
    PrintResult RunPages(const std::vector<UnitPlace>& units,
                         const std::function<bool(const UnitPlace& unit)>& print);
    void ShowRunning(bool running);
    void ShowProgress(const UnitPlace& unit, std::size_t printed, std::size_t total);

    PrintSurroundings surroundings_;
    QPageLayout layout_; ///< paper and margins; the orientation is that of the options
    bool running_ = false;
    bool cancelled_ = false;

    QWidget* choices_ = nullptr; ///< all controls that are of no use while a print is running
    QComboBox* cmbPrinterList_ = nullptr;
    QComboBox* cmbFontList_ = nullptr;
    QLabel* lblFont_ = nullptr;
    QWidget* printerRows_ = nullptr;
    QRadioButton* optPrintAll_ = nullptr;
    QRadioButton* optPrintCurrentForm_ = nullptr;
    QRadioButton* optPrintSelected_ = nullptr;
    std::array<QCheckBox*, MaxGroups> chkPrintGroup_{};
    QGroupBox* fraDataFormat_ = nullptr;
    QRadioButton* optPrintText_ = nullptr;
    QRadioButton* optPrintGraphic_ = nullptr;
    QGroupBox* fraPrinterOrientation_ = nullptr;
    QRadioButton* optPrintPortrait_ = nullptr;
    QRadioButton* optPrintLandscape_ = nullptr;
    QCheckBox* chkPrintToFile_ = nullptr;
    QLabel* lblProgress_ = nullptr;
    QProgressBar* prgUnits_ = nullptr;
    QPushButton* cmdSetup_ = nullptr;
    QPushButton* cmdPrint_ = nullptr;
    QPushButton* cmdCancel_ = nullptr;
};

} // namespace brindle
