#include "report/print_fonts.h"

#include <algorithm>
#include <array>
#include <set>
#include <string_view>

namespace brindle {

namespace {

constexpr std::array<std::string_view, 4> ReportFonts{"Arial", "Courier New", "Times New Roman", "Tahoma"};
constexpr const char* LineEnd = "\r\n";

using Names = std::vector<std::string>;

/// A line for each of `fonts`, with the same font of `others` where there is one.
std::string Pairs(const Names& fonts, const Names& others) {
    const std::set<std::string> known(others.begin(), others.end());
    std::string text;
    for (const std::string& font : fonts) {
        text += font + "    ,    " + (known.count(font) > 0 ? font : std::string()) + LineEnd;
    }
    return text;
}

} // namespace

std::string FontForPrinter(const Names& printerFonts) {
    const auto found =
        std::find_first_of(printerFonts.begin(), printerFonts.end(), ReportFonts.begin(), ReportFonts.end());
    if (found != printerFonts.end()) {
        return *found;
    }
    return printerFonts.empty() ? std::string() : printerFonts.front();
}

Names FontsOnBoth(const Names& printerFonts, const Names& screenFonts) {
    std::set<std::string> wanted(screenFonts.begin(), screenFonts.end());
    Names fonts;
    for (const std::string& font : printerFonts) {
        if (wanted.erase(font) > 0) {
            fonts.push_back(font);
        }
    }
    return fonts;
}

std::string FontListing(const std::string& printer, const std::string& currentFont, const Names& printerFonts,
                        const Names& screenFonts) {
    std::string text;
    text += "Printer: " + printer + LineEnd;
    text += "Current Font: >" + currentFont + "< " + LineEnd;
    text += "Printer Font Count: >" + std::to_string(printerFonts.size()) + LineEnd;
    text += " Screen Font Count: >" + std::to_string(screenFonts.size()) + LineEnd;
    text += std::string("Fonts Available: Printer   ,    screen ") + LineEnd;
    text += Pairs(printerFonts, screenFonts);
    text += std::string("Fonts Available: Screen   ,    Printer ") + LineEnd;
    text += Pairs(screenFonts, printerFonts);
    text += " Number of Matches: " + std::to_string(FontsOnBoth(printerFonts, screenFonts).size()) + LineEnd;
    return text;
}

} // namespace brindle
