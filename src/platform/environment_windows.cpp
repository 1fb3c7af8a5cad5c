#include "platform/environment.h"
#include "platform/wide_text_windows.h"

#include <cstdlib>

namespace brindle {

std::string EnvironmentVariable(const std::string& name) {
    const wchar_t* value = _wgetenv(WideText(name).c_str());
    return value == nullptr ? "" : Utf8Text(value);
}

} // namespace brindle
