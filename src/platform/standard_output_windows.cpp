#include "platform/standard_output.h"

#include <cstdio>
#include <fcntl.h>
#include <io.h>

namespace brindle {

void MakeStandardOutputBinary() {
    _setmode(_fileno(stdout), _O_BINARY);
}

} // namespace brindle
