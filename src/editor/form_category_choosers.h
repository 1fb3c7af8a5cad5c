#pragma once

#include "editor/category_choosers.h"

#include <functional>
#include <vector>

class QWidget;

namespace brindle {

class formCategoryBrindle;

/// What the choosers tell of. Categories and buttons count from 0.
struct ChooserEvents {
    std::function<void(int category, int button)> Chosen;
    std::function<void(int category)> Used;
    std::function<void(int category)> Closed;
    std::function<void()> Back; ///< the keyboard is wanted back in the main window
};

/// The windows of the choosers, each made when it is first shown and kept until the program ends.
class CategoryChooserForms {
  public:
    /// `owner` is the main window, above which the choosers stay.
    CategoryChooserForms(QWidget* owner, ChooserEvents events);

    CategoryChooserForms(const CategoryChooserForms&) = delete;
    CategoryChooserForms& operator=(const CategoryChooserForms&) = delete;
    CategoryChooserForms(CategoryChooserForms&&) = delete;
    CategoryChooserForms& operator=(CategoryChooserForms&&) = delete;
    ~CategoryChooserForms() = default;

    /// Follows a new catalogue: what each chooser shows, and the width that all share.
    void ShowViews(std::vector<ChooserView> views);

    void Show(int category);
    void Hide(int category);
    void MoveHome(int category);
    void Raise(int category);

    /// Gives a chooser the keyboard, at the button that had it.
    void Focus(int category);

  private:
    formCategoryBrindle& Form(int category);
    [[nodiscard]] ChooserHome Home(int category);
    [[nodiscard]] int Width();

    QWidget* owner_;
    ChooserEvents events_;
    std::vector<ChooserView> views_;
    std::vector<formCategoryBrindle*> forms_; ///< owned by `owner_`; null until first shown
    int width_ = 0;                           ///< pixels; 0 until it is needed
};

} // namespace brindle
