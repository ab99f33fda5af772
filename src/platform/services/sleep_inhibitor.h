#pragma once

#include <string>

namespace platform {

/// Keeps the computer from going to sleep. Where the system cannot be asked, nothing happens and
/// nothing is told.
class SleepInhibitor {
 public:
  virtual ~SleepInhibitor() = default;
  /// From now on until the release; `why` is told to whoever wants the computer to sleep.
  virtual void Inhibit(const std::string& why) = 0;
  virtual void Release() = 0;
};

}  // namespace platform
