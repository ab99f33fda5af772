#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "sv/frame.h"

namespace sv {

/// One ASDU of a frame: samples of one moment, and what belongs to them. Fields that the sender
/// left out are absent. All looks into the bytes of the frame.
struct Asdu {
  /// The station ID, in the sender's own octets.
  std::string_view SvId;
  std::optional<std::string_view> Datset;
  std::optional<std::uint16_t> SmpCnt;
  std::optional<std::uint32_t> ConfRev;
  /// UtcTime of eight octets; empty where there is none.
  Octets RefrTm;
  /// 0 not synchronised, 1 by a local area clock, 2 by a global one, 5 to 254 the identity of a
  /// local area clock.
  std::optional<std::uint8_t> SmpSynch;
  std::optional<std::uint16_t> SmpRate;
  /// 0 samples a nominal period, 1 samples a second, 2 seconds a sample.
  std::optional<std::uint16_t> SmpMod;
  /// The identity of the grandmaster clock (IEC 61869-9); empty where there is none.
  Octets GmIdentity;
  /// Values of four octets with a quality word of four octets behind each.
  Octets Samples;

  /// Places in the frame, from 0, of what the field holds; 0 where it is absent.
  std::size_t SmpCntAt = 0;
  std::size_t SmpSynchAt = 0;
  std::size_t SamplesAt = 0;

  /// Octets behind the last whole channel belong to none.
  std::size_t Channels() const { return Samples.size() / 8; }
  std::int32_t Value(std::size_t channel) const;
  /// The quality word (IEC 61850-7-3); 0 is good.
  std::uint32_t Quality(std::size_t channel) const;
};

/// Goes through the ASDUs of a frame, one after the other, as long as their structure can be read.
class AsduReader {
 public:
  /// The frame is looked into as long as the reader is used.
  explicit AsduReader(const Frame& frame) : frame_(frame), at_(frame.AsdusAt) {}

  /// Reads the next one; False behind the last, and behind a fault, whose ASDU holds what was read.
  bool Next(Asdu& asdu);
  /// ASDUs that were read whole.
  std::uint32_t Count() const { return count_; }
  Fault Why() const { return why_; }
  /// The place of the fault in the frame, from 0.
  std::size_t FaultAt() const { return faultAt_; }

 private:
  bool Fail(Fault fault, std::size_t at);
  bool ReadFields(Asdu& asdu, std::size_t at, std::size_t end);
  bool Complete(const Asdu& asdu, std::size_t at);

  const Frame& frame_;
  std::size_t at_;
  std::uint32_t count_ = 0;
  Fault why_ = Fault::None;
  std::size_t faultAt_ = 0;
};

}  // namespace sv
