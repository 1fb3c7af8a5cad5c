#pragma once

#include "platform/file_error.h"

#include <new>

namespace brindle {

/// Runs `operation`, which returns a FileError, and returns that. A lack of memory within becomes
/// OutOfMemoryError, whose texts are short enough to need none themselves.
template<class Operation>
FileError TellLackOfMemory(const Operation& operation) {
    try {
        return operation();
    } catch (const std::bad_alloc&) {
        return MakeFileError(OutOfMemoryError, {});
    }
}

} // namespace brindle
