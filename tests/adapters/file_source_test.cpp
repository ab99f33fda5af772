#include "adapters/file_source.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <vector>

#include "adapters/capture_file.h"
#include "adapters/hand_clock.h"
#include "platform/failure.h"

namespace {

using adapter_tests::Bytes;
using adapter_tests::Marked;
using adapter_tests::PcapFile;
using adapter_tests::PcapngFile;
using adapter_tests::Stamps;
using namespace std::chrono_literals;
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

  std::int32_t FailureOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const platform::Failure& failure) {
      text_ = failure.Text();
      return failure.Number();
    }
    return 0;
  }

  using Marks = std::vector<int>;
  adapter_tests::ScratchFolder folder_;
  std::filesystem::path file_ = folder_.Path / "bus.pcap";
  adapter_tests::HandClock clock_;
  adapters::FileSource source_{file_, clock_};
  std::string text_;
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
  PcapFile().Add(9, 0, Marked(1)).Add(3, 0, Marked(2)).Add(3, 100, Marked(3)).Save(file_);
  Play();
  EXPECT_EQ(Due(2), Marks({1, 2}));
  EXPECT_EQ(DueAfter(99us), Marks());
  clock_.Time += 1us;
  EXPECT_EQ(Due(1), Marks({3}));
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
      .Add(0, 1, Marked(3))
      .Save(file_);
  Play();
  const auto first = source_.Next();
  ASSERT_TRUE(first);
  EXPECT_EQ(Bytes(first->Bytes.begin(), first->Bytes.end()), Marked(1, 5));
  EXPECT_EQ(Due(), Marks({2}));
}

TEST_F(FileSource, ComesBackFromAFileOfNothingButOtherFrames) {
  PcapFile().Add(0, 0, Marked(1)).Add(0, 0, Marked(2)).Save(file_);
  Play("ether proto 0x0800");
  EXPECT_EQ(DueAfter(1h), Marks());
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
  EXPECT_EQ(FailureOf([&] {
              source_.Prepare({262144, true, "ether proto 0x88ba and vlan"});
            }),
            failure::DeviceIo);
  EXPECT_NE(text_.find("bus.pcap"), std::string::npos) << text_;
  EXPECT_NE(text_.find("frame 2"), std::string::npos) << text_;
  EXPECT_NE(text_.find("Please"), std::string::npos) << text_;
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

TEST_F(FileSource, FailsWithoutAnyReadableFrame) {
  PcapFile().Save(file_);
  EXPECT_FALSE(adapters::IsPlayable(file_));
  EXPECT_EQ(FailureOf([&] { Play(); }), failure::DeviceIo);
  EXPECT_EQ(FailureOf([&] { source_.Start(); }), failure::DeviceIo);
  EXPECT_EQ(Due(), Marks());
  PcapFile().Add(0, 0, Marked(1)).CutOff(1).Save(file_);
  EXPECT_FALSE(adapters::IsPlayable(file_));
  EXPECT_EQ(FailureOf([&] { Play(); }), failure::DeviceIo);
}

TEST_F(FileSource, TellsAFileThatIsNotThereOrNoCapture) {
  EXPECT_EQ(FailureOf([&] { Play(); }), failure::FileNotFound);
  adapter_tests::FileBytes{"this is no capture file"}.Save(file_);
  EXPECT_EQ(FailureOf([&] { Play(); }), failure::DeviceIo);
  EXPECT_FALSE(adapters::IsPlayable(file_));
  PcapFile(Stamps::Microseconds, 101).Add(0, 0, Marked(1)).Save(file_);
  EXPECT_EQ(FailureOf([&] { Play(); }), failure::DeviceIo);
  EXPECT_FALSE(adapters::IsPlayable(file_));
}

TEST_F(FileSource, GoesQuietWhenItsFileIsTakenAwayAndTellsAtTheNextPreparation) {
  PcapFile().Add(0, 0, Marked(1)).Add(0, 250, Marked(2)).Save(file_);
  Play();
  std::filesystem::remove(file_);
  EXPECT_EQ(DueAfter(1s), Marks({1, 2}));
  EXPECT_EQ(FailureOf([&] { Play(); }), failure::FileNotFound);
  PcapFile().Add(0, 0, Marked(7)).Save(file_);
  Play();
  EXPECT_EQ(Due(1), Marks({7}));
}

}  // namespace
