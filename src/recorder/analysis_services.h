#pragma once

#include <functional>

#include "platform/number_text.h"
#include "platform/services/calendar.h"
#include "platform/services/code_page.h"
#include "platform/services/dialogs.h"
#include "platform/services/mouse_pointer.h"
#include "platform/services/program.h"
#include "platform/services/system_services.h"

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
  /// Closes every file that the program has open, a worksheet too.
  std::function<void()> CloseFiles;
};

}  // namespace packetroutines
