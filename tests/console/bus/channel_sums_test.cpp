#include "console/bus/channel_sums.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "support/sv_frame.h"
#include "sv/frame.h"

namespace console {
namespace {

/// Feeds seconds of waves through the bytes of frames, as a bus does.
class ChannelSumsScene : public testing::Test {
 protected:
  /// A wave on channel 1 beside a constant on channel 2.
  void Send(std::uint32_t from, std::uint32_t count) {
    for (std::uint32_t i = from; i < from + count; ++i) {
      const double turn = 2 * std::numbers::pi * Frequency * i / Rate;
      const double value = Crest * std::cos(turn + Ahead * std::numbers::pi / 180);
      const support::FrameBytes bytes = support::SvFrame("MU")
                                            .Count(static_cast<std::uint16_t>(i % Rate))
                                            .Raw(0, static_cast<std::int32_t>(std::lround(value)))
                                            .Raw(1, -5000)
                                            .Quality(2, i % 4 == 0 ? 1U : 0U)
                                            .Bytes();
      const sv::Frame frame = sv::ReadFrame(bytes, bytes.size());
      sv::AsduReader reader(frame);
      sv::Asdu asdu;
      ASSERT_TRUE(reader.Next(asdu));
      sums_.Add(asdu, wave_ ? *wave_ : wave_.emplace(Frequency, Rate));
    }
  }

  std::uint32_t Frequency = 50;
  std::uint32_t Rate = 4000;
  double Crest = 1'000'000;
  double Ahead = 0;
  ChannelSums sums_;
  std::optional<NominalWave> wave_;
};

TEST_F(ChannelSumsScene, MeasureRmsValueAndPhasorOfAWave) {
  Ahead = 37;
  Send(0, 4000);

  const ChannelReading reading = sums_.Reading(0);
  EXPECT_NEAR(reading.Rms, Crest / std::numbers::sqrt2, 0.1);
  EXPECT_NEAR(reading.Magnitude, Crest / std::numbers::sqrt2, 0.1);
  EXPECT_NEAR(reading.Angle, 37, 1e-4);
  EXPECT_NEAR(reading.Mean, 0, 0.1);
}

TEST_F(ChannelSumsScene, TheAngleCountsFromTheWholeSecondWhereverTheStretchBegins) {
  Frequency = 60;
  Rate = 4800;
  Ahead = -120;
  Send(1234, 4800);
  EXPECT_NEAR(sums_.Reading(0).Angle, -120, 1e-4);
}

TEST_F(ChannelSumsScene, AConstantHasNoPhasor) {
  Send(0, 4000);

  const ChannelReading reading = sums_.Reading(1);
  EXPECT_NEAR(reading.Rms, 5000, 1e-6);
  EXPECT_NEAR(reading.Mean, -5000, 1e-6);
  EXPECT_NEAR(reading.Magnitude, 0, 1e-6);
}

TEST_F(ChannelSumsScene, CountSamplesWhoseQualityIsNotGood) {
  Send(0, 100);
  EXPECT_EQ(sums_.NotGood(), 25U);
  EXPECT_EQ(sums_.Channels(), 8U);
  sums_.Clear();
  EXPECT_EQ(sums_.Channels(), 0U) << "nothing was measured";
}

}  // namespace
}  // namespace console
