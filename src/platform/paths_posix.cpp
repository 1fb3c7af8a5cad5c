#include "platform/paths.h"

namespace brindle {

const PathStyle SystemPaths = PosixPaths;

} // namespace brindle
