#include "settings/program_version.h"

#include "model/number_text.h"
#include "settings/setting_keys.h"

#include <string>

namespace brindle {

float ProgramVersion(int major, int minor) {
    // Rounded to single precision once, at the end: that is also how its text is read back, so that an
    // unchanged program finds itself equal. A sum of singles would round twice.
    return static_cast<float>(major + minor / 100.0);
}

void CheckProgramVersion(SettingsFile& settings, int major, int minor, int revision) {
    const float running = ProgramVersion(major, minor);
    if (LeadingNumber(settings.Read(SectionBrindle, KeyBrindleVersion, "0")) != running) {
        if (!settings.RemoveSection(SectionBrindle)) {
            return;
        }
        settings.Write(KeyBrindleVersion, FormatFixed(running, 6), SectionBrindle);
    }
    const std::string revisionText = std::to_string(revision);
    if (settings.Read(SectionBrindle, KeyRevision) != revisionText) {
        settings.Write(KeyRevision, revisionText, SectionBrindle);
    }
}

} // namespace brindle
