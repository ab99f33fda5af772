#include <gmock/gmock.h>

#include "recorder/reading/analysis_scene.h"

namespace support {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using LogScene = AnalysisScene;

const platform::Message TooManyErrors{
    "Attention",
    "To much errors in the captured sequence to build a log file.\r\n"
    "Solutions:\r\n"
    "- try a shorter period of time\r\n"
    "- check performance of this computer while data aquisition\r\n"
    "\r\n"
    "In any case the data itself is recorded.",
    platform::Icon::Exclamation};

platform::Message ExceedingLimits(const std::string& error) {
  return {"exceeding limits",
          "Internal program error.\r\n" + error +
              "\r\n"
              "This happens while reading counting written lines.\r\n"
              "\r\n"
              "All data are save, but a creating a protocol is not possible.\r\n",
          platform::Icon::Critical};
}

TEST(LogFailures, ARecordingWithoutALineHasNoLogAndNoMessage) {
  LogScene scene;
  scene.Recorded("");
  EXPECT_TRUE(scene.BuildRecordLog());
  EXPECT_FALSE(scene.HasLog());
  EXPECT_THAT(scene.Journal, IsEmpty());
}

TEST(LogFailures, ALineWithoutAnEndIsNoLine) {
  LogScene scene;
  scene.Recorded("0;0;1");
  EXPECT_TRUE(scene.BuildRecordLog());
  EXPECT_FALSE(scene.HasLog());
}

TEST(LogFailures, TwoStreamsLeaveAnEmptyFileWithoutAPrefix) {
  LogScene scene;
  scene.Present.StreamCount = 2;
  scene.Files.Stored[scene.PathOf("1_" + scene.RecordFileName)] = LinesOf(Ramp(4000));
  scene.Files.Stored[scene.PathOf("2_" + scene.RecordFileName)] = LinesOf(Ramp(4000));

  EXPECT_TRUE(scene.BuildRecordLog());

  EXPECT_EQ(scene.Files.Stored.size(), 3U);
  EXPECT_EQ(scene.Files.Stored.at(scene.Path()), "");
  EXPECT_THAT(scene.Journal, IsEmpty());
}

TEST(LogFailures, AnAnalysisRunsUnderTheHourglassWithAllFilesClosed) {
  LogScene scene;
  scene.Recorded(LinesOf(Ramp(3)));
  scene.Open.OpenAnew(7, scene.PathOf("sheet.xls"));
  scene.Disk.AtRead = [&](int read) {
    EXPECT_EQ(scene.Open.IsOpen(7), read == 1);
    EXPECT_EQ(scene.Pointer.Hourglass, read == 2);
  };
  scene.BuildRecordLog();
  EXPECT_EQ(scene.Disk.Reads, 2);
  EXPECT_THAT(scene.Journal, ElementsAre("hourglass", "normal pointer"));
}

TEST(LogFailures, ARampWithAnotherNumberOfSamplesASecondIsTooMuch) {
  LogScene scene;
  std::vector<std::int32_t> ramp;
  for (std::int32_t i = 0; i < 9600; ++i) ramp.push_back(i % 4800);
  scene.Recorded(LinesOf(ramp));
  const std::string data = scene.Files.Stored[scene.Path()];

  EXPECT_FALSE(scene.BuildRecordLog());

  EXPECT_THAT(scene.Dialogs.Shown, ElementsAre(TooManyErrors));
  EXPECT_FALSE(scene.HasLog());
  EXPECT_EQ(scene.Files.Stored[scene.Path()], data);
  EXPECT_THAT(scene.Journal, ElementsAre("hourglass", "box Attention", "normal pointer"));
}

TEST(LogFailures, TwoMillionLostSamplesAreTooMuch) {
  LogScene scene;
  std::vector<std::int32_t> ramp(501, 0);
  ramp.push_back(500);
  scene.Recorded(LinesOf(ramp));
  scene.BuildRecordLog();
  EXPECT_EQ(scene.LogLine(12), "Count of lost samples            : 1999999");

  scene.Files.DeleteFile(scene.LogPath());
  ramp.back() = 501;
  scene.Recorded(LinesOf(ramp));
  scene.BuildRecordLog();
  EXPECT_THAT(scene.Dialogs.Shown, ElementsAre(TooManyErrors));
  EXPECT_FALSE(scene.HasLog());
}

TEST(LogFailures, AFileThatCannotBeCountedIsToldWithTheSystemsText) {
  LogScene scene;
  scene.Files.Folders.clear();

  EXPECT_FALSE(scene.BuildRecordLog());

  EXPECT_THAT(scene.Dialogs.Shown, ElementsAre(ExceedingLimits("Path not found")));
  EXPECT_THAT(scene.Journal, ElementsAre("box exceeding limits", "normal pointer"));
  EXPECT_FALSE(scene.HasLog());
}

TEST(LogFailures, AFileThatCannotBeOpenedToCountIsTold) {
  LogScene scene;
  scene.Recorded(LinesOf(Ramp(1)));
  scene.Disk.AtRead = [](int) { throw platform::Failure(platform::failure::PermissionDenied); };
  EXPECT_FALSE(scene.BuildRecordLog());
  EXPECT_THAT(scene.Dialogs.Shown, ElementsAre(ExceedingLimits("Permission denied")));
}

TEST(LogFailures, ACountThatFailsFreesTheTextFilesNumberAlone) {
  LogScene scene;
  scene.Open.OpenAnew(packetroutines::TextFile, scene.PathOf("block.txt"));
  scene.Open.OpenAnew(7, scene.PathOf("sheet.xls"));
  scene.Files.Folders.clear();
  scene.BuildRecordLog();
  EXPECT_FALSE(scene.Open.IsOpen(packetroutines::TextFile));
  EXPECT_TRUE(scene.Open.IsOpen(7));
}

TEST(LogFailures, ALackOfMemoryWhileCountingIsTold) {
  LogScene scene;
  scene.Recorded(LinesOf(Ramp(1)));
  scene.Disk.AtRead = [](int) { throw std::bad_alloc(); };
  EXPECT_FALSE(scene.BuildRecordLog());
  EXPECT_THAT(scene.Dialogs.Shown, ElementsAre(ExceedingLimits("Out of memory")));
}

/// No log, no message, and the pointer is normal again.
void ExpectSilence(LogScene& scene) {
  EXPECT_FALSE(scene.BuildRecordLog());
  EXPECT_THAT(scene.Journal, ElementsAre("hourglass", "normal pointer"));
  EXPECT_FALSE(scene.HasLog());
}

TEST(LogFailures, AnErrorBehindTheCountIsSilent) {
  LogScene scene;
  scene.Recorded(LinesOf(Ramp(1)));
  scene.Disk.AtRead = [](int read) {
    if (read == 2) throw platform::Failure(platform::failure::DeviceIo);
  };
  ExpectSilence(scene);
}

TEST(LogFailures, ADateThatIsNoneIsSilent) {
  for (const char* name : {"SV record 31.02.2024 13-04-06.txt", "SV record.txt", "13-04-06.txt",
                           "no extension", "SV record 09.03.2024 13-04-06 (2).txt", ""}) {
    LogScene scene;
    scene.RecordFileName = name;
    scene.Recorded(LinesOf(Ramp(1)));
    ExpectSilence(scene);
    if (HasFailure()) FAIL() << name;
  }
}

TEST(LogFailures, AnOlderLogOutlivesADateThatIsNone) {
  LogScene scene;
  scene.RecordFileName = "SV record 31.02.2024 13-04-06.txt";
  scene.Recorded(LinesOf(Ramp(1)));
  scene.Files.Stored[scene.LogPath()] = "older";
  scene.BuildRecordLog();
  EXPECT_EQ(scene.Files.Stored[scene.LogPath()], "older");
}

TEST(LogFailures, AFrameTooShortForItsIdentityIsSilent) {
  LogScene scene;
  scene.LastFrame(FrameBytes(99));
  scene.Recorded(LinesOf(Ramp(1)));
  ExpectSilence(scene);
}

TEST(LogFailures, ALineWithoutItsRampIsSilent) {
  for (const char* line : {"\r\n", "1\r\n", "1;2\r\n", "1;99999999999;1\r\n", "1;1e999;\r\n"}) {
    LogScene scene;
    scene.Recorded(LinesOf({0}) + line);
    ExpectSilence(scene);
    if (HasFailure()) FAIL() << line;
  }
}

TEST(LogFailures, AFirstRampBeyond16BitsIsSilent) {
  LogScene scene;
  scene.Recorded(LinesOf({32768}));
  ExpectSilence(scene);
}

TEST(LogFailures, ALogThatCannotBeOpenedIsSilent) {
  LogScene scene;
  scene.Recorded(LinesOf(Ramp(1)));
  scene.Disk.FailingOpen = 1;
  ExpectSilence(scene);
}

TEST(LogFailures, AFullDiskLeavesTheLinesBeforeIt) {
  LogScene scene;
  scene.Recorded(LinesOf(Ramp(1)));
  scene.Disk.FailingWrite = 3;

  EXPECT_FALSE(scene.BuildRecordLog());

  EXPECT_EQ(scene.LogLine(2), "Measurement started              : 09.03.2024 13:04:06");
  EXPECT_EQ(scene.Disk.Writes, 3);
  EXPECT_THAT(scene.Dialogs.Shown, IsEmpty());
  EXPECT_FALSE(scene.Pointer.Hourglass);
}

TEST(LogFailures, AFrequencyOfZeroEndsTheLogBeforeItsDivision) {
  LogScene scene;
  scene.Settings.BaseFrequency = 0;
  scene.Recorded(LinesOf(Ramp(1)));
  EXPECT_FALSE(scene.BuildRecordLog());
  EXPECT_EQ(scene.LogLine(13), "Percentage of captured samples   : 100.0 %");
  EXPECT_EQ(scene.LogLine(14), "");
  EXPECT_THAT(scene.Dialogs.Shown, IsEmpty());
}

TEST(LogProgress, FillsItsPartOfTheBarAndGoes) {
  LogScene scene;
  scene.Recorded(LinesOf(Ramp(200'000)));
  std::vector<std::int16_t> painted;
  scene.Recorder.ProgressBar1.Repaint = [&] {
    EXPECT_TRUE(scene.Recorder.ProgressBar1.Visible);
    painted.push_back(scene.Recorder.ProgressBar1.Value);
  };

  scene.BuildRecordLog();

  EXPECT_TRUE(std::is_sorted(painted.begin(), painted.end()));
  EXPECT_EQ(painted.front(), 0);
  EXPECT_EQ(painted.back(), 25);
  EXPECT_GT(painted.size(), 10U);
  EXPECT_LE(painted.size(), 2U * 51);
  EXPECT_FALSE(scene.Recorder.ProgressBar1.Visible);
}

TEST(LogProgress, GoesAfterAFailureToo) {
  LogScene scene;
  scene.Files.Folders.clear();
  scene.BuildRecordLog();
  EXPECT_FALSE(scene.Recorder.ProgressBar1.Visible);
}

TEST(LogProgress, HandlesNoEvent) {
  LogScene scene;
  scene.Recorded(LinesOf(Ramp(20'000)));
  scene.BuildRecordLog();
  EXPECT_EQ(scene.Events.Count(), 0);
}

}  // namespace
}  // namespace support
