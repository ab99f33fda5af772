#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "sv/fault.h"
#include "sv/octets.h"

namespace sv {

using Address = std::array<std::uint8_t, 6>;
/// Destination, source and ethertype of a frame without tags.
inline constexpr std::size_t HeadOctets = 14;

/// A tag of IEEE 802.1Q.
struct VlanTag {
  /// 8100, or 88A8 for the outer one of two.
  std::uint16_t Type = 0;
  std::uint16_t Control = 0;

  /// 0 to 7.
  std::uint8_t Priority() const { return static_cast<std::uint8_t>(Control >> 13U); }
  bool DropEligible() const { return (Control & 0x1000U) != 0; }
  std::uint16_t Vlan() const { return Control & 0x0FFFU; }
};

/// The trailer of the parallel redundancy protocol (IEC 62439-3).
struct PrpTrailer {
  std::uint16_t Sequence = 0;
  /// 'A' or 'B'.
  char Lan = 'A';
};

/// A frame of sampled values by its structure (Ethernet, IEC 61850-9-2, IEC 61869-9), down to the
/// sequence of its ASDUs, which `AsduReader` goes through. Each step stays within the frame; what
/// was read before a fault stands. It looks into the bytes that it was read from and copies none of
/// them.
struct Frame {
  Octets Bytes;
  /// Bytes on the wire, at least those that are here.
  std::size_t Length = 0;

  Address Destination{};
  Address Source{};
  std::array<VlanTag, 2> Tags{};
  std::size_t TagCount = 0;
  std::uint16_t Ethertype = 0;

  std::uint16_t AppId = 0;
  /// Octets from the AppID to the end of the PDU, as the frame tells.
  std::uint16_t PduLength = 0;
  std::uint16_t Reserved1 = 0;
  std::uint16_t Reserved2 = 0;
  /// The sender is a simulation, and no subscriber in operation may take its values.
  bool Simulated() const { return (Reserved1 & 0x8000U) != 0; }

  /// noASDU: how many ASDUs there are to be.
  std::uint32_t AsduCount = 0;
  /// Octets of the field security, where there is one.
  std::optional<std::size_t> Security;
  /// Where the sequence of ASDUs begins, and where it ends; both 0 where there is none.
  std::size_t AsdusAt = 0;
  std::size_t AsdusEnd = 0;
  /// Where its tag stands, with the length behind it.
  std::size_t AsdusTagAt = 0;

  /// Octets behind the PDU: padding, a trailer.
  std::size_t Behind = 0;
  std::optional<PrpTrailer> Prp;

  Fault Why = Fault::None;
  /// The place from 0 at which the fault lies.
  std::size_t FaultAt = 0;
};

/// Reads a frame from the first byte of its destination address. `length` is that on the wire.
Frame ReadFrame(Octets bytes, std::size_t length);

}  // namespace sv
