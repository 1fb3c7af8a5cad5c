#include "platform/wide_text_windows.h"
#include "settings/profile.h"
#include "settings/profile_text.h"

#define WIN32_LEAN_AND_MEAN
#include <algorithm>
#include <windows.h>

/// The system's own functions. They need a full path: a bare name would be looked for in the system's folder.
/// The wide forms are used because they open any path; a file of bytes stays one, in the system's code page.
namespace brindle {

namespace {

/// A file of ours holds lines far below this; a longer value is cut.
constexpr std::size_t GreatestValueSize = std::size_t{1} << 16; // UTF-16 units

std::string ReadText(const std::string& path, const std::string& section, const std::string& key,
                     const std::string& fallback) {
    std::wstring value(GreatestValueSize, L'\0');
    const DWORD length =
        GetPrivateProfileStringW(WideText(section).c_str(), WideText(key).c_str(), WideText(fallback).c_str(),
                                 value.data(), static_cast<DWORD>(value.size()), WideText(path).c_str());
    value.resize(length);
    return Utf8Text(std::wstring_view(value).substr(0, value.find(L'\0')));
}

int ReadInteger(const std::string& path, const std::string& section, const std::string& key, int fallback) {
    return static_cast<int>(GetPrivateProfileIntW(WideText(section).c_str(), WideText(key).c_str(), fallback,
                                                  WideText(path).c_str()));
}

bool Write(const std::string& path, const std::string& section, const std::optional<std::string>& key,
           const std::optional<std::string>& value) {
    // The system would store a line break as it is and so break the file.
    if (!IsProfileEntry(section, key, value)) {
        return false;
    }
    const std::wstring wideKey = WideText(key.value_or(""));
    const std::wstring wideValue = WideText(WrittenProfileValue(value.value_or("")));
    const bool deletes = !key || !value;
    if (deletes && GetFileAttributesW(WideText(path).c_str()) == INVALID_FILE_ATTRIBUTES) {
        return true; // nothing to delete, and no file to be created for it
    }
    return WritePrivateProfileStringW(WideText(section).c_str(), key ? wideKey.c_str() : nullptr,
                                      deletes ? nullptr : wideValue.c_str(), WideText(path).c_str()) != 0;
}

bool Update(const std::string& path, const std::string& section, const DecideProfileEntries& decide) {
    const auto read = [&](const std::string& key, const std::string& fallback) {
        return ReadText(path, section, key, fallback);
    };
    const std::vector<ProfileEntry> entries = decide(read);
    return std::all_of(entries.begin(), entries.end(), [&](const ProfileEntry& entry) {
        return Write(path, section, entry.Key, entry.Value);
    });
}

} // namespace

ProfileFunctions SystemProfile(const FileSystem& /*files*/) {
    return {ReadText, ReadInteger, Write, Update};
}

} // namespace brindle
