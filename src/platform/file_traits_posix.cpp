#include "platform/file_traits_posix.h"

#include "platform/system_error.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace brindle {

namespace {

constexpr const char* AccessListName = "system.posix_acl_access";
constexpr mode_t AllBits = 07777;
constexpr mode_t SpecialBits = 07000;
constexpr mode_t OwnerBits = 0700;
constexpr mode_t ClassBits = 07; // of one of owner, group and others
constexpr unsigned GroupShift = 3;
constexpr unsigned OwnerShift = 6;

/// Attributes that tell of the content, not of the file: those of the old one would be wrong for the new.
constexpr std::array OfContent{"security.ima", "security.evm", "security.capability"};

/// What `ask`, called with a buffer and its size, yields; a size of 0 asks for the size that it needs.
/// Empty where there is nothing; false, with the reason in errno, where it fails.
template<class Ask>
bool Fetch(Ask ask, std::string& bytes) {
    bytes.clear();
    const ssize_t size = ask(nullptr, 0);
    if (size <= 0) {
        return size == 0;
    }
    bytes.resize(static_cast<std::size_t>(size));
    const ssize_t got = ask(bytes.data(), bytes.size());
    bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    return got >= 0;
}

std::vector<std::string> SplitNames(const std::string& zeroEnded) {
    std::vector<std::string> names;
    for (std::size_t at = 0; at < zeroEnded.size(); at += names.back().size() + 1) {
        names.emplace_back(zeroEnded.c_str() + at);
    }
    return names;
}

/// Group first: once the file is another's, we could not change it any more.
void TakeOwnership(const struct stat& old, const struct stat& made, FileHandle handle, FileTraits& lost) {
    constexpr auto sameOwner = static_cast<uid_t>(-1);
    constexpr auto sameGroup = static_cast<gid_t>(-1);
    lost.Group = old.st_gid != made.st_gid && ::fchown(handle, sameOwner, old.st_gid) != 0;
    lost.Owner = old.st_uid != made.st_uid && ::fchown(handle, old.st_uid, sameGroup) != 0;
}

/// Gives the file one attribute of the old one, unless it has it already.
bool TakeAttribute(const std::string& old, const std::string& name, FileHandle handle) {
    std::string wanted;
    std::string present;
    if (!Fetch([&](char* to, std::size_t size) { return ::lgetxattr(old.c_str(), name.c_str(), to, size); },
               wanted)) {
        return errno == ENODATA;
    }
    const bool has = Fetch(
        [&](char* to, std::size_t size) { return ::fgetxattr(handle, name.c_str(), to, size); }, present);
    return (has && present == wanted) ||
           ::fsetxattr(handle, name.c_str(), wanted.data(), wanted.size(), 0) == 0;
}

/// An access list names owner and group without saying who they are: for another group, or an owner who had
/// less than the rest, it would mean something else.
bool ListHoldsFor(mode_t mode, const FileTraits& lost) {
    const mode_t owner = mode >> OwnerShift & ClassBits;
    const mode_t others = (mode | mode >> GroupShift) & ClassBits;
    return !lost.Group && (!lost.Owner || (others & ~owner) == 0);
}

/// Access lists of other kinds than ours (of NFS 4, say) are attributes of the system too.
void TakeAttributes(const std::string& old, mode_t mode, FileHandle handle, FileTraits& lost) {
    std::string list;
    if (!Fetch([&](char* to, std::size_t size) { return ::llistxattr(old.c_str(), to, size); }, list)) {
        lost.Attributes = errno != ENOTSUP;
        return;
    }
    for (const std::string& name : SplitNames(list)) {
        if (std::find(OfContent.begin(), OfContent.end(), name) != OfContent.end()) {
            continue;
        }
        const bool isList = name.rfind("system.", 0) == 0;
        const bool taken = (!isList || ListHoldsFor(mode, lost)) && TakeAttribute(old, name, handle);
        (isList ? lost.AccessList : lost.Attributes) |= !taken;
    }
}

/// A folder may give new files an access list of its own, which the old file did not have.
void DropForeignList(const std::string& old, FileHandle handle, FileTraits& lost) {
    const bool had = ::lgetxattr(old.c_str(), AccessListName, nullptr, 0) >= 0;
    const bool has = ::fgetxattr(handle, AccessListName, nullptr, 0) >= 0;
    if (has && (!had || lost.AccessList) && ::fremovexattr(handle, AccessListName) != 0) {
        lost.AccessList = true;
    }
}

/// The bits of the old file, less what they would now mean to somebody else. Who belonged to a lost group is
/// one of the others now, and the other way round; the old owner may be either.
mode_t BitsWithout(const FileTraits& lost, mode_t mode) {
    const mode_t owner = mode >> OwnerShift & ClassBits;
    const mode_t group = mode >> GroupShift & ClassBits;
    const mode_t others = mode & ClassBits;
    mode_t keptGroup = lost.AccessList ? 0 : group;
    mode_t keptOthers = lost.AccessList ? 0 : others;
    if (lost.Group) {
        keptGroup &= others;
        keptOthers &= group;
    }
    if (lost.Owner) {
        keptGroup &= owner;
        keptOthers &= owner;
    }
    const mode_t special = lost.Owner || lost.Group ? 0 : mode & SpecialBits;
    return special | (mode & OwnerBits) | keptGroup << GroupShift | keptOthers;
}

} // namespace

bool SetPermissionBits(FileHandle handle, std::uint32_t bits) {
    struct stat now {};

    // The owner of a file is refused only where there are no such bits.
    return (::fstat(handle, &now) == 0 && (now.st_mode & AllBits) == bits) || ::fchmod(handle, bits) == 0 ||
           errno == EPERM || errno == ENOTSUP;
}

FileError TakeTraits(const std::string& old, FileHandle handle, FileTraits& lost) {
    struct stat from {};

    struct stat made {};

    lost = {};
    if (::lstat(old.c_str(), &from) != 0 || ::fstat(handle, &made) != 0) {
        return SystemFileError(errno, "look at " + old);
    }
    const mode_t mode = from.st_mode & AllBits;
    TakeOwnership(from, made, handle, lost);
    TakeAttributes(old, mode, handle, lost);
    DropForeignList(old, handle, lost);
    if (!SetPermissionBits(handle, BitsWithout(lost, mode))) {
        return SystemFileError(errno, "set the mode of the new " + old);
    }
    return {};
}

} // namespace brindle
