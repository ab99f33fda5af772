// A recording that goes on in new files.

#include <chrono>
#include <string>
#include <vector>

#include "recorder/file_work.h"
#include "recorder/recorder_bench.h"

namespace recorder_tests {
namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int Ring = 4000;

/// A recording ring by ring, one a second of each stream, and a calendar that goes with the clock.
class RecordingParts : public testing::Test {
 protected:
  static void Run(RecorderBench& bench, const std::string& format,
                  std::chrono::seconds every = 2s) {
    bench.Session.DivideEvery(every);
    bench.Run(format);
    bench.Frames(1);
  }
  /// So many rings of a stream are full, the first with this number.
  static void Record(RecorderBench& bench, int first, int count, std::size_t stream = 0) {
    for (int ring = first; ring < first + count && bench.Main.CWButton3.Value; ++ring) {
      bench.Clock.Advance(1s);
      ++bench.Calendar.Present.Second;
      bench.Fill(stream, ring);
      bench.WriteRing(static_cast<std::int16_t>(stream), 9 * (ring + 1));
    }
  }
  /// A name of a recording of this second; RUN is at 7.
  static std::string Name(int second, const std::string& extension) {
    return "SV record 09.03.2024 14-05-" + std::string(second < 10 ? "0" : "") +
           std::to_string(second) + extension;
  }
  static std::string Log(int second) { return "Errorlog " + Name(second, ".txt"); }
  static std::vector<std::string> Told(const RecorderBench& bench, const std::string& event,
                                       int second) {
    std::vector<std::string> found;
    for (const std::string& each : Lines(bench.Content("Events " + Name(second, ".csv")))) {
      if (each.find(";" + event + ";") != std::string::npos) found.push_back(each);
    }
    return found;
  }

