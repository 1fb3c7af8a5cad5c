#pragma once

#include <string>

namespace brindle {

/// Runtime error numbers of failed file operations, as messages and action codes know them.
enum FileErrorNumber : int {
    NoFileError = 0,
    OverflowError = 6,      ///< a value that its field in a file cannot hold
    OutOfMemoryError = 7,   ///< its source is empty: nothing is left to tell more with
    SubscriptError = 9,     ///< a count or an index that no logic can have
    TypeMismatchError = 13, ///< a field of a file that should be a number and is not
    InternalError = 51,     ///< a failure of the system that none of the others names
    BadFileNameError = 52,
    FileNotFoundError = 53,
    BadFileModeError = 54,
    FileAlreadyOpenError = 55,
    DeviceIoError = 57,
    FileAlreadyExistsError = 58,
    BadRecordLengthError = 59, ///< a file larger than any of its kind
    DiskFullError = 61,
    InputPastEndError = 62,
    TooManyFilesError = 67,
    DeviceUnavailableError = 68,
    PermissionDeniedError = 70,
    DiskNotReadyError = 71,
    RenameAcrossDevicesError = 74,
    PathAccessError = 75,
    PathNotFoundError = 76,
    CancelledError = 32755, ///< the user was asked and ended the command
};

/// What a file operation came to. `Number` 0 is well; any other has its description ("Disk full") and, as
/// source, the operation that failed and its path ("write /home/me/x.pl").
struct FileError {
    int Number = NoFileError;
    std::string Description;
    std::string Source;

    [[nodiscard]] bool Failed() const { return Number != NoFileError; }
};

/// The short description of a runtime error number ("File not found"); "Unknown error" for a number we never
/// give.
std::string FileErrorDescription(int number);

/// An error with the description of its number.
FileError MakeFileError(int number, std::string source);

} // namespace brindle
