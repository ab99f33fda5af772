#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "live/scenes/frame_reader.h"

namespace live {

/// A span that a reading must lie in.
struct Span {
  double Low = 0;
  double High = 0;
  /// Whether a text shows a number in the span, as far as its digits go.
  bool Holds(const std::string& text) const;
};

/// What may be shown of a channel, whichever frame a block begins with.
struct ChannelSpans {
  Span Rms;
  /// Against voltage A, in degrees; nothing where the beginning of the block turns it.
  std::optional<double> Angle;
};

/// One sender as it was heard on the wire, and what the program must make of it.
class BusUnit {
 public:
  static constexpr std::size_t BlockRows = 400;
  /// The neutral current counts seconds, which no block holds in one piece.
  static constexpr std::size_t Seconds = 3;

  explicit BusUnit(Frame first) : frames_{std::move(first)} {}

  bool IsOf(const Frame& frame) const;
  void Add(Frame frame) { frames_.push_back(std::move(frame)); }
  const std::vector<Frame>& Frames() const { return frames_; }
  /// Reads the frames as a program does that expects so many bytes of a frame.
  void Read(std::size_t expected);

  const std::string& Id() const { return id_; }
  FrameReader Reader() const { return {frames_[0], expected_}; }
  /// Where its samples stand; nothing where they are never located.
  const std::optional<SamplePlace>& Place() const { return place_; }
  /// Channels of which something is shown that does not change.
  std::vector<std::size_t> Channels() const;
  const std::array<ChannelSpans, 8>& Spans() const { return spans_; }
  /// The rows that the frames bring, one behind the other.
  const std::vector<Row>& Rows() const { return rows_; }
  /// Whether so many values of each channel stand in the frames in one piece.
  bool Brings(const std::array<std::vector<double>, 8>& block) const;

 private:
  void ReadSpans();
  bool BringsFrom(std::size_t begin, const std::array<std::vector<double>, 8>& block) const;

  std::vector<Frame> frames_;
  std::size_t expected_ = 0;
  std::string id_;
  std::optional<SamplePlace> place_;
  std::vector<Row> rows_;
  std::array<ChannelSpans, 8> spans_{};
};

}  // namespace live
