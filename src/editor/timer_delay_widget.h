#pragma once

#include "editor/diagram_layout.h"
#include "editor/editor.h"
#include "editor/unit_view.h"

#include <QLineEdit>

#include <functional>

class QLabel;

/// The controls of one delay of a timer. They are children of the diagram, which draws the timer itself.
namespace brindle {

/// A text box that takes the keys its owner lets pass, and shows by its ground that it has the keyboard.
class TimerBoxWidget : public QLineEdit {
    Q_OBJECT
  public:
    TimerBoxWidget(const QString& name, QWidget* parent);

    /// Asked for each key that would type a character: whether it may.
    std::function<bool(char32_t character)> MayType;

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

/// What the controls of a delay tell of.
struct DelayEvents {
    std::function<bool(char32_t character)> KeyPress;         ///< whether a key may type its character
    std::function<TimerEcho(const std::string& text)> Change; ///< the user changed the text
    std::function<void()> Load;                               ///< showing a timer changed the text
};

/// One delay of a timer: its label, box and read-out, and its caption in the timer's symbol.
class DelayControls {
  public:
    /// `letters` are "PU" or "DO", as in the controls' names.
    DelayControls(QWidget* parent, const QString& letters, const QString& label, DelayEvents events);

    DelayControls(const DelayControls&) = delete;
    DelayControls& operator=(const DelayControls&) = delete;
    DelayControls(DelayControls&&) = delete;
    DelayControls& operator=(DelayControls&&) = delete;
    ~DelayControls() = default;

    /// Comes after `previous` in the order of the Tab key; returns what the next control comes after.
    QWidget* TabAfter(QWidget* previous);
    void SetShown(bool shown);
    void Show(const std::string& caption, const std::string& text, const std::string& readOut,
              UnitRedraw redraw);
    void Place(const LayoutRect& label, const LayoutRect& box, const LayoutRect& readOut,
               const LayoutRect& caption);

  private:
    void Changed(const QString& text);

    DelayEvents events_;
    bool loading_ = false; ///< a timer is being shown: the change of text is not the user's doing
    QLabel* label_;        ///< lblTimerPU, lblTimerDO
    TimerBoxWidget* box_;  ///< txtTimerPU, txtTimerDO
    QLabel* readOut_;      ///< lblPUTime, lblDOTime
    QLabel* caption_;      ///< lblTPU, lblTDO
};

} // namespace brindle
