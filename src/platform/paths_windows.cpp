#include "platform/paths.h"

namespace brindle {

const PathStyle SystemPaths = WindowsPaths;

} // namespace brindle
