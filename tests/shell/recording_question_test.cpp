#include "shell/tab_scene.h"

namespace {

using support::SineFrame;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""ms;
namespace tab = forms::tab;

/// A user who chooses something else while a recording runs.
class RecordingQuestion : public shell_tests::TabScene {
 protected:
  RecordingQuestion() {
    scene.Select(tab::Recorder);
    scene.Calendar.Present = {2024, 3, 9, 21, 4, 7};
  }

  void Run() {
    main.CWButton3.Value = true;
    // The first one tells the length of all.
    scene.Receive(2, Frame);
    Note();
  }
  static support::FrameBytes Frame(int i) { return SineFrame(i, 1, 1); }
  void Seconds(int count) {
    for (int i = 0; i < count * 4000; ++i) scene.Receive(Frame(i % 4000));
  }
  /// From here on something may have happened.
  void Note() {
    scene.Journal.clear();
    scene.Store.Written.clear();
  }
  void ExpectNothingHappened() {
    EXPECT_THAT(scene.Journal, IsEmpty());
    EXPECT_THAT(scene.Store.Written, IsEmpty());
    EXPECT_EQ(main.TabStrip1.SelectedTab, tab::Recorder);
    EXPECT_TRUE(scene.State.LookingForRecording);
    EXPECT_TRUE(scene.State.CaptureRunning);
    EXPECT_TRUE(main.CWButton3.Value);
  }
  void Choose(std::int16_t chosen) { main.TabStrip1.Choose(chosen); }
  bool Asked() const {
    EXPECT_EQ(question.Window.Loaded.Get(), question.Window.Visible.Get());
    return question.Window.Visible;
  }
  bool Recording() const { return scene.State.LookingForRecording && scene.Capture.Running; }
  std::string Line() const { return main.QuietLine[forms::quiet_line::Recorder].Caption; }
  std::string LastLog() const {
    for (const auto& [path, content] : scene.Files.Stored)
      if (path.find("Errorlog") != std::string::npos) return path;
    return {};
  }

