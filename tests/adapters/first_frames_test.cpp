#include "adapters/first_frames.h"

#include <gtest/gtest.h>

#include <chrono>
#include <vector>

#include "adapters/first_frames_scene.h"
#include "base/failure.h"
#include "support/failures.h"

namespace {

using std::chrono_literals::operator""s;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""ns;
using support::FailureOf;
namespace failure = platform::failure;

class FirstFrames : public adapter_tests::FirstFramesScene {};

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

}  // namespace
