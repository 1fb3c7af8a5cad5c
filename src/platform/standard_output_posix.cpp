#include "platform/standard_output.h"

namespace brindle {

void MakeStandardOutputBinary() {
    // Bytes are never changed here.
}

void AttachStandardOutput() {
    // Every program has one.
}

} // namespace brindle
