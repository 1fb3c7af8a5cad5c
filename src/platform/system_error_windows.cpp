#include "platform/system_error.h"

#define WIN32_LEAN_AND_MEAN
#include <algorithm>
#include <iterator>
#include <system_error>
#include <utility>
#include <windows.h>

namespace brindle {

namespace {

struct MappedError {
    int SystemError;
    int Number;
};

constexpr MappedError Mapped[] = {
    {ERROR_FILE_NOT_FOUND, FileNotFoundError},
    {ERROR_PATH_NOT_FOUND, PathNotFoundError},
    {ERROR_INVALID_DRIVE, PathNotFoundError},
    {ERROR_BAD_NETPATH, PathNotFoundError},
    {ERROR_BAD_NET_NAME, PathNotFoundError},
    {ERROR_DIRECTORY, PathNotFoundError},
    {ERROR_ACCESS_DENIED, PermissionDeniedError},
    {ERROR_SHARING_VIOLATION, PermissionDeniedError},
    {ERROR_LOCK_VIOLATION, PermissionDeniedError},
    {ERROR_WRITE_PROTECT, PermissionDeniedError},
    {ERROR_NETWORK_ACCESS_DENIED, PermissionDeniedError},
    {ERROR_PRIVILEGE_NOT_HELD, PermissionDeniedError},
    {ERROR_USER_MAPPED_FILE, PermissionDeniedError},
    {ERROR_DELETE_PENDING, PermissionDeniedError},
    {ERROR_BUSY, PermissionDeniedError},
    {ERROR_CANT_RESOLVE_FILENAME, PathAccessError}, // links in a circle
    {ERROR_CURRENT_DIRECTORY, PathAccessError},
    {ERROR_INVALID_NAME, BadFileNameError},
    {ERROR_BAD_PATHNAME, BadFileNameError},
    {ERROR_FILENAME_EXCED_RANGE, BadFileNameError},
    {ERROR_NO_UNICODE_TRANSLATION, BadFileNameError},
    {ERROR_INVALID_HANDLE, BadFileModeError},
    {ERROR_DISK_FULL, DiskFullError},
    {ERROR_HANDLE_DISK_FULL, DiskFullError},
    {ERROR_FILE_TOO_LARGE, DiskFullError},
    {ERROR_TOO_MANY_OPEN_FILES, TooManyFilesError},
    {ERROR_BAD_UNIT, DeviceUnavailableError},
    {ERROR_DEV_NOT_EXIST, DeviceUnavailableError},
    {ERROR_DEVICE_NOT_CONNECTED, DeviceUnavailableError},
    {ERROR_NETNAME_DELETED, DeviceUnavailableError},
    {ERROR_UNEXP_NET_ERR, DeviceUnavailableError},
    {ERROR_SEM_TIMEOUT, DeviceUnavailableError},
    {ERROR_NO_DATA, DeviceUnavailableError},
    {ERROR_BROKEN_PIPE, DeviceUnavailableError},
    {ERROR_CRC, DeviceIoError},
    {ERROR_SEEK, DeviceIoError},
    {ERROR_SECTOR_NOT_FOUND, DeviceIoError},
    {ERROR_WRITE_FAULT, DeviceIoError},
    {ERROR_READ_FAULT, DeviceIoError},
    {ERROR_GEN_FAILURE, DeviceIoError},
    {ERROR_IO_DEVICE, DeviceIoError},
    {ERROR_FILE_CORRUPT, DeviceIoError},
    {ERROR_DISK_CORRUPT, DeviceIoError},
    {ERROR_NOT_READY, DiskNotReadyError},
    {ERROR_NO_MEDIA_IN_DRIVE, DiskNotReadyError},
    {ERROR_UNRECOGNIZED_VOLUME, DiskNotReadyError},
    {ERROR_NOT_SAME_DEVICE, RenameAcrossDevicesError},
    {ERROR_FILE_EXISTS, FileAlreadyExistsError},
    {ERROR_ALREADY_EXISTS, FileAlreadyExistsError},
};

} // namespace

FileError SystemFileError(int systemError, std::string source) {
    const auto* row =
        std::find_if(std::begin(Mapped), std::end(Mapped),
                     [systemError](const MappedError& mapped) { return mapped.SystemError == systemError; });
    if (row == std::end(Mapped)) {
        return {InternalError, std::system_category().message(systemError), std::move(source)};
    }
    return MakeFileError(row->Number, std::move(source));
}

} // namespace brindle
