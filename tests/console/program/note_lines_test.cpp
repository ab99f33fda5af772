#include "console/program/note_lines.h"

#include <gtest/gtest.h>

#include <sstream>

#include "console/program/line_dialogs.h"

namespace console {
namespace {

TEST(Notes, AreLinesAndTheSameOneIsToldOnce) {
  std::ostringstream out;
  NoteLines notes(out, false);
  notes.Tell("the disk is full.");
  notes.Tell("the disk is full.");
  notes.Tell("it is there again.");
  EXPECT_EQ(out.str(), "vornik-cli: the disk is full.\nvornik-cli: it is there again.\n");
}

TEST(Notes, ShowTheProgressOnOneLineOfATerminal) {
  std::ostringstream out;
  {
    NoteLines notes(out, true);
    notes.ShowProgress("0:00:10");
    notes.ShowProgress("0:00:11");
    notes.Tell("a line");
    notes.ShowProgress("0:00:12");
  }
  EXPECT_EQ(out.str(), "0:00:10\r       \r0:00:11\r       \rvornik-cli: a line\n0:00:12\n");
}

TEST(Notes, ShowTheProgressLineByLineElsewhere) {
  std::ostringstream out;
  NoteLines notes(out, false);
  notes.ShowProgress("0:00:10");
  notes.ShowProgress("0:00:11");
  EXPECT_EQ(out.str(), "0:00:10\n0:00:11\n") << "a journal takes no carriage returns";
}

TEST(BoxesAsLines, AreAnsweredWithWhatHarmsLeast) {
  std::string told;
  LineDialogs boxes([&](const std::string& line) { told = line; });
  EXPECT_EQ(boxes.Show({"Attention", "Disk full.\r\nPlease check.\r\n\r\n"}), platform::Answer::Ok);
  EXPECT_EQ(told, "Disk full. Please check.");
  EXPECT_EQ(boxes.Show({"", "end?", platform::Icon::Critical, platform::Buttons::YesNo}),
            platform::Answer::Yes);
  EXPECT_EQ(boxes.Show({"", "again", platform::Icon::Critical, platform::Buttons::OkStop}),
            platform::Answer::Stop)
      << "what fails for ever is not tried for ever";
  EXPECT_FALSE(boxes.NoDataTold());
  boxes.ShowTimed({});
  EXPECT_TRUE(boxes.NoDataTold());
}

}  // namespace
}  // namespace console
