// How long a frame counts, also one that no wire carries.

#include "report/frame_station.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

TEST(FrameStation, CountsAFrameNoLongerThanItsNumberGoes) {
  platform::CapturedFrame frame;
  for (const auto& [length, cells] : {std::pair<std::size_t, std::int16_t>{126, 126},
                                      {32'767, 32'767},
                                      {32'768, 32'767},
                                      {262'144, 32'767}}) {
    frame.Length = length;
    EXPECT_EQ(packetroutines::LengthInCells(frame), cells);
  }
}

}  // namespace
