#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace live {

using Frame = std::vector<std::uint8_t>;

/// What the program must read from a frame, told a second time and in the plainest way: by searches
/// for digits and tags, which well-formed frames can mislead.
struct FrameReader {
  const Frame& Bytes;
  /// Bytes that the program expects of a frame.
  std::size_t Expected;

  /// The ID that the report and the finder read.
  std::string Id() const;
  /// The ID of the first ASDU by the structure of the frame.
  std::string SvId() const;
  /// The two digits behind the tag of the synchronisation.
  std::string Synchronisation() const;
  /// Six bytes from a position on, counted from 0.
  std::string Address(std::size_t from) const;
  /// The two bytes where the ethertype stands in a frame without a tag.
  std::string Ethertype() const;
};

/// Where the samples of a frame stand, counted from 0.
struct SamplePlace {
  std::size_t Count = 0;
  std::size_t Data = 0;
  std::size_t Channels = 0;
  friend bool operator==(const SamplePlace&, const SamplePlace&) = default;
};

/// The place that the scan for tags finds: the last one up to 64 bytes before the end.
std::optional<SamplePlace> PlaceOf(const Frame& frame, std::size_t expected);

/// What a frame brings to a row of a block.
struct Row {
  unsigned Count = 0;
  /// In A and kV. A four-channel stream leaves its voltages at 0.
  std::array<double, 8> Values{};
};

Row RowOf(const Frame& frame, const SamplePlace& place);

}  // namespace live
