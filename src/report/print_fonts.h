#pragma once

#include <string>
#include <vector>

/// Which fonts the print dialog offers, from the lists of names that the printer and the screen have.
namespace brindle {

/// The font to print with, unless the user chooses another: the first in the printer's own order that is one
/// of the usual fonts for reports, else the printer's first. Empty where the printer has none.
std::string FontForPrinter(const std::vector<std::string>& printerFonts);

/// The printer's fonts that the screen has too, in the printer's order, each once.
std::vector<std::string> FontsOnBoth(const std::vector<std::string>& printerFonts,
                                     const std::vector<std::string>& screenFonts);

/// A listing of how the fonts of printer and screen match, to find out why a font is not offered. Each font
/// stands beside its match, or alone. Lines end in CR LF.
std::string FontListing(const std::string& printer, const std::string& currentFont,
                        const std::vector<std::string>& printerFonts,
                        const std::vector<std::string>& screenFonts);

} // namespace brindle
