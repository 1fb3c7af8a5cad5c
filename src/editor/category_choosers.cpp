#include "editor/category_choosers.h"

#include <algorithm>

namespace brindle {

namespace {

constexpr int ColumnGap = 100;

} // namespace

ChooserView BuildChooserView(const SignalCatalogue& catalogue, int category) {
    const CategoryEntry& entry = catalogue.Categories.at(static_cast<std::size_t>(category));
    ChooserView view;
    view.Title = entry.Name;
    const std::size_t count = SignalCount(catalogue);
    for (std::size_t position = 0; position < count; ++position) {
        const SignalEntry& signal = catalogue.Signals[position];
        if (signal.Category == entry.Number && signal.Visible) {
            view.Buttons.push_back({static_cast<int>(position), signal.Label, signal.Enabled});
        }
    }
    return view;
}

std::vector<ChooserHome> ChooserHomes(int count, const FormBounds& screen, int chooserWidth,
                                      int titleHeight) {
    const int columnWidth = chooserWidth + ColumnGap;
    const int columns = std::max(1, screen.Width / columnWidth);
    const int half = screen.Height / 2;
    const int mostPerColumn = std::max(1, (count + columns - 1) / columns);
    const int step = std::clamp(half / mostPerColumn, 1, std::max(1, titleHeight));

    std::vector<ChooserHome> homes;
    int column = 1;
    int top = 0;
    for (int chooser = 0; chooser < count; ++chooser) {
        if (top + step > half && top > 0) {
            ++column;
            top = 0;
        }
        homes.push_back({screen.Left + std::max(0, screen.Width - columnWidth * column), screen.Top + top});
        top += step;
    }
    return homes;
}

void CategoryChoosers::Reset(int count) {
    open_.assign(static_cast<std::size_t>(count), false);
    current_ = 0;
}

void CategoryChoosers::SetOpen(int category, bool open) {
    open_.at(static_cast<std::size_t>(category)) = open;
    if (open) {
        current_ = category;
    }
}

int CategoryChoosers::OpenCount() const {
    return static_cast<int>(std::ranges::count(open_, true));
}

std::vector<int> CategoryChoosers::FromBackToFront() const {
    std::vector<int> order;
    for (int category = 0; category < Count(); ++category) {
        if (IsOpen(category) && category != current_) {
            order.push_back(category);
        }
    }
    if (current_ < Count() && IsOpen(current_)) {
        order.push_back(current_);
    }
    return order;
}

} // namespace brindle
