#include "shell/tab_scene.h"
#include "support/capture_bench.h"

namespace {

using support::PlainFrame;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using std::chrono_literals::operator""s;
namespace line = forms::record_line;

/// The whole program on its Recorder view.
class Recorder : public shell_tests::TabScene {
 protected:
  Recorder() {
    scene.Select(forms::tab::Recorder);
    scene.Journal.clear();
  }
  void Run() {
    main.CWButton3.Value = true;
    scene.Receive(PlainFrame(0));
  }
  void Frames(int count, const std::string& id = "MU01") {
    scene.Receive(count, [&](int i) { return PlainFrame(i % 4000, id, 1000 + i); });
  }
  void Stop() { main.CWButton3.Value = false; }
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& [path, content] : scene.Files.Stored) {
      if (!support::IsEventsFile(path)) names.push_back(path);
    }
    return names;
  }
  /// The first file of samples, whatever tells of it beside it.
  const std::string& First() const {
    const auto first =
        std::find_if(scene.Files.Stored.begin(), scene.Files.Stored.end(), [](const auto& file) {
          return file.first.find("Errorlog") == std::string::npos &&
                 !support::IsEventsFile(file.first);
        });
    return first->second;
  }

  const std::string started = "SV record 09.03.2024 14-05-07";
  const std::string folder = "c:\\StoredData\\";
};

TEST_F(Recorder, StoresTheValuesOfTheFramesInTheChosenUnits) {
  Run();
  Frames(4000);
  EXPECT_THAT(Files(), ElementsAre(folder + started + ".txt"));
  EXPECT_TRUE(
      First().starts_with("0;0;1;1;1;1;0.01;0.01;0.01;0.01\r\n"
                          "1;1;1.001;1.001;1.001;1.001;0.01001;0.01001;0.01001;0.01001\r\n"))
      << First().substr(0, 100);
  EXPECT_TRUE(
      First().ends_with("3999;3999;4.999;4.999;4.999;4.999;"
                        "0.04999;0.04999;0.04999;0.04999\r\n"));
}

TEST_F(Recorder, WritesItsLogAlsoBehindAFrameOfALongerStream) {
  Run();
  Frames(4000);
  scene.Receive(support::SvFrame("A LONGER NAME OF ANOTHER UNIT").Bytes());
  Stop();
  EXPECT_THAT(Files(),
              ElementsAre(folder + "Errorlog " + started + ".txt", folder + started + ".txt"));
}

TEST_F(Recorder, LeavesAnEmptyFileWithoutItsPrefixBehindTwoStreams) {
  main.Text1[forms::setup_field::Content2].Text = "MU02";
  Run();
  Frames(4000);
  Stop();
  EXPECT_THAT(Files(), ElementsAre(folder + "1_" + started + ".txt", folder + started + ".txt"));
  EXPECT_EQ(scene.Files.Stored.at(folder + started + ".txt"), "");
  EXPECT_TRUE(main.Command9.Visible);
  EXPECT_FALSE(main.CWGraph2.Visible);
}

TEST_F(Recorder, StoresTheUnitsOfTheMoment) {
  main.Combo4[0].ListIndex = 1;
  Run();
  Frames(4000);
  EXPECT_TRUE(First().starts_with("0;0;1000;1000;1000;1000;0.01;"));
}

TEST_F(Recorder, StoresTwoStreamsInTheirFiles) {
  main.Text1[forms::setup_field::Content2].Text = "MU02";
  ASSERT_EQ(scene.Present.StreamCount, 2);
  Run();
  for (int i = 0; i < 4000; ++i) {
    scene.Receive(PlainFrame(i, "MU01"));
    scene.Receive(PlainFrame(i, "MU02", 2000));
  }
  EXPECT_THAT(Files(),
              ElementsAre(folder + "1_" + started + ".txt", folder + "2_" + started + ".txt"));
  const std::string& second = scene.Files.Stored.at(folder + "2_" + started + ".txt");
  EXPECT_TRUE(second.starts_with("0;0;2;2;2;2;0.02;"));
  EXPECT_EQ(main.Label10[line::SecondPath].Caption, folder + "2_" + started + ".txt");
}

TEST_F(Recorder, RecordsInEachFormatWithADecimalComma) {
  scene.Numbers = platform::NumberText(platform::NumberLocale{',', '.'});
  const std::vector<std::string> firstLines = {
      "0;0;1;1;1;1;0.01;0.01;0.01;0.01\r\n1;1;1.001;", "",
      "0,0,1.000,1.000,1.000,1.000,0.010,0.010,0.010,0.010\r\n1,0.25,1.001,"};
  for (std::size_t format = 0; format < 3; ++format) {
    scene.Files.Stored.clear();
    main.Option2[format].Value = true;
    Run();
    Frames(4000);
    Stop();
    EXPECT_TRUE(scene.Files.Stored.rbegin()->second.starts_with(firstLines[format])) << format;
    EXPECT_EQ(main.Label10[line::Progress].Caption, "0,9s / 3600 samples");
  }
}

TEST_F(Recorder, OnADiskThatIsFullAtOnceHasNoButtonUntilItsTabIsEnteredAgain) {
  scene.Disk.FailingWrite = 1;
  Run();
  Frames(4000);
  ASSERT_THAT(scene.Dialogs.Shown, SizeIs(1));
  EXPECT_FALSE(main.CWButton3.Visible);
  EXPECT_FALSE(main.CWButton3.Value);
  scene.Select(forms::tab::Recorder);
  EXPECT_TRUE(main.CWButton3.Visible);
}

