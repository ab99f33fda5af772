#include "adapters/files/file_source.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "adapters/capture_file.h"
#include "adapters/hand_clock.h"
#include "base/failure.h"
#include "support/failures.h"

namespace {

using adapter_tests::Bytes;
using adapter_tests::Marked;
using adapter_tests::PcapFile;
using adapter_tests::PcapngFile;
using adapter_tests::Stamps;
using support::FailureOf;
using std::chrono_literals::operator""h;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""us;
using std::chrono_literals::operator""ns;
namespace failure = platform::failure;

class FileSource : public ::testing::Test {
 protected:
  void Play(const std::string& filter = "ether proto 0x88ba") {
    source_.Prepare({262144, true, filter});
    source_.Start();
  }

  /// The marks of the frames that are due now.
  std::vector<int> Due(std::size_t most = 100) {
    std::vector<int> marks;
    while (marks.size() < most) {
      const auto frame = source_.Next();
      if (!frame) break;
      marks.push_back(frame->Bytes.back());
    }
    return marks;
  }

  std::vector<int> DueAfter(std::chrono::nanoseconds time) {
    clock_.Time += time;
    return Due();
  }

  /// Moves the time when the file was written, since files can be written within one tick of the
  /// file system's clock.
  void Age(std::chrono::hours by) {
    std::filesystem::last_write_time(file_, std::filesystem::last_write_time(file_) - by);
  }

  /// False where the system keeps a file that is open in its place.
  bool TakeAway() const {
    std::error_code refused;
    return std::filesystem::remove(file_, refused);
  }
  static constexpr const char* StaysInPlace = "this system takes no file away while it is open";

