#pragma once

#include <csignal>
#include <functional>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace brindle {

/// A forked copy of the test program that runs `body` and ends. It makes no assertions: what it did is judged
/// by its exit status (true: 0) and by what it left on the disk. Killed when the test lets go of it.
class ChildProcess {
  public:
    explicit ChildProcess(const std::function<bool()>& body) : pid_(::fork()) {
        if (pid_ == 0) {
            ::_exit(body() ? 0 : 1);
        }
    }

    ~ChildProcess() { Kill(); }

    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    [[nodiscard]] bool Started() const { return pid_ > 0; }

    /// Ends it at whatever it is doing, with no chance to tidy up, and waits for its end. False when it had
    /// ended before.
    bool Kill() {
        if (pid_ <= 0) {
            return false;
        }
        ::kill(pid_, SIGKILL);
        return WIFSIGNALED(WaitForEnd());
    }

    /// Waits for its end; whether its body returned true.
    bool EndsWell() {
        const int status = WaitForEnd();
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

  private:
    int WaitForEnd() {
        int status = -1;
        ::waitpid(std::exchange(pid_, -1), &status, 0);
        return status;
    }

    pid_t pid_;
};

} // namespace brindle
