#pragma once

#include "base/number_text.h"
#include "base/program.h"
#include "platform/controls/window.h"
#include "platform/loop/timer_queue.h"
#include "platform/services/calendar.h"
#include "platform/services/capture_object.h"
#include "platform/services/clipboard.h"
#include "platform/services/code_page.h"
#include "platform/services/disk_sync.h"
#include "platform/services/file_system.h"
#include "platform/services/mouse_pointer.h"
#include "platform/services/print_surface.h"
#include "platform/services/services.h"
#include "platform/services/settings_store.h"
#include "platform/services/sleep_inhibitor.h"
#include "platform/services/system_services.h"

namespace formroutines {

/// What the program needs of the platform that it runs on.
struct Platform {
  platform::TimerQueue& Timers;
  platform::EventQueue& Events;
  platform::Dialogs& Dialogs;
  platform::Program& Program;
  platform::SettingsStore& Store;
  platform::CaptureLayer& Capture;
  const platform::CodePage& Code;
  const platform::NumberText& Numbers;
  platform::FileSystem& Files;
  platform::ShellLinks& Links;
  const platform::Calendar& Calendar;
  // What a face may lack, and then gives none of.
  platform::FolderDialog* Folders = nullptr;
  platform::Printers* Printers = nullptr;
  platform::PrintSurface* Surface = nullptr;
  platform::Clipboard* Clipboard = nullptr;
  platform::MousePointer* Pointer = nullptr;
  /// Where there is one, it must be large enough.
  const platform::Screen* Screen = nullptr;
  platform::SleepInhibitor* Sleep = nullptr;
  /// Without it a file that is written counts as one that is on disk.
  platform::DiskSync* Sync = nullptr;

  platform::Services Usual() const { return {Events, Dialogs, Program}; }
};

}  // namespace formroutines
