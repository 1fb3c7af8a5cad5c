#pragma once

#include "model/signal_catalogue.h"
#include "settings/window_placement.h"

#include <string>
#include <vector>

/// The choosers: one small window per category of signals, with a button per signal. What they show, where
/// they stand, which are open and how they lie upon each other. Categories count from 0, measures are in
/// twips.
namespace brindle {

/// The button `cmdSelectCategory`(j) of a chooser, at j of its list.
struct ChooserButton {
    int Tag; ///< position of its signal in the catalogue
    std::string Caption;
    bool Enabled;
};

struct ChooserView {
    std::string Title; ///< name of the category
    std::vector<ChooserButton> Buttons;
};

/// The chooser of the category at position `category`: its signals that are shown, in catalogue order. A
/// position without a category is a fault of the caller (std::out_of_range).
ChooserView BuildChooserView(const SignalCatalogue& catalogue, int category);

struct ChooserHome {
    int Left = 0;
    int Top = 0;

    bool operator==(const ChooserHome&) const = default;
};

/// Where each of `count` (0 or more) choosers of a positive width is placed when it is opened or located: in
/// columns from the right edge of `screen` leftwards, each one chooser and a gap wide, the tops in a column a
/// step apart down to half the screen's height. The step is `titleHeight`, so that every title shows, and
/// less where more columns than the screen has room for would be needed; no chooser begins left of the
/// screen.
std::vector<ChooserHome> ChooserHomes(int count, const FormBounds& screen, int chooserWidth, int titleHeight);

/// Which choosers are open, and which was used last.
class CategoryChoosers {
  public:
    /// For a catalogue of `count` categories: all choosers closed.
    void Reset(int count);

    /// Opens or closes a chooser; an opened one becomes the current one.
    void SetOpen(int category, bool open);

    /// The chooser was used: it is the current one, which lies on top.
    void Use(int category) { current_ = category; }

    [[nodiscard]] int Count() const { return static_cast<int>(open_.size()); }

    [[nodiscard]] bool IsOpen(int category) const { return open_.at(static_cast<std::size_t>(category)); }

    [[nodiscard]] int OpenCount() const;

    [[nodiscard]] int Current() const { return current_; }

    /// The open choosers in the order in which they are brought forward: by category, the current one last.
    [[nodiscard]] std::vector<int> FromBackToFront() const;

  private:
    std::vector<bool> open_;
    int current_ = 0;
};

} // namespace brindle
