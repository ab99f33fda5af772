#pragma once

#include <chrono>
#include <string>

#include "platform/clock.h"
#include "platform/services/calendar.h"

namespace console {

/// The calendar of a program that goes by another clock than the computer's, such as that of a
/// capture file: names and dates are those of its time.
class ClockCalendar : public platform::Calendar {
 public:
  ClockCalendar(const platform::Calendar& calendar, const platform::Clock& clock)
      : calendar_(calendar), clock_(clock) {}

  platform::LocalTime Now() const override {
    return At(std::chrono::floor<std::chrono::seconds>(clock_.WallTime()));
  }
  platform::LocalTime At(std::chrono::seconds moment) const override {
    return calendar_.At(moment);
  }
  std::string GeneralText(const platform::LocalTime& moment) const override {
    return calendar_.GeneralText(moment);
  }
  std::string MonthName(std::int32_t month) const override { return calendar_.MonthName(month); }

 private:
  const platform::Calendar& calendar_;
  const platform::Clock& clock_;
};

}  // namespace console
