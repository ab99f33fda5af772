// Two programs that record into one folder from the same second on, and clocks that bring a second
// twice: each recording has files of its own.

#include "recorder/recorder_bench.h"

namespace recorder_tests {
namespace {

using testing::HasSubstr;

/// The name of a recording that began in another second of that minute.
std::string Named(int second, const std::string& extension) {
  return "SV record 09.03.2024 14-05-0" + std::to_string(second) + extension;
}

class ClaimedNames : public testing::TestWithParam<const char*> {
 protected:
  static void Run(RecorderBench& bench) {
    bench.TakeBoth();
    bench.Run(GetParam());
    bench.Frames(1);
    bench.Fill(0);
    bench.Fill(1);
  }
  static void Rings(RecorderBench& bench, int blocks) {
    bench.WriteRing(0, blocks);
    bench.WriteRing(1, blocks);
  }
  static void Stop(RecorderBench& bench) {
    bench.Stop();
    bench.Recorder.CloseFiles();
  }
};

TEST_P(ClaimedNames, KeepTwoProgramsApartThatRecordIntoOneFolder) {
  RecorderBench alone;
  Run(alone);
  Rings(alone, 9);
  Rings(alone, 18);
  Stop(alone);

  RecorderBench first;
  RecorderBench second(&first.Files);
  Run(first);
  Run(second);
  for (const int blocks : {9, 18}) {
    Rings(first, blocks);
    Rings(second, blocks);
  }
  Stop(first);
  Stop(second);

  int compared = 0;
  for (const std::string& name : alone.Names()) {
    EXPECT_EQ(first.Content(name), alone.Content(name)) << name;
    std::string next = name;
    next.replace(next.find("14-05-07"), 8, "14-05-08");
    if (name.ends_with(".cfg")) {
      EXPECT_NE(first.Content(next), "missing") << next;
    } else {
      EXPECT_EQ(first.Content(next), alone.Content(name)) << next;
    }
    ++compared;
  }
  EXPECT_GE(compared, 2);
  EXPECT_THAT(second.Caption(forms::record_line::FirstPath), HasSubstr("1_" + Named(8, "")));
  EXPECT_THAT(second.Caption(forms::record_line::SecondPath), HasSubstr("2_" + Named(8, "")));
  for (const int each : {7, 8}) {
    EXPECT_THAT(
        first.Content("Events " + Named(each, ".csv")),
        testing::AllOf(testing::StartsWith("time;"), HasSubstr(";start;"), HasSubstr(";end;")));
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, ClaimedNames, testing::Values("TXT", "EXCEL", "COMTRADE"));

TEST(ClaimedName, IsTheNextFreeSecondWhereTheClockBringsOneTwice) {
  RecorderBench bench;
  for (const char* prefix : {"", "2_"}) {
    bench.Files.Stored[RecorderBench::Path(prefix + Named(*prefix == '2' ? 8 : 7, ".txt"))] =
        "an hour ago";
  }
  bench.Run("TXT");
  bench.Frames(1);
  bench.Fill(0);
  bench.WriteRing(0);
  bench.Stop();
  EXPECT_EQ(bench.Content(Named(7, ".txt")), "an hour ago");
  EXPECT_EQ(bench.Content("2_" + Named(8, ".txt")), "an hour ago");
  EXPECT_EQ(Lines(bench.Content(Named(9, ".txt"))).size(), 4000U);
  EXPECT_EQ(bench.Content("Events " + Named(7, ".csv")), "missing");
}

TEST(ClaimedName, HoldsForTheEventsOfARecordingWithoutARing) {
  RecorderBench first;
  RecorderBench second(&first.Files);
  for (RecorderBench* bench : {&first, &second}) {
    bench->Run("TXT");
    bench->Frames(3);
  }
  for (RecorderBench* bench : {&first, &second})
    bench->Session.Interrupt(subroutines::EndReason::OtherTab);
  for (const int each : {7, 8}) {
    EXPECT_THAT(first.Content("Events " + Named(each, ".csv")), HasSubstr(";end;")) << each;
  }
}

TEST(ClaimedName, IsTheFirstOneWhereTheFolderTakesNoFile) {
  RecorderBench bench;
  bench.Run("TXT");
  bench.Frames(1);
  bench.Fill(0);
  bench.LoseFolder();
  bench.WriteRing(0);
  bench.BringFolderBack();
  bench.WriteRing(0, 18);
  EXPECT_EQ(Lines(bench.Content(Named(7, ".txt"))).size(), 4000U);
}

}  // namespace
}  // namespace recorder_tests
