// A capture file that is played once, for a program that is told by name where its frames come
// from.

#include <gmock/gmock.h>

#include <chrono>
#include <memory>
#include <vector>

#include "adapters/capture_file.h"
#include "adapters/hand_clock.h"
#include "adapters/system_bus_taps.h"
#include "base/failure.h"
#include "support/failures.h"

namespace {

using adapter_tests::Marked;
using adapter_tests::PcapFile;
using support::FailureOf;
using testing::ElementsAre;
using testing::IsEmpty;
using std::chrono_literals::operator""ms;
using std::chrono_literals::operator""s;
using std::chrono_literals::operator""us;
namespace property = platform::adapter_property;

class PlayedPlace : public ::testing::Test {
 protected:
  PlayedPlace() {
    PcapFile().Add(5, 0, Marked(1)).Add(5, 250, Marked(2)).Add(7, 500, Marked(3)).Save(file_);
  }
  /// Opens the file and begins to deliver, as a program does that listens.
  void Listen(platform::TapPace pace) {
    capture_ = places_.OpenCapture(file_.string(), pace);
    object_ = capture_->Layer().NewCaptureObject();
    object_->OnPacket = [this](const platform::CapturedFrame& frame) {
      marks_.push_back(frame.Bytes.back());
      arrived_.push_back(frame.Arrived);
    };
    object_->SetAdapter(object_->Adapters(1));
    object_->Adapter().Set(property::Filter, std::string("ether proto 0x88ba"));
    object_->Start();
  }
  void DeliverDue() {
    while (capture_->Frames().DeliverOne()) {
    }
  }

  adapter_tests::ScratchFolder folder_;
  std::filesystem::path file_ = folder_.Path / "bus.pcap";
  adapter_tests::HandClock clock_;
  adapters::SystemBusTaps places_{
      clock_, {folder_.Path, {}}, [] { return std::vector<adapters::NetworkInterface>(); }};
  std::unique_ptr<platform::NamedCapture> capture_;
  std::unique_ptr<platform::CaptureObject> object_;
  std::vector<int> marks_;
  std::vector<std::chrono::microseconds> arrived_;
};

TEST_F(PlayedPlace, PlaysAFileOnceAtItsPace) {
  Listen(platform::TapPace::AsRecorded);
  EXPECT_FALSE(capture_->Pass(1s)) << "the computer's time passes by itself";
  DeliverDue();
  for (const auto time : {20ms, 1980ms}) {
    clock_.Time += time;
    DeliverDue();
  }
  EXPECT_THAT(marks_, ElementsAre(1, 2));
  EXPECT_FALSE(capture_->Ended());
  clock_.Time += 500us;
  DeliverDue();
  EXPECT_THAT(marks_, ElementsAre(1, 2, 3));
  EXPECT_TRUE(capture_->Ended());
  clock_.Time += 10s;
  DeliverDue();
  EXPECT_THAT(marks_, ElementsAre(1, 2, 3)) << "not over and over";
  EXPECT_THAT(capture_->Trouble(), IsEmpty());
}

TEST_F(PlayedPlace, ReadsAFileByATimeOfItsOwn) {
  Listen(platform::TapPace::AsFastAsRead);
  EXPECT_EQ(capture_->Time().WallTime(), 5s) << "the file's";
  for (int i = 0; i < 3000 && !capture_->Ended(); ++i) {
    DeliverDue();
    EXPECT_TRUE(capture_->Pass(1ms));
  }
  EXPECT_TRUE(capture_->Ended());
  EXPECT_THAT(marks_, ElementsAre(1, 2, 3));
  EXPECT_THAT(arrived_, ElementsAre(5s, 5s + 250us, 7s + 500us));
  EXPECT_GE(capture_->Time().WallTime(), 7s);
}

TEST_F(PlayedPlace, GoesOnBehindAStopWithTheFramesThatAreLeft) {
  Listen(platform::TapPace::AsFastAsRead);
  DeliverDue();
  capture_->Pass(20ms);
  DeliverDue();
  object_->Stop();
  capture_->Pass(60s);
  object_->Start();
  DeliverDue();
  EXPECT_THAT(marks_, ElementsAre(1, 2, 3));
}

TEST_F(PlayedPlace, TellsOfADamagedFile) {
  PcapFile().Add(5, 0, Marked(1)).AddNonsense().Save(file_);
  Listen(platform::TapPace::AsFastAsRead);
  for (int i = 0; i < 30; ++i) {
    DeliverDue();
    capture_->Pass(1ms);
  }
  EXPECT_THAT(marks_, ElementsAre(1));
  EXPECT_TRUE(capture_->Ended());
  EXPECT_THAT(capture_->Trouble(), testing::HasSubstr("is damaged behind frame 1: "));
  EXPECT_THAT(capture_->Trouble(), testing::HasSubstr("The frames up to there were played."));
}

TEST_F(PlayedPlace, CallsEachPlaceAsTheWindowDoes) {
  Listen(platform::TapPace::AsFastAsRead);
  EXPECT_EQ(object_->AdapterCount(), 1);
  EXPECT_EQ(object_->Adapter().Description(), "bus.pcap (capture file)");
  const auto simulated = places_.OpenCapture("simulated", platform::TapPace::AsFastAsRead);
  EXPECT_EQ(simulated->Layer().NewCaptureObject()->Adapters(1).Description(),
            "Simulated process bus (built in)");
  EXPECT_FALSE(simulated->Ends());
  EXPECT_FALSE(simulated->Pass(1s)) << "a bus is no faster than its time";
}

TEST_F(PlayedPlace, TellsWhyNothingCanBeCaptured) {
  for (const char* name : {"away.pcap", "no-such-interface"}) {
    const auto open = [&] { places_.OpenCapture(name, platform::TapPace::AsRecorded); };
    EXPECT_NE(FailureOf(open), 0) << name;
  }
}

}  // namespace
