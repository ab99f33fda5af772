#include "adapters/first_frames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <numeric>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "adapters/hand_clock.h"
#include "platform/failure.h"
#include "support/failures.h"

namespace {

using std::chrono_literals::operator""s;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""ns;
using adapters::SourceSettings;
using platform::CapturedFrame;
using platform::Failure;
using platform::Wanted;
using support::FailureOf;
namespace failure = platform::failure;

/// A source of frames that the scene lets arrive; all lie in one buffer, so that a frame is gone as
/// soon as the next is asked for.
class ArrivingFrames : public adapters::FrameSource {
 public:
  void Prepare(const SourceSettings&) override {
    if (PrepareFailure != 0) throw Failure(PrepareFailure);
    Stop();
  }
  void Start() override {
    if (StartFailure != 0) throw Failure(StartFailure);
    running_ = true;
  }
  void Stop() override {
    running_ = false;
    Waiting.clear();
  }
  void TakeNoMore() override { ++NoMore; }
  void Release() override { Stop(); }
  std::optional<CapturedFrame> Next() override {
    if (!running_ || Waiting.empty()) return std::nullopt;
    if (Refused > 0) {
      const int passedOver = std::min(Refused, 4096);
      Refused -= passedOver;
      lookedAtAll_ = passedOver < 4096;
      return std::nullopt;
    }
    lookedAtAll_ = true;
    const auto [mark, length] = Waiting.front();
    Waiting.pop_front();
    buffer_.assign(50, static_cast<std::uint8_t>(mark));
    buffer_[0] = static_cast<std::uint8_t>(mark >> 8);
    return CapturedFrame{buffer_, length};
  }
  bool LookedAtAll() const override { return lookedAtAll_; }

  int NoMore = 0;
  std::int32_t PrepareFailure = 0;
  std::int32_t StartFailure = 0;
  /// Frames in front of those that wait, which the filter refuses.
  int Refused = 0;
  std::deque<std::pair<int, std::size_t>> Waiting;

 private:
  bool running_ = false;
  bool lookedAtAll_ = true;
  std::vector<std::uint8_t> buffer_;
};

class FirstFrames : public ::testing::Test {
 protected:
  using Marks = std::vector<int>;

  FirstFrames() {
    auto arriving = std::make_unique<ArrivingFrames>();
    wire_ = arriving.get();
    frames_ = std::make_unique<adapters::FirstFrames>(std::move(arriving), clock_);
  }

  void Run() {
    frames_->Prepare({});
    frames_->Start();
  }
  void Restart() {
    frames_->Stop();
    frames_->Start();
  }
  void Arrive(int mark, std::size_t length = 130) { wire_->Waiting.emplace_back(mark, length); }
  void Arrive(std::initializer_list<int> marks) {
    for (const int mark : marks) Arrive(mark);
  }
  static int MarkOf(const CapturedFrame& frame) {
    return frame.Bytes.front() * 256 + frame.Bytes.back();
  }
  /// The caller would like to meet these most, and those rather than others.
  void Wish(const std::set<int>& most, const std::set<int>& rather = {}) {
    frames_->SetWish([most, rather](const CapturedFrame& frame) {
      const int mark = MarkOf(frame);
      if (most.contains(mark)) return Wanted::Most;
      return rather.contains(mark) ? Wanted::Rather : Wanted::No;
    });
  }
  /// The marks of the frames that are handed over now, at most so many.
  Marks Taken(std::size_t most = 100000) {
    Marks marks;
    while (marks.size() < most) {
      const auto frame = frames_->Next();
      if (!frame) break;
      EXPECT_EQ(frame->Bytes.size(), 50U);
      marks.push_back(MarkOf(*frame));
    }
    return marks;
  }
  Marks TakenAfter(std::chrono::nanoseconds time) {
    clock_.Time += time;
    return Taken();
  }
  /// What waits begins the gathering; then its time passes.
  Marks TakenBehindGathering(std::size_t most = 100000) {
    EXPECT_EQ(Taken(), Marks());
    clock_.Time += 20ms;
    return Taken(most);
  }
  static Marks FromTo(int first, int last) {
    Marks marks(static_cast<std::size_t>(last - first + 1));
    std::iota(marks.begin(), marks.end(), first);
    return marks;
  }

