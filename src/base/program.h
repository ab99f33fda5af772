#pragma once

namespace platform {

/// The program as the platform runs it.
class Program {
 public:
  virtual ~Program() = default;
  /// Ends the program at once, with files and settings closed. Does not return: in a test it leaves
  /// the scene by an exception that is no `Failure`.
  [[noreturn]] virtual void End() = 0;
};

}  // namespace platform
