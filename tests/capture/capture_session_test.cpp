#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/capture_bench.h"

namespace {

using support::CaptureBench;
using support::FakeAdapter;
using support::SceneEnded;
using testing::ElementsAre;
using testing::IsEmpty;

// The list of adapters.

void FillAnEmptyList(CaptureBench& bench) {
  bench.Main.Combo1.List = std::vector<std::string>();
  bench.Acquisition.FillAdapterList();
}

TEST(FillAdapterList, ListsTheGoodAdaptersInTheirOrder) {
  CaptureBench bench;
  bench.Capture.AddAdapter("Broken", false);
  bench.Capture.AddAdapter("Second bus");

  FillAnEmptyList(bench);

  EXPECT_THAT(bench.Main.Combo1.List.Get(), ElementsAre("Bus", "Second bus"));
}

TEST(FillAdapterList, SelectsTheStoredAdapter) {
  CaptureBench bench;
  bench.Capture.AddAdapter("Second bus");
  bench.Settings.AdapterIndex = 2;

  FillAnEmptyList(bench);

  EXPECT_EQ(bench.Main.Combo1.Text(), "Second bus");
  EXPECT_EQ(bench.Settings.AdapterIndex, 2);
}

TEST(FillAdapterList, FallsBackToTheFirstAdapterWhereTheStoredOneIsBeyondTheList) {
  CaptureBench bench;
  bench.Capture.AddAdapter("Second bus");
  bench.Settings.AdapterIndex = 3;

  FillAnEmptyList(bench);

  EXPECT_EQ(bench.Settings.AdapterIndex, 1);
  EXPECT_EQ(bench.Main.Combo1.Text(), "Bus");
  EXPECT_THAT(bench.Main.Combo1.List.Get(), ElementsAre("Bus", "Second bus"));
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty());
}

TEST(FillAdapterList, CountsTheStoredAdapterAmongTheGoodOnes) {
  CaptureBench bench;
  bench.Capture.AddAdapter("Broken", false);
  bench.Settings.AdapterIndex = 2;

  FillAnEmptyList(bench);

  EXPECT_EQ(bench.Settings.AdapterIndex, 1);
}

constexpr const char* NoAdapterText =
    "In a correct environment this error should not happen!\r\n\r\n"
    "Maybe WinPcap or PacketX is not installed. Therefore no networkadapter was found.\r\n\r\n\r\n"
    "Should the program be finished?";

TEST(FillAdapterList, AsksWhetherToEndTheProgramWhereTheCaptureObjectFails) {
  CaptureBench bench;
  bench.Capture.CreateFailure = platform::Failure(429);
  bench.Dialogs.Answers = {platform::Answer::No};

  bench.Acquisition.FillAdapterList();

  ASSERT_EQ(bench.Dialogs.Shown.size(), 1U);
  const platform::Message& box = bench.Dialogs.Shown[0];
  EXPECT_EQ(box.Title, "Attention");
  EXPECT_EQ(box.Text, NoAdapterText);
  EXPECT_EQ(box.BoxIcon, platform::Icon::Critical);
  EXPECT_EQ(box.BoxButtons, platform::Buttons::YesNo);
}

TEST(FillAdapterList, AsksWhereTheListHasNoFirstEntryEither) {
  CaptureBench bench;
  int tries = 0;
  bench.Settings.AdapterIndex = 3;
  bench.Main.Combo1.ListIndex.OnAssign([&](std::int32_t) {
    ++tries;
    throw platform::Failure(380);
  });
  bench.Dialogs.Answers = {platform::Answer::No};

  bench.Acquisition.FillAdapterList();

  EXPECT_EQ(tries, 2);
  EXPECT_EQ(bench.Settings.AdapterIndex, 1);
  ASSERT_EQ(bench.Dialogs.Shown.size(), 1U);
  EXPECT_EQ(bench.Dialogs.Shown[0].Text, NoAdapterText);
}

TEST(FillAdapterList, EndsTheProgramOnYes) {
  CaptureBench bench;
  bench.Capture.CreateFailure = platform::Failure(429);
  bench.Dialogs.Answers = {platform::Answer::Yes};

  EXPECT_THROW(bench.Acquisition.FillAdapterList(), SceneEnded);

  EXPECT_EQ(bench.Journal.back(), "end");
}

