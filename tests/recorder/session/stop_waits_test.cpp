// What the page says in the place of the button, as long as a recording has none.

#include "recorder/recorder_bench.h"

namespace recorder_tests {
namespace {

using std::chrono_literals::operator""s;

class StopWaits : public testing::Test {
 protected:
  void Press(bool value) { bench.Main.CWButton3.Value = value; }
  std::string Said() const {
    const platform::QuietLine& line = bench.Main.StopWaits;
    EXPECT_EQ(line.Visible, !line.Caption.Get().empty());
    return line.Caption;
  }
  static constexpr const char* Words =
      "STOP comes when 4000 samples are stored. To end before, choose another tab.";
  RecorderBench bench;
};

TEST_F(StopWaits, ForTheFirstRing) {
  EXPECT_EQ(Said(), "");
  Press(true);
  EXPECT_EQ(Said(), Words);
  bench.Frames(4000);
  EXPECT_EQ(Said(), Words) << "the first frame set the length";
  bench.Frames(4000);
  ASSERT_TRUE(bench.Main.CWButton3.Visible);
  EXPECT_EQ(Said(), "");
  Press(false);
  EXPECT_EQ(Said(), "");
}

TEST_F(StopWaits, ForNothingWhereNoDataComes) {
  Press(true);
  bench.Elapse(2s);
  EXPECT_EQ(Said(), "");
}

TEST_F(StopWaits, ForNothingBehindAStartThatWasDropped) {
  bench.Events.AtPump(2, [this] {
    EXPECT_EQ(Said(), Words);
    Press(false);
  });
  Press(true);
  ASSERT_TRUE(bench.Main.CWButton3.Visible);
  EXPECT_EQ(Said(), "");
}

}  // namespace
}  // namespace recorder_tests
