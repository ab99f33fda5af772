#include <gtest/gtest.h>

#include <string>

#include "report/finder_scene.h"

namespace {

using report_tests::Ids;
using support::SvFrame;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;

class FinderEnd : public report_tests::FinderScene {};

TEST_F(FinderEnd, StopsTheTimersAndCapture) {
  Search([&] {
    main.Timer3.Enabled = true;
    main.Timer2.Enabled = true;
    scene.Journal.clear();
    look.Command1.Click();
    EXPECT_FALSE(look.Window.Loaded);
    EXPECT_EQ(scene.Journal, support::Journal({"stop", "pump", "clear", "pump"}));
  });
  EXPECT_FALSE(main.Timer1.Enabled);
  EXPECT_FALSE(main.Timer2.Enabled);
  EXPECT_FALSE(main.Timer3.Enabled);
  EXPECT_FALSE(scene.State.LookingForID);
  EXPECT_FALSE(scene.State.CaptureRunning);
}

TEST_F(FinderEnd, BeforeTheSearchBeganStartsNoSearchBehindIt) {
  Find([&] { look.Command1.Click(); });
  scene.Elapse(1s);
  EXPECT_FALSE(scene.State.CaptureRunning);
  EXPECT_FALSE(scene.State.LookingForID);
}

TEST_F(FinderEnd, InThePumpOfARestartIsTheEndOfTheSearch) {
  Search([&] {
    scene.Receive(SvFrame("MU01").Bytes());
    scene.Events.AtPump(1, [&] { look.Command1.Click(); });
    scene.Elapse(500ms);
    EXPECT_FALSE(look.Window.Loaded);
  });
  EXPECT_FALSE(scene.State.CaptureRunning);
  EXPECT_FALSE(scene.State.LookingForID);
}

TEST_F(FinderEnd, InThePumpOfAFrameListsNothingMore) {
  Search([&] {
    scene.Events.AtPump(1, [&] { look.Command1.Click(); });
    scene.Receive(SvFrame("MU01").Bytes());
    EXPECT_EQ(Listed(), Ids());
  });
  scene.Elapse(1s);
  EXPECT_FALSE(scene.State.CaptureRunning);
}

TEST_F(FinderEnd, AskedForTwiceIsOne) {
  int ends = 0;
  Search([&] {
    Sends("MU01");
    look.List1.Turn(0, true);
    main.Text1[12].Text.Observe([&] { ++ends; });
    scene.Events.AtPump(1, [&] { look.Command1.Click(); });
    look.Command1.Click();
  });
  EXPECT_EQ(ends, 1);
}

TEST_F(FinderEnd, ComesWithTheNoDataDialogOfASilentBus) {
  Find([&] {
    scene.Elapse(2100ms);
    EXPECT_FALSE(look.Window.Loaded);
  });
  ASSERT_EQ(scene.Dialogs.TimedShown.size(), 1U);
  EXPECT_EQ(scene.Dialogs.TimedShown[0].Text.substr(0, 22), " No data received!\r\n\r\n");
}

TEST_F(FinderEnd, ByABusThatFallsSilentKeepsWhatWasChecked) {
  Search([&] {
    Sends("MU01");
    look.List1.Turn(0, true);
    scene.Elapse(2s);
    EXPECT_FALSE(look.Window.Loaded);
  });
  EXPECT_EQ(Field(12), "MU01");
}

TEST_F(FinderEnd, ByTheEndOfTheProgramTakesTheChoice) {
  Search([&] {
    Sends("MU01");
    look.List1.Turn(0, true);
    main.Window.QueryUnload();
    EXPECT_FALSE(look.Window.Loaded);
  });
  EXPECT_EQ(scene.Settings.FilterContent[0], "MU01");
}

TEST_F(FinderEnd, LetsTheValuesRunWithTheFirstStationAtOnce) {
  Search([&] {
    for (const char* id : {"MU03", "MU01"}) Sends(id);
    look.List1.Turn(1, true);
  });
  scene.Select(forms::tab::Values);
  main.CWButton4.Value = true;
  scene.Receive(SvFrame("MU01").Bytes());
  scene.ReceiveBlock([](int i) { return support::SineFrame(i, 100, 10, "MU01"); });
  EXPECT_EQ(main.Label5[0].Caption.Get().substr(0, 3), "100");
}

}  // namespace
