#include "model/code_page.h"
#include "model/signal_catalogue.h"

#include <algorithm>

namespace brindle {

namespace {

/// The caption with "&" before its access key. One that is the very name has none, and shows its "&".
std::string MenuCaption(const Vdr810Category& category) {
    std::string caption;
    for (const char c : category.Caption) {
        caption.append(c == '&' && category.Caption == category.Name ? 2 : 1, c);
    }
    return Utf8OfWindows1252(caption);
}

} // namespace

SignalCatalogue BuildVdr810Catalogue(const Vdr810Lists& lists) {
    SignalCatalogue catalogue;
    for (const Vdr810Category& category : lists.Categories) {
        if (IsEnd(category)) {
            break;
        }
        catalogue.Categories.push_back(
            {category.Number, MenuCaption(category), Utf8OfWindows1252(category.Name), true, true});
    }
    for (const Vdr810Label& label : lists.Labels) {
        if (IsEnd(label)) {
            break;
        }
        catalogue.PositionOfNumber.emplace_back(label.Signal, catalogue.Signals.size());
        catalogue.Signals.push_back({label.Category, label.Signal, Utf8OfWindows1252(label.Name),
                                     Utf8OfWindows1252(label.Caption), label.Enabled, label.Visible});
    }
    // Of two labels of one number the first in the file names it, and lookups find the lowest position.
    std::sort(catalogue.PositionOfNumber.begin(), catalogue.PositionOfNumber.end());
    return catalogue;
}

} // namespace brindle
