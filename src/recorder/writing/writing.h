#pragma once

#include "base/plug.h"
#include "capture/acquisition_state.h"
#include "capture/record_rings.h"
#include "config/settings.h"
#include "forms/recorder_controls.h"
#include "recorder/writing/comtrade_format.h"
#include "recorder/writing/disk_report.h"
#include "recorder/writing/file_numbers.h"
#include "recorder/writing/recorder_services.h"
#include "recorder/writing/recording_end.h"
#include "recorder/writing/sample_formats.h"
#include "recorder/writing/sample_writer.h"
#include "recorder/writing/text_format.h"
#include "recorder/writing/worksheet_format.h"
#include "recorder/writing/writing_context.h"

namespace packetroutines {

/// The way of the samples to disk: the files that are open, what is told of them, the formats, and
/// what moves a ring to the one that is chosen.
struct Writing {
  Writing(forms::RecorderControls& recorder, const config::Settings& settings,
          const config::RunSettings& present, const AcquisitionState& state,
          const RecordRings& rings, const RecorderServices& services)
      : Open(services.Files),
        Report(recorder, services),
        Context{settings, present, state, rings, services, Open, Report, End},
        Formats(settings, Text, Worksheet, Comtrade),
        Samples(Context, Formats, recorder) {}

  FileNumbers Open;
  DiskReport Report;
  /// What ends a recording from within the writing of a ring.
  platform::Plug<RecordingEnd> End;
  const WritingContext Context;
  TextFormat Text{Context};
  WorksheetFormat Worksheet{Context};
  ComtradeFormat Comtrade{Context};
  SampleFormats Formats;
  SampleWriter Samples;
};

}  // namespace packetroutines
