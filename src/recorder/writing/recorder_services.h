#pragma once

#include "base/number_text.h"
#include "platform/controls/timer.h"
#include "platform/services/calendar.h"
#include "platform/services/code_page.h"
#include "platform/services/disk_sync.h"
#include "platform/services/file_system.h"
#include "platform/services/mouse_pointer.h"
#include "platform/services/services.h"
#include "platform/services/sleep_inhibitor.h"
#include "platform/services/system_services.h"

namespace packetroutines {

/// What the recorder asks of the platform: the writing of a recording, its end, and what reads it
/// back.
struct RecorderServices {
  platform::Services Usual;
  const platform::CodePage& Code;
  const platform::NumberText& Numbers;
  platform::FileSystem& Files;
  const platform::Calendar& Calendar;
  platform::MousePointer& Pointer;
  platform::ShellLinks& Links;
  /// The time that the rate of a recording goes by, and its looks.
  platform::TimerCount& Timers;
  platform::SleepInhibitor& Sleep;
  /// Null where the platform cannot tell what is on the disk itself.
  platform::DiskSync* Sync;
};

}  // namespace packetroutines
