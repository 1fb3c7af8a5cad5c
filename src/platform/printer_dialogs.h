#pragma once

#include <QPageLayout>
#include <QPageSize>
#include <QString>
#include <QStringList>

#include <functional>

class QPagedPaintDevice;
class QWidget;

namespace brindle {

/// What printing asks of the machine: its printers, of which one is current, and their fonts. A printer of no
/// name is a file of the PDF format, which is there where no printer is installed.
struct PrinterFunctions {
    std::function<QStringList()> Names; ///< of the installed printers, in the system's order
    /// The one that the system prints on when it is not told otherwise; empty for none.
    std::function<QString()> Default;
    std::function<QPageSize(const QString& name)>
        Choose;                         ///< makes a printer current; returns its usual paper
    std::function<QStringList()> Fonts; ///< of the current printer, in its own order
    std::function<QStringList()> ScreenFonts;
    /// Lets the user set up paper, margins and orientation of the current printer; true when he did.
    std::function<bool(QWidget* owner, QPageLayout& layout)> Setup;
    /// The current printer, ready for a painter to begin on it; what was painted is printed when the painter
    /// ends. Not for a file.
    std::function<QPagedPaintDevice&(const QPageLayout& layout, const QString& title)> Device;
};

/// The printers of the operating system.
PrinterFunctions SystemPrinters();

} // namespace brindle
