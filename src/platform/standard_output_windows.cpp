#include "platform/standard_output.h"

#define WIN32_LEAN_AND_MEAN
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace brindle {

void MakeStandardOutputBinary() {
    _setmode(_fileno(stdout), _O_BINARY);
}

void AttachStandardOutput() {
    const bool redirected = GetFileType(GetStdHandle(STD_OUTPUT_HANDLE)) != FILE_TYPE_UNKNOWN;
    if (!redirected && AttachConsole(ATTACH_PARENT_PROCESS) != 0) {
        // Where it fails there is nobody to tell.
        static_cast<void>(std::freopen("CONOUT$", "w", stdout));
    }
}

} // namespace brindle
