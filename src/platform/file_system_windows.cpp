#include "platform/file_system.h"
#include "platform/file_traits_windows.h"
#include "platform/paths.h"
#include "platform/system_error.h"
#include "platform/wide_text_windows.h"

#define WIN32_LEAN_AND_MEAN
#include <algorithm>
#include <cstdint>
#include <windows.h>

/// The documented name of RtlGenRandom, which has no header of its own.
extern "C" BOOLEAN NTAPI SystemFunction036(PVOID bytes, ULONG size);

namespace brindle {

namespace {

constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::size_t GreatestTransfer = 1U << 30U; // the system counts a transfer in 32 bits

/// The failure that GetLastError() tells.
FileError Failure(const char* operation, const std::string& path = {}) {
    const auto systemError = static_cast<int>(GetLastError());
    return SystemFileError(systemError, path.empty() ? operation : operation + (" " + path));
}

/// Names that the system would take for something else: empty, or cut at an embedded zero.
bool IsIllegal(const std::string& path) {
    return path.empty() || path.find('\0') != std::string::npos;
}

FileError IllegalName(const char* operation, const std::string& path) {
    return MakeFileError(BadFileNameError, operation + (" " + std::string(path.c_str())));
}

// The system's handles have 32 significant bits, sign-extended, so that 32- and 64-bit programs can share
// them.
FileHandle Narrow(HANDLE handle) {
    return static_cast<FileHandle>(reinterpret_cast<std::intptr_t>(handle));
}

HANDLE Widen(FileHandle handle) {
    return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(handle));
}

bool IsAbsence(DWORD systemError) {
    return systemError == ERROR_FILE_NOT_FOUND || systemError == ERROR_PATH_NOT_FOUND;
}

/// Whether the last name of a path is that of a device wherever it stands: NUL, CON, COM1 and the like.
bool IsDevice(const std::wstring& path) {
    std::wstring full(MAX_PATH, L'\0');
    const DWORD length =
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    return length > 0 && length < full.size() && full.compare(0, 4, L"\\\\.\\") == 0;
}

/// A file cannot be replaced while another program has it open, which scanners and indexers do for a moment
/// with any file that was just written, and cannot be opened in the moment in which it is replaced.
bool MayPass(DWORD systemError) {
    return systemError == ERROR_ACCESS_DENIED || systemError == ERROR_SHARING_VIOLATION ||
           systemError == ERROR_LOCK_VIOLATION;
}

/// Runs `attempt`, which tells whether it went well, again while what refuses it may pass. The system's last
/// error is that of the last attempt.
template<class Attempt>
bool Patiently(Attempt attempt) {
    constexpr DWORD FirstPause = 5;      // milliseconds; each further pause is twice as long
    constexpr DWORD GreatestPause = 320; // all pauses together are 635 milliseconds
    for (DWORD pause = FirstPause; !attempt(); pause *= 2) {
        if (!MayPass(GetLastError()) || pause > GreatestPause) {
            return false;
        }
        Sleep(pause);
    }
    return true;
}

/// Opens `path` for questions about it, its links followed.
HANDLE OpenToLookAt(const std::wstring& path) {
    HANDLE handle = INVALID_HANDLE_VALUE;
    Patiently([&] {
        handle = CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, ShareAll, nullptr, OPEN_EXISTING,
                             FILE_FLAG_BACKUP_SEMANTICS, nullptr);
        return handle != INVALID_HANDLE_VALUE;
    });
    return handle;
}

std::uint64_t Joined(DWORD high, DWORD low) {
    return static_cast<std::uint64_t>(high) << 32U | low;
}

