#include "platform/file_traits_windows.h"

#define WIN32_LEAN_AND_MEAN
#include <algorithm>
#include <cstddef>
#include <vector>
#include <windows.h>

namespace brindle {

namespace {

constexpr DWORD KeptMarks = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                            FILE_ATTRIBUTE_NOT_CONTENT_INDEXED | FILE_ATTRIBUTE_ENCRYPTED;
constexpr DWORD ShareWithAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// A structure of the system whose size it tells only when asked.
using Sized = std::vector<std::byte>;

/// Parts of a file's security descriptor; empty where the system does not tell.
Sized SecurityOf(const std::wstring& path, SECURITY_INFORMATION parts) {
    DWORD size = 0;
    GetFileSecurityW(path.c_str(), parts, nullptr, 0, &size);
    Sized descriptor(size);
    const bool told = size > 0 && GetFileSecurityW(path.c_str(), parts, descriptor.data(), size, &size) != 0;
    return told ? descriptor : Sized{};
}

PSID OwnerIn(Sized& descriptor) {
    PSID owner = nullptr;
    BOOL defaulted = FALSE;
    if (!descriptor.empty()) {
        GetSecurityDescriptorOwner(descriptor.data(), &owner, &defaulted);
    }
    return owner;
}

PACL ListIn(Sized& descriptor) {
    PACL list = nullptr;
    BOOL present = FALSE;
    BOOL defaulted = FALSE;
    if (!descriptor.empty()) {
        GetSecurityDescriptorDacl(descriptor.data(), &present, &list, &defaulted);
    }
    return list;
}

/// Two entries say the same, wherever they come from.
bool SameEntry(PACL first, PACL second, DWORD index) {
    void* one = nullptr;
    void* other = nullptr;
    if (GetAce(first, index, &one) == 0 || GetAce(second, index, &other) == 0) {
        return false;
    }
    const auto* header = static_cast<const ACE_HEADER*>(one);
    const auto* otherHeader = static_cast<const ACE_HEADER*>(other);
    const auto bytes = [](const void* entry) { return static_cast<const std::byte*>(entry); };
    return header->AceType == otherHeader->AceType && header->AceSize == otherHeader->AceSize &&
           ((header->AceFlags ^ otherHeader->AceFlags) & ~INHERITED_ACE) == 0 &&
           std::equal(bytes(one) + sizeof(ACE_HEADER), bytes(one) + header->AceSize,
                      bytes(other) + sizeof(ACE_HEADER));
}

bool SameList(PACL first, PACL second) {
    if (first == nullptr || second == nullptr || first->AceCount != second->AceCount) {
        return first == second;
    }
    for (DWORD index = 0; index < first->AceCount; ++index) {
        if (!SameEntry(first, second, index)) {
            return false;
        }
    }
    return true;
}

/// The file was created with the list of the old one. The system may have left out where its entries come
/// from, which setting the list once more with this request keeps.
bool KeepList(Sized& wanted, const std::wstring& path) {
    if (wanted.empty()) {
        return true; // a disk without access lists
    }
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    if (GetSecurityDescriptorControl(wanted.data(), &control, &revision) != 0 &&
        (control & SE_DACL_AUTO_INHERITED) != 0) {
        SetSecurityDescriptorControl(wanted.data(), SE_DACL_AUTO_INHERIT_REQ, SE_DACL_AUTO_INHERIT_REQ);
    }
    SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, wanted.data());
    Sized made = SecurityOf(path, DACL_SECURITY_INFORMATION);
    return SameList(ListIn(wanted), ListIn(made));
}

bool KeepOwner(const std::wstring& old, const std::wstring& path) {
    Sized wanted = SecurityOf(old, OWNER_SECURITY_INFORMATION);
    Sized made = SecurityOf(path, OWNER_SECURITY_INFORMATION);
    PSID owner = OwnerIn(wanted);
    PSID maker = OwnerIn(made);
    return owner == nullptr || maker == nullptr || EqualSid(owner, maker) != 0 ||
           SetFileSecurityW(path.c_str(), OWNER_SECURITY_INFORMATION, wanted.data()) != 0;
}

bool CopyStream(const std::wstring& from, const std::wstring& to) {
    constexpr DWORD greatest = 1U << 20U; // bytes; what mail and browsers note of a file has a few hundred
    HANDLE source = CreateFileW(from.c_str(), GENERIC_READ, ShareWithAll, nullptr, OPEN_EXISTING, 0, nullptr);
    HANDLE target = CreateFileW(to.c_str(), GENERIC_WRITE, ShareWithAll, nullptr, CREATE_ALWAYS, 0, nullptr);
    Sized bytes(greatest);
    DWORD got = 0;
    DWORD written = 0;
    const bool copied = source != INVALID_HANDLE_VALUE && target != INVALID_HANDLE_VALUE &&
                        ReadFile(source, bytes.data(), greatest, &got, nullptr) != 0 && got < greatest &&
                        WriteFile(target, bytes.data(), got, &written, nullptr) != 0 && written == got;
    if (source != INVALID_HANDLE_VALUE) {
        CloseHandle(source);
    }
    if (target != INVALID_HANDLE_VALUE) {
        CloseHandle(target);
    }
    return copied;
}

/// Copies all streams but the nameless one, which is the content.
bool KeepStreams(const std::wstring& old, const std::wstring& path) {
    WIN32_FIND_STREAM_DATA stream{};
    HANDLE search = FindFirstStreamW(old.c_str(), FindStreamInfoStandard, &stream, 0);
    if (search == INVALID_HANDLE_VALUE) {
        return true; // a disk without further streams
    }
    bool kept = true;
    do {
        const std::wstring name = stream.cStreamName;
        kept = (name == L"::$DATA" || CopyStream(old + name, path + name)) && kept;
    } while (FindNextStreamW(search, &stream) != 0);
    FindClose(search);
    return kept;
}

/// Who we are, or whom what we make belongs to, which for administrators may be their group.
Sized IdentityOfOurs(TOKEN_INFORMATION_CLASS which) {
    HANDLE token = nullptr;
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token) == 0) {
        return {};
    }
    DWORD size = 0;
    GetTokenInformation(token, which, nullptr, 0, &size);
    Sized information(size);
    const bool told = size > 0 && GetTokenInformation(token, which, information.data(), size, &size) != 0;
    CloseHandle(token);
    return told ? information : Sized{};
}

