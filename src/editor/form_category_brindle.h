#pragma once

#include "editor/category_choosers.h"

#include <QWidget>

#include <functional>

class QScrollArea;

namespace brindle {

/// The chooser of one category: a button per signal, in a small window of its own that stays above its owner.
/// Longer than its screen, the list scrolls.
class formCategoryBrindle : public QWidget {
    Q_OBJECT
  public:
    /// `category` counts from 0 and is part of the window's name.
    formCategoryBrindle(int category, QWidget* owner);

    std::function<void(int button)> OnButton; ///< a button was pressed; from 0
    std::function<void()> OnUsed;             ///< the user works in the window
    std::function<void()> OnClosed;           ///< the user closed the window
    std::function<void()> OnBack;             ///< the keyboard is wanted back in the main window

    /// Makes the window `width` pixels wide with the buttons of `view`.
    void ShowView(const ChooserView& view, int width);

    /// The keyboard goes to the button that had it last, at first to the first.
    void FocusButton();

    /// The window's height in pixels that shows every button.
    [[nodiscard]] int FullHeight() const;

    /// The width in pixels that shows every caption of `view`.
    [[nodiscard]] int WidthFor(const ChooserView& view) const;

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    QScrollArea* scroll_;
};

} // namespace brindle
