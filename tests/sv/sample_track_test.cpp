// What the counter of a stream and the times of its frames tell, beside a bus that is played frame
// by frame.

#include "sv/sample_track.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace {

using sv::SampleTrack;
using sv::Stretch;
using std::chrono_literals::operator""h;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""us;

/// A sender and the track that follows it.
class Stream : public testing::Test {
 protected:
  Stream() { track.Begin(4000, 1); }

  /// So many frames of the sender come.
  void Come(int frames) {
    for (int i = 0; i < frames; ++i) {
      track.Take(counter, now);
      Send(1);
    }
  }
  /// Frames that are sent and do not come.
  void Lose(int frames) { Send(frames); }
  /// A frame with this counter comes, beside the sender.
  void Meet(std::uint32_t other) { track.Take(other, now); }

  void Expect(std::uint64_t missing, std::uint64_t doubled, std::uint64_t late) {
    EXPECT_EQ(track.Totals().Missing, missing);
    EXPECT_EQ(track.Totals().Doubled, doubled);
    EXPECT_EQ(track.Totals().Late, late);
    EXPECT_EQ(track.Totals().Jumped, 0U);
  }

  SampleTrack track;
  std::uint32_t counter = 0;
  std::uint32_t round = 4000;
  std::uint32_t step = 1;
  std::chrono::microseconds now{1'700'000'000s};

 private:
  void Send(int frames) {
    sent_ += frames;
    counter =
        static_cast<std::uint32_t>((counter + step * static_cast<std::uint32_t>(frames)) % round);
    now += std::chrono::microseconds(1'000'000LL * frames * step / round);
  }
  std::int64_t sent_ = 0;
};

TEST_F(Stream, ThatIsWholeMissesNothing) {
  counter = 3000;
  Come(12'000);
  Expect(0, 0, 0);
  EXPECT_EQ(track.Totals().Samples, 12'000U);
  EXPECT_EQ(track.Since().GapCount, 0U);
  EXPECT_EQ(track.Rate(), 4000U);
}

TEST_F(Stream, TellsWhereSamplesAreMissing) {
  Come(100);
  Lose(3);
  Come(50);
  Lose(1);
  Come(50);
  Expect(4, 0, 0);
  ASSERT_EQ(track.Since().GapCount, 2U);
  EXPECT_EQ(track.Since().Gaps[0].Place, 100U);
  EXPECT_EQ(track.Since().Gaps[0].Missing, 3U);
  EXPECT_EQ(track.Since().Gaps[1].Place, 150U);
  EXPECT_EQ(track.Totals().ByCounter, 4U);
}

TEST_F(Stream, MissesSamplesOverTheEndOfTheRound) {
  counter = 3990;
  Come(5);
  Lose(10);
  Come(5);
  Expect(10, 0, 0);
}

TEST_F(Stream, MissesWholeSecondsWhichTheCounterDoesNotShow) {
  Come(1000);
  Lose(31'617);
  Come(100);
  Expect(31'617, 0, 0);
  EXPECT_EQ(track.Totals().ByCounter, 3617U);
}

TEST_F(Stream, MissesExactlyWholeSecondsToo) {
  Come(1000);
  Lose(8000);
  Come(100);
  Expect(8000, 0, 0);
  EXPECT_EQ(track.Totals().ByCounter, 0U);
  ASSERT_EQ(track.Since().GapCount, 1U);
  EXPECT_EQ(track.Since().Gaps[0].ByCounter, 0U);
}

TEST_F(Stream, MissesNearlyASecond) {
  Come(1000);
  Lose(3990);
  Come(100);
  Expect(3990, 0, 0);
}

TEST_F(Stream, IsDoubledFrameByFrame) {
  for (int i = 0; i < 12'000; ++i) {
    Meet(counter);
    Come(1);
  }
  Expect(0, 12'000, 0);
  EXPECT_EQ(track.Since().Doubled.Count, 12'000U);
  EXPECT_EQ(track.Since().Doubled.Place, 1U);
}

TEST_F(Stream, IsDoubledAFewFramesLate) {
  Come(20);
  for (int i = 0; i < 100; ++i) {
    Come(1);
    Meet(counter - 10);
  }
  Expect(0, 100, 0);
}

TEST_F(Stream, ComesOutOfOrder) {
  Come(100);
  // 101 before 100.
  Meet(101);
  Meet(100);
  Lose(2);
  Come(100);
  Expect(0, 0, 1);
  EXPECT_EQ(track.Since().Late.Place, 101U);
  // The gap has closed again.
  EXPECT_EQ(track.Since().GapCount, 0U);
}

TEST_F(Stream, ThatComesOutOfOrderAllTheTimeMissesNothing) {
  for (int i = 0; i < 80; ++i) {
    Come(48);
    Meet(counter + 1);
    Meet(counter);
    Lose(2);
  }
  Expect(0, 0, 80);
  EXPECT_EQ(track.Since().GapCount, 0U);
  EXPECT_EQ(track.Since().FurtherGaps, 0U);
  EXPECT_EQ(track.Since().FurtherMissing, 0U);
}

TEST_F(Stream, KeepsGapsThatStayBesideThoseThatClose) {
  Come(10);
  Lose(2);
  Come(10);
  Meet(counter + 1);
  Meet(counter);
  Lose(2);
  Come(10);
  Lose(3);
  Come(10);
  ASSERT_EQ(track.Since().GapCount, 2U);
  EXPECT_EQ(track.Since().Gaps[0].Missing, 2U);
  EXPECT_EQ(track.Since().Gaps[1].Missing, 3U);
  // What lies further back than one that stays comes late.
  Meet(10);
  Meet(11);
  ASSERT_EQ(track.Since().GapCount, 1U);
  EXPECT_EQ(track.Since().Gaps[0].Missing, 3U);
}

TEST_F(Stream, ThatComesOutOfOrderBehindManyGapsMissesNoMore) {
  for (std::size_t i = 0; i < Stretch::MostGaps + 1; ++i) {
    Come(10);
    Lose(2);
  }
  for (int i = 0; i < 5; ++i) {
    Come(10);
    Meet(counter + 1);
    Meet(counter);
    Lose(2);
  }
  EXPECT_EQ(track.Since().FurtherGaps, 1U);
  EXPECT_EQ(track.Since().FurtherMissing, 2U);
  EXPECT_EQ(track.Totals().Missing, 2 * Stretch::MostGaps + 2);
}

TEST_F(Stream, FillsAGapOfSeveralPartly) {
  Come(100);
  Lose(5);
  Come(3);
  Meet(101);
  Meet(103);
  Come(10);
  Expect(3, 0, 2);
  EXPECT_EQ(track.Since().Gaps[0].Missing, 3U);
}

TEST_F(Stream, DoesNotMissWhatCameBeforeItBegan) {
  counter = 500;
  Meet(501);
  Meet(500);
  Lose(2);
  Come(10);
  Expect(0, 0, 1);
}

TEST_F(Stream, BeginsAnewWithoutMissingAnything) {
  Come(1000);
  counter = 3000;
  Come(1000);
  EXPECT_EQ(track.Totals().Missing, 0U);
  EXPECT_EQ(track.Totals().Jumped, 1U);
  EXPECT_EQ(track.Since().Jumped.Place, 1000U);
}

TEST_F(Stream, LearnsALongerRound) {
  round = 4800;
  Come(48'000);
  Expect(0, 0, 0);
  Lose(7);
  Come(10);
  Expect(7, 0, 0);
  EXPECT_EQ(track.Rate(), 4800U);
}

TEST_F(Stream, LearnsARoundWhoseFirstEndIsMissing) {
  round = 4800;
  Come(3950);
  Lose(900);
  Come(6000);
  Expect(900, 0, 0);
  EXPECT_EQ(track.Rate(), 4800U);
}

TEST_F(Stream, ThatWasLateWhenItWasMetHasNoLongerRound) {
  const auto begin = now;
  now += 180ms;
  Come(4);
  Lose(996);
  now = begin + 250ms;
  Come(2990);
  Lose(20);
  Come(100);
  Expect(1016, 0, 0);
}

TEST_F(Stream, ThatKeepsNoPaceYetLearnsAfterwardsHowMuchWasMissing) {
  round = 4800;
  Come(100);
  now += 200ms;
  Come(3800);
  Lose(950);
  Come(6000);
  Expect(950, 0, 0);
}

TEST_F(Stream, ThatWasHeldUpAndThenLeftSamplesOutHasNotBegunAnew) {
  for (int look = 0; look < 20; ++look) {
    Come(250);
    track.TakeBearings();
  }
  // A hundred milliseconds of frames come late and all at once, and the next ones are left out.
  const auto held = now + 100ms;
  for (int i = 0; i < 60; ++i) {
    track.Take(counter, held);
    ++counter;
    track.TakeBearings();
  }
  now = held;
  counter += 340;
  Come(1000);
  Expect(340, 0, 0);
}

TEST_F(Stream, TellsWhatMayStillCome) {
  Come(1000);
  EXPECT_EQ(track.MayStillCome(), 0U);
  Lose(3);
  Come(10);
  EXPECT_EQ(track.MayStillCome(), 3U);
  Come(60);
  EXPECT_EQ(track.MayStillCome(), 0U) << "they are too far away to come late";
  EXPECT_EQ(track.Totals().Missing, 3U);
}

TEST_F(Stream, LearnsAShorterRound) {
  track.Begin(4800, 1);
  round = 4000;
  Come(40'000);
  Expect(0, 0, 0);
  EXPECT_EQ(track.Rate(), 4000U);
}

TEST_F(Stream, LearnsARoundOfItsOwnAtTheSecondTime) {
  track.Begin(4000, 1);
  round = 1000;
  Come(10'000);
  EXPECT_EQ(track.Totals().Missing, 0U);
  EXPECT_LE(track.Totals().Jumped, 1U);
  EXPECT_FALSE(track.Rate());
}

TEST_F(Stream, GoesByTheSamplesOfAFrame) {
  track.Begin(4800, 2);
  round = 4800;
  step = 2;
  Come(10'000);
  Expect(0, 0, 0);
  EXPECT_EQ(track.Totals().Samples, 20'000U);
  Lose(3);
  Come(1);
  Expect(6, 0, 0);
}

TEST_F(Stream, MissesNothingWhereTheClockWasSet) {
  Come(1000);
  for (const std::chrono::microseconds set : {-1h, 1h}) {
    now += set;
    ASSERT_FALSE(track.InTime(now));
    track.SetClock(set);
    Come(1000);
    Expect(0, 0, 0);
  }
  EXPECT_EQ(track.Rate(), 4000U);
}

TEST_F(Stream, KeepsTheFirstGapsAndCountsTheOthers) {
  for (int i = 0; i < 30; ++i) {
    Come(10);
    Lose(2);
  }
  Come(1);
  EXPECT_EQ(track.Since().GapCount, Stretch::MostGaps);
  EXPECT_EQ(track.Since().FurtherGaps, 6U);
  EXPECT_EQ(track.Since().FurtherMissing, 12U);
  EXPECT_EQ(track.Totals().Missing, 60U);
  track.BeginStretch();
  EXPECT_EQ(track.Since().GapCount, 0U);
  EXPECT_EQ(track.Totals().Missing, 60U);
  Come(5);
  Lose(1);
  Come(1);
  EXPECT_EQ(track.Since().Gaps[0].Place, 5U);
}

TEST_F(Stream, IsMetAnewByTheNextBurst) {
  Come(100);
  now += 700ms;
  counter = 2900;
  track.Begin(4000, 1);
  Come(400);
  Expect(0, 0, 0);
  EXPECT_EQ(track.Totals().Samples, 500U);
}

TEST_F(Stream, TellsNoRateWhereTheTimesTellNone) {
  Meet(0);
  for (std::uint32_t i = 1; i < 400; ++i) Meet(i);
  EXPECT_FALSE(track.Rate());
  Expect(0, 0, 0);
}

}  // namespace
