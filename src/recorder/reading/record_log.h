#pragma once

#include <cstdint>

#include "base/failure.h"
#include "base/trap.h"
#include "capture/packet_bytes.h"
#include "platform/controls/progress_bar.h"
#include "recorder/reading/gap_search.h"
#include "recorder/reading/reading_context.h"

namespace packetroutines {

/// Reads a text recording back after its stop and writes how many samples were lost, and the
/// longest stretch without a gap, to a small file beside it.
///
/// The file is read twice, once to count its lines and once for the ramp. No value of the ramp is
/// kept, since each is done with when its line is; so the memory does not grow with the recording,
/// and a box about a lack of it tells of the piece that is being read.
class RecordLog {
 public:
  /// `frame` is the frame that came last.
  RecordLog(const ReadingContext& context, const PacketBytes& frame, platform::ProgressBar& bar)
      : context_(context), frame_(frame), bar_(bar) {}

  /// `nothingToRead` becomes True where the recording has no line; then no log is written.
  void BuildRecordLog(bool& nothingToRead);
  /// Writes the log of a file whose lines were followed while they were written. A log that cannot
  /// be written whole is taken away, and the failure leaves through here.
  void WriteLog(const GapSearch& followed);

 private:
  std::int32_t CountLines();
  void Analyse(std::int32_t lines);
  void WriteLog(const GapSearch& gaps, const LongestRun& run);
  platform::Verdict OnCountFailure(const platform::Failure& failure);
  platform::Verdict OnFailure(const platform::Failure& failure);

  ReadingContext context_;
  const PacketBytes& frame_;
  platform::ProgressBar& bar_;
};

}  // namespace packetroutines
