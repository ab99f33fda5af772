#include "measure/phase_analysis.h"

#include <gmock/gmock.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <random>

#include "support/channel_texts.h"
#include "support/scene.h"

namespace {

using support::Scene;
using testing::Contains;
using testing::ElementsAre;

/// The program with a phase analysis whose block the test fills by hand.
class Phases : public ::testing::Test {
 protected:
  Phases() {
    scene.Start();
    scene.Main.Combo3.ListIndex = 2;
  }

  /// A sine of 80 frames a period, `degrees` behind the start of the block.
  void Fill(std::size_t channel, double amplitude, double degrees) {
    for (std::int32_t i = 0; i < scene.Present.BaseSamples; ++i) {
      scene.Block.SignalValues.Row(i)[channel] =
          amplitude * std::sin(2 * std::numbers::pi * i / 80.0 - degrees * std::numbers::pi / 180);
    }
  }
  void Put(std::size_t channel, std::initializer_list<double> values) {
    std::int32_t row = 0;
    for (const double value : values) scene.Block.SignalValues.Row(row++)[channel] = value;
  }
  /// The cosine of the reference in a row, to the last bit.
  double ReferenceCosine(int row) const {
    const double frequency = scene.Settings.BaseFrequency;
    double t = 0;
    for (int i = 0; i <= row; ++i) t += 1 / (frequency * 80);
    return std::cos(frequency * 6.28318530717958 * t);
  }
  std::vector<std::string> Table(std::size_t column) const {
    return support::ChannelTexts(scene.Main.Grid1, column);
  }
  double Shift(std::size_t reference, std::size_t other) {
    return phases.PhaseShift(reference, other);
  }

