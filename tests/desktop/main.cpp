#include <gmock/gmock.h>

#include <QApplication>
#include <QTemporaryFile>

#include "desktop/look/look.h"
#include "support/run_scenes.h"

int main(int argc, char** argv) {
  // Listing the tests needs a window system as little as running them does; the screen is one that
  // the program accepts.
  QTemporaryFile screen;
  if (!screen.open()) return 1;
  screen.write(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": 1920, "height": 1080,
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
