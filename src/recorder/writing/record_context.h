#pragma once

#include <string>

#include "base/number_text.h"
#include "capture/acquisition_state.h"
#include "capture/record_rings.h"
#include "config/settings.h"
#include "platform/services/code_page.h"
#include "platform/services/file_system.h"
#include "recorder/writing/file_numbers.h"
#include "recorder/writing/record_files.h"

namespace packetroutines {

/// What every writer of samples works with: the settings and counters that its lines show, the
/// rings that it empties, and the files that it writes.
struct RecordContext {
  const config::Settings& Settings;
  const config::RunSettings& Present;
  const AcquisitionState& State;
  const RecordRings& Rings;
  const platform::FileSystem& Files;
  FileNumbers& Open;
  const platform::NumberText& Numbers;
  const platform::CodePage& Code;
};

/// The file that the samples of a stream, 0 or 1, go to.
inline std::string RecordPath(const RecordContext& context, std::size_t stream) {
  return RecordPath(context.Files, context.Settings,
                    RecordPrefix(stream, context.Present) + context.State.RecordFileName);
}

}  // namespace packetroutines
