// A recording that has no log, and the check that is offered for it.

#include <algorithm>

#include "recorder/reading/analysis_scene.h"
#include "recorder/recorder_bench.h"

namespace recorder_tests {
namespace {

using support::LinesOf;
using support::Ramp;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class Check : public testing::Test {
 protected:
  Check() { bench.Calendar.Present = {2024, 3, 10, 8, 0, 0}; }

  void Put(const std::string& file, const std::string& content) {
    bench.Files.Stored[RecorderBench::Path(file)] = content;
    bench.Files.Written[RecorderBench::Path(file)] = {2024, 3, 9, 15, 6, 8};
  }
  /// A recording of two streams; the second one lacks twelve samples.
  void PutBoth() {
    std::vector<std::int32_t> gap = Ramp(4000);
    gap.erase(gap.begin() + 100, gap.begin() + 112);
    Put("1_" + text, LinesOf(Ramp(8000)));
    Put("2_" + text, LinesOf(gap));
    Put(text, "");
  }
  void Offer() { bench.Recorder.Check.Offer(); }
  void Press() { bench.Main.CheckRecording.Click(); }
  bool Offered() const { return bench.Main.CheckRecording.Visible; }
  const std::string& Line() const { return bench.Main.CheckLine.Caption; }

  ReadingBench bench;
  const std::string text = Started + ".txt";
  const std::string headings =
      "Error log for file               : c:\\StoredData\\1_SV record 09.03.2024 14-05-07.txt\r\n"
      "Measurement started              : 09.03.2024 14:05:07\r\n"
      "Measurement stopped              : 09.03.2024 15:06:08\r\n"
      "Duration time of data aquisition : 01:01:01 hh:mm:ss;\r\n"
      "\r\n"
      "MAC adress sender                : not known (checked later)\r\n"
      "MAC adress receiver              : not known (checked later)\r\n"
      "Station ID                       : not known (checked later)\r\n"
      "Filter were set to               : not known (checked later)\r\n"
      "\r\n";
};

TEST_F(Check, IsOfferedWithTheFilesAndTheirMoment) {
  Offer();
  EXPECT_FALSE(Offered());
  EXPECT_FALSE(bench.Main.CheckLine.Visible);
  PutBoth();
  Offer();
  EXPECT_TRUE(Offered());
  EXPECT_EQ(bench.Main.CheckRecording.Caption, "&Check recording");
  EXPECT_EQ(Line(), "1_" + text + " and 2_" + text + " of 09.03.2024 14:05:07 have no log.");
  Put("Checklog 1_" + text, "");
  Offer();
  EXPECT_EQ(Line(), "2_" + text + " of 09.03.2024 14:05:07 has no log.");
}

TEST_F(Check, WritesTheLogOfEachStream) {
  PutBoth();
  Offer();
  Press();
  EXPECT_EQ(Line(), "2 files checked: 0 and 12 samples lost. Logs are in the data folder.");
  EXPECT_EQ(bench.Content("Checklog 1_" + text),
            headings +
                "Count of received samples        : 8000\r\n"
                "Count of lost samples            : 0\r\n"
                "Percentage of captured samples   : 100.0 %\r\n"
                "Longest continous data           : 8000 samples; start: 1, end: 8000; (acc. "
                "~2s)\r\n"
                "Count of received full waves     : 100\r\n");
  EXPECT_THAT(bench.Content("Checklog 2_" + text),
              HasSubstr("Count of lost samples            : 12\r\n"));
  EXPECT_THAT(bench.Names(), Not(testing::Contains("Errorlog " + text)));
  EXPECT_FALSE(bench.Main.ProgressBar1.Visible);
  EXPECT_FALSE(bench.Pointer.Hourglass);
  EXPECT_THAT(bench.Sync.Asked, ElementsAre(RecorderBench::Path("Checklog 1_" + text),
                                            RecorderBench::Path("Checklog 2_" + text)));
  Offer();
  EXPECT_FALSE(Offered()) << "it is checked by now";
}

TEST_F(Check, CountsAsTheLogOfTheStopDoes) {
  std::vector<std::int32_t> ramp = Ramp(4000, 17);
  ramp.erase(ramp.begin() + 1000);
  ramp.insert(ramp.begin() + 2000, 5);
  bench.Run("TXT");
  bench.Frames(1);
  bench.State.RecordFileName = text;
  Put(text, LinesOf(ramp));
  bool nothing = false;
  bench.Recorder.Reading.BuildRecordLog(nothing);
  const std::string required = bench.Content("Errorlog " + text);
  ASSERT_NE(required, "missing");
  bench.Stop();
  bench.Files.Stored.erase(RecorderBench::Path("Errorlog " + text));
  Offer();
  Press();
  const std::string counts = "Count of received";
  const std::string checked = bench.Content("Checklog " + text);
  EXPECT_EQ(checked.substr(checked.find(counts)), required.substr(required.find(counts)));
}

TEST_F(Check, LeavesALastLineOutThatWasCut) {
  const std::string lines = LinesOf(Ramp(4000));
  for (const std::size_t missing : {2U, 3U, 10U, 20U}) {
    Put(text, lines.substr(0, lines.size() - missing));
    Offer();
    Press();
    const std::string log = bench.Content("Checklog " + text);
    EXPECT_THAT(log, HasSubstr("Count of received samples        : 3999\r\n"));
    EXPECT_THAT(log, EndsWith("\r\nThe last line was cut and is not counted\r\n"));
    EXPECT_EQ(Line(), "1 file checked: 0 samples lost. Its log is in the data folder.");
    bench.Files.Stored.clear();
  }
  Put(text, lines + std::string(5000, '\0'));
  Offer();
  Press();
  EXPECT_THAT(bench.Content("Checklog " + text), HasSubstr("samples        : 4000\r\n"))
      << "what a power cut leaves of a write";
  EXPECT_THAT(bench.Content("Checklog " + text), HasSubstr("The last line was cut"));
}

TEST_F(Check, TellsOfAWholeLastLineNothing) {
  const std::string lines = LinesOf(Ramp(4000));
  for (const std::size_t missing : {0U, 1U}) {
    Put(text, lines.substr(0, lines.size() - missing));
    Offer();
    Press();
    EXPECT_THAT(bench.Content("Checklog " + text), HasSubstr("samples        : 4000\r\n"));
    EXPECT_THAT(bench.Content("Checklog " + text), Not(HasSubstr("cut")));
    bench.Files.Stored.clear();
  }
}

TEST_F(Check, RefusesAFileThatCannotBeCountedAndOffersTheOneBefore) {
  const std::string lines = LinesOf(Ramp(100));
  const std::string early = "SV record 08.03.2024 14-05-07.txt";
  const std::string noSample = " could not be checked: it holds a line that is no sample.";
  const std::vector<std::pair<std::string, std::string>> broken = {
      {"0;1\r\n" + lines, noSample},
      {lines + "12;3\r\n", noSample},
      {std::string(100, '\0'), noSample},
      {"0;70000;1\r\n", noSample},
      {"0;0;1\r\n1;4500;1\r\n",
       " could not be checked: more than two million samples are missing in it, or its counter "
       "goes beyond 3999."}};
  for (const auto& [content, told] : broken) {
    ReadingBench other;
    other.Files.Stored[RecorderBench::Path(text)] = content;
    other.Files.Stored[RecorderBench::Path(early)] = lines;
    other.Recorder.Check.Offer();
    other.Main.CheckRecording.Click();
    EXPECT_EQ(other.Main.CheckLine.Caption, text + told);
    EXPECT_FALSE(other.Main.CheckRecording.Visible);
    EXPECT_THAT(other.Names(), ElementsAre(early, text)) << "no log is left of it";
    EXPECT_THAT(other.Dialogs.Shown, IsEmpty());
    other.Recorder.Check.Offer();
    EXPECT_THAT(other.Main.CheckLine.Caption.Get(), StartsWith(early));
  }
}

TEST_F(Check, TellsWhatIsInItsWayAndCanBeTriedAgain) {
  const auto prepare = [this](ReadingBench& failing) {
    failing.Files.Stored[RecorderBench::Path("1_" + text)] = LinesOf(Ramp(4000));
    failing.Files.Stored[RecorderBench::Path("2_" + text)] = LinesOf(Ramp(4000));
    failing.Recorder.Check.Offer();
  };
  ReadingBench sound;
  prepare(sound);
  sound.Main.CheckRecording.Click();
  struct Work {
    int support::FailingFiles::*Count;
    int support::FailingFiles::*Failing;
  };
  for (const Work& work :
       {Work{&support::FailingFiles::Writes, &support::FailingFiles::FailingWrite},
        Work{&support::FailingFiles::Opens, &support::FailingFiles::FailingOpen},
        Work{&support::FailingFiles::Closes, &support::FailingFiles::FailingClose},
        Work{&support::FailingFiles::Reads, &support::FailingFiles::FailingRead}}) {
    ASSERT_GT(sound.Disk.*work.Count, 0);
    for (int n = 1; n <= sound.Disk.*work.Count; ++n) {
      ReadingBench failing;
      prepare(failing);
      failing.Disk.*work.Failing = n;
      ASSERT_NO_THROW(failing.Main.CheckRecording.Click());
      EXPECT_THAT(failing.Main.CheckLine.Caption.Get(),
                  HasSubstr(text + " could not be checked: Disk full."));
      EXPECT_THAT(failing.Main.CheckLine.Caption.Get(), StartsWith("1 file checked: 0 samples"));
      EXPECT_THAT(failing.Names(), testing::SizeIs(3)) << "no part of a log is left";
      EXPECT_FALSE(failing.Main.ProgressBar1.Visible);
      EXPECT_FALSE(failing.Pointer.Hourglass);
      EXPECT_THAT(failing.Dialogs.Shown, IsEmpty());
      failing.Recorder.Check.Offer();
      failing.Main.CheckRecording.Click();
      EXPECT_TRUE(failing.Files.Stored == sound.Files.Stored);
    }
  }
}

TEST_F(Check, StaysOfferedWhereNothingCouldBeWritten) {
  PutBoth();
  Offer();
  bench.Disk.Refusal = 61;
  Press();
  EXPECT_EQ(Line(), "1_" + text + " could not be checked: Disk full. 2_" + text +
                        " could not be checked: Disk full.");
  EXPECT_TRUE(Offered());
  bench.Disk.Refusal = 0;
  Press();
  EXPECT_EQ(Line(), "2 files checked: 0 and 12 samples lost. Logs are in the data folder.");
}

TEST_F(Check, OpensWhatTheLineNames) {
  PutBoth();
  Offer();
  bench.Main.CheckLine.DblClick();
  EXPECT_THAT(bench.Links.Opened,
              ElementsAre(RecorderBench::Path("1_" + text), RecorderBench::Path("2_" + text)));
  Press();
  bench.Links.Opened.clear();
  const auto logs = ElementsAre(RecorderBench::Path("Checklog 1_" + text),
                                RecorderBench::Path("Checklog 2_" + text));
  bench.Main.CheckLine.DblClick();
  EXPECT_THAT(bench.Links.Opened, logs);
  bench.Links.Opened.clear();
  EXPECT_EQ(bench.Main.CheckRecording.Caption, "Open &check log");
  Press();
  EXPECT_THAT(bench.Links.Opened, logs);
  EXPECT_EQ(Line(), "2 files checked: 0 and 12 samples lost. Logs are in the data folder.");
}

TEST_F(Check, FillsTheBarFromFileToFileWithoutLettingAnythingIn) {
  PutBoth();
  Offer();
  std::vector<int> shown;
  bench.Main.ProgressBar1.Repaint = [&] {
    EXPECT_TRUE(bench.Main.ProgressBar1.Visible);
    EXPECT_TRUE(bench.Pointer.Hourglass);
    shown.push_back(bench.Main.ProgressBar1.Value);
  };
  const int pumps = bench.Events.Count();
  Press();
  EXPECT_EQ(bench.Events.Count(), pumps);
  EXPECT_TRUE(std::is_sorted(shown.begin(), shown.end()));
  EXPECT_EQ(shown.front(), 0);
  EXPECT_EQ(shown.back(), 100);
  EXPECT_THAT(shown, testing::Contains(50));
}

TEST_F(Check, IsAwayWhileARecordingRunsAndComesBackBehindIt) {
  const std::string early = "SV record 08.03.2024 14-05-07.txt";
  Put(early, LinesOf(Ramp(4000)));
  Offer();
  bench.Run("TXT");
  EXPECT_FALSE(Offered());
  EXPECT_EQ(Line(), "");
  bench.Frames(1);
  bench.Fill(0);
  bench.WriteRing(0);
  Press();
  EXPECT_THAT(bench.Names(), Not(testing::Contains("Checklog " + early)));
  bench.Stop();
  EXPECT_TRUE(Offered());
  EXPECT_THAT(Line(), StartsWith(early)) << "the newer one has its log";
}

TEST_F(Check, IsOfferedBehindAStopOfTwoStreams) {
  bench.TakeBoth();
  bench.Calendar.Present = {2024, 3, 9, 14, 5, 7};
  bench.Run("TXT");
  bench.Fill(0);
  bench.Fill(1);
  bench.WriteRing(0);
  bench.WriteRing(1);
  bench.Stop();
  EXPECT_EQ(Line(), "1_" + text + " and 2_" + text + " of 09.03.2024 14:05:07 have no log.");
}

TEST_F(Check, IsOfferedBehindAStartThatWasDropped) {
  PutBoth();
  Offer();
  bench.Events.AtPump(2, [this] { bench.Stop(); });
  bench.Main.CWButton3.Value = true;
  ASSERT_FALSE(bench.Main.CWButton3.Value);
  EXPECT_TRUE(Offered());
}

}  // namespace
}  // namespace recorder_tests
