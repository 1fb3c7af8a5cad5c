#pragma once

namespace brindle {

/// Makes standard output carry bytes as they are written, on systems that would change line ends.
void MakeStandardOutputBinary();

} // namespace brindle
