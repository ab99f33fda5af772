#pragma once

#include <functional>

#include "base/program.h"

namespace desktop {

/// The running program. It ends at once by leaving the process, so that no handler that is under
/// way meets a world half taken down.
class QtProgram : public platform::Program {
 public:
  /// Leaves the process with an exit code.
  using Leave = std::function<void(int)>;

  /// `flush` saves what must outlive the process; it must not let events in. A scene gives its own
  /// `leave`, which throws `ProgramEnded`.
  QtProgram(std::function<void()> flush, Leave leave);

  [[noreturn]] void End() override { EndWith(0); }
  [[noreturn]] void EndWith(int exitCode);

 private:
  std::function<void()> flush_;
  Leave leave_;
};

}  // namespace desktop
