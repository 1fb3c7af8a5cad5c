#include "platform/help_engine.h"

namespace brindle {

bool OpenWithHelpEngine(const std::string& /*path*/) {
    return false;
}

} // namespace brindle
