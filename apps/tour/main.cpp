#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <exception>
#include <iostream>

#include "adapters/steady_clock.h"
#include "adapters/system_capture_layer.h"
#include "adapters/windows1252.h"
#include "desktop/look/look.h"
#include "walk.h"

namespace {

constexpr int WalkTimeoutMs = 180'000;

/// One walk: its name, the window's size in its own pixels, and the screen's scale.
struct Plan {
  QString Name;
  QString Width;
  QString Height;
  QString Scale;
};

const QList<Plan>& Plans() {
  static const QList<Plan> plans = {{"1024x768", "1024", "768", "1"},
                                    {"1920x1080", "1920", "1080", "1"},
                                    {"3840x2160", "1920", "1080", "2"}};
  return plans;
}

int RunWalk(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("Vornik");
  QApplication::setQuitOnLastWindowClosed(false);
  desktop::look::Apply(application);
  const QStringList arguments = QApplication::arguments();
  tour::Record record(arguments[1], arguments[2]);
  const adapters::SteadyClock clock;
  const adapters::Windows1252 code;
  // No interfaces and no files: the tour shows the same on every computer.
  adapters::SystemCaptureLayer capture(clock, {},
                                       [] { return std::vector<adapters::NetworkInterface>(); });
  try {
    tour::Walk walk({capture, capture, code, clock}, {arguments[3].toInt(), arguments[4].toInt()},
                    arguments[5].toLongLong(), record);
    walk.Run();
  } catch (const std::exception& error) {
    record.Step(QString::fromUtf8(error.what()), false);
  }
  return record.Save() && record.AllRight() ? 0 : 1;
}

/// Each walk runs in a process of its own, since the scale of the screen holds for a whole process;
/// its settings and data lie in a folder that goes with it.
bool StartWalk(const QString& folder, const Plan& plan) {
  const QTemporaryDir home;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  // The pictures show the end of the data path.
  QDir(home.path()).mkpath("home/engineer");
  environment.insert("HOME", home.filePath("home/engineer"));
  environment.insert("XDG_CONFIG_HOME", home.filePath("config"));
  environment.insert("XDG_DATA_HOME", home.filePath("data"));
  // No viewer comes up for what the walk records, whatever the computer has.
  environment.insert("PATH", home.filePath("nothing"));
  environment.insert("QT_SCALE_FACTOR", plan.Scale);
  environment.insert("LC_ALL", "C.UTF-8");
  QProcess process;
  process.setProcessEnvironment(environment);
  process.setProcessChannelMode(QProcess::ForwardedChannels);
  std::cout << plan.Name.toStdString() << std::endl;
  process.start(QCoreApplication::applicationFilePath(),
                {folder, plan.Name, plan.Width, plan.Height,
                 QString::number(QDateTime::currentMSecsSinceEpoch())});
  const bool finished = process.waitForFinished(WalkTimeoutMs);
  return finished && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

bool WriteSummary(const QString& folder, bool right) {
  QJsonArray walks;
  for (const Plan& plan : Plans()) {
    QFile file(folder + "/" + plan.Name + "_record.json");
    if (file.open(QIODevice::ReadOnly)) {
      walks.append(QJsonDocument::fromJson(file.readAll()).object());
      file.remove();
    }
  }
  QFile summary(folder + "/summary.json");
  const QByteArray text = QJsonDocument(QJsonObject{{"right", right}, {"walks", walks}}).toJson();
  return summary.open(QIODevice::WriteOnly) && summary.write(text) == text.size();
}

/// Leaves a picture of each printed page, where the computer has something to draw it with.
void DrawPages(const QString& folder) {
  const QString tool = QStandardPaths::findExecutable("pdftoppm");
  if (tool.isEmpty()) {
    std::cout << "no pictures of the printed pages: pdftoppm is not on this computer" << std::endl;
    return;
  }
  const QDir pages(folder);
  for (const QString& page : pages.entryList({"*.pdf"}, QDir::Files)) {
    QProcess::execute(tool, {"-r", "80", "-png", "-singlefile", pages.filePath(page),
                             pages.filePath(QFileInfo(page).completeBaseName())});
  }
}

int RunTour(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QString folder = QDir(QCoreApplication::arguments()[1]).absolutePath();
  if (!QDir().mkpath(folder)) {
    std::cerr << "cannot make " << folder.toStdString() << std::endl;
    return 1;
  }
  bool right = true;
  for (const Plan& plan : Plans()) right = StartWalk(folder, plan) && right;
  DrawPages(folder);
  right = WriteSummary(folder, right) && right;
  std::cout << (right ? "The tour went well: " : "The tour FAILED: ") << folder.toStdString()
            << std::endl;
  return right ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  constexpr int TourArguments = 2;
  constexpr int WalkArguments = 6;
  try {
    if (argc == TourArguments) return RunTour(argc, argv);
    if (argc == WalkArguments) return RunWalk(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << error.what() << std::endl;
    return 1;
  }
  std::cerr << "usage: vornik_tour OUT_DIR" << std::endl;
  return 2;
}
