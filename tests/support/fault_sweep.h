#pragma once

#include "platform/file_error.h"
#include "support/fake_file_system.h"

#include <cstddef>
#include <functional>
#include <ostream>
#include <vector>

namespace brindle {

/// One fault of a disk: which operation fails, counted from when it is laid on, and with what.
struct Fault {
    std::size_t Operation = 1;
    bool ForEver = false; ///< all operations after it fail too
    int Error = DeviceIoError;

    void LayOn(FakeFileSystem& disk) const {
        ForEver ? disk.FailFrom(Operation, Error) : disk.FailOnce(Operation, Error);
    }
};

inline std::ostream& operator<<(std::ostream& stream, const Fault& fault) {
    return stream << "error " << fault.Error << " at operation " << fault.Operation
                  << (fault.ForEver ? " and ever after" : "");
}

/// What disks do most: full, forbidden, broken, gone.
inline const std::vector<int> CommonFaults{DiskFullError, PermissionDeniedError, DeviceIoError,
                                           PathNotFoundError};

/// Runs something once for each fault: each error at operation 1, 2, 3 and so on, once and for ever, until
/// `run` tells that its fault was not met. Returns the number of faults that were met.
inline std::size_t SweepFaults(const std::vector<int>& errors,
                               const std::function<bool(const Fault& fault)>& run) {
    std::size_t met = 0;
    for (const int error : errors) {
        for (const bool forEver : {false, true}) {
            for (std::size_t operation = 1; run({operation, forEver, error}); ++operation) {
                ++met;
            }
        }
    }
    return met;
}

} // namespace brindle
