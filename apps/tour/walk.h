#pragma once

#include <QDir>
#include <QString>
#include <functional>
#include <optional>

#include "desktop/desktop_program.h"
#include "hand.h"
#include "record.h"

namespace tour {

/// One walk through the program in its real window, on the simulated bus.
class Walk {
 public:
  /// `started` is when the process of the walk was started, in ms of the system's time.
  Walk(const desktop::Sources& sources, QSize size, qint64 started, Record& record);

  void Run();

 private:
  void ShowStart();
  void MeasureStart();
  void VisitTabs();
  void ReadHistory();
  void SetUp();
  void MeasureFirstStation();
  void MeasureSecondStation();
  void MeasureRealTime();
  void Stop();
  void MeasurePhasors();
  void WatchWaveforms();
  void FindStreams();
  void RecordInAllFormats();
  void RecordAs(const QString& format);
  void PictureOfTheAnalysis();
  void KeepWhatRuns();
  void ChooseFolder();
  void MissFolder();
  void MakeReports();
  void PrintPages();
  /// Leaves what the program has written beside the pictures.
  void KeepFiles(const QString& what);
  QDir DataFolder();
  static QString ToText(const std::string& text) { return QString::fromStdString(text); }
  void MeetNoData();
  void Exit();

  /// What the table of the Phasor view reads.
  QString Cell(int row, int column) const;
  void AwaitButton(const QString& button);
  void PressRun();
  QString Reading(int channel) const;
  double Value(int channel) const;
  bool IsLocked() const;
  bool IsCapturing() const;
  /// Waits until the first current reads about this value.
  bool WaitForCurrent(double amperes) const;
  void NoteSet(const QString& station, double amperes, double kilovolts);

  std::optional<int> exitCode_;
  desktop::DesktopProgram program_;
  QSize size_;
  qint64 started_;
  Record& record_;
  Hand hand_;
};

}  // namespace tour
