// What a user reads where a step fails and says no more of it.

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "base/failure.h"

namespace {

using platform::Failure;

TEST(FailureText, IsThatOfItsNumber) {
  const std::map<std::int32_t, std::string> texts{
      {5, "Invalid procedure call or argument"},
      {6, "Overflow"},
      {7, "Out of memory"},
      {9, "Subscript out of range"},
      {11, "Division by zero"},
      {13, "Type mismatch"},
      {52, "Bad file name or number"},
      {53, "File not found"},
      {55, "File already open"},
      {57, "Device I/O error"},
      {61, "Disk full"},
      {67, "Too many files"},
      {70, "Permission denied"},
      {75, "Path/File access error"},
      {76, "Path not found"},
      {91, "Object variable not set"},
      {380, "Invalid property value"},
      {384, "A minimized or maximized window cannot be sized"},
      {385, "A minimized or maximized window cannot be moved"},
      {482, "Printer error"},
      {484, "There is no printer"},
      {static_cast<std::int32_t>(0x8004022BU), "The capture was stopped already"},
      {static_cast<std::int32_t>(0x80040231U), "The filter expression was refused"},
  };
  for (const auto& [number, text] : texts) {
    EXPECT_EQ(Failure(number).Text(), text);
    EXPECT_EQ(Failure(number).Number(), number);
  }
  EXPECT_EQ(Failure(340).Text(), "Application-defined error");
}

TEST(FailureText, IsWhatTheLanguageTellsOfAnException) {
  EXPECT_STREQ(Failure(9, "row 400").what(), "row 400");
}

}  // namespace
