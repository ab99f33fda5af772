#pragma once

#include <cstdint>
#include <string>

#include "base/local_time.h"
#include "recorder/writing/record_context.h"

namespace packetroutines {

/// Writes recordings as pairs of ASCII files in the manner of IEEE C37.111-1999: a data file with a
/// line a sample, and a configuration file that tells what the fields are. The configuration is
/// begun with the first ring and ended by the stop of the recording.
class ComtradeWriter {
 public:
  explicit ComtradeWriter(const RecordContext& context) : context_(context) {}

  /// Writes the ring of a stream, 0 or 1, in front of the first one the configuration. The lines of
  /// the second stream show the ring of the first one, in numbers without fixed decimals.
  void Write(std::size_t stream);
  /// Appends the last lines of the configuration: rate, start and form of the data.
  void FinishComtradeConfig();
  /// The file that `FinishComtradeConfig` ends. It has no prefix, so beside two streams it is a
  /// third one.
  std::string ConfigPath() const;

 private:
  std::string PathOf(const std::string& prefix, const std::string& extension) const;
  void BeginConfig(std::size_t stream);
  void WriteFile(const std::string& lines);
  void AppendLine(std::size_t stream, std::int64_t number, std::int16_t cell);

  RecordContext context_;
  /// The lines of a ring; it keeps its room from ring to ring.
  std::string lines_;
};

}  // namespace packetroutines
