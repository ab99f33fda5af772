#include <gtest/gtest.h>

#include "support/scene.h"

namespace {

using support::Scene;

TEST(StartUp, SetsItsFlags) {
  Scene scene;
  scene.State.PacketLengthPending = false;
  scene.State.RealTimeChannel = 5;
  scene.Present.ActiveStream = 2;
  scene.Main.Check6.Value = 0;
  for (const std::size_t odd : {1U, 3U, 5U, 7U}) scene.Main.Option3[odd].Value = true;

  scene.App.Load();

  EXPECT_TRUE(scene.State.PacketLengthPending);
  EXPECT_EQ(scene.State.RealTimeChannel, 1);
  EXPECT_EQ(scene.Present.ActiveStream, 1);
  EXPECT_EQ(scene.Main.Check6.Value, 1);
  EXPECT_TRUE(scene.Main.sevOption1[0].Value);
  for (const std::size_t even : {0U, 2U, 4U, 6U}) EXPECT_TRUE(scene.Main.Option3[even].Value);
}

TEST(StartUp, ChoosesTheFirstStreamBeforeTheTriggerFields) {
  Scene scene;
  scene.Present.ActiveStream = 2;
  std::int16_t chosen = 0;
  scene.Main.Text3[2].Text.Observe([&] { chosen = scene.Present.ActiveStream; });

  scene.App.Load();

  EXPECT_EQ(chosen, 1);
}

TEST(StartUp, ChoosesTheFirstStreamAgainBehindTheTriggerFields) {
  Scene scene;
  // The station is selected already, so that no click of it chooses the stream.
  for (const std::size_t even : {0U, 2U, 4U, 6U}) scene.Main.Option3[even].Value = true;
  scene.Main.Text3[8].Text.Observe([&] { scene.Present.ActiveStream = 2; });

  scene.App.Load();

  EXPECT_EQ(scene.Present.ActiveStream, 1);
}

}  // namespace