  Scene scene;
  subroutines::PhaseAnalysis& phases = scene.App.LiveViews.Phases;
};

TEST_F(Phases, OfTwoIdenticalChannelsAreNotShifted) {
  for (const double degrees : {0.0, 33.0, 90.0, 180.0, 271.5}) {
    Fill(4, 70, degrees);
    Fill(0, 70, degrees);
    EXPECT_EQ(Shift(4, 0), 0.0) << degrees;
  }
}

TEST_F(Phases, DoNotDependOnTheAmplitude) {
  Fill(4, 0.3, 20);
  Fill(0, 9000, 20);

  EXPECT_NEAR(Shift(4, 0), 0, 1e-9);
}

TEST_F(Phases, ArePositiveWhereTheOtherChannelLags) {
  Fill(4, 10, 0);
  Fill(0, 10, 30);

  EXPECT_NEAR(Shift(4, 0), 30, 1e-6);
  EXPECT_NEAR(Shift(0, 4), -30, 1e-6);
}

TEST_F(Phases, OfPureSinesAreExactToAThousandthOfADegree) {
  for (int half = -360; half <= 360; ++half) {
    const double degrees = half / 2.0;
    Fill(4, 100, 17.3);
    Fill(1, 2.5, 17.3 + degrees);

    const double shift = Shift(4, 1);

    const double error = std::remainder(shift - degrees, 360);
    EXPECT_LT(std::abs(error), 0.001) << degrees;
    EXPECT_LE(std::abs(shift), 180.0 + 1e-6) << degrees;
  }
}

TEST_F(Phases, OfExactlyHalfATurnStayOnTheirSide) {
  // One sample alone, turned round in the other channel: a period's last has the sine 0 and the
  // cosine 1, that of its middle the cosine -1.
  const auto halfATurn = [this](std::int32_t row) {
    scene.Block.Rebuild(400);
    scene.Block.SignalValues.Row(row)[4] = 100;
    scene.Block.SignalValues.Row(row)[1] = -100;
    return Shift(4, 1);
  };
  EXPECT_EQ(halfATurn(79), 180.0);
  EXPECT_EQ(halfATurn(39), -180.0);
}

TEST_F(Phases, MatchANaiveCorrelationOverRandomSignals) {
  std::mt19937 random(20261121);
  std::uniform_real_distribution<double> value(-1000, 1000);
  for (int round = 0; round < 50; ++round) {
    std::complex<double> sums[2];
    for (std::int32_t i = 0; i < 400; ++i) {
      const double turn = 2 * std::numbers::pi * (i + 1) / 80.0;
      for (const std::size_t k : {0U, 1U}) {
        const double x = value(random);
        scene.Block.SignalValues.Row(i)[k == 0 ? 4 : 2] = x;
        sums[k] += std::complex<double>(std::cos(turn), std::sin(turn)) * x;
      }
    }
    const double expected = -(std::arg(sums[0]) - std::arg(sums[1])) * 180 / std::numbers::pi;

    EXPECT_NEAR(std::remainder(Shift(4, 2) - expected, 360), 0, 1e-6) << round;
  }
}

TEST_F(Phases, DoNotFollowTheBaseFrequency) {
  Fill(4, 10, 5);
  Fill(0, 10, 47);
  const double at50 = Shift(4, 0);

  scene.Settings.BaseFrequency = 60;

  EXPECT_NEAR(Shift(4, 0), at50, 1e-6);
}

TEST_F(Phases, AreBiasedWhereTheBlockHoldsNoWholePeriods) {
  scene.Main.Text1[2].Text = "430";
  Fill(4, 10, 0);
  Fill(0, 10, 90);

  EXPECT_GT(std::abs(Shift(4, 0) - 90), 0.5);
}

TEST_F(Phases, OfASilentChannelCountAsTheAngleZero) {
  Fill(4, 10, 0);
  Fill(0, 0, 0);
  // The reference is one step of 4.5 degrees into its period at the block's first sample.
  const double ofReference = Shift(4, 0);

  Fill(5, 0, 0);
  Fill(6, 0, 0);

  EXPECT_EQ(Shift(5, 6), 0.0);
  EXPECT_NEAR(ofReference, -94.5, 1e-6);
}

TEST_F(Phases, TakeAnExactZeroOfTheCosineSumAsTheAngleZeroAndNotAsAQuarterTurn) {
  scene.Main.Text1[2].Text = "2";
  // The two products with the cosine cancel, those with the sine do not.
  Put(4, {ReferenceCosine(1), -ReferenceCosine(0)});
  // One sample, 4.5 degrees into the period.
  Put(0, {5, 0});

  EXPECT_NEAR(Shift(4, 0), 4.5, 1e-9);
  EXPECT_NEAR(Shift(0, 4), -4.5, 1e-9);
}

TEST_F(Phases, StayWithinHalfATurn) {
  Fill(4, 10, 100);
  Fill(0, 10, -120);
  EXPECT_NEAR(Shift(4, 0), 140, 1e-6);

  Fill(0, 10, 330);
  EXPECT_NEAR(Shift(4, 0), -130, 1e-6);
}

TEST_F(Phases, WithABaseFrequencyOfZeroFail) {
  scene.Settings.BaseFrequency = 0;

  try {
    Shift(4, 0);
    FAIL() << "no failure";
  } catch (const platform::Failure& failure) {
    EXPECT_EQ(failure.Number(), 11);
  }
}

TEST_F(Phases, UpdateMagnitudesAndTable) {
  const double amps = 100 * std::numbers::sqrt2;
  const double kilovolts = 10 * std::numbers::sqrt2;
  for (std::size_t k = 0; k < 3; ++k) {
    const double lag = k == 0 ? 0 : (k == 1 ? 120 : -120);
    Fill(4 + k, kilovolts, lag);
    Fill(k, amps, lag + 30);
  }

  phases.UpdatePhases();

  const auto& grid = scene.Main.Grid1.Cell;
  EXPECT_EQ(grid[1][1], "100.00");
  EXPECT_EQ(grid[1][2], "-30.000");
  EXPECT_EQ(grid[2][2], "-150.000");
  EXPECT_EQ(grid[3][2], "90.000");
  EXPECT_EQ(grid[5][1], "10.00");
  EXPECT_EQ(grid[5][2], "0.000");
  EXPECT_EQ(grid[6][2], "-120.000");
  EXPECT_EQ(grid[7][2], "120.000");
}

TEST_F(Phases, OfAStreamWithFourChannelsAreMeasuredAgainstTheAngleZero) {
  Fill(0, 100, 0);

  phases.UpdatePhases();

  EXPECT_THAT(Table(2), ElementsAre("-94.500", "0.000", "0.000", "0.000", "0.000", "0.000", "0.000",
                                    "0.000"));
}

TEST_F(Phases, TheLargestChannelSetsTheScaleWhicheverItIs) {
  for (std::size_t loud = 0; loud < 4; ++loud) {
    for (std::size_t k = 0; k < 4; ++k) {
      Fill(k, k == loud ? 1500 * std::numbers::sqrt2 : 20, 0);
      Fill(k + 4, k == loud ? 450 * std::numbers::sqrt2 : 20, 0);
    }
    scene.PhasorPicture.Calls.clear();

    phases.UpdatePhases();

    EXPECT_THAT(scene.PhasorPicture.Calls, Contains("print FS current=2000 (250)A")) << loud;
    EXPECT_THAT(scene.PhasorPicture.Calls, Contains("print FS voltage=500 (62.5)kV")) << loud;
  }
}

TEST_F(Phases, AreDrawnOnAPictureThatIsClearedEachTime) {
  for (int update = 0; update < 2; ++update) {
    scene.PhasorPicture.Calls.clear();
    phases.UpdatePhases();
    ASSERT_FALSE(scene.PhasorPicture.Calls.empty());
    EXPECT_EQ(scene.PhasorPicture.Calls.front(), "clear");
  }
}

TEST_F(Phases, EachCurrentIsMeasuredAgainstTheVoltageOfItsLetter) {
  // The current of each phase lags its own voltage by another angle, the neutral as well.
  const double voltage[] = {0, 120, -120, 50};
  const double lag[] = {10, 20, 30, 40};
  for (std::size_t k = 0; k < 4; ++k) {
    Fill(k + 4, 10, voltage[k]);
    Fill(k, 100, voltage[k] + lag[k]);
  }

  phases.UpdatePhases();

  EXPECT_THAT(Table(2), ElementsAre("-10.000", "-140.000", "90.000", "-90.000", "0.000", "-120.000",
                                    "120.000", "-50.000"));
}

}  // namespace
