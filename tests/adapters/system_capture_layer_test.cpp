#include "adapters/system_capture_layer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "adapters/capture_file.h"
#include "adapters/hand_clock.h"
#include "adapters/steady_clock.h"
#include "platform/failure.h"

namespace {

using adapter_tests::Marked;
using adapter_tests::PcapFile;
using adapter_tests::PcapngFile;
using adapters::NetworkInterface;
using adapters::Reach;
using namespace std::chrono_literals;

class SystemCaptureLayer : public ::testing::Test {
 protected:
  std::vector<std::string> Adapters(bool good) {
    std::vector<std::string> descriptions;
    for (std::int32_t i = 1; i <= object_->AdapterCount(); ++i) {
      if (object_->Adapters(i).IsGood() == good) {
        descriptions.push_back(object_->Adapters(i).Description());
      }
    }
    return descriptions;
  }
  void Start(std::int32_t index) {
    platform::CaptureAdapter& adapter = object_->Adapters(index);
    object_->SetAdapter(adapter);
    adapter.Set("BPFilter", std::string("ether proto 0x88ba"));
    object_->Start();
  }

  using Texts = std::vector<std::string>;
  adapter_tests::ScratchFolder folder_;
  adapter_tests::HandClock clock_;
  std::vector<NetworkInterface> interfaces_;
  adapters::SystemCaptureLayer layer_{
      clock_, {folder_.Path / "captures", "/usr/bin/vornik"}, [this] { return interfaces_; }};
  std::unique_ptr<platform::CaptureObject> object_;
};

TEST_F(SystemCaptureLayer, ListsTheSimulatedBusWhereThereIsNothingElse) {
  object_ = layer_.NewCaptureObject();
  EXPECT_EQ(Adapters(true), Texts({"Simulated process bus (built in)"}));
  EXPECT_EQ(object_->AdapterCount(), 1);
  EXPECT_EQ(layer_.Advice(), "");
}

TEST_F(SystemCaptureLayer, ListsBusInterfacesFilesAndLastWhatCannotCapture) {
  const auto captures = folder_.Path / "captures";
  std::filesystem::create_directories(captures / "folder.pcap");
  PcapFile().Add(0, 0, Marked(1)).Save(captures / "b.pcap");
  PcapngFile().Add(0, Marked(1)).Save(captures / "a.PCAPNG");
  adapter_tests::FileBytes{"nonsense"}.Save(captures / "0.pcap");
  adapter_tests::FileBytes{"notes"}.Save(captures / "notes.txt");
  interfaces_ = {{"eth0", "eth0 (network interface)", Reach::NoRight},
                 {"eth1", "eth1 (network interface)", Reach::Ready},
                 {"eth2", "eth2 (network interface)", Reach::Down}};
  object_ = layer_.NewCaptureObject();
  EXPECT_EQ(Adapters(true), Texts({"Simulated process bus (built in)", "eth1 (network interface)",
                                   "a.PCAPNG (capture file)", "b.pcap (capture file)"}));
  EXPECT_EQ(Adapters(false), Texts({"eth0 (network interface), no right to capture",
                                    "eth2 (network interface), switched off",
                                    "0.pcap (capture file), cannot be played"}));
  for (std::int32_t i = 1; i <= 4; ++i) EXPECT_TRUE(object_->Adapters(i).IsGood()) << i;
}

TEST_F(SystemCaptureLayer, AdvisesOnInterfacesWithoutRight) {
  interfaces_ = {{"eth0", "eth0", Reach::NoRight},
                 {"eth1", "eth1", Reach::Down},
                 {"eth2", "eth2", Reach::NoRight}};
  object_ = layer_.NewCaptureObject();
  const std::string advice = layer_.Advice();
  EXPECT_NE(advice.find("eth0, eth2"), std::string::npos) << advice;
  EXPECT_EQ(advice.find("eth1"), std::string::npos) << advice;
  EXPECT_NE(advice.find("sudo setcap cap_net_raw,cap_net_admin+eip /usr/bin/vornik"),
            std::string::npos)
      << advice;
}

TEST_F(SystemCaptureLayer, BringsTheFramesOfTheBusToTheProgram) {
  object_ = layer_.NewCaptureObject();
  std::vector<bool> changes;
  layer_.Running = [&](bool running) { changes.push_back(running); };
  int frames = 0;
  object_->OnPacket = [&](const platform::CapturedFrame&) { ++frames; };
  EXPECT_FALSE(layer_.DeliverOne());
  Start(1);
  clock_.Time += 1s - 1ns;
  while (layer_.DeliverOne()) {
  }
  EXPECT_EQ(frames, 8000);
  object_->Stop();
  layer_.NewPacketCollection()->Clear();
  EXPECT_FALSE(layer_.DeliverOne());
  EXPECT_EQ(changes, std::vector<bool>({true, false}));
}

TEST_F(SystemCaptureLayer, KeepsTheWaitingFramesOfAStartThatCameBeforeTheClearing) {
  object_ = layer_.NewCaptureObject();
  Start(1);
  object_->Stop();
  object_->Start();
  clock_.Time += 1ms;
  layer_.NewPacketCollection()->Clear();
  int frames = 0;
  while (layer_.DeliverOne()) ++frames;
  EXPECT_EQ(frames, 2 * 5);
}

TEST_F(SystemCaptureLayer, PlaysACaptureFileOfItsFolder) {
  std::filesystem::create_directories(folder_.Path / "captures");
  PcapFile().Add(0, 0, Marked(7, 5)).Save(folder_.Path / "captures" / "bus.pcap");
  object_ = layer_.NewCaptureObject();
  int mark = 0;
  object_->OnPacket = [&](const platform::CapturedFrame& frame) { mark = frame.Bytes.back(); };
  Start(2);
  EXPECT_TRUE(layer_.DeliverOne());
  EXPECT_EQ(mark, 7);
}

TEST_F(SystemCaptureLayer, TellsOfAnInterfaceThatIsGone) {
  interfaces_ = {{"no-such-wire", "no-such-wire", Reach::Ready}};
  object_ = layer_.NewCaptureObject();
  for (int attempt = 0; attempt < 2; ++attempt) {
    try {
      Start(2);
      FAIL() << "started";
    } catch (const platform::Failure& failure) {
      EXPECT_NE(failure.Text().find("no-such-wire"), std::string::npos) << failure.Text();
      EXPECT_NE(failure.Text().find("Please"), std::string::npos) << failure.Text();
    }
    EXPECT_THROW(object_->Start(), platform::Failure);
  }
  EXPECT_FALSE(layer_.DeliverOne());
}

TEST_F(SystemCaptureLayer, DeliversForTheObjectMadeLastOnly) {
  object_ = layer_.NewCaptureObject();
  Start(1);
  object_ = layer_.NewCaptureObject();
  clock_.Time += 1s;
  EXPECT_FALSE(layer_.DeliverOne());
  object_.reset();
  EXPECT_FALSE(layer_.DeliverOne());
}

TEST_F(SystemCaptureLayer, MayGoBeforeItsCaptureObject) {
  auto layer = std::make_unique<adapters::SystemCaptureLayer>(
      clock_, adapters::CapturePaths{}, [] { return std::vector<NetworkInterface>(); });
  int changes = 0;
  layer->Running = [&](bool) { ++changes; };
  object_ = layer->NewCaptureObject();
  Start(1);
  layer.reset();
  object_->Stop();
  object_.reset();
  EXPECT_EQ(changes, 1);
}

TEST(SteadyClock, NeverGoesBack) {
  const adapters::SteadyClock clock;
  auto last = clock.Now();
  const auto end = last + 2ms;
  while (last < end) {
    const auto now = clock.Now();
    ASSERT_GE(now, last);
    last = now;
  }
}

}  // namespace
