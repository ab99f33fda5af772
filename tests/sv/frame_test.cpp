// Frames of all standard forms, read by their structure, and what is told of those that have none.

#include "sv/frame.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/broken_bus.h"
#include "support/sv_frame.h"
#include "sv/asdu.h"

namespace {

using support::FrameBytes;
using support::SvFrame;
using sv::Asdu;
using sv::AsduReader;
using sv::Fault;
using sv::Frame;

Frame Read(const FrameBytes& bytes) {
  return sv::ReadFrame(bytes, bytes.size());
}

/// The first fault of the frame or of its ASDUs.
Fault FaultOf(const FrameBytes& bytes) {
  const Frame frame = Read(bytes);
  AsduReader reader(frame);
  Asdu asdu;
  while (reader.Next(asdu)) {
  }
  return reader.Why();
}

Asdu FirstOf(const Frame& frame) {
  AsduReader reader(frame);
  Asdu asdu;
  EXPECT_TRUE(reader.Next(asdu)) << sv::Words(reader.Why());
  return asdu;
}

/// The place behind the first occurrence of some octets.
std::size_t Behind(const FrameBytes& bytes, const std::vector<std::uint8_t>& octets) {
  const auto found = std::search(bytes.begin(), bytes.end(), octets.begin(), octets.end());
  EXPECT_NE(found, bytes.end());
  return static_cast<std::size_t>(found - bytes.begin()) + octets.size();
}

FrameBytes Changed(FrameBytes bytes, std::size_t at, std::uint8_t octet) {
  bytes.at(at) = octet;
  return bytes;
}

TEST(FrameStructure, TellsTheHeadOfAFrame) {
  const FrameBytes bytes = SvFrame("MU01").Simulated().Bytes();
  const Frame frame = Read(bytes);
  EXPECT_EQ(frame.Why, Fault::None);
  EXPECT_EQ(frame.Destination, (sv::Address{0x01, 0x0C, 0xCD, 0x04, 0x00, 0x01}));
  EXPECT_EQ(frame.Source, (sv::Address{0x02, 0, 0, 0, 0, 7}));
  EXPECT_EQ(frame.TagCount, 0U);
  EXPECT_EQ(frame.Ethertype, 0x88BA);
  EXPECT_EQ(frame.AppId, 0x4000);
  EXPECT_EQ(frame.PduLength, bytes.size() - 14);
  EXPECT_TRUE(frame.Simulated());
  EXPECT_EQ(frame.AsduCount, 1U);
  EXPECT_EQ(frame.Behind, 0U);
  EXPECT_FALSE(frame.Prp);
  EXPECT_FALSE(frame.Security);
  EXPECT_FALSE(Read(SvFrame().Bytes()).Simulated());
}

TEST(FrameStructure, TellsOneTagAndTwo) {
  const FrameBytes single = SvFrame().Vlan(4, 1).Bytes();
  const Frame one = Read(single);
  ASSERT_EQ(one.TagCount, 1U);
  EXPECT_EQ(one.Tags[0].Type, 0x8100);
  EXPECT_EQ(one.Tags[0].Priority(), 4);
  EXPECT_EQ(one.Tags[0].Vlan(), 1);
  EXPECT_EQ(one.Ethertype, 0x88BA);
  EXPECT_EQ(one.AppId, 0x4000);

  const FrameBytes doubled = SvFrame("MU01").Vlan(7, 4095, 0x88A8).Vlan(0, 5).Bytes();
  const Frame two = Read(doubled);
  ASSERT_EQ(two.TagCount, 2U);
  EXPECT_EQ(two.Tags[0].Vlan(), 4095);
  EXPECT_EQ(two.Tags[0].Priority(), 7);
  EXPECT_EQ(two.Tags[1].Vlan(), 5);
  EXPECT_EQ(FirstOf(two).SvId, "MU01");
}

TEST(FrameStructure, IsNotMisledByATagThatSpellsTheCountOfAsdus) {
  // Priority 4 and VLAN 1 are 80 01, what the digits are searched for.
  const FrameBytes bytes = SvFrame("MU01").Vlan(4, 1).Bytes();
  EXPECT_EQ(FirstOf(Read(bytes)).SvId, "MU01");
}

TEST(FrameStructure, TellsEachFieldOfAnAsdu) {
  const FrameBytes bytes =
      SvFrame("MU01")
          .Count(4799)
          .Raw(3, -5)
          .Quality(3, 0x801)
          .Synch(5)
          .FieldBeforeCount({0x81, 2, 'D', 'S'})
          .FieldBehindSamples({0x84, 8, 1, 2, 3,    4, 5, 6, 7, 8, 0x86, 2, 0x12, 0xC0,
                               0x88, 2, 0, 1, 0x89, 8, 9, 8, 7, 6, 5,    4, 3,    2})
          .Bytes();
  const Frame frame = Read(bytes);
  const Asdu asdu = FirstOf(frame);
  EXPECT_EQ(asdu.SvId, "MU01");
  EXPECT_EQ(asdu.Datset, "DS");
  EXPECT_EQ(asdu.SmpCnt, 4799);
  EXPECT_EQ(asdu.ConfRev, 1U);
  EXPECT_EQ(asdu.SmpSynch, 5);
  EXPECT_EQ(asdu.RefrTm.size(), 8U);
  EXPECT_EQ(asdu.SmpRate, 4800);
  EXPECT_EQ(asdu.SmpMod, 1);
  EXPECT_EQ(asdu.GmIdentity.size(), 8U);
  ASSERT_EQ(asdu.Channels(), 8U);
  EXPECT_EQ(asdu.Value(3), -5);
  EXPECT_EQ(asdu.Quality(3), 0x801U);
  EXPECT_EQ(asdu.Quality(2), 0U);
  EXPECT_EQ(bytes[asdu.SmpCntAt], 4799 >> 8);
  EXPECT_EQ(bytes[asdu.SmpSynchAt], 5);
  EXPECT_EQ(bytes[asdu.SamplesAt - 2], 0x87);
}

TEST(FrameStructure, TellsHowLongASignatureBehindTheAsdusIs) {
  FrameBytes bytes = SvFrame("MU01").Channels(2).Bytes();
  bytes.insert(bytes.end(), {0x81, 3, 7, 8, 9});
  // The length of the PDU, and that of the savPdu behind its head.
  for (const std::size_t length : {17, 23}) bytes.at(length) += 5;
  const Frame frame = Read(bytes);
  EXPECT_EQ(frame.Why, Fault::None);
  EXPECT_EQ(frame.Security, 3U);
  EXPECT_EQ(FirstOf(frame).SvId, "MU01");
}

TEST(FrameStructure, LeavesOutWhatTheSenderLeavesOut) {
  const FrameBytes bytes = SvFrame("").Bytes();
  const Frame frame = Read(bytes);
  const Asdu asdu = FirstOf(frame);
  EXPECT_EQ(asdu.SvId, "");
  EXPECT_FALSE(asdu.Datset || asdu.SmpRate || asdu.SmpMod);
  EXPECT_TRUE(asdu.RefrTm.empty() && asdu.GmIdentity.empty());
}

TEST(FrameStructure, TellsEachAsduOfAFrame) {
  for (const std::size_t count : {1U, 2U, 6U, 8U}) {
    const FrameBytes bytes = SvFrame("MU01").Asdus(count).Count(90).Bytes();
    const Frame frame = Read(bytes);
    AsduReader reader(frame);
    Asdu asdu;
    for (std::size_t i = 0; i < count; ++i) {
      ASSERT_TRUE(reader.Next(asdu));
      EXPECT_EQ(asdu.SmpCnt, 90 + i);
    }
    EXPECT_FALSE(reader.Next(asdu));
    EXPECT_EQ(reader.Why(), Fault::None);
    EXPECT_EQ(reader.Count(), frame.AsduCount);
  }
}

TEST(FrameStructure, TellsTheTrailerOfParallelRedundancy) {
  const std::size_t plain = SvFrame().Bytes().size();
  const auto size = static_cast<std::uint16_t>(plain - 14 + 6);
  const std::vector<std::uint8_t> trailer{0x12,
                                          0x34,
                                          static_cast<std::uint8_t>(0xB0 | size >> 8),
                                          static_cast<std::uint8_t>(size & 0xFF),
                                          0x88,
                                          0xFB};
  const FrameBytes bytes = SvFrame().Trailer(trailer).Bytes();
  const Frame frame = Read(bytes);
  ASSERT_TRUE(frame.Prp);
  EXPECT_EQ(frame.Prp->Sequence, 0x1234);
  EXPECT_EQ(frame.Prp->Lan, 'B');
  EXPECT_EQ(frame.Behind, 6U);
  EXPECT_EQ(FaultOf(bytes), Fault::None);

  // The size must be that of the frame, or it is no trailer.
  EXPECT_FALSE(Read(Changed(bytes, bytes.size() - 3, 0)).Prp);
  EXPECT_FALSE(Read(Changed(bytes, bytes.size() - 4, 0xC0)).Prp);
  EXPECT_FALSE(Read(Changed(bytes, bytes.size() - 1, 0xFA)).Prp);
}

TEST(FrameStructure, TakesAFrameThatIsLongerOnTheWireThanHere) {
  const FrameBytes bytes = SvFrame().Bytes();
  const Frame frame = sv::ReadFrame(bytes, bytes.size() + 1000);
  EXPECT_EQ(frame.Why, Fault::None);
  EXPECT_EQ(frame.Behind, 1000U);
}

TEST(FrameStructure, PassesOverFieldsThatItDoesNotKnow) {
  EXPECT_EQ(FaultOf(SvFrame().FieldBehindSamples({0x8A, 1, 7}).Bytes()), Fault::None);
}

TEST(FrameStructure, TakesShortNumbersAndRefusesLongOnes) {
  const FrameBytes sound = SvFrame().FieldBehindSamples({0x86, 1, 80}).Bytes();
  EXPECT_EQ(FirstOf(Read(sound)).SmpRate, 80);
  EXPECT_EQ(FaultOf(SvFrame().FieldBehindSamples({0x86, 3, 0, 0, 80}).Bytes()), Fault::FieldSize);
  EXPECT_EQ(FaultOf(SvFrame().FieldBehindSamples({0x86, 0}).Bytes()), Fault::FieldSize);
  EXPECT_EQ(FaultOf(SvFrame().FieldBehindSamples({0x84, 2, 0, 0}).Bytes()), Fault::FieldSize);
}

TEST(FrameStructure, TellsWhereEachKindOfFaultLies) {
  const FrameBytes bytes = SvFrame("MU01").Bytes();
  EXPECT_EQ(Read({bytes.begin(), bytes.begin() + 13}).Why, Fault::HeadCut);
  EXPECT_EQ(Read({bytes.begin(), bytes.begin() + 20}).Why, Fault::PduHeadCut);
  const FrameBytes tagged = SvFrame().Tagged().Bytes();
  EXPECT_EQ(Read({tagged.begin(), tagged.begin() + 17}).Why, Fault::HeadCut);
  EXPECT_EQ(Read(Changed(bytes, 13, 0xB8)).Why, Fault::OtherEthertype);
  EXPECT_EQ(Read(Changed(bytes, 13, 0xB8)).FaultAt, 12U);
  EXPECT_EQ(Read(Changed(bytes, 17, 0xFF)).Why, Fault::PduCut);
  EXPECT_EQ(Read(Changed(bytes, 17, 7)).Why, Fault::PduCut);
  EXPECT_EQ(Read(Changed(bytes, 22, 0x61)).Why, Fault::NoSavPdu);
  EXPECT_EQ(Read(Changed(bytes, 22, 0x7F)).Why, Fault::LongTag);
  EXPECT_EQ(Read(Changed(bytes, 23, 0x7F)).Why, Fault::ElementCut);
  EXPECT_EQ(Read(Changed(bytes, 23, 0x80)).Why, Fault::ElementCut);
  const std::size_t count = Behind(bytes, {0x80, 1, 1}) - 3;
  EXPECT_EQ(Read(Changed(bytes, count, 0x8A)).Why, Fault::NoAsduCount);
  EXPECT_EQ(FaultOf(Changed(bytes, count + 2, 2)), Fault::OtherAsduCount);
  // A number of no bytes, behind which the next element would begin a byte earlier.
  const Frame uncounted = Read(Changed(bytes, count + 1, 0));
  EXPECT_EQ(uncounted.Why, Fault::FieldSize);
  EXPECT_EQ(uncounted.FaultAt, count);
  EXPECT_EQ(Read(Changed(bytes, count + 3, 0xA3)).Why, Fault::NoAsduSequence);
  const std::size_t id = Behind(bytes, {0x80, 4, 'M'}) - 3;
  EXPECT_EQ(FaultOf(Changed(bytes, id - 2, 0x31)), Fault::NoAsdu);
  EXPECT_EQ(FaultOf(Changed(bytes, id, 0x8A)), Fault::NoSvId);
  const std::size_t counter = Behind(bytes, {0x82, 2});
  EXPECT_EQ(FaultOf(Changed(bytes, counter - 2, 0x8A)), Fault::NoSmpCnt);
  const std::size_t samples = Behind(bytes, {0x87, 64});
  EXPECT_EQ(FaultOf(Changed(bytes, samples - 2, 0x8A)), Fault::NoSamples);
  EXPECT_EQ(FaultOf(Changed(bytes, samples - 1, 65)), Fault::ElementCut);
}

TEST(FrameStructure, TellsOfNoAsduThatIsBroken) {
  const FrameBytes bytes = SvFrame("MU01").Bytes();
  const FrameBytes broken = Changed(bytes, Behind(bytes, {0x82, 2}) - 2, 0x8A);
  const Frame frame = Read(broken);
  AsduReader reader(frame);
  Asdu asdu;
  EXPECT_FALSE(reader.Next(asdu));
  EXPECT_EQ(reader.Count(), 0U);
}

TEST(FrameStructure, StaysWithinFramesThatNobodySends) {
  support::Dice dice = support::FreshDice(16);
  support::BrokenBus bus(dice);
  int sound = 0;
  std::uint32_t quality = 0;
  for (int i = 0; i < 20'000; ++i) {
    for (const support::BrokenFrame& broken :
         {bus.Cut(), bus.Flipped(), bus.Overlong(), bus.Random()}) {
      const Frame frame = sv::ReadFrame(broken.Bytes, broken.Length);
      AsduReader reader(frame);
      Asdu asdu;
      while (reader.Next(asdu)) {
        for (std::size_t k = 0; k < asdu.Channels(); ++k) quality |= asdu.Quality(k);
      }
      if (reader.Why() == Fault::None) ++sound;
      ASSERT_LE(reader.FaultAt(), broken.Bytes.size());
    }
  }
  // Frames with noise behind their end are sound, and so are some with turned bits.
  EXPECT_GT(sound, 10'000);
  // The turned bits reach the quality words too.
  EXPECT_NE(quality, 0U);
}

}  // namespace
