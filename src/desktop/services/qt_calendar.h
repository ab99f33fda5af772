#pragma once

#include <QLocale>

#include "system/calendar.h"

namespace desktop {

/// The date of this computer in the writing of a locale.
class QtCalendar : public host::Calendar {
 public:
  explicit QtCalendar(const QLocale& locale) : locale_(locale) {}

  /// The locale's short date and its time with seconds. The year has all its digits and the time no
  /// zone, whatever the locale leaves out or adds.
  std::string GeneralText(const platform::LocalTime& moment) const override;
  std::string MonthName(std::int32_t month) const override;

 private:
  QLocale locale_;
};

}  // namespace desktop
