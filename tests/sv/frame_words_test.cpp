// What is told of a frame, line by line.

#include "sv/frame_words.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "support/broken_bus.h"
#include "support/sv_frame.h"

namespace {

using support::FrameBytes;
using support::SvFrame;
using ::testing::Contains;
using ::testing::Not;
using ::testing::StartsWith;

/// The lines as "title: value"; a heading has no value.
std::vector<std::string> Told(const FrameBytes& bytes, std::size_t length = 0) {
  std::vector<std::string> told;
  const sv::Frame frame = sv::ReadFrame(bytes, length == 0 ? bytes.size() : length);
  for (const sv::WordLine& line : sv::FrameWords(frame)) {
    told.push_back(line.Value.empty() ? line.Title : line.Title + ": " + line.Value);
  }
  return told;
}

TEST(FrameWords, TellAWholeFrameInItsOrder) {
  const FrameBytes bytes = SvFrame("MU01").Channels(2).Count(4799).Raw(0, -5).Bytes();
  EXPECT_EQ(Told(bytes),
            (std::vector<std::string>{
                "Structure: whole", "Frame: " + std::to_string(bytes.size()) + " bytes",
                "Destination: 01:0C:CD:04:00:01", "Source: 02:00:00:00:00:07", "Ethertype: 0x88BA",
                "APPID: 0x4000", "Length: " + std::to_string(bytes.size() - 14) + " bytes",
                "Reserved 1: 0x0000", "Reserved 2: 0x0000", "Simulation: no", "noASDU: 1", "ASDU 1",
                "svID: MU01", "smpCnt: 4799", "confRev: 1",
                "smpSynch: 2, synchronised by a global area clock", "Value 1: -5, good",
                "Value 2: 0, good"}));
}

TEST(FrameWords, TellTagsSimulationAndTrailer) {
  std::vector<std::string> told = Told(SvFrame().Vlan(4, 1).Simulated().Bytes());
  EXPECT_THAT(told, Contains("VLAN tag: 0x8100, priority 4, VLAN 1"));
  EXPECT_THAT(told, Contains("Reserved 1: 0x8000"));
  EXPECT_THAT(told, Contains("Simulation: yes, these are not values in operation"));
  FrameBytes dropped = SvFrame().Vlan(7, 4095, 0x88A8).Vlan(0, 5).Bytes();
  dropped[14] |= 0x10;
  told = Told(dropped);
  EXPECT_THAT(told, Contains("Outer tag: 0x88A8, priority 7, drop eligible, VLAN 4095"));
  EXPECT_THAT(told, Contains("Inner tag: 0x8100, priority 0, VLAN 5"));
  const auto size = static_cast<std::uint8_t>(SvFrame().Bytes().size() - 14 + 6);
  told = Told(SvFrame().Trailer({0x12, 0x34, 0xA0, size, 0x88, 0xFB}).Bytes());
  EXPECT_THAT(told, Contains("PRP: LAN A, sequence 4660"));
  EXPECT_THAT(told, Contains("Behind the PDU: 6 bytes"));
}

TEST(FrameWords, TellOptionalFieldsAndTheMomentOfTheRefresh) {
  const std::vector<std::string> told =
      Told(SvFrame("MU01")
               .FieldBeforeCount({0x81, 2, 'D', 'S'})
               .FieldBehindSamples({0x84, 8, 0x65, 0x92, 0x00, 0x80, 0x80, 0,   0,    0xEA,
                                    0x86, 2, 0x0F, 0xA0, 0x88, 2,    0,    1,   0x89, 8,
                                    9,    8, 7,    6,    5,    4,    3,    0xA2})
               .Bytes());
  EXPECT_THAT(told, Contains("datset: DS"));
  EXPECT_THAT(told, Contains("refrTm: 2024-01-01 00:00:00.500000 UTC, leap seconds known, clock "
                             "failure, clock not synchronised, accuracy of 10 bits"));
  EXPECT_THAT(told, Contains("smpRate: 4000"));
  EXPECT_THAT(told, Contains("smpMod: 1, samples a second"));
  EXPECT_THAT(told, Contains("gmIdentity: 09080706050403A2"));
  EXPECT_THAT(Told(SvFrame().FieldBehindSamples({0x84, 8, 0, 0, 0, 0, 0, 0, 1, 0x1F}).Bytes()),
              Contains("refrTm: 1970-01-01 00:00:00.000000 UTC, accuracy not told"));
}

TEST(FrameWords, TellAnEmptyIdAsOne) {
  const FrameBytes bytes = SvFrame("").Bytes();
  const auto lines = sv::FrameWords(sv::ReadFrame(bytes, bytes.size()));
  EXPECT_THAT(lines, Contains(::testing::Field(&sv::WordLine::Title, "svID")));
}

TEST(FrameWords, TellEachAsdu) {
  const std::vector<std::string> told = Told(SvFrame("MU01").Asdus(8).Count(90).Bytes());
  for (int i = 0; i < 8; ++i) {
    EXPECT_THAT(told, Contains("ASDU " + std::to_string(i + 1)));
    EXPECT_THAT(told, Contains("smpCnt: " + std::to_string(90 + i)));
  }
  EXPECT_THAT(told, Contains("noASDU: 8"));
}

TEST(FrameWords, TellWhatIsBehindTheLastWholeValue) {
  FrameBytes bytes = SvFrame("MU01").Channels(1).Trailer({0xAB, 0xCD}).Bytes();
  // The samples and all that they stand in take the trailer in.
  bytes[17] += 2, bytes[23] += 2, bytes[28] += 2, bytes[30] += 2;
  bytes[bytes.size() - 2 - 8 - 1] += 2;
  EXPECT_THAT(Told(bytes), Contains("Behind the values: ABCD, no whole value"));
}

TEST(FrameWords, TellWhereTheStructureEndsAndWhatWasReadUntilThen) {
  const FrameBytes bytes = SvFrame("MU01").Bytes();
  std::vector<std::string> told = Told({bytes.begin(), bytes.begin() + 10});
  EXPECT_EQ(told, (std::vector<std::string>{
                      "Structure: ends at 0x000A: the frame ends within its addresses, tags or "
                      "ethertype",
                      "Frame: 10 bytes"}));

  FrameBytes other = bytes;
  other[13] = 0xB8;
  told = Told(other);
  EXPECT_EQ(told.front(),
            "Structure: ends at 0x000C: the ethertype is not that of sampled values, 0x88BA");
  EXPECT_EQ(told.back(), "Ethertype: 0x88B8");

  // A counter of a size that it cannot have: the ID stands in front of it.
  FrameBytes cut = bytes;
  cut[38] = 9;
  told = Told(cut);
  EXPECT_THAT(told.front(), StartsWith("Structure: ends at 0x0025: "));
  EXPECT_THAT(told, Contains("svID: MU01"));
  EXPECT_THAT(told, Not(Contains(StartsWith("smpCnt"))));

  FrameBytes counted = bytes;
  counted[26] = 2;
  told = Told(counted);
  EXPECT_THAT(told.front(), ::testing::EndsWith("another number of ASDUs than there are"));
  EXPECT_THAT(told, Contains("ASDU 1"));
  EXPECT_THAT(told, Not(Contains("ASDU 2")));
}

TEST(FrameWords, TellHowMuchOfALongFrameIsHere) {
  EXPECT_EQ(Told(SvFrame("MU01").Bytes(), 1500)[1],
            "Frame: 1500 bytes, of which the first " +
                std::to_string(SvFrame("MU01").Bytes().size()) + " are here");
}

TEST(FrameWords, TellTheQualityBitByBit) {
  EXPECT_EQ(sv::QualityWords(0), "good");
  EXPECT_EQ(sv::QualityWords(1), "invalid (0x00000001)");
  EXPECT_EQ(sv::QualityWords(2), "reserved validity (0x00000002)");
  EXPECT_EQ(sv::QualityWords(3), "questionable (0x00000003)");
  const std::vector<std::string> details{
      "overflow",        "outOfRange",   "badReference", "oscillatory",        "failure",
      "oldData",         "inconsistent", "inaccurate",   "source substituted", "test",
      "operatorBlocked", "derived",      "unknown bits"};
  for (std::size_t i = 0; i < details.size(); ++i) {
    EXPECT_THAT(sv::QualityWords(4U << i), StartsWith("good, " + details[i] + " (0x"));
  }
  EXPECT_EQ(sv::QualityWords(0x80000801), "invalid, test, unknown bits (0x80000801)");
}

TEST(FrameWords, TellTheSynchronisationInWords) {
  EXPECT_EQ(sv::SynchWords(0), "0, not synchronised");
  EXPECT_EQ(sv::SynchWords(1), "1, synchronised by a local area clock");
  EXPECT_EQ(sv::SynchWords(2), "2, synchronised by a global area clock");
  EXPECT_EQ(sv::SynchWords(4), "4, reserved");
  EXPECT_EQ(sv::SynchWords(5), "5, synchronised by the local area clock of this identity");
  EXPECT_EQ(sv::SynchWords(254), "254, synchronised by the local area clock of this identity");
  EXPECT_EQ(sv::SynchWords(255), "255, reserved");
}

TEST(FrameWords, DumpTheWholeFrame) {
  const FrameBytes bytes{0x01, 0x0C, ' ', '~', 0x7F, 0xFF, 0, 0, 0, 0, 0, 0, 0, 0, 0, 'A', 'B'};
  EXPECT_EQ(sv::DumpWords(bytes),
            (std::vector<std::string>{
                "0000  01 0C 20 7E 7F FF 00 00 00 00 00 00 00 00 00 41  .. ~...........A",
                "0010  42                                               B"}));
  EXPECT_TRUE(sv::DumpWords({}).empty());
  EXPECT_EQ(sv::DumpWords(FrameBytes(1500)).size(), 94U);
}

TEST(FrameWords, AreThereForFramesThatNobodySends) {
  support::Dice dice = support::FreshDice(17);
  support::BrokenBus bus(dice);
  for (int i = 0; i < 500; ++i) {
    for (const support::BrokenFrame& broken :
         {bus.Cut(), bus.Flipped(), bus.Overlong(), bus.Random()}) {
      const auto lines = sv::FrameWords(sv::ReadFrame(broken.Bytes, broken.Length));
      ASSERT_GE(lines.size(), 2U);
      ASSERT_EQ(sv::DumpWords(broken.Bytes).size(), (broken.Bytes.size() + 15) / 16);
    }
  }
}

}  // namespace
