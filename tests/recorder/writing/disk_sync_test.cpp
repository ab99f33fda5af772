// What is told of a disk that takes its time, that fails, and that loses sight of a file for a
// while.

#include <chrono>

#include "recorder/recorder_bench.h"

namespace recorder_tests {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

class SlowDisk : public testing::Test {
 protected:
  void Run(const char* format = "TXT") {
    bench.Run(format);
    bench.Fill(0);
    bench.Fill(1);
  }
  /// A ring of the stream, and a second without a word from the disk.
  void Ring(std::int16_t stream = 0) {
    bench.WriteRing(stream);
    bench.Elapse(1000ms);
  }
  /// What the disk has taken meanwhile is looked at.
  void Look() { bench.Elapse(250ms); }
  const std::string& Told(std::size_t stream = 0) const {
    return bench.Main.OnDisk[stream].Caption;
  }
  const std::string& Line() const { return bench.Main.NotStored.Caption; }
  std::string Kilobytes() const {
    const auto bytes = static_cast<double>(bench.Content(Started + ".txt").size());
    return bench.Numbers.Format(bytes / 1000, "###,###,###,##0");
  }

  RecorderBench bench;
};

TEST_F(SlowDisk, CountsOnlyWhatItHasTaken) {
  bench.Sync.Lags = true;
  Run();
  bench.WriteRing(0);
  EXPECT_EQ(Told(), "") << "a ring that was written just now is not late";
  Look();
  EXPECT_EQ(Told(), "stream 1: 1 whole ring being written to the disk");
  const std::string first = Kilobytes();
  Ring();
  bench.Sync.Work(1);
  EXPECT_EQ(Told(), "stream 1: 2 whole rings being written to the disk");
  Look();
  EXPECT_EQ(Told(),
            "stream 1: 1 whole ring, " + first + " kB on disk, 1 more being written to the disk");
  Ring();
  EXPECT_EQ(Told(),
            "stream 1: 1 whole ring, " + first + " kB on disk, 2 more being written to the disk");
  bench.Sync.Work();
  Look();
  EXPECT_EQ(Told(), "stream 1: 3 whole rings, " + Kilobytes() + " kB on disk");
  EXPECT_EQ(Line(), "");
}

TEST_F(SlowDisk, IsNotToldOfAsLongAsItKeepsUp) {
  bench.Sync.Lags = true;
  Run();
  for (int ring = 1; ring <= 3; ++ring) {
    const std::string before = Told();
    bench.WriteRing(0);
    EXPECT_EQ(Told(), before) << "the caption does not flicker from ring to ring";
    bench.Sync.Work();
    Look();
    EXPECT_THAT(Told(), StartsWith("stream 1: " + std::to_string(ring) + " whole ring"));
    EXPECT_THAT(Told(), Not(testing::HasSubstr("being written")));
  }
}

TEST_F(SlowDisk, IsLookedAtUntilItHasTakenTheEndOfTheRecording) {
  bench.Sync.Lags = true;
  bench.TakeBoth();
  Run();
  bench.WriteRing(0);
  bench.WriteRing(1);
  bench.Stop();
  EXPECT_THAT(bench.Sync.Limits, IsEmpty()) << "the end of a recording waits for nobody";
  Look();
  EXPECT_EQ(Told(1), "stream 2: 1 whole ring being written to the disk");
  bench.Sync.Work();
  Look();
  for (const auto& caption : bench.Main.OnDisk) {
    EXPECT_THAT(caption.Caption.Get(), testing::EndsWith(" kB on disk"));
  }
  bench.Elapse(2000ms);
  EXPECT_FALSE(bench.Timers.NextDue()) << "nothing is looked at any more";
}

TEST_F(SlowDisk, IsAskedForEachFileOfEachFormat) {
  bench.TakeBoth();
  const std::string first = RecorderBench::Path("1_" + Started);
  const std::string second = RecorderBench::Path("2_" + Started);
  const auto rings = [&](const char* format) {
    bench.Sync.Asked.clear();
    bench.Files.Stored.clear();
    Run(format);
    bench.WriteRing(0);
    bench.WriteRing(1);
  };
  rings("TXT");
  EXPECT_THAT(bench.Sync.Asked, ElementsAre(first + ".txt", second + ".txt"));
  bench.Stop();
  rings("COMTRADE");
  EXPECT_THAT(bench.Sync.Asked,
              ElementsAre(first + ".cfg", first + ".dat", second + ".cfg", second + ".dat"));
  bench.Stop();
  EXPECT_EQ(bench.Sync.Asked.back(), RecorderBench::Path(Started + ".cfg"));
  rings("EXCEL");
  EXPECT_THAT(bench.Sync.Asked, ElementsAre(first + ".xls", second + ".xls"));
  bench.Stop();
  EXPECT_EQ(bench.Sync.Asked.back(), first + ".xls") << "its end was written by now";
  bench.Recorder.CloseFiles();
  EXPECT_EQ(bench.Sync.Asked.back(), second + ".xls");
}

TEST_F(SlowDisk, HoldsUpTheEndOfTheProgramForTwoSecondsAtMost) {
  bench.Sync.Lags = true;
  Run("EXCEL");
  bench.WriteRing(0);
  bench.Recorder.CloseFiles();
  EXPECT_THAT(bench.Sync.Limits, ElementsAre(2000ms));
  EXPECT_THAT(bench.Sync.Asked, SizeIs(2)) << "what the end has written was asked for before";
}

TEST_F(SlowDisk, OfTheRecordingBeforeIsNotForgotten) {
  bench.Sync.Lags = true;
  Run();
  Ring();
  bench.Stop();
  bench.Calendar.Present.Second = 9;
  Run();
  EXPECT_EQ(Told(), "");
  bench.Sync.Failing = 1;
  bench.Sync.Work();
  Look();
  EXPECT_EQ(Line(), Started + ".txt may be lost: Device I/O error.");
  EXPECT_EQ(Told(), "");
}

class FailingDisk : public SlowDisk {};

TEST_F(FailingDisk, IsToldOnceWithItsReasonAndGoesOnCounting) {
  bench.Sync.Failing = 2;
  Run();
  Ring();
  const std::string first = Told();
  Ring();
  EXPECT_EQ(Told(), first) << "what the disk failed is not on it";
  EXPECT_EQ(Line(), "stream 1: 1 ring may be lost since 09.03.2024 14:05:07: Device I/O error.");
  bench.Calendar.Present.Second = 9;
  Ring();
  EXPECT_THAT(Told(), StartsWith("stream 1: 2 whole rings, "));
  EXPECT_EQ(Line(), "stream 1: 1 ring may be lost since 09.03.2024 14:05:07: Device I/O error.")
      << "a later success brings nothing back";
  Run();
  EXPECT_EQ(Line(), "");
}

TEST_F(FailingDisk, ThatStaysSoIsToldInOneSentence) {
  bench.Sync.Failing = 1;
  bench.Sync.AlsoBehind = true;
  bench.Sync.Number = platform::failure::DiskFull;
  bench.TakeBoth();
  Run();
  for (int i = 0; i < 3; ++i) Ring();
  Ring(1);
  EXPECT_EQ(Told(), "");
  EXPECT_EQ(Line(),
            "stream 1: 3 rings may be lost since 09.03.2024 14:05:07: Disk full. "
            "stream 2: 1 ring may be lost since 09.03.2024 14:05:07: Disk full. " +
                WhereTotalsStand);
}

TEST_F(FailingDisk, EachTimeIsToldAndLeavesTheRecordingWhole) {
  for (const bool both : {false, true}) {
    for (const char* format : {"TXT", "EXCEL", "COMTRADE"}) {
      bool reached = true;
      for (int n = 1; reached; ++n) {
        SCOPED_TRACE(format + std::string(" ") + std::to_string(n));
        ReadingBench failing;
        if (both) failing.TakeBoth();
        failing.Sync.Failing = n;
        failing.Run(format);
        failing.Fill(0);
        failing.Fill(1);
        for (const int blocks : {9, 18}) {
          failing.WriteRing(0, blocks);
          if (both) failing.WriteRing(1, blocks);
        }
        failing.Stop();
        failing.Recorder.CloseFiles();
        reached = failing.Sync.Asked.size() >= static_cast<std::size_t>(n);
        EXPECT_EQ(failing.Main.NotStored.Caption.Get().find("may be lost") != std::string::npos,
                  reached);
        EXPECT_THAT(failing.Dialogs.Shown, IsEmpty());
      }
    }
  }
}

TEST_F(SlowDisk, ThatCannotOpenAFileIsAskedAgain) {
  bench.Sync.Unreachable = true;
  Run();
  Ring();
  EXPECT_EQ(Told(), "stream 1: 1 whole ring being written to the disk");
  EXPECT_EQ(Line(), "") << "nothing is lost by that";
  bench.Sync.Unreachable = false;
  Look();
  Look();
  EXPECT_EQ(Told(), "stream 1: 1 whole ring, " + Kilobytes() + " kB on disk");
}

TEST_F(SlowDisk, WhoseFileIsGoneTellsItByItsFolderAlone) {
  bench.Sync.Unreachable = true;
  Run();
  bench.WriteRing(0);
  bench.LoseFolder();
  Look();
  EXPECT_EQ(Told(), "");
  EXPECT_EQ(Line(), "");
  bench.WriteRing(0);
  EXPECT_EQ(Line(),
            "stream 1: not stored since 09.03.2024 14:05:07: File not found; 1 ring lost before.");
  bench.Sync.Unreachable = false;
  bench.BringFolderBack();
  Ring();
  EXPECT_THAT(Told(), StartsWith("stream 1: 1 whole ring, "));
}

TEST(NoDiskSync, CountsWhatIsWrittenAsStored) {
  support::FakePlatform played;
  forms::RecorderControls recorder;
  packetroutines::DiskReport report(recorder,
                                    {.Usual = {played.Events, played.Dialogs, played.Runtime},
                                     .Code = played.Code,
                                     .Numbers = played.Numbers,
                                     .Files = played.Files,
                                     .Calendar = played.Calendar,
                                     .Pointer = played.Pointer,
                                     .Links = played.Links,
                                     .Timers = played.Timers,
                                     .Sleep = played.Sleep,
                                     .Sync = nullptr});
  const std::string path = RecorderBench::Path("a.txt");
  played.Files.Stored[path] = std::string(1000, ' ');
  report.RingWritten(0, path);
  played.Files.Stored[path] += std::string(1000, ' ');
  report.RingWritten(0, path);
  report.AlsoWritten(path);
  EXPECT_EQ(recorder.OnDisk[0].Caption, "stream 1: 2 whole rings, 2 kB on disk");
  EXPECT_FALSE(played.Timers.NextDue());
}

}  // namespace
}  // namespace recorder_tests
