#include "report/stream_finder.h"

#include <gtest/gtest.h>

#include "report/finder_scene.h"
#include "support/watch.h"

namespace {

using platform::CheckItem;
using report_tests::Ids;
using support::SvFrame;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;

class Finder : public report_tests::FinderScene {};

TEST_F(Finder, HasTheTextsOfItsWindow) {
  EXPECT_EQ(look.Frame1.Caption.Get(), "IEC 61850.9.2LE (SV) sender on the bus");
  EXPECT_EQ(look.List1.ToolTipText.Get(), "List of all senders still found sending");
  EXPECT_EQ(look.Label1.Caption.Get(),
            "Wait until as minimum one stream is found. Mark it as relevant.");
  EXPECT_EQ(look.Command1.Caption.Get(), "&OK");
}

TEST_F(Finder, StandsInItsOwnColour) {
  Find([] {});
  const platform::Rgb blue{147, 201, 254};
  EXPECT_EQ(look.Window.BackColor, blue);
  EXPECT_EQ(look.Label1.BackColor, blue);
  EXPECT_EQ(look.Frame1.BackColor, blue);
}

TEST_F(Finder, EmptiesBothFiltersBeforeItOpens) {
  std::string first = "?";
  std::string second = "?";
  Find([&] {
    first = scene.Settings.FilterContent[0];
    second = scene.Settings.FilterContent[1];
  });
  EXPECT_EQ(first, "not yet determinated");
  EXPECT_EQ(second, "not yet determinated");
}

TEST_F(Finder, BeginsATenthOfASecondAfterItOpened) {
  scene.State.PacketLengthPending = false;
  Find([&] {
    scene.Journal.clear();
    scene.Elapse(99ms);
    EXPECT_TRUE(scene.Journal.empty());
    scene.Elapse(1ms);
    EXPECT_EQ(scene.Journal.front(), "adapter Bus");
    EXPECT_EQ(scene.Journal[1], "set BuffSize 262144");
    EXPECT_EQ(scene.Journal.back(), "start");
    EXPECT_TRUE(scene.State.LookingForID);
    EXPECT_FALSE(scene.State.PacketLengthPending);
    EXPECT_FALSE(look.Timer1.Enabled);
    EXPECT_EQ(main.Timer1.Interval.Get(), 2000);
  });
}

TEST_F(Finder, ListsEachSenderOnceInTheOrderOfTheirComing) {
  Search([&] {
    for (const char* id : {"MU02", "MU01", "MU02", "MU03", "MU01"}) Sends(id);
    EXPECT_EQ(Listed(), Ids({"MU02", "MU01", "MU03"}));
    EXPECT_EQ(Told(), "5 frames were looked at.");
  });
}

TEST_F(Finder, DoesNotListWhatIsPartOfAnEarlierId) {
  Search([&] {
    for (const char* id : {"MU01-A", "MU01", "MU01-AB", "01-A MU", "B MU0"}) Sends(id);
    EXPECT_EQ(Listed(), Ids({"MU01-A", "MU01-AB", "B MU0"}));
  });
}

TEST_F(Finder, CountsAKnownSenderAsMetBeforeTheNext) {
  Search([&] {
    for (const char* id : {"AX", "BX", "AX", "BX AX"}) Sends(id);
    EXPECT_EQ(Listed(), Ids({"AX", "BX"}));
  });
}

TEST_F(Finder, DoesNotListAnEmptyId) {
  Search([&] {
    Sends("");
    EXPECT_EQ(Listed(), Ids());
    EXPECT_EQ(Told(), "1 frame was looked at.");
  });
}

TEST_F(Finder, BeginsAnewEachTime) {
  Search([&] {
    Sends("MU01");
    look.List1.Turn(0, true);
  });
  Search([&] {
    EXPECT_EQ(Listed(), Ids());
    EXPECT_EQ(Told(), "No frame was looked at yet.");
    Sends("MU01");
    EXPECT_EQ(Listed(), Ids({"MU01"}));
  });
}

TEST_F(Finder, WaitsHalfASecondAndTheDelayBetweenTwoFrames) {
  scene.Settings.InternalDelay = 300;
  Search([&] {
    scene.Receive(SvFrame("MU01").Bytes());
    EXPECT_FALSE(scene.State.CaptureRunning);
    scene.Elapse(499ms);
    EXPECT_FALSE(scene.State.CaptureRunning);
    scene.Journal.clear();
    scene.Elapse(1ms);
    EXPECT_EQ(scene.Journal.front(), "wait 300");
    EXPECT_TRUE(scene.State.CaptureRunning);
  });
}

TEST_F(Finder, LosesTheFirstFrameAfterTheProgramsStartForItsLength) {
  ASSERT_TRUE(scene.State.PacketLengthPending);
  Find([&] {
    scene.Elapse(100ms);
    Sends("MU01");
    EXPECT_EQ(Listed(), Ids());
    Sends("MU01");
    EXPECT_EQ(Listed(), Ids({"MU01"}));
  });
}

TEST_F(Finder, LeavesLongerFramesOutAndSaysSo) {
  Find([&] {
    scene.Elapse(100ms);
    scene.Receive(SvFrame("MU01").Bytes());
    scene.Receive(SvFrame("A LONG NAME").Bytes());
    Sends("MU01");
    EXPECT_EQ(Listed(), Ids({"MU01"}));
    EXPECT_EQ(Told(),
              "1 frame was looked at. 1 frame was longer than expected and left out: RUN on a view "
              "measures the length anew.");
    scene.Receive(SvFrame("A LONG NAME").Bytes());
    Sends("MU02");
    EXPECT_EQ(Told(),
              "2 frames were looked at. 2 frames were longer than expected and left out: RUN on a "
              "view measures the length anew.");
  });
  // The next session counts its own.
  Search([&] {
    Sends("MU02");
    EXPECT_EQ(Told(), "1 frame was looked at.");
  });
}

class FinderChoice : public Finder {
 protected:
  void FindThree(const std::function<void()>& use) {
    Search([&, use] {
      for (const char* id : {"MU0A", "MU0B", "MU0C"}) Sends(id);
      use();
    });
  }
};

TEST_F(FinderChoice, OfNothingLeavesNoFilter) {
  FindThree([] {});
  EXPECT_EQ(scene.Settings.FilterContent[0], "not yet determinated");
  EXPECT_EQ(scene.Settings.FilterContent[1], "not yet determinated");
  EXPECT_EQ(Field(12), "");
}

TEST_F(FinderChoice, OfOneStandsInBothChoicesOfTheViews) {
  FindThree([&] { look.List1.Turn(1, true); });
  EXPECT_EQ(Field(12), "MU0B");
  EXPECT_EQ(Field(14), "");
  EXPECT_EQ(scene.Settings.FilterContent[0], "MU0B");
  EXPECT_EQ(scene.Settings.FilterContent[1], "not yet determinated");
  EXPECT_EQ(scene.Present.StreamCount, 1);
  for (std::size_t i = 0; i < 6; ++i) EXPECT_EQ(Choice(i), "MU0B") << i;
  EXPECT_EQ(Choice(6), "MU0B");
  EXPECT_EQ(Choice(7), "not yet determinated");
}

TEST_F(FinderChoice, OfTwoFillsBothFiltersInTheOrderOfTheList) {
  FindThree([&] {
    look.List1.Turn(2, true);
    look.List1.Turn(0, true);
  });
  EXPECT_EQ(Field(12), "MU0A");
  EXPECT_EQ(Field(14), "MU0C");
  EXPECT_EQ(scene.Settings.FilterContent[0], "MU0A");
  EXPECT_EQ(scene.Settings.FilterContent[1], "MU0C");
  EXPECT_EQ(scene.Present.StreamCount, 2);
  for (std::size_t i = 0; i < 8; ++i) EXPECT_EQ(Choice(i), i % 2 == 0 ? "MU0A" : "MU0C") << i;
}

TEST_F(FinderChoice, OfAThirdIsTakenBackWithABox) {
  FindThree([&] {
    bool stillChecked = false;
    scene.Dialogs.WhileOpen = [&] { stillChecked = look.List1.CheckedCount() == 3; };
    look.List1.Turn(0, true);
    look.List1.Turn(1, true);
    EXPECT_TRUE(scene.Dialogs.Shown.empty());
    look.List1.Turn(2, true);
    EXPECT_TRUE(stillChecked);
    EXPECT_EQ(look.List1.Items.Get(),
              std::vector<CheckItem>({{"MU0A", true}, {"MU0B", true}, {"MU0C", false}}));
  });
  EXPECT_EQ(
      scene.LastBox(),
      (platform::Message{"Attention",
                         "Please take care, only the first 2 items can be checked for recording!",
                         platform::Icon::Information}));
  EXPECT_EQ(scene.Dialogs.Shown.size(), 1U);
}

TEST_F(FinderChoice, OfAnotherIsAllowedWhereOneWasTakenBack) {
  FindThree([&] {
    look.List1.Turn(0, true);
    look.List1.Turn(1, true);
    look.List1.Turn(0, false);
    look.List1.Turn(2, true);
  });
  EXPECT_TRUE(scene.Dialogs.Shown.empty());
  EXPECT_EQ(Field(12), "MU0B");
  EXPECT_EQ(Field(14), "MU0C");
}

TEST_F(FinderChoice, IsNoMatterOfMovingInTheList) {
  FindThree([&] {
    look.List1.Turn(0, true);
    look.List1.Turn(1, true);
    look.List1.MoveTo(2);
    EXPECT_EQ(look.List1.CheckedCount(), 2);
  });
  EXPECT_TRUE(scene.Dialogs.Shown.empty());
}

TEST_F(FinderChoice, MarksTheSetupAsDoneWhateverItWas) {
  scene.Settings.SetupDone = false;
  Find([] {});
  EXPECT_TRUE(scene.Settings.SetupDone);
  EXPECT_EQ(scene.Store.Texts["SetupDone"], "True");
  EXPECT_EQ(scene.Journal.back(), "pump");
}

}  // namespace
