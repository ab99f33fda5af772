#pragma once

#include "base/number_text.h"
#include "base/program.h"
#include "platform/services/calendar.h"
#include "platform/services/code_page.h"
#include "platform/services/dialogs.h"
#include "platform/services/mouse_pointer.h"
#include "platform/services/system_services.h"
#include "recorder/writing/file_numbers.h"

namespace packetroutines {

/// What follows a recording needs this of the platform, besides the files.
struct AnalysisServices {
  const platform::CodePage& Code;
  const platform::NumberText& Numbers;
  const platform::Calendar& Calendar;
  platform::MousePointer& Pointer;
  platform::Dialogs& Dialogs;
  platform::ShellLinks& Links;
  platform::Program& Program;
  /// What the program has open, worksheets too.
  FileNumbers& Open;
};

}  // namespace packetroutines
