#pragma once

#include <QObject>

#include <functional>
#include <memory>

namespace brindle {

/// What becomes of the program when others end it. Nobody is asked then.
struct OutsideEndSteps {
    std::function<void()> KeepWork;   ///< unsaved work goes into a copy now
    std::function<void()> AskNothing; ///< the windows are about to be closed, and not by the user
    std::function<void()> End;        ///< ends the program at once
};

/// Sees to unsaved work when the program is ended from outside: by the system (a signal, the end of the
/// console), or with the desktop's session.
class OutsideEnd : public QObject {
  public:
    /// One at a time; as long as there is an application.
    explicit OutsideEnd(OutsideEndSteps steps);
    ~OutsideEnd() override;

    OutsideEnd(const OutsideEnd&) = delete;
    OutsideEnd& operator=(const OutsideEnd&) = delete;
    OutsideEnd(OutsideEnd&&) = delete;
    OutsideEnd& operator=(OutsideEnd&&) = delete;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    OutsideEndSteps steps_;
    std::unique_ptr<QObject> termination_;
};

} // namespace brindle
