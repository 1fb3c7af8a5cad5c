#include "platform/arguments.h"
#include "platform/wide_text_windows.h"

#include <windows.h> // the whole of it: splitting a command line belongs to the shell's part

namespace brindle {

/// main()'s own have been through the code page, which on older systems cannot write every path.
std::vector<std::string> ProgramArguments(int /*argc*/, char** /*argv*/) {
    std::vector<std::string> arguments;
    int count = 0;
    wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
    if (wide == nullptr) {
        return arguments;
    }
    for (int index = 1; index < count; ++index) {
        arguments.push_back(Utf8Text(wide[index]));
    }
    LocalFree(wide);
    return arguments;
}

} // namespace brindle