  forms::EndQuestion& question = scene.App.Windows.EndQuestion;
};

TEST_F(RecordingQuestion, AsksSinceWhenItRunsAndLetsNothingHappen) {
  Run();
  Choose(tab::Values);
  ASSERT_TRUE(Asked());
  EXPECT_EQ(question.Question.Caption, "A recording is running since 21:04. End it?");
  ExpectNothingHappened();
}

TEST_F(RecordingQuestion, NamesTheDayOfARecordingThatBeganOnAnother) {
  Run();
  scene.Calendar.Present = {2024, 3, 10, 6, 30, 0};
  Choose(tab::Values);
  EXPECT_EQ(question.Question.Caption, "A recording is running since 09.03.2024 21:04. End it?");
}

TEST_F(RecordingQuestion, ComesAlsoForTheTabThatIsShown) {
  Run();
  Choose(tab::Recorder);
  EXPECT_TRUE(Asked());
  ExpectNothingHappened();
}

TEST_F(RecordingQuestion, ComesForTheWindowsCloseBoxAndForExit) {
  Run();
  main.Window.QueryUnload();
  EXPECT_TRUE(Asked());
  question.Keep.Click();
  scene.Elapse(1s);
  Choose(tab::Exit);
  EXPECT_TRUE(Asked());
  question.Keep.Click();
  EXPECT_TRUE(main.Window.Loaded);
  ExpectNothingHappened();
}

TEST_F(RecordingQuestion, DoesNotComeWhereNoRecordingRuns) {
  Choose(tab::Values);
  EXPECT_FALSE(Asked());
  EXPECT_EQ(main.TabStrip1.SelectedTab, tab::Values);
  main.CWButton4.Value = true;
  Choose(tab::Recorder);
  EXPECT_FALSE(Asked());
  Run();
  main.CWButton3.Value = false;
  Choose(tab::Setup);
  EXPECT_FALSE(Asked());
  EXPECT_EQ(main.TabStrip1.SelectedTab, tab::Setup);
}

TEST_F(RecordingQuestion, DoesNotComeForATabThatTheProgramSelects) {
  Run();
  scene.Select(tab::Values);
  EXPECT_FALSE(Asked());
  EXPECT_FALSE(Recording());
}

TEST_F(RecordingQuestion, ComesBeforeTheFirstFrame) {
  main.CWButton3.Value = true;
  Note();
  Choose(tab::Values);
  EXPECT_TRUE(Asked());
  ExpectNothingHappened();
}

TEST_F(RecordingQuestion, HoldsNothingUpWhileItStands) {
  Run();
  Seconds(1);
  Choose(tab::Values);
  Seconds(2);
  scene.Elapse(5s);
  ASSERT_TRUE(Asked());
  EXPECT_EQ(main.OnDisk[0].Caption.Get().substr(0, 24), "stream 1: 3 whole rings,");
  question.Keep.Click();
  Seconds(1);
  main.CWButton3.Value = false;
  EXPECT_NE(LastLog(), "") << "it ends as any other";
}

TEST_F(RecordingQuestion, KeepsTheRecordingByItsButton) {
  Run();
  Choose(tab::Values);
  question.Keep.Click();
  EXPECT_FALSE(Asked());
  ExpectNothingHappened();
}

TEST_F(RecordingQuestion, KeepsTheRecordingWithoutAnAnswer) {
  Run();
  Choose(tab::Values);
  EXPECT_THAT(question.Remaining.Caption.Get(), HasSubstr("; 30 seconds left."));
  scene.Elapse(29s);
  EXPECT_TRUE(Asked());
  EXPECT_THAT(question.Remaining.Caption.Get(), HasSubstr("; 1 second left."));
  scene.Elapse(1s);
  EXPECT_FALSE(Asked());
  EXPECT_TRUE(Recording());
  EXPECT_EQ(main.TabStrip1.SelectedTab, tab::Recorder);
  scene.Elapse(60s);
  EXPECT_TRUE(Recording());

  Choose(tab::Values);
  scene.Elapse(29s);
  EXPECT_TRUE(Asked()) << "it has all its seconds anew";
}

TEST_F(RecordingQuestion, MakesTheChoiceWithAllItsStepsOnceItIsConfirmed) {
  Run();
  Seconds(1);
  Note();
  Choose(tab::Values);
  question.End.Click();
  EXPECT_FALSE(Asked());
  const support::Journal confirmed = scene.Journal;
  EXPECT_EQ(main.TabStrip1.SelectedTab, tab::Values);
  EXPECT_EQ(scene.Store.Texts["MainActiveTab"], "2");
  EXPECT_FALSE(Recording());
  EXPECT_EQ(LastLog(), "");

  scene.Select(tab::Recorder);
  Run();
  Seconds(1);
  Note();
  scene.Select(tab::Values);
  EXPECT_EQ(scene.Journal, confirmed) << "as where nobody asks";
}

TEST_F(RecordingQuestion, GoesOnToTheExitOnceItIsConfirmed) {
  Run();
  Choose(tab::Exit);
  question.End.Click();
  EXPECT_FALSE(main.Window.Loaded);
  EXPECT_FALSE(scene.Capture.Running);
}

TEST_F(RecordingQuestion, ClosesTheWindowOnceItIsConfirmed) {
  Run();
  main.Window.QueryUnload();
  question.End.Click();
  EXPECT_FALSE(main.Window.Loaded);
}

TEST_F(RecordingQuestion, IsOneAndKeepsItsFirstChoice) {
  Run();
  int opened = 0;
  question.Window.Loaded.Observe([&] { opened += question.Window.Loaded ? 1 : 0; });
  Choose(tab::Values);
  scene.Elapse(10s);
  Choose(tab::Setup);
  main.Window.QueryUnload();
  EXPECT_EQ(opened, 1);
  EXPECT_THAT(question.Remaining.Caption.Get(), HasSubstr("; 20 seconds left."));
  question.End.Click();
  EXPECT_EQ(main.TabStrip1.SelectedTab, tab::Values);
  EXPECT_TRUE(main.Window.Loaded);
}

TEST_F(RecordingQuestion, ForgetsAChoiceThatWasNotMade) {
  Run();
  Choose(tab::Values);
  question.Keep.Click();
  question.End.Click();
  ExpectNothingHappened();
}

/// The recording ends by itself while the question stands.
class RecordingQuestionOvertaken : public RecordingQuestion {
 protected:
  void ExpectNoChoice(const char* reason) {
    EXPECT_FALSE(Asked());
    EXPECT_FALSE(Recording());
    EXPECT_EQ(main.TabStrip1.SelectedTab, tab::Recorder);
    EXPECT_EQ(Line(), std::string("The recording ended at 21:40: ") + reason + ".");
    scene.Elapse(60s);
    EXPECT_EQ(main.TabStrip1.SelectedTab, tab::Recorder);
  }
  void Later() { scene.Calendar.Present = {2024, 3, 9, 21, 40, 0}; }
};

TEST_F(RecordingQuestionOvertaken, ByAFullDisk) {
  scene.Disk.FailingWrite = 2;
  Run();
  Seconds(1);
  Choose(tab::Values);
  bool askedAtTheBox = true;
  scene.Dialogs.WhileOpen = [&] { askedAtTheBox = Asked(); };
  Later();
  Seconds(1);
  EXPECT_THAT(scene.LastBox().Text, HasSubstr("Disk full."));
  EXPECT_FALSE(askedAtTheBox);
  ExpectNoChoice("the disk is full");
}

TEST_F(RecordingQuestionOvertaken, ByAFullWorksheet) {
  main.Option2[forms::record_format::Worksheet].Value = true;
  Run();
  Seconds(8);
  Choose(tab::Values);
  Later();
  Seconds(1);
  ExpectNoChoice("the worksheet is full");
}

TEST_F(RecordingQuestionOvertaken, ByTheWatchdog) {
  main.CWButton3.Value = true;
  Choose(tab::Values);
  bool askedAtTheBox = true;
  scene.Dialogs.WhileOpen = [&] { askedAtTheBox = Asked(); };
  Later();
  scene.Elapse(2s);
  ASSERT_FALSE(scene.Dialogs.TimedShown.empty());
  EXPECT_FALSE(askedAtTheBox);
  ExpectNoChoice("no data came");
}

TEST_F(RecordingQuestionOvertaken, ByStop) {
  Run();
  Seconds(1);
  Choose(tab::Values);
  Later();
  main.CWButton3.Value = false;
  ExpectNoChoice("STOP was pressed");
}

TEST_F(RecordingQuestionOvertaken, ByAnEndInWhosePumpTheAnswerComes) {
  main.Option2[forms::record_format::Worksheet].Value = true;
  Run();
  Seconds(8);
  Choose(tab::Values);
  Later();
  bool answered = false;
  main.CWButton3.Value.Observe([&] {
    scene.Events.AtPump(1, [&] {
      EXPECT_TRUE(Asked());
      answered = true;
      question.End.Click();
    });
  });
  Seconds(1);
  EXPECT_TRUE(answered);
  ExpectNoChoice("the worksheet is full");
}

TEST_F(RecordingQuestionOvertaken, ByATabThatTheProgramSelects) {
  Run();
  Choose(tab::Setup);
  scene.Select(tab::Values);
  EXPECT_FALSE(Asked());
  scene.Elapse(60s);
  EXPECT_EQ(main.TabStrip1.SelectedTab, tab::Values);
}

TEST_F(RecordingQuestionOvertaken, ByTheEndOfTheSession) {
  Run();
  Seconds(1);
  Choose(tab::Values);
  EXPECT_THROW(scene.App.EndSession(), support::SceneEnded);
  EXPECT_FALSE(Asked());
  EXPECT_FALSE(scene.Capture.Running);
}

TEST_F(RecordingQuestionOvertaken, ByABoxInWhichItWaits) {
  Run();
  Choose(tab::Values);
  scene.Dialogs.WhileOpen = [&] { scene.Clock.Advance(60s); };
  scene.Dialogs.Show({"Attention", "A box over the question."});
  scene.Elapse(1s);
  EXPECT_TRUE(Asked()) << "its seconds stand still with the others";
}

/// What a user finds behind an end.
class EndOnThePage : public RecordingQuestion {
 protected:
  EndOnThePage() {
    Run();
    Seconds(1);
    scene.Calendar.Present = {2024, 3, 9, 21, 40, 0};
  }
};

TEST_F(EndOnThePage, TellsOfAnotherPageUntilTheNextRun) {
  Choose(tab::Values);
  question.End.Click();
  Choose(tab::Recorder);
  EXPECT_EQ(Line(), "The recording ended at 21:40: another page was chosen.");
  scene.Elapse(60s);
  Choose(tab::Setup);
  Choose(tab::Recorder);
  EXPECT_EQ(Line(), "The recording ended at 21:40: another page was chosen.");
  Run();
  EXPECT_EQ(Line(), "");
}

TEST_F(EndOnThePage, TellsOfItsOwnTab) {
  Choose(tab::Recorder);
  question.End.Click();
  EXPECT_EQ(Line(), "The recording ended at 21:40: this page was entered anew.");
}

TEST_F(EndOnThePage, TellsOfStop) {
  main.CWButton3.Value = false;
  EXPECT_EQ(Line(), "The recording ended at 21:40: STOP was pressed.");
}

TEST_F(EndOnThePage, NamesTheDayWhereItIsAnother) {
  scene.Calendar.Present = {2024, 3, 10, 2, 13, 0};
  main.CWButton3.Value = false;
  EXPECT_EQ(Line(), "The recording ended at 10.03.2024 02:13: STOP was pressed.");
}

TEST_F(EndOnThePage, KeepsItsFirstReason) {
  Choose(tab::Values);
  question.End.Click();
  scene.Calendar.Present = {2024, 3, 9, 22, 0, 0};
  // The filter of a view that is refused switches all run buttons off.
  scene.Capture.StartFailure = platform::Failure(platform::failure::FilterRefused);
  main.CWButton4.Value = true;
  EXPECT_EQ(Line(), "The recording ended at 21:40: another page was chosen.");
}

TEST(EndOfASession, FinishesTheConfigurationOfARecording) {
  support::Scene scene;
  scene.Start();
  scene.Select(tab::Recorder);
  scene.Main.Option2[forms::record_format::Comtrade].Value = true;
  scene.Main.CWButton3.Value = true;
  for (int i = 0; i < 4001; ++i) scene.Receive(SineFrame(i % 4000, 1, 1));
  EXPECT_THROW(scene.App.EndSession(), support::SceneEnded);
  const std::string& config =
      scene.Files.Stored.at("c:\\StoredData\\SV record 09.03.2024 14-05-07.cfg");
  EXPECT_EQ(std::count(config.begin(), config.end(), '\n'), 17) << config;
}

}  // namespace
