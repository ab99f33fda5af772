#include "console/iso_time.h"

#include <array>
#include <cstdio>

namespace console {

std::string IsoTime(std::chrono::microseconds moment) {
  using std::chrono::days;
  using std::chrono::floor;
  const std::chrono::sys_time<std::chrono::microseconds> time(moment);
  const auto day = floor<days>(time);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss clock(time - day);
  std::array<char, 80> text{};
  const int size = std::snprintf(
      text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d.%06dZ",
      static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
      static_cast<unsigned>(date.day()), static_cast<int>(clock.hours().count()),
      static_cast<int>(clock.minutes().count()), static_cast<int>(clock.seconds().count()),
      static_cast<int>(clock.subseconds().count()));
  return {text.data(), static_cast<std::size_t>(size)};
}

}  // namespace console
