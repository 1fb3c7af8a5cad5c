#include "platform/printer_dialogs.h"

#include "platform/paper_dialog.h"
#include "platform/symbol_font.h"

#include <QFontDatabase>
#include <QLocale>
#include <QPageSetupDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QRawFont>

#include <memory>

namespace brindle {

namespace {

QPageSize UsualPaper() {
    const bool letter = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
    return QPageSize(letter ? QPageSize::Letter : QPageSize::A4);
}

/// Whether the letters of a family are letters.
bool HasLetters(const QString& family) {
    const QRawFont font = QRawFont::fromFont(QFont(family));
    const QByteArray os2 = font.fontTable("OS/2");
    const QByteArray cmap = font.fontTable("cmap");
    return !IsSymbolFont(family.toStdString(), {os2.constData(), static_cast<std::size_t>(os2.size())},
                         {cmap.constData(), static_cast<std::size_t>(cmap.size())});
}

/// Any font whose outlines can be sent along and that has letters. The desktop's own comes first: it is the
/// one to fall back on.
QStringList OutlineFonts() {
    const QString own = QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
    QStringList fonts;
    for (const QString& family : QFontDatabase::families(QFontDatabase::Latin)) {
        if (!QFontDatabase::isPrivateFamily(family) && QFontDatabase::isSmoothlyScalable(family) &&
            HasLetters(family)) {
            family == own ? fonts.prepend(family) : fonts.append(family);
        }
    }
    return fonts;
}

QStringList AllFonts() {
    QStringList fonts = QFontDatabase::families();
    fonts.removeIf([](const QString& family) { return QFontDatabase::isPrivateFamily(family); });
    return fonts;
}

} // namespace

PrinterFunctions SystemPrinters() {
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    PrinterFunctions functions;
    functions.Names = [] { return QPrinterInfo::availablePrinterNames(); };
    functions.Default = [] { return QPrinterInfo::defaultPrinterName(); };
    functions.Choose = [printer](const QString& name) {
        if (name.isEmpty()) {
            printer->setOutputFormat(QPrinter::PdfFormat);
            return UsualPaper();
        }
        printer->setOutputFormat(QPrinter::NativeFormat);
        printer->setPrinterName(name);
        const QPageSize paper = QPrinterInfo::printerInfo(name).defaultPageSize();
        return paper.isValid() ? paper : UsualPaper();
    };
    functions.Fonts = OutlineFonts;
    functions.ScreenFonts = AllFonts;
    functions.Setup = [printer](QWidget* owner, QPageLayout& layout) {
        if (printer->outputFormat() == QPrinter::PdfFormat) { // Windows' own dialog is for its printers alone
            return ShowPaperDialog(owner, layout);
        }
        printer->setPageLayout(layout);
        QPageSetupDialog dialog(printer.get(), owner);
        const bool accepted = dialog.exec() == QDialog::Accepted;
        if (accepted) {
            layout = printer->pageLayout();
        }
        return accepted;
    };
    functions.Device = [printer](const QPageLayout& layout, const QString& title) -> QPagedPaintDevice& {
        printer->setPageLayout(layout);
        printer->setDocName(title);
        return *printer;
    };
    return functions;
}

} // namespace brindle
