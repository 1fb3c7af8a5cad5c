#pragma once

#include "platform/wide_text_windows.h"

#include <chrono>
#include <string>
#include <thread>
#include <windows.h>

namespace brindle {

/// A file that is open and shared with nobody, as a scanner has it for a moment.
class HeldFile {
  public:
    explicit HeldFile(const std::string& path)
        : handle_(CreateFileW(WideText(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr)) {}

    /// Lets go of it after `time`.
    HeldFile(const std::string& path, std::chrono::milliseconds time) : HeldFile(path) {
        release_ = std::thread([this, time] {
            std::this_thread::sleep_for(time);
            Release();
        });
    }

    ~HeldFile() {
        if (release_.joinable()) {
            release_.join();
        }
        Release();
    }

    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

    [[nodiscard]] bool Held() const { return handle_ != INVALID_HANDLE_VALUE; }

  private:
    void Release() {
        if (Held()) {
            CloseHandle(handle_);
            handle_ = INVALID_HANDLE_VALUE;
        }
    }

    HANDLE handle_;
    std::thread release_;
};

} // namespace brindle
