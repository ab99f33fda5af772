#include "desktop/services/qt_calendar.h"

#include <QDateTime>

#include "desktop/look/text.h"

namespace desktop {

std::string QtCalendar::GeneralText(const platform::LocalTime& moment) const {
  QString date = locale_.dateFormat(QLocale::ShortFormat);
  if (!date.contains(QStringLiteral("yyyy"))) {
    date.replace(QStringLiteral("yy"), QStringLiteral("yyyy"));
  }
  QString time = locale_.timeFormat(QLocale::LongFormat);
  time.remove(u't');
  const QDate day(moment.Year, moment.Month, moment.Day);
  const QTime clock(moment.Hour, moment.Minute, moment.Second);
  return FromQt(locale_.toString(day, date) + u' ' + locale_.toString(clock, time.simplified()));
}

std::string QtCalendar::MonthName(std::int32_t month) const {
  return FromQt(locale_.standaloneMonthName(month, QLocale::ShortFormat));
}

}  // namespace desktop
