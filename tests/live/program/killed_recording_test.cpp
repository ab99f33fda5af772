// Recordings whose program is killed, and the starts that follow.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <array>
#include <list>

namespace desktop {
namespace {

/// A computer on which a program records the simulated bus as text, is killed, and is started
/// again.
class Computer {
 public:
  void StartProgram() {
    told_ = {};
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", home_.path());
    environment.insert("XDG_CONFIG_HOME", home_.filePath("config"));
    environment.insert("XDG_DATA_HOME", home_.filePath("data"));
    program_.setProcessEnvironment(environment);
    program_.start(VORNIK_SOAK,
                   {"Simulated process bus", "0", seconds_, "1", "VORNIK-SIM-1", "VORNIK-SIM-2"});
  }
  void StartProgramToEnd() {
    seconds_ = "2.5";
    StartProgram();
  }

  /// Whole rings of a stream that the page has told of.
  int Told(std::size_t stream) {
    while (program_.canReadLine()) {
      const QString line = QString::fromUtf8(program_.readLine()).trimmed();
      // "page stream 1: 2 whole rings, 640 kB on disk"
      if (line.startsWith("page stream ")) {
        told_[line[12] == u'1' ? 0 : 1] = line.section(' ', 3, 3).toInt();
      }
    }
    return told_[stream];
  }
  bool Records() { return Told(0) > 0 && Told(1) > 0; }
  void Kill() {
    program_.kill();
    program_.waitForFinished();
  }
  bool EndedWell() {
    return program_.waitForFinished(20'000) && program_.exitStatus() == QProcess::NormalExit &&
           program_.exitCode() == 0;
  }

  /// Each ring that the page told of must stand whole in the file that is new.
  void ExpectRingsOnDisk() {
    for (std::size_t stream = 0; stream < told_.size(); ++stream) {
      const QString name = NewFile(stream);
      ASSERT_FALSE(name.isEmpty()) << "no file of stream " << stream + 1;
      QFile file(home_.filePath("StoredData/" + name));
      ASSERT_TRUE(file.open(QFile::ReadOnly));
      QList<QByteArray> lines = file.readAll().split('\n');
      // What stands behind the last end of a line is no line.
      lines.removeLast();
      ASSERT_GE(lines.size(), Ring * std::max(1, Told(stream))) << name.toStdString();
      ExpectLinesInOrder(lines, stream);
    }
  }

 private:
  static constexpr int Ring = 4000;

  QString NewFile(std::size_t stream) {
    const QString pattern = QString::number(stream + 1) + "_*.txt";
    for (const QString& name : QDir(home_.filePath("StoredData")).entryList({pattern})) {
      if (seen_.contains(name)) continue;
      seen_.insert(name);
      return name;
    }
    return {};
  }
  static void ExpectLinesInOrder(const QList<QByteArray>& lines, std::size_t stream) {
    // The second stream's rings are numbered by counted blocks.
    const int step = stream == 0 ? Ring : 3600;
    int ramp = lines[0].split(';')[1].toInt();
    for (int k = 0; k < lines.size(); ++k) {
      const QList<QByteArray> fields = lines[k].split(';');
      ASSERT_EQ(fields.size(), 10) << lines[k].toStdString();
      ASSERT_EQ(fields[0].toInt(), k / Ring * step + k % Ring);
      ASSERT_EQ(fields[1].toInt(), ramp);
      ASSERT_TRUE(fields[9].endsWith('\r'));
      ramp = (ramp + 1) % Ring;
    }
  }

  QTemporaryDir home_;
  QProcess program_;
  QString seconds_ = "60";
  std::array<int, 2> told_{};
  QSet<QString> seen_;
};

TEST(KilledRecording, LeavesItsWholeRingsAndTheNextStartWorks) {
  constexpr int Computers = 4;
  constexpr int Kills = 5;
  constexpr int PatienceMs = 30'000;
  std::list<Computer> computers(Computers);
  for (int kill = 0; kill < Kills; ++kill) {
    for (Computer& computer : computers) computer.StartProgram();
    for (Computer& computer : computers) {
      ASSERT_TRUE(QTest::qWaitFor([&] { return computer.Records(); }, PatienceMs))
          << "the start behind kill " << kill;
    }
    for (Computer& computer : computers) {
      QTest::qWait(static_cast<int>(QRandomGenerator::system()->bounded(600)));
      computer.Kill();
      computer.ExpectRingsOnDisk();
      if (HasFatalFailure()) return;
    }
  }
  for (Computer& computer : computers) computer.StartProgramToEnd();
  for (Computer& computer : computers) {
    ASSERT_TRUE(computer.EndedWell());
    EXPECT_TRUE(computer.Records());
    computer.ExpectRingsOnDisk();
  }
}

}  // namespace
}  // namespace desktop
