#pragma once

#include <QByteArray>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QTemporaryFile>
#include <functional>

#include "platform/services/print_surface.h"

namespace desktop {

/// What is told to a queue beside the page.
struct JobOrder {
  QString Printer;
  QString Document;
  QString Media;
  /// How long the queue may take to answer.
  int PatienceMs = 10'000;
};

/// A page on its way to a queue by the system's own command, which tells when the queue refuses it.
/// Nothing waits for the command: its answer comes as an event, and a queue without one is given up
/// after a while. The job is gone when it has told.
class PrintJob : public QObject {
  Q_OBJECT

 public:
  using Told = std::function<void(const platform::SentPage&)>;

  /// The command that hands files to the queues of a Unix system; empty where there is none.
  static QString Command();

  PrintJob(JobOrder order, Told told, QObject* owner);
  PrintJob(const PrintJob&) = delete;
  PrintJob& operator=(const PrintJob&) = delete;
  /// A job that is still under way tells nobody.
  ~PrintJob() override;

  /// Failure `PrinterError` where the page cannot be put into a file.
  void Start(const QByteArray& pdf);

 private:
  void TakeEnd(int exitCode, QProcess::ExitStatus status);
  void Tell(const QString& refusal);

  JobOrder order_;
  Told told_;
  QTemporaryFile file_;
  QProcess process_;
};

}  // namespace desktop
