// What a run tells of streams that are not what it takes them for: doubled, swapped, simulated, of
// several samples a frame, of another rate, or misleading to the search.

#include "capture/waiting_line_scene.h"

namespace packetroutines {
namespace {

using std::chrono::microseconds;
namespace quiet_line = forms::quiet_line;

class WaitingFitness : public WaitingLineScene {
 protected:
  /// Blocks of a view whose frames `make` makes, a burst every half second, as many as two seconds
  /// show.
  template <typename Make>
  std::string LineBehindBlocks(Make make) {
    StartValuesWith(make(0));
    for (int burst = 0; burst < 4; ++burst) {
      for (int i = 0; i < 400; ++i) {
        bench.Receive(make(burst * 2400 + i));
        bench.Clock.Advance(pace);
      }
      bench.Elapse(milliseconds(500));
      Restart();
    }
    return Line();
  }
  static SvFrame Counted(int i) {
    return SvFrame("MU01").Count(static_cast<std::uint16_t>(i % 4000)).AllRaw(1000);
  }

  microseconds pace{250};
};

TEST_F(WaitingFitness, IsNotDoubtedOnASoundBus) {
  EXPECT_EQ(LineBehindBlocks([](int i) { return Counted(i).Bytes(); }), "");
}

TEST_F(WaitingFitness, NamesFramesThatCameTwice) {
  pace = microseconds(125);
  EXPECT_EQ(LineBehindBlocks([](int i) { return Counted(i / 2).Bytes(); }),
            "Of the last second's 800 samples of \"MU01\" 400 came twice: a doubled network, or a "
            "mirror of both directions?");
}

TEST_F(WaitingFitness, ForgetsDoubledFramesAfterASecond) {
  LineBehindBlocks([](int i) { return Counted(i / 2).Bytes(); });
  for (int burst = 0; burst < 4; ++burst) {
    bench.Receive(400, [](int i) { return Counted(i).Bytes(); });
    bench.Elapse(milliseconds(500));
    Restart();
  }
  EXPECT_EQ(Line(), "");
}

TEST_F(WaitingFitness, NamesFramesThatCameOutOfOrder) {
  // Of each ten frames the last two have changed places.
  const auto swapped = [](int i) { return Counted(i % 10 < 8 ? i : i % 10 == 8 ? i + 1 : i - 1); };
  EXPECT_EQ(LineBehindBlocks([&](int i) { return swapped(i).Bytes(); }),
            "Of the last second's 800 samples of \"MU01\" 80 came out of order.");
}

TEST_F(WaitingFitness, NamesSeveralSamplesAFrame) {
  pace = microseconds(500);
  EXPECT_EQ(LineBehindBlocks([](int i) { return Counted(i * 2).Asdus(2).Bytes(); }),
            "\"MU01\" sends 2 samples (ASDUs) a frame, of which one is read.");
}

TEST_F(WaitingFitness, NamesASimulation) {
  EXPECT_EQ(LineBehindBlocks([](int i) { return Counted(i).Simulated().Bytes(); }),
            "\"MU01\" has the simulation bit set.");
}

TEST_F(WaitingFitness, NamesChannelsOfInvalidQuality) {
  EXPECT_EQ(LineBehindBlocks([](int i) {
              // Invalid, questionable, invalid and out of range.
              return Counted(i).Quality(0, 1).Quality(1, 3).Quality(6, 0x49).Bytes();
            }),
            "The quality of \"MU01\" is invalid for A, G.");
}

TEST_F(WaitingFitness, NamesAnotherRateThanTheBlockAssumes) {
  pace = microseconds(208);
  EXPECT_EQ(LineBehindBlocks([](int i) { return Counted(i).Bytes(); }),
            "\"MU01\" sends 4800 samples a second, and a block assumes 4000 at the frequency under "
            "'Setup'.");
  bench.Settings.BaseFrequency = 60;
  bench.Elapse(milliseconds(500));
  EXPECT_EQ(Line(), "");
}

TEST_F(WaitingFitness, NamesASearchThatWasMisled) {
  // Bytes behind the samples spell the tag of samples, and the last place counts.
  FrameBytes trailer(80, 1);
  trailer[0] = 0x87;
  trailer[1] = 0x40;
  const std::string line =
      LineBehindBlocks([&](int i) { return Counted(i).Trailer(trailer).Bytes(); });
  EXPECT_EQ(line,
            "The search took samples and counter of \"MU01\" to be elsewhere (samples at byte 119) "
            "than they are (at 53): its values are not measured ones.");
}

TEST_F(WaitingFitness, NamesABrokenStructure) {
  EXPECT_EQ(LineBehindBlocks([](int i) {
              FrameBytes frame = Counted(i).Bytes();
              // The length of the PDU.
              frame[17] = 0xFF;
              return frame;
            }),
            "\"MU01\" has no whole structure: the length does not fit the frame.");
}

TEST_F(WaitingFitness, NamesWhatBeginsInTheMidstOfARecording) {
  StartRecording(Counted(0).Bytes());
  bench.Receive(400, [](int i) { return Counted(i).Bytes(); });
  bench.Elapse(milliseconds(500));
  EXPECT_EQ(Line(quiet_line::Recorder), "");
  for (int look = 1; look < 3; ++look) {
    bench.Receive(400, [&](int i) { return Counted(2000 * look + i).Simulated().Bytes(); });
    bench.Elapse(milliseconds(500));
  }
  EXPECT_EQ(Line(quiet_line::Recorder), "\"MU01\" has the simulation bit set.");
}

TEST_F(WaitingFitness, IsAMatterOfTheSecondStreamInARecordingAlone) {
  bench.Settings.FilterContent[1] = "MU02";
  const auto second = [](int i) {
    return SvFrame("MU02").Count(static_cast<std::uint16_t>(i)).Simulated().AllRaw(1).Bytes();
  };
  StartValuesWith(Counted(0).Bytes());
  bench.Receive(300, second);
  bench.Receive(399, [](int i) { return Counted(i).Bytes(); });
  bench.Elapse(milliseconds(500));
  EXPECT_EQ(Line(), "");
  bench.Main.CWButton4.Value = false;
  bench.Acquisition.StopCapture();

  StartRecording(Counted(0).Bytes());
  bench.Receive(300, second);
  bench.Elapse(milliseconds(500));
  EXPECT_EQ(Line(quiet_line::Recorder), "\"MU02\" has the simulation bit set.");
}

}  // namespace
}  // namespace packetroutines
