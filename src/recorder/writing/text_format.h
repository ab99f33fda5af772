#pragma once

#include <cstdint>
#include <string>

#include "recorder/writing/sample_format.h"

namespace packetroutines {

inline constexpr FormatFacts TextFacts{"TXT", ".txt", Sequel::LogAndQuickView};

/// A text file a stream: one line a sample, without a heading, of a counter, the sample counter of
/// the frame, and the eight values in the units of the moment. A file is open for no longer than
/// its ring is written.
class TextFormat : public SampleFormat {
 public:
  explicit TextFormat(const WritingContext& context) : SampleFormat(TextFacts, context) {}

  bool Write(std::size_t stream) override;
  /// The next recording counts the lines of its first stream from 0.
  void Rewind() override { textBlockIndex_ = 0; }

 private:
  std::int64_t FirstLine(std::size_t stream) const;
  void AppendLine(std::size_t stream, std::int64_t line, std::int16_t cell);

  /// Full rings in the text file of the first stream.
  std::int64_t textBlockIndex_ = 0;
  /// The lines of a ring; it keeps its room from ring to ring.
  std::string lines_;
};

}  // namespace packetroutines
