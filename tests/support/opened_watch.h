#pragma once

#include <array>
#include <string>
#include <sys/inotify.h>
#include <unistd.h>

namespace brindle {

/// Tells whether anybody has opened a file since the watch began. On Linux alone.
class OpenedWatch {
  public:
    explicit OpenedWatch(const std::string& path) : events_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        watching_ = ::inotify_add_watch(events_, path.c_str(), IN_OPEN) >= 0;
    }

    ~OpenedWatch() { ::close(events_); }

    OpenedWatch(const OpenedWatch&) = delete;
    OpenedWatch& operator=(const OpenedWatch&) = delete;
    OpenedWatch(OpenedWatch&&) = delete;
    OpenedWatch& operator=(OpenedWatch&&) = delete;

    /// True also when the file could not be watched: a test that hopes for false must not pass for that.
    [[nodiscard]] bool Opened() const {
        alignas(inotify_event) std::array<char, 4096> events{};
        return !watching_ || ::read(events_, events.data(), events.size()) > 0;
    }

  private:
    int events_;
    bool watching_ = false;
};

} // namespace brindle
