// The analysis compared with the naive one over all kinds of frames.

#include "report/analysis_bench.h"
#include "report/naive_report.h"
#include "support/broken_bus.h"

namespace {

using support::BrokenFrame;
using support::FrameBytes;
using support::SvFrame;
namespace row = report_tests::row;

class ComparedReport : public report_tests::Analysis {
 protected:
  void Compare(const FrameBytes& frame) {
    main.Label8[row::Synchronisation].Caption = "as it was";
    const std::string id = Analyse(frame);
    const report_tests::NaiveReport naive(frame);
    static const std::string synch[] = {"value=0; not synchronized by an external clock",
                                        "value=1; synchronized by a local area clock",
                                        "value=2; synchronized by a global area clock"};
    ASSERT_EQ(id, platform_.Code.ToUtf8(naive.Id));
    ASSERT_EQ(Row(row::StationId), id);
    ASSERT_EQ(Row(row::Sequence), naive.Sequence);
    ASSERT_EQ(Row(row::FirstAsdu), naive.FirstAsdu);
    ASSERT_EQ(Row(row::SampleCount), naive.SampleCount);
    ASSERT_EQ(Row(row::Synchronisation),
              naive.Synch < 3 ? synch[naive.Synch] : std::string("as it was"));
    for (std::size_t line = 0; line < naive.Dump.size(); ++line) {
      ASSERT_EQ(Row(row::FirstDump + line).substr(0, naive.Dump[line].size()), naive.Dump[line]);
    }
  }
  void Compare(int count, BrokenFrame (support::BrokenBus::*make)()) {
    for (int i = 0; i < count && !HasFatalFailure(); ++i) {
      const BrokenFrame frame = (bus.*make)();
      Compare({frame.Bytes.begin(), frame.Bytes.end()});
    }
  }

  support::Dice dice = support::FreshDice(20);
  support::BrokenBus bus{dice};
};

TEST_F(ComparedReport, ReadsWellFormedFramesOfAnyLength) {
  for (std::size_t channels = 0; channels <= 24; ++channels) {
    for (const char* id : {"MU01", "8-", "\x18\x02", "\x08\x00\x10", "(P", "\x88\x50 x", ""}) {
      for (const int synch : {0, 1, 2, 5}) {
        SvFrame frame = SvFrame(id).Channels(channels).Count(4799).AllRaw(818085);
        frame.Synch(static_cast<std::uint8_t>(synch));
        Compare(frame.Bytes());
        Compare(frame.Tagged().Bytes());
      }
    }
  }
}

TEST_F(ComparedReport, ReadsFramesFromTwentyToNineThousandBytes) {
  const FrameBytes whole = SvFrame("MU01").Trailer(FrameBytes(9000, 0x28)).Bytes();
  for (std::size_t length = 20; length <= 9000; length += length < 400 ? 1 : 211) {
    Compare({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)});
  }
}

TEST_F(ComparedReport, ReadsFramesThatEndTooEarly) {
  Compare(3'000, &support::BrokenBus::Cut);
}

TEST_F(ComparedReport, ReadsFramesWithNoiseBehindTheirEnd) {
  Compare(1'500, &support::BrokenBus::Overlong);
}

TEST_F(ComparedReport, ReadsFramesWithTurnedBits) {
  Compare(3'500, &support::BrokenBus::Flipped);
}

TEST_F(ComparedReport, ReadsNoise) {
  Compare(2'000, &support::BrokenBus::Random);
}

}  // namespace
