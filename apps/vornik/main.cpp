#include <QApplication>
#include <QDir>
#include <QStandardPaths>
#include <filesystem>

#include "adapters/steady_clock.h"
#include "adapters/system_capture_layer.h"
#include "adapters/windows1252.h"
#include "desktop/desktop_program.h"
#include "desktop/look.h"
#include "desktop/termination_signals.h"

namespace {

std::filesystem::path NativePath(const QString& path) {
  return std::filesystem::path(path.toStdU16String());
}

std::filesystem::path CapturesFolder() {
  const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  return NativePath(data) / "vornik" / "captures";
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Vornik"));
  // The program ends when it has unloaded its window, not when one of its boxes closes.
  QApplication::setQuitOnLastWindowClosed(false);
  desktop::look::Apply(application);

  const adapters::SteadyClock clock;
  const adapters::Windows1252 code;
  adapters::SystemCaptureLayer capture(
      clock, {CapturesFolder(), NativePath(QApplication::applicationFilePath())});
  desktop::DesktopProgram program({capture, capture, code, clock});
  const desktop::TerminationSignals termination([&program] { program.EndSession(); });

  program.Load();
  return QApplication::exec();
}
