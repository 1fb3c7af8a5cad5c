#include "report/form_print_brindle.h"
#include "report/text_page_painter.h"

#include <QBuffer>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

/// Printing from the print dialog: into a file, or as pages unit by unit.
namespace brindle {

namespace {

FileDialogRequest PdfRequest(const std::string& fileName) {
    FileDialogRequest request;
    request.Kind = FileDialogKind::SaveAs;
    request.Title = "Print to a PDF File";
    request.Filter = "PDF File (*.pdf)|*.pdf";
    request.DefaultExtension = "pdf";
    request.InitialFileName = PrintFileName(fileName, request.DefaultExtension);
    return request;
}

QString UnitName(const UnitPlace& place) {
    const std::string_view tag = Unit(place.Unit).Tag;
    return QStringLiteral("G%1 - %2")
        .arg(place.Group)
        .arg(QLatin1String(tag.data(), static_cast<qsizetype>(tag.size())));
}

} // namespace

void formPrintBrindle::cmdPrint_Click() {
    const std::vector<UnitPlace> units =
        UnitsToPrint(Choice(), surroundings_.Config(), surroundings_.Shown());
    lblProgress_->clear();
    if (units.empty()) {
        surroundings_.Outside.ShowMessageBox(NoGroupsNotice());
    } else if (chkPrintToFile_->isChecked()) {
        PrintText(units);
    } else if (PrintsToPdf()) {
        PrintPdf(units);
    } else {
        const QString title = QString::fromStdString(surroundings_.Config().FileTitle);
        PrintPages(surroundings_.Printers.Device(PageLayout(), title), units);
    }
}

void formPrintBrindle::PrintText(const std::vector<UnitPlace>& units) {
    const LogicConfig& config = surroundings_.Config();
    PrintToFile(surroundings_.Outside, config.FileTitle, [&] {
        return ReportText(config, surroundings_.Catalogue(), surroundings_.ReportStart(), units);
    });
}

void formPrintBrindle::PrintPdf(const std::vector<UnitPlace>& units) {
    const LogicConfig& config = surroundings_.Config();
    const auto file = surroundings_.Outside.RunFileDialog(PdfRequest(config.FileTitle));
    if (!file) {
        return;
    }
    QBuffer pages;
    pages.open(QIODevice::WriteOnly);
    PrintResult result;
    {
        QPdfWriter writer(&pages);
        writer.setPageLayout(PageLayout());
        writer.setTitle(QString::fromStdString(config.FileTitle));
        writer.setCreator(QCoreApplication::applicationName());
        result = PrintPages(writer, units);
    }
    // Cancelled or failed, what is printed is kept, as a printer would have it.
    if (result.Printed > 0 &&
        !WritePrintFile(surroundings_.Outside, file->FileName, pages.data().toStdString())) {
        lblProgress_->clear();
    }
}

PrintResult formPrintBrindle::PrintPages(QPagedPaintDevice& device, const std::vector<UnitPlace>& units) {
    PrintResult result{PrintOutcome::Failed, 0};
    QPainter painter;
    if (painter.begin(&device)) {
        if (optPrintText_->isChecked()) {
            TextPagePainter pages(device, painter, cmbFontList_->currentText());
            UnitReportRequest request = surroundings_.ReportStart();
            result = RunPages(units, [&](const UnitPlace& unit) {
                request.Group = unit.Group;
                request.Unit = unit.Unit;
                return pages.PrintUnit(
                    BuildUnitReport(surroundings_.Config(), surroundings_.Catalogue(), request));
            });
        } else {
            PicturePagePainter pages(device, painter);
            const QString caption = QString::fromStdString(surroundings_.Title());
            result = RunPages(units, [&](const UnitPlace&) {
                return pages.PrintPicture(caption, surroundings_.Picture());
            });
        }
        if (!painter.end()) {
            result.Outcome = PrintOutcome::Failed;
        }
    }
    lblProgress_->setText(QStringLiteral("%1 of %2 units printed.").arg(result.Printed).arg(units.size()));
    if (result.Outcome == PrintOutcome::Failed) {
        surroundings_.Outside.ShowMessageBox(PrintFailedNotice());
    }
    return result;
}

PrintResult formPrintBrindle::RunPages(const std::vector<UnitPlace>& units,
                                       const std::function<bool(const UnitPlace& unit)>& print) {
    PrintRun run;
    run.Show = surroundings_.Show;
    run.Print = print;
    run.Progress = [this](const UnitPlace& unit, std::size_t printed, std::size_t total) {
        ShowProgress(unit, printed, total);
    };
    run.Cancelled = [this] { return cancelled_; };
    ShowRunning(true);
    surroundings_.BeginPrinting();
    const PrintResult result = RunPrint(units, run);
    surroundings_.EndPrinting();
    ShowRunning(false);
    return result;
}

void formPrintBrindle::ShowRunning(bool running) {
    running_ = running;
    cancelled_ = false;
    if (running) {
        cmdCancel_->setFocus(); // not to be lost with the controls that are disabled
    }
    choices_->setEnabled(!running);
    cmdPrint_->setEnabled(!running);
    cmdCancel_->setText(running ? QStringLiteral("Cancel") : QStringLiteral("&Close"));
    prgUnits_->setVisible(running);
    if (!running) {
        cmdPrint_->setFocus();
    }
}

void formPrintBrindle::ShowProgress(const UnitPlace& unit, std::size_t printed, std::size_t total) {
    lblProgress_->setText(
        QStringLiteral("Printing %1 (%2 of %3)...").arg(UnitName(unit)).arg(printed + 1).arg(total));
    prgUnits_->setRange(0, static_cast<int>(total));
    prgUnits_->setValue(static_cast<int>(printed));
    QCoreApplication::processEvents(); // draws the last unit shown, and hears the Cancel button
}

void formPrintBrindle::reject() {
    if (running_) {
        cancelled_ = true;
    } else {
        QDialog::reject();
    }
}

} // namespace brindle
