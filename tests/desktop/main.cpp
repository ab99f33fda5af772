#include <gmock/gmock.h>

#include <QApplication>
#include <QTemporaryFile>

#include "desktop/look/look.h"
#include "support/run_scenes.h"

int main(int argc, char** argv) {
  // Listing the tests needs a window system as little as running them does; the first screen is the
  // one that the program begins on.
  QTemporaryFile screen;
  if (!screen.open()) return 1;
  screen.write(R"({"screens": [
      {"name": "usual", "x": 0, "y": 0, "width": 1920, "height": 1080,
       "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
      {"name": "large", "x": 1920, "y": 0, "width": 3840, "height": 2160,
       "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
      {"name": "low", "x": 5760, "y": 0, "width": 1366, "height": 768,
       "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
      {"name": "portrait", "x": 7126, "y": 0, "width": 1080, "height": 1920,
       "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
      {"name": "smallest", "x": 8206, "y": 0, "width": 1024, "height": 768,
       "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
  screen.close();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screen.fileName().toUtf8());
  testing::InitGoogleMock(&argc, argv);
  QApplication application(argc, argv);
  QApplication::setApplicationName("Vornik");
  QApplication::setQuitOnLastWindowClosed(false);
  desktop::look::Apply(application);
  return RunScenes();
}
