#include "platform/termination_notifier.h"

#include <QObject>

#include <atomic>
#include <cstdlib>
#include <utility>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace brindle {

namespace {

class ConsoleNotifier;

/// The system calls a handler that knows nothing but globals, in a thread of its own.
std::atomic<ConsoleNotifier*> toldOfConsole = nullptr;

class ConsoleNotifier : public QObject {
  public:
    explicit ConsoleNotifier(std::function<void()> wanted) : wanted_(std::move(wanted)) {
        toldOfConsole = this;
        SetConsoleCtrlHandler(TellOfConsole, TRUE);
    }

    ~ConsoleNotifier() override {
        SetConsoleCtrlHandler(TellOfConsole, FALSE);
        toldOfConsole = nullptr;
    }

    ConsoleNotifier(const ConsoleNotifier&) = delete;
    ConsoleNotifier& operator=(const ConsoleNotifier&) = delete;
    ConsoleNotifier(ConsoleNotifier&&) = delete;
    ConsoleNotifier& operator=(ConsoleNotifier&&) = delete;

  private:
    static BOOL WINAPI TellOfConsole(DWORD /*event*/) {
        constexpr DWORD timeToEnd = 5000; // milliseconds; the system ends the program once this returns
        ConsoleNotifier* told = toldOfConsole;
        if (told == nullptr) {
            return FALSE;
        }
        QMetaObject::invokeMethod(
            told, [told] { told->wanted_(); }, Qt::QueuedConnection);
        Sleep(timeToEnd);
        return TRUE;
    }

    std::function<void()> wanted_;
};

} // namespace

std::unique_ptr<QObject> NotifyOfTermination(std::function<void()> wanted) {
    return std::make_unique<ConsoleNotifier>(std::move(wanted));
}

void EndAsWanted() {
    std::_Exit(1);
}

} // namespace brindle
