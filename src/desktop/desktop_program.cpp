#include "desktop/desktop_program.h"

#include <QGuiApplication>
#include <QScreen>
#include <string>
#include <utility>
#include <vector>

#include "desktop/look/twips.h"
#include "desktop/services/system_locale.h"
#include "system/sleep.h"

namespace desktop {

namespace {

platform::Screen PrimaryScreen() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  // Where every screen is switched off the program says that it needs a larger one.
  if (screen == nullptr) return {};
  const QSize size = screen->size();
  return {twips::Of(size.width()), twips::Of(size.height())};
}

}  // namespace

DesktopProgram::DesktopProgram(const Sources& sources, platform::RunningProgram::Leave leave)
    : store_(dialogs_),
      program_([this] { Flush(); }, std::move(leave)),
      guard_(dialogs_, program_),
      events_(repaints_, guard_),
      loop_({sources.Clock, sources.Frames, guard_, timerAlarm_, frameAlarm_}),
      numbers_(SeparatorsOf(QLocale::system())),
      calendar_(QLocale::system()),
      surface_(printers_, calendar_),
      screen_(PrimaryScreen()),
      sleep_(host::NewSleepInhibitor()),
      application_({loop_.Timers, events_, dialogs_, program_, store_, sources.Capture,
                    sources.Code, numbers_, files_, links_, calendar_, &folders_, &printers_,
                    &surface_, &clipboard_, &pointer_, &screen_, sleep_.get(), sync_.get()}),
      window_({application_.Windows.Main, application_.Windows.Revisionhistory,
               application_.Windows.DebugWindow, application_.Windows.IDlook,
               application_.Windows.EndQuestion},
              guard_, repaints_) {
  surface_.DataPath = [this] { return application_.Config.Settings.StoragePath; };
  dialogs_.SetOwner(&window_);
  folders_.SetOwner(&window_);
  loop_.AlsoHold(store_);
  loop_.AlsoHold(links_);
  dialogs_.Stands = [this](bool stands) { loop_.BoxStands(stands); };
  folders_.Stands = dialogs_.Stands;
  window_.Unloaded = [this] { guard_.End(0); };
  window_.FilesDropped = [this](const std::vector<std::string>& paths) {
    application_.Dropped.Take(paths);
  };
  QObject::connect(qGuiApp, &QGuiApplication::commitDataRequest, &window_,
                   [this] { EndSession(); });
}

DesktopProgram::~DesktopProgram() {
  // From here on nothing may reach a program that is taken down part by part.
  dialogs_.SetOwner(nullptr);
  window_.hide();
}

void DesktopProgram::Flush() {
  store_.SyncQuietly();
  application_.CloseFiles();
}

void DesktopProgram::LeaveWithoutDisplay() {
  application_.CloseFiles();
  host::LeaveProcess(platform::Guard::FailureExitCode);
}

void DesktopProgram::Load() {
  guard_([this] { application_.Load(); });
  repaints_.Flush();
}

void DesktopProgram::EndSession() {
  if (guard_.Closed()) {
    // A failure's box stands and nobody is there to close it.
    guard_.End(platform::Guard::FailureExitCode);
    return;
  }
  guard_([this] { application_.EndSession(); });
}

}  // namespace desktop
