#include "platform/termination_notifier.h"

#include <QObject>
#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <map>
#include <unistd.h>
#include <utility>

namespace brindle {

namespace {

constexpr std::array Signals{SIGTERM, SIGHUP, SIGINT};

/// Which signal came, and the end of a pipe that wakes the event loop: a handler reaches nothing but globals.
volatile std::sig_atomic_t receivedSignal = SIGTERM;
volatile std::sig_atomic_t wakingEnd = -1;

/// Runs amid whatever the program does: only what is safe there.
extern "C" void TellOfSignal(int signal) {
    const int error = errno;
    receivedSignal = signal;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written =
        ::write(wakingEnd, &byte, 1); // a pipe that is full wakes as well
    errno = error;
}

class SignalNotifier : public QObject {
  public:
    explicit SignalNotifier(std::function<void()> wanted) : wanted_(std::move(wanted)) {
        std::array<int, 2> ends{-1, -1};
        if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
            return; // the system ends us as it always has
        }
        ends_ = ends;
        wakingEnd = ends_[1];
        auto* woken = new QSocketNotifier(ends_[0], QSocketNotifier::Read, this);
        connect(woken, &QSocketNotifier::activated, this, [this] { Tell(); });
        for (const int signal : Signals) {
            Take(signal);
        }
    }

    ~SignalNotifier() override {
        for (const auto& [signal, before] : before_) {
            ::sigaction(signal, &before, nullptr);
        }
        wakingEnd = -1;
        for (const int end : ends_) {
            ::close(end);
        }
    }

    SignalNotifier(const SignalNotifier&) = delete;
    SignalNotifier& operator=(const SignalNotifier&) = delete;
    SignalNotifier(SignalNotifier&&) = delete;
    SignalNotifier& operator=(SignalNotifier&&) = delete;

  private:
    void Take(int signal) {
        struct sigaction before {};

        struct sigaction now {};

        now.sa_handler = TellOfSignal;
        now.sa_flags = SA_RESTART;
        // Ignored at our start: who started us wants us to outlive his terminal.
        if (::sigaction(signal, nullptr, &before) == 0 && before.sa_handler != SIG_IGN &&
            ::sigaction(signal, &now, nullptr) == 0) {
            before_[signal] = before;
        }
    }

    void Tell() {
        std::array<char, 16> bytes{};
        while (::read(ends_[0], bytes.data(), bytes.size()) > 0) {
        }
        wanted_();
    }

    std::function<void()> wanted_;
    std::array<int, 2> ends_{-1, -1};
    std::map<int, struct sigaction> before_;
};

} // namespace

std::unique_ptr<QObject> NotifyOfTermination(std::function<void()> wanted) {
    return std::make_unique<SignalNotifier>(std::move(wanted));
}

void EndAsWanted() {
    ::signal(receivedSignal, SIG_DFL);
    ::raise(receivedSignal);
    ::_exit(1); // the signal is blocked
}

} // namespace brindle