TEST(FillAdapterList, LeavesTheListAloneOnNo) {
  CaptureBench bench;
  bench.Main.Combo1.List = std::vector<std::string>{"Bus", "Second bus"};
  bench.Main.Combo1.ListIndex = 1;
  bench.Capture.CreateFailure = platform::Failure(429);
  bench.Dialogs.Answers = {platform::Answer::No};

  bench.Acquisition.FillAdapterList();

  EXPECT_THAT(bench.Main.Combo1.List.Get(), ElementsAre("Bus", "Second bus"));
  EXPECT_EQ(bench.Main.Combo1.Text(), "Second bus");
  EXPECT_EQ(bench.Journal.back(), "box Attention");
}

TEST(FillAdapterList, AsksWhetherToEndTheProgramWhereAnAdapterCannotBeRead) {
  CaptureBench bench;
  bench.Capture.AddAdapter("Second bus").ReadFailure = platform::Failure(57);
  bench.Dialogs.Answers = {platform::Answer::No};

  FillAnEmptyList(bench);

  ASSERT_EQ(bench.Dialogs.Shown.size(), 1U);
  EXPECT_EQ(bench.Dialogs.Shown[0].Text, NoAdapterText);
  EXPECT_THAT(bench.Main.Combo1.List.Get(), ElementsAre("Bus"));
}

// The choice of the adapter.

TEST(SetupAdapter, SetsTheAdapterUpInOrder) {
  CaptureBench bench;

  bench.Acquisition.SetupAdapter(262144);

  EXPECT_THAT(bench.Journal,
              ElementsAre("adapter Bus", "set BuffSize 262144", "set BuffMinToCopy 0",
                          "set HWFilter 32", "set mode 1", "set BPFilter 'ether proto 0x88ba'"));
}

TEST(SetupAdapter, PassesTheBufferOfARecording) {
  CaptureBench bench;

  bench.Acquisition.SetupAdapter(33554432);

  EXPECT_EQ(bench.Capture.Chosen->Settings["BuffSize"], FakeAdapter::Value(33554432));
}

TEST(SetupAdapter, JoinsTheUsersFilterWithOneBlank) {
  CaptureBench bench;
  bench.Settings.FilterString = "and not vlan 7";

  bench.Acquisition.SetupAdapter(262144);

  EXPECT_EQ(bench.Journal.back(), "set BPFilter 'ether proto 0x88ba and not vlan 7'");
}

TEST(SetupAdapter, TakesTheUsersFilterAsTyped) {
  CaptureBench bench;
  bench.Settings.FilterString = "  OR  arp ";

  bench.Acquisition.SetupAdapter(262144);

  EXPECT_EQ(bench.Journal.back(), "set BPFilter 'ether proto 0x88ba   OR  arp '");
}

TEST(SetupAdapter, CountsTheAdaptersThatAreNotGood) {
  CaptureBench bench;
  bench.Capture.AddAdapter("Broken", false);
  bench.Capture.AddAdapter("Second bus");
  bench.Settings.AdapterIndex = 2;

  FillAnEmptyList(bench);

  bench.Acquisition.SetupAdapter(262144);

  EXPECT_EQ(bench.Main.Combo1.Text(), "Second bus");
  EXPECT_EQ(bench.Capture.Chosen->Description(), "Broken");
}

TEST(SetupAdapter, ReportsAnAdapterBeyondTheList) {
  CaptureBench bench;
  bench.Settings.AdapterIndex = 2;

  bench.Acquisition.SetupAdapter(262144);

  ASSERT_EQ(bench.Dialogs.Shown.size(), 1U);
  const platform::Message& box = bench.Dialogs.Shown[0];
  EXPECT_EQ(box.Title, "unknown exception");
  EXPECT_EQ(box.Text,
            "unknown error\r\nSubscript out of range\r\n"
            "This happens while initialization of network adapters.\r\n\r\n"
            "Please check first, if your setup is complete.\r\n"
            "Second, if the installation is complete (WinPcap/PacketX).");
  EXPECT_EQ(box.BoxIcon, platform::Icon::Critical);
  EXPECT_EQ(box.BoxButtons, platform::Buttons::Ok);
  EXPECT_THAT(bench.Journal, ElementsAre("box unknown exception"));
}

class FailingProperty : public testing::TestWithParam<const char*> {};

TEST_P(FailingProperty, EndsTheSetupAfterOneBox) {
  CaptureBench bench;
  bench.Acquisition.SetupAdapter(262144);
  bench.Capture.Chosen->FailureAt.insert({GetParam(), platform::Failure(-5, "no such device")});
  bench.Journal.clear();

  bench.Acquisition.SetupAdapter(262144);

  ASSERT_GE(bench.Journal.size(), 2U);
  EXPECT_EQ(bench.Journal[bench.Journal.size() - 2].rfind(std::string("set ") + GetParam(), 0), 0U);
  EXPECT_EQ(bench.Journal.back(), "box unknown exception");
  EXPECT_EQ(bench.Dialogs.Shown[0].Text,
            "unknown error\r\nno such device\r\n"
            "This happens while initialization of network adapters.\r\n\r\n"
            "Please check first, if your setup is complete.\r\n"
            "Second, if the installation is complete (WinPcap/PacketX).");
}

