#pragma once

#include <cstdint>

namespace sv {

/// Where the structure of a frame ends before the frame does, or is not what the standards give.
enum class Fault : std::uint8_t {
  None,
  /// The frame ends within its addresses, tags or ethertype.
  HeadCut,
  /// The ethertype is none of sampled values.
  OtherEthertype,
  /// The frame ends within AppID, length and reserved words.
  PduHeadCut,
  /// The length field tells of more than the frame holds, or of less than its own head.
  PduCut,
  /// An element is longer than what it stands in, or its length has no end.
  ElementCut,
  /// A tag of several octets, which no field of sampled values has.
  LongTag,
  /// There is no savPdu, tag 60.
  NoSavPdu,
  /// There is no noASDU, tag 80.
  NoAsduCount,
  /// There is no sequence of ASDUs, tag A2.
  NoAsduSequence,
  /// What stands in the sequence is no ASDU, tag 30.
  NoAsdu,
  /// There are more or fewer ASDUs than noASDU tells.
  OtherAsduCount,
  /// A field has another size than the standards give.
  FieldSize,
  NoSvId,
  NoSmpCnt,
  NoSamples
};

/// The fault in words, without a point; empty where there is none.
const char* Words(Fault fault);

}  // namespace sv
