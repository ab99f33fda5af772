#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace platform {

/// A moment as the calendar and the clock on the wall show it.
struct LocalTime {
  std::int32_t Year = 0;
  /// 1 to 12.
  std::int32_t Month = 0;
  std::int32_t Day = 0;
  std::int32_t Hour = 0;
  std::int32_t Minute = 0;
  std::int32_t Second = 0;
  friend bool operator==(const LocalTime&, const LocalTime&) = default;
};

/// The form "dd.mm.yyyy hh:MM:ss", with `timeSign` between hours, minutes and seconds.
std::string DottedText(const LocalTime& moment, char timeSign = ':');

/// The form "yyyy-mm-dd hh:MM:ss", in which nobody takes the month for the day.
std::string NumericText(const LocalTime& moment);

/// The form "hh:MM"; of another day than `beside` the form "dd.mm.yyyy hh:MM".
std::string ClockText(const LocalTime& moment, const LocalTime& beside);

/// The moment of a text "dd.mm.yyyy hh:MM:ss", whatever the locale; failure 13 where the text has
/// another form or names no day or time that there is.
LocalTime ToLocalTime(std::string_view text);

/// Seconds from one moment to another by the calendar; negative where `to` is the earlier one. A
/// change to or from summer time is not in it.
std::int64_t SecondsBetween(const LocalTime& from, const LocalTime& to);

/// The moment a second later, by the calendar likewise.
LocalTime NextSecond(const LocalTime& moment);

/// The form "hh:mm:ss" of the time of day of a difference: whole days are left out, and so is the
/// sign.
std::string TimeOfDayText(std::int64_t seconds);

std::ostream& operator<<(std::ostream& out, const LocalTime& moment);

}  // namespace platform
