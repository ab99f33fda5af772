#pragma once

#include <functional>

#include "base/program.h"

namespace platform {

/// The running program. It ends at once by leaving the process, so that no handler that is under
/// way meets a world half taken down.
class RunningProgram : public Program {
 public:
  /// Leaves the process with an exit code. Where it comes back the process lives on, and
  /// `ProgramEnded` unwinds what was under way.
  using Leave = std::function<void(int)>;

  /// `flush` saves what must outlive the process; it must not let events in.
  RunningProgram(std::function<void()> flush, Leave leave);

  [[noreturn]] void End() override { EndWith(0); }
  [[noreturn]] void EndWith(int exitCode);

 private:
  std::function<void()> flush_;
  Leave leave_;
};

}  // namespace platform
