#pragma once

#include <QProcess>
#include <QTemporaryDir>
#include <optional>

#include "plan.h"
#include "virtual_display.h"

namespace tour {

/// A walk in a process of its own, since the scale of the screen holds for a whole process. Its
/// settings and data lie in a folder that goes with it, and it has a screen of its own where this
/// computer can make one.
class WalkProcess {
 public:
  WalkProcess(const QString& folder, const Plan& plan);

  /// Looks whether it is through, for as long as this many milliseconds.
  bool Finished(int waitMs);
  /// Whether all went well; what the walk told is printed.
  bool Right();

 private:
  QProcessEnvironment Environment() const;

  Plan plan_;
  QTemporaryDir home_;
  std::optional<VirtualDisplay> display_;
  QProcess process_;
};

/// Walks all plans, several at a time; True where all went well.
bool WalkAll(const QString& folder, const QList<Plan>& plans);

}  // namespace tour
