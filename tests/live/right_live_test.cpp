#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "base/failure.h"
#include "live/network_interface_scene.h"
#include "live/right_scene.h"
#include "support/failures.h"
#include "support/real_files.h"
#include "system/posix/child_process.h"

namespace {

/// The program of a user who may capture, with the near end of a wire.
class RightToCapture : public live::NetworkInterfaceScene {
 protected:
  static void SetUpTestSuite() { live::RightScene::Begin(); }
  static void TearDownTestSuite() { live::RightScene::End(); }

  void SetUp() override {
    const std::string reason = live::RightScene::WhyNot();
    if (!reason.empty()) GTEST_SKIP() << reason;
  }
  void TearDown() override {}

  static std::string Present(const std::string& set) {
    return live::Told("/proc/self/status", set);
  }
  static void ExpectInReserve() {
    EXPECT_EQ(Present("CapPrm"), live::RightToRawSockets);
    for (const char* set : {"CapEff", "CapInh", "CapAmb"}) {
      EXPECT_EQ(Present(set), live::NoRight) << set;
    }
  }
  static bool WaitFor(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(8);
    while (!condition() && std::chrono::steady_clock::now() < end) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return condition();
  }
  /// Whether a frame that is sent comes in.
  bool Hears() {
    source_.Start();
    const adapters::RaisedRight toSend;
    return SentUntilOneArrives(live::Numbered(1)) > 0;
  }
};

TEST_F(RightToCapture, IsRaisedWhileAnInterfaceIsOpened) {
  ExpectInReserve();
  source_.Prepare(Settings());
  ExpectInReserve();
  EXPECT_TRUE(Hears());
}

TEST_F(RightToCapture, IsInReserveAgainWhereAnInterfaceCannotBeOpened) {
  adapters::PcapSource missing("vornik-none", "");
  EXPECT_EQ(support::FailureOf([&] { missing.Prepare(Settings()); }), platform::failure::DeviceIo);
  ExpectInReserve();
}

TEST_F(RightToCapture, TellsWhatCanBeListenedTo) {
  const auto found = adapters::ListNetworkInterfaces();
  const auto near = std::find_if(found.begin(), found.end(),
                                 [](const auto& each) { return each.Name == live::NearEnd; });
  ASSERT_NE(near, found.end());
  EXPECT_EQ(near->State, adapters::Reach::Ready);
  ExpectInReserve();
}

TEST_F(RightToCapture, BringsAnInterfaceBackThatWentAwayWhileItWasHeard) {
  source_.Prepare(Settings());
  ASSERT_TRUE(Hears());
  live::RightScene::Do("ip link delete " + live::NearEnd);
  ASSERT_TRUE(WaitFor([this] {
    source_.Next();
    return source_.Presence() == platform::Presence::Gone;
  }));
  // Its far end is up first, so that it is ready to send once the near end is there.
  live::RightScene::Do("ip link add " + live::NearEnd + " type veth peer name " + live::FarEnd +
                       "; ip link set " + live::FarEnd + " up; ip link set " + live::NearEnd +
                       " up");
  ASSERT_TRUE(WaitFor([this] { return source_.Presence() == platform::Presence::There; }));
  EXPECT_TRUE(Hears());
  ExpectInReserve();
}

TEST_F(RightToCapture, StaysRaisedWhereItWasBefore) {
  const adapters::RaisedRight right;
  source_.Prepare(Settings());
  EXPECT_EQ(Present("CapEff"), live::RightToRawSockets);
}

TEST_F(RightToCapture, LeavesNoSocketToAChildThatALibraryStarts) {
  source_.Prepare(Settings());
  const std::string open = live::Run("ls -l /proc/self/fd");
  EXPECT_EQ(open.find("socket:"), std::string::npos) << open;
}

TEST_F(RightToCapture, IsNeitherLeftToAChildNorIsWhatIsOpen) {
  const support::TemporaryFolder folder;
  const std::string told = folder.File("told");
  source_.Prepare(Settings());
  // As libraries open their files.
  const std::unique_ptr<FILE, int (*)(FILE*)> file(
      std::fopen(folder.File("opened.pcap").c_str(), "w"), std::fclose);
  ASSERT_TRUE(file);
  ASSERT_TRUE(host::ChildProcess::Start("sh", {"-c", live::ConfessingScript(told)}));
  ASSERT_TRUE(WaitFor([&] { return std::filesystem::exists(told); }));
  live::ExpectInnocent(told);
}

}  // namespace
