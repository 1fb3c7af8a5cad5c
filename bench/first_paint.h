#pragma once

#include <QObject>

class QWidget;

namespace brindle {

/// Waits for the moment at which the user sees a window, which is where a start-up ends. The program then
/// tells on standard output what it took, "KILOBYTES WIDTH HEIGHT": its resident memory and the window's size
/// in pixels.
class FirstPaint : public QObject {
  public:
    /// Before `window` is shown; `window` outlives this.
    explicit FirstPaint(QWidget& window);

    /// Runs the shown window until it has been painted, tells, and returns the program's exit code: 1 when
    /// the resident memory is not known.
    int Run();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Tell();

    QWidget& window_;
};

} // namespace brindle
