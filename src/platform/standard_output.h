#pragma once

namespace brindle {

/// Makes standard output carry bytes as they are written, on systems that would change line ends.
void MakeStandardOutputBinary();

/// Gives a program with windows the standard output that it may lack: the console that it was started from.
/// What was redirected is there already.
void AttachStandardOutput();

} // namespace brindle
