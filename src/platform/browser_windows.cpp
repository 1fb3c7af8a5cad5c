#include "platform/browser.h"
#include "platform/wide_text_windows.h"

#include <cstdint>
#include <windows.h> // the whole of it: finding programs belongs to the shell's part

namespace brindle {

namespace {

constexpr int Success = GreatestProgramFault + 1;

/// The wide form, because it finds a program at any path.
int FindProgram(const std::string& path, std::string& program) {
    std::wstring found(MAX_PATH, L'\0'); // the function writes no more
    const auto result =
        reinterpret_cast<std::intptr_t>(FindExecutableW(WideText(path).c_str(), nullptr, found.data()));
    program = Utf8Text(std::wstring_view(found).substr(0, found.find(L'\0')));
    return static_cast<int>(result);
}

int FaultOf(DWORD systemError) {
    switch (systemError) {
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
        return OutOfMemoryFault;
    case ERROR_FILE_NOT_FOUND:
        return ProgramNotFoundFault;
    case ERROR_PATH_NOT_FOUND:
        return ProgramPathNotFoundFault;
    case ERROR_BAD_FORMAT:
    case ERROR_BAD_EXE_FORMAT:
        return CorruptProgramFault;
    default:
        return UnknownProgramFault;
    }
}

int StartProgram(const std::string& program, const std::string& argument) {
    const std::wstring path = WideText(program);
    std::wstring commandLine = L"\"" + path + L"\" " + WideText(argument);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = SW_SHOWNORMAL;
    PROCESS_INFORMATION process{};
    if (CreateProcessW(path.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                       &process) == 0) {
        return FaultOf(GetLastError());
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return Success;
}

} // namespace

BrowserFunctions RealBrowser() {
    return {FindProgram, StartProgram};
}

} // namespace brindle