  using Marks = std::vector<int>;
  adapter_tests::ScratchFolder folder_;
  std::filesystem::path file_ = folder_.Path / "bus.pcap";
  adapter_tests::HandClock clock_;
  adapters::FileSource source_{file_, clock_};
};

TEST_F(FileSource, PlaysAtThePaceOfItsTimeStamps) {
  PcapFile().Add(5, 0, Marked(1)).Add(5, 250, Marked(2)).Add(6, 0, Marked(3)).Save(file_);
  clock_.Time = 77s;
  Play();
  EXPECT_EQ(Due(), Marks({1}));
  EXPECT_EQ(DueAfter(249us), Marks());
  EXPECT_EQ(DueAfter(1us), Marks({2}));
  EXPECT_EQ(DueAfter(999749us), Marks());
  EXPECT_EQ(DueAfter(1us), Marks({3}));
}

TEST_F(FileSource, KeepsNanosecondsOfEitherFormat) {
  PcapFile(Stamps::Nanoseconds).Add(0, 100, Marked(1)).Add(0, 107, Marked(2)).Save(file_);
  Play();
  EXPECT_EQ(Due(1), Marks({1}));
  EXPECT_EQ(DueAfter(6ns), Marks());
  clock_.Time += 1ns;
  EXPECT_EQ(Due(1), Marks({2}));

  PcapngFile().Add(1'000'000'100, Marked(3)).Add(1'000'000'107, Marked(4)).Save(file_);
  adapters::FileSource newer(file_, clock_);
  newer.Prepare({262144, true, ""});
  newer.Start();
  EXPECT_EQ(newer.Next()->Bytes.back(), 3);
  clock_.Time += 6ns;
  EXPECT_FALSE(newer.Next());
  clock_.Time += 1ns;
  EXPECT_EQ(newer.Next()->Bytes.back(), 4);
}

TEST_F(FileSource, HandsOverEverythingThatIsDueToALateReader) {
  PcapFile().Add(0, 0, Marked(1)).Add(0, 250, Marked(2)).Add(0, 500, Marked(3)).Save(file_);
  Play();
  EXPECT_EQ(DueAfter(500us), Marks({1, 2, 3}));
}

TEST_F(FileSource, HandsOverWhatHasArrivedAndNoMore) {
  PcapFile().Add(0, 0, Marked(1)).Add(0, 250, Marked(2)).Add(0, 500, Marked(3)).Save(file_);
  Play();
  clock_.Time += 250us;
  source_.TakeNoMore();
  EXPECT_EQ(DueAfter(250us), Marks({1, 2}));
  EXPECT_EQ(DueAfter(250us), Marks());
  source_.Stop();
  source_.Start();
  EXPECT_EQ(Due(), Marks({3})) << "a start takes what comes";
}

TEST_F(FileSource, BeginsAnewAtItsEndAfterTheUsualGap) {
  PcapFile().Add(0, 0, Marked(1)).Add(0, 400, Marked(2)).Add(0, 800, Marked(3)).Save(file_);
  Play();
  EXPECT_EQ(DueAfter(800us), Marks({1, 2, 3}));
  EXPECT_EQ(DueAfter(399us), Marks());
  EXPECT_EQ(DueAfter(1us), Marks({1}));
  EXPECT_EQ(DueAfter(800us), Marks({2, 3}));
}

TEST_F(FileSource, PlaysASingleFrameOverAndOver) {
  PcapFile().Add(0, 0, Marked(1)).Save(file_);
  Play();
  EXPECT_EQ(DueAfter(1ms), Marks({1, 1, 1, 1, 1}));
}

TEST_F(FileSource, TakesATimeThatGoesBackAsNoGap) {
  PcapFile()
      .Add(9, 0, Marked(1))
      .Add(9, 500, Marked(2))
      .Add(3, 0, Marked(3))
      .Add(3, 100, Marked(4))
      .Save(file_);
  Play();
  EXPECT_EQ(DueAfter(500us), Marks({1, 2, 3}));
  EXPECT_EQ(DueAfter(99us), Marks());
  clock_.Time += 1us;
  EXPECT_EQ(Due(1), Marks({4}));
}

TEST_F(FileSource, PlaysFramesOfOneTimeStampTogether) {
  PcapFile()
      .Add(0, 0, Marked(1))
      .Add(0, 250, Marked(2))
      .Add(0, 250, Marked(3))
      .Add(0, 500, Marked(4))
      .Save(file_);
  Play();
  EXPECT_EQ(Due(), Marks({1}));
  EXPECT_EQ(DueAfter(250us), Marks({2, 3}));
}

TEST_F(FileSource, PlaysTimeStampsThatStandAtTheUsualPaceOfABus) {
  for (const std::uint32_t seconds : {0U, 1'700'000'000U}) {
    PcapFile file;
    for (std::uint8_t mark = 1; mark <= 5; ++mark) file.Add(seconds, 7, Marked(mark));
    file.Save(file_);
    adapters::FileSource source(file_, clock_);
    source.Prepare({262144, true, ""});
    source.Start();
    int frames = 0;
    for (int period = 0; period < 12; ++period) {
      while (source.Next()) ++frames;
      EXPECT_EQ(frames, period + 1) << seconds;
      clock_.Time += 250us;
    }
  }
}

TEST_F(FileSource, BeginsAnewNoFasterThanABusSendsWhereItsTimeStampsNearlyStand) {
  PcapngFile().Add(0, Marked(1)).Add(1, Marked(2)).Save(file_);
  Play();
  EXPECT_EQ(DueAfter(1ms), Marks({1, 2, 1, 2, 1, 2, 1, 2}));
}

TEST_F(FileSource, SurvivesTimeStampsThatNoClockShows) {
  PcapngFile()
      .Add(0, Marked(1))
      .Add(0xFFFF'FFFF'FFFF'FFFF, Marked(2))
      .Add(0, Marked(3))
      .Save(file_);
  Play();
  EXPECT_EQ(Due(), Marks({1}));
  clock_.Time += 1h;
  EXPECT_EQ(Due(2), Marks({2, 3}));
}

TEST_F(FileSource, GoesOnWhereItWasStopped) {
  PcapFile().Add(0, 0, Marked(1)).Add(0, 250, Marked(2)).Add(0, 500, Marked(3)).Save(file_);
  Play();
  EXPECT_EQ(Due(), Marks({1}));
  source_.Stop();
  EXPECT_EQ(DueAfter(10s), Marks());
  Play();
  EXPECT_EQ(Due(), Marks({2}));
  EXPECT_EQ(DueAfter(250us), Marks({3}));
}

TEST_F(FileSource, HandsOverTheNextFrameAtOnceAfterAStartWithinABurst) {
  PcapFile().Add(0, 0, Marked(1)).Add(0, 250, Marked(2)).Save(file_);
  Play();
  EXPECT_EQ(Due(1), Marks({1}));
  source_.Stop();
  source_.Start();
  EXPECT_EQ(Due(), Marks({2}));
}

TEST_F(FileSource, HandsOverAShortenedFrameWithItsTrueLength) {
  PcapFile().Add(0, 0, Marked(1), 900).Save(file_);
  Play();
  const auto frame = source_.Next();
  ASSERT_TRUE(frame);
  EXPECT_EQ(frame->Bytes.size(), 64U);
  EXPECT_EQ(frame->Length, 900U);
}

TEST_F(FileSource, SelectsTaggedFramesByTheirEthertypeAndHandsThemOverWhole) {
  Bytes other = Marked(9);
  other[13] = 0xB8;
  PcapFile()
      .Add(0, 0, Marked(1, 5))
      .Add(0, 0, other)
      .Add(0, 0, Marked(2))
      .Add(1, 0, Marked(3))
      .Save(file_);
  Play();
  const auto first = source_.Next();
  ASSERT_TRUE(first);
  EXPECT_EQ(Bytes(first->Bytes.begin(), first->Bytes.end()), Marked(1, 5));
  EXPECT_EQ(DueAfter(500us), Marks({2}));
}

TEST_F(FileSource, ComesBackFromAFileOfNothingButOtherFrames) {
  PcapFile().Add(0, 0, Marked(1)).Add(0, 0, Marked(2)).Save(file_);
  Play("ether proto 0x0800");
  EXPECT_EQ(DueAfter(1h), Marks());
}

TEST_F(FileSource, TellsWhetherItHasLookedAtAllThatTheFilterRefuses) {
  PcapFile file;
  for (std::uint32_t i = 0; i < 5000; ++i) file.Add(0, i, Marked(1));
  file.Add(0, 5000, Marked(2, -1, 100)).Save(file_);
  Play("greater 100");
  clock_.Time = 5ms;
  source_.TakeNoMore();
  EXPECT_EQ(Due(), Marks());
  EXPECT_FALSE(source_.LookedAtAll());
  EXPECT_EQ(Due(1), Marks({2}));
  EXPECT_EQ(Due(), Marks());
  EXPECT_TRUE(source_.LookedAtAll());
}

TEST_F(FileSource, ExpectsNothingOfAFileWithoutAFrameForTheFilter) {
  PcapFile file;
  for (std::uint32_t i = 0; i < 5000; ++i) file.Add(0, 0, Marked(1));
  file.Save(file_);
  Play("greater 100");
  clock_.Time = 1h;
  source_.TakeNoMore();
  int calls = 1;
  while (Due(), !source_.LookedAtAll()) ++calls;
  EXPECT_LE(calls, 4);
}

TEST_F(FileSource, SearchesAFileOnceACallAndStaysAtItsBeginning) {
  PcapFile().Add(0, 0, Marked(1)).Add(0, 1, Marked(2)).Add(0, 2, Marked(3)).Save(file_);
  Play("ether proto 0x0800");
  clock_.Time += 1h;
  EXPECT_FALSE(source_.Next());
  source_.Stop();
  Play();
  EXPECT_EQ(Due(1), Marks({1}));
}

TEST_F(FileSource, RefusesAFilterAtTheStart) {
  PcapFile().Add(0, 0, Marked(1)).Save(file_);
  source_.Prepare({262144, true, "ether proto 0x88ba nonsense"});
  EXPECT_EQ(FailureOf([&] { source_.Start(); }), failure::FilterRefused);
  EXPECT_EQ(Due(), Marks());
  Play();
  EXPECT_EQ(Due(1), Marks({1}));
}

TEST_F(FileSource, PlaysADamagedFileAsFarAsItGoesAndTellsOnce) {
  PcapFile().Add(0, 0, Marked(1)).Add(0, 250, Marked(2)).AddNonsense().Save(file_);
  Play();
  EXPECT_EQ(DueAfter(500us), Marks({1, 2, 1}));
  const platform::Failure damage = support::RaisedBy([&] {
    source_.Prepare({262144, true, "ether proto 0x88ba and vlan"});
  });
  EXPECT_EQ(damage.Number(), failure::DeviceIo);
  for (const char* word : {"bus.pcap", "frame 2", "Please"}) {
    EXPECT_NE(damage.Text().find(word), std::string::npos) << damage.Text();
  }
  EXPECT_TRUE(damage.Text().ends_with(
      ". The frames up to there are played over and over. Please copy or record the file anew."))
      << damage.Text();
  // The settings hold in spite of the failure: no frame of this file has a tag.
  source_.Start();
  EXPECT_EQ(DueAfter(1ms), Marks());
  EXPECT_EQ(FailureOf([&] { Play(); }), 0);
  EXPECT_FALSE(DueAfter(1ms).empty());
}

TEST_F(FileSource, PlaysAFileThatBreaksOffInAFrame) {
  PcapFile().Add(0, 0, Marked(1)).Add(0, 250, Marked(2)).CutOff(10).Save(file_);
  Play();
  EXPECT_EQ(DueAfter(250us), Marks({1, 1}));
  EXPECT_EQ(FailureOf([&] { Play(); }), failure::DeviceIo);
}

TEST_F(FileSource, ForgetsTheDamageOfAFileThatWasReplaced) {
  PcapFile().Add(0, 0, Marked(1)).Add(0, 250, Marked(2)).AddNonsense().Save(file_);
  Play();
  PcapFile().Add(0, 0, Marked(3)).Add(0, 250, Marked(4)).Save(file_);
  Age(1h);
  EXPECT_EQ(DueAfter(750us), Marks({1, 2, 3, 4}));
  EXPECT_EQ(FailureOf([&] { Play(); }), 0);
}

TEST_F(FileSource, TellsTheDamageOfEachFileThatReplacedAnother) {
  for (int file = 1; file <= 3; ++file) {
    PcapFile().Add(0, 0, Marked(1)).Add(0, 250, Marked(2)).AddNonsense().Save(file_);
    Age(file * 1h);
    FailureOf([&] { Play(); });
    DueAfter(1ms);
    EXPECT_EQ(FailureOf([&] { Play(); }), failure::DeviceIo) << file;
    DueAfter(1ms);
    EXPECT_EQ(FailureOf([&] { Play(); }), 0) << file;
  }
}

TEST_F(FileSource, CountsTheFramesOfAFileThatReplacedAnotherAnew) {
  PcapFile().Add(0, 0, Marked(1)).Add(0, 250, Marked(2)).Save(file_);
  Play();
  PcapFile().Add(0, 0, Marked(3)).AddNonsense().Save(file_);
  Age(1h);
  DueAfter(1ms);
  const std::string damage = support::RaisedBy([&] { Play(); }).Text();
  EXPECT_NE(damage.find("behind frame 1: "), std::string::npos) << damage;
}

TEST_F(FileSource, ForgetsTheDamageOfAFileThatWasTakenAway) {
  PcapFile().Add(0, 0, Marked(1)).Add(0, 250, Marked(2)).AddNonsense().Save(file_);
  Play();
  if (!TakeAway()) GTEST_SKIP() << StaysInPlace;
  DueAfter(1ms);
  PcapFile().Add(0, 0, Marked(3)).Save(file_);
  EXPECT_EQ(FailureOf([&] { Play(); }), 0);
  EXPECT_EQ(Due(1), Marks({3}));
}

TEST_F(FileSource, FailsWithoutAnyReadableFrame) {
  PcapFile().Save(file_);
  EXPECT_EQ(FailureOf([&] { Play(); }), failure::DeviceIo);
  PcapFile().Add(0, 0, Marked(1)).CutOff(1).Save(file_);
  EXPECT_EQ(FailureOf([&] { Play(); }), failure::DeviceIo);
}

TEST_F(FileSource, StartsWithoutFramesWhereThePreparationFailed) {
  EXPECT_EQ(FailureOf([&] { Play(); }), failure::FileNotFound);
  EXPECT_EQ(FailureOf([&] { source_.Start(); }), 0);
  EXPECT_EQ(DueAfter(1s), Marks());
  PcapFile().Add(0, 0, Marked(1)).Save(file_);
  EXPECT_EQ(DueAfter(1s), Marks()) << "the file is looked for in the preparation only";
  Play();
  EXPECT_EQ(Due(1), Marks({1}));
}

TEST_F(FileSource, RefusesAFilterAlsoWhereThereIsNoFile) {
  FailureOf([&] { source_.Prepare({262144, true, "ether proto 0x88ba nonsense"}); });
  EXPECT_EQ(FailureOf([&] { source_.Start(); }), failure::FilterRefused);
}

TEST_F(FileSource, TellsAFileThatIsNotThereOrNoCapture) {
  EXPECT_EQ(FailureOf([&] { Play(); }), failure::FileNotFound);
  adapter_tests::FileBytes{"this is no capture file"}.Save(file_);
  EXPECT_EQ(FailureOf([&] { Play(); }), failure::DeviceIo);
  PcapFile(Stamps::Microseconds, 101).Add(0, 0, Marked(1)).Save(file_);
  EXPECT_EQ(FailureOf([&] { Play(); }), failure::DeviceIo);
}

TEST_F(FileSource, TellsWhyAFileCannotBePlayed) {
  const auto why = [this] { return adapters::WhyUnplayable(file_); };
  EXPECT_EQ(why(), "is gone. Please put it back.");
  PcapFile().Save(file_);
  EXPECT_EQ(why(),
            "cannot be played: it holds no frame. Please put a sound Ethernet capture in its "
            "place.");
  PcapFile(Stamps::Microseconds, 101).Add(0, 0, Marked(1)).Save(file_);
  EXPECT_EQ(why(),
            "cannot be played: it does not hold Ethernet frames. Please put a sound Ethernet "
            "capture in its place.");
  adapter_tests::FileBytes{"this is no capture file"}.Save(file_);
  EXPECT_TRUE(why().starts_with("cannot be played: unknown file format. ")) << why();
  PcapFile().Add(0, 0, Marked(1)).CutOff(1).Save(file_);
  EXPECT_TRUE(why().starts_with("cannot be played: truncated")) << why();
  PcapFile().Add(0, 0, Marked(1)).Save(file_);
  EXPECT_EQ(why(), "");
}

TEST_F(FileSource, GoesQuietWhenItsFileIsTakenAwayAndTellsAtTheNextPreparation) {
  PcapFile().Add(0, 0, Marked(1)).Add(0, 250, Marked(2)).Save(file_);
  Play();
  if (!TakeAway()) GTEST_SKIP() << StaysInPlace;
  EXPECT_EQ(DueAfter(1s), Marks({1, 2}));
  EXPECT_EQ(FailureOf([&] { Play(); }), failure::FileNotFound);
  PcapFile().Add(0, 0, Marked(7)).Save(file_);
  Play();
  EXPECT_EQ(Due(1), Marks({7}));
}

}  // namespace
