#pragma once

#include <string>

#include "base/plug.h"
#include "capture/acquisition_state.h"
#include "capture/record_rings.h"
#include "config/settings.h"
#include "recorder/writing/disk_report.h"
#include "recorder/writing/file_numbers.h"
#include "recorder/writing/record_names.h"
#include "recorder/writing/recorder_services.h"
#include "recorder/writing/recording_end.h"

namespace packetroutines {

/// What every format works with: the settings and counters that its lines show, the rings that it
/// empties, the files that it writes, and who is told of them.
struct WritingContext {
  const config::Settings& Settings;
  const config::RunSettings& Present;
  const AcquisitionState& State;
  const RecordRings& Rings;
  RecorderServices Services;
  FileNumbers& Open;
  DiskReport& Report;
  const platform::Plug<RecordingEnd>& End;
};

/// The file that the samples of a stream, 0 or 1, go to.
inline std::string RecordPath(const WritingContext& context, std::size_t stream) {
  return RecordPath(context.Services.Files, context.Settings,
                    RecordPrefix(stream, context.Present) + context.State.RecordFileName);
}

}  // namespace packetroutines
