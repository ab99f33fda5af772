#include "walk_process.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QThread>
#include <iostream>
#include <memory>
#include <vector>

namespace tour {

namespace {

constexpr int WalkTimeoutMs = 240'000;
constexpr int LookMs = 50;
/// A walk waits for most of its time.
constexpr int WalksPerCore = 2;

}  // namespace

WalkProcess::WalkProcess(const QString& folder, const Plan& plan) : plan_(plan) {
  // The pictures show the end of the data path.
  QDir(home_.path()).mkpath("home/engineer");
  if (VirtualDisplay::Possible()) display_.emplace();
  process_.setProcessEnvironment(Environment());
  process_.setProcessChannelMode(QProcess::MergedChannels);
  process_.start(
      QCoreApplication::applicationFilePath(),
      {folder, plan.Name, QString::number(plan.Size.width()), QString::number(plan.Size.height()),
       plan.Dark ? "dark" : "light", QString::number(QDateTime::currentMSecsSinceEpoch())});
}

QProcessEnvironment WalkProcess::Environment() const {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("HOME", home_.filePath("home/engineer"));
  environment.insert("XDG_CONFIG_HOME", home_.filePath("config"));
  environment.insert("XDG_DATA_HOME", home_.filePath("data"));
  // No viewer comes up for what the walk records, whatever the computer has.
  environment.insert("PATH", home_.filePath("nothing"));
  environment.insert("QT_SCALE_FACTOR", QString::number(plan_.Scale));
  environment.insert("LC_ALL", "C.UTF-8");
  if (display_ && !display_->Name().isEmpty()) {
    environment.insert("DISPLAY", display_->Name());
    environment.remove("WAYLAND_DISPLAY");
    environment.insert("QT_QPA_PLATFORM", "xcb");
  }
  return environment;
}

bool WalkProcess::Finished(int waitMs) {
  return process_.state() == QProcess::NotRunning || process_.waitForFinished(waitMs);
}

bool WalkProcess::Right() {
  const bool finished = Finished(0);
  if (!finished) process_.kill();
  std::cout << plan_.Name.toStdString() << "\n"
            << process_.readAll().toStdString() << (finished ? "" : "  FAILED it came to no end\n")
            << std::flush;
  return finished && process_.exitStatus() == QProcess::NormalExit && process_.exitCode() == 0;
}

bool WalkAll(const QString& folder, const QList<Plan>& plans) {
  // Beside each other on the screen of the computer, walks would disturb one another.
  const std::size_t together =
      VirtualDisplay::Possible() ? WalksPerCore * std::max(1, QThread::idealThreadCount()) : 1;
  bool right = true;
  std::vector<std::unique_ptr<WalkProcess>> walks;
  QElapsedTimer sinceLast;
  sinceLast.start();
  for (qsizetype next = 0; next < plans.size() || !walks.empty();) {
    // The first one is alone, since it tells how long the start takes.
    const std::size_t allowed = next == 1 ? 1 : together;
    if (next < plans.size() && walks.size() < allowed) {
      walks.push_back(std::make_unique<WalkProcess>(folder, plans[next++]));
      sinceLast.restart();
      continue;
    }
    const bool late = sinceLast.elapsed() > WalkTimeoutMs;
    for (auto walk = walks.begin(); walk != walks.end();) {
      const bool through = (*walk)->Finished(LookMs) || late;
      if (through) right = (*walk)->Right() && right;
      walk = through ? walks.erase(walk) : walk + 1;
    }
  }
  return right;
}

}  // namespace tour
