#include "app/surroundings.h"
#include "support/environment_value_posix.h"
#include "support/program_bytes.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <sstream>

/// Date and time in the heading of a report, as the editor and the companion write them.
namespace brindle {
namespace {

/// What a command of the shell says.
std::string OutputOf(const std::string& command) {
    std::string output;
    std::FILE* pipe = ::popen(command.c_str(), "r"); // NOLINT(cert-env33-c): the shell is what scripts use
    std::array<char, 4096> bytes{};
    std::size_t got = 0;
    while (pipe != nullptr && (got = std::fread(bytes.data(), 1, bytes.size(), pipe)) > 0) {
        output.append(bytes.data(), got);
    }
    if (pipe != nullptr) {
        ::pclose(pipe);
    }
    return output;
}

std::string TextOf(const DateAndTime& moment) {
    return moment.Date + " " + moment.Time;
}

TEST(HeadingOfAReport, EditorAndCompanionWriteTheSameMomentTheSameInEveryLocale) {
    const TempFolder folder;
    folder.Put("x.pl", NewProgramBytes(Version230));
    const EditorSurroundings editor = RealSurroundings(folder.Path(), [] { return nullptr; });
    std::istringstream locales("C\nC.UTF-8\nxx_XX.nonsense\n" + OutputOf("locale -a 2>/dev/null"));
    for (std::string locale; std::getline(locales, locale);) {
        const EnvironmentValue all("LC_ALL", locale);
        const std::string before = TextOf(editor.Now());
        const std::string report =
            OutputOf("'" BRINDLE_CLI "' report '" + folder.Path("x.pl") + "' --group 1 --unit T1");
        const std::string after = TextOf(editor.Now());
        const std::string heading = report.substr(0, report.find("\r\n"));
        EXPECT_TRUE(heading.ends_with("/x.pl " + before) || heading.ends_with("/x.pl " + after))
            << locale << ": " << heading << "; the editor: " << before;
    }
}

} // namespace
} // namespace brindle
