#include "memory/failing_memory.h"

#include <cstdlib>
#include <new>

namespace brindle {

namespace {

std::size_t allocationsLeft = 0; // until one fails; 0 fails none
bool lasting = false;
bool hasFailed = false;
std::size_t bytesAllocated = 0;

bool Fails() {
    if (hasFailed) {
        return lasting;
    }
    if (allocationsLeft == 0 || --allocationsLeft != 0) {
        return false;
    }
    hasFailed = true;
    return true;
}

} // namespace

void RunOutOfMemory(std::size_t n, Shortage shortage) {
    allocationsLeft = n;
    lasting = shortage == Shortage::Lasting;
    hasFailed = false;
}

bool HaveMemoryAgain() {
    const bool hadFailed = hasFailed;
    allocationsLeft = 0;
    hasFailed = false;
    return hadFailed;
}

std::size_t BytesAllocated() {
    return bytesAllocated;
}

static void CountAllocation(std::size_t size) {
    bytesAllocated += size;
}

} // namespace brindle

void* operator new(std::size_t size) {
    brindle::CountAllocation(size);
    void* const memory = brindle::Fails() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    brindle::CountAllocation(size);
    return brindle::Fails() ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
    std::free(memory);
}
