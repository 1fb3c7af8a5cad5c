#include "platform/system_error.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

namespace brindle {

namespace {

struct MappedError {
    int SystemError;
    int Number;
};

// ENOENT is the file's absence here; whether its folder is missing too, only the one who knows the path can
// tell. ENAMETOOLONG and EINVAL are about a name: the operations for which EINVAL means something else treat
// it before they come here.
constexpr MappedError Mapped[] = {
    {ENOENT, FileNotFoundError},
    {ENOTDIR, PathNotFoundError},
    {EACCES, PermissionDeniedError},
    {EPERM, PermissionDeniedError},
    {EBUSY, PermissionDeniedError},
    {ETXTBSY, PermissionDeniedError},
    {EROFS, PathAccessError},
    {EISDIR, PathAccessError},
    {ELOOP, PathAccessError},
    {ENOTEMPTY, PathAccessError},
    {ENAMETOOLONG, BadFileNameError},
    {EINVAL, BadFileNameError},
    {EILSEQ, BadFileNameError},
    {EBADF, BadFileModeError},
    {ENOSPC, DiskFullError},
    {EDQUOT, DiskFullError},
    {EFBIG, DiskFullError},
    {EMFILE, TooManyFilesError},
    {ENFILE, TooManyFilesError},
    {ENXIO, DeviceUnavailableError},
    {ENODEV, DeviceUnavailableError},
    {EAGAIN, DeviceUnavailableError},
    {EPIPE, DeviceUnavailableError},
    {EHOSTDOWN, DeviceUnavailableError},
    {ETIMEDOUT, DeviceUnavailableError},
    {ESTALE, DeviceUnavailableError},
    {EIO, DeviceIoError},
    {EXDEV, RenameAcrossDevicesError},
    {EEXIST, FileAlreadyExistsError},
#ifdef ENOMEDIUM // Linux alone tells an empty drive from a missing one
    {ENOMEDIUM, DiskNotReadyError},
#endif
};

} // namespace

FileError SystemFileError(int systemError, std::string source) {
    const auto* row =
        std::find_if(std::begin(Mapped), std::end(Mapped),
                     [systemError](const MappedError& mapped) { return mapped.SystemError == systemError; });
    if (row == std::end(Mapped)) {
        return {InternalError, std::generic_category().message(systemError), std::move(source)};
    }
    return MakeFileError(row->Number, std::move(source));
}

} // namespace brindle
