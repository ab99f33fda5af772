#pragma once

#include <optional>
#include <string>
#include <vector>

#include "console/bus/stream_figures.h"
#include "platform/services/code_page.h"

namespace console {

/// What may be watched for in the seconds of a stream.
enum class AlarmKind {
  /// Samples are missing.
  Loss,
  /// smpSynch tells of no synchronisation, or has changed.
  Synch,
  /// A stream that had come did not come for a second.
  Silence
};

/// The first alarm that a stream raises in the second that is over, in words; nothing where it
/// raises none.
std::optional<std::string> AlarmOf(const StreamFigures& stream,
                                   const std::vector<AlarmKind>& watched,
                                   const platform::CodePage& code);

}  // namespace console
