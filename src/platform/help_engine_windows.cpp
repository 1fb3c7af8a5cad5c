#include "platform/help_engine.h"
#include "platform/wide_text_windows.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace brindle {

namespace {

/// Later systems have a small program of the engine's name that only tells of its absence; the engine itself
/// has some 280 KB.
constexpr DWORD LeastEngineSize = 64 * 1024; // bytes

bool HasEngine() {
    std::wstring folder(MAX_PATH, L'\0');
    folder.resize(GetWindowsDirectoryW(folder.data(), MAX_PATH));
    WIN32_FILE_ATTRIBUTE_DATA engine{};
    return GetFileAttributesExW((folder + L"\\winhlp32.exe").c_str(), GetFileExInfoStandard, &engine) != 0 &&
           engine.nFileSizeLow >= LeastEngineSize;
}

} // namespace

bool OpenWithHelpEngine(const std::string& path) {
    return HasEngine() && WinHelpW(nullptr, WideText(path).c_str(), HELP_CONTENTS, 0) != 0;
}

} // namespace brindle
