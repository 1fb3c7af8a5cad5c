#pragma once

#include "settings/settings_file.h"

namespace brindle {

/// The running program's version as one number in single precision: `minor` (0 to 99) are its hundredths.
float ProgramVersion(int major, int minor);

/// Stored settings of another program version are dropped: when the stored version differs, the section
/// "Brindle" is removed and the running version stored; the revision is stored when it differs. Where the
/// section cannot be removed nothing is stored, so that the next start tries again.
void CheckProgramVersion(SettingsFile& settings, int major, int minor, int revision);

} // namespace brindle
