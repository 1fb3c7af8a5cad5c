#include "platform/file_error.h"

#include <algorithm>
#include <array>
#include <utility>

namespace brindle {

namespace {

struct DescribedNumber {
    int Number;
    const char* Description;
};

constexpr std::array<DescribedNumber, 22> Descriptions{{
    {OverflowError, "Overflow"},
    {OutOfMemoryError, "Out of memory"},
    {SubscriptError, "Subscript out of range"},
    {TypeMismatchError, "Type mismatch"},
    {InternalError, "Internal error"},
    {BadFileNameError, "Bad file name"},
    {FileNotFoundError, "File not found"},
    {BadFileModeError, "Bad file mode"},
    {FileAlreadyOpenError, "File already open"},
    {DeviceIoError, "Device I/O error"},
    {FileAlreadyExistsError, "File already exists"},
    {BadRecordLengthError, "Bad record length"},
    {DiskFullError, "Disk full"},
    {InputPastEndError, "Input past end of file"},
    {TooManyFilesError, "Too many files open"},
    {DeviceUnavailableError, "Device unavailable"},
    {PermissionDeniedError, "Permission denied"},
    {DiskNotReadyError, "Disk not ready"},
    {RenameAcrossDevicesError, "Cannot rename across devices"},
    {PathAccessError, "Path cannot be accessed"},
    {PathNotFoundError, "Path not found"},
    {CancelledError, "Cancelled"},
}};

} // namespace

std::string FileErrorDescription(int number) {
    const auto* row =
        std::find_if(Descriptions.begin(), Descriptions.end(),
                     [number](const DescribedNumber& described) { return described.Number == number; });
    return row == Descriptions.end() ? "Unknown error" : row->Description;
}

FileError MakeFileError(int number, std::string source) {
    return {number, FileErrorDescription(number), std::move(source)};
}

} // namespace brindle
