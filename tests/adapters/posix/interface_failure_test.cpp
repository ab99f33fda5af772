// What a user is told of an interface that cannot be captured from.

#include <gtest/gtest.h>

#include "adapters/interfaces/network_interface.h"

namespace {

using adapters::InterfaceFailure;
using adapters::Reach;
namespace failure = platform::failure;

TEST(InterfaceFailures, NameTheInterfaceAndWhatHelps) {
  const auto text = [](Reach state) {
    return InterfaceFailure("eth0", state, "the driver is old", "Ask for it.").Text();
  };
  EXPECT_EQ(text(Reach::NoRight),
            "There is no right to capture from the network interface eth0. Ask for it.");
  EXPECT_EQ(text(Reach::Down),
            "The network interface eth0 is down. Please switch it on (on Linux: sudo ip link set "
            "eth0 up) and try again.");
  EXPECT_EQ(text(Reach::Missing),
            "The network interface eth0 is gone. Please connect it again, or choose another "
            "network adapter.");
  EXPECT_EQ(text(Reach::NotEthernet),
            "The network interface eth0 does not carry Ethernet frames. Please choose another "
            "network adapter.");
  EXPECT_EQ(text(Reach::Broken),
            "The network interface eth0 cannot be used: the driver is old. Please check it, or "
            "choose another network adapter.");
}

TEST(InterfaceFailures, AreOfTheRightOrOfTheDevice) {
  EXPECT_EQ(InterfaceFailure("eth0", Reach::NoRight, "", "").Number(), failure::PermissionDenied);
  for (const Reach state : {Reach::Down, Reach::Missing, Reach::NotEthernet, Reach::Broken}) {
    EXPECT_EQ(InterfaceFailure("eth0", state, "", "").Number(), failure::DeviceIo);
  }
}

}  // namespace