  adapter_tests::HandClock clock_;
  ArrivingFrames* wire_ = nullptr;
  std::unique_ptr<adapters::FirstFrames> frames_;
};

TEST_F(FirstFrames, ComeTwentyMillisecondsBehindTheFirstTheEarliestOfTheLongestBeforeTheOthers) {
  Run();
  Arrive(1, 130);
  Arrive(2, 132);
  EXPECT_EQ(TakenAfter(5ms), Marks());
  Arrive(3, 134);
  Arrive(4, 130);
  Arrive(5, 134);
  EXPECT_EQ(TakenAfter(20ms - 1ns), Marks());
  EXPECT_EQ(TakenAfter(1ns), Marks({3, 1, 2, 4, 5}));
}

TEST_F(FirstFrames, OfABusThatWasSilentAreGatheredFromTheFirstOn) {
  Run();
  EXPECT_EQ(TakenAfter(3s), Marks());
  Arrive(1);
  EXPECT_EQ(Taken(), Marks()) << "the longer one may be second";
  Arrive(2, 134);
  EXPECT_EQ(TakenAfter(20ms), Marks({2, 1}));
}

TEST_F(FirstFrames, PassOnThatNoMoreIsTaken) {
  Run();
  frames_->TakeNoMore();
  EXPECT_EQ(wire_->NoMore, 1);
}

TEST_F(FirstFrames, AreHandedOverAtOnceWhereNoMoreIsTaken) {
  Run();
  Arrive(1);
  EXPECT_EQ(Taken(), Marks());
  Arrive(2, 134);
  frames_->TakeNoMore();
  EXPECT_EQ(Taken(), Marks({2, 1}));
  EXPECT_TRUE(frames_->LookedAtAll());
}

TEST_F(FirstFrames, AreNoneWhereNoMoreIsTakenOfASilentBus) {
  Run();
  frames_->TakeNoMore();
  EXPECT_EQ(Taken(), Marks());
  EXPECT_TRUE(frames_->LookedAtAll());
}

TEST_F(FirstFrames, TellWhetherTheSourceHasLookedAtAll) {
  Run();
  wire_->Refused = 5000;
  Arrive(1);
  frames_->TakeNoMore();
  EXPECT_EQ(Taken(), Marks());
  EXPECT_FALSE(frames_->LookedAtAll());
  EXPECT_EQ(Taken(), Marks());
  EXPECT_TRUE(frames_->LookedAtAll());
  EXPECT_EQ(Taken(), Marks({1}));
  // The same behind the first frames.
  wire_->Refused = 5000;
  Arrive(2);
  EXPECT_EQ(Taken(), Marks());
  EXPECT_FALSE(frames_->LookedAtAll());
}

TEST_F(FirstFrames, AreHandedOverAlsoWhereOnlyOneCame) {
  Run();
  Arrive(1);
  EXPECT_EQ(TakenBehindGathering(), Marks({1}));
}

TEST_F(FirstFrames, KeepTheirTrueLength) {
  Run();
  Arrive(1, 2000);
  EXPECT_EQ(Taken(), Marks());
  clock_.Time += 20ms;
  EXPECT_EQ(frames_->Next()->Length, 2000U);
}

TEST_F(FirstFrames, StayInTheirOrderWhereAllAreOfOneLength) {
  Run();
  Arrive({1, 2, 3});
  EXPECT_EQ(TakenBehindGathering(), Marks({1, 2, 3}));
}

TEST_F(FirstFrames, AreFollowedByWhatComesLaterAsItComes) {
  Run();
  Arrive(1);
  EXPECT_EQ(Taken(), Marks());
  clock_.Time += 20ms;
  Arrive(2);
  EXPECT_EQ(Taken(1), Marks({1}));
  Arrive(3, 134);
  EXPECT_EQ(Taken(), Marks({2, 3}));
  Arrive(4);
  Arrive(5, 134);
  EXPECT_EQ(Taken(), Marks({4, 5}));
}

TEST_F(FirstFrames, OfAFullBusAreAllHeard) {
  Run();
  Wish({4900});
  for (int mark = 0; mark < 5200; ++mark) Arrive(mark, mark == 5100 ? 138 : 130);
  Marks expected = FromTo(0, 5199);
  std::erase_if(expected, [](int mark) { return mark == 4900 || mark == 5100; });
  expected.insert(expected.begin(), {5100, 4900});
  EXPECT_EQ(TakenBehindGathering(), expected);
}

TEST_F(FirstFrames, BeyondWhatIsKeptHaveNoGapUpToThoseThatFollow) {
  constexpr int Kept = adapters::GatheredFrames::MostKept;
  Run();
  Wish({5});
  for (int mark = 0; mark < Kept + 1000; ++mark) Arrive(mark, mark == 3 ? 138 : 130);
  clock_.Time += 1ms;
  while (!wire_->Waiting.empty()) EXPECT_EQ(Taken(), Marks());
  clock_.Time += 20ms;
  Arrive(Kept + 1000);
  Marks expected = FromTo(1001, Kept + 1000);
  expected.insert(expected.begin(), {3, 5});
  EXPECT_EQ(Taken(), expected);
}

TEST_F(FirstFrames, AreNotSoughtAgainAtARestart) {
  Run();
  Arrive(1);
  EXPECT_EQ(TakenBehindGathering(), Marks({1}));
  Restart();
  Arrive(2);
  Arrive(3, 134);
  EXPECT_EQ(Taken(), Marks({2, 3}));
}

TEST_F(FirstFrames, AreSoughtAgainAfterTheNextSetup) {
  Run();
  Arrive(1);
  EXPECT_EQ(TakenBehindGathering(), Marks({1}));
  frames_->Stop();
  Run();
  Arrive(2);
  Arrive(3, 134);
  EXPECT_EQ(TakenBehindGathering(), Marks({3, 2}));
}

TEST_F(FirstFrames, AreLostByAStopWhileTheyAreGathered) {
  Run();
  Arrive(1, 134);
  EXPECT_EQ(Taken(), Marks());
  frames_->Stop();
  EXPECT_EQ(TakenAfter(20ms), Marks());
  frames_->Start();
  Arrive(2);
  Arrive(3, 132);
  EXPECT_EQ(TakenBehindGathering(), Marks({3, 2})) << "nothing has been handed over yet";
}

TEST_F(FirstFrames, AreLostByAStopWhileTheyAreHandedOver) {
  Run();
  Arrive({1, 2, 3});
  EXPECT_EQ(TakenBehindGathering(1), Marks({1}));
  frames_->Stop();
  EXPECT_EQ(Taken(), Marks());
  frames_->Start();
  Arrive(4);
  EXPECT_EQ(Taken(), Marks({4}));
}

TEST_F(FirstFrames, AreLostByASetupWhileTheyAreHandedOver) {
  Run();
  Arrive({1, 2, 3});
  EXPECT_EQ(TakenBehindGathering(1), Marks({1}));
  wire_->PrepareFailure = failure::DeviceIo;
  EXPECT_EQ(FailureOf([&] { frames_->Prepare({}); }), failure::DeviceIo);
  EXPECT_EQ(Taken(), Marks());
}

TEST_F(FirstFrames, AreLostWithTheAdapter) {
  Run();
  Arrive({1, 2, 3});
  EXPECT_EQ(TakenBehindGathering(1), Marks({1}));
  frames_->Release();
  EXPECT_EQ(Taken(), Marks());
}

TEST_F(FirstFrames, DoNotWaitLongerForASecondStart) {
  Run();
  Arrive(1);
  EXPECT_EQ(Taken(), Marks());
  EXPECT_EQ(TakenAfter(15ms), Marks());
  frames_->Start();
  EXPECT_EQ(TakenAfter(5ms), Marks({1}));
}

TEST_F(FirstFrames, AreSoughtAfterAStartThatFailed) {
  frames_->Prepare({});
  wire_->StartFailure = failure::FilterRefused;
  EXPECT_EQ(FailureOf([&] { frames_->Start(); }), failure::FilterRefused);
  wire_->StartFailure = 0;
  clock_.Time += 1s;
  frames_->Start();
  Arrive(1);
  EXPECT_EQ(TakenBehindGathering(), Marks({1}));
}

using WantedFrames = FirstFrames;

TEST_F(WantedFrames, StandRightBehindTheLongestAfterASetup) {
  Wish({4});
  Run();
  Arrive({1, 2});
  Arrive(3, 134);
  Arrive({4, 5});
  EXPECT_EQ(TakenBehindGathering(), Marks({3, 4, 1, 2, 5}));
}

TEST_F(WantedFrames, AreNotTheOneThatSetsTheLength) {
  Wish({2, 4});
  Run();
  Arrive(1);
  Arrive(2, 134);
  Arrive({3, 4});
  EXPECT_EQ(TakenBehindGathering(), Marks({2, 4, 1, 3}));
}

TEST_F(WantedFrames, ThatAreWantedMostStandBeforeThoseThatAreRatherWanted) {
  Wish({3}, {2});
  Run();
  Arrive({1, 2, 3, 4});
  EXPECT_EQ(TakenBehindGathering(), Marks({1, 3, 2, 4}));
}

TEST_F(WantedFrames, OfTheLowerKindServeWhereTheOnlyBetterOneSetsTheLength) {
  Wish({3}, {2, 4});
  Run();
  Arrive({1, 2});
  Arrive(3, 134);
  Arrive(4);
  EXPECT_EQ(TakenBehindGathering(), Marks({3, 2, 1, 4}));
}

class WantedAtARestart : public FirstFrames {
 protected:
  WantedAtARestart() {
    Run();
    Arrive(1);
    EXPECT_EQ(TakenBehindGathering(), Marks({1}));
  }
};

TEST_F(WantedAtARestart, ComeFirstAndAtOnce) {
  Wish({3});
  Restart();
  Arrive(1);
  Arrive(2, 134);
  EXPECT_EQ(Taken(), Marks());
  Arrive({3, 4});
  EXPECT_EQ(Taken(), Marks({3, 1, 2, 4}));
}

TEST_F(WantedAtARestart, AreAwaitedWhereOneIsOnlyRatherWanted) {
  Wish({3}, {2});
  Restart();
  Arrive({1, 2});
  EXPECT_EQ(TakenBehindGathering(), Marks({2, 1}));
}

TEST_F(WantedAtARestart, ButMissingLeaveTheOrderAsItIs) {
  Wish({9});
  Restart();
  Arrive(1);
  Arrive(2, 134);
  EXPECT_EQ(TakenBehindGathering(), Marks({1, 2}));
}

TEST_F(WantedAtARestart, AreSoughtFromTheFirstFrameOn) {
  Wish({3});
  Restart();
  EXPECT_EQ(TakenAfter(1s), Marks());
  Arrive(1);
  EXPECT_EQ(TakenAfter(20ms), Marks());
  Arrive(3);
  EXPECT_EQ(Taken(), Marks({3, 1}));
}

TEST_F(WantedAtARestart, AreSoughtAtEachStartUntilTheWishEnds) {
  Wish({3});
  for (int start = 0; start < 2; ++start) {
    Restart();
    Arrive({1, 2, 3});
    EXPECT_EQ(Taken(), Marks({3, 1, 2}));
  }
  frames_->SetWish({});
  Restart();
  Arrive({1, 2, 3});
  EXPECT_EQ(Taken(), Marks({1, 2, 3}));
}

}  // namespace
