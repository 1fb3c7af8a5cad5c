#include "platform/clock.h"
#include "support/environment_value_posix.h"

#include <gtest/gtest.h>

#include <clocale>

/// A moment in the forms of the locale that the environment names.
namespace brindle {
namespace {

constexpr std::time_t Morning = 988971153; // 2001-05-04 10:12:33 UTC

struct Clock : testing::Test {
    EnvironmentValue Zone{"TZ", "UTC0"};
    EnvironmentValue TimeLocale{"LC_TIME", {}};
};

TEST_F(Clock, TheLocaleOfEverySystemHasTheShortDateAndSeconds) {
    for (const char* locale : {"C", "POSIX", "C.UTF-8"}) {
        const EnvironmentValue all("LC_ALL", locale);
        const DateAndTime written = WriteMoment(Morning);
        EXPECT_EQ("05/04/01", written.Date) << locale;
        EXPECT_EQ("10:12:33", written.Time) << locale;
    }
}

TEST_F(Clock, ALocaleThatIsNotInstalledIsThatOfEverySystem) {
    const EnvironmentValue all("LC_ALL", "xx_XX.nonsense");
    EXPECT_EQ("05/04/01", WriteMoment(Morning).Date);
    EXPECT_EQ("10:12:33", WriteMoment(Morning).Time);
}

TEST_F(Clock, TheTimeZoneIsTheUsers) {
    const EnvironmentValue all("LC_ALL", "C");
    const EnvironmentValue zone("TZ", "EAST-14");
    EXPECT_EQ("05/05/01", WriteMoment(Morning).Date);
    EXPECT_EQ("00:12:33", WriteMoment(Morning).Time);
}

TEST_F(Clock, TheProgramsOwnLocaleIsNeitherAskedNorChanged) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    const EnvironmentValue all("LC_ALL", "C.UTF-8");
    WriteNow();
    EXPECT_EQ(before, std::setlocale(LC_ALL, nullptr));
}

} // namespace
} // namespace brindle
