#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "base/local_time.h"

namespace platform {

/// The date, and how the system's settings write one.
class Calendar {
 public:
  virtual ~Calendar() = default;
  virtual LocalTime Now() const = 0;
  /// A moment of the computer's clock, given since 1970 began in Greenwich.
  virtual LocalTime At(std::chrono::seconds moment) const = 0;
  /// Date and time in the general form of the system's settings.
  virtual std::string GeneralText(const LocalTime& moment) const = 0;
  /// The short name of a month, 1 to 12, in the system's language, as in "02.Mar.2024".
  virtual std::string MonthName(std::int32_t month) const = 0;
};

/// A moment of the computer's clock as numeric date and local time, to the millisecond.
std::string MomentText(const Calendar& calendar, std::chrono::microseconds moment);

}  // namespace platform
