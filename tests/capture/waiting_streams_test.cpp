// What a run tells of its two streams.

#include "capture/waiting_line_scene.h"

namespace packetroutines {
namespace {

class WaitingStreams : public WaitingLineScene {
 protected:
  WaitingStreams() { bench.Settings.FilterContent = {"MU01", "MU02"}; }

  /// Rings of both streams, or of the first alone, look after look.
  void Record(int looks, const FrameBytes& first, const FrameBytes& second) {
    for (int i = 0; i < looks; ++i) {
      for (int frame = 0; frame < 400; ++frame) {
        bench.Receive(Counted(first));
        bench.Receive(Counted(second));
      }
      bench.Elapse(milliseconds(500));
    }
  }
  std::string Recorder() { return Line(forms::quiet_line::Recorder); }
};

TEST_F(WaitingStreams, AreQuietWhileBothAreRecorded) {
  StartRecording(PlainFrame(0));
  Record(8, PlainFrame(0), PlainFrame(0, "MU02"));
  EXPECT_EQ(Recorder(), "");
}

TEST_F(WaitingStreams, TellOfASecondStreamThatCameLaterWithLongerFrames) {
  StartRecording(PlainFrame(0));
  Record(4, PlainFrame(0), SvFrame("MU02").Tagged().AllRaw(1000).Bytes());
  EXPECT_EQ(
      Recorder(),
      "Waiting for \"MU02\": 3201 frames came in, those with this ID are longer than expected: "
      "RUN measures the length anew.");
}

TEST_F(WaitingStreams, TellOfASecondStreamThatNeverCame) {
  StartRecording(PlainFrame(0));
  Record(4, PlainFrame(0), PlainFrame(0, "MU03"));
  EXPECT_EQ(Recorder(), "Waiting for \"MU02\": 3201 frames came in, none held this ID.");
}

TEST_F(WaitingStreams, TellOfASecondStreamThatDied) {
  StartRecording(PlainFrame(0));
  Record(4, PlainFrame(0), PlainFrame(0, "MU02"));
  Record(4, PlainFrame(0), PlainFrame(0, "MU03"));
  EXPECT_EQ(Recorder(), "Waiting for \"MU02\": 3200 frames came in, none held this ID.");
  Record(1, PlainFrame(0), PlainFrame(0, "MU02"));
  EXPECT_EQ(Recorder(), "");
}

TEST_F(WaitingStreams, TellOfAFirstStreamThatDiedWhileTheSecondLives) {
  StartRecording(PlainFrame(0));
  Record(4, PlainFrame(0), PlainFrame(0, "MU02"));
  Record(4, PlainFrame(0, "MU03"), PlainFrame(0, "MU02"));
  EXPECT_EQ(Recorder(),
            "Waiting for \"MU01\": 3999 frames came in, 399 held this ID, a block takes 400.");
}

TEST_F(WaitingStreams, TellOfBothWhereNeitherComes) {
  StartRecording(PlainFrame(0, "MU03"));
  bench.Elapse(seconds(2));
  EXPECT_EQ(Recorder(),
            "Waiting for \"MU01\": 1 frame came in, none held this ID. "
            "Waiting for \"MU02\": 1 frame came in, none held this ID.");
}

TEST_F(WaitingStreams, TellNothingOfTheSecondOnAView) {
  StartValuesWith(PlainFrame(0));
  for (int burst = 0; burst < 6; ++burst) {
    Frames(400, PlainFrame(0));
    bench.Elapse(milliseconds(600));
    Restart();
  }
  EXPECT_EQ(Line(), "");
}

TEST_F(WaitingStreams, TellOfARecordedStreamWhoseSamplesCouldNotBeLocated) {
  const FrameBytes two = SvFrame("MU02").Channels(2).AllRaw(1000).Bytes();
  StartRecording(PlainFrame(0));
  Record(4, PlainFrame(0), two);
  EXPECT_EQ(Recorder(),
            "The samples of \"MU02\" could not be located: its values are not measured ones. "
            "\"MU02\" has 2 channels a sample; 4, 8 or 12 are searched for.");
}

TEST_F(WaitingStreams, TellOfAShownBlockThatIsReadAtOlderPlaces) {
  StartValuesWith(PlainFrame(0));
  Frames(400, PlainFrame(0));
  for (int burst = 0; burst < 2; ++burst) {
    Restart();
    Frames(400, SvFrame("MU01").Channels(2).AllRaw(1000).Trailer(FrameBytes(48)).Bytes());
    bench.Elapse(milliseconds(500));
  }
  EXPECT_EQ(Line(),
            "The samples of \"MU01\" could not be located: its values are not measured ones. "
            "\"MU01\" has 2 channels a sample; 4, 8 or 12 are searched for.");
  Restart();
  Frames(400, PlainFrame(0));
  EXPECT_EQ(Line(), "");
}

/// A burst of both streams, the second one first.
class SharedChannels : public WaitingStreams {
 protected:
  void Burst(const FrameBytes& first, const FrameBytes& second) {
    bench.Receive(Counted(second));
    Frames(400, first);
    bench.Elapse(milliseconds(500));
  }
};

TEST_F(SharedChannels, AreToldWhereOneStationHasNoVoltages) {
  const FrameBytes four = SvFrame("MU02").Channels(4).AllRaw(1000).Trailer(FrameBytes(31)).Bytes();
  StartValuesWith(PlainFrame(0));
  Burst(PlainFrame(0), four);
  EXPECT_EQ(Line(),
            "\"MU01\" has 8 channels and \"MU02\" has 4 channels. Both are read with 8 channels: "
            "the voltages of \"MU02\" are not measured ones.");
}

TEST_F(SharedChannels, AreToldWhereTheVoltagesOfTheOtherAreLost) {
  const FrameBytes four = SvFrame("MU01").Channels(4).AllRaw(1000).Trailer(FrameBytes(31)).Bytes();
  StartValuesWith(PlainFrame(0));
  Burst(four, PlainFrame(0, "MU02"));
  EXPECT_EQ(Line(),
            "\"MU01\" has 4 channels and \"MU02\" has 8 channels. Both are read with 4 channels: "
            "no voltages are taken.");
}

TEST_F(SharedChannels, StayToldWhileTheNextBurstBegins) {
  const FrameBytes four = SvFrame("MU02").Channels(4).AllRaw(1000).Trailer(FrameBytes(31)).Bytes();
  StartValuesWith(PlainFrame(0));
  Burst(PlainFrame(0), four);
  Restart();
  bench.Elapse(milliseconds(500));
  EXPECT_NE(Line(), "");
  Burst(PlainFrame(0), PlainFrame(0, "MU02"));
  EXPECT_EQ(Line(), "");
}

TEST_F(SharedChannels, AreToldInARecordingToo) {
  const FrameBytes four = SvFrame("MU02").Channels(4).AllRaw(1000).Trailer(FrameBytes(31)).Bytes();
  StartRecording(PlainFrame(0));
  Record(1, PlainFrame(0), four);
  EXPECT_EQ(Recorder(),
            "\"MU01\" has 8 channels and \"MU02\" has 4 channels. Both are read with 4 channels: "
            "no voltages are taken.");
}

TEST_F(SharedChannels, AreNoMatterWhereBothHaveVoltages) {
  StartValuesWith(SvFrame("MU02").Channels(12).AllRaw(1000).Bytes());
  Burst(PlainFrame(0), SvFrame("MU02").Channels(12).AllRaw(1000).Bytes());
  EXPECT_EQ(Line(), "");
}

}  // namespace
}  // namespace packetroutines
