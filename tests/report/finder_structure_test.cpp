// What the finder lists where a search finds another ID than the structure of a frame tells.

#include <gtest/gtest.h>

#include "report/finder_scene.h"

namespace {

using report_tests::Ids;
using support::FrameBytes;
using support::SvFrame;
using std::chrono_literals::operator""ms;

/// What the search finds behind a tag of priority 4 and VLAN 1.
constexpr const char* Misread = "\x01";

SvFrame Misleading(const std::string& id) {
  return SvFrame(id).Vlan(4, 1);
}

FrameBytes From(std::uint8_t sender, FrameBytes bytes) {
  bytes[11] = sender;
  return bytes;
}

class FinderByStructure : public report_tests::FinderScene {
 protected:
  void Sends(const FrameBytes& frame) {
    scene.Receive(frame);
    scene.Elapse(500ms);
  }
  /// The place of an ID in the list, or -1.
  int RowOf(const std::string& id) const {
    const Ids ids = Listed();
    const auto found = std::find(ids.begin(), ids.end(), id);
    return found == ids.end() ? -1 : static_cast<int>(found - ids.begin());
  }
};

TEST_F(FinderByStructure, ListsTheTrueIdBehindTheOneThatATagMisleadsTo) {
  Search([&] {
    Sends(Misleading("MU01").Bytes());
    EXPECT_EQ(Listed(), Ids({Misread, "MU01"}));
    EXPECT_EQ(Told(), "1 frame was looked at.");
    Sends(Misleading("MU01").Bytes());
    EXPECT_EQ(Listed(), Ids({Misread, "MU01"})) << "once";
  });
}

TEST_F(FinderByStructure, ListsWhatAFilterFinds) {
  Search([&] {
    Sends(Misleading("MU01").Bytes());
    look.List1.Turn(RowOf("MU01"), true);
  });
  EXPECT_EQ(Field(12), "MU01");
  scene.Select(forms::tab::Values);
  main.CWButton4.Value = true;
  for (int i = 0; i < 3; ++i) scene.Receive(Misleading("MU01").Bytes());
  EXPECT_TRUE(scene.State.OffsetsKnown[0]) << "the frames of the stream are taken";
}

TEST_F(FinderByStructure, ListsItWhereAnAddressMisleads) {
  Search([&] {
    Sends(SvFrame("MU01").Addresses({1, 12, 0xCD, 4, 0, 1, 2, 0, 0x80, 1, 0, 5}).Bytes());
    EXPECT_EQ(Listed(), Ids({Misread, "MU01"}));
  });
}

TEST_F(FinderByStructure, ListsEachOfTwoSendersBehindOneMisreadId) {
  Search([&] {
    Sends(From(1, Misleading("MU01").Bytes()));
    Sends(From(2, Misleading("MU02").Bytes()));
    EXPECT_EQ(Listed(), Ids({Misread, "MU01", "MU02"}));
  });
}

TEST_F(FinderByStructure, WouldLikeToMeetTheSecondOfThemToo) {
  Search([&] {
    const FrameBytes first = From(1, Misleading("MU01").Bytes());
    const FrameBytes second = From(2, Misleading("MU02").Bytes());
    Sends(first);
    EXPECT_EQ(scene.Capture.Wish({first, first.size()}), platform::Wanted::No);
    EXPECT_EQ(scene.Capture.Wish({second, second.size()}), platform::Wanted::Most);
    Sends(second);
    EXPECT_EQ(scene.Capture.Wish({second, second.size()}), platform::Wanted::No);
  });
}

TEST_F(FinderByStructure, ListsEachIdOfSeveralAsdus) {
  FrameBytes frame = SvFrame("MU01").Asdus(3).Bytes();
  // The last of three has an ID of its own.
  const std::string id = "MU01";
  *(std::find_end(frame.begin(), frame.end(), id.begin(), id.end()) + 3) = '9';
  scene.Select(forms::tab::Values);
  main.CWButton4.Value = true;
  scene.Receive(frame);
  scene.Select(forms::tab::Setup);
  Search([&] {
    Sends(frame);
    EXPECT_EQ(Listed(), Ids({"MU01", "MU09"}));
  });
}

TEST_F(FinderByStructure, ListsAnIdThatIsPartOfAnotherOnlyWhereTheSearchWasMisled) {
  Search([&] {
    Sends(SvFrame("MU01-A").Bytes());
    Sends(SvFrame("MU01").Bytes());
    EXPECT_EQ(Listed(), Ids({"MU01-A"}));
    Sends(Misleading("MU01").Bytes());
    EXPECT_EQ(Listed(), Ids({"MU01-A", Misread, "MU01"}));
  });
}

TEST_F(FinderByStructure, ListsASearchedIdOnceThatTheStructureHasToldBefore) {
  Search([&] {
    Sends(Misleading("MU01").Bytes());
    Sends(SvFrame("MU01").Bytes());
    EXPECT_EQ(Listed(), Ids({Misread, "MU01"}));
  });
}

TEST_F(FinderByStructure, ListsNoEmptyId) {
  Search([&] {
    Sends(Misleading("").Bytes());
    EXPECT_EQ(Listed(), Ids({Misread}));
  });
}

TEST_F(FinderByStructure, TellsCharactersOfTheCodePage) {
  Search([&] {
    Sends(Misleading("M\xDC\x30").Bytes());
    EXPECT_EQ(Listed(), Ids({Misread, "MÜ0"}));
  });
}

TEST_F(FinderByStructure, CountsTheSendersWithoutOne) {
  Search([&] {
    FrameBytes cut = SvFrame("MU01").Bytes();
    cut[22] = 0x61;
    Sends(From(1, cut));
    EXPECT_EQ(Told(),
              "1 frame was looked at. 1 sender sends what is no sampled value by its structure: "
              "there is no savPdu (tag 60).");
    Sends(From(1, cut));
    cut[17] = 0xFF;
    EXPECT_EQ(scene.Capture.Wish({cut, cut.size()}), platform::Wanted::Most)
        << "another address, though the ID was met";
    Sends(From(2, cut));
    EXPECT_EQ(scene.Capture.Wish({From(2, cut), cut.size()}), platform::Wanted::No);
    Sends(SvFrame("MU02").Bytes());
    EXPECT_EQ(Told(),
              "4 frames were looked at. 2 senders send what is no sampled value by its structure: "
              "the length does not fit the frame.");
    EXPECT_EQ(Listed(), Ids({"MU01", "MU02"})) << "what the search finds is listed";
  });
  Search([&] { EXPECT_EQ(Told(), "No frame was looked at yet."); });
}

}  // namespace
