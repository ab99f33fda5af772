#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/stream_format.h"

namespace adapters {

/// Who sends a stream of sampled values, and under which name.
struct SvStreamIdentity {
  std::string SvId;
  std::array<std::uint8_t, 6> Destination{};
  std::array<std::uint8_t, 6> Source{};
};

/// The eight values of a sample: currents A, B, C, N in mA, then voltages A, B, C, N in 10 mV.
using SvSample = std::array<std::int32_t, platform::channels::Count>;

/// Writes the frames of one stream of sampled values as a merging unit sends them.
/// The frame is laid out once; each sample then only changes the bytes that differ.
class SvFrameWriter {
 public:
  explicit SvFrameWriter(const SvStreamIdentity& identity);

  void Write(std::uint16_t sampleCount, const SvSample& sample);
  std::span<const std::uint8_t> Frame() const { return frame_; }

 private:
  std::vector<std::uint8_t> frame_;
  std::size_t countAt_ = 0;
  std::size_t dataAt_ = 0;
};

}  // namespace adapters
