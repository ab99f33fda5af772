#include "adapters/first_frames.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
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
    const auto [mark, length] = Waiting.front();
    Waiting.pop_front();
    buffer_.assign(50, mark);
    return CapturedFrame{buffer_, length};
  }

  int NoMore = 0;
  std::int32_t PrepareFailure = 0;
  std::int32_t StartFailure = 0;
  std::deque<std::pair<std::uint8_t, std::size_t>> Waiting;

 private:
  bool running_ = false;
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
  void Arrive(int mark, std::size_t length = 130) {
    wire_->Waiting.emplace_back(static_cast<std::uint8_t>(mark), length);
  }
  /// The marks of the frames that are handed over now, at most so many.
  Marks Taken(std::size_t most = 1000) {
    Marks marks;
    while (marks.size() < most) {
      const auto frame = frames_->Next();
      if (!frame) break;
      EXPECT_EQ(frame->Bytes.size(), 50U);
      marks.push_back(frame->Bytes.back());
    }
    return marks;
  }
  Marks TakenAfter(std::chrono::nanoseconds time) {
    clock_.Time += time;
    return Taken();
  }

  adapter_tests::HandClock clock_;
  ArrivingFrames* wire_ = nullptr;
  std::unique_ptr<adapters::FirstFrames> frames_;
};

TEST_F(FirstFrames, ComeAfterTwentyMillisecondsTheEarliestOfTheLongestBeforeTheOthers) {
  Run();
  Arrive(1, 130);
  Arrive(2, 132);
  EXPECT_EQ(TakenAfter(5ms), Marks());
  Arrive(3, 134);
  Arrive(4, 130);
  Arrive(5, 134);
  EXPECT_EQ(TakenAfter(15ms - 1ns), Marks());
  EXPECT_EQ(TakenAfter(1ns), Marks({3, 1, 2, 4, 5}));
}

TEST_F(FirstFrames, PassOnThatNoMoreIsTaken) {
  Run();
  frames_->TakeNoMore();
  EXPECT_EQ(wire_->NoMore, 1);
}

TEST_F(FirstFrames, LetEachOfTwoAlternatingStreamsBeSecondAfterEveryOtherSetup) {
  const auto setup = [this](std::initializer_list<int> marks) {
    Run();
    // The stream of the odd marks has the longer frames.
    for (const int mark : marks) Arrive(mark, mark % 2 == 1 ? 134 : 130);
    return TakenAfter(20ms);
  };
  EXPECT_EQ(setup({1, 2, 3, 4}), Marks({1, 2, 3, 4}));
  EXPECT_EQ(setup({1, 2, 3, 4}), Marks({1, 3, 2, 4}));
  EXPECT_EQ(setup({2, 1, 4, 3}), Marks({1, 2, 4, 3}));
  EXPECT_EQ(setup({2, 1, 4, 3}), Marks({1, 3, 2, 4}));
}

TEST_F(FirstFrames, AreHandedOverAlsoWhereOnlyOneCame) {
  for (int i = 0; i < 2; ++i) {
    Run();
    Arrive(1);
    EXPECT_EQ(TakenAfter(20ms), Marks({1}));
  }
}

TEST_F(FirstFrames, KeepTheirTrueLength) {
  Run();
  Arrive(1, 2000);
  clock_.Time += 20ms;
  EXPECT_EQ(frames_->Next()->Length, 2000U);
}

TEST_F(FirstFrames, StayInTheirOrderWhereAllAreOfOneLength) {
  Run();
  for (const int mark : {1, 2, 3}) Arrive(mark);
  EXPECT_EQ(TakenAfter(20ms), Marks({1, 2, 3}));
}

TEST_F(FirstFrames, AreFollowedByWhatComesLaterAsItComes) {
  Run();
  Arrive(1);
  clock_.Time += 20ms;
  Arrive(2);
  EXPECT_EQ(Taken(1), Marks({1}));
  Arrive(3, 134);
  EXPECT_EQ(Taken(), Marks({2, 3}));
  Arrive(4);
  Arrive(5, 134);
  EXPECT_EQ(Taken(), Marks({4, 5}));
}

TEST_F(FirstFrames, AreAtMost256AndThenDoNotWait) {
  Run();
  for (int mark = 0; mark < 255; ++mark) Arrive(1);
  EXPECT_EQ(Taken(), Marks());
  Arrive(2, 134);
  Arrive(3, 138);
  Arrive(4);
  const Marks taken = Taken();
  ASSERT_EQ(taken.size(), 258U);
  EXPECT_EQ(taken[0], 2);
  EXPECT_EQ(Marks(taken.begin() + 255, taken.end()), Marks({1, 3, 4}));
}

TEST_F(FirstFrames, OfABusThatWasSilentDoNotWaitAnyLonger) {
  Run();
  EXPECT_EQ(TakenAfter(30ms), Marks());
  Arrive(1);
  Arrive(2, 134);
  EXPECT_EQ(Taken(), Marks({2, 1}));
}

TEST_F(FirstFrames, AreNotSoughtAgainAtARestart) {
  Run();
  Arrive(1);
  TakenAfter(20ms);
  frames_->Stop();
  frames_->Start();
  Arrive(2);
  Arrive(3, 134);
  EXPECT_EQ(Taken(), Marks({2, 3}));
}

TEST_F(FirstFrames, AreSoughtAgainAfterTheNextSetup) {
  Run();
  Arrive(1);
  TakenAfter(20ms);
  frames_->Stop();
  Run();
  Arrive(2);
  Arrive(3, 134);
  EXPECT_EQ(Taken(), Marks());
  EXPECT_EQ(TakenAfter(20ms), Marks({3, 2}));
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
  EXPECT_EQ(TakenAfter(20ms - 1ns), Marks()) << "nothing has been handed over yet";
  EXPECT_EQ(TakenAfter(1ns), Marks({3, 2}));
}

TEST_F(FirstFrames, AreLostByAStopWhileTheyAreHandedOver) {
  Run();
  for (const int mark : {1, 2, 3}) Arrive(mark);
  clock_.Time += 20ms;
  EXPECT_EQ(Taken(1), Marks({1}));
  frames_->Stop();
  EXPECT_EQ(Taken(), Marks());
  frames_->Start();
  Arrive(4);
  EXPECT_EQ(Taken(), Marks({4}));
}

TEST_F(FirstFrames, AreLostByASetupWhileTheyAreHandedOver) {
  Run();
  for (const int mark : {1, 2, 3}) Arrive(mark);
  clock_.Time += 20ms;
  EXPECT_EQ(Taken(1), Marks({1}));
  wire_->PrepareFailure = failure::DeviceIo;
  EXPECT_EQ(FailureOf([&] { frames_->Prepare({}); }), failure::DeviceIo);
  EXPECT_EQ(Taken(), Marks());
}

TEST_F(FirstFrames, AreLostWithTheAdapter) {
  Run();
  for (const int mark : {1, 2, 3}) Arrive(mark);
  clock_.Time += 20ms;
  EXPECT_EQ(Taken(1), Marks({1}));
  frames_->Release();
  EXPECT_EQ(Taken(), Marks());
}

TEST_F(FirstFrames, DoNotWaitLongerForASecondStart) {
  Run();
  Arrive(1);
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
  EXPECT_EQ(Taken(), Marks());
  EXPECT_EQ(TakenAfter(20ms), Marks({1}));
}

}  // namespace
