#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace host {

/// A program that was started and runs beside this one, with nothing to read and nobody to tell.
class ChildProcess {
 public:
  /// Starts a program of the search path; nothing where it cannot be started.
  static std::optional<ChildProcess> Start(const std::string& program,
                                           const std::vector<std::string>& arguments);

  static constexpr int Killed = -1;
  /// The exit code of a program that has ended, `Killed` where a signal ended it; nothing while it
  /// runs. The answer is given once.
  std::optional<int> ExitCode() const;

 private:
  explicit ChildProcess(pid_t id) : id_(id) {}

  pid_t id_;
};

}  // namespace host
