#include "platform/file_size_limit.h"

#include <csignal>

namespace brindle {

void LetLargeFilesFail() {
    // A handler and not SIG_IGN, which programs that we start (a browser) would inherit.
    std::signal(SIGXFSZ, [](int /*signal*/) {});
}

} // namespace brindle
