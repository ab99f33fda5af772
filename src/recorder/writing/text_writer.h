#pragma once

#include <cstdint>
#include <string>

#include "recorder/writing/record_context.h"

namespace packetroutines {

/// Writes a full ring to the text file of its stream: one line a sample, without a heading, of a
/// counter, the sample counter of the frame, and the eight values in the units of the moment.
class TextWriter {
 public:
  explicit TextWriter(const RecordContext& context) : context_(context) {}

  /// Writes the ring of a stream, 0 or 1; the file is open for no longer than that.
  void Write(std::size_t stream);
  /// The next ring of the first stream counts its lines from 0.
  void Rewind() { textBlockIndex_ = 0; }

 private:
  std::int64_t FirstLine(std::size_t stream) const;
  void AppendLine(std::size_t stream, std::int64_t line, std::int16_t cell);

  RecordContext context_;
  /// Full rings in the text file of the first stream.
  std::int64_t textBlockIndex_ = 0;
  /// The lines of a ring; it keeps its room from ring to ring.
  std::string lines_;
};

}  // namespace packetroutines