FileError GetStatus(const std::string& path, FileStatus& status) {
    status = {};
    if (IsIllegal(path)) {
        return IllegalName("look at", path);
    }
    const std::wstring wide = WideText(path);
    if (IsDevice(wide)) {
        status.Type = FileType::Device;
        status.Writable = true;
        return {};
    }
    HANDLE handle = OpenToLookAt(wide);
    if (handle == INVALID_HANDLE_VALUE) {
        return IsAbsence(GetLastError()) ? FileError{} : Failure("look at", path);
    }
    BY_HANDLE_FILE_INFORMATION found{};
    FileError error;
    if (GetFileType(handle) != FILE_TYPE_DISK) {
        status.Type = FileType::Other;
    } else if (GetFileInformationByHandle(handle, &found) == 0) {
        error = Failure("look at", path);
    } else {
        const bool folder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        status.Type = folder ? FileType::Folder : FileType::Regular;
        status.Size = Joined(found.nFileSizeHigh, found.nFileSizeLow);
        status.Writable = (found.dwFileAttributes & FILE_ATTRIBUTE_READONLY) == 0;
        status.WrittenAt = static_cast<std::int64_t>(
            Joined(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime));
        status.Names = found.nNumberOfLinks;
        status.Identity = {found.dwVolumeSerialNumber, Joined(found.nFileIndexHigh, found.nFileIndexLow)};
    }
    CloseHandle(handle);
    return error;
}

/// A link whose target is missing is PathNotFoundError here: the system tells where an open file lies, and
/// a missing one cannot be opened.
FileError FollowLinks(const std::string& path, std::string& target) {
    if (IsIllegal(path)) {
        return IllegalName("follow", path);
    }
    target = path;
    const std::wstring wide = WideText(path);
    DWORD attributes = INVALID_FILE_ATTRIBUTES;
    const bool known = Patiently([&] {
        attributes = GetFileAttributesW(wide.c_str());
        return attributes != INVALID_FILE_ATTRIBUTES;
    });
    if (!known) {
        return IsAbsence(GetLastError()) ? FileError{} : Failure("follow", path);
    }
    if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
        return {};
    }
    HANDLE handle = OpenToLookAt(wide);
    if (handle == INVALID_HANDLE_VALUE) {
        const bool dangling = IsAbsence(GetLastError());
        return dangling ? MakeFileError(PathNotFoundError, "follow " + path) : Failure("follow", path);
    }
    FileError error;
    std::wstring full(GetFinalPathNameByHandleW(handle, nullptr, 0, FILE_NAME_NORMALIZED), L'\0');
    const DWORD length =
        GetFinalPathNameByHandleW(handle, full.data(), static_cast<DWORD>(full.size()), FILE_NAME_NORMALIZED);
    if (length == 0 || length >= full.size()) {
        error = Failure("follow", path);
    } else {
        full.resize(length);
        target = Utf8Text(full);
    }
    CloseHandle(handle);
    return error;
}

