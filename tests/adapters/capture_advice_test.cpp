#include "adapters/capture_advice.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using adapters::InterfaceKind;
using adapters::Reach;

class CaptureAdvice : public ::testing::Test {
 protected:
  void Find(const std::string& name, Reach state, InterfaceKind kind = InterfaceKind::Port,
            const std::string& words = "") {
    advice_.AddInterface({name, name, state, kind, words});
  }
  std::string Text() {
    return advice_.Text("To be given the right, ask.\nThen start the program again.");
  }

  adapters::CaptureAdvice advice_;
};

TEST_F(CaptureAdvice, IsEmptyWhereEverythingCanCapture) {
  EXPECT_EQ(Text(), "");
  Find("eth0", Reach::Ready);
  EXPECT_EQ(Text(), "");
}

TEST_F(CaptureAdvice, TellsHowToGetTheRight) {
  Find("eth0", Reach::NoRight);
  Find("lo", Reach::NoRight, InterfaceKind::Loopback);
  Find("eth1", Reach::Ready);
  EXPECT_EQ(Text(),
            "There is no right to capture from the network interfaces: eth0, lo.\n"
            "To be given the right, ask.\n"
            "Then start the program again.");
}

TEST_F(CaptureAdvice, AsksForTheNewStartOnce) {
  Find("eth0", Reach::NoRight);
  Find("eth1", Reach::Down);
  const std::string advice = Text();
  const std::string start = "start the program again.";
  EXPECT_EQ(advice.find(start), advice.size() - start.size()) << advice;
}

TEST_F(CaptureAdvice, TellsHowToSwitchAPortOnAlsoBesideOthersThatCapture) {
  Find("eth0", Reach::Ready);
  Find("eth1", Reach::Down);
  EXPECT_EQ(Text(),
            "The network interface eth1 is switched off. To switch it on, on Linux: sudo ip link "
            "set eth1 up\n"
            "Then start the program again.");
}

TEST_F(CaptureAdvice, NamesAFewInterfacesTogetherAndCountsTheRest) {
  for (const char* name : {"eth1", "eth2", "eth3", "eth4", "eth5", "eth6"}) {
    Find(name, Reach::Down);
  }
  EXPECT_EQ(Text(),
            "These network interfaces are switched off: eth1, eth2, eth3, eth4 and 2 more. To "
            "switch one on, on Linux: sudo ip link set eth1 up\n"
            "Then start the program again.");
  for (const char* name : {"a", "b", "c", "d", "e"}) Find(name, Reach::NoRight);
  EXPECT_NE(Text().find("interfaces: a, b, c, d and 1 more.\n"), std::string::npos) << Text();
}

TEST_F(CaptureAdvice, KeepsQuietAboutAVirtualInterfaceThatIsSwitchedOff) {
  Find("bridge0", Reach::Down, InterfaceKind::Other);
  Find("eth0", Reach::Ready);
  EXPECT_EQ(Text(), "");
}

TEST_F(CaptureAdvice, KeepsQuietAboutAVirtualInterfaceWhereAPortCanBeSwitchedOn) {
  Find("bridge0", Reach::Down, InterfaceKind::Other);
  Find("eth0", Reach::Down);
  EXPECT_EQ(Text().find("bridge0"), std::string::npos) << Text();
}

TEST_F(CaptureAdvice, NamesAVirtualInterfaceThatIsSwitchedOffWhereThereIsNothingElse) {
  Find("bridge0", Reach::Down, InterfaceKind::Other);
  Find("lo", Reach::Ready, InterfaceKind::Loopback);
  EXPECT_NE(Text().find("bridge0 is switched off"), std::string::npos) << Text();
}

TEST_F(CaptureAdvice, NeverSpeaksOfALoopThatIsSwitchedOff) {
  Find("lo", Reach::Down, InterfaceKind::Loopback);
  EXPECT_EQ(Text(), "");
}

TEST_F(CaptureAdvice, GivesEachTroubleItsLineUpToAFew) {
  Find("eth0", Reach::Broken, InterfaceKind::Port, "the driver is old");
  for (const char* name : {"a.pcap", "b.pcap", "c.pcap"}) {
    advice_.AddFile(std::string("/home/user/captures/") + name, "may not be read.");
  }
  const std::string four =
      "The network interface eth0 cannot be used: the driver is old. Please check it.\n"
      "The capture file a.pcap may not be read.\n"
      "The capture file b.pcap may not be read.\n"
      "The capture file c.pcap may not be read.\n";
  EXPECT_EQ(Text(), four + "Then start the program again.");
  advice_.AddFile("d.pcap", "may not be read.");
  advice_.AddFile("e.pcap", "may not be read.");
  EXPECT_EQ(Text(), four + "... and 2 more\nThen start the program again.");
}

}  // namespace
