#include "base/local_time.h"

#include <chrono>
#include <cstdlib>

#include "base/failure.h"

namespace platform {

namespace {

constexpr std::string_view Form = "dd.mm.yyyy hh:MM:ss";
constexpr std::int64_t SecondsOfMinute = 60;
constexpr std::int64_t SecondsOfHour = 3600;
constexpr std::int64_t SecondsOfDay = 86'400;

/// The number with leading zeros.
std::string Padded(std::int64_t number, std::size_t digits) {
  std::string text = std::to_string(number);
  if (text.size() < digits) text.insert(0, digits - text.size(), '0');
  return text;
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// A text in which signs stand where the form has them, and digits where it has letters.
bool HasForm(std::string_view text) {
  if (text.size() != Form.size()) return false;
  for (std::size_t i = 0; i < Form.size(); ++i) {
    const bool sign = Form[i] == '.' || Form[i] == ' ' || Form[i] == ':';
    if (sign ? text[i] != Form[i] : !IsDigit(text[i])) return false;
  }
  return true;
}

std::int32_t DigitsAt(std::string_view text, std::size_t position, std::size_t count) {
  std::int32_t number = 0;
  for (const char digit : text.substr(position, count)) number = number * 10 + (digit - '0');
  return number;
}

std::chrono::year_month_day DayOf(const LocalTime& moment) {
  return std::chrono::year(moment.Year) / std::chrono::month(static_cast<unsigned>(moment.Month)) /
         std::chrono::day(static_cast<unsigned>(moment.Day));
}

std::int64_t SecondsSinceEpoch(const LocalTime& moment) {
  const std::int64_t days = std::chrono::sys_days(DayOf(moment)).time_since_epoch().count();
  return days * SecondsOfDay + moment.Hour * SecondsOfHour + moment.Minute * SecondsOfMinute +
         moment.Second;
}

}  // namespace

std::string DottedText(const LocalTime& moment, char timeSign) {
  return Padded(moment.Day, 2) + '.' + Padded(moment.Month, 2) + '.' + Padded(moment.Year, 4) +
         ' ' + Padded(moment.Hour, 2) + timeSign + Padded(moment.Minute, 2) + timeSign +
         Padded(moment.Second, 2);
}

std::string ClockText(const LocalTime& moment, const LocalTime& beside) {
  const std::string whole = DottedText(moment).substr(0, Form.find(":ss"));
  return DayOf(moment) == DayOf(beside) ? whole.substr(Form.find("hh")) : whole;
}

std::string NumericText(const LocalTime& moment) {
  return Padded(moment.Year, 4) + '-' + Padded(moment.Month, 2) + '-' + Padded(moment.Day, 2) +
         ' ' + Padded(moment.Hour, 2) + ':' + Padded(moment.Minute, 2) + ':' +
         Padded(moment.Second, 2);
}

LocalTime ToLocalTime(std::string_view text) {
  if (!HasForm(text)) throw Failure(failure::TypeMismatch);
  const LocalTime moment{DigitsAt(text, 6, 4),  DigitsAt(text, 3, 2),  DigitsAt(text, 0, 2),
                         DigitsAt(text, 11, 2), DigitsAt(text, 14, 2), DigitsAt(text, 17, 2)};
  // A year of less than three digits would be of a century that nobody named.
  constexpr std::int32_t FirstYear = 100;
  const bool there = moment.Year >= FirstYear && DayOf(moment).ok() && moment.Hour < 24 &&
                     moment.Minute < 60 && moment.Second < 60;
  if (!there) throw Failure(failure::TypeMismatch);
  return moment;
}

std::int64_t SecondsBetween(const LocalTime& from, const LocalTime& to) {
  return SecondsSinceEpoch(to) - SecondsSinceEpoch(from);
}

LocalTime NextSecond(const LocalTime& moment) {
  const std::int64_t next = SecondsSinceEpoch(moment) + 1;
  const std::chrono::sys_seconds time{std::chrono::seconds(next)};
  const auto midnight = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day day(midnight);
  const std::chrono::hh_mm_ss clock(time - midnight);
  return {static_cast<int>(day.year()),
          static_cast<std::int32_t>(static_cast<unsigned>(day.month())),
          static_cast<std::int32_t>(static_cast<unsigned>(day.day())),
          static_cast<std::int32_t>(clock.hours().count()),
          static_cast<std::int32_t>(clock.minutes().count()),
          static_cast<std::int32_t>(clock.seconds().count())};
}

std::string TimeOfDayText(std::int64_t seconds) {
  const std::int64_t time = std::abs(seconds) % SecondsOfDay;
  return Padded(time / SecondsOfHour, 2) + ':' + Padded(time % SecondsOfHour / SecondsOfMinute, 2) +
         ':' + Padded(time % SecondsOfMinute, 2);
}

std::ostream& operator<<(std::ostream& out, const LocalTime& moment) {
  return out << DottedText(moment);
}

}  // namespace platform
