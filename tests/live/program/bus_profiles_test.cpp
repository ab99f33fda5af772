// Buses as they are: each profile goes through the finder, the report, the four live views and a
// recording of the real window.

#include "live/scenes/bus_scene.h"

namespace desktop {
namespace {

using BusProfile = BusScene;

TEST_F(BusProfile, SevenSendersLockedToOneClock) {
  Play("locked", 7, "--spacing 5");
  GoThroughAllViews("BAY-01", "BAY-05");
}

TEST_F(BusProfile, SendersOfSixtyHertz) {
  Play("locked60", 4);
  GoThroughAllViews("BAY-04", "BAY-02");
}

TEST_F(BusProfile, TagsOfAllKinds) {
  Play("tags", 12);
  // The digits of priority 4 in VLAN 1 are those that the search for the ID begins with.
  EXPECT_EQ(Unit("\x01").Reader().Ethertype(), "0x8100");
  EXPECT_EQ(Unit("").Reader().Ethertype(), "0x8100");
  GoThroughAllViews("BAY-02", "BAY-08");
}

TEST_F(BusProfile, SendersBehindATagThatMisleadsTheSearch) {
  Play("tags", 12);
  FindAndShow("BAY-01", "LINE-BAY-06");
}

TEST_F(BusProfile, AddressesOfAllNibbles) {
  Play("addresses", 8);
  // So are those of some addresses.
  EXPECT_EQ(Unit("\x01").Reader().Address(6), "02:18:00:1A:00:06");
  Unit("");
  GoThroughAllViews("BAY-02", "BAY-08");
}

TEST_F(BusProfile, SendersBehindAnAddressThatMisleadsTheSearch) {
  Play("addresses", 8);
  FindAndShow("LINE-BAY-05", "BAY-03");
}

TEST_F(BusProfile, IdsOfAllLengths) {
  Play("ids", 7);
  const std::string padded("MU-PADDED\0\0\0", 12);
  GoThroughAllViews(padded, "MU-LINE\n");
  TypeStations("UNIT-OF-THE-LAST-A", "UNIT-OF-THE-LAST-B");
  ShowValues("UNIT-OF-THE-LAST-A", "UNIT-OF-THE-LAST-B");
}

TEST_F(BusProfile, EveryFrameTwiceAndSomeSwapped) {
  Play("doubled", 2);
  GoThroughAllViews("BAY-01", "BAY-02");
}

TEST_F(BusProfile, OptionalFields) {
  Play("optional", 5);
  GoThroughAllViews("BAY-05", "BAY-04");
}

TEST_F(BusProfile, SeveralAsdusOfWhichTheLastIsRead) {
  Play("asdus", 4);
  GoThroughAllViews("BAY-02", "BAY-01");
  TypeStations("BAY-03", "BAY-04");
  ShowValues("BAY-03", "BAY-04");
}

TEST_F(BusProfile, ChannelsOfAllCounts) {
  Play("channels", 4);
  EXPECT_FALSE(Unit("BAY-04").Place()) << "twenty channels are never located";
  TypeStations("BAY-04", "");
  ClickTab(forms::tab::Values);
  Press("CWButton4");
  EXPECT_TRUE(WaitFor([this] {
    return WaitingLine().find("could not be located") != std::string::npos;
  })) << Readings();
  Press("CWButton4");

  TypeStations("BAY-01", "");
  ClickTab(forms::tab::Values);
  Press("CWButton4");
  EXPECT_TRUE(WaitForReadings(Unit("BAY-01"))) << Readings();
  EXPECT_EQ(Number(4), 0) << "four channels have no voltages";
  Press("CWButton4");

  ClickTab(forms::tab::Setup);
  GoThroughAllViews("BAY-03", "BAY-02");
}

TEST_F(BusProfile, OtherProtocolsBesideTheSamples) {
  Play("mixed", 2);
  GoThroughAllViews("BAY-01", "BAY-02");
}

}  // namespace
}  // namespace desktop
