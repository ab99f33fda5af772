#include <QApplication>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QPalette>
#include <QProcess>
#include <QStandardPaths>
#include <exception>
#include <iostream>
#include <string>

#include "adapters/steady_clock.h"
#include "adapters/system_capture_layer.h"
#include "adapters/windows1252.h"
#include "contact_sheet.h"
#include "desktop/look/look.h"
#include "plan.h"
#include "walk.h"
#include "walk_process.h"

namespace {

const QColor DarkButton(40, 40, 44);
const QColor DarkWindow(20, 20, 24);

int RunWalk(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("Vornik");
  QApplication::setQuitOnLastWindowClosed(false);
  const QStringList arguments = QApplication::arguments();
  // What the settings of a dark desktop give to every program.
  if (arguments[5] == "dark") QApplication::setPalette(QPalette(DarkButton, DarkWindow));
  desktop::look::Apply(application);
  tour::Record record(arguments[1], arguments[2]);
  const adapters::SteadyClock clock;
  const adapters::Windows1252 code;
  // No interfaces and no files: the tour shows the same on every computer.
  adapters::SystemCaptureLayer capture(clock, {},
                                       [] { return std::vector<adapters::NetworkInterface>(); });
  try {
    tour::Walk walk({capture, capture, code, clock}, {arguments[3].toInt(), arguments[4].toInt()},
                    arguments[6].toLongLong(), record);
    walk.Run();
  } catch (const std::exception& error) {
    record.Step(QString::fromUtf8(error.what()), false);
  }
  return record.Save() && record.AllRight() ? 0 : 1;
}

bool WriteSummary(const QString& folder, bool right) {
  QJsonArray walks;
  for (const tour::Plan& plan : tour::Plans()) {
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
    const QString kind = page.contains("SV report") ? "printed_report" : "printed_waveforms";
    QProcess::execute(tool, {"-r", "80", "-png", "-singlefile", pages.filePath(page),
                             pages.filePath(page.section('_', 0, 0) + "_" + kind)});
  }
}

int RunTour(char** argv) {
  // The sheets are painted in memory; what platform the walks run on stays theirs to say.
  std::string platform[] = {argv[0], argv[1], "-platform", "offscreen"};
  char* arguments[] = {platform[0].data(), platform[1].data(), platform[2].data(),
                       platform[3].data(), nullptr};
  int count = 4;
  const QGuiApplication application(count, arguments);
  const QString folder = QDir(QCoreApplication::arguments()[1]).absolutePath();
  if (!QDir().mkpath(folder)) {
    std::cerr << "cannot make " << folder.toStdString() << std::endl;
    return 1;
  }
  bool right = tour::WalkAll(folder, tour::Plans());
  DrawPages(folder);
  right = tour::MakeContactSheets(folder) && right;
  right = WriteSummary(folder, right) && right;
  std::cout << (right ? "The tour went well: " : "The tour FAILED: ") << folder.toStdString()
            << std::endl;
  return right ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  constexpr int TourArguments = 2;
  constexpr int WalkArguments = 7;
  try {
    if (argc == TourArguments) return RunTour(argv);
    if (argc == WalkArguments) return RunWalk(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << error.what() << std::endl;
    return 1;
  }
  std::cerr << "usage: vornik_tour OUT_DIR" << std::endl;
  return 2;
}