INSTANTIATE_TEST_SUITE_P(SetupAdapter, FailingProperty,
                         testing::Values("BuffSize", "BuffMinToCopy", "HWFilter", "mode",
                                         "BPFilter"));

TEST(SetupAdapter, LetsTheCallerGoOnToTheStart) {
  CaptureBench bench;
  bench.Settings.AdapterIndex = 9;

  bench.Run("LookingForValues");

  EXPECT_THAT(bench.Journal,
              ElementsAre("box unknown exception", "stop", "pump", "clear", "pump", "start"));
}

// The end of a burst.

TEST(StopCapture, EndsABurstInOrder) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  for (std::size_t i = 0; i < 4; ++i) {
    bench.Watch(bench.Main.Shape12[i].Visible, "Shape12(" + std::to_string(i) + ")");
  }

  bench.Acquisition.StopCapture();

  EXPECT_THAT(bench.Journal, ElementsAre("Shape12(0) false", "Shape12(1) false", "Shape12(2) false",
                                         "Shape12(3) false", "stop", "pump", "clear", "pump"));
}

TEST(StopCapture, CountsAsRunningUntilItsLastPumpIsOver) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  std::vector<bool> running;
  for (const int pump : {1, 2}) {
    bench.Events.AtPump(pump, [&] { running.push_back(bench.State.CaptureRunning); });
  }

  bench.Acquisition.StopCapture();

  EXPECT_THAT(running, ElementsAre(true, true));
  EXPECT_FALSE(bench.State.CaptureRunning);
}

TEST(StopCapture, IsLegalWhenIdle) {
  CaptureBench bench;

  bench.Acquisition.StopCapture();

  EXPECT_THAT(bench.Journal, ElementsAre("stop", "pump", "clear", "pump"));
  EXPECT_FALSE(bench.State.CaptureRunning);
}

TEST(StopCapture, CreatesItsCollectionOfPacketsOnceAndOnlyEmptiesItAfterwards) {
  CaptureBench bench;
  ASSERT_THAT(bench.Capture.Collections, IsEmpty());

  bench.Acquisition.StopCapture();
  bench.Acquisition.StopCapture();
  bench.Acquisition.StartCapture("LookingForValues");
  bench.Acquisition.StopCapture();

  EXPECT_THAT(bench.Capture.Collections, ElementsAre("create", "clear", "clear", "clear", "clear"));
}

TEST(StopCapture, KeepsTheModeFlags) {
  CaptureBench bench;
  bench.RunWithLength("LookingForScope");

  bench.Acquisition.StopCapture();

  EXPECT_TRUE(bench.State.LookingForScope);
}

TEST(StopCapture, SkipsAStopThatFailsHarmlessly) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.Capture.StopFailure = platform::Failure(static_cast<std::int32_t>(0x8004022BU));

  bench.Acquisition.StopCapture();

  EXPECT_THAT(bench.Journal, ElementsAre("stop", "pump", "clear", "pump"));
  EXPECT_FALSE(bench.State.CaptureRunning);
}

TEST(StopCapture, SkipsAnEmptyingThatFailsHarmlessly) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.Capture.ClearFailure = platform::Failure(static_cast<std::int32_t>(0x8004022BU));

  bench.Acquisition.StopCapture();

  EXPECT_THAT(bench.Journal, ElementsAre("stop", "pump", "clear", "pump"));
  EXPECT_FALSE(bench.State.CaptureRunning);
}

TEST(StopCapture, LeavesSilentlyAtAnyOtherFailureOfTheStop) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.Capture.StopFailure = platform::Failure(57);

  bench.Acquisition.StopCapture();

  EXPECT_THAT(bench.Journal, ElementsAre("stop"));
  EXPECT_TRUE(bench.State.CaptureRunning);
}

TEST(StopCapture, LeavesSilentlyAtAnyOtherFailureOfTheEmptying) {
  CaptureBench bench;
  bench.RunWithLength("LookingForValues");
  bench.Capture.ClearFailure = platform::Failure(57);

  bench.Acquisition.StopCapture();

  EXPECT_THAT(bench.Journal, ElementsAre("stop", "pump", "clear"));
  EXPECT_TRUE(bench.State.CaptureRunning);
}

}  // namespace
