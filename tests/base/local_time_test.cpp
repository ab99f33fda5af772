#include "base/local_time.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "support/failures.h"

namespace {

using platform::ClockText;
using platform::DottedText;
using platform::LocalTime;
using platform::SecondsBetween;
using platform::TimeOfDayText;
using platform::ToLocalTime;
using platform::failure::TypeMismatch;

constexpr LocalTime Evening{2024, 3, 9, 21, 5, 7};

TEST(LocalTime, IsWrittenWithLeadingZeros) {
  EXPECT_EQ(DottedText(Evening), "09.03.2024 21:05:07");
  EXPECT_EQ(DottedText(Evening, '-'), "09.03.2024 21-05-07");
}

TEST(LocalTime, IsTheTimeOnTheClockBesideAMomentOfTheSameDay) {
  EXPECT_EQ(ClockText(Evening, {2024, 3, 9, 23, 59, 59}), "21:05");
  EXPECT_EQ(ClockText(Evening, {2024, 3, 10, 0, 0, 0}), "09.03.2024 21:05");
  EXPECT_EQ(ClockText(Evening, {2024, 4, 9, 21, 5, 7}), "09.03.2024 21:05");
}

TEST(LocalTime, IsWrittenInPlainDigitsFromTheYearOn) {
  EXPECT_EQ(platform::NumericText(Evening), "2024-03-09 21:05:07");
  EXPECT_EQ(platform::NumericText({987, 12, 31, 0, 0, 0}), "0987-12-31 00:00:00");
}

TEST(LocalTime, IsReadBackDayFirst) {
  EXPECT_EQ(ToLocalTime("09.03.2024 21:05:07"), Evening);
  EXPECT_EQ(ToLocalTime("29.02.2024 00:00:00"), (LocalTime{2024, 2, 29, 0, 0, 0}));
  EXPECT_EQ(ToLocalTime("31.12.0100 23:59:59"), (LocalTime{100, 12, 31, 23, 59, 59}));
}

TEST(LocalTime, RefusesATextOfAnotherForm) {
  for (const char* text :
       {"", "09.03.2024", "9.3.2024 21:05:07", "09.03.2024 21-05-07", "09/03/2024 21:05:07",
        "09.03.2024 21:05:0x", "09.03.2024 21:05:07 ", "dd.mm.yyyy hh:MM:ss"}) {
    EXPECT_EQ(support::FailureOf([&] { ToLocalTime(text); }), TypeMismatch) << text;
  }
}

TEST(LocalTime, RefusesADayOrATimeThatThereIsNot) {
  for (const char* text : {"29.02.2023 21:05:07", "31.04.2024 21:05:07", "00.03.2024 21:05:07",
                           "09.13.2024 21:05:07", "09.00.2024 21:05:07", "09.03.2024 24:00:00",
                           "09.03.2024 21:60:07", "09.03.2024 21:05:60", "09.03.0099 21:05:07"}) {
    EXPECT_EQ(support::FailureOf([&] { ToLocalTime(text); }), TypeMismatch) << text;
  }
}

TEST(LocalTime, DiffersByTheCalendar) {
  EXPECT_EQ(SecondsBetween(Evening, Evening), 0);
  EXPECT_EQ(SecondsBetween(Evening, {2024, 3, 9, 22, 6, 8}), 3661);
  EXPECT_EQ(SecondsBetween({2024, 2, 28, 23, 59, 59}, {2024, 3, 1, 0, 0, 0}), 86'401);
  EXPECT_EQ(SecondsBetween({2023, 12, 31, 23, 59, 59}, {2024, 1, 1, 0, 0, 0}), 1);
  EXPECT_EQ(SecondsBetween(Evening, {2024, 3, 9, 21, 5, 6}), -1);
}

TEST(LocalTime, GoesOnByASecondThroughTheCalendar) {
  EXPECT_EQ(platform::NextSecond(Evening), (LocalTime{2024, 3, 9, 21, 5, 8}));
  EXPECT_EQ(platform::NextSecond({2023, 12, 31, 23, 59, 59}), (LocalTime{2024, 1, 1, 0, 0, 0}));
  EXPECT_EQ(platform::NextSecond({2024, 2, 28, 23, 59, 59}), (LocalTime{2024, 2, 29, 0, 0, 0}));
}

TEST(TimeOfDay, IsWhatADifferenceHasBeyondWholeDays) {
  EXPECT_EQ(TimeOfDayText(0), "00:00:00");
  EXPECT_EQ(TimeOfDayText(3661), "01:01:01");
  EXPECT_EQ(TimeOfDayText(86'399), "23:59:59");
  EXPECT_EQ(TimeOfDayText(86'400), "00:00:00");
  EXPECT_EQ(TimeOfDayText(90'061), "01:01:01");
  EXPECT_EQ(TimeOfDayText(-61), "00:01:01");
}

}  // namespace