TEST_F(Recorder, IsEndedByAChangeOfTheTabWithoutALog) {
  Run();
  Frames(8000);
  scene.Select(forms::tab::Values);
  EXPECT_FALSE(scene.State.LookingForRecording);
  EXPECT_FALSE(main.Command9.Visible);
  scene.Select(forms::tab::Recorder);
  EXPECT_FALSE(main.CWButton3.Value);
  scene.Files.Stored.clear();
  Run();
  Frames(4000);
  EXPECT_TRUE(First().starts_with("8000;")) << "the counter goes on from the old value";
}

TEST_F(Recorder, WaitsWithoutAButtonForAStreamThatFellSilent) {
  Run();
  Frames(3000);
  scene.Elapse(60s);
  EXPECT_FALSE(main.CWButton3.Visible);
  EXPECT_TRUE(scene.State.LookingForRecording);
  EXPECT_THAT(scene.Dialogs.TimedShown, IsEmpty());
  scene.Select(forms::tab::Values);
  scene.Select(forms::tab::Recorder);
  EXPECT_TRUE(main.CWButton3.Visible);
  for (const auto& format : main.Option2) EXPECT_TRUE(format.Enabled);
}

TEST_F(Recorder, IsEndedByTheWatchdogWhereNoFrameComes) {
  main.CWButton3.Value = true;
  scene.Elapse(2s);
  ASSERT_THAT(scene.Dialogs.TimedShown, SizeIs(1));
  EXPECT_FALSE(main.CWButton3.Value);
  EXPECT_TRUE(main.CWButton3.Visible);
  for (const auto& format : main.Option2) EXPECT_TRUE(format.Enabled);
}

TEST_F(Recorder, TellsThatItsFolderIsGone) {
  Run();
  scene.Files.Folders.clear();
  Frames(8000);
  EXPECT_EQ(main.NotStored.Caption,
            "stream 1: not stored since 09.03.2024 14:05:07: Path not found.");
  EXPECT_EQ(main.Label10[line::Progress].Caption, "1.8s / 7200 samples") << "the counters run on";
  EXPECT_THAT(scene.Dialogs.Shown, IsEmpty());
}

TEST_F(Recorder, StoresWhatHadArrivedBeforeTheStop) {
  Run();
  Frames(4000);
  for (int i = 0; i < 4000; ++i) scene.Capture.Arrive(PlainFrame(i));
  Stop();
  EXPECT_EQ(First().substr(First().rfind('\n', First().size() - 2) + 1),
            "7999;3999;1;1;1;1;0.01;0.01;0.01;0.01\r\n");
}

TEST_F(Recorder, EndsTheSheetAndTheRecordingWithinTheEventOfAFrame) {
  main.Option2[1].Value = true;
  Run();
  Frames(9 * 4000 - 1);
  EXPECT_TRUE(main.CWButton3.Value);
  Frames(1);
  EXPECT_FALSE(main.CWButton3.Value);
  EXPECT_FALSE(scene.State.CaptureRunning);
  EXPECT_FALSE(scene.State.LookingForRecording);
  // The last cell of a row, and the end.
  const std::string& sheet = First();
  EXPECT_EQ(sheet.substr(sheet.size() - 4), std::string("\x0A\0\0\0", 4));
  EXPECT_EQ(sheet.substr(sheet.size() - 23, 8), std::string("\x03\0\x0F\0\xFE\x7F\x08\0", 8));
}

/// A start with a stored trigger: what is selected, what is shown and what is stored behind it.
struct StoredTrigger {
  const char* Stored;
  bool Shown;
  std::int16_t Kept;
};

TEST(RecorderAtTheStart, ShowsTheTriggerFieldsByWhatIsStored) {
  for (const StoredTrigger& trigger :
       {StoredTrigger{"1", true, 0}, StoredTrigger{"0", true, 0}, StoredTrigger{"-1", false, -1},
        StoredTrigger{"5", false, 5}}) {
    support::Scene scene;
    scene.Store.Texts["SingleTrigger"] = trigger.Stored;
    scene.App.Load();
    EXPECT_EQ(scene.Main.Text3[2].Visible, trigger.Shown) << trigger.Stored;
    EXPECT_EQ(scene.Main.Shape9.Visible, trigger.Shown) << trigger.Stored;
    EXPECT_EQ(scene.Settings.SingleTrigger, trigger.Kept) << trigger.Stored;
    EXPECT_FALSE(scene.Main.Frame4.Visible);
  }
}

TEST(RecorderAtTheStart, WritesItsTriggerSettingsUnchanged) {
  support::Scene scene;
  scene.Store.Texts["CurrentTriggerWave"] = "12.5";
  scene.App.Load();
  EXPECT_EQ(scene.Main.Text3[2].Text, "12.5");
  scene.Main.Text3[2].Text = "99";
  scene.Main.Option2[1].Value = true;
  EXPECT_EQ(scene.Store.Texts["CurrentTriggerWave"], "12.5");
}

TEST(RecorderAtTheStart, ShowsTheStoredFormat) {
  support::Scene scene;
  scene.Store.Texts["FileFormat"] = "COMTRADE";
  scene.App.Load();
  EXPECT_TRUE(scene.Main.Option2[2].Value);
  EXPECT_EQ(scene.State.RecordFileName, "SV record dd.mm.yyyy hh-MM-ss.dat (after 'RUN')");
}

}  // namespace
