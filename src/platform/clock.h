#pragma once

#include <ctime>
#include <string>

namespace brindle {

/// A moment as the system writes it, in UTF-8.
struct DateAndTime {
    std::string Date; ///< in the short form
    std::string Time; ///< with seconds
};

/// Writes a moment in the time zone, language and forms that the user has set for the system. Numbers that
/// others format are not touched. Empty texts for a moment that the calendar does not have.
DateAndTime WriteMoment(std::time_t moment);

/// The moment of now.
inline DateAndTime WriteNow() {
    return WriteMoment(std::time(nullptr));
}

} // namespace brindle
