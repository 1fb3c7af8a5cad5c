#include "platform/clock.h"
#include "platform/wide_text_windows.h"

#include <array>
#include <windows.h>

namespace brindle {

namespace {

constexpr int LongestForm = 200; // UTF-16 units, its ending zero among them
constexpr int FirstYearOfTm = 1900;

/// What a function of the system wrote: `size` units with the ending zero, none when it failed.
std::string Written(const std::array<wchar_t, LongestForm>& text, int size) {
    return size == 0 ? "" : Utf8Text({text.data(), static_cast<std::size_t>(size) - 1});
}

} // namespace

DateAndTime WriteMoment(std::time_t moment) {
    std::tm local{};
    if (::localtime_s(&local, &moment) != 0) {
        return {};
    }
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(local.tm_year + FirstYearOfTm);
    time.wMonth = static_cast<WORD>(local.tm_mon + 1);
    time.wDay = static_cast<WORD>(local.tm_mday);
    time.wHour = static_cast<WORD>(local.tm_hour);
    time.wMinute = static_cast<WORD>(local.tm_min);
    time.wSecond = static_cast<WORD>(local.tm_sec);
    std::array<wchar_t, LongestForm> text{};
    DateAndTime written;
    written.Date = Written(text, ::GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr,
                                                   text.data(), LongestForm, nullptr));
    written.Time = Written(
        text, ::GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &time, nullptr, text.data(), LongestForm));
    return written;
}

} // namespace brindle
