#include "editor/form_category_choosers.h"

#include "editor/form_category_brindle.h"
#include "settings/screen_scale.h"

#include <QScreen>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace brindle {

namespace {

constexpr int LeastWidth = 200; // pixels
constexpr int FrameWidth = 4;   // pixels that a window's frame adds at either side, at most

/// Pixels from the top of one window to that of the next that leave its title to be read.
int TitleHeight(const QWidget& owner) {
    constexpr int least = 28;
    return std::max(least, owner.style()->pixelMetric(QStyle::PM_TitleBarHeight) + FrameWidth);
}

FormBounds InTwips(const QRect& rect) {
    return {PixelsToTwips(rect.top()), PixelsToTwips(rect.left()), PixelsToTwips(rect.height()),
            PixelsToTwips(rect.width())};
}

} // namespace

CategoryChooserForms::CategoryChooserForms(QWidget* owner, ChooserEvents events)
    : owner_(owner), events_(std::move(events)) {}

void CategoryChooserForms::ShowViews(std::vector<ChooserView> views) {
    views_ = std::move(views);
    width_ = 0;
    while (forms_.size() > views_.size()) {
        delete forms_.back();
        forms_.pop_back();
    }
    forms_.resize(views_.size(), nullptr);
    for (std::size_t i = 0; i < forms_.size(); ++i) {
        if (forms_[i] != nullptr) {
            forms_[i]->ShowView(views_[i], Width());
        }
    }
}

int CategoryChooserForms::Width() {
    if (width_ == 0) {
        width_ = LeastWidth;
        const formCategoryBrindle measure(0, owner_);
        for (const ChooserView& view : views_) {
            width_ = std::max(width_, measure.WidthFor(view));
        }
    }
    return width_;
}

formCategoryBrindle& CategoryChooserForms::Form(int category) {
    const auto index = static_cast<std::size_t>(category);
    if (forms_.at(index) == nullptr) {
        auto* form = new formCategoryBrindle(category, owner_);
        form->OnButton = [this, category](int button) { events_.Chosen(category, button); };
        form->OnUsed = [this, category] { events_.Used(category); };
        form->OnClosed = [this, category] { events_.Closed(category); };
        form->OnBack = [this] { events_.Back(); };
        form->ShowView(views_.at(index), Width());
        forms_[index] = form;
    }
    return *forms_[index];
}

ChooserHome CategoryChooserForms::Home(int category) {
    const std::vector<ChooserHome> homes =
        ChooserHomes(static_cast<int>(views_.size()), InTwips(owner_->screen()->availableGeometry()),
                     PixelsToTwips(Width() + 2 * FrameWidth), PixelsToTwips(TitleHeight(*owner_)));
    return homes.at(static_cast<std::size_t>(category));
}

void CategoryChooserForms::MoveHome(int category) {
    const ChooserHome home = Home(category);
    formCategoryBrindle& form = Form(category);
    const int top = TwipsToPixels(home.Top);
    // As high as its list, yet its foot stays on the screen.
    const QRect screen = owner_->screen()->availableGeometry();
    const int room = screen.top() + screen.height() - top - TitleHeight(*owner_) - FrameWidth;
    form.resize(form.width(), std::min(form.FullHeight(), room));
    form.move(TwipsToPixels(home.Left), top);
}

void CategoryChooserForms::Show(int category) {
    MoveHome(category);
    Form(category).show();
    Focus(category);
}

void CategoryChooserForms::Hide(int category) {
    Form(category).hide();
}

void CategoryChooserForms::Raise(int category) {
    Form(category).raise();
}

void CategoryChooserForms::Focus(int category) {
    formCategoryBrindle& form = Form(category);
    form.raise();
    form.activateWindow();
    form.FocusButton();
}

} // namespace brindle
