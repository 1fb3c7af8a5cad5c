#include "platform/standard_output.h"

namespace brindle {

void MakeStandardOutputBinary() {
    // Bytes are never changed here.
}

} // namespace brindle
