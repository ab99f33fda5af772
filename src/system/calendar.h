#pragma once

#include <ctime>

#include "platform/services/calendar.h"

namespace host {

/// A moment of the system's clock by the calendar of this computer.
platform::LocalTime LocalTimeOf(std::time_t moment);

/// The date of this computer, in English words and in the order of a plain locale. How a user's own
/// locale writes dates no standard library knows as the user's desktop does; who knows it derives
/// from this one.
class Calendar : public platform::Calendar {
 public:
  platform::LocalTime Now() const override;
  platform::LocalTime At(std::chrono::seconds moment) const override;
  std::string GeneralText(const platform::LocalTime& moment) const override;
  std::string MonthName(std::int32_t month) const override;
};

}  // namespace host
