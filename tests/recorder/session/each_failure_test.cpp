// A short recording with its log and its quick view, of which each single work on a file fails
// once.

#include <tuple>

#include "recorder/file_work.h"
#include "recorder/recorder_bench.h"

namespace recorder_tests {
namespace {

using testing::IsEmpty;

constexpr Work Works[] = {
    {"opening", &support::FailingFiles::Opens, &support::FailingFiles::FailingOpen},
    {"closing", &support::FailingFiles::Closes, &support::FailingFiles::FailingClose},
    {"reading", &support::FailingFiles::Reads, &support::FailingFiles::FailingRead},
    {"writing", &support::FailingFiles::Writes, &support::FailingFiles::FailingWrite},
    {"deleting", &support::FailingFiles::Deletes, &support::FailingFiles::FailingDelete},
};

class EachFailure : public testing::TestWithParam<std::tuple<const char*, bool>> {
 protected:
  static const char* Format() { return std::get<0>(GetParam()); }
  static bool Both() { return std::get<1>(GetParam()); }
  /// A full disk ends a recording, and a device error lets it go on. What one stream meets with the
  /// one, both of them meet with the other.
  static std::int32_t Number(int n) {
    const bool full = (n % 2 == 0) == Both();
    return full ? platform::failure::DiskFull : platform::failure::DeviceIo;
  }

  /// RUN, two rings of the first stream around one of the second, STOP.
  static void Record(ReadingBench& bench) {
    if (Both()) bench.TakeBoth();
    bench.Run(Format());
    bench.Frames(1);
    bench.Fill(0);
    bench.Fill(1);
    bench.WriteRing(0, 9);
    if (Both() && bench.Main.CWButton3.Value) bench.WriteRing(1, 9);
    if (bench.Main.CWButton3.Value) bench.WriteRing(0, 18);
    bench.Stop();
  }

  static void ExpectRest(const ReadingBench& bench) {
    EXPECT_FALSE(bench.Main.CWButton3.Value);
    EXPECT_FALSE(bench.State.CaptureRunning);
    EXPECT_FALSE(bench.State.RecorderBusy);
    EXPECT_FALSE(bench.Writing.Open.IsOpen(packetroutines::TextFile));
    EXPECT_FALSE(bench.Main.ProgressBar1.Visible);
    EXPECT_FALSE(bench.Pointer.Hourglass);
    for (const auto& format : bench.Main.Option2) EXPECT_TRUE(format.Enabled);
    EXPECT_EQ(bench.Caption(forms::record_line::Progress).find("analysis"), std::string::npos);
  }
  /// Of the files of samples. A log fails silently, as it must, and a check writes it anew; the end
  /// of the events waits for the disk.
  static void ExpectDifferencesTold(const ReadingBench& sound, const ReadingBench& failing) {
    const bool told = !failing.Dialogs.Shown.empty() ||
                      failing.Main.NotStored.Caption.Get() != LineBehindASoundOne();
    for (const auto& [path, content] : sound.Files.Stored) {
      if (support::IsEventsFile(path) || path.find("Errorlog ") != std::string::npos) continue;
      const auto stored = failing.Files.Stored.find(path);
      const bool same = stored != failing.Files.Stored.end() && stored->second == content;
      EXPECT_TRUE(same || told) << path;
    }
  }
  /// Two streams have no log.
  static std::string LineBehindASoundOne() {
    return Both() && Format() == std::string("TXT") ? WhereTotalsStand : std::string();
  }
};

TEST_P(EachFailure, IsToldOnceAndLeavesARecorderThatRecordsAgain) {
  ReadingBench sound;
  Record(sound);
  ASSERT_THAT(sound.Dialogs.Shown, IsEmpty());
  ASSERT_EQ(sound.Main.NotStored.Caption.Get(), LineBehindASoundOne());
  for (const Work& work : Works) {
    for (int n = 1; n <= sound.Disk.*work.Count; ++n) {
      SCOPED_TRACE(work.Name + std::string(" ") + std::to_string(n));
      ReadingBench failing;
      failing.Disk.*work.Failing = n;
      failing.Disk.Number = Number(n);
      ASSERT_NO_THROW(Record(failing));
      ExpectRest(failing);
      EXPECT_LE(failing.Dialogs.Shown.size(), 1U);
      for (const platform::Message& box : failing.Dialogs.Shown) {
        EXPECT_NE(box.Title, "unknown exception");
      }
      failing.Files.Stored.clear();
      failing.Dialogs.Shown.clear();
      ASSERT_NO_THROW(Record(failing));
      ExpectRest(failing);
      EXPECT_EQ(failing.Main.NotStored.Caption.Get(), LineBehindASoundOne());
      EXPECT_THAT(failing.Dialogs.Shown, IsEmpty());
      EXPECT_TRUE(failing.Files.Stored == sound.Files.Stored);
    }
  }
}

TEST_P(EachFailure, LeavesNoFileUntoldThatIsNotAsItShouldBe) {
  ReadingBench sound;
  Record(sound);
  // The writing of the events counts as well.
  ReadingBench counted;
  counted.Disk.Apart.clear();
  Record(counted);
  for (const Work& work : Works) {
    for (int n = 1; n <= counted.Disk.*work.Count; ++n) {
      SCOPED_TRACE(work.Name + std::string(" ") + std::to_string(n));
      ReadingBench failing;
      failing.Disk.Apart.clear();
      failing.Disk.*work.Failing = n;
      failing.Disk.Number = Number(n);
      ASSERT_NO_THROW(Record(failing));
      ExpectRest(failing);
      ExpectDifferencesTold(sound, failing);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, EachFailure,
                         testing::Combine(testing::Values("TXT", "EXCEL", "COMTRADE"),
                                          testing::Bool()),
                         [](const auto& scene) {
                           return std::string(std::get<0>(scene.param)) +
                                  (std::get<1>(scene.param) ? "Two" : "One");
                         });

}  // namespace
}  // namespace recorder_tests
