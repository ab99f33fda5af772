#include <gtest/gtest.h>

#include <string>

#include "report/finder_scene.h"

namespace {

using support::SvFrame;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;

class FinderLeftOut : public report_tests::FinderScene {
 protected:
  static constexpr const char* Line =
      "1 frame was longer than expected and left out: RUN on a view measures the length anew.";

  FinderLeftOut() {
    Search([&] { Sends("MU01"); });
  }
  std::string OnSetup() const { return main.QuietLine[forms::quiet_line::Setup].Caption; }
  void LeaveOneOut() {
    Search([&] {
      Sends("MU01");
      scene.Receive(SvFrame("A NAME LONGER THAN EVER").Bytes());
    });
  }
};

TEST_F(FinderLeftOut, StandsInTheWindowAlsoWhereAllFramesWereTooLong) {
  std::string meanwhile;
  scene.Dialogs.WhileOpen = [&] { meanwhile = Told(); };
  Search([&] {
    scene.Receive(SvFrame("A NAME LONGER THAN EVER").Bytes());
    scene.Elapse(2s);
    EXPECT_FALSE(look.Window.Loaded);
  });
  EXPECT_EQ(scene.Dialogs.TimedShown.size(), 1U);
  EXPECT_EQ(meanwhile, std::string("No frame was looked at yet. ") + Line);
  EXPECT_EQ(OnSetup(), Line) << "the window is gone, and the dialog says that nothing came";
}

TEST_F(FinderLeftOut, StandsOnSetupUntilTheLengthIsMeasuredAnew) {
  EXPECT_EQ(OnSetup(), "");
  LeaveOneOut();
  EXPECT_EQ(OnSetup(), Line);
  scene.Select(forms::tab::Values);
  scene.Select(forms::tab::Setup);
  EXPECT_EQ(OnSetup(), Line);
  scene.Select(forms::tab::Values);
  main.CWButton4.Value = true;
  EXPECT_EQ(OnSetup(), "");
}

TEST_F(FinderLeftOut, IsForgottenByTheNextSearch) {
  LeaveOneOut();
  std::string meanwhile = "?";
  Search([&] { meanwhile = OnSetup(); });
  EXPECT_EQ(meanwhile, "");
  EXPECT_EQ(OnSetup(), "");
}

class FinderDead : public report_tests::FinderScene {
 protected:
  static constexpr const char* Refused =
      "The packet filter condition was refused, so nothing is listened to: close this window and "
      "correct it.";
};

TEST_F(FinderDead, ByARefusedFilterSaysSo) {
  scene.Capture.StartFailure = platform::Failure(platform::failure::FilterRefused);
  Find([&] {
    scene.Elapse(100ms);
    EXPECT_EQ(scene.Dialogs.Shown.size(), 1U);
    EXPECT_EQ(Told(), std::string("No frame was looked at yet. ") + Refused);
    scene.Elapse(5s);
    EXPECT_TRUE(look.Window.Loaded);
    EXPECT_TRUE(scene.Dialogs.TimedShown.empty());
  });
  scene.Capture.StartFailure.reset();
  Search([&] {
    Sends("MU01");
    EXPECT_EQ(Told(), "1 frame was looked at.");
  });
}

TEST_F(FinderDead, ByAFilterThatARestartRefusesSaysSo) {
  Search([&] {
    scene.Receive(SvFrame("MU01").Bytes());
    scene.Capture.StartFailure = platform::Failure(platform::failure::FilterRefused);
    scene.Elapse(1s);
    EXPECT_EQ(Told(), std::string("1 frame was looked at. ") + Refused);
  });
}

TEST_F(FinderDead, OfAnotherViewsFilterSaysNothing) {
  Search([&] { Sends("MU01"); });
  scene.Select(forms::tab::Values);
  scene.Capture.StartFailure = platform::Failure(platform::failure::FilterRefused);
  main.CWButton4.Value = true;
  EXPECT_EQ(Told(), "1 frame was looked at.");
}

TEST_F(FinderDead, ByAChangeOfTheTabSaysSoAndBeginsNoMoreLooks) {
  Search([&] {
    Sends("MU01");
    look.List1.Turn(0, true);
    scene.Select(forms::tab::Info);
    EXPECT_TRUE(look.Window.Loaded);
    EXPECT_FALSE(scene.State.LookingForID);
    EXPECT_EQ(Told(),
              "1 frame was looked at. The search has ended with the change of the page: close this "
              "window to find streams anew.");
    scene.Elapse(5s);
    EXPECT_FALSE(scene.State.CaptureRunning);
    EXPECT_TRUE(scene.Dialogs.TimedShown.empty());
  });
  EXPECT_EQ(Field(12), "MU01") << "what was checked is taken all the same";
}

TEST_F(FinderDead, ByAChangeOfTheTabInTheRestartOfALookBeginsNone) {
  Search([&] {
    scene.Receive(SvFrame("MU01").Bytes());
    scene.Events.AtPump(1, [&] { scene.Select(forms::tab::Info); });
    scene.Elapse(500ms);
    EXPECT_FALSE(scene.State.CaptureRunning);
    EXPECT_FALSE(scene.State.LookingForID);
  });
}

}  // namespace
