#pragma once

#include <array>
#include <chrono>
#include <string>

#include "platform/services/calendar.h"

namespace support {

/// A calendar that stands at the date of the test, of a system with German settings.
class FakeCalendar : public platform::Calendar {
 public:
  platform::LocalTime Now() const override { return Present; }
  platform::LocalTime At(std::chrono::seconds moment) const override {
    const std::chrono::sys_seconds whole(moment);
    const auto day = std::chrono::floor<std::chrono::days>(whole);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(whole - day);
    return {static_cast<int>(date.year()),
            static_cast<std::int32_t>(static_cast<unsigned>(date.month())),
            static_cast<std::int32_t>(static_cast<unsigned>(date.day())),
            static_cast<std::int32_t>(time.hours().count()),
            static_cast<std::int32_t>(time.minutes().count()),
            static_cast<std::int32_t>(time.seconds().count())};
  }
  std::string GeneralText(const platform::LocalTime& moment) const override {
    return platform::DottedText(moment) + BehindDates;
  }
  std::string MonthName(std::int32_t month) const override {
    static constexpr std::array Names{"Jan", "Feb", "Mrz", "Apr", "Mai", "Jun",
                                      "Jul", "Aug", "Sep", "Okt", "Nov", "Dez"};
    return Names.at(static_cast<std::size_t>(month - 1));
  }

  /// What the system writes behind a date, in other settings.
  std::string BehindDates;
  platform::LocalTime Present{2024, 3, 9, 14, 5, 7};
};

}  // namespace support