FileError Open(const char* operation, const std::string& path, DWORD access, DWORD sharing, DWORD disposition,
               FileHandle& handle) {
    if (IsIllegal(path)) {
        return IllegalName(operation, path);
    }
    const std::wstring wide = WideText(path);
    HANDLE opened = INVALID_HANDLE_VALUE;
    const auto open = [&] {
        opened =
            CreateFileW(wide.c_str(), access, sharing, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
        return opened != INVALID_HANDLE_VALUE;
    };
    const bool well = disposition == OPEN_EXISTING ? Patiently(open) : open();
    handle = Narrow(opened);
    return well ? FileError{} : Failure(operation, path);
}

/// A mode that grants nothing to group and others is a file of this user alone; there are no other modes
/// here.
FileError CreateNew(const std::string& path, std::uint32_t mode, FileHandle& handle) {
    constexpr std::uint32_t bitsOfTheRest = 077;
    if (mode == 0 || (mode & bitsOfTheRest) != 0) {
        // Shared, because the file gets its final name, under which others may read it, while it is open.
        return Open("create", path, GENERIC_WRITE, ShareAll, CREATE_NEW, handle);
    }
    if (IsIllegal(path)) {
        return IllegalName("create", path);
    }
    HANDLE created = CreatePrivateFile(WideText(path));
    handle = Narrow(created);
    return created != INVALID_HANDLE_VALUE ? FileError{} : Failure("create", path);
}

/// Whether it is the rights of file and folder that keep us from removing a file, and not that it is open.
bool MayNotBeRemoved(const std::wstring& path) {
    HANDLE handle = CreateFileW(path.c_str(), DELETE, ShareAll, nullptr, OPEN_EXISTING,
                                FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (handle != INVALID_HANDLE_VALUE) {
        CloseHandle(handle);
        return false;
    }
    return GetLastError() == ERROR_ACCESS_DENIED;
}

FileError CreateLike(const std::string& path, const std::string& old, FileHandle& handle, FileTraits& lost) {
    if (IsIllegal(path) || IsIllegal(old)) {
        return IllegalName("create", path);
    }
    if (MayNotBeRemoved(WideText(old))) {
        return MakeFileError(PathAccessError, "replace " + old);
    }
    HANDLE created = CreateFileLike(WideText(path), WideText(old), lost);
    handle = Narrow(created);
    return created != INVALID_HANDLE_VALUE ? FileError{} : Failure("create", path);
}

/// A file is shared with readers alone: two programs that write it in place would mix what they write.
FileError OpenInPlace(const std::string& path, FileHandle& handle) {
    const DWORD sharing = IsDevice(WideText(path)) ? ShareAll : FILE_SHARE_READ;
    return Open("open", path, GENERIC_WRITE, sharing, OPEN_EXISTING, handle);
}

FileError OpenItself(const std::string& path, FileHandle& handle) {
    if (IsIllegal(path)) {
        return IllegalName("open", path);
    }
    const std::wstring wide = WideText(path);
    HANDLE opened = INVALID_HANDLE_VALUE;
    const bool well = Patiently([&] {
        opened = CreateFileW(wide.c_str(), GENERIC_READ, ShareAll, nullptr, OPEN_EXISTING,
                             FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS, nullptr);
        return opened != INVALID_HANDLE_VALUE;
    });
    if (!well) {
        return Failure("open", path);
    }
    constexpr DWORD NoFile = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    BY_HANDLE_FILE_INFORMATION found{};
    if (GetFileType(opened) != FILE_TYPE_DISK || GetFileInformationByHandle(opened, &found) == 0 ||
        (found.dwFileAttributes & NoFile) != 0) {
        CloseHandle(opened);
        return MakeFileError(PathAccessError, "open " + path);
    }
    handle = Narrow(opened);
    return {};
}

FileError Read(FileHandle handle, char* bytes, std::size_t size, std::size_t& got) {
    DWORD count = 0;
    const auto wanted = static_cast<DWORD>(std::min(size, GreatestTransfer));
    const bool well = ReadFile(Widen(handle), bytes, wanted, &count, nullptr) != 0;
    got = well ? count : 0;
    return well ? FileError{} : Failure("read");
}

FileError Write(FileHandle handle, const char* bytes, std::size_t size) {
    while (size > 0) {
        DWORD count = 0;
        const auto wanted = static_cast<DWORD>(std::min(size, GreatestTransfer));
        if (WriteFile(Widen(handle), bytes, wanted, &count, nullptr) == 0) {
            return Failure("write");
        }
        if (count == 0) { // taken nothing and said nothing: trying again might never end
            return MakeFileError(DeviceIoError, "write");
        }
        bytes += count;
        size -= count;
    }
    return {};
}

FileError CutOff(FileHandle handle, std::size_t size) {
    FILE_END_OF_FILE_INFO end{};
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
    return SetFileInformationByHandle(Widen(handle), FileEndOfFileInfo, &end, sizeof end) != 0
               ? FileError{}
               : Failure("cut off");
}

FileError Flush(FileHandle handle) {
    if (FlushFileBuffers(Widen(handle)) != 0) {
        return {};
    }
    const auto systemError = static_cast<int>(GetLastError());
    // Devices that keep nothing have nothing to flush; that they were written says that we may.
    const bool nothing = systemError == ERROR_INVALID_FUNCTION || systemError == ERROR_INVALID_HANDLE ||
                         systemError == ERROR_ACCESS_DENIED;
    return nothing && GetFileType(Widen(handle)) != FILE_TYPE_DISK ? FileError{}
                                                                   : SystemFileError(systemError, "flush");
}

FileError Rename(const std::string& from, const std::string& to) {
    if (IsIllegal(from) || IsIllegal(to)) {
        return IllegalName("rename to", to);
    }
    const std::wstring source = WideText(from);
    const std::wstring target = WideText(to);
    const DWORD flags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    const bool renamed = Patiently([&] { return MoveFileExW(source.c_str(), target.c_str(), flags) != 0; });
    return renamed ? FileError{} : Failure("rename to", to);
}

FileError Remove(const std::string& path) {
    if (IsIllegal(path)) {
        return IllegalName("remove", path);
    }
    return DeleteFileW(WideText(path).c_str()) != 0 ? FileError{} : Failure("remove", path);
}

/// Sharing with nobody is refused as long as anybody has the file open; what closing then deletes is the file
/// that was opened, whatever has become of its name.
FileError RemoveAbandoned(const std::string& path) {
    if (IsIllegal(path)) {
        return IllegalName("take away", path);
    }
    const std::wstring wide = WideText(path);
    if (BelongsToAnother(wide)) {
        return MakeFileError(PermissionDeniedError, "take away " + path);
    }
    HANDLE handle = CreateFileW(wide.c_str(), DELETE, 0, nullptr, OPEN_EXISTING,
                                FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return GetLastError() == ERROR_SHARING_VIOLATION
                   ? MakeFileError(FileAlreadyOpenError, "take away " + path)
                   : Failure("take away", path);
    }
    CloseHandle(handle);
    return {};
}

bool IsAbandoned(const std::string& path) {
    const std::wstring wide = WideText(path);
    if (IsIllegal(path) || BelongsToAnother(wide)) {
        return false;
    }
    HANDLE handle = CreateFileW(wide.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return false;
    }
    CloseHandle(handle);
    return true;
}

/// The system also finds by the short names that it gives files, and without regard to case.
std::vector<std::string> NamesIn(const std::string& folder, const std::string& start) {
    std::vector<std::string> names;
    WIN32_FIND_DATAW found{};
    HANDLE search = FindFirstFileW(WideText(JoinPath(folder, start + "*")).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
        return names;
    }
    do {
        const std::string name = Utf8Text(found.cFileName);
        if (name.starts_with(start)) {
            names.push_back(name);
        }
    } while (FindNextFileW(search, &found) != 0);
    FindClose(search);
    return names;
}

std::uint64_t Chance() {
    std::uint64_t number = 0;
    if (SystemFunction036(&number, sizeof number) == 0) {
        // A system without chance: a number that is another each time has to do.
        static std::uint64_t count = 0;
        number = static_cast<std::uint64_t>(GetCurrentProcessId()) << 32U | ++count;
    }
    return number;
}

} // namespace

FileSystem RealFileSystem() {
    FileSystem files;
    files.Status = GetStatus;
    files.FollowLinks = FollowLinks;
    files.OpenForReading = [](const std::string& path, FileHandle& handle) {
        return Open("open", path, GENERIC_READ, ShareAll, OPEN_EXISTING, handle);
    };
    files.OpenItself = OpenItself;
    files.Read = Read;
    files.CreateNew = CreateNew;
    files.CreateLike = CreateLike;
    files.OpenInPlace = OpenInPlace;
    files.Write = Write;
    files.CutOff = CutOff;
    files.Flush = Flush;
    files.Close = [](FileHandle handle) {
        return CloseHandle(Widen(handle)) != 0 ? FileError{} : Failure("close");
    };
    files.Rename = Rename;
    files.Remove = Remove;
    files.RemoveAbandoned = RemoveAbandoned;
    files.IsAbandoned = IsAbandoned;
    files.NamesIn = NamesIn;
    files.Chance = Chance;
    // MOVEFILE_WRITE_THROUGH has put the new name on the disk by the time that the renaming returns.
    files.FlushFolder = [](const std::string& /*folder*/) { return FileError{}; };
    return files;
}

} // namespace brindle