  ReadingBench bench;
};

TEST_F(RecordingParts, AreOneFileUnlessTheyAreAskedFor) {
  Run(bench, "TXT", 0s);
  Record(bench, 0, 5);
  EXPECT_THAT(bench.Names(), ElementsAre(Name(7, ".txt")));
  EXPECT_EQ(bench.Session.FilesBefore(), 0);
}

TEST_F(RecordingParts, HoldTogetherWhatOneFileHolds) {
  ReadingBench whole;
  Run(whole, "TXT", 0s);
  Record(whole, 0, 5);
  Run(bench, "TXT");
  Record(bench, 0, 5);

  EXPECT_EQ(bench.Session.FilesBefore(), 2);
  EXPECT_THAT(bench.Names(),
              ElementsAre(Log(7), Log(9), Name(7, ".txt"), Name(9, ".txt"), Name(11, ".txt")));
  EXPECT_EQ(bench.Content(Name(7, ".txt")) + bench.Content(Name(9, ".txt")) +
                bench.Content(Name(11, ".txt")),
            whole.Content(Name(7, ".txt")))
      << "lines, numbers and counters go on";
  EXPECT_EQ(bench.Caption(forms::record_line::FirstPath),
            RecorderBench::Path("1_" + Name(11, ".txt")));
}

TEST_F(RecordingParts, KeepTheirPaceThoughARingEndsLate) {
  Run(bench, "TXT");
  bench.Clock.Advance(900ms);
  Record(bench, 0, 5);
  EXPECT_THAT(bench.Names(),
              ElementsAre(Log(7), Log(9), Name(7, ".txt"), Name(9, ".txt"), Name(11, ".txt")));
}

TEST_F(RecordingParts, HaveTheLogThatTheirFileGives) {
  Run(bench, "TXT");
  Record(bench, 0, 1);
  Record(bench, 8, 1);

  const std::string followed = bench.Content(Log(7));
  EXPECT_NE(followed.find("Count of lost samples            : 8\r\n"), std::string::npos);
  EXPECT_EQ(bench.Times("followed log"), 1);
  EXPECT_EQ(bench.Times("log"), 0) << "no file is read while frames wait";
  // The same file read back, by the clock of that moment.
  bench.State.RecordFileName = Name(7, ".txt");
  bool nothing = false;
  bench.Recorder.Reading.BuildRecordLog(nothing);
  EXPECT_EQ(bench.Content(Log(7)), followed);
}

TEST_F(RecordingParts, HaveNoLogThatTheirFileWouldNotGive) {
  bench.Disk.FailingOpen = 1;
  bench.Disk.Number = platform::failure::DeviceIo;
  Run(bench, "TXT");
  Record(bench, 0, 5);

  EXPECT_EQ(Lines(bench.Content(Name(7, ".txt"))).size(), 1U * Ring) << "one of two is lost";
  EXPECT_EQ(bench.Content(Log(7)), "missing");
  EXPECT_NE(bench.Content(Log(9)), "missing");
}

TEST_F(RecordingParts, HaveNoLogOfAFileThatWentAway) {
  Run(bench, "TXT");
  Record(bench, 0, 1);
  bench.Files.Stored.erase(RecorderBench::Path(Name(7, ".txt")));
  Record(bench, 1, 1);
  EXPECT_EQ(bench.Session.FilesBefore(), 1);
  EXPECT_EQ(bench.Content(Log(7)), "missing");
}

TEST_F(RecordingParts, TellWhyALogIsLeftOut) {
  Run(bench, "TXT");
  Record(bench, 0, 1);
  bench.Clock.Advance(1s);
  ++bench.Calendar.Present.Second;
  bench.Fill(0);
  bench.Rings.RecordCount(10) = 4799;
  bench.WriteRing(0, 18);

  EXPECT_EQ(bench.Session.FilesBefore(), 1);
  EXPECT_EQ(bench.Main.NotStored.Caption.Get(),
            "The log of the file before is left out: " +
                platform::Failure(platform::failure::SubscriptOutOfRange).Text() + ".");
  EXPECT_THAT(bench.Dialogs.Shown, IsEmpty()) << "a box would hold the frames up";
}

TEST_F(RecordingParts, GoByTheFirstStreamWhereBothCome) {
  bench.TakeBoth();
  Run(bench, "TXT", 1s);
  bench.Clock.Advance(1s);
  bench.Fill(1);
  bench.WriteRing(1, 9);
  EXPECT_EQ(bench.Session.FilesBefore(), 0) << "the first one's ring is not full yet";
  Record(bench, 0, 1);
  EXPECT_EQ(bench.Session.FilesBefore(), 1);
  EXPECT_THAT(bench.Names(), ElementsAre("1_" + Name(7, ".txt"), "2_" + Name(7, ".txt")))
      << "two streams have no log";
}

TEST_F(RecordingParts, GoByTheSecondStreamWhereTheFirstIsAway) {
  bench.TakeBoth();
  Run(bench, "TXT");
  Record(bench, 0, 3, 1);
  EXPECT_EQ(bench.Session.FilesBefore(), 1);
  EXPECT_EQ(Lines(bench.Content("2_" + Name(7, ".txt"))).size(), 3U * Ring);
}

TEST_F(RecordingParts, TellTheirOwnEvents) {
  Run(bench, "TXT");
  Record(bench, 0, 2);
  bench.Frames(4, "MU01", 1);
  bench.Clock.Advance(10 * 250us);
  bench.Frames(1, "MU01", 15);
  Record(bench, 2, 2);

  for (const int second : {7, 9}) {
    EXPECT_EQ(Told(bench, "start", second).size(), 1U) << second;
    EXPECT_EQ(Told(bench, "stream met", second).size(), 1U) << second;
    EXPECT_EQ(Told(bench, "total", second).size(), 1U) << second;
  }
  EXPECT_THAT(Told(bench, "samples missing", 7), IsEmpty());
  EXPECT_THAT(Told(bench, "samples missing", 9),
              Contains(testing::HasSubstr(";1;5;samples missing;10;")))
      << "the line is that of its file";
  EXPECT_THAT(Told(bench, "total", 9), ElementsAre(testing::HasSubstr(";1;8000;total;8000;")));
  EXPECT_THAT(Told(bench, "end", 7),
              ElementsAre(testing::HasSubstr("the recording goes on in \"\"" + Name(9, ".txt"))));
}

TEST_F(RecordingParts, HaveNoEventsWhereTheEndLiesOnASeam) {
  Run(bench, "TXT");
  Record(bench, 0, 2);
  EXPECT_EQ(bench.Session.FilesBefore(), 1);
  bench.Frames(4, "MU01", 1);
  bench.Main.CWButton3.Value = false;
  EXPECT_EQ(Told(bench, "total", 7).size(), 1U);
  EXPECT_EQ(bench.Content("Events " + Name(9, ".csv")), "missing") << "there is no recording";
}

TEST_F(RecordingParts, TellOfAStreamThatCeasedBehindASeam) {
  Run(bench, "TXT");
  Record(bench, 0, 2);
  bench.Frames(4, "MU01", 1);
  bench.Clock.Advance(1h);
  bench.Main.CWButton3.Value = false;
  EXPECT_THAT(Told(bench, "samples missing", 9),
              Contains(testing::HasSubstr("none came up to the end")));
}

TEST_F(RecordingParts, TellAtAnEndOnASeamWhatTheDiskDidNotTake) {
  bench.Disk.Apart = "Events ";
  Run(bench, "TXT");
  Record(bench, 0, 1);
  bench.Disk.Refusal = platform::failure::PermissionDenied;
  Record(bench, 1, 1);
  bench.Disk.Refusal = 0;
  bench.Frames(4, "MU01", 1);
  bench.Main.CWButton3.Value = false;
  EXPECT_EQ(Told(bench, "total", 9).size(), 1U) << "that of the file before";
}

TEST_F(RecordingParts, TellLaterWhatTheDiskDidNotTake) {
  bench.Disk.Apart = "Events ";
  Run(bench, "TXT");
  Record(bench, 0, 1);
  bench.Disk.Refusal = platform::failure::PermissionDenied;
  Record(bench, 1, 1);
  bench.Disk.Refusal = 0;
  Record(bench, 2, 1);
  EXPECT_EQ(bench.Session.FilesBefore(), 1);
  EXPECT_THAT(Told(bench, "total", 7), IsEmpty());
  EXPECT_EQ(Told(bench, "total", 9).size(), 1U) << "that of the file before";
}

TEST_F(RecordingParts, AreWholeWorksheetsThatNeverFillUp) {
  Run(bench, "EXCEL", 3600s);
  Record(bench, 0, 9);

  EXPECT_TRUE(bench.Main.CWButton3.Value) << "no sheet was full";
  EXPECT_EQ(bench.Session.FilesBefore(), 1);
  const std::string end("\x0A\x00\x00\x00", 4);
  EXPECT_TRUE(bench.Content(Name(15, ".xls")).size() > std::size_t{4} * Ring);
  EXPECT_TRUE(bench.Content(Name(7, ".xls")).ends_with(end)) << "8 rings and its end mark";
  EXPECT_FALSE(bench.Content(Name(15, ".xls")).ends_with(end));
  bench.Stop();
  EXPECT_TRUE(bench.Content(Name(15, ".xls")).ends_with(end));
}

TEST_F(RecordingParts, BeginBothWorksheetsAtTheirTop) {
  bench.TakeBoth();
  Run(bench, "EXCEL");
  Record(bench, 0, 2);
  ReadingBench alone;
  alone.TakeBoth();
  Run(alone, "EXCEL", 0s);
  alone.Writing.Worksheet.EndPart();
  for (ReadingBench* each : {&bench, &alone}) {
    each->Fill(1);
    each->WriteRing(1, 18);
    each->Stop();
    each->Recorder.CloseFiles();
  }
  EXPECT_EQ(bench.Content("2_" + Name(9, ".xls")), alone.Content("2_" + Name(7, ".xls")));
}

TEST_F(RecordingParts, AreWhatARunOfTheirOwnGives) {
  Run(bench, "COMTRADE");
  Record(bench, 0, 3);
  bench.Stop();

  ReadingBench alone;
  alone.Calendar.Present.Second = 9;
  Run(alone, "COMTRADE", 0s);
  alone.Fill(0, 2);
  alone.WriteRing(0, 9);
  alone.Stop();
  EXPECT_EQ(Lines(alone.Content(Name(9, ".dat"))).size(), 1U * Ring);
  EXPECT_EQ(bench.Content(Name(9, ".dat")), alone.Content(Name(9, ".dat")));
  EXPECT_EQ(bench.Content(Name(9, ".cfg")), alone.Content(Name(9, ".cfg")));
  EXPECT_EQ(Lines(bench.Content(Name(7, ".cfg"))).size(),
            Lines(bench.Content(Name(9, ".cfg"))).size());
}

TEST_F(RecordingParts, BeginTheConfigurationOfEachStream) {
  bench.TakeBoth();
  Run(bench, "COMTRADE", 1s);
  Record(bench, 0, 1);
  // Between two rings of the first stream, wherever the second one's ends.
  bench.Fill(1);
  bench.WriteRing(1, 9);
  bench.State.BlockCount = 12;
  bench.WriteRing(1, 18);
  EXPECT_NE(bench.Content("2_" + Name(8, ".cfg")), "missing");
}

TEST_F(RecordingParts, LeaveANameThatIsTaken) {
  bench.Files.Stored[RecorderBench::Path("1_" + Name(9, ".txt"))] = "an hour ago";
  Run(bench, "TXT");
  Record(bench, 0, 3);

  EXPECT_EQ(bench.Content("1_" + Name(9, ".txt")), "an hour ago");
  EXPECT_EQ(bench.Session.FilesBefore(), 1);
  EXPECT_EQ(Lines(bench.Content(Name(7, ".txt"))).size(), 3U * Ring);
}

TEST_F(RecordingParts, EndWithTheFilesAtHandWhenStopIsPressed) {
  Run(bench, "TXT");
  Record(bench, 0, 3);
  bench.Stop();
  EXPECT_EQ(bench.Times("log"), 1);
  EXPECT_NE(bench.Content(Log(9)), "missing");
  EXPECT_EQ(Told(bench, "end", 9).size(), 1U);
}

constexpr Work Works[] = {
    {"opening", &support::FailingFiles::Opens, &support::FailingFiles::FailingOpen},
    {"writing", &support::FailingFiles::Writes, &support::FailingFiles::FailingWrite},
    {"closing", &support::FailingFiles::Closes, &support::FailingFiles::FailingClose},
};

class FailingParts : public RecordingParts, public testing::WithParamInterface<const char*> {
 protected:
  static void Record(RecorderBench& recorded) {
    recorded.Disk.Apart = "nothing is";
    Run(recorded, GetParam(), 1s);
    RecordingParts::Record(recorded, 0, 2);
    if (recorded.Main.CWButton3.Value) recorded.Stop();
  }
  /// Samples in the data files.
  static std::size_t Stored(const RecorderBench& recorded) {
    std::size_t lines = 0;
    for (const std::string& name : recorded.Names()) {
      const bool data = name.ends_with(".txt") || name.ends_with(".dat");
      if (name.starts_with("SV record") && data) lines += Lines(recorded.Content(name)).size();
    }
    return lines;
  }
  static void ExpectNoMoreThanARingLost(const Work& work, int n, std::int32_t number) {
    SCOPED_TRACE(work.Name + std::string(" ") + std::to_string(n) + ", failure " +
                 std::to_string(number));
    RecorderBench failing;
    failing.Disk.*work.Failing = n;
    failing.Disk.FailsWhole = true;
    failing.Disk.Number = number;
    ASSERT_NO_THROW(Record(failing));
    EXPECT_FALSE(failing.Main.CWButton3.Value);
    EXPECT_FALSE(failing.State.CaptureRunning);
    EXPECT_FALSE(failing.Writing.Open.IsOpen(packetroutines::TextFile));
    EXPECT_EQ(Stored(failing) % Ring, 0U) << "what stands in a file stands there whole";
    const auto& boxes = failing.Dialogs.Shown;
    const bool ended = !boxes.empty() && boxes.front().Text.starts_with("Disk full.");
    EXPECT_TRUE(ended || failing.Session.FilesBefore() == 2) << "nobody was told why it ended";
    if (!ended) {
      EXPECT_GE(Stored(failing), 1U * Ring);
    }
  }
};

TEST_P(FailingParts, LoseNothingThatWasStored) {
  RecorderBench sound;
  Record(sound);
  ASSERT_EQ(sound.Session.FilesBefore(), 2);
  ASSERT_EQ(Stored(sound), 2U * Ring);
  for (const Work& work : Works) {
    for (int n = 1; n <= sound.Disk.*work.Count; ++n) {
      ExpectNoMoreThanARingLost(work, n, platform::failure::DeviceIo);
      ExpectNoMoreThanARingLost(work, n, platform::failure::DiskFull);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, FailingParts, testing::Values("TXT", "COMTRADE"));

}  // namespace
}  // namespace recorder_tests
