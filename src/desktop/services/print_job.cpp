#include "desktop/services/print_job.h"

#include <QDir>
#include <QStandardPaths>
#include <QTimer>
#include <utility>

#include "base/failure.h"
#include "desktop/look/text.h"
#include "system/process.h"

namespace desktop {

QString PrintJob::Command() {
  return QStandardPaths::findExecutable(QStringLiteral("lp"));
}

PrintJob::PrintJob(JobOrder order, Told told, QObject* owner)
    : QObject(owner),
      order_(std::move(order)),
      told_(std::move(told)),
      file_(QDir::tempPath() + QStringLiteral("/vornik_XXXXXX.pdf")) {
  // The command has its page open by then, and nothing is left behind whatever ends the program.
  connect(&process_, &QProcess::started, this, [this] { file_.remove(); });
  connect(&process_, &QProcess::finished, this, &PrintJob::TakeEnd);
  connect(&process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
    if (error == QProcess::FailedToStart) Tell(process_.errorString());
  });
}

PrintJob::~PrintJob() {
  process_.disconnect(this);
}

void PrintJob::Start(const QByteArray& pdf) {
  if (!file_.open() || file_.write(pdf) != pdf.size() || !file_.flush()) {
    throw platform::Failure(platform::failure::PrinterError, FromQt(file_.errorString()));
  }
  QTimer::singleShot(order_.PatienceMs, this, [this] {
    Tell(QStringLiteral("the queue of \"%1\" does not answer").arg(order_.Printer));
  });
  process_.setStandardInputFile(file_.fileName());
  host::KeepDescriptorsFromChildren();
  process_.start(Command(),
                 {QStringLiteral("-d"), order_.Printer, QStringLiteral("-t"), order_.Document,
                  QStringLiteral("-o"), QStringLiteral("media=") + order_.Media});
}

void PrintJob::TakeEnd(int exitCode, QProcess::ExitStatus status) {
  if (status == QProcess::NormalExit && exitCode == 0) {
    Tell({});
    return;
  }
  Tell(QStringLiteral("\"%1\" refused the page (%2)")
           .arg(order_.Printer,
                QString::fromLocal8Bit(process_.readAllStandardError()).simplified()));
}

void PrintJob::Tell(const QString& refusal) {
  if (const Told told = std::exchange(told_, nullptr)) {
    deleteLater();
    told({{}, FromQt(refusal)});
  }
}

}  // namespace desktop