PSID UserIn(Sized& tokenUser) {
    return tokenUser.empty() ? nullptr : reinterpret_cast<TOKEN_USER*>(tokenUser.data())->User.Sid;
}

} // namespace

void* CreatePrivateFile(const std::wstring& path) {
    Sized us = IdentityOfOurs(TokenUser);
    PSID user = UserIn(us);
    Sized list(sizeof(ACL) + sizeof(ACCESS_ALLOWED_ACE) + (user == nullptr ? 0 : GetLengthSid(user)));
    const auto acl = reinterpret_cast<PACL>(list.data());
    SECURITY_DESCRIPTOR descriptor{};
    if (user == nullptr || InitializeAcl(acl, static_cast<DWORD>(list.size()), ACL_REVISION) == 0 ||
        AddAccessAllowedAce(acl, ACL_REVISION, FILE_ALL_ACCESS, user) == 0 ||
        InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION) == 0 ||
        SetSecurityDescriptorDacl(&descriptor, TRUE, acl, FALSE) == 0 ||
        SetSecurityDescriptorControl(&descriptor, SE_DACL_PROTECTED, SE_DACL_PROTECTED) == 0) {
        return INVALID_HANDLE_VALUE;
    }
    SECURITY_ATTRIBUTES attributes{sizeof(SECURITY_ATTRIBUTES), &descriptor, FALSE};
    return CreateFileW(path.c_str(), GENERIC_WRITE, ShareWithAll, &attributes, CREATE_NEW,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

void* CreateFileLike(const std::wstring& path, const std::wstring& old, FileTraits& lost) {
    lost = {};
    Sized list = SecurityOf(old, DACL_SECURITY_INFORMATION);
    SECURITY_ATTRIBUTES attributes{sizeof(SECURITY_ATTRIBUTES), list.data(), FALSE};
    const DWORD told = GetFileAttributesW(old.c_str());
    const DWORD marks = told == INVALID_FILE_ATTRIBUTES ? 0 : told & KeptMarks;
    HANDLE handle =
        CreateFileW(path.c_str(), GENERIC_WRITE, ShareWithAll, list.empty() ? nullptr : &attributes,
                    CREATE_NEW, marks == 0 ? FILE_ATTRIBUTE_NORMAL : marks, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return handle;
    }
    // The owner last: what belongs to another might not be ours to change any more.
    const DWORD made = GetFileAttributesW(path.c_str()) & KeptMarks;
    lost.Attributes = !KeepStreams(old, path) || (marks & ~made) != 0;
    lost.AccessList = !KeepList(list, path) || (marks & ~made & FILE_ATTRIBUTE_ENCRYPTED) != 0;
    lost.Owner = !KeepOwner(old, path);
    return handle;
}

bool BelongsToAnother(const std::wstring& path) {
    Sized security = SecurityOf(path, OWNER_SECURITY_INFORMATION);
    Sized user = IdentityOfOurs(TokenUser);
    Sized owner = IdentityOfOurs(TokenOwner);
    PSID owning = OwnerIn(security);
    if (owning == nullptr || user.empty() || owner.empty()) {
        return false;
    }
    return EqualSid(owning, UserIn(user)) == 0 &&
           EqualSid(owning, reinterpret_cast<TOKEN_OWNER*>(owner.data())->Owner) == 0;
}

} // namespace brindle
