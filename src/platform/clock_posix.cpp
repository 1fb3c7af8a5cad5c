#include "platform/clock.h"

#include <algorithm>
#include <array>
#include <langinfo.h>
#include <locale.h>
#include <string_view>
#include <time.h>

namespace brindle {

namespace {

using LongestForm = std::array<char, 200>;

/// The locale of the environment, held apart from the program's own; the one of every system where the
/// environment names one that is not installed.
class UserLocale {
  public:
    UserLocale() : locale_(::newlocale(LC_TIME_MASK | LC_CTYPE_MASK, "", nullptr)) {
        if (locale_ == nullptr) {
            locale_ = ::newlocale(LC_TIME_MASK | LC_CTYPE_MASK, "C", nullptr);
        }
    }

    UserLocale(const UserLocale&) = delete;
    UserLocale& operator=(const UserLocale&) = delete;
    UserLocale(UserLocale&&) = delete;
    UserLocale& operator=(UserLocale&&) = delete;

    ~UserLocale() { ::freelocale(locale_); }

    [[nodiscard]] DateAndTime Written(const std::tm& local) const {
        LongestForm date{};
        LongestForm time{};
        return {{date.data(), ::strftime_l(date.data(), date.size(), "%x", &local, locale_)},
                {time.data(), ::strftime_l(time.data(), time.size(), "%X", &local, locale_)}};
    }

    /// Whether what this locale writes is UTF-8.
    [[nodiscard]] bool IsUtf8(std::string_view written) const {
        return std::string_view(::nl_langinfo_l(CODESET, locale_)) == "UTF-8" ||
               std::all_of(written.begin(), written.end(), [](char c) { return c > 0; });
    }

  private:
    locale_t locale_;
};

} // namespace

DateAndTime WriteMoment(std::time_t moment) {
    ::tzset(); // the zone may have been set anew since
    std::tm local{};
    if (::localtime_r(&moment, &local) == nullptr) {
        return {};
    }
    const UserLocale user;
    DateAndTime written = user.Written(local);
    if (user.IsUtf8(written.Date + written.Time)) {
        return written;
    }
    // An old character set with more than digits: a form that everybody reads.
    LongestForm date{};
    LongestForm time{};
    return {{date.data(), std::strftime(date.data(), date.size(), "%Y-%m-%d", &local)},
            {time.data(), std::strftime(time.data(), time.size(), "%H:%M:%S", &local)}};
}

} // namespace brindle
