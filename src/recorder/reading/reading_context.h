#pragma once

#include <string>

#include "capture/acquisition_state.h"
#include "config/settings.h"
#include "recorder/reading/log_lines.h"
#include "recorder/writing/file_numbers.h"
#include "recorder/writing/record_names.h"
#include "recorder/writing/recorder_services.h"
#include "recorder/writing/sample_formats.h"

namespace packetroutines {

/// In front of the name of a recording's file: its log of the stop, and that of a later check.
inline constexpr const char* LogBeginning = "Errorlog ";
inline constexpr const char* CheckBeginning = "Checklog ";

/// The latest recording and what it is read back with: the settings that it was made with, where it
/// lies, and what the program has open, worksheets too. The names are those of one stream; the
/// files of two streams bear prefixes, and nothing here finds them.
struct ReadingContext {
  const config::Settings& Settings;
  const config::RunSettings& Present;
  const AcquisitionState& State;
  const SampleFormats& Formats;
  FileNumbers& Open;
  RecorderServices Services;

  std::string Path() const { return PathOf(State.RecordFileName); }
  std::string LogPath() const { return PathOf(LogBeginning + State.RecordFileName); }
  std::string PathOf(const std::string& name) const {
    return RecordPath(Services.Files, Settings, name);
  }
  LogTexts Texts() const { return {Services.Code, Services.Numbers, Services.Calendar}; }
};

}  // namespace packetroutines
