#include <QApplication>
#include <exception>
#include <filesystem>
#include <iostream>

#include "adapters/rights/capture_right.h"
#include "adapters/rights/launcher.h"
#include "adapters/rights/right_advice.h"
#include "adapters/steady_clock.h"
#include "adapters/system_capture_layer.h"
#include "adapters/windows1252.h"
#include "desktop/binding/termination.h"
#include "desktop/desktop_program.h"
#include "desktop/look/look.h"
#include "desktop/services/qt_dialogs.h"
#include "system/places.h"
#include "system/process.h"

namespace {

std::filesystem::path CapturesFolder() {
  return host::DataFolder() / "vornik" / "captures";
}

int Run() {
  const adapters::SteadyClock clock;
  const adapters::Windows1252 code;
  adapters::SystemCaptureLayer capture(
      clock, {CapturesFolder(), adapters::AdviceOn(adapters::FindWayToRight())});
  desktop::DesktopProgram program({capture, capture, code, clock});
  const desktop::Termination termination([&program] { program.EndSession(); });

  program.Load();
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  adapters::StartThroughLauncher(argc, argv);
  adapters::ReserveCaptureRight();
  host::GiveLargeMemoryBack();
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Vornik"));
  // The program ends when it has unloaded its window, not when one of its boxes closes.
  QApplication::setQuitOnLastWindowClosed(false);
  desktop::look::Apply(application);
  try {
    return Run();
  } catch (const std::exception& error) {
    // What fails before the window is there has no other place to be told.
    std::cerr << error.what() << std::endl;
    desktop::QtDialogs().Show({"", error.what(), platform::Icon::Critical});
    return 1;
  }
}
