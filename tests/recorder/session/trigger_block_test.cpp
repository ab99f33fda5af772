#include "recorder/session/trigger_block.h"

#include <gmock/gmock.h>

#include <vector>

#include "forms/main_form.h"
#include "platform/loop/timer_queue.h"
#include "support/manual_clock.h"

namespace {

using testing::Each;

class TriggerBlock : public testing::Test {
 protected:
  void Choose(std::size_t kind) { main.Option1[kind].Value = true; }
  std::vector<bool> Shown() const {
    std::vector<bool> shown{main.Shape9.Visible};
    for (const std::size_t row : {5U, 6U, 9U, 22U, 23U, 24U}) {
      shown.push_back(main.Label3[row].Visible);
    }
    for (const std::size_t field : {2U, 3U, 4U, 5U}) shown.push_back(main.Text3[field].Visible);
    return shown;
  }

  support::ManualClock clock;
  platform::TimerQueue timers{clock};
  forms::Main main{timers};
  config::Settings settings;
  platform::NumberText numbers;
  subroutines::TriggerBlock block{main, main, settings, numbers};
};

TEST_F(TriggerBlock, HidesItsFieldsForARecordingThatStartsAtOnce) {
  Choose(2);
  EXPECT_THAT(Shown(), Each(false));
  EXPECT_EQ(settings.SingleTrigger, -1);
  EXPECT_FALSE(main.Text3[8].Enabled);
}

TEST_F(TriggerBlock, ShowsItsFieldsForASingleTrigger) {
  Choose(2);
  Choose(0);
  EXPECT_THAT(Shown(), Each(true));
  EXPECT_EQ(settings.SingleTrigger, 0);
  EXPECT_FALSE(main.Text3[8].Enabled);
}

TEST_F(TriggerBlock, StoresAContinuousTriggerAsASingleOne) {
  Choose(2);
  Choose(1);
  EXPECT_THAT(Shown(), Each(true));
  EXPECT_EQ(settings.SingleTrigger, 0);
  EXPECT_TRUE(main.Text3[8].Enabled);
}

TEST_F(TriggerBlock, LeavesTheFieldOfThePauseWhereItStands) {
  main.Text3[8].Visible = true;
  Choose(2);
  EXPECT_TRUE(main.Text3[8].Visible);
}

}  // namespace
