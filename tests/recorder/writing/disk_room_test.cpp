// What the Recorder view tells of the room on the disk.

#include <chrono>

#include "recorder/recorder_bench.h"

namespace recorder_tests {
namespace {

using testing::HasSubstr;
using testing::Not;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""ms;

constexpr const char* Sentence =
    "Less than an hour of room is left on the disk of the data folder.";

/// Rings of 300 kB a stream and second, on a disk of the test's size.
class DiskRoom : public testing::Test {
 protected:
  DiskRoom() {
    bench.TakeBoth();
    Run();
  }

  static constexpr std::int64_t RingBytes = 300'000;
  static constexpr std::int64_t BytesOfHour = RingBytes * 3600;

  void Run() {
    bench.Run("TXT");
    // From here on data comes, as far as the watchdog knows.
    bench.Frames(1);
  }
  /// A ring of one stream is stored.
  void Ring(std::size_t stream) {
    const std::string path = RecorderBench::Path((stream == 0 ? "1_" : "2_") + Started + ".txt");
    bench.Files.Stored[path].resize(bench.Files.Stored[path].size() + RingBytes);
    bench.Writing.Report.RingWritten(stream, path);
  }
  /// As many seconds of one stream.
  void Seconds(int count) {
    for (int i = 0; i < count; ++i) {
      bench.Elapse(1s);
      Ring(0);
    }
  }
  std::string Room() const { return bench.Main.Room.Caption; }
  std::string Line() const { return bench.Main.NotStored.Caption; }

  RecorderBench bench;
};

TEST_F(DiskRoom, TellsNoHoursBeforeItsSecondRing) {
  bench.Files.Free = 48'210'000'000;
  EXPECT_EQ(Room(), "");
  Ring(0);
  EXPECT_EQ(Room(), "free: 48.2 GB");
  Seconds(1);
  EXPECT_EQ(Room(), "free: 48.2 GB, enough for 45 h");
}

TEST_F(DiskRoom, CountsBothStreams) {
  bench.Files.Free = BytesOfHour * 60;
  for (int i = 0; i < 5; ++i) {
    bench.Elapse(990ms);
    Ring(0);
    bench.Elapse(10ms);
    Ring(1);
    if (i == 0) {
      EXPECT_EQ(Room(), "free: 64.8 GB") << "the second stream alone tells no rate";
    }
  }
  EXPECT_THAT(Room(), HasSubstr("enough for 30 h"));
}

TEST_F(DiskRoom, FollowsTheRateOfTheLastMinute) {
  bench.Files.Free = BytesOfHour * 60;
  for (int i = 0; i < 100; ++i) {
    bench.Elapse(1s);
    Ring(0);
    Ring(1);
  }
  EXPECT_THAT(Room(), HasSubstr("enough for 30 h"));
  // The second stream is gone.
  Seconds(62);
  EXPECT_THAT(Room(), HasSubstr("enough for 60 h"));
  // And the first one, and the second is back.
  for (int i = 0; i < 62; ++i) {
    bench.Elapse(2s);
    Ring(1);
  }
  EXPECT_THAT(Room(), HasSubstr("enough for 120 h"));
}

TEST_F(DiskRoom, IsToldInTheUnitsThatFit) {
  struct Told {
    std::int64_t Free;
    const char* Text;
  };
  Seconds(2);
  for (const Told& told : {Told{0, "free: 0 MB, enough for 0 min"},
                           Told{RingBytes * 60 * 42, "free: 756 MB, enough for 42 min"},
                           Told{BytesOfHour * 5 / 2, "free: 2.7 GB, enough for 2.5 h"},
                           Told{BytesOfHour * 12'000, "free: 12,960.0 GB, enough for 12,000 h"}}) {
    bench.Files.Free = told.Free;
    Seconds(1);
    EXPECT_EQ(Room(), told.Text);
  }
}

TEST_F(DiskRoom, SaysNothingWhereTheDiskDoesNotTell) {
  Seconds(3);
  EXPECT_EQ(Room(), "");
  EXPECT_EQ(Line(), "");
}

TEST_F(DiskRoom, WarnsOfTheLastHourUntilThereIsRoomAgain) {
  bench.Files.Free = BytesOfHour + RingBytes;
  Seconds(2);
  EXPECT_EQ(Line(), "");
  bench.Files.Free = BytesOfHour - RingBytes;
  Seconds(1);
  EXPECT_EQ(Line(), Sentence);
  Seconds(1);
  EXPECT_EQ(Line(), Sentence);
  bench.Files.Free = BytesOfHour * 2;
  Seconds(1);
  EXPECT_EQ(Line(), "");
}

TEST_F(DiskRoom, WarnsBesideWhatElseThereIsToTell) {
  bench.Files.Free = BytesOfHour / 2;
  Seconds(2);
  bench.Writing.Report.NotStored(1, platform::Failure(platform::failure::DeviceIo));
  EXPECT_THAT(Line(), HasSubstr("stream 2: not stored since "));
  EXPECT_THAT(Line(), HasSubstr(Sentence));
}

TEST_F(DiskRoom, IsToldNoMoreBehindTheEnd) {
  bench.Files.Free = BytesOfHour / 2;
  Seconds(2);
  ASSERT_EQ(Line(), Sentence);
  bench.Stop();
  EXPECT_EQ(Room(), "");
  EXPECT_THAT(Line(), Not(HasSubstr(Sentence)));
  bench.Files.Stored.clear();
  Run();
  Ring(0);
  EXPECT_THAT(Room(), Not(HasSubstr("enough"))) << "its rate is not that of the one before";
}

TEST_F(DiskRoom, TakesAFileThatBeganAnewAsSuch) {
  bench.Files.Free = BytesOfHour * 60;
  Seconds(3);
  bench.Files.Stored.clear();
  Seconds(30);
  EXPECT_THAT(Room(), HasSubstr("enough for 60 h"));
}

}  // namespace
}  // namespace recorder_tests
