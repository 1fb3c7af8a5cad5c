#include "settings/about_text.h"

#include "model/number_text.h"
#include "settings/program_version.h"

#include <algorithm>

namespace brindle {

namespace {

constexpr std::size_t RevisionDigits = 4;

} // namespace

std::string VersionText(int major, int minor, int revision) {
    const std::string digits = std::to_string(revision);
    const std::size_t zeros = RevisionDigits - std::min(RevisionDigits, digits.size());
    return FormatFixed(ProgramVersion(major, minor), 2) + "." + std::string(zeros, '0') + digits;
}

AboutText BuildAboutText(int major, int minor, int revision, const std::string& qtVersion) {
    return {
        "Brindle - VDR812 Programmable Logic Designer",
        "Version " + VersionText(major, minor, revision),
        "For use with 32 bit versions of Windows.",
        "Made by the Brindle maintainers.",
        {
            "Qt " + qtVersion +
                ": GNU Lesser General Public License, version 3. https://www.qt.io/licensing/",
            "CLI11 (in brindle-cli): BSD license, 3 clauses. https://github.com/CLIUtils/CLI11",
            "JSON for Modern C++ (in brindle-cli): MIT license. https://github.com/nlohmann/json",
        },
    };
}

} // namespace brindle
