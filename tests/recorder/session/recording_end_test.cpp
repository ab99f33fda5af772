// Each end of a recording, which is told once and gives the computer's sleep back.

#include <optional>

#include "recorder/recorder_bench.h"

namespace recorder_tests {
namespace {

using subroutines::EndReason;
using testing::ElementsAre;
using testing::IsEmpty;
using std::chrono_literals::operator""s;

class RecordingEnd : public testing::Test, private subroutines::EndListener {
 protected:
  RecordingEnd() {
    bench.Session.Listener = static_cast<subroutines::EndListener&>(*this);
    bench.Tabs.AtTabChange = [this] { ChangeTab(); };
  }

  void Run(const std::string& format = "TXT") {
    bench.Run(format);
    bench.Receive(support::PlainFrame(1));
    EXPECT_TRUE(bench.Session.Running());
    EXPECT_TRUE(bench.Sleep.Inhibited);
    EXPECT_THAT(bench.Sleep.Whys, ElementsAre("A recording is running."));
    EXPECT_THAT(ends, IsEmpty());
  }
  /// What a change of the tab does to the acquisition and to the view.
  void ChangeTab() { Leave(packetroutines::Leaving::Tab); }
  void Leave(packetroutines::Leaving what) {
    bench.Acquisition.StopCapture();
    bench.Core.Run.LeavePage();
    bench.Core.Run.ClearModes();
    bench.Recorder.Interrupt(what);
  }
  void ExpectEnd(EndReason reason) {
    EXPECT_THAT(ends, ElementsAre(reason));
    EXPECT_FALSE(bench.Session.Running());
    EXPECT_FALSE(bench.Sleep.Inhibited);
  }

  RecorderBench bench;
  std::vector<EndReason> ends;

 private:
  void RecordingEnded(EndReason reason) override { ends.push_back(reason); }
};

TEST_F(RecordingEnd, ByStop) {
  Run();
  bench.Stop();
  ExpectEnd(EndReason::Stop);
}

TEST_F(RecordingEnd, ByStopComesBehindWhatHadArrived) {
  Run();
  for (int i = 0; i < 4000; ++i) bench.Capture.Arrive(support::PlainFrame(i));
  std::optional<std::size_t> ringsAtEnd;
  bench.Main.QuietLine[forms::quiet_line::Recorder].Caption.Observe(
      [&] { ringsAtEnd = bench.Names().size(); });
  bench.Stop();
  ExpectEnd(EndReason::Stop);
  EXPECT_EQ(ringsAtEnd, 1U);
}

TEST_F(RecordingEnd, ByAnotherTab) {
  Run();
  bench.Main.TabStrip1.SelectedTab.Store(forms::tab::Values);
  ChangeTab();
  ExpectEnd(EndReason::OtherTab);
}

TEST_F(RecordingEnd, ByItsOwnTab) {
  Run();
  bench.Main.TabStrip1.SelectedTab.Store(forms::tab::Recorder);
  ChangeTab();
  ExpectEnd(EndReason::TabAnew);
}

TEST_F(RecordingEnd, ByTheExit) {
  Run();
  Leave(packetroutines::Leaving::Program);
  bench.Recorder.CloseFiles();
  ExpectEnd(EndReason::Exit);
}

TEST_F(RecordingEnd, ByTheEndOfTheSession) {
  Run();
  bench.Core.End();
  bench.Recorder.EndSession();
  bench.Recorder.CloseFiles();
  ExpectEnd(EndReason::SessionsEnd);
}

TEST_F(RecordingEnd, ByTheEndOfTheSessionInThePumpOfAStop) {
  Run();
  bench.Events.AtPump(1, [&] {
    bench.Recorder.EndSession();
    bench.Recorder.CloseFiles();
    // The rest of the stop is for nobody, since the process is gone.
    EXPECT_THAT(ends, ElementsAre(EndReason::SessionsEnd));
  });
  bench.Stop();
  ExpectEnd(EndReason::SessionsEnd);
}

TEST_F(RecordingEnd, ByAFailureThatEndsTheProgram) {
  Run();
  bench.Recorder.CloseFiles();
  ExpectEnd(EndReason::ProgramEnd);
}

TEST_F(RecordingEnd, ByAFullDisk) {
  bench.Disk.FailingWrite = 1;
  Run();
  bench.Frames(4000);
  ExpectEnd(EndReason::DiskFull);
}

TEST_F(RecordingEnd, ByARowLimitOfEitherStream) {
  Run("EXCEL");
  bench.Frames(4000 * 9);
  ExpectEnd(EndReason::RowLimit);
}

TEST_F(RecordingEnd, WithoutData) {
  bench.Settings.FileFormat = "TXT";
  bench.Main.CWButton3.Value = true;
  ASSERT_TRUE(bench.Sleep.Inhibited);
  bool inhibitedAtTheDialog = true;
  bench.Dialogs.WhileOpen = [&] { inhibitedAtTheDialog = bench.Sleep.Inhibited; };
  bench.Elapse(2s);
  ExpectEnd(EndReason::NoData);
  EXPECT_FALSE(inhibitedAtTheDialog);
}

TEST_F(RecordingEnd, OfOneWhoseFilterIsRefused) {
  bench.Capture.StartFailure = platform::Failure(platform::failure::FilterRefused);
  bench.Main.CWButton3.Value = true;
  ExpectEnd(EndReason::Refused);
}

TEST_F(RecordingEnd, OfAStopInWhosePumpTheTabIsLeft) {
  Run();
  bench.Main.TabStrip1.SelectedTab.Store(forms::tab::Values);
  bench.Events.AtPump(1, [&] { ChangeTab(); });
  bench.Stop();
  ExpectEnd(EndReason::Stop);
}

TEST_F(RecordingEnd, OfAChangeOfTheTabWhoseButtonIsSwitchedOffLater) {
  Run();
  bench.Main.TabStrip1.SelectedTab.Store(forms::tab::Values);
  ChangeTab();
  bench.Main.CWButton3.Value = false;
  ExpectEnd(EndReason::OtherTab);
}

TEST_F(RecordingEnd, IsNoneOfAStartThatIsDropped) {
  bench.Events.AtPump(1, [&] { bench.Main.CWButton3.Value = false; });
  bench.Main.CWButton3.Value = true;
  EXPECT_THAT(ends, IsEmpty());
  EXPECT_THAT(bench.Sleep.Whys, IsEmpty());
  bench.Recorder.CloseFiles();
  EXPECT_THAT(ends, IsEmpty());
}

TEST_F(RecordingEnd, IsOneForEachRecording) {
  Run();
  bench.Stop();
  bench.Run("TXT");
  EXPECT_TRUE(bench.Sleep.Inhibited);
  bench.Stop();
  EXPECT_THAT(ends, ElementsAre(EndReason::Stop, EndReason::Stop));
  EXPECT_FALSE(bench.Sleep.Inhibited);
}

TEST(WordsOfAnEnd, AreOnesOwnForEachReason) {
  std::vector<std::string_view> words;
  for (int i = 0; i <= static_cast<int>(EndReason::ProgramEnd); ++i) {
    words.push_back(Words(static_cast<EndReason>(i)));
  }
  std::sort(words.begin(), words.end());
  EXPECT_EQ(std::adjacent_find(words.begin(), words.end()), words.end());
}

}  // namespace
}  // namespace recorder_tests
