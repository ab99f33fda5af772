#include "recorder/reading/frame_identity.h"

#include <gtest/gtest.h>

#include "support/failures.h"
#include "support/sv_frame.h"

namespace {

using packetroutines::FrameIdentity;
using packetroutines::PacketBytes;
using support::FrameBytes;

FrameIdentity Read(const FrameBytes& bytes) {
  PacketBytes frame;
  frame.Redim(static_cast<std::int16_t>(bytes.size()));
  frame.Copy(bytes);
  return ReadFrameIdentity(frame);
}

/// A frame of zeros with these bytes from a 0-based place on.
FrameBytes Frame(std::size_t place, const FrameBytes& bytes) {
  FrameBytes frame(120);
  std::copy(bytes.begin(), bytes.end(), frame.begin() + static_cast<std::ptrdiff_t>(place));
  return frame;
}

TEST(FrameIdentity, TakesTheReceiverFirstAndTheSenderBehindIt) {
  const FrameIdentity frame =
      Read(Frame(0, {1, 0x0C, 0xCD, 4, 0, 0xFF, 0, 0x50, 0xC2, 0x4F, 0x9A, 7}));
  EXPECT_EQ(frame.Receiver, "01:0C:CD:04:00:FF");
  EXPECT_EQ(frame.Sender, "00:50:C2:4F:9A:07");
}

TEST(FrameIdentity, FindsTheStationIdOfAUsualFrame) {
  EXPECT_EQ(Read(support::SvFrame("MU01").Bytes()).Id, "MU01");
  EXPECT_EQ(Read(support::SvFrame("A_very_long_station_ID_of_34_chars").Bytes()).Id,
            "A_very_long_station_ID_of_34_chars");
  EXPECT_EQ(Read(support::SvFrame("MU01").Tagged().Bytes()).Id, "MU01");
}

TEST(FrameIdentity, FindsTheIdAsTheFirstMarkBehindTheNumberOfAsdus) {
  EXPECT_EQ(Read(Frame(30, {0x80, 0x01, 0x01, 0xA2, 0x10, 0x80, 2, 'A', 'B'})).Id, "AB");
}

TEST(FrameIdentity, FindsMarksAcrossTwoBytes) {
  // The digits 80 01 across the bytes 08 00 10, then 80 2: a length of 0x24 digits behind "80".
  EXPECT_EQ(Read(Frame(30, {0x08, 0x00, 0x10, 0x08, 0x00, 0x24, 0x14, 0x20})).Id, "AB");
}

TEST(FrameIdentity, TakesAnIdOfNoLengthAsEmpty) {
  EXPECT_EQ(Read(Frame(30, {0x80, 0x01, 0x01, 0x80, 0, 'A'})).Id, "");
}

TEST(FrameIdentity, EndsTheIdWithTheHundredBytesThatItLooksAt) {
  EXPECT_EQ(Read(Frame(90, {0x80, 0x01, 0x01, 0x80, 20, 'A', 'B', 'C', 'D', 'E', 'F'})).Id,
            "ABCDE");
  EXPECT_EQ(Read(Frame(97, {0x80, 0x01, 0x80, 1, 'A'})).Id, "");
  // The mark across two bytes, with one digit of the length behind it.
  EXPECT_EQ(Read(Frame(95, {0x80, 0x01, 0x00, 0x18, 0x05})).Id, "");
}

TEST(FrameIdentity, FindsNoIdWithoutMarks) {
  EXPECT_EQ(Read(FrameBytes(120)).Id, "");
}

TEST(FrameIdentity, RefusesAFrameOfLessThanAHundredBytes) {
  EXPECT_EQ(support::FailureOf([] { Read(FrameBytes(100)); }), 0);
  EXPECT_EQ(support::FailureOf([] { Read(FrameBytes(99)); }),
            platform::failure::InvalidProcedureCall);
}

TEST(FrameIdentity, RefusesAFrameThatWasClearedAway) {
  PacketBytes frame;
  frame.Redim(120);
  frame.Copy(FrameBytes(120));
  frame.ClearText();
  EXPECT_EQ(support::FailureOf([&] { ReadFrameIdentity(frame); }),
            platform::failure::InvalidProcedureCall);
}

}  // namespace
