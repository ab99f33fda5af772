#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "adapters/steady_clock.h"
#include "adapters/system_capture_layer.h"
#include "adapters/wire_filter.h"
#include "base/failure.h"
#include "live/network_interface_scene.h"
#include "live/right_scene.h"
#include "live/wire.h"
#include "support/failures.h"

namespace {

using live::NetworkInterfaceScene;
using live::Numbered;
using live::RecordingBuffer;
using platform::Failure;
using platform::Presence;
using support::FailureOf;
using support::RaisedBy;
namespace failure = platform::failure;

TEST_F(NetworkInterfaceScene, ListsTheWireAsAnAdapterThatCanCaptureAndNoPseudoDevice) {
  bool found = false;
  for (const adapters::NetworkInterface& entry : adapters::ListNetworkInterfaces()) {
    EXPECT_NE(entry.Name, "any");
    EXPECT_NE(entry.Name, "nflog");
    EXPECT_NE(entry.Name, "dbus-system");
    if (entry.Name == live::NearEnd) found = entry.State == adapters::Reach::Ready;
  }
  EXPECT_TRUE(found);
}

TEST_F(NetworkInterfaceScene, ListsAnInterfaceWhoseNameOnlyBeginsLikeAPseudoDevice) {
  live::Run("ip link add anybus0 type veth peer name nflog-bus; ip link set anybus0 up");
  std::set<std::string> names;
  for (const auto& entry : adapters::ListNetworkInterfaces()) names.insert(entry.Name);
  live::Run("ip link delete anybus0");
  EXPECT_TRUE(names.contains("anybus0"));
  EXPECT_TRUE(names.contains("nflog-bus"));
}

TEST_F(NetworkInterfaceScene, SaysWhatItIsBehindANameWithoutADescription) {
  std::map<std::string, std::string> titles;
  for (const auto& entry : adapters::ListNetworkInterfaces()) titles[entry.Name] = entry.Title;
  EXPECT_EQ(titles.at(live::NearEnd), live::NearEnd + " (network interface)");
}

TEST_F(NetworkInterfaceScene, TellsAVirtualInterfaceAndTheLoopFromAPort) {
  std::map<std::string, adapters::InterfaceKind> kinds;
  for (const auto& entry : adapters::ListNetworkInterfaces()) kinds[entry.Name] = entry.Kind;
  EXPECT_EQ(kinds.at(live::NearEnd), adapters::InterfaceKind::Other);
  EXPECT_EQ(kinds.at("lo"), adapters::InterfaceKind::Loopback);
}

TEST_F(NetworkInterfaceScene, ListsAnInterfaceThatIsSwitchedOffAsOneThatCannotCapture) {
  live::Run("ip link set " + live::NearEnd + " down");
  bool found = false;
  for (const adapters::NetworkInterface& entry : adapters::ListNetworkInterfaces()) {
    if (entry.Name == live::NearEnd) found = entry.State == adapters::Reach::Down;
  }
  EXPECT_TRUE(found);
}

TEST_F(NetworkInterfaceScene, LeavesOutWhatCarriesNoEthernet) {
  if (std::system("ip tuntap add mode tun tunnel0 2>/dev/null") != 0) {
    GTEST_SKIP() << "this system makes no tunnels";
  }
  live::Run("ip tuntap add mode tap bridge0; ip link set tunnel0 up; ip link set bridge0 up");
  std::set<std::string> names;
  for (const auto& entry : adapters::ListNetworkInterfaces()) names.insert(entry.Name);
  live::Run("ip link delete tunnel0; ip link delete bridge0");
  EXPECT_FALSE(names.contains("tunnel0"));
  EXPECT_TRUE(names.contains("bridge0"));
}

TEST_F(NetworkInterfaceScene, HandsOverTaggedAndUntaggedFramesAsTheyWereSent) {
  source_.Prepare(Settings());
  source_.Start();
  live::Sender sender;
  sender.Send(Numbered(1));
  sender.Send(Numbered(2, 132, 5));
  sender.Send(std::vector<std::uint8_t>(60, 0x11));
  const auto frames = ReadAll();
  ASSERT_EQ(frames.size(), 2U);
  EXPECT_EQ(frames[0], Numbered(1));
  EXPECT_EQ(frames[1], Numbered(2, 132, 5));
}

TEST_F(NetworkInterfaceScene, SelectsByTheVlanOfTheUsersFilter) {
  live::Sender sender;
  const std::map<std::string, std::size_t> selected{{" and vlan", 2},
                                                    {" and vlan 5", 1},
                                                    {" and not vlan", 1},
                                                    {" and less 128", 2},
                                                    {" and ether src 02:00:00:00:00:08", 0}};
  for (const auto& [text, count] : selected) {
    source_.Prepare(Settings(text));
    source_.Start();
    sender.Send(Numbered(1));
    sender.Send(Numbered(2, 132, 5));
    sender.Send(Numbered(3, 140, 6));
    EXPECT_EQ(ReadAll().size(), count) << text;
    source_.Stop();
  }
}

TEST_F(NetworkInterfaceScene, SelectsWhatTheFilterOfFilesSelects) {
  live::Sender sender;
  std::vector<std::vector<std::uint8_t>> sent{Numbered(1),         Numbered(2, 132, 5),
                                              Numbered(3, 300, 6), Numbered(4, 132, 0),
                                              Numbered(5, 132, 8), Numbered(6, 136, 5)};
  const std::vector<std::uint8_t> innerTag{0x81, 0x00, 0x00, 0x06};
  sent.back().insert(sent.back().begin() + 16, innerTag.begin(), innerTag.end());
  for (const std::string text :
       {"", " and vlan", " and vlan 5", " and not vlan 5", " and (vlan 5 or vlan 6)",
        " and not vlan", " and vlan 0", " and vlan 010", " and vlan( 5 )",
        " and ether[14:2]=0x4000", " and less 200", " and less 128", " and greater 129",
        " and vlan and ether[18]=2", " or (vlan 5 and ether[12:2]=0x8100)",
        " or (vlan and vlan 6)"}) {
    adapters::WireFilter filter(Settings(text).Filter);
    std::vector<std::vector<std::uint8_t>> selected;
    for (const auto& frame : sent) {
      if (filter.Selects(frame, frame.size())) selected.push_back(frame);
    }
    source_.Prepare(Settings(text));
    source_.Start();
    for (const auto& frame : sent) sender.Send(frame);
    EXPECT_EQ(ReadAll(), selected) << text;
  }
}

TEST_F(NetworkInterfaceScene, RefusesAFilterAtTheStartOnly) {
  source_.Prepare(Settings(" nonsense"));
  EXPECT_EQ(FailureOf([&] { source_.Start(); }), failure::FilterRefused);
  source_.Prepare(Settings());
  EXPECT_EQ(FailureOf([&] { source_.Start(); }), 0);
}

TEST_F(NetworkInterfaceScene, DeliversOnlyWhatCameAfterARestart) {
  live::Sender sender;
  source_.Prepare(Settings());
  source_.Start();
  for (std::uint32_t i = 0; i < 100; ++i) sender.Send(Numbered(i));
  source_.Stop();
  for (std::uint32_t i = 100; i < 5000; ++i) sender.Send(Numbered(i));
  EXPECT_FALSE(source_.Next());
  source_.Start();
  sender.Send(Numbered(7777));
  const auto frames = ReadAll();
  ASSERT_EQ(frames.size(), 1U);
  EXPECT_EQ(frames[0], Numbered(7777));
  EXPECT_EQ(source_.Counters().Dropped, 0U);
}

// A heap that is still being filled at the stop comes behind the next start.
TEST_F(NetworkInterfaceScene, DeliversOnlyWhatCameAfterARestartWhereFramesComeInHeaps) {
  live::Sender sender;
  adapters::SourceSettings settings = Settings();
  settings.InHeaps = true;
  source_.Prepare(settings);
  source_.Start();
  sender.Send(Numbered(1));
  source_.Stop();
  sender.Send(Numbered(2));
  source_.Start();
  sender.Send(Numbered(3));
  const auto frames = ReadAll();
  ASSERT_EQ(frames.size(), 1U);
  EXPECT_EQ(frames[0], Numbered(3));
}

TEST_F(NetworkInterfaceScene, TakesAnotherFilterAndBufferOnTheNextPreparation) {
  live::Sender sender;
  source_.Prepare(Settings(" and vlan 5"));
  source_.Start();
  sender.Send(Numbered(1));
  EXPECT_EQ(ReadAll().size(), 0U);
  source_.Prepare(Settings("", RecordingBuffer));
  source_.Start();
  sender.Send(Numbered(2));
  EXPECT_EQ(ReadAll().size(), 1U);
}

TEST_F(NetworkInterfaceScene, GoesQuietWhenItsInterfaceIsTakenAwayAndWorksAgainWhenItIsBack) {
  source_.Prepare(Settings());
  source_.Start();
  live::CutWire();
  EXPECT_EQ(ReadAll().size(), 0U);
  source_.Stop();
  EXPECT_EQ(FailureOf([&] { source_.Start(); }), 0);
  EXPECT_EQ(ReadAll().size(), 0U);

  const Failure gone = RaisedBy([&] { source_.Prepare(Settings()); });
  EXPECT_EQ(gone.Number(), failure::DeviceIo);
  EXPECT_NE(gone.Text().find(live::NearEnd), std::string::npos) << gone.Text();
  EXPECT_EQ(FailureOf([&] { source_.Start(); }), 0);
  EXPECT_EQ(ReadAll().size(), 0U);
  source_.Stop();

  live::LayWire();
  source_.Prepare(Settings());
  source_.Start();
  live::Sender().Send(Numbered(1));
  EXPECT_EQ(ReadAll().size(), 1U);
}

TEST_F(NetworkInterfaceScene, GoesOnWithADeliveryWhoseInterfaceWasAwayForAWhile) {
  for (const std::int32_t buffer : {live::ViewBuffer, RecordingBuffer}) {
    source_.Prepare(Settings("", buffer));
    source_.Start();
    live::Sender().Send(Numbered(1));
    EXPECT_EQ(ReadAll().size(), 1U);
    EXPECT_EQ(source_.Presence(), Presence::There);
    live::CutWire();
    EXPECT_EQ(ReadAll().size(), 0U);
    EXPECT_EQ(source_.Presence(), Presence::Gone);
    live::LayWire();
    EXPECT_EQ(source_.Presence(), Presence::There);
    EXPECT_GT(SentUntilOneArrives(Numbered(2)), 0U) << buffer;
    source_.Stop();
    live::Sender().Send(Numbered(3));
    EXPECT_EQ(ReadAll().size(), 0U);
  }
}

TEST_F(NetworkInterfaceScene, GoesOnWithItsOwnFilterWhenItsInterfaceIsBack) {
  source_.Prepare(Settings(" and vlan 5"));
  source_.Start();
  live::CutWire();
  EXPECT_EQ(ReadAll().size(), 0U);
  live::LayWire();
  live::Sender sender;
  std::vector<std::vector<std::uint8_t>> frames;
  for (std::uint32_t i = 0; i < 100 && frames.empty(); ++i) {
    sender.Send(Numbered(1));
    sender.Send(Numbered(2, 132, 5));
    frames = ReadAll();
  }
  ASSERT_EQ(frames.size(), 1U);
  EXPECT_EQ(frames[0], Numbered(2, 132, 5));
}

TEST_F(NetworkInterfaceScene, GoesOnWithADeliveryWhoseInterfaceWasSwitchedOffForAWhile) {
  source_.Prepare(Settings());
  source_.Start();
  live::Run("ip link set " + live::NearEnd + " down");
  EXPECT_EQ(ReadAll().size(), 0U);
  EXPECT_EQ(source_.Presence(), Presence::SwitchedOff);
  live::Run("ip link set " + live::NearEnd + " up");
  EXPECT_EQ(source_.Presence(), Presence::There);
  EXPECT_GT(SentUntilOneArrives(Numbered(1)), 0U);
}

TEST_F(NetworkInterfaceScene, BeginsItsNextDeliveryWhereItsInterfaceWasSwitchedOffInARest) {
  source_.Prepare(Settings());
  source_.Start();
  live::Sender().Send(Numbered(1));
  EXPECT_EQ(ReadAll().size(), 1U);
  source_.Stop();
  live::Run("ip link set " + live::NearEnd + " down");
  EXPECT_EQ(FailureOf([&] { source_.Start(); }), 0) << "no filter was refused";
  EXPECT_EQ(ReadAll().size(), 0U);
  source_.Stop();
  EXPECT_EQ(FailureOf([&] { source_.Start(); }), 0);
  live::Run("ip link set " + live::NearEnd + " up");
  EXPECT_GT(SentUntilOneArrives(Numbered(2)), 0U);
}

TEST_F(NetworkInterfaceScene, BeginsItsNextDeliveryWhereItsInterfaceIsBackAlready) {
  source_.Prepare(Settings());
  source_.Start();
  source_.Stop();
  live::Run("ip link set " + live::NearEnd + " down; ip link set " + live::NearEnd + " up");
  EXPECT_EQ(FailureOf([&] { source_.Start(); }), 0) << "no filter was refused";
  EXPECT_GT(SentUntilOneArrives(Numbered(1)), 0U);
}

TEST_F(NetworkInterfaceScene, ReopensAnInterfaceThatWasReplacedWhileStopped) {
  source_.Prepare(Settings());
  live::CutWire();
  live::LayWire();
  source_.Prepare(Settings());
  source_.Start();
  live::Sender().Send(Numbered(1));
  EXPECT_EQ(ReadAll().size(), 1U);
}

TEST_F(NetworkInterfaceScene, TellsThatItsInterfaceIsDownAndGoesOnWhenItIsUp) {
  source_.Prepare(Settings());
  source_.Start();
  live::Run("ip link set " + live::NearEnd + " down");
  EXPECT_EQ(ReadAll().size(), 0U);
  const Failure down = RaisedBy([&] { source_.Prepare(Settings()); });
  EXPECT_EQ(down.Number(), failure::DeviceIo);
  EXPECT_NE(down.Text().find("is down"), std::string::npos) << down.Text();
  live::Run("ip link set " + live::NearEnd + " up");
  source_.Prepare(Settings());
  source_.Start();
  live::Sender().Send(Numbered(1));
  EXPECT_EQ(ReadAll().size(), 1U);
}

TEST_F(NetworkInterfaceScene, TellsHowToGetTheRightToCapture) {
  const adapters::SteadyClock clock;
  adapters::SystemCaptureLayer layer(clock, {"", live::RightAdvice});
  std::unique_ptr<platform::CaptureObject> object;
  std::optional<Failure> refused;
  std::int32_t start = failure::ObjectNotSet;
  live::WithoutRights([&] {
    object = layer.NewCaptureObject();
    refused = RaisedBy([&] { source_.Prepare(Settings()); });
    start = FailureOf([&] { source_.Start(); });
  });
  const Failure& refusal = *refused;
  EXPECT_EQ(refusal.Number(), failure::PermissionDenied);
  EXPECT_EQ(start, 0);
  for (const std::string& text : {refusal.Text(), layer.Advice()}) {
    EXPECT_NE(text.find(live::RightAdvice), std::string::npos);
  }
  EXPECT_NE(layer.Advice().find(live::NearEnd), std::string::npos);
  for (std::int32_t i = 1; i <= object->AdapterCount(); ++i) {
    const std::string entry = object->Adapters(i).Description();
    // Without rights a pseudo device is known by its name only.
    for (const char* pseudo : {"(any)", "(nflog)", "(nfqueue)"}) {
      EXPECT_EQ(entry.find(pseudo), std::string::npos) << entry;
    }
  }
  EXPECT_TRUE(object->Adapters(1).IsGood());
  EXPECT_FALSE(object->Adapters(object->AdapterCount()).IsGood());
}

}  // namespace
