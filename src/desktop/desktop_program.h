#pragma once

#include <memory>

#include "base/number_text.h"
#include "desktop/binding/lost_display.h"
#include "desktop/binding/qt_event_queue.h"
#include "desktop/binding/repaint_queue.h"
#include "desktop/services/qt_alarm.h"
#include "desktop/services/qt_calendar.h"
#include "desktop/services/qt_clipboard.h"
#include "desktop/services/qt_dialogs.h"
#include "desktop/services/qt_folder_dialog.h"
#include "desktop/services/qt_mouse_pointer.h"
#include "desktop/services/qt_print_surface.h"
#include "desktop/services/qt_printers.h"
#include "desktop/services/qt_settings_store.h"
#include "desktop/services/qt_shell_links.h"
#include "desktop/window/main_window.h"
#include "platform/clock.h"
#include "platform/loop/guard.h"
#include "platform/loop/loop.h"
#include "platform/loop/running_program.h"
#include "platform/services/capture_object.h"
#include "platform/services/code_page.h"
#include "platform/services/sleep_inhibitor.h"
#include "shell/application.h"
#include "system/computer_files.h"
#include "system/disk_sync.h"
#include "system/process.h"

namespace desktop {

/// What the program takes from below the window: where frames come from, and the time.
struct Sources {
  platform::CaptureLayer& Capture;
  platform::FrameDelivery& Frames;
  const platform::CodePage& Code;
  const platform::Clock& Clock;
};

/// The whole program with its window, put together. The program itself, the tour and the window's
/// tests all start from here, so that they run the same thing.
class DesktopProgram {
 public:
  /// `leave` takes the place of leaving the process, for those who want to see the end.
  explicit DesktopProgram(const Sources& sources,
                          platform::RunningProgram::Leave leave = host::LeaveProcess);
  DesktopProgram(const DesktopProgram&) = delete;
  DesktopProgram& operator=(const DesktopProgram&) = delete;
  ~DesktopProgram();

  /// Loads the settings and shows the window with the last view.
  void Load();
  /// Ends the program at once, with capture stopped: for requests from outside, which cannot wait.
  void EndSession();

  MainWindow& Window() { return window_; }
  formroutines::Application& Application() { return application_; }

 private:
  /// Saves what must outlive the process.
  void Flush();
  /// Ends what is recorded, and leaves. The toolkit's own settings are gone by then, and what was
  /// changed was written behind each change.
  void LeaveWithoutDisplay();

  QtDialogs dialogs_;
  QtSettingsStore store_;
  platform::RunningProgram program_;
  platform::Guard guard_;
  RepaintQueue repaints_;
  QtEventQueue events_;
  QtAlarm timerAlarm_;
  QtAlarm frameAlarm_;
  platform::Loop loop_;
  platform::NumberText numbers_;
  host::ComputerFiles files_;
  QtFolderDialog folders_;
  QtPrinters printers_;
  QtShellLinks links_{[this](const std::function<void()>& action) { guard_(action); }};
  QtCalendar calendar_;
  QtMousePointer pointer_;
  QtPrintSurface surface_;
  QtClipboard clipboard_;
  platform::Screen screen_;
  std::unique_ptr<platform::SleepInhibitor> sleep_;
  std::unique_ptr<platform::DiskSync> sync_ = host::MakeDiskSync();
  formroutines::Application application_;
  MainWindow window_;
  LostDisplay lostDisplay_{[this] { LeaveWithoutDisplay(); }};
};

}  // namespace desktop
