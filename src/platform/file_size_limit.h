#pragma once

namespace brindle {

/// From now on a file that would grow beyond the size that is set for the files of this program makes its
/// writing fail (DiskFullError), which by default would end the program.
void LetLargeFilesFail();

} // namespace brindle
