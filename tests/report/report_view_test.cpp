#include "report/report_view.h"

#include <gmock/gmock.h>

#include "report/report_rows.h"
#include "support/scene.h"
#include "support/watch.h"

namespace {

using support::SvFrame;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;
namespace row = forms::report_row;

class ReportScene : public ::testing::Test {
 protected:
  ReportScene() {
    scene.Start();
    main.Shape3.Width = 10500;
    main.Label7[0].Left = 600;
    main.Label7[0].Top = 1230;
    main.Label7[0].Width = 3200;
    main.Label8[0].Left = 3900;
    main.Label8[0].Top = 1245;
    main.Label8[0].Width = 6900;
  }

  void Enter() { scene.Select(forms::tab::Report); }
  /// A run that is answered by two frames, of which the first tells the length.
  void Run(const support::FrameBytes& frame) {
    main.Command2.Value = true;
    scene.Receive(frame);
    scene.Receive(frame);
  }
  std::string Value(std::size_t i) const { return main.Label8[i].Caption; }
  std::string Line() const { return main.QuietLine[forms::quiet_line::Report].Caption; }

  support::Scene scene;
  forms::Main& main = scene.Main;
};

class ReportRows : public ReportScene {};

TEST_F(ReportRows, AreEmptyAtTheStartButForTheFirstValue) {
  for (std::size_t i = 0; i < row::Count; ++i) {
    EXPECT_EQ(main.Label7[i].Caption.Get(), "");
    EXPECT_EQ(Value(i), i == 0 ? "- - - -" : "");
  }
}

TEST_F(ReportRows, HaveTheTitlesOfTheTemplate) {
  Enter();
  for (std::size_t i = 0; i < row::Count; ++i) {
    const report_tests::Row& expected = report_tests::Rows[i];
    const platform::Label& title = main.Label7[i];
    EXPECT_EQ(title.Caption.Get(), expected.Title) << i;
    EXPECT_EQ(title.FontName.Get(), expected.Font) << i;
    EXPECT_EQ(title.FontSize.Get(), 10.0F) << i;
    EXPECT_EQ(title.FontBold.Get(), expected.Bold) << i;
    EXPECT_EQ(title.FontUnderline.Get(), expected.Underline) << i;
    EXPECT_EQ(Value(i), expected.Value) << i;
    EXPECT_TRUE(title.Visible) << i;
    EXPECT_TRUE(main.Label8[i].Visible) << i;
  }
}

TEST_F(ReportRows, GiveTheValuesTheirFontAndLeaveThemPlain) {
  main.Label8[0].FontSize = 11;
  Enter();
  for (std::size_t i = 0; i < row::Count; ++i) {
    EXPECT_EQ(main.Label8[i].FontName.Get(), report_tests::Rows[i].Font) << i;
    EXPECT_FALSE(main.Label8[i].FontBold.Get()) << i;
    EXPECT_FALSE(main.Label8[i].FontUnderline.Get()) << i;
  }
  EXPECT_EQ(main.Label8[0].FontSize.Get(), 11.0F);
}

TEST_F(ReportRows, StandUnderTheFirstAtAPitchOf300Twips) {
  Enter();
  for (std::size_t i = 0; i < row::Count; ++i) {
    const auto below = static_cast<std::int32_t>(i) * 300;
    EXPECT_EQ(main.Label7[i].Left.Get(), 600);
    EXPECT_EQ(main.Label7[i].Top.Get(), 1230 + below);
    EXPECT_EQ(main.Label7[i].Width.Get(), 3200);
    EXPECT_EQ(main.Label8[i].Left.Get(), 3900);
    EXPECT_EQ(main.Label8[i].Top.Get(), 1245 + below);
    EXPECT_EQ(main.Label8[i].Width.Get(), 6900);
  }
}

TEST_F(ReportRows, AreHiddenWhileTheyAreLaidAndLetEventsInBehindEach) {
  const int before = scene.Events.Count();
  // The tab's own pumps come first: two, and two in the stop of capture.
  bool shown = true;
  scene.Events.AtPump(4 + 12, [&] { shown = main.Label7[0].Visible || main.Label8[22].Visible; });
  Enter();
  EXPECT_FALSE(shown);
  EXPECT_EQ(scene.Events.Count() - before, 4 + 23);
}

TEST_F(ReportRows, AreNotTouchedByAnotherEntry) {
  Enter();
  Run(SvFrame("MU01").Count(12).Bytes());
  std::vector<std::string> before;
  for (std::size_t i = 0; i < row::Count; ++i) before.push_back(Value(i));
  scene.Select(forms::tab::Info);
  Enter();
  for (std::size_t i = 0; i < row::Count; ++i) EXPECT_EQ(Value(i), before[i]);
  EXPECT_EQ(Value(row::SampleCount), "12");
}

class ReportRun : public ReportScene {
 protected:
  ReportRun() {
    Enter();
    scene.Journal.clear();
  }
};

TEST_F(ReportRun, HidesTheButtonSetsTheAdapterUpAndStartsCapture) {
  support::Watch(scene.Journal, main.Command2.Visible, "Command2.Visible");
  scene.State.PacketLengthPending = false;
  main.Command2.Value = true;
  EXPECT_TRUE(scene.State.PacketLengthPending);
  EXPECT_TRUE(scene.State.ReportRequested);
  EXPECT_EQ(main.Timer1.Interval.Get(), 4000);
  EXPECT_EQ(scene.Journal,
            support::Journal({"Command2.Visible false", "adapter Bus", "set BuffSize 262144",
                              "set BuffMinToCopy 0", "set HWFilter 32", "set mode 1",
                              "set BPFilter 'ether proto 0x88ba'", "stop", "pump", "clear", "pump",
                              "start"}));
}

TEST_F(ReportRun, ShowsTheSecondFrame) {
  EXPECT_FALSE(main.Command4.Enabled);
  main.Command2.Value = true;
  scene.Receive(SvFrame("MU01").Count(1).Bytes());
  EXPECT_FALSE(main.Command2.Visible);
  scene.Receive(SvFrame("MU01").Count(2).Bytes());
  EXPECT_EQ(Value(row::SampleCount), "2");
  EXPECT_EQ(Value(row::Complete), "- - - -");
  EXPECT_FALSE(main.Command2.Value);
  EXPECT_TRUE(main.Command2.Visible);
  EXPECT_TRUE(main.Command4.Enabled);
  EXPECT_FALSE(scene.State.CaptureRunning);
  EXPECT_EQ(Line(), "");
}

TEST_F(ReportRun, WithOneStreamTakesAnyStation) {
  EXPECT_FALSE(main.Option3[7].Visible);
  Run(SvFrame("MU99").Bytes());
  EXPECT_EQ(Value(row::StationId), "MU99");
}

TEST_F(ReportRun, SaysThatTheFrameWasTheOtherStations) {
  main.Text1[forms::setup_field::Content2].Text = "MU02";
  Run(SvFrame("MU02").Bytes());
  EXPECT_EQ(Line(),
            "The frame that came was sent by \"MU02\" and not by \"MU01\". RUN asks again.");
  EXPECT_FALSE(main.Label8[0].Visible);
  EXPECT_TRUE(main.Command2.Visible);
  Run(SvFrame("MU01").Bytes());
  EXPECT_EQ(Line(), "");
  EXPECT_TRUE(main.Label8[0].Visible);
}

TEST_F(ReportRun, SaysThatAFrameOnlyHoldsTheFilterAndNotAsItsId) {
  main.Text1[forms::setup_field::Content1].Text = "MU0";
  main.Text1[forms::setup_field::Content2].Text = "MU02";
  Run(SvFrame("MU01").Bytes());
  EXPECT_EQ(Line(),
            "The frame that came was sent by \"MU01\", which is more than \"MU0\". Of two streams "
            "a report needs the whole ID: see 'Packet content filter' under 'Setup'.");
}

TEST_F(ReportRun, SaysThatAFrameHoldsTheFilterAndItsIdIsReadElsewhere) {
  main.Text1[forms::setup_field::Content2].Text = "MU02";
  support::FrameBytes frame = SvFrame("MU01").Tagged().Bytes();
  // Priority 4 and VLAN 1 look like the field in front of the ID.
  frame[15] = 0x01;
  Run(frame);
  EXPECT_EQ(Line(),
            "The frame that came holds \"MU01\", but the ID that is read from it is \"\x01\". Of "
            "two streams a report needs the ID.");
}

TEST_F(ReportRun, WithoutDataLeavesTheButtonHiddenAndSaysSo) {
  main.Command2.Value = true;
  scene.Elapse(4s);
  ASSERT_EQ(scene.Dialogs.TimedShown.size(), 1U);
  EXPECT_EQ(scene.Dialogs.TimedShown[0].Text.substr(0, 71),
            "Building a report for required data isn't possible! No data received!\r\n");
  EXPECT_TRUE(main.Command2.Enabled);
  EXPECT_FALSE(main.Command2.Visible);
  EXPECT_EQ(Line(), "There is no report. RUN comes back when this page is entered anew.");
}

TEST_F(ReportRun, SaysNothingWhileTheDialogStands) {
  std::string meanwhile = "?";
  scene.Dialogs.WhileOpen = [&] { meanwhile = Line(); };
  main.Command2.Value = true;
  scene.Elapse(4s);
  EXPECT_EQ(meanwhile, "");
}

TEST_F(ReportRun, ComesBackWithRunWhenThePageIsEnteredAnew) {
  main.Command2.Value = true;
  scene.Elapse(4s);
  scene.Select(forms::tab::Info);
  Enter();
  EXPECT_TRUE(main.Command2.Visible);
  EXPECT_FALSE(main.Command2.Value);
  EXPECT_EQ(Line(), "");
  Run(SvFrame("MU01").Count(5).Bytes());
  EXPECT_EQ(Value(row::SampleCount), "5");
}

TEST_F(ReportRun, ThatTheFilterRefusesSaysSoToo) {
  scene.Capture.StartFailure = platform::Failure(platform::failure::FilterRefused);
  main.Command2.Value = true;
  EXPECT_EQ(scene.Dialogs.Shown.size(), 1U);
  EXPECT_EQ(Line(), "There is no report. RUN comes back when this page is entered anew.");
}

TEST_F(ReportRun, SaysNothingWhereAnotherViewsFilterIsRefused) {
  scene.Select(forms::tab::Values);
  scene.Capture.StartFailure = platform::Failure(platform::failure::FilterRefused);
  main.CWButton4.Value = true;
  EXPECT_EQ(Line(), "");
}

TEST_F(ReportRun, LeftByATabSaysNothing) {
  main.Command2.Value = true;
  scene.Select(forms::tab::Info);
  scene.Elapse(5s);
  EXPECT_TRUE(scene.Dialogs.TimedShown.empty());
  EXPECT_EQ(Line(), "");
}

TEST_F(ReportRun, TheWatchdogAfterAReportFindsNothingToDo) {
  Run(SvFrame("MU01").Bytes());
  EXPECT_TRUE(main.Timer1.Enabled);
  scene.Elapse(4s);
  EXPECT_TRUE(scene.Dialogs.TimedShown.empty());
  EXPECT_FALSE(main.Timer1.Enabled);
  EXPECT_EQ(Line(), "");
}

TEST_F(ReportRun, LaterWithoutDataLeavesTheOlderRowsPrintable) {
  Run(SvFrame("MU01").Bytes());
  main.Command2.Value = true;
  scene.Elapse(4s);
  EXPECT_TRUE(main.Command4.Enabled);
}

/// Two stations, of which the first is chosen, and a frame of the other one that a run met.
class RefusedFrame : public ReportRun {
 protected:
  RefusedFrame() {
    main.Text1[forms::setup_field::Content2].Text = "MU02";
    Run(SvFrame("MU02").Bytes());
  }
  static constexpr const char* Reason =
      "The frame that came was sent by \"MU02\" and not by \"MU01\". RUN asks again.";
};

TEST_F(RefusedFrame, IsExplainedAsLongAsItsRowsAreHidden) {
  EXPECT_EQ(Line(), Reason);
  scene.Select(forms::tab::Info);
  Enter();
  EXPECT_EQ(Line(), Reason) << "behind another entry";
  main.Window.TakeSize(1200 * 15, 900 * 15);
  EXPECT_EQ(Line(), Reason) << "behind a new size of the window";
  main.Command2.Value = true;
  EXPECT_EQ(Line(), Reason) << "while the next run waits";
  scene.Receive(SvFrame("MU01").Bytes());
  scene.Receive(SvFrame("MU01").Bytes());
  ASSERT_TRUE(main.Label8[0].Visible);
  EXPECT_EQ(Line(), "");
}

TEST_F(RefusedFrame, IsExplainedBesideARunThatGotNoFrame) {
  main.Command2.Value = true;
  scene.Elapse(4s);
  EXPECT_EQ(Line(), "There is no report. RUN comes back when this page is entered anew. " +
                        std::string(Reason));
}

TEST_F(RefusedFrame, IsExplainedBesideAPrintThatFailed) {
  scene.Surface.FailAt = "end";
  main.Command4.Click();
  EXPECT_EQ(Line(), "The report could not be printed: out of paper. " + std::string(Reason));
  scene.Surface.FailAt.clear();
  main.Command4.Click();
  EXPECT_EQ(Line(), Reason);
}

TEST_F(RefusedFrame, OfTheStreamFinderIsExplainedToo) {
  Run(SvFrame("MU01").Bytes());
  ASSERT_EQ(Line(), "");
  scene.App.Windows.IDlook.Window.ShowModal = [this] {
    scene.Elapse(100ms);
    scene.Receive(SvFrame("MU07").Bytes());
    scene.App.Windows.IDlook.Window.Unload();
  };
  main.Command7.Click();
  Enter();
  ASSERT_FALSE(main.Label8[0].Visible);
  // The search has emptied the filters, and nothing was ticked.
  const std::string hidden =
      "'Find streams' met \"MU07\" last, and the rows of its head are hidden. ";
  EXPECT_EQ(Line(), hidden +
                        "The station chosen here has no content filter: see 'Packet content "
                        "filter' under 'Setup'.");
  main.Text1[forms::setup_field::Content1].Text = "MU07";
  main.Text1[forms::setup_field::Content2].Text = "MU02";
  Enter();
  EXPECT_EQ(Line(), hidden + "RUN asks for \"MU07\".");
}

TEST_F(RefusedFrame, OfARunThatWasLeftIsNotTheOneThatTheStreamFinderMeets) {
  main.Command2.Value = true;
  scene.Select(forms::tab::Setup);
  scene.App.Windows.IDlook.Window.ShowModal = [this] {
    scene.Elapse(100ms);
    if (scene.State.PacketLengthPending) scene.Receive(SvFrame("MU07").Bytes());
    scene.Receive(SvFrame("MU07").Bytes());
    scene.App.Windows.IDlook.Window.Unload();
  };
  main.Command7.Click();
  Enter();
  EXPECT_THAT(Line(), ::testing::StartsWith("'Find streams' met \"MU07\" last"));
}

TEST_F(RefusedFrame, ThatTheStreamFinderReplacedByOneOfTheStationIsForgotten) {
  scene.App.Windows.IDlook.Window.ShowModal = [this] {
    scene.Elapse(100ms);
    // A lone stream takes any station.
    scene.Present.StreamCount = 1;
    scene.Receive(SvFrame("MU07").Bytes());
    scene.App.Windows.IDlook.Window.Unload();
  };
  main.Command7.Click();
  Enter();
  ASSERT_TRUE(main.Label8[0].Visible);
  EXPECT_EQ(Line(), "");
}

}  // namespace
