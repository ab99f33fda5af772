#include <gtest/gtest.h>

#include <QCursor>
#include <QDateTime>
#include <QGuiApplication>

#include "desktop/services/qt_calendar.h"
#include "desktop/services/qt_mouse_pointer.h"

namespace desktop {
namespace {

constexpr platform::LocalTime Evening{2024, 3, 9, 21, 5, 7};

QDateTime ToQt(const platform::LocalTime& moment) {
  return QDateTime(QDate(moment.Year, moment.Month, moment.Day),
                   QTime(moment.Hour, moment.Minute, moment.Second));
}

TEST(CalendarScene, TellsThePresentMoment) {
  const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
  const QDateTime now = ToQt(QtCalendar(QLocale::c()).Now());
  EXPECT_GE(now, before);
  EXPECT_LE(now, QDateTime::currentDateTime());
}

TEST(CalendarScene, WritesADateAsTheLocaleDoes) {
  EXPECT_EQ(QtCalendar(QLocale("de_DE")).GeneralText(Evening), "09.03.2024 21:05:07");
  EXPECT_EQ(QtCalendar(QLocale("en_GB")).GeneralText(Evening), "09/03/2024 21:05:07");
  const std::string american = QtCalendar(QLocale("en_US")).GeneralText(Evening);
  EXPECT_TRUE(american.starts_with("3/9/2024 9:05:07")) << american;
  EXPECT_TRUE(american.ends_with("PM")) << american;
}

TEST(CalendarScene, WritesAllDigitsOfTheYearAndNoZoneInEveryLocale) {
  for (const QLocale& locale :
       QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry)) {
    QLocale plain = locale;
    plain.setNumberOptions(QLocale::OmitGroupSeparator);
    const QString text = QString::fromStdString(QtCalendar(plain).GeneralText(Evening));
    QString year = plain.toString(2024);
    EXPECT_TRUE(text.contains("2024") || text.contains(year))
        << locale.name().toStdString() << ": " << text.toStdString();
    EXPECT_FALSE(text.contains("UTC") || text.contains("GMT"))
        << locale.name().toStdString() << ": " << text.toStdString();
  }
}

TEST(CalendarScene, NamesTheMonthsInTheLanguageOfTheSystem) {
  EXPECT_EQ(QtCalendar(QLocale("en_US")).MonthName(3), "Mar");
  EXPECT_EQ(QtCalendar(QLocale("fr_FR")).MonthName(2), "févr.");
  EXPECT_EQ(QtCalendar(QLocale::c()).MonthName(12), "Dec");
}

TEST(CalendarScene, WritesInAPlainLocaleAsTheOneWithoutAWindowDoes) {
  const QtCalendar shown(QLocale::c());
  const host::Calendar plain;
  for (std::int32_t month = 1; month <= 12; ++month) {
    const platform::LocalTime moment{1990 + 5 * month, month, 2 * month, month, 4 * month, month};
    EXPECT_EQ(plain.GeneralText(moment), shown.GeneralText(moment));
    EXPECT_EQ(plain.MonthName(month), shown.MonthName(month));
  }
}

TEST(MousePointerScene, IsAnHourglassUntilItIsNormalAgain) {
  QtMousePointer pointer;
  pointer.ShowHourglass();
  pointer.ShowHourglass();
  ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);

  pointer.ShowNormal();
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(MousePointerScene, LeavesAnotherOnesPointerAlone) {
  QGuiApplication::setOverrideCursor(QCursor(Qt::CrossCursor));
  QtMousePointer().ShowNormal();
  EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
  QGuiApplication::restoreOverrideCursor();
}

}  // namespace
}  // namespace desktop
