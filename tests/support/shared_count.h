#pragma once

#include <atomic>
#include <cstdint>
#include <new>
#include <sys/mman.h>

namespace brindle {

/// A number that a program and the children it forks have in common; it stays when one of them is killed.
class SharedCount {
  public:
    SharedCount()
        : count_(new (::mmap(nullptr, sizeof(Count), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1,
                             0)) Count(0)) {}

    ~SharedCount() { ::munmap(count_, sizeof(Count)); }

    SharedCount(const SharedCount&) = delete;
    SharedCount& operator=(const SharedCount&) = delete;

    void Increment() const { ++*count_; }

    [[nodiscard]] std::uint32_t Value() const { return *count_; }

  private:
    using Count = std::atomic<std::uint32_t>;

    Count* count_;
};

} // namespace brindle
