#include <gtest/gtest.h>

#include <chrono>

#include "adapters/first_frames_scene.h"

namespace {

using std::chrono_literals::operator""s;
using std::chrono_literals::operator""ms;

class WantedFrames : public adapter_tests::FirstFramesScene {};

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

class WantedAtARestart : public adapter_tests::FirstFramesScene {
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
