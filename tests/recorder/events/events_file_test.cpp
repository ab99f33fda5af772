// The file of what happened, where no disk takes it for long.

#include "recorder/events/events_file.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>

#include "support/fake_calendar.h"
#include "support/fake_services.h"

namespace {

using packetroutines::EventsFile;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

TEST(EventsFile, CountsWhatItLeavesOutWhileItsFolderStaysAway) {
  support::FakeFiles files;
  const support::FakeCalendar calendar;
  const std::string path = "c:\\StoredData\\Events.csv";
  EventsFile file(files, calendar);
  file.Begin(path);
  files.Folders.clear();
  // A mebibyte of lines waits, of 1024 bytes each but for the marks between the fields.
  const std::string figures(1024 - 45, 'x');
  for (int event = 0; event < 2000; ++event) {
    file.Add({.Stream = 0, .What = "samples missing", .Count = 1, .Figures = figures});
    EXPECT_FALSE(file.Write());
  }
  files.Folders.insert("c:\\StoredData");
  EXPECT_TRUE(file.Write());

  file.Add({.What = "end"});
  EXPECT_TRUE(file.Write());

  const std::string& text = files.Stored.at(path);
  const auto lines = std::count(text.begin(), text.end(), '\n');
  EXPECT_LT(text.size(), (1U << 20U) + 4096U);
  // A heading, what was left out and the end are no events of these.
  EXPECT_THAT(text, HasSubstr(";events left out;" + std::to_string(2000 - (lines - 3)) + ";"));
  EXPECT_THAT(text, EndsWith(";end;;\r\n"));

  file.Add({.What = "end"});
  EXPECT_TRUE(file.Write());
  EXPECT_THAT(files.Stored.at(path).substr(text.size() - 10), Not(HasSubstr("left out")));
}

}  // namespace
