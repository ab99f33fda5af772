#include "system/calendar.h"

#include <array>
#include <cstdio>

namespace host {

platform::LocalTime LocalTimeOf(std::time_t moment) {
  const std::tm* local = std::localtime(&moment);
  if (local == nullptr) return {};
  return {local->tm_year + 1900, local->tm_mon + 1, local->tm_mday,
          local->tm_hour,        local->tm_min,     local->tm_sec};
}

platform::LocalTime Calendar::Now() const {
  return LocalTimeOf(std::time(nullptr));
}

platform::LocalTime Calendar::At(std::chrono::seconds moment) const {
  return LocalTimeOf(static_cast<std::time_t>(moment.count()));
}

std::string Calendar::GeneralText(const platform::LocalTime& moment) const {
  std::array<char, 16> time{};
  std::snprintf(time.data(), time.size(), " %02d:%02d:%02d", moment.Hour, moment.Minute,
                moment.Second);
  return std::to_string(moment.Day) + " " + MonthName(moment.Month) + " " +
         std::to_string(moment.Year) + time.data();
}

std::string Calendar::MonthName(std::int32_t month) const {
  static constexpr std::array Names{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  return Names.at(static_cast<std::size_t>(month - 1));
}

}  // namespace host
