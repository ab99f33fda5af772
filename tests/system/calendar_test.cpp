#include "system/calendar.h"

#include <gtest/gtest.h>

#include <ctime>

namespace host {
namespace {

std::int64_t SecondsAgo(const platform::LocalTime& moment) {
  const std::time_t now = std::time(nullptr);
  const std::tm& t = *std::localtime(&now);
  return platform::SecondsBetween(
      moment, {t.tm_year + 1900, t.tm_mon + 1, t.tm_mday, t.tm_hour, t.tm_min, t.tm_sec});
}

TEST(PlainCalendar, TellsThePresentMoment) {
  const std::int64_t ago = SecondsAgo(Calendar().Now());
  EXPECT_GE(ago, 0);
  EXPECT_LE(ago, 1);
}

TEST(PlainCalendar, WritesADateInEnglish) {
  EXPECT_EQ(Calendar().GeneralText({2024, 3, 9, 21, 5, 7}), "9 Mar 2024 21:05:07");
  EXPECT_EQ(Calendar().GeneralText({1999, 12, 31, 0, 0, 0}), "31 Dec 1999 00:00:00");
}

}  // namespace
}  // namespace host
