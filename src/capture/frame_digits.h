#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "capture/packet_bytes.h"

namespace packetroutines {

/// A frame as one text of hexadecimal digits, two a byte, in which a tag is searched by its digits,
/// wherever these stand. All positions are 1-based places in that text. What is not found is at 0,
/// and what stands behind the end is empty; neither is a failure. The report and the log of a
/// recording read with it.
class FrameDigits {
 public:
  void Take(std::span<const std::uint8_t> bytes);
  /// All cells of a frame, the empty ones too.
  void Take(const PacketBytes& bytes);
  /// The digits at or behind a position.
  std::size_t Find(std::string_view digits, std::size_t from) const;
  /// The two digits at a position; fewer at the end of the text.
  std::string_view Pair(std::size_t position) const;
  /// The digits of `count` bytes from a 1-based byte on, pair by pair.
  std::string Pairs(std::size_t firstByte, std::size_t count) const;

  /// The field that tells how many ASDUs the frame holds: tag and length.
  std::size_t AsduCount() const { return Find("8001", 1); }
  /// The tag of the station ID, behind that field.
  std::size_t StationTag(std::size_t asduCount) const { return Find("80", asduCount + 2); }
  /// The station ID behind its tag, in the system's code page; a byte without a digit reads as 0.
  std::string StationId(std::size_t stationTag) const;
  /// As many bytes of it as stand there whole.
  std::string WholeStationId(std::size_t stationTag) const;

 private:
  /// It keeps its memory from frame to frame.
  std::string text_;
};

}  // namespace packetroutines
